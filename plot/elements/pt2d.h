// The primitive Pt2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A single point.
class Pt2d : public Primitive<Pt2d> {
 public:
  static constexpr Token tag = Word::Pt2d;

  explicit Pt2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P2> position;
  Resolved<Token> pointStyle;
  Resolved<double> pointSize;
  Resolved<RGBA> pointColor;
  Resolved<bool> pointsVisible;
};

}  // namespace vantry::plot
