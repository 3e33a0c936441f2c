// The primitive Line3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A line between two points.
class Line3d : public Primitive<Line3d> {
 public:
  static constexpr Token tag = Word::Line3d;

  explicit Line3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> from;
  Resolved<P3> to;
  Resolved<Token> extension;
  Resolved<Token> lineStyle;
  Resolved<double> lineWidth;
  Resolved<double> tubeDiameter;
  Resolved<RGBA> lineColor;
  Resolved<bool> tubular;
};

}  // namespace vantry::plot
