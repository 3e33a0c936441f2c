// The primitive Circle3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A circle in space.
class Circle3d : public Primitive<Circle3d> {
 public:
  static constexpr Token tag = Word::Circle3d;

  explicit Circle3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> center;
  Stored<P3> normal;
  Stored<double> radius;
  Stored<Token> lineStyle;
  Stored<double> lineWidth;
  Stored<bool> filled;
  Stored<bool> linesVisible;
  Stored<RGBA> lineColor;
  Stored<RGBA> fillColor;
};

}  // namespace vantry::plot
