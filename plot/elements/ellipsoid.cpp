#include "vantry/plot/elements/ellipsoid.h"

namespace vantry::plot {

namespace {

using E = Ellipsoid;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,           &E::center>    (Word::Center,    {0, 0, 0}),
    mandatory<NonNegLengthType, &E::semiAxisX> (Word::SemiAxisX, 1),
    mandatory<NonNegLengthType, &E::semiAxisY> (Word::SemiAxisY, 1),
    mandatory<NonNegLengthType, &E::semiAxisZ> (Word::SemiAxisZ, 1),
    inherited<ShadingType,      &E::shading>   (Word::Shading,   Word::Flat),
    inherited<RGBAType,         &E::fillColor> (Word::FillColor, black),
};
// clang-format on

}  // namespace

const PropertyList& Ellipsoid::propertyList() { return properties; }

Ellipsoid::Ellipsoid(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
