// Colours by value.
#pragma once

#include "vantry/javaview/value_range.h"
#include "vantry/plot/framework/element.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::javaview {

/// Gives each value a colour between two, in the manner of a colour type.
class ColorScale {
 public:
  /// From `atMin` for `range.min` to `atMax` for `range.max`; a range without extent has `atMax`
  /// alone. A type that is none of Monochrome, Dichromatic and Rainbow gives black.
  ColorScale(base::Token type, plot::RGBA atMax, plot::RGBA atMin, ValueRange range);

  base::Token type() const { return type_; }

  /// An opaque colour. Nothing is brought into the range: the channels of what is beyond the two
  /// colours wrap around.
  plot::RGBA colorOf(double value) const;

 private:
  struct HSV {
    double hue = 0;         // degrees; up to 720 after the long way round was chosen
    double saturation = 0;  // 0 to 1
    double value = 0;       // 0 to 255
  };
  static HSV toHSV(plot::RGBA color);
  void takeLongWayRound();
  plot::RGBA rainbow(double t) const;

  base::Token type_;
  plot::RGBA atMax_;
  plot::RGBA atMin_;
  HSV hsvAtMax_;
  HSV hsvAtMin_;
  ValueRange range_;
  bool isConstant_;
};

/// The scale of the lines of `primitive`, its first colour being that of the largest value.
template <class Primitive>
ColorScale lineColorScale(const Primitive& primitive, ValueRange range) {
  return {primitive.lineColorType(), primitive.lineColor(), primitive.lineColor2(), range};
}

/// The same for its fill.
template <class Primitive>
ColorScale fillColorScale(const Primitive& primitive, ValueRange range) {
  return {primitive.fillColorType(), primitive.fillColor(), primitive.fillColor2(), range};
}

}  // namespace vantry::javaview
