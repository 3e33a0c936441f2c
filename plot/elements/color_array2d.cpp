#include "vantry/plot/elements/color_array2d.h"

namespace vantry::plot {

namespace {

using E = ColorArray2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<MeshType,          &E::xMesh>        (Word::XMesh,        1),
    mandatory<MeshType,          &E::yMesh>        (Word::YMesh,        1),
    optional<DoubleType,         &E::xMin>         (Word::XMin,         0),
    optional<DoubleType,         &E::xMax>         (Word::XMax,         1),
    optional<DoubleType,         &E::yMin>         (Word::YMin,         0),
    optional<DoubleType,         &E::yMax>         (Word::YMax,         1),
    inherited<BoolType,          &E::linesVisible> (Word::LinesVisible, false),
    inherited<PosOutputSizeType, &E::lineWidth>    (Word::LineWidth,    0.5),
    inherited<RGBAType,          &E::lineColor>    (Word::LineColor,    black),
};
// clang-format on

}  // namespace

const PropertyList& ColorArray2d::propertyList() { return properties; }

ColorArray2d::ColorArray2d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

bool ColorArray2d::canBeWritten() const {
  const std::int64_t cells = std::int64_t{xMesh()} * yMesh();
  if (static_cast<std::int64_t>(colors.size()) < cells) {
    return refuse(RefusalKind::colorsMissing);
  }
  return ElementOf::canBeWritten();
}

std::ostream& ColorArray2d::writeContent(std::ostream& out) const {
  for (const RGBA color : colors) out << color << ' ';
  return out;
}

}  // namespace vantry::plot
