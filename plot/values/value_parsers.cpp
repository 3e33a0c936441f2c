#include "vantry/plot/values/value_parsers.h"

#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "vantry/base/scan.h"
#include "vantry/base/vocabulary.h"
#include "vantry/plot/values/native_text.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::FixedString;
using base::Token;

namespace {

bool isSeparator(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

const char* skipSeparators(const char* text) {
  while (isSeparator(*text)) ++text;
  return text;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// A pair of hexadecimal digits as 0 to 255, or this where one of them is missing.
constexpr int missingChannel = 256;

int parseChannel(const char*& text) {
  const int high = hexDigit(*text);
  if (high < 0) return missingChannel;
  ++text;
  const int low = hexDigit(*text);
  if (low < 0) return missingChannel;
  ++text;
  return high * 16 + low;
}

}  // namespace

bool LongParser::parse(std::int32_t& out, const char* text) { return base::scanLong(text, out); }

bool DoubleParser::parse(double& out, const char* text) { return base::scanDouble(text, out); }

bool BoolParser::parse(bool& out, const char* text) {
  base::ScannedWord word;
  if (!base::scanWord(text, word)) return false;
  const std::string_view found = word.data();
  out = found == "1" || found == "true";
  return out || found == "0" || found == "false";
}

bool TokenParser::parse(Token& out, const char* text) {
  text = skipSeparators(text);
  const char* end = text;
  while (*end != '\0' && !isSeparator(*end)) ++end;
  if (end == text) return false;
  out = Token(std::string(text, end).c_str(), true);
  return true;
}

bool ColorParser::parse(RGBA& out, const char* text) {
  text = skipSeparators(text);
  if (*text == '#') ++text;
  if (*text == '\0') return false;

  std::array<int, 3> channels;
  for (int& channel : channels) {
    channel = parseChannel(text);
    if (channel == missingChannel) return false;
  }
  const int alpha = hexDigit(*text) < 0 ? 255 : parseChannel(text);
  if (alpha == missingChannel) return false;
  out = RGBA(channels[0], channels[1], channels[2], alpha);
  return true;
}

bool P2Parser::parse(P2& out, const char* text) {
  std::array<double, 2> numbers;
  if (base::scanDoubles(text, numbers) != 2) return false;
  out = {numbers[0], numbers[1]};
  return true;
}

bool P3Parser::parse(P3& out, const char* text) {
  std::array<double, 3> numbers;
  if (base::scanDoubles(text, numbers) != 3) return false;
  out = {numbers[0], numbers[1], numbers[2]};
  return true;
}

bool Utf8StringParser::parse(FixedString& out, const char* text) {
  out = text;
  return true;
}

bool MStringParser::parse(FixedString& out, const char* text) {
  out = nativeText(text).c_str();
  return true;
}

namespace {

bool isBlank(char c) { return static_cast<unsigned char>(c) <= 32; }

const char* skipBlanks(const char* text) {
  while (*text != '\0' && isBlank(*text)) ++text;
  return text;
}

const char* endOfWord(const char* text) {
  while (!isBlank(*text)) ++text;
  return text;
}

// Reads the family and moves `text` behind it. A family at the very end of the text fails.
bool parseFamily(FixedString& out, const char*& text) {
  const bool quoted = *text == '\'';
  if (quoted) ++text;
  const char* end = quoted ? std::strchr(text, '\'') : endOfWord(text);
  if (!end) return false;
  const std::string name(text, end);
  const char* family = familyOfKind(name);
  out = nativeText(family ? family : name.c_str()).c_str();
  text = quoted ? end + 1 : end;
  return *text != '\0';
}

bool applyWord(FontStyle& out, const std::string& word) {
  if (word[0] == '#') return ColorParser::parse(out.color, word.c_str());
  if (word[0] >= '0' && word[0] <= '9') {
    return base::scanLong(word.c_str(), out.size) && out.size >= 1;
  }
  if (word == "Bold") return out.bold = true;
  if (word == "Italic") return out.italic = true;

  const Token token = Token::find(word.c_str());
  if (token != Word::Left && token != Word::Center && token != Word::Right) return false;
  out.alignment = token;
  return true;
}

}  // namespace

bool FontStyleParser::parse(FontStyle& out, const char* text) {
  FontStyle plain;
  plain.family = out.family;
  out = plain;
  text = skipBlanks(text);
  if (*text == '\0' || !parseFamily(out.family, text)) return false;
  while (*text != '\0') {
    text = skipBlanks(text);
    if (*text == '\0') return false;
    const char* end = endOfWord(text);
    if (!applyWord(out, std::string(text, end))) return false;
    text = end;
  }
  return out.size != 0;
}

}  // namespace vantry::plot
