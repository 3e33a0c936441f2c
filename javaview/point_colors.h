// The colours of a list of points, and of the lines and faces between them.
#pragma once

#include <cstdint>
#include <span>

#include "vantry/javaview/color_scale.h"
#include "vantry/javaview/geometry_output.h"

namespace vantry::javaview {

/// Writes the colours of points in the plane (P2) or in space (P3), and the means of some of them.
/// An index past the end of the points means the last of them.
template <class Point>
class PointColors {
 public:
  /// With a scale of type Functional the colours are those of `list`, which has one for each of the
  /// points, and there are none if it is empty. Flat has none either. Any other type gives each
  /// point the colour that its height has on the scale.
  PointColors(GeometryOutput& out, std::span<const Point> points, std::span<const plot::RGBA> list,
              const ColorScale& scale);

  /// Whether there are colours. If not, none are to be written.
  bool isColored() const { return isColored_; }

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

 private:
  template <class... Index>
  void writeMean(Index... indices);

  GeometryOutput& out_;
  const Point* points_;
  std::int64_t count_;
  const plot::RGBA* list_;  // null if colours go by height
  ColorScale scale_;
  bool isColored_;
};

extern template class PointColors<plot::P2>;
extern template class PointColors<plot::P3>;

}  // namespace vantry::javaview
