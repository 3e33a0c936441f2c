// How the value of a property is written, as the text of an attribute (PutXml) and in the command
// syntax of the algebra system (PutCmd).
#pragma once

#include <cstdint>
#include <ostream>

#include "vantry/base/fixed_string.h"
#include "vantry/base/token.h"
#include "vantry/plot/values/cmd_writer.h"
#include "vantry/plot/values/font_style.h"
#include "vantry/plot/values/point.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::plot {

/// "#rrggbb", and the two digits of alpha behind it unless that is 255.
std::ostream& operator<<(std::ostream& out, RGBA color);
/// The coordinates with a blank between them.
std::ostream& operator<<(std::ostream& out, const P2& point);
std::ostream& operator<<(std::ostream& out, const P3& point);
/// 'family' size, the styles, colour and alignment, as FontStyleParser reads them. A family with an
/// apostrophe is written without the quotes.
std::ostream& operator<<(std::ostream& out, const FontStyle& font);

/// The stream's own format of the value.
template <class T>
struct GenericPutXml {
  static void put(std::ostream& out, const T& value) { out << value; }
};

/// "1" or "0".
struct BoolPutXml {
  static void put(std::ostream& out, bool value) { out << (value ? '1' : '0'); }
};

/// The text of the token, unchanged.
struct TokenPutXml {
  static void put(std::ostream& out, base::Token value);
};

/// The bytes, escaped for XML.
struct StringPutXml {
  static void put(std::ostream& out, const base::FixedString& value);
};

/// Native text, converted to UTF-8 and escaped. Throws base::BadUnicodeString.
struct MStringPutXml {
  static void put(std::ostream& out, const base::FixedString& value);
};

template <class T>
struct GenericPutCmd {
  static void put(CmdWriter& writer, const T& value) { writer.out() << value; }
};

/// A size, from millimetres to the output unit.
struct SizePutCmd {
  static void put(CmdWriter& writer, double millimetres);
};

/// "TRUE" or "FALSE".
struct BoolPutCmd {
  static void put(CmdWriter& writer, bool value);
};

struct TokenPutCmd {
  static void put(CmdWriter& writer, base::Token value);
};

/// The unit in the words of the algebra system: "unit::mm", "unit::inch" or "unit::pt".
struct UnitPutCmd {
  static void put(CmdWriter& writer, base::Token value);
};

/// The text in double quotes, unchanged.
struct StringPutCmd {
  static void put(CmdWriter& writer, const base::FixedString& value);
};

/// The text in double quotes, with control characters, quotes and backslashes escaped.
struct MStringPutCmd {
  static void put(CmdWriter& writer, const base::FixedString& value);
};

/// [r,g,b] or [r,g,b,a], each from 0 to 1.
struct RGBAPutCmd {
  static void put(CmdWriter& writer, RGBA value);
};

struct P2PutCmd {
  static void put(CmdWriter& writer, const P2& value);
};

struct P3PutCmd {
  static void put(CmdWriter& writer, const P3& value);
};

struct FontStylePutCmd {
  static void put(CmdWriter& writer, const FontStyle& value);
};

}  // namespace vantry::plot
