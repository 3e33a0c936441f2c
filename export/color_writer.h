// Colours by value: how an index or a number becomes a `<c>` element.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "SRC/plot_element.h"
#include "SRC/point.h"
#include "SRC/rgba.h"
#include "base/output_sink.h"

namespace PlotDom {

/// Maps a value to a colour between two, in the manner of the colour type, and writes it.
class ColorWriter {
 public:
  /// `min` is the value mapped to `color2`, `max` the one mapped to `color1`.
  ColorWriter(Token type, RGBA color1, RGBA color2, double min, double max,
              Ubase::OutputSink& out);

  /// `<c>R G B</c>` and a newline.
  void writeValueColor(double value);

 protected:
  RGBA mapped(double value) const;
  void write(RGBA color);

 private:
  struct HSV {
    double hue = 0;         // degrees; up to 720 after the long way round was chosen
    double saturation = 0;  // 0 to 1
    double value = 0;       // 0 to 255
  };
  static HSV toHSV(RGBA color);
  RGBA rainbow(double t) const;

  Token type_;
  RGBA color1_;
  RGBA color2_;
  HSV hsv1_;
  HSV hsv2_;
  double min_;
  double max_;
  bool constant_;
  Ubase::OutputSink& out_;
};

/// Colours the points of a list, by a list of colours or else by the value of each point.
class ColorListWriter : public ColorWriter {
 public:
  /// The colour of point `i`.
  void writeColor(std::size_t i);
  /// The colour of a segment, a triangle or a quadrilateral.
  void writeMeanColor(std::size_t i, std::size_t j);
  void writeMeanColor(std::size_t i, std::size_t j, std::size_t k);
  void writeMeanColor(std::size_t i, std::size_t j, std::size_t k, std::size_t l);
  /// The `<colors>` element of all points.
  void writeColors();

  virtual double valueAt(std::size_t i) const = 0;

 protected:
  ~ColorListWriter() = default;
};

/// The list in use is empty when there is none.
struct ColorMode {
  std::span<const RGBA> list;
  bool isColored;
};

/// How a block is coloured: by `list` if the type is Functional and the list is not empty;
/// otherwise by value, unless the type is Flat or Functional.
ColorMode colorMode(Token type, const std::vector<RGBA>& list);

}  // namespace PlotDom
