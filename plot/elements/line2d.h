// The primitive Line2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A line between two points.
class Line2d : public Primitive<Line2d> {
 public:
  static constexpr Token tag = Word::Line2d;

  explicit Line2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P2> from;
  Resolved<P2> to;
  Resolved<Token> extension;
  Resolved<Token> lineStyle;
  Resolved<double> lineWidth;
  Resolved<RGBA> lineColor;
};

}  // namespace vantry::plot
