// The primitive Mesh3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// A parametric surface over a grid of `uMesh` by `vMesh` points, each step of which may be refined
/// by `uSubmesh` and `vSubmesh` points between. The points are row by row.
class Mesh3d : public Primitive<Mesh3d, P3List> {
 public:
  static constexpr Token tag = Word::Mesh3d;

  explicit Mesh3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<std::int32_t> uMesh;
  Resolved<std::int32_t> vMesh;
  Resolved<std::int32_t> uSubmesh;
  Resolved<std::int32_t> vSubmesh;
  Resolved<Token> lineStyle;
  Resolved<Token> lineColorType;
  Resolved<Token> pointStyle;
  Resolved<Token> fillColorType;
  Resolved<Token> shading;
  Resolved<bool> hasLineColors;
  Resolved<bool> xLinesVisible;
  Resolved<bool> yLinesVisible;
  Resolved<bool> uLinesVisible;
  Resolved<bool> vLinesVisible;
  Resolved<bool> useXYLinesVisible;
  Resolved<bool> filled;
  Resolved<bool> pointsVisible;
  Resolved<double> lineWidth;
  Resolved<double> pointSize;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> lineColor2;
  Resolved<RGBA> fillColor;
  Resolved<RGBA> fillColor2;
  Resolved<double> lineColorDirectionX;
  Resolved<double> lineColorDirectionY;
  Resolved<double> lineColorDirectionZ;
  Resolved<double> fillColorDirectionX;
  Resolved<double> fillColorDirectionY;
  Resolved<double> fillColorDirectionZ;
};

}  // namespace vantry::plot
