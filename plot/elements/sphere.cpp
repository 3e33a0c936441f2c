#include "vantry/plot/elements/sphere.h"

namespace vantry::plot {

namespace {

using E = Sphere;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,           &E::center>    (Word::Center,    {0, 0, 0}),
    mandatory<NonNegLengthType, &E::radius>    (Word::Radius,    1),
    inherited<ShadingType,      &E::shading>   (Word::Shading,   Word::Flat),
    inherited<RGBAType,         &E::fillColor> (Word::FillColor, black),
};
// clang-format on

}  // namespace

const PropertyList& Sphere::propertyList() { return properties; }

Sphere::Sphere(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
