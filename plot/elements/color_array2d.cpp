#include "vantry/plot/elements/color_array2d.h"

namespace vantry::plot {

namespace {

class ColorArray2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = ColorArray2d;
    // clang-format off
    mandatory<MeshType>          (Word::XMesh,        1,       1, &E::xMesh);
    mandatory<MeshType>          (Word::YMesh,        1,       2, &E::yMesh);
    optional<RangeValueType>     (Word::XMin,         0,       4, &E::xMin);
    optional<RangeValueType>     (Word::XMax,         1,       8, &E::xMax);
    optional<RangeValueType>     (Word::YMin,         0,      16, &E::yMin);
    optional<RangeValueType>     (Word::YMax,         1,      32, &E::yMax);
    inherited<BoolTrait>         (Word::LinesVisible, false,  64, &E::linesVisible);
    inherited<PosOutputSizeType> (Word::LineWidth,    0.5,   128, &E::lineWidth);
    inherited<RGBATrait>         (Word::LineColor,    black, 256, &E::lineColor);
    // clang-format on
  }
};
constinit ColorArray2dPropertyListMgr colorArray2dPropertyList;

}  // namespace

PropertyListMgr& ColorArray2d::propertyList() { return colorArray2dPropertyList; }

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
