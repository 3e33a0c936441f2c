#include "vantry/plot/elements/density_array2d.h"

namespace vantry::plot {

namespace {

using E = DensityArray2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<MeshType,          &E::xMesh>         (Word::XMesh,         1),
    mandatory<MeshType,          &E::yMesh>         (Word::YMesh,         1),
    optional<DoubleType,         &E::xMin>          (Word::XMin,          0),
    optional<DoubleType,         &E::xMax>          (Word::XMax,          1),
    optional<DoubleType,         &E::yMin>          (Word::YMin,          0),
    optional<DoubleType,         &E::yMax>          (Word::YMax,          1),
    inherited<BoolType,          &E::linesVisible>  (Word::LinesVisible,  false),
    inherited<PosOutputSizeType, &E::lineWidth>     (Word::LineWidth,     0.5),
    inherited<RGBAType,          &E::lineColor>     (Word::LineColor,     black),
    inherited<RGBAType,          &E::fillColor>     (Word::FillColor,     white),
    inherited<RGBAType,          &E::fillColor2>    (Word::FillColor2,    black),
    inherited<ColorType,         &E::fillColorType> (Word::FillColorType, Word::Flat),
};
// clang-format on

}  // namespace

const PropertyList& DensityArray2d::propertyList() { return properties; }

DensityArray2d::DensityArray2d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

bool DensityArray2d::canBeWritten() const {
  const std::int64_t cells = std::int64_t{xMesh()} * yMesh();
  if (static_cast<std::int64_t>(values.size()) < cells) {
    return refuse(RefusalKind::valuesMissing);
  }
  return ElementOf::canBeWritten();
}

std::ostream& DensityArray2d::writeContent(std::ostream& out) const {
  for (const double value : values) out << value << ' ';
  return out;
}

}  // namespace vantry::plot
