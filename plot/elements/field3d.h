// The primitive Field3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A vector field on a grid that begins at `anchor`, in steps of `delta`. Its points are the
/// vectors, x fastest.
class Field3d : public Primitive<Field3d, P3List> {
 public:
  static constexpr Token tag = Word::Field3d;

  explicit Field3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> anchor;
  Stored<P3> delta;
  Stored<std::int32_t> xMesh;
  Stored<std::int32_t> yMesh;
  Stored<std::int32_t> zMesh;
  Stored<Token> arrowLength;
  Stored<Token> lineColorType;
  Stored<Token> pointStyle;
  Stored<double> lineWidth;
  Stored<double> pointSize;
  Stored<RGBA> lineColor;
  Stored<RGBA> lineColor2;
  Stored<bool> pointsVisible;
  Stored<double> lineColorDirectionX;
  Stored<double> lineColorDirectionY;
  Stored<double> lineColorDirectionZ;
};

}  // namespace vantry::plot
