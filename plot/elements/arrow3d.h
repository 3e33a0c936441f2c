// The primitive Arrow3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An arrow between two points. `tipAngle` is in radians.
class Arrow3d : public Primitive<Arrow3d> {
 public:
  static constexpr Token tag = Word::Arrow3d;

  explicit Arrow3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> from;
  Stored<P3> to;
  Stored<Token> tipStyle;
  Stored<Token> lineStyle;
  Stored<double> tipLength;
  Stored<double> lineWidth;
  Stored<double> tubeDiameter;
  Stored<double> tipAngle;
  Stored<RGBA> lineColor;
  Stored<bool> tubular;
};

}  // namespace vantry::plot
