// The kinds of variant that the plot model adds.
#pragma once

#include <limits>

#include "vantry/base/variant.h"
#include "vantry/plot/values/font_style.h"
#include "vantry/plot/values/point.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::plot {

class RGBAVariant : public base::PlainVariant<RGBAVariant, RGBA> {
  using PlainVariant::PlainVariant;
};
class P2Variant : public base::HeapVariant<P2Variant, P2> {
  using HeapVariant::HeapVariant;
};
class P3Variant : public base::HeapVariant<P3Variant, P3> {
  using HeapVariant::HeapVariant;
};
class FontStyleVariant : public base::HeapVariant<FontStyleVariant, FontStyle> {
  using HeapVariant::HeapVariant;
};

/// The double for an absent value.
inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();

}  // namespace vantry::plot
