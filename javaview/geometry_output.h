// The pieces of text that the geometry of a JavaView model is made of.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "vantry/javaview/javaview_output.h"
#include "vantry/javaview/matrix.h"
#include "vantry/javaview/value_range.h"
#include "vantry/plot/values/font_style.h"
#include "vantry/plot/values/point.h"

namespace vantry::javaview {

/// How many coordinates a point has.
constexpr int dimensionOf(const plot::P2&) { return 2; }
constexpr int dimensionOf(const plot::P3&) { return 3; }

/// What the point list of a primitive holds.
template <class Primitive>
using PointOf = typename decltype(Primitive::points)::value_type;

/// As a size: the colour is written alone.
inline constexpr double noThickness = std::numeric_limits<double>::quiet_NaN();

/// Writes geometry. Transforms apply to all points and vectors. Sizes, widths and thicknesses are
/// in millimetres.
class GeometryOutput : public JavaViewOutput {
 public:
  /// The product of all transforms around what is being written, from the outside in; the top is
  /// applied to every point and vector. Empty means identity.
  std::vector<Matrix> transformStack;

  /// Puts a transform within those on the stack.
  void pushTransform(const Matrix& matrix);
  void popTransform() { transformStack.pop_back(); }

  /// The viewing box on the height axis (z in space, y in the plane), over which colours by height
  /// run. Both bounds are 0 if it is unknown.
  ValueRange heightRange;

  void beginGeometry();
  void endGeometry() { *this << "</geometry>\n"; }

  /// How many geometries have been begun so far.
  std::int64_t geometryCount() const { return geometryCount_; }

  void writeThicknessAndColor(plot::RGBA color, double size);

  /// The edges of faces. A transparent colour is lightened.
  void writeEdges(plot::RGBA color, double width);

  /// `alpha` is 0 to 255; `smooth` asks for Gouraud shading.
  void writeMaterial(int alpha, bool smooth);

  /// How a label is set. Throws base::BadUnicodeString.
  void writeLabelAtt(const plot::FontStyle& font, base::Token horizontalAlignment,
                     base::Token verticalAlignment);

  /// `<c>R G B</c>` and a newline: an entry of a list of colours. Alpha is not written.
  void writeColorEntry(plot::RGBA color);

  /// The bare numbers, which no transform touches.
  void writeCoordinates(const plot::P2& point);
  void writeCoordinates(const plot::P3& point);

  void writePoint(const plot::P2& point);
  void writePoint(const plot::P3& point);

  /// A point list. `size` is a diameter, of which the list has the half.
  void writePoints(std::span<const plot::P2> points, plot::RGBA color, double size);
  void writePoints(std::span<const plot::P3> points, plot::RGBA color, double size);

  /// A vector list. Vectors are moved by the transform like points, translation included.
  void writeVectors(std::span<const plot::P2> vectors, plot::RGBA color, double length,
                    double thickness);
  void writeVectors(std::span<const plot::P3> vectors, plot::RGBA color, double length,
                    double thickness);

  static constexpr int circlePoints = 38;

  /// The `circlePoints` points of a circle around `center`, in the plane normal to `normal`.
  void writeCirclePoints(const plot::P3& center, const plot::P3& normal, double radius);

  // Runs of elements that several emitters write.

  /// `<l>first last</l>`.
  void writeLine(std::int64_t first, std::int64_t last);

  /// The lines from each of `count` points to the next, and, if `closed`, from the last back to the
  /// first.
  void writeLineStrip(std::int64_t count, bool closed);

  /// A polygon: the indices from `first` to `last`, each after the first with a blank before it.
  /// `first` is written in any case.
  void writeIndices(std::int64_t first, std::int64_t last);

  /// `<l>` of a polygon that returns to its first point.
  void writeClosedLine(std::int64_t first, std::int64_t last);

  /// `<faces>` of the one polygon of the points 0 to `last`, and its empty neighbours.
  void writeSingleFace(std::int64_t last, plot::RGBA color);

  /// The faces between the points of a grid, which are numbered row by row.
  void writeGridFaces(std::int64_t columns, std::int64_t rows);

  /// The neighbours of these faces: next in the row, next row, previous in the row, previous row.
  /// `end` ends each entry.
  void writeGridNeighbours(std::int64_t columns, std::int64_t rows,
                           std::string_view end = "</nb>\n");

 private:
  template <class Point>
  Point transformed(const Point& point) const;
  template <class Point>
  void writePointList(std::span<const Point> points, plot::RGBA color, double size);
  template <class Point>
  void writeVectorList(std::span<const Point> vectors, plot::RGBA color, double length,
                       double thickness);

  std::int64_t geometryCount_ = 0;
};

/// The colour in place of a hatched fill: half-way to white, with the alpha of `color`.
plot::RGBA lightenColor(plot::RGBA color);

}  // namespace vantry::javaview
