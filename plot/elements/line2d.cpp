#include "vantry/plot/elements/line2d.h"

namespace vantry::plot {

namespace {

class Line2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Line2d;
    // clang-format off
    mandatory<P2Trait>           (Word::From,      {0, 0},        1, &E::from);
    mandatory<P2Trait>           (Word::To,        {1, 1},        2, &E::to);
    inherited<ExtensionType>     (Word::Extension, Word::Finite,  4, &E::extension);
    inherited<LineStyleType>     (Word::LineStyle, Word::Solid,   8, &E::lineStyle);
    inherited<PosOutputSizeType> (Word::LineWidth, 0.5,          16, &E::lineWidth);
    inherited<RGBATrait>         (Word::LineColor, black,        32, &E::lineColor);
    // clang-format on
  }
};
constinit Line2dPropertyListMgr line2dPropertyList;

}  // namespace

PropertyListMgr& Line2d::propertyList() { return line2dPropertyList; }

Line2d::Line2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
