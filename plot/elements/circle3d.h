// The primitive Circle3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A circle in space.
class Circle3d : public Primitive<Circle3d> {
 public:
  static constexpr Token tag = Word::Circle3d;

  explicit Circle3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> center;
  Resolved<P3> normal;
  Resolved<double> radius;
  Resolved<Token> lineStyle;
  Resolved<double> lineWidth;
  Resolved<bool> filled;
  Resolved<bool> linesVisible;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> fillColor;
};

}  // namespace vantry::plot
