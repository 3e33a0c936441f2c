#include "vantry/plot/elements/density_array2d.h"

namespace vantry::plot {

namespace {

class DensityArray2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = DensityArray2d;
    // clang-format off
    mandatory<MeshType>          (Word::XMesh,         1,             1, &E::xMesh);
    mandatory<MeshType>          (Word::YMesh,         1,             2, &E::yMesh);
    optional<RangeValueType>     (Word::XMin,          0,             4, &E::xMin);
    optional<RangeValueType>     (Word::XMax,          1,             8, &E::xMax);
    optional<RangeValueType>     (Word::YMin,          0,            16, &E::yMin);
    optional<RangeValueType>     (Word::YMax,          1,            32, &E::yMax);
    inherited<BoolTrait>         (Word::LinesVisible,  false,        64, &E::linesVisible);
    inherited<PosOutputSizeType> (Word::LineWidth,     0.5,         128, &E::lineWidth);
    inherited<RGBATrait>         (Word::LineColor,     black,       256, &E::lineColor);
    inherited<RGBATrait>         (Word::FillColor,     white,       512, &E::fillColor);
    inherited<RGBATrait>         (Word::FillColor2,    black,      2048, &E::fillColor2);
    inherited<ColorType>         (Word::FillColorType, Word::Flat, 1024, &E::fillColorType);
    // clang-format on
  }
};
constinit DensityArray2dPropertyListMgr densityArray2dPropertyList;

}  // namespace

PropertyListMgr& DensityArray2d::propertyList() { return densityArray2dPropertyList; }

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
