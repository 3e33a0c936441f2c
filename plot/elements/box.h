// The primitive Box.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A box along the axes.
class Box : public Primitive<Box> {
 public:
  static constexpr Token tag = Word::Box;

  explicit Box(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<double> xMax;
  Stored<double> yMax;
  Stored<double> zMax;
  Stored<double> xMin;
  Stored<double> yMin;
  Stored<double> zMin;
  Stored<Token> lineStyle;
  Stored<double> lineWidth;
  Stored<bool> filled;
  Stored<bool> linesVisible;
  Stored<RGBA> lineColor;
  Stored<RGBA> fillColor;
};

}  // namespace vantry::plot
