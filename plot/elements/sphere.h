// The primitive Sphere.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A sphere.
class Sphere : public Primitive<Sphere> {
 public:
  static constexpr Token tag = Word::Sphere;

  explicit Sphere(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> center;
  Stored<double> radius;
  Stored<Token> shading;
  Stored<RGBA> fillColor;
};

}  // namespace vantry::plot
