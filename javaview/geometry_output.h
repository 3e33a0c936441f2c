// The pieces of text that the geometry of a JavaView model is made of.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "vantry/javaview/javaview_output.h"
#include "vantry/javaview/matrix.h"
#include "vantry/plot/values/font_style.h"
#include "vantry/plot/values/point.h"

namespace vantry::javaview {

using namespace plot;

/// As a size: the colour is written alone.
inline constexpr double noThickness = std::numeric_limits<double>::quiet_NaN();

/// Writes geometry. Points and vectors go through the innermost transform on their way. Sizes are
/// in millimetres.
class GeometryOutput : public JavaViewOutput {
 public:
  /// The product of all transforms around what is being written, from the outside in; the top is
  /// applied to every point and vector. Empty means identity.
  std::vector<Matrix> transformStack;

  /// Puts a transform within those on the stack.
  void pushTransform(const Matrix& matrix);
  void popTransform() { transformStack.pop_back(); }

  /// The bounds of the viewing box on the height axis (z in space, y in the plane), between which
  /// colours by height run. Both 0 when unknown.
  double valueMin = 0;
  double valueMax = 0;

  void beginGeometry();
  void endGeometry() { *this << "</geometry>\n"; }

  /// How many geometries have been begun so far.
  std::int64_t geometryCount() const { return geometryCount_; }

  void writeThicknessAndColor(RGBA color, double size);

  /// The edges of faces. A transparent colour is lightened.
  void writeEdges(RGBA color, double width);

  /// `alpha` is 0 to 255; `smooth` asks for Gouraud shading.
  void writeMaterial(int alpha, bool smooth);

  /// How a label is set. Throws base::BadUnicodeString.
  void writeLabelAtt(const FontStyle& font, base::Token horizontalAlignment,
                     base::Token verticalAlignment);

  void writePoint3d(const P3& point);
  void writePoint2d(const P2& point);

  /// A point list. `size` is a diameter; the list states a radius.
  void writePoints3d(std::span<const P3> points, RGBA color, double size);
  void writePoints2d(std::span<const P2> points, RGBA color, double size);

  /// A vector list. Vectors are moved by the transform like points, translation included.
  void writeVectors3d(std::span<const P3> vectors, RGBA color, double length, double thickness);
  void writeVectors2d(std::span<const P2> vectors, RGBA color, double length, double thickness);

  static constexpr int circlePoints = 38;

  /// The `circlePoints` points of a circle around `center`, in the plane normal to `normal`.
  void writeCirclePoints(const P3& center, const P3& normal, double radius);

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
  void writeSingleFace(std::int64_t last, RGBA color);

  /// The faces between the points of a grid, which are numbered row by row.
  void writeGridFaces(std::int64_t columns, std::int64_t rows);

  /// The neighbours of these faces: next in the row, next row, previous in the row, previous row.
  /// `end` ends each entry.
  void writeGridNeighbours(std::int64_t columns, std::int64_t rows,
                           std::string_view end = "</nb>\n");

 private:
  void endVectors(RGBA color, double length, double thickness);

  std::int64_t geometryCount_ = 0;
};

/// The colour that stands for a hatched fill: half-way to white, with the alpha of `color`.
RGBA lightenColor(RGBA color);

}  // namespace vantry::javaview
