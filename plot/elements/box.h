// The primitive Box.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A box along the axes.
class Box : public Primitive<Box> {
 public:
  static constexpr Token tag = Word::Box;

  explicit Box(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> xMax;
  Resolved<double> yMax;
  Resolved<double> zMax;
  Resolved<double> xMin;
  Resolved<double> yMin;
  Resolved<double> zMin;
  Resolved<Token> lineStyle;
  Resolved<double> lineWidth;
  Resolved<bool> filled;
  Resolved<bool> linesVisible;
  Resolved<RGBA> lineColor;
  Resolved<RGBA> fillColor;
};

}  // namespace vantry::plot
