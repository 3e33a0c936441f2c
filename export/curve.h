// Curves through the points of a list, in the plane and in space: what Poly2d, Poly3d and Lines3d
// have in common.
#pragma once

#include "export/dimension.h"

namespace PlotDom {

template <class Curve>
ColorMode lineColorMode(const Curve& curve) {
  return colorMode(curve.lineColorType(), curve.colors);
}

/// Colours the points of a curve.
template <class Curve>
auto lineColorWriter(GeometryOutput& out, const Curve& curve) {
  using Point = typename decltype(curve.points)::value_type;
  return HeightColorWriter<Point>(curve.lineColorType(), curve.points, lineColorMode(curve).list,
                                  curve.lineColor(), curve.lineColor2(), out.valueMin, out.valueMax,
                                  out.sink());
}

/// Begins the geometry of a curve with its point set.
template <class Curve>
void writeCurvePoints(GeometryOutput& out, const Curve& curve) {
  using Point = typename decltype(curve.points)::value_type;
  const bool isColored = lineColorMode(curve).isColored;
  out << "<geometry>\n<pointSet dim=\"" << dimensionOf(Point()) << "\" pointOutline=\"hide\"";
  out.writeShowAttribute("color", isColored);
  out.writeShowAttribute("point", curve.pointsVisible());
  out << ">\n";
  writePoints(out, curve.points, curve.lineColor(), curve.pointSize());
  if (isColored) lineColorWriter(out, curve).writeColors();
  out << "</pointSet>\n";
}

/// The number of lines from point to point; 0 or less if there is none.
template <class Curve>
std::int64_t curveLineCount(const Curve& curve, bool closed) {
  const auto count = std::ssize(curve.points);
  return closed ? count : count - 1;
}

/// The lines from point to point, with their colours.
template <class Curve>
void writeCurveLines(GeometryOutput& out, const Curve& curve, bool closed) {
  const auto points = std::ssize(curve.points);
  const auto lines = curveLineCount(curve, closed);
  out << "<lines num=\"" << lines << "\">\n";
  out.writeLineStrip(points, closed);
  out.writeThicknessAndColor(curve.lineColor(), curve.lineWidth());
  out << "</lines>\n";
  if (lineColorMode(curve).isColored) {
    out << "<colors num=\"" << lines << "\">\n";
    lineColorWriter(out, curve).writeLineStripColors(points, closed);
    out << "</colors>\n";
  }
}

}  // namespace PlotDom
