// The pieces of the toolkit by the type of the point, for what is written alike in the plane and in
// space.
#pragma once

#include <span>
#include <type_traits>

#include "vantry/javaview/color_writer.h"
#include "vantry/javaview/geometry_output.h"

namespace vantry::javaview {

constexpr int dimensionOf(const P2&) { return 2; }
constexpr int dimensionOf(const P3&) { return 3; }

/// What the point list of a primitive holds.
template <class PointList>
using PointOf = typename decltype(PointList::points)::value_type;

/// Colours points by the height axis of their dimension.
template <class Point>
using HeightColorWriter =
    std::conditional_t<std::is_same_v<Point, P2>, ColorWriter2D, ColorWriter3D>;

inline void writePoints(GeometryOutput& out, std::span<const P2> points, RGBA color, double size) {
  out.writePoints2d(points, color, size);
}
inline void writePoints(GeometryOutput& out, std::span<const P3> points, RGBA color, double size) {
  out.writePoints3d(points, color, size);
}

inline void writeVectors(GeometryOutput& out, std::span<const P2> vectors, RGBA color,
                         double length, double thickness) {
  out.writeVectors2d(vectors, color, length, thickness);
}
inline void writeVectors(GeometryOutput& out, std::span<const P3> vectors, RGBA color,
                         double length, double thickness) {
  out.writeVectors3d(vectors, color, length, thickness);
}

/// The bare numbers, which no transform touches.
inline void writeCoordinates(GeometryOutput& out, const P2& point) {
  out << point.x << ' ' << point.y;
}
inline void writeCoordinates(GeometryOutput& out, const P3& point) {
  out << point.x << ' ' << point.y << ' ' << point.z;
}

}  // namespace vantry::javaview
