#include "vantry/plot/elements/line3d.h"

namespace vantry::plot {

namespace {

class Line3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Line3d;
    // clang-format off
    mandatory<P3Trait>           (Word::From,         {0, 0, 0},      1, &E::from);
    mandatory<P3Trait>           (Word::To,           {1, 1, 1},      2, &E::to);
    inherited<ExtensionType>     (Word::Extension,    Word::Finite,   4, &E::extension);
    inherited<LineStyleType>     (Word::LineStyle,    Word::Solid,    8, &E::lineStyle);
    inherited<PosOutputSizeType> (Word::LineWidth,    0.5,           16, &E::lineWidth);
    inherited<PosOutputSizeType> (Word::TubeDiameter, 2,            128, &E::tubeDiameter);
    inherited<RGBATrait>         (Word::LineColor,    black,         32, &E::lineColor);
    inherited<BoolTrait>         (Word::Tubular,      true,          64, &E::tubular);
    // clang-format on
  }
};
constinit Line3dPropertyListMgr line3dPropertyList;

}  // namespace

PropertyListMgr& Line3d::propertyList() { return line3dPropertyList; }

Line3d::Line3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
