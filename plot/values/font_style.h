// Fonts.
#pragma once

#include <cstdint>
#include <string_view>

#include "vantry/base/fixed_string.h"
#include "vantry/base/token.h"
#include "vantry/base/vocabulary.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::plot {

/// How a text is set. The order compares family, size, italic, bold, colour, alignment.
struct FontStyle {
  base::FixedString family;  ///< in the native encoding
  std::int32_t size = 0;     ///< in points
  bool italic = false;
  RGBA color;
  bool bold = false;
  base::Token alignment = base::Word::Left;  ///< Left, Center or Right

  friend bool operator==(const FontStyle& a, const FontStyle& b) = default;
  friend bool operator<(const FontStyle& a, const FontStyle& b);

  /// Times in 11 points, upright, black, to the left: the one default of all fonts, which the
  /// documents of all threads share. Never destroyed.
  static const FontStyle& standard();
};

/// The family that is meant by the name of a kind of families, such as "serif"; null for any other
/// name.
const char* familyOfKind(std::string_view name);

}  // namespace vantry::plot
