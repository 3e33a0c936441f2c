// The primitive Ellipsoid.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace PlotDom {

/// An ellipsoid along the axes.
class Ellipsoid : public Primitive<Ellipsoid> {
 public:
  static constexpr Token tag = Word::Ellipsoid;

  explicit Ellipsoid(Arbor::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> center;
  Stored<double> semiAxisX;
  Stored<double> semiAxisY;
  Stored<double> semiAxisZ;
  Stored<Token> shading;
  Stored<RGBA> fillColor;
};

}  // namespace PlotDom
