#include "vantry/plot/elements/clipping_box.h"

namespace vantry::plot {

namespace {

using E = ClippingBox;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<DoubleType, &E::xMax> (Word::XMax, -1),
    mandatory<DoubleType, &E::yMax> (Word::YMax, -1),
    mandatory<DoubleType, &E::zMax> (Word::ZMax, -1),
    mandatory<DoubleType, &E::xMin> (Word::XMin, -1),
    mandatory<DoubleType, &E::yMin> (Word::YMin, -1),
    mandatory<DoubleType, &E::zMin> (Word::ZMin, -1),
};
// clang-format on

}  // namespace

const PropertyList& ClippingBox::propertyList() { return properties; }

ClippingBox::ClippingBox(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
