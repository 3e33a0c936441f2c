// The primitive Poly2d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A polygon or a curve in the plane.
class Poly2d : public Primitive<Poly2d, P2List> {
 public:
  static constexpr Token tag = Word::Poly2d;

  explicit Poly2d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<Token> lineStyle;
  Stored<Token> pointStyle;
  Stored<Token> lineColorType;
  Stored<Token> fillStyle;
  Stored<Token> fillPattern;
  Stored<bool> closed;
  Stored<bool> linesVisible;
  Stored<bool> pointsVisible;
  Stored<bool> filled;
  Stored<double> lineWidth;
  Stored<double> pointSize;
  Stored<RGBA> lineColor;
  Stored<RGBA> lineColor2;
  Stored<RGBA> fillColor;
  Stored<double> lineColorDirectionX;
  Stored<double> lineColorDirectionY;
};

}  // namespace vantry::plot
