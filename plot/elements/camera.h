// Cameras.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A view of a 3d scene. `viewingAngle` is in radians.
class Camera : public Primitive<Camera> {
 public:
  static constexpr Token tag = Word::Camera;

  explicit Camera(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> position;
  Resolved<P3> focalPoint;
  Resolved<P3> upVector;
  Resolved<double> viewingAngle;
  Resolved<bool> orthogonalProjection;
  Resolved<bool> keepUpVector;
};

}  // namespace vantry::plot
