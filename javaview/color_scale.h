// Colours by value: how an index or a number becomes a `<c>` element.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "vantry/base/output_sink.h"
#include "vantry/plot/framework/element.h"
#include "vantry/plot/values/point.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::javaview {

using namespace plot;

/// Writes `<c>R G B</c>` and a newline. Alpha is not written.
void writeColorEntry(base::OutputSink& out, RGBA color);

/// Maps a value to a colour between two, in the manner of the colour type, and writes it. Nothing
/// is brought into range: what is beyond the two colours wraps around.
class ColorWriter {
 public:
  /// `min` is the value mapped to `color2`, `max` the one mapped to `color1`. A type that is none
  /// of Monochrome, Dichromatic and Rainbow gives black.
  ColorWriter(Token type, RGBA color1, RGBA color2, double min, double max, base::OutputSink& out);

  /// `<c>R G B</c>` and a newline.
  void writeValueColor(double value) { writeColorEntry(out_, mapped(value)); }

 protected:
  RGBA mapped(double value) const;

  base::OutputSink& out_;

 private:
  struct HSV {
    double hue = 0;         // degrees; up to 720 after the long way round was chosen
    double saturation = 0;  // 0 to 1
    double value = 0;       // 0 to 255
  };
  static HSV toHSV(RGBA color);
  void takeLongWayRound();
  RGBA rainbow(double t) const;

  Token type_;
  RGBA color1_;
  RGBA color2_;
  HSV hsv1_;
  HSV hsv2_;
  double min_;
  double max_;
  bool constant_;
};

/// Colours the points of a list, by a list of colours or else by the value of each point. An index
/// past the end of the points stands for the last of them.
class ColorListWriter : public ColorWriter {
 public:
  /// The colour of point `i`.
  void writeColor(std::int64_t i);
  /// The colour of a segment, a triangle or a quadrilateral.
  void writeMeanColor(std::int64_t i, std::int64_t j);
  void writeMeanColor(std::int64_t i, std::int64_t j, std::int64_t k);
  void writeMeanColor(std::int64_t i, std::int64_t j, std::int64_t k, std::int64_t l);
  /// The `<colors>` element of all points.
  void writeColors();
  /// The colours of the lines that GeometryOutput::writeLineStrip() writes.
  void writeLineStripColors(std::int64_t count, bool closed);

  virtual double valueAt(std::int64_t i) const = 0;

 protected:
  /// `colors` is empty, or has an entry for each of the `count` points.
  ColorListWriter(Token type, std::span<const RGBA> colors, std::size_t count, RGBA color1,
                  RGBA color2, double min, double max, base::OutputSink& out);
  ~ColorListWriter() = default;

 private:
  template <class... Index>
  void writeMean(Index... indices);

  const RGBA* colors_;  // null if colours go by value
  std::int64_t count_;
};

/// Colours points in space by their z.
class ColorWriter3D final : public ColorListWriter {
 public:
  ColorWriter3D(Token type, std::span<const P3> points, std::span<const RGBA> colors, RGBA color1,
                RGBA color2, double min, double max, base::OutputSink& out)
      : ColorListWriter(type, colors, points.size(), color1, color2, min, max, out),
        points_(points.data()) {}

  double valueAt(std::int64_t i) const override { return points_[i].z; }

 private:
  const P3* points_;
};

/// Colours points in the plane by their y.
class ColorWriter2D final : public ColorListWriter {
 public:
  ColorWriter2D(Token type, std::span<const P2> points, std::span<const RGBA> colors, RGBA color1,
                RGBA color2, double min, double max, base::OutputSink& out)
      : ColorListWriter(type, colors, points.size(), color1, color2, min, max, out),
        points_(points.data()) {}

  double valueAt(std::int64_t i) const override { return points_[i].y; }

 private:
  const P2* points_;
};

/// How a block is coloured.
struct ColorMode {
  std::span<const RGBA> list;  ///< the list in use, empty if there is none
  bool isColored;
};

/// A block is coloured by `list` if the type is Functional and the list is not empty; otherwise by
/// value, unless the type is Flat or Functional.
ColorMode colorMode(Token type, std::span<const RGBA> list);

}  // namespace vantry::javaview
