// The primitive Arrow3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An arrow between two points. `tipAngle` is in radians.
class Arrow3d : public Primitive<Arrow3d> {
 public:
  static constexpr Token tag = Word::Arrow3d;

  explicit Arrow3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> from;
  Resolved<P3> to;
  Resolved<Token> tipStyle;
  Resolved<Token> lineStyle;
  Resolved<double> tipLength;
  Resolved<double> lineWidth;
  Resolved<double> tubeDiameter;
  Resolved<double> tipAngle;
  Resolved<RGBA> lineColor;
  Resolved<bool> tubular;
};

}  // namespace vantry::plot
