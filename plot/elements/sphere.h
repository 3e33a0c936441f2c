// The primitive Sphere.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace PlotDom {

/// A sphere.
class Sphere : public Primitive<Sphere> {
 public:
  static constexpr Token tag = Word::Sphere;

  explicit Sphere(Arbor::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> center;
  Stored<double> radius;
  Stored<Token> shading;
  Stored<RGBA> fillColor;
};

}  // namespace PlotDom
