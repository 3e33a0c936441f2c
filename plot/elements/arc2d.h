// The primitive Arc2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An arc of an ellipse. Angles are in radians.
class Arc2d : public Primitive<Arc2d> {
 public:
  static constexpr Token tag = Word::Arc2d;

  explicit Arc2d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P2> center;
  Stored<Token> lineStyle;
  Stored<Token> fillPattern;
  Stored<double> semiAxisX;
  Stored<double> semiAxisY;
  Stored<double> startAngle;
  Stored<double> endAngle;
  Stored<double> lineWidth;
  Stored<RGBA> lineColor;
  Stored<RGBA> fillColor;
  Stored<bool> filled;
  Stored<bool> linesVisible;
  Stored<bool> closed;
};

}  // namespace vantry::plot
