// The primitive Cone.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A cone, or a frustum of one.
class Cone : public Primitive<Cone> {
 public:
  static constexpr Token tag = Word::Cone;

  explicit Cone(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> base;
  Resolved<P3> top;
  Resolved<double> baseRadius;
  Resolved<double> topRadius;
  Resolved<Token> lineStyle;
  Resolved<Token> shading;
  Resolved<double> lineWidth;
  Resolved<bool> filled;
  Resolved<bool> linesVisible;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> fillColor;
};

}  // namespace vantry::plot
