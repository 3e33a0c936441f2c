// The primitive Cone.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A cone, or a frustum of one.
class Cone : public Primitive<Cone> {
 public:
  static constexpr Token tag = Word::Cone;

  explicit Cone(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> base;
  Stored<P3> top;
  Stored<double> baseRadius;
  Stored<double> topRadius;
  Stored<Token> lineStyle;
  Stored<Token> shading;
  Stored<double> lineWidth;
  Stored<bool> filled;
  Stored<bool> linesVisible;
  Stored<RGBA> lineColor;
  Stored<RGBA> fillColor;
};

}  // namespace vantry::plot
