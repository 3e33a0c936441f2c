#include "vantry/javaview/color_scale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vantry::javaview {

using namespace plot;

namespace {

constexpr double epsilon = std::numeric_limits<double>::epsilon();

/// The low eight bits of a channel without its fraction; 0 for a NaN and for what is too large for
/// 64 bits.
int channelOf(double value) {
  constexpr double limit = 9223372036854775808.0;
  if (!(value >= -limit && value < limit)) return 0;
  return static_cast<int>(static_cast<std::int64_t>(value) & 255);
}

RGBA opaque(double r, double g, double b) { return {channelOf(r), channelOf(g), channelOf(b)}; }

}  // namespace

ColorScale::ColorScale(Token type, RGBA atMax, RGBA atMin, ValueRange range)
    : type_(type),
      atMax_(atMax),
      atMin_(atMin),
      range_(range),
      isConstant_(std::fabs(range.max - range.min) < epsilon) {
  if (type_ != Word::Rainbow) return;
  hsvAtMax_ = toHSV(atMax_);
  hsvAtMin_ = toHSV(atMin_);
  takeLongWayRound();
}

ColorScale::HSV ColorScale::toHSV(RGBA color) {
  const double r = color.red();
  const double g = color.green();
  const double b = color.blue();
  const double largest = std::max({r, g, b});
  const double delta = largest - std::min({r, g, b});

  HSV hsv;
  hsv.value = largest;
  hsv.saturation = largest == 0 ? 0 : delta / largest;
  if (std::fabs(hsv.saturation) < epsilon) return hsv;
  if (r == largest) {
    hsv.hue = (g - b) / delta;
  } else if (g == largest) {
    hsv.hue = (b - r) / delta + 2;
  } else {
    hsv.hue = (r - g) / delta + 4;
  }
  hsv.hue *= 60;
  if (hsv.hue < 0) hsv.hue += 360;
  return hsv;
}

void ColorScale::takeLongWayRound() {
  if (hsvAtMax_.hue > hsvAtMin_.hue && hsvAtMax_.hue - hsvAtMin_.hue < 180) {
    hsvAtMin_.hue += 360;
  } else if (hsvAtMin_.hue >= hsvAtMax_.hue && hsvAtMin_.hue - hsvAtMax_.hue < 180) {
    hsvAtMax_.hue += 360;
  }
}

RGBA ColorScale::colorOf(double value) const {
  if (isConstant_) return atMax_;
  const double t = (value - range_.min) / (range_.max - range_.min);
  if (type_ == Word::Monochrome) {
    return opaque(atMax_.red() * t + 0.5, atMax_.green() * t + 0.5, atMax_.blue() * t + 0.5);
  }
  if (type_ == Word::Dichromatic) {
    const auto mixed = [t](int c1, int c2) { return c1 * t + c2 * (1 - t) + 0.5; };
    return opaque(mixed(atMax_.red(), atMin_.red()), mixed(atMax_.green(), atMin_.green()),
                  mixed(atMax_.blue(), atMin_.blue()));
  }
  return rainbow(t);
}

RGBA ColorScale::rainbow(double t) const {
  const double h = t * hsvAtMax_.hue + (1 - t) * hsvAtMin_.hue;
  const double s = t * hsvAtMax_.saturation + (1 - t) * hsvAtMin_.saturation;
  const double value = t * hsvAtMax_.value + (1 - t) * hsvAtMin_.value;
  if (std::fabs(s) < epsilon) return opaque(value, value, value);

  const double sector = std::floor(h / 60);
  const double f = h / 60 - sector;
  const double V = value / 255;
  const double P = (1 - s) * V;
  const double Q = (1 - s * f) * V;
  const double T = (1 - s * (1 - f)) * V;
  const auto scaled = [](double r, double g, double b) {
    return opaque(r * 255, g * 255, b * 255);
  };
  if (sector == 0) return scaled(V, T, P);
  if (sector == 1) return scaled(Q, V, P);
  if (sector == 2) return scaled(P, V, T);
  if (sector == 3) return scaled(P, Q, V);
  if (sector == 4) return scaled(T, P, V);
  // A hue is not brought below 360: all from 300 on end here, on purpose.
  return scaled(V, P, Q);
}

}  // namespace vantry::javaview
