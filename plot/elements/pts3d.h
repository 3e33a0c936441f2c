// The primitive Pts3d.
#pragma once

#include "vantry/plot/framework/point_list.h"

namespace vantry::plot {

/// Points in space.
class Pts3d : public Primitive<Pts3d, P3List> {
 public:
  static constexpr Token tag = Word::Pts3d;

  explicit Pts3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> pointStyle;
  Resolved<double> pointSize;
  Resolved<RGBA> pointColor;
  Resolved<bool> pointsVisible;
};

}  // namespace vantry::plot
