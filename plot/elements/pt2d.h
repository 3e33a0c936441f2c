// The primitive Pt2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A single point.
class Pt2d : public Primitive<Pt2d> {
 public:
  static constexpr Token tag = Word::Pt2d;

  explicit Pt2d(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P2> position;
  Stored<Token> pointStyle;
  Stored<double> pointSize;
  Stored<RGBA> pointColor;
  Stored<bool> pointsVisible;
};

}  // namespace vantry::plot
