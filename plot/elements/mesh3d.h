// The primitive Mesh3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A parametric surface over a grid of `uMesh` by `vMesh` points, each step of which may be refined
/// by `uSubmesh` and `vSubmesh` points between. The points stand row by row.
class Mesh3d : public Primitive<Mesh3d, P3List> {
 public:
  static constexpr Token tag = Word::Mesh3d;

  explicit Mesh3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<std::int32_t> uMesh;
  Stored<std::int32_t> vMesh;
  Stored<std::int32_t> uSubmesh;
  Stored<std::int32_t> vSubmesh;
  Stored<Token> lineStyle;
  Stored<Token> lineColorType;
  Stored<Token> pointStyle;
  Stored<Token> fillColorType;
  Stored<Token> shading;
  Stored<bool> hasLineColors;
  Stored<bool> xLinesVisible;
  Stored<bool> yLinesVisible;
  Stored<bool> uLinesVisible;
  Stored<bool> vLinesVisible;
  Stored<bool> useXYLinesVisible;
  Stored<bool> filled;
  Stored<bool> pointsVisible;
  Stored<double> lineWidth;
  Stored<double> pointSize;
  Stored<RGBA> lineColor;
  Stored<RGBA> lineColor2;
  Stored<RGBA> fillColor;
  Stored<RGBA> fillColor2;
  Stored<double> lineColorDirectionX;
  Stored<double> lineColorDirectionY;
  Stored<double> lineColorDirectionZ;
  Stored<double> fillColorDirectionX;
  Stored<double> fillColorDirectionY;
  Stored<double> fillColorDirectionZ;
};

}  // namespace vantry::plot
