// Curves through the points of a list, in the plane and in space: what Poly2d, Poly3d and Lines3d
// have in common.
#pragma once

#include "vantry/javaview/block_colors.h"

namespace vantry::javaview {

template <class Curve>
PointColors<PointOf<Curve>> curveColors(GeometryOutput& out, const Curve& curve) {
  return lineColors(out, curve, curve.points, curve.colors);
}

/// The number of lines from point to point; 0 or less if there is none.
template <class Curve>
std::int64_t curveLineCount(const Curve& curve, bool closed) {
  const auto count = std::ssize(curve.points);
  return closed ? count : count - 1;
}

/// The lines from point to point, with their colours.
template <class Curve>
void writeCurveLines(GeometryOutput& out, const Curve& curve, bool closed,
                     PointColors<PointOf<Curve>>& colors) {
  const auto points = std::ssize(curve.points);
  const auto lines = curveLineCount(curve, closed);
  out << "<lines num=\"" << lines << "\">\n";
  out.writeLineStrip(points, closed);
  out.writeThicknessAndColor(curve.lineColor(), curve.lineWidth());
  out << "</lines>\n";
  if (colors.isColored()) {
    out << "<colors num=\"" << lines << "\">\n";
    colors.writeLineStripColors(points, closed);
    out << "</colors>\n";
  }
}

}  // namespace vantry::javaview
