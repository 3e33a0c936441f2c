// The primitive Surf3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A surface of triangles or quadrilaterals; `type` says how the points form them.
class Surf3d : public Primitive<Surf3d, P3List> {
 public:
  static constexpr Token tag = Word::Surf3d;

  explicit Surf3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> type;
  Resolved<Token> lineStyle;
  Resolved<Token> pointStyle;
  Resolved<Token> lineColorType;
  Resolved<Token> fillColorType;
  Resolved<Token> shading;
  Resolved<double> lineWidth;
  Resolved<double> pointSize;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> lineColor2;
  Resolved<RGBA> fillColor;
  Resolved<RGBA> fillColor2;
  Resolved<bool> hasLineColors;
  Resolved<bool> meshVisible;
  Resolved<bool> pointsVisible;
  Resolved<bool> filled;
  Resolved<double> lineColorDirectionX;
  Resolved<double> lineColorDirectionY;
  Resolved<double> lineColorDirectionZ;
  Resolved<double> fillColorDirectionX;
  Resolved<double> fillColorDirectionY;
  Resolved<double> fillColorDirectionZ;
};

}  // namespace vantry::plot
