// The primitive Plane.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A plane through `position`.
class Plane : public Primitive<Plane> {
 public:
  static constexpr Token tag = Word::Plane;

  explicit Plane(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> position;
  Resolved<P3> normal;
  Resolved<RGBA> fillColor;
  Resolved<RGBA> lineColor;
  Resolved<bool> filled;
  Resolved<bool> linesVisible;
  Resolved<std::int32_t> uMesh;
  Resolved<std::int32_t> vMesh;
};

}  // namespace vantry::plot
