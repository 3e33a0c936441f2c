// Lines of two points, in the plane and in space.
#pragma once

#include <optional>

#include "vantry/javaview/geometry_output.h"

namespace vantry::javaview {

/// Writes a line as a geometry of its own. `tip` says whether an arrow has a tip; it is empty for a
/// line that is no arrow.
template <class Point>
void writeTwoPointLine(GeometryOutput& out, const Point& from, const Point& to, plot::RGBA color,
                       double width, std::optional<bool> tip = std::nullopt) {
  const Point ends[] = {from, to};
  out.beginGeometry();
  out << "<pointSet dim=\"" << dimensionOf(from) << "\" point=\"hide\">\n";
  out.writePoints(ends, color, noThickness);
  out << "</pointSet>\n<lineSet";
  if (tip) out.writeShowAttribute("arrow", *tip);
  out << ">\n<lines num=\"1\">\n<l>0 1</l>\n";
  out.writeThicknessAndColor(color, width);
  out << "</lines>\n</lineSet>\n";
  out.writeMaterial(color.alpha(), false);
  out.endGeometry();
}

}  // namespace vantry::javaview
