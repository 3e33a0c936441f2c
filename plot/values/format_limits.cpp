#include "vantry/plot/values/format_limits.h"

#include <algorithm>
#include <cstdint>

#include "vantry/base/unicode_converter.h"
#include "vantry/base/vocabulary.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::FixedString;
using base::Token;

namespace {

constexpr const char* noCharacter = "XML does not have all of its characters";

std::string_view viewOf(const char* text) { return text ? text : ""; }

bool isControl(unsigned char c) { return c < ' ' && c != '\t' && c != '\n' && c != '\r'; }

bool hasBlank(std::string_view text) {
  return std::ranges::any_of(text, [](unsigned char c) { return c <= ' '; });
}

// The two characters U+FFFE and U+FFFF, of which UTF-8 has these bytes.
bool hasNoncharacter(std::string_view utf8) {
  return utf8.find("\xEF\xBF\xBE") != utf8.npos || utf8.find("\xEF\xBF\xBF") != utf8.npos;
}

}  // namespace

const char* whyNoOption(Token option) {
  if (viewOf(option.str()).empty()) return "the word is empty";
  return isXmlText(option.str()) ? nullptr : noCharacter;
}

const char* whyNoText(Token word) {
  if (base::wordOf(word) != base::WordId::none) return nullptr;
  if (hasBlank(viewOf(word.str()))) return "the word has a blank";
  return whyNoOption(word);
}

const char* whyNoText(const FixedString& text) {
  return isXmlText(text.c_str()) ? nullptr : noCharacter;
}

const char* whyNoText(const FontStyle& font) {
  if (font.size < 1) return "the font has no size";
  if (font.alignment != Word::Left && font.alignment != Word::Center &&
      font.alignment != Word::Right) {
    return "the font has no alignment";
  }
  const std::string_view family = viewOf(font.family.c_str());
  if (familyOfKind(family)) return "the font's family stands for another";
  const bool needsQuotes = hasBlank(family) || family.starts_with('\'');
  if (isWrittenBare(font.family) && needsQuotes) {
    return "the font's family has an apostrophe that cannot be told from its quotes";
  }
  return whyNoText(font.family);
}

const char* whyNotWritten(Token word) {
  const bool hasMarkup = viewOf(word.str()).find_first_of("<&\"") != std::string_view::npos;
  return hasMarkup ? "the word has a character of markup" : nullptr;
}

bool isWrittenBare(const FixedString& family) {
  return viewOf(family.c_str()).find('\'') != std::string_view::npos;
}

bool isXmlText(const char* native) {
  const std::string_view text = viewOf(native);
  if (std::ranges::any_of(text, isControl)) return false;
  return !base::UnicodeConverter::instance().nativeIsUtf8() || !hasNoncharacter(text);
}

namespace {

// The number of bytes of the character at the beginning, 0 if there is none.
std::size_t characterSize(std::string_view utf8) {
  const auto first = static_cast<unsigned char>(utf8.front());
  const std::size_t size = first < 0x80   ? 1
                           : first < 0xC2 ? 0
                           : first < 0xE0 ? 2
                           : first < 0xF0 ? 3
                           : first < 0xF5 ? 4
                                          : 0;
  if (size > utf8.size()) return 0;
  for (const char byte : utf8.substr(1, size > 0 ? size - 1 : 0)) {
    if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) return 0;
  }
  if (size < 3) return size;
  const auto second = static_cast<unsigned char>(utf8[1]);
  const bool isTooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool isSurrogate = first == 0xED && second > 0x9F;
  const bool isTooLarge = first == 0xF4 && second > 0x8F;
  return isTooLong || isSurrogate || isTooLarge ? 0 : size;
}

}  // namespace

bool isXml(std::string_view utf8) {
  if (hasNoncharacter(utf8)) return false;
  while (!utf8.empty()) {
    if (isControl(static_cast<unsigned char>(utf8.front()))) return false;
    const std::size_t size = characterSize(utf8);
    if (size == 0) return false;
    utf8.remove_prefix(size);
  }
  return true;
}

}  // namespace vantry::plot
