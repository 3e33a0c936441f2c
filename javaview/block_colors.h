// The colours of a block of geometry, and the point set that goes with them.
#pragma once

#include "vantry/javaview/dimension.h"

namespace vantry::javaview {

/// Whether the lines or faces of a primitive are coloured one by one, and by what.
template <class Point>
struct BlockColors {
  bool isColored;
  HeightColorWriter<Point> writer;
};

/// The colours of the lines of `primitive`, where `list` has a colour for each of `points`, or is
/// empty.
template <class Primitive>
BlockColors<PointOf<Primitive>> lineColors(GeometryOutput& out, const Primitive& primitive,
                                           std::span<const PointOf<Primitive>> points,
                                           std::span<const RGBA> list) {
  const ColorMode mode = colorMode(primitive.lineColorType(), list);
  return {mode.isColored,
          {primitive.lineColorType(), points, mode.list, primitive.lineColor(),
           primitive.lineColor2(), out.valueMin, out.valueMax, out.sink()}};
}

/// The same for its fill.
template <class Primitive>
BlockColors<PointOf<Primitive>> fillColors(GeometryOutput& out, const Primitive& primitive,
                                           std::span<const PointOf<Primitive>> points,
                                           std::span<const RGBA> list) {
  const ColorMode mode = colorMode(primitive.fillColorType(), list);
  return {mode.isColored,
          {primitive.fillColorType(), points, mode.list, primitive.fillColor(),
           primitive.fillColor2(), out.valueMin, out.valueMax, out.sink()}};
}

/// Begins a geometry with a set of `points`, which are shown or hidden and have the line colour and
/// point size of `primitive`; each has its own colour if the block is coloured.
template <class Primitive>
void beginGeometryWithPoints(GeometryOutput& out, const Primitive& primitive,
                             std::span<const PointOf<Primitive>> points, bool showPoints,
                             BlockColors<PointOf<Primitive>>& colors) {
  out.beginGeometry();
  out << "<pointSet dim=\"" << dimensionOf(PointOf<Primitive>()) << "\" pointOutline=\"hide\"";
  out.writeShowAttribute("color", colors.isColored);
  out.writeShowAttribute("point", showPoints);
  out << ">\n";
  writePoints(out, points, primitive.lineColor(), primitive.pointSize());
  if (colors.isColored) colors.writer.writeColors();
  out << "</pointSet>\n";
}

/// Begins a line set in space. One in the plane knows nothing of smooth colours.
inline void beginLineSet3d(GeometryOutput& out, bool isColored, bool isSmooth) {
  out << "<lineSet";
  out.writeShowAttribute("color", isColored);
  out.writeShowAttribute("colorFromPoints", isColored);
  out.writeShowAttribute("colorSmooth", isColored && isSmooth);
  out << ">\n";
}

}  // namespace vantry::javaview
