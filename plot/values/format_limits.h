// What the input format cannot hold, though the model could.
#pragma once

#include <string_view>

#include "vantry/base/fixed_string.h"
#include "vantry/base/token.h"
#include "vantry/plot/values/font_style.h"

namespace vantry::plot {

// Why no text of an attribute is read as this value. Null for a value that has a text.

/// A word is never empty, and has no blanks.
const char* whyNoText(base::Token word);
/// The same for the name of an option, which may have blanks.
const char* whyNoOption(base::Token option);
/// A text has only characters of XML.
const char* whyNoText(const base::FixedString& text);
/// A font has a size of at least one point and one of the three alignments. Its family may be
/// empty, but it is no name of a kind of families, and an apostrophe and a blank do not go together
/// in it.
const char* whyNoText(const FontStyle& font);

/// Why a word that can be read cannot be written: it is written unchanged.
const char* whyNotWritten(base::Token word);

/// Whether a font's family is written without quotes, since it has one in it.
bool isWrittenBare(const base::FixedString& family);

/// Whether XML has all characters of a native text, null included.
bool isXmlText(const char* native);
/// Whether this is UTF-8, of characters that XML has.
bool isXml(std::string_view utf8);

}  // namespace vantry::plot
