#include "vantry/plot/elements/lights.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf ambientLightProperties{
    mandatory<LightIntensityType, &AmbientLight::lightIntensity> (Word::LightIntensity, 1),
    inherited<RGBAType,           &AmbientLight::lightColor>     (Word::LightColor,     white),
};

constexpr PropertyListOf pointLightProperties{
    ambientLightProperties,
    inherited<BoolType, &PointLight::cameraCoordinates> (Word::CameraCoordinates, false),
    mandatory<P3Type,   &PointLight::position>          (Word::Position,          {0, 10, 0}),
};

constexpr PropertyListOf distantLightProperties{
    pointLightProperties,
    mandatory<P3Type, &DistantLight::target> (Word::Target, {0, 0, 0}),
};

constexpr PropertyListOf spotLightProperties{
    distantLightProperties,
    mandatory<DoubleType, &SpotLight::spotAngle> (Word::SpotAngle, 0.26179938779914946),
};
// clang-format on

}  // namespace

const PropertyList& AmbientLight::propertyList() { return ambientLightProperties; }

AmbientLight::AmbientLight(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

const PropertyList& PointLight::propertyList() { return pointLightProperties; }

PointLight::PointLight(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

const PropertyList& DistantLight::propertyList() { return distantLightProperties; }

DistantLight::DistantLight(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

const PropertyList& SpotLight::propertyList() { return spotLightProperties; }

SpotLight::SpotLight(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
