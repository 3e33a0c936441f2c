// Cameras.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A view of a 3d scene. `viewingAngle` is in radians.
class Camera : public Primitive<Camera> {
 public:
  static constexpr Token tag = Word::Camera;

  explicit Camera(dom::Document* document);

  static PropertyListMgr& propertyList();

  Stored<P3> position;
  Stored<P3> focalPoint;
  Stored<P3> upVector;
  Stored<double> viewingAngle;
  Stored<bool> orthogonalProjection;
  Stored<bool> keepUpVector;
};

}  // namespace vantry::plot
