// The primitive Poly2d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A polygon or a curve in the plane.
class Poly2d : public Primitive<Poly2d, P2List> {
 public:
  static constexpr Token tag = Word::Poly2d;

  explicit Poly2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> lineStyle;
  Resolved<Token> pointStyle;
  Resolved<Token> lineColorType;
  Resolved<Token> fillStyle;
  Resolved<Token> fillPattern;
  Resolved<bool> closed;
  Resolved<bool> linesVisible;
  Resolved<bool> pointsVisible;
  Resolved<bool> filled;
  Resolved<double> lineWidth;
  Resolved<double> pointSize;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> lineColor2;
  Resolved<RGBA> fillColor;
  Resolved<double> lineColorDirectionX;
  Resolved<double> lineColorDirectionY;
};

}  // namespace vantry::plot
