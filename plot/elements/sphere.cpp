#include "vantry/plot/elements/sphere.h"

namespace vantry::plot {

namespace {

class SpherePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Sphere;
    // clang-format off
    mandatory<P3Trait>     (Word::Center,    {0, 0, 0},   1, &E::center);
    mandatory<RadiusType>  (Word::Radius,    1,           2, &E::radius);
    inherited<ShadingType> (Word::Shading,   Word::Flat, 16, &E::shading);
    inherited<RGBATrait>   (Word::FillColor, black,       8, &E::fillColor);
    // clang-format on
  }
};
constinit SpherePropertyListMgr spherePropertyList;

}  // namespace

PropertyListMgr& Sphere::propertyList() { return spherePropertyList; }

Sphere::Sphere(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
