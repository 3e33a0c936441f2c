// Lights.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// Light from everywhere. `lightIntensity` lies between 0 and 1.
class AmbientLight : public Primitive<AmbientLight> {
 public:
  static constexpr Token tag = Word::AmbientLight;

  explicit AmbientLight(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> lightIntensity;
  Resolved<RGBA> lightColor;
};

/// Light from one point.
class PointLight : public Primitive<PointLight, AmbientLight> {
 public:
  static constexpr Token tag = Word::PointLight;

  explicit PointLight(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<bool> cameraCoordinates;
  Resolved<P3> position;
};

/// Light from far away, in the direction from `position` to `target`.
class DistantLight : public Primitive<DistantLight, PointLight> {
 public:
  static constexpr Token tag = Word::DistantLight;

  explicit DistantLight(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> target;
};

/// A cone of light. `spotAngle` is in radians.
class SpotLight : public Primitive<SpotLight, DistantLight> {
 public:
  static constexpr Token tag = Word::SpotLight;

  explicit SpotLight(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> spotAngle;
};

}  // namespace vantry::plot
