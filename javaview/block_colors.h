// The colours of a block of geometry, and the point set that goes with them.
#pragma once

#include "vantry/javaview/point_colors.h"

namespace vantry::javaview {

/// The colours of the lines of `primitive`, where `list` has a colour for each of `points`, or is
/// empty.
template <class Primitive>
PointColors<PointOf<Primitive>> lineColors(GeometryOutput& out, const Primitive& primitive,
                                           std::span<const PointOf<Primitive>> points,
                                           std::span<const plot::RGBA> list) {
  return {out, points, list, lineColorScale(primitive, out.heightRange)};
}

/// The same for its fill.
template <class Primitive>
PointColors<PointOf<Primitive>> fillColors(GeometryOutput& out, const Primitive& primitive,
                                           std::span<const PointOf<Primitive>> points,
                                           std::span<const plot::RGBA> list) {
  return {out, points, list, fillColorScale(primitive, out.heightRange)};
}

/// Begins a geometry with a set of `points`, which are shown or hidden and have the line colour and
/// point size of `primitive`; each has its own colour if the block is coloured.
template <class Primitive>
void beginGeometryWithPoints(GeometryOutput& out, const Primitive& primitive,
                             std::span<const PointOf<Primitive>> points, bool showPoints,
                             PointColors<PointOf<Primitive>>& colors) {
  out.beginGeometry();
  out << "<pointSet dim=\"" << dimensionOf(PointOf<Primitive>()) << "\" pointOutline=\"hide\"";
  out.writeShowAttribute("color", colors.isColored());
  out.writeShowAttribute("point", showPoints);
  out << ">\n";
  out.writePoints(points, primitive.lineColor(), primitive.pointSize());
  if (colors.isColored()) colors.writeColors();
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
