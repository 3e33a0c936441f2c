// The primitive Plane.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A plane through `position`.
class Plane : public Primitive<Plane> {
 public:
  static constexpr Token tag = Word::Plane;

  explicit Plane(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> position;
  Stored<P3> normal;
  Stored<RGBA> fillColor;
  Stored<RGBA> lineColor;
  Stored<bool> filled;
  Stored<bool> linesVisible;
  Stored<std::int32_t> uMesh;
  Stored<std::int32_t> vMesh;
};

}  // namespace vantry::plot
