// The primitive Arrow2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An arrow between two points. `tipAngle` is in radians.
class Arrow2d : public Primitive<Arrow2d> {
 public:
  static constexpr Token tag = Word::Arrow2d;

  explicit Arrow2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P2> from;
  Resolved<P2> to;
  Resolved<Token> tipStyle;
  Resolved<Token> lineStyle;
  Resolved<double> tipLength;
  Resolved<double> lineWidth;
  Resolved<double> tipAngle;
  Resolved<RGBA> lineColor;
};

}  // namespace vantry::plot
