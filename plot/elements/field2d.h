// The primitive Field2d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A vector field on a grid that begins at `anchor`, in steps of `delta`. Its points are the
/// vectors, x fastest. `tipAngle` is in radians.
class Field2d : public Primitive<Field2d, P2List> {
 public:
  static constexpr Token tag = Word::Field2d;

  explicit Field2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P2> anchor;
  Resolved<P2> delta;
  Resolved<std::int32_t> xMesh;
  Resolved<std::int32_t> yMesh;
  Resolved<Token> arrowLength;
  Resolved<Token> lineColorType;
  Resolved<Token> tipStyle;
  Resolved<double> lineWidth;
  Resolved<double> tipLength;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> lineColor2;
  Resolved<double> tipAngle;
  Resolved<double> lineColorDirectionX;
  Resolved<double> lineColorDirectionY;
};

}  // namespace vantry::plot
