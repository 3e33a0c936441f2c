// The primitive Arrow2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An arrow between two points. `tipAngle` is in radians.
class Arrow2d : public Primitive<Arrow2d> {
 public:
  static constexpr Token tag = Word::Arrow2d;

  explicit Arrow2d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P2> from;
  Stored<P2> to;
  Stored<Token> tipStyle;
  Stored<Token> lineStyle;
  Stored<double> tipLength;
  Stored<double> lineWidth;
  Stored<double> tipAngle;
  Stored<RGBA> lineColor;
};

}  // namespace vantry::plot
