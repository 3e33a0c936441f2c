// The primitive Circle3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace PlotDom {

/// A circle in space.
class Circle3d : public Primitive<Circle3d> {
 public:
  static constexpr Token tag = Word::Circle3d;

  explicit Circle3d(Arbor::Document* document);

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

}  // namespace PlotDom
