// The primitive Sphere.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A sphere.
class Sphere : public Primitive<Sphere> {
 public:
  static constexpr Token tag = Word::Sphere;

  explicit Sphere(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> center;
  Resolved<double> radius;
  Resolved<Token> shading;
  Resolved<RGBA> fillColor;
};

}  // namespace vantry::plot
