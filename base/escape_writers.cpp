#include "vantry/base/escape_writers.h"

#include <array>
#include <cstddef>
#include <ostream>
#include <span>
#include <string_view>

#include "vantry/base/unicode_converter.h"

namespace vantry::base {
namespace {

// Room for one character, or two, in any form.
constexpr std::size_t characterRoom = 12;

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

template <class Out>
void putEscaped(Out& out, char byte) {
  switch (byte) {
    case '"':
      out << "&quot;";
      break;
    case '&':
      out << "&amp;";
      break;
    case '\'':
      out << "&apos;";
      break;
    case '<':
      out << "&lt;";
      break;
    case '>':
      out << "&gt;";
      break;
    default:
      out.put(byte);
  }
}

template <class Out>
void putQuoted(Out& out, char character) {
  switch (character) {
    case '\b':
      out << "\\b";
      break;
    case '\t':
      out << "\\t";
      break;
    case '\n':
      out << "\\n";
      break;
    case '\r':
      out << "\\r";
      break;
    case '"':
      out << "\\\"";
      break;
    case '\\':
      out << "\\\\";
      break;
    default:
      out.put(character);
  }
}

// Calls `put` for each byte of the UTF-8 form.
template <class Put>
void forEachUtf8Byte(std::span<const char16_t> units, const Put& put) {
  std::array<char, characterRoom> bytes;
  const std::size_t count =
      utf16ToUtf8(units.data(), std::ssize(units), bytes.data(), bytes.size());
  for (const char byte : std::span(bytes).first(count)) put(byte);
}

// Calls `visit` for each character of a native text.
template <class Visit>
void forEachCharacter(const char* text, const Visit& visit) {
  if (!text) return;
  while (*text != '\0') {
    const int length = isAscii(*text) ? 1 : nativeCharacterLength(text);
    if (length < 0) throw BadUnicodeString();
    visit(std::string_view(text, static_cast<std::size_t>(length)));
    text += length;
  }
}

// Calls `put` for each byte of the UTF-8 form of a native text. The locale says how long a
// character is, but its bytes are converted from the one native encoding. So where the two differ,
// a text is refused rather than written wrongly.
template <class Put>
void forEachUtf8Byte(const char* text, const Put& put) {
  forEachCharacter(text, [&](std::string_view character) {
    const UnicodeConverter& converter = UnicodeConverter::instance();
    if (converter.nativeIsUtf8() && isAscii(character.front())) return put(character.front());
    std::array<char16_t, characterRoom> units;
    const std::size_t count = converter.nativeTextToUtf16(character.data(), std::ssize(character),
                                                          units.data(), units.size());
    forEachUtf8Byte(std::span<const char16_t>(units).first(count), put);
  });
}

template <class Out>
Out& escapeUtf8(Out& out, const char* text) {
  if (!text) return out;
  for (; *text != '\0'; ++text) putEscaped(out, *text);
  return out;
}

template <class Out>
Out& escapeUtf16(Out& out, const char16_t* text) {
  if (!text) return out;
  while (*text != u'\0') {
    const bool beginsPair = *text >= 0xD800 && *text <= 0xDBFF && text[1] != u'\0';
    const std::size_t count = beginsPair ? 2 : 1;
    forEachUtf8Byte(std::span(text, count), [&](char byte) { putEscaped(out, byte); });
    text += count;
  }
  return out;
}

template <class Out>
Out& escapeLocaleText(Out& out, const char* text) {
  forEachUtf8Byte(text, [&](char byte) { putEscaped(out, byte); });
  return out;
}

template <class Out>
Out& copyLocaleText(Out& out, const char* text) {
  forEachUtf8Byte(text, [&](char byte) { out.put(byte); });
  return out;
}

template <class Out>
Out& quoteText(Out& out, const char* text) {
  forEachCharacter(text, [&](std::string_view character) {
    if (character.size() == 1) {
      putQuoted(out, character.front());
    } else {
      out << character;
    }
  });
  return out;
}

}  // namespace

std::ostream& writeEscapedUtf8(std::ostream& out, const char* text) {
  return escapeUtf8(out, text);
}
OutputSink& writeEscapedUtf8(OutputSink& out, const char* text) { return escapeUtf8(out, text); }

std::ostream& writeEscapedUtf16(std::ostream& out, const char16_t* text) {
  return escapeUtf16(out, text);
}
OutputSink& writeEscapedUtf16(OutputSink& out, const char16_t* text) {
  return escapeUtf16(out, text);
}

std::ostream& writeEscapedLocaleText(std::ostream& out, const char* text) {
  return escapeLocaleText(out, text);
}
OutputSink& writeEscapedLocaleText(OutputSink& out, const char* text) {
  return escapeLocaleText(out, text);
}

std::ostream& writeLocaleText(std::ostream& out, const char* text) {
  return copyLocaleText(out, text);
}
OutputSink& writeLocaleText(OutputSink& out, const char* text) { return copyLocaleText(out, text); }

std::ostream& writeQuotedText(std::ostream& out, const char* text) { return quoteText(out, text); }
OutputSink& writeQuotedText(OutputSink& out, const char* text) { return quoteText(out, text); }

}  // namespace vantry::base
