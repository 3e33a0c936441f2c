#include "vantry/plot/elements/lights.h"

namespace vantry::plot {

namespace {

class AmbientLightPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = AmbientLight;
    // clang-format off
    mandatory<LightIntensityType> (Word::LightIntensity, 1,     1, &E::lightIntensity);
    inherited<RGBATrait>          (Word::LightColor,     white, 2, &E::lightColor);
    // clang-format on
  }
};
constinit AmbientLightPropertyListMgr ambientLightPropertyList;

class PointLightPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = PointLight;
    // clang-format off
    inherited<BoolTrait> (Word::CameraCoordinates, false,      4, &E::cameraCoordinates);
    mandatory<P3Trait>   (Word::Position,          {0, 10, 0}, 8, &E::position);
    // clang-format on
  }
};
constinit PointLightPropertyListMgr pointLightPropertyList;

class DistantLightPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = DistantLight;
    // clang-format off
    mandatory<P3Trait> (Word::Target, {0, 0, 0}, 16, &E::target);
    // clang-format on
  }
};
constinit DistantLightPropertyListMgr distantLightPropertyList;

class SpotLightPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = SpotLight;
    // clang-format off
    mandatory<DoubleTrait> (Word::SpotAngle, 0.26179938779914946, 32, &E::spotAngle);
    // clang-format on
  }
};
constinit SpotLightPropertyListMgr spotLightPropertyList;

}  // namespace

PropertyListMgr& AmbientLight::propertyList() { return ambientLightPropertyList; }

AmbientLight::AmbientLight(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

PropertyListMgr& PointLight::propertyList() { return pointLightPropertyList; }

PointLight::PointLight(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

PropertyListMgr& DistantLight::propertyList() { return distantLightPropertyList; }

DistantLight::DistantLight(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

PropertyListMgr& SpotLight::propertyList() { return spotLightPropertyList; }

SpotLight::SpotLight(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
