// The primitive Pts2d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// Points in the plane.
class Pts2d : public Primitive<Pts2d, P2List> {
 public:
  static constexpr Token tag = Word::Pts2d;

  explicit Pts2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> pointStyle;
  Resolved<double> pointSize;
  Resolved<RGBA> pointColor;
  Resolved<bool> pointsVisible;
};

}  // namespace vantry::plot
