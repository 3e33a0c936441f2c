#include "vantry/plot/values/value_printers.h"

#include "vantry/base/escape_writers.h"
#include "vantry/base/vocabulary.h"
#include "vantry/plot/values/format_limits.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::FixedString;
using base::Token;

namespace {

void putHexByte(std::ostream& out, int value) {
  constexpr const char* digits = "0123456789abcdef";
  out << digits[value >> 4] << digits[value & 15];
}

const char* textOf(const FixedString& string) { return string.c_str() ? string.c_str() : ""; }
const char* textOf(Token token) { return token.str() ? token.str() : ""; }

}  // namespace

std::ostream& operator<<(std::ostream& out, RGBA color) {
  out << '#';
  putHexByte(out, color.red());
  putHexByte(out, color.green());
  putHexByte(out, color.blue());
  if (color.alpha() != 255) putHexByte(out, color.alpha());
  return out;
}

std::ostream& operator<<(std::ostream& out, const P2& point) {
  return out << point.x << ' ' << point.y;
}

std::ostream& operator<<(std::ostream& out, const P3& point) {
  return out << point.x << ' ' << point.y << ' ' << point.z;
}

std::ostream& operator<<(std::ostream& out, const FontStyle& font) {
  const char* quote = isWrittenBare(font.family) ? "" : "'";
  out << quote;
  base::writeEscapedLocaleText(out, font.family.c_str());
  out << quote << ' ' << font.size;
  if (font.italic) out << " Italic";
  if (font.bold) out << " Bold";
  return out << ' ' << font.color << ' ' << textOf(font.alignment);
}

void TokenPutXml::put(std::ostream& out, Token value) { out << textOf(value); }

void StringPutXml::put(std::ostream& out, const FixedString& value) {
  base::writeEscapedUtf8(out, value.c_str());
}

void MStringPutXml::put(std::ostream& out, const FixedString& value) {
  base::writeEscapedLocaleText(out, value.c_str());
}

void SizePutCmd::put(CmdWriter& writer, double millimetres) {
  writer.out() << writer.inOutputUnit(millimetres);
}

void BoolPutCmd::put(CmdWriter& writer, bool value) { writer.out() << (value ? "TRUE" : "FALSE"); }

void TokenPutCmd::put(CmdWriter& writer, Token value) { writer.putName(value); }

void UnitPutCmd::put(CmdWriter& writer, Token value) {
  const char* unit = value == Word::MM ? "mm" : value == Word::In ? "inch" : "pt";
  writer.out() << "unit::" << unit;
}

void StringPutCmd::put(CmdWriter& writer, const FixedString& value) {
  writer.out() << '"' << textOf(value) << '"';
}

void MStringPutCmd::put(CmdWriter& writer, const FixedString& value) {
  writer.out() << '"';
  base::writeQuotedText(writer.out(), value.c_str());
  writer.out() << '"';
}

void RGBAPutCmd::put(CmdWriter& writer, RGBA value) {
  std::ostream& out = writer.out();
  out << '[' << value.red() / 255.0 << ',' << value.green() / 255.0 << ',' << value.blue() / 255.0;
  if (value.alpha() < 255) out << ',' << value.alpha() / 255.0;
  out << ']';
}

void P2PutCmd::put(CmdWriter& writer, const P2& value) {
  writer.out() << '[' << value.x << ',' << value.y << ']';
}

void P3PutCmd::put(CmdWriter& writer, const P3& value) {
  writer.out() << '[' << value.x << ',' << value.y << ',' << value.z << ']';
}

void FontStylePutCmd::put(CmdWriter& writer, const FontStyle& value) {
  std::ostream& out = writer.out();
  out << "[\"" << textOf(value.family) << "\"," << value.size;
  if (value.bold) out << ",Bold";
  if (value.italic) out << ",Italic";
  out << ',';
  RGBAPutCmd::put(writer, value.color);
  out << ',' << textOf(value.alignment) << ']';
}

}  // namespace vantry::plot
