// The primitive Line2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A line between two points.
class Line2d : public Primitive<Line2d> {
 public:
  static constexpr Token tag = Word::Line2d;

  explicit Line2d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P2> from;
  Stored<P2> to;
  Stored<Token> extension;
  Stored<Token> lineStyle;
  Stored<double> lineWidth;
  Stored<RGBA> lineColor;
};

}  // namespace vantry::plot
