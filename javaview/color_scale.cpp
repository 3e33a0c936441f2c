#include "vantry/javaview/color_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace vantry::javaview {

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

void writeColorEntry(base::OutputSink& out, RGBA color) {
  out << "<c>" << color.red() << ' ' << color.green() << ' ' << color.blue() << "</c>\n";
}

ColorWriter::ColorWriter(Token type, RGBA color1, RGBA color2, double min, double max,
                         base::OutputSink& out)
    : out_(out),
      type_(type),
      color1_(color1),
      color2_(color2),
      min_(min),
      max_(max),
      constant_(std::fabs(max - min) < epsilon) {
  if (type_ != Word::Rainbow) return;
  hsv1_ = toHSV(color1_);
  hsv2_ = toHSV(color2_);
  takeLongWayRound();
}

ColorWriter::HSV ColorWriter::toHSV(RGBA color) {
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

void ColorWriter::takeLongWayRound() {
  if (hsv1_.hue > hsv2_.hue && hsv1_.hue - hsv2_.hue < 180) {
    hsv2_.hue += 360;
  } else if (hsv2_.hue >= hsv1_.hue && hsv2_.hue - hsv1_.hue < 180) {
    hsv1_.hue += 360;
  }
}

RGBA ColorWriter::mapped(double value) const {
  if (constant_) return color1_;
  const double t = (value - min_) / (max_ - min_);
  if (type_ == Word::Monochrome) {
    return opaque(color1_.red() * t + 0.5, color1_.green() * t + 0.5, color1_.blue() * t + 0.5);
  }
  if (type_ == Word::Dichromatic) {
    const auto mixed = [t](int c1, int c2) { return c1 * t + c2 * (1 - t) + 0.5; };
    return opaque(mixed(color1_.red(), color2_.red()), mixed(color1_.green(), color2_.green()),
                  mixed(color1_.blue(), color2_.blue()));
  }
  return rainbow(t);
}

RGBA ColorWriter::rainbow(double t) const {
  const double h = t * hsv1_.hue + (1 - t) * hsv2_.hue;
  const double s = t * hsv1_.saturation + (1 - t) * hsv2_.saturation;
  const double value = t * hsv1_.value + (1 - t) * hsv2_.value;
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

ColorListWriter::ColorListWriter(Token type, std::span<const RGBA> colors, std::size_t count,
                                 RGBA color1, RGBA color2, double min, double max,
                                 base::OutputSink& out)
    : ColorWriter(type, color1, color2, min, max, out),
      colors_(colors.empty() ? nullptr : colors.data()),
      count_(static_cast<std::int64_t>(count)) {}

template <class... Index>
void ColorListWriter::writeMean(Index... indices) {
  constexpr int n = sizeof...(indices);
  const std::array<std::int64_t, n> at{std::min(indices, count_ - 1)...};
  if (colors_) {
    int r = 0;
    int g = 0;
    int b = 0;
    for (const std::int64_t i : at) {
      r += colors_[i].red();
      g += colors_[i].green();
      b += colors_[i].blue();
    }
    writeColorEntry(out_, {r / n, g / n, b / n});
  } else {
    double sum = valueAt(at[0]);
    for (std::size_t i = 1; i < at.size(); ++i) sum += valueAt(at[i]);
    writeValueColor(sum / n);
  }
}

void ColorListWriter::writeColor(std::int64_t i) { writeMean(i); }

void ColorListWriter::writeMeanColor(std::int64_t i, std::int64_t j) { writeMean(i, j); }

void ColorListWriter::writeMeanColor(std::int64_t i, std::int64_t j, std::int64_t k) {
  writeMean(i, j, k);
}

void ColorListWriter::writeMeanColor(std::int64_t i, std::int64_t j, std::int64_t k,
                                     std::int64_t l) {
  writeMean(i, j, k, l);
}

void ColorListWriter::writeColors() {
  out_ << "<colors num=\"" << count_ << "\">\n";
  for (std::int64_t i = 0; i < count_; ++i) writeColor(i);
  out_ << "</colors>\n";
}

void ColorListWriter::writeLineStripColors(std::int64_t count, bool closed) {
  for (std::int64_t i = 1; i < count; ++i) writeMeanColor(i - 1, i);
  if (closed) writeMeanColor(count - 1, 0);
}

ColorMode colorMode(Token type, std::span<const RGBA> list) {
  if (type == Word::Flat) return {{}, false};
  if (type == Word::Functional) return {list, !list.empty()};
  return {{}, true};
}

}  // namespace vantry::javaview
