// The colours of a block of geometry, and the point set that goes with them.
#pragma once

#include "export/color_writer.h"
#include "export/geometry_output.h"

namespace PlotDom {

/// Whether the lines or faces of a primitive in space are coloured one by one, and by what.
struct BlockColors {
  bool isColored;
  ColorWriter3D writer;
};

/// The colours of the lines of `primitive`, where `list` has a colour for each of `points`, or is
/// empty.
template <class Primitive>
BlockColors lineColors(GeometryOutput& out, const Primitive& primitive, std::span<const P3> points,
                       std::span<const RGBA> list) {
  const ColorMode mode = colorMode(primitive.lineColorType(), list);
  return {mode.isColored,
          ColorWriter3D(primitive.lineColorType(), points, mode.list, primitive.lineColor(),
                        primitive.lineColor2(), out.valueMin, out.valueMax, out.sink())};
}

/// The same for its fill.
template <class Primitive>
BlockColors fillColors(GeometryOutput& out, const Primitive& primitive, std::span<const P3> points,
                       std::span<const RGBA> list) {
  const ColorMode mode = colorMode(primitive.fillColorType(), list);
  return {mode.isColored,
          ColorWriter3D(primitive.fillColorType(), points, mode.list, primitive.fillColor(),
                        primitive.fillColor2(), out.valueMin, out.valueMax, out.sink())};
}

/// Begins a geometry with a set of `points`, which are shown or hidden and have the line colour and
/// point size of `primitive`; each has its own colour if the block is coloured.
template <class Primitive>
void beginGeometry(GeometryOutput& out, const Primitive& primitive, std::span<const P3> points,
                   bool showPoints, BlockColors& colors) {
  out << "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\"";
  out.writeShowAttribute("color", colors.isColored);
  out.writeShowAttribute("point", showPoints);
  out << ">\n";
  out.writePoints3d(points, primitive.lineColor(), primitive.pointSize());
  if (colors.isColored) colors.writer.writeColors();
  out << "</pointSet>\n";
}

/// Begins the line set of a geometry, up to its first line.
inline void beginLines(GeometryOutput& out, bool isColored, bool isSmooth, std::int64_t count) {
  out << "<lineSet";
  out.writeShowAttribute("color", isColored);
  out.writeShowAttribute("colorFromPoints", isColored);
  out.writeShowAttribute("colorSmooth", isColored && isSmooth);
  out << ">\n<lines num=\"" << count << "\">\n";
}

}  // namespace PlotDom
