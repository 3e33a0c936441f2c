// How the value of a property is read from the text of an attribute.
#pragma once

#include <cstdint>

#include "vantry/base/fixed_string.h"
#include "vantry/base/token.h"
#include "vantry/plot/values/font_style.h"
#include "vantry/plot/values/point.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::plot {

// Each parser returns false for a text that it does not accept and then leaves `out` undefined.
// What follows a complete value in the text is ignored, unless said otherwise.

/// A whole number; one beyond 32 bits becomes the nearer bound.
struct LongParser {
  static bool parse(std::int32_t& out, const char* text);
};

/// A number as the C library reads it, "nan" and "inf" included.
struct DoubleParser {
  static bool parse(double& out, const char* text);
};

/// "1" or "true", "0" or "false".
struct BoolParser {
  static bool parse(bool& out, const char* text);
};

/// The first word, whatever it is.
struct TokenParser {
  static bool parse(base::Token& out, const char* text);
};

/// Two hexadecimal digits each for red, green, blue and, unless opaque, alpha, with or without "#".
struct ColorParser {
  static bool parse(RGBA& out, const char* text);
};

struct P2Parser {
  static bool parse(P2& out, const char* text);
};

struct P3Parser {
  static bool parse(P3& out, const char* text);
};

/// Any text, byte by byte.
struct Utf8StringParser {
  static bool parse(base::FixedString& out, const char* text);
};

/// Any text, converted from UTF-8 to the native encoding.
struct MStringParser {
  static bool parse(base::FixedString& out, const char* text);
};

/// A family, in single quotes or one word, and then in any order a size in points, which must be
/// there, a colour, "Bold", "Italic" and an alignment. Nothing may follow the last word.
struct FontStyleParser {
  static bool parse(FontStyle& out, const char* text);
};

}  // namespace vantry::plot
