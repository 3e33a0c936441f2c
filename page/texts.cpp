#include "vantry/page/texts.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <sstream>

#include "vantry/base/escape_writers.h"
#include "vantry/javaview/javaview_output.h"

namespace vantry::page {

using namespace plot;

std::string utf8(const char* native) {
  std::ostringstream out;
  base::writeLocaleText(out, native);
  return out.str();
}

std::string childText(const PlotElement& parent, Token name) {
  const dom::Node* child = parent.firstChildByName(name);
  std::string text;
  if (!child) return text;
  for (const dom::Node* part = child->firstChild(); part; part = part->nextSibling()) {
    text += utf8(part->nodeValue());
  }
  return text;
}

std::string ownName(const PlotElement& element) {
  if (!element.hasAttribute(Word::Name)) return {};
  const base::Variant name = element.getPropertyValue(Word::Name);
  return utf8(name.as<base::FixedStringVariant>()->get().c_str());
}

bool isSaid(const PlotElement& element, Token property) {
  const PlotElement* origin = &element;
  while (origin && !origin->hasAttribute(property)) origin = origin->styleParent(property);
  return origin != nullptr;
}

std::string colorText(RGBA color) {
  std::array<char, 8> text;
  std::snprintf(text.data(), text.size(), "#%06x", color.word() & 0xFFFFFFU);
  return text.data();
}

std::string wordText(Token word) {
  std::string text = word ? word.str() : "";
  if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z') text[0] += 'a' - 'A';
  return text;
}

double pixels(double millimetres) { return millimetres * javaview::pixelsPerMillimetre; }

Json fontText(const FontStyle& font) {
  constexpr double pixelsPerPoint = 90.0 / 72;
  return {{"family", utf8(font.family.c_str())},
          {"size", font.size * pixelsPerPoint},
          {"bold", font.bold},
          {"italic", font.italic},
          {"color", colorText(font.color)},
          {"align", wordText(font.alignment)}};
}

void putLine(Json& text, const PlotElement& parent, Token name, const FontStyle& font,
             Token alignment) {
  const std::string line = childText(parent, name);
  if (line.empty()) return;
  Json& member = text[wordText(name)] = fontText(font);
  member["text"] = line;
  member["align"] = wordText(alignment);
}

}  // namespace vantry::page
