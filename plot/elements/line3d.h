// The primitive Line3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A line between two points.
class Line3d : public Primitive<Line3d> {
 public:
  static constexpr Token tag = Word::Line3d;

  explicit Line3d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> from;
  Stored<P3> to;
  Stored<Token> extension;
  Stored<Token> lineStyle;
  Stored<double> lineWidth;
  Stored<double> tubeDiameter;
  Stored<RGBA> lineColor;
  Stored<bool> tubular;
};

}  // namespace vantry::plot
