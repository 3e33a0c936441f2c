#include "vantry/plot/elements/color_array2d.h"

namespace vantry::plot {

namespace {

constexpr PropertyListOf properties{rasterProperties};

}  // namespace

const PropertyList& ColorArray2d::propertyList() { return properties; }

ColorArray2d::ColorArray2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

bool ColorArray2d::canBeWritten() const {
  return areEnough(colors.size(), RefusalKind::colorsMissing) && ElementOf::canBeWritten();
}

std::ostream& ColorArray2d::writeContent(std::ostream& out) const {
  for (const RGBA color : colors) out << color << ' ';
  return out;
}

}  // namespace vantry::plot
