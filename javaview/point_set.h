// Points alone, without lines and faces, in the plane and in space.
#pragma once

#include "vantry/javaview/geometry_output.h"

namespace vantry::javaview {

/// Writes points as a geometry of their own.
template <class Point>
void writePointSet(GeometryOutput& out, std::span<const Point> points, plot::RGBA color,
                   double size) {
  out.beginGeometry();
  out << "<pointSet dim=\"" << dimensionOf(Point()) << "\" pointOutline=\"hide\">\n";
  out.writePoints(points, color, size);
  out << "</pointSet>\n";
  out.writeMaterial(color.alpha(), false);
  out.endGeometry();
}

}  // namespace vantry::javaview
