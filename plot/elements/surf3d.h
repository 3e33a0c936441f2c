// The primitive Surf3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A surface of triangles or quadrilaterals; `type` says how the points form them.
class Surf3d : public Primitive<Surf3d, P3List> {
 public:
  static constexpr Token tag = Word::Surf3d;

  explicit Surf3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<Token> type;
  Stored<Token> lineStyle;
  Stored<Token> pointStyle;
  Stored<Token> lineColorType;
  Stored<Token> fillColorType;
  Stored<Token> shading;
  Stored<double> lineWidth;
  Stored<double> pointSize;
  Stored<RGBA> lineColor;
  Stored<RGBA> lineColor2;
  Stored<RGBA> fillColor;
  Stored<RGBA> fillColor2;
  Stored<bool> hasLineColors;
  Stored<bool> meshVisible;
  Stored<bool> pointsVisible;
  Stored<bool> filled;
  Stored<double> lineColorDirectionX;
  Stored<double> lineColorDirectionY;
  Stored<double> lineColorDirectionZ;
  Stored<double> fillColorDirectionX;
  Stored<double> fillColorDirectionY;
  Stored<double> fillColorDirectionZ;
};

}  // namespace vantry::plot
