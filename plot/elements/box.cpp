#include "vantry/plot/elements/box.h"

namespace vantry::plot {

namespace {

class BoxPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Box;
    // clang-format off
    mandatory<RangeBoundType>    (Word::XMax,         -1,             2, &E::xMax);
    mandatory<RangeBoundType>    (Word::YMax,         -1,             8, &E::yMax);
    mandatory<RangeBoundType>    (Word::ZMax,         -1,            32, &E::zMax);
    mandatory<RangeBoundType>    (Word::XMin,         -1,             1, &E::xMin);
    mandatory<RangeBoundType>    (Word::YMin,         -1,             4, &E::yMin);
    mandatory<RangeBoundType>    (Word::ZMin,         -1,            16, &E::zMin);
    inherited<LineStyleType>     (Word::LineStyle,    Word::Solid,   64, &E::lineStyle);
    inherited<PosOutputSizeType> (Word::LineWidth,    0.5,          128, &E::lineWidth);
    inherited<BoolTrait>         (Word::Filled,       true,         512, &E::filled);
    inherited<BoolTrait>         (Word::LinesVisible, true,        2048, &E::linesVisible);
    inherited<RGBATrait>         (Word::LineColor,    black,        256, &E::lineColor);
    inherited<RGBATrait>         (Word::FillColor,    black,       1024, &E::fillColor);
    // clang-format on
  }
};
constinit BoxPropertyListMgr boxPropertyList;

}  // namespace

PropertyListMgr& Box::propertyList() { return boxPropertyList; }

Box::Box(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
