// The primitive Ellipsoid.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An ellipsoid along the axes.
class Ellipsoid : public Primitive<Ellipsoid> {
 public:
  static constexpr Token tag = Word::Ellipsoid;

  explicit Ellipsoid(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> center;
  Resolved<double> semiAxisX;
  Resolved<double> semiAxisY;
  Resolved<double> semiAxisZ;
  Resolved<Token> shading;
  Resolved<RGBA> fillColor;
};

}  // namespace vantry::plot
