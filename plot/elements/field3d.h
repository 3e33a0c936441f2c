// The primitive Field3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A vector field on a grid that begins at `anchor`, in steps of `delta`. Its points are the
/// vectors, x fastest.
class Field3d : public Primitive<Field3d, P3List> {
 public:
  static constexpr Token tag = Word::Field3d;

  explicit Field3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> anchor;
  Resolved<P3> delta;
  Resolved<std::int32_t> xMesh;
  Resolved<std::int32_t> yMesh;
  Resolved<std::int32_t> zMesh;
  Resolved<Token> arrowLength;
  Resolved<Token> lineColorType;
  Resolved<Token> pointStyle;
  Resolved<double> lineWidth;
  Resolved<double> pointSize;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> lineColor2;
  Resolved<bool> pointsVisible;
  Resolved<double> lineColorDirectionX;
  Resolved<double> lineColorDirectionY;
  Resolved<double> lineColorDirectionZ;
};

}  // namespace vantry::plot
