#include "vantry/plot/elements/ellipsoid.h"

namespace vantry::plot {

namespace {

class EllipsoidPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Ellipsoid;
    // clang-format off
    mandatory<P3Trait>      (Word::Center,    {0, 0, 0},   1, &E::center);
    mandatory<SemiAxisType> (Word::SemiAxisX, 1,           2, &E::semiAxisX);
    mandatory<SemiAxisType> (Word::SemiAxisY, 1,           4, &E::semiAxisY);
    mandatory<SemiAxisType> (Word::SemiAxisZ, 1,           8, &E::semiAxisZ);
    inherited<ShadingType>  (Word::Shading,   Word::Flat, 32, &E::shading);
    inherited<RGBATrait>    (Word::FillColor, black,      16, &E::fillColor);
    // clang-format on
  }
};
constinit EllipsoidPropertyListMgr ellipsoidPropertyList;

}  // namespace

PropertyListMgr& Ellipsoid::propertyList() { return ellipsoidPropertyList; }

Ellipsoid::Ellipsoid(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
