// The primitive Field2d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A vector field on a grid that begins at `anchor`, in steps of `delta`. Its points are the
/// vectors, x fastest. `tipAngle` is in radians.
class Field2d : public Primitive<Field2d, P2List> {
 public:
  static constexpr Token tag = Word::Field2d;

  explicit Field2d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P2> anchor;
  Stored<P2> delta;
  Stored<std::int32_t> xMesh;
  Stored<std::int32_t> yMesh;
  Stored<Token> arrowLength;
  Stored<Token> lineColorType;
  Stored<Token> tipStyle;
  Stored<double> lineWidth;
  Stored<double> tipLength;
  Stored<RGBA> lineColor;
  Stored<RGBA> lineColor2;
  Stored<double> tipAngle;
  Stored<double> lineColorDirectionX;
  Stored<double> lineColorDirectionY;
};

}  // namespace vantry::plot
