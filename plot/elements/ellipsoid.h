// The primitive Ellipsoid.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// An ellipsoid along the axes.
class Ellipsoid : public Primitive<Ellipsoid> {
 public:
  static constexpr Token tag = Word::Ellipsoid;

  explicit Ellipsoid(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> center;
  Stored<double> semiAxisX;
  Stored<double> semiAxisY;
  Stored<double> semiAxisZ;
  Stored<Token> shading;
  Stored<RGBA> fillColor;
};

}  // namespace vantry::plot
