// The primitive Poly3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A polygon or a curve in space.
class Poly3d : public Primitive<Poly3d, P3List> {
 public:
  static constexpr Token tag = Word::Poly3d;

  explicit Poly3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> lineStyle;
  Resolved<Token> pointStyle;
  Resolved<Token> lineColorType;
  Resolved<Token> shading;
  Resolved<double> lineWidth;
  Resolved<double> pointSize;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> lineColor2;
  Resolved<RGBA> fillColor;
  Resolved<bool> hasLineColors;
  Resolved<bool> linesVisible;
  Resolved<bool> pointsVisible;
  Resolved<bool> filled;
  Resolved<bool> closed;
  Resolved<double> lineColorDirectionX;
  Resolved<double> lineColorDirectionY;
  Resolved<double> lineColorDirectionZ;
};

}  // namespace vantry::plot
