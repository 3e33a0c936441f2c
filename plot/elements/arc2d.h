// The primitive Arc2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An arc of an ellipse. Angles are in radians.
class Arc2d : public Primitive<Arc2d> {
 public:
  static constexpr Token tag = Word::Arc2d;

  explicit Arc2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P2> center;
  Resolved<Token> lineStyle;
  Resolved<Token> fillPattern;
  Resolved<double> semiAxisX;
  Resolved<double> semiAxisY;
  Resolved<double> startAngle;
  Resolved<double> endAngle;
  Resolved<double> lineWidth;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> fillColor;
  Resolved<bool> filled;
  Resolved<bool> linesVisible;
  Resolved<bool> closed;
};

}  // namespace vantry::plot
