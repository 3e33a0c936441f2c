#include "vantry/plot/elements/density_array2d.h"

namespace vantry::plot {

namespace {

using E = DensityArray2d;

// clang-format off
constexpr PropertyListOf properties{
    rasterProperties,
    inherited<RGBAType,  &E::fillColor>     (Word::FillColor,     white),
    inherited<RGBAType,  &E::fillColor2>    (Word::FillColor2,    black),
    inherited<ColorType, &E::fillColorType> (Word::FillColorType, Word::Flat),
};
// clang-format on

}  // namespace

const PropertyList& DensityArray2d::propertyList() { return properties; }

DensityArray2d::DensityArray2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

bool DensityArray2d::canBeWritten() const {
  return areEnough(values.size(), RefusalKind::valuesMissing) && ElementOf::canBeWritten();
}

std::ostream& DensityArray2d::writeContent(std::ostream& out) const {
  for (const double value : values) out << value << ' ';
  return out;
}

}  // namespace vantry::plot
