// The pieces of the text about a page, as page/CONTRACT.md describes them, in the terms of the plot
// model.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "vantry/plot/framework/element.h"
#include "vantry/plot/values/font_style.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::page {

using Json = nlohmann::ordered_json;

/// Text of the model in UTF-8; null is the empty text. Throws base::BadUnicodeString for a text
/// that the locale cannot hold.
std::string utf8(const char* native);

/// The text of the child `name`, in UTF-8; empty without one.
std::string childText(const plot::PlotElement& parent, base::Token name);

/// The attribute `Name` of an element that may have one, in UTF-8; empty without it.
std::string ownName(const plot::PlotElement& element);

/// Whether the document says what a property of the element is, there or in a style. Where it does
/// not, a page may have its own default.
bool isSaid(const plot::PlotElement& element, base::Token property);

/// "#rrggbb". How much light passes is said by materials.
std::string colorText(plot::RGBA color);

/// The word of a page for one of the model: "FilledCircles" is "filledCircles".
std::string wordText(base::Token word);

/// A font without its text.
Json fontText(const plot::FontStyle& font);

/// Puts the text of the child `name`, unless there is none, into `text` as the member of that name.
void putLine(Json& text, const plot::PlotElement& parent, base::Token name,
             const plot::FontStyle& font, base::Token alignment);

/// A length on the drawing, in pixels.
double pixels(double millimetres);

}  // namespace vantry::page
