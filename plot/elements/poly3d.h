// The primitive Poly3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A polygon or a curve in space.
class Poly3d : public Primitive<Poly3d, P3List> {
 public:
  static constexpr Token tag = Word::Poly3d;

  explicit Poly3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<Token> lineStyle;
  Stored<Token> pointStyle;
  Stored<Token> lineColorType;
  Stored<Token> shading;
  Stored<double> lineWidth;
  Stored<double> pointSize;
  Stored<RGBA> lineColor;
  Stored<RGBA> lineColor2;
  Stored<RGBA> fillColor;
  Stored<bool> hasLineColors;
  Stored<bool> linesVisible;
  Stored<bool> pointsVisible;
  Stored<bool> filled;
  Stored<bool> closed;
  Stored<double> lineColorDirectionX;
  Stored<double> lineColorDirectionY;
  Stored<double> lineColorDirectionZ;
};

}  // namespace vantry::plot
