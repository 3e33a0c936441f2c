#include "vantry/plot/elements/arrow2d.h"

namespace vantry::plot {

namespace {

class Arrow2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Arrow2d;
    // clang-format off
    mandatory<P2Trait>              (Word::From,      {0, 0},               1, &E::from);
    mandatory<P2Trait>              (Word::To,        {1, 1},               2, &E::to);
    inherited<TipStyleType>         (Word::TipStyle,  Word::Filled,         4, &E::tipStyle);
    inherited<LineStyleType>        (Word::LineStyle, Word::Solid,         32, &E::lineStyle);
    inherited<NonNegOutputSizeType> (Word::TipLength, 4,                    8, &E::tipLength);
    inherited<PosOutputSizeType>    (Word::LineWidth, 0.5,                 64, &E::lineWidth);
    inherited<DoubleTrait>          (Word::TipAngle,  0.5235987755982989,  16, &E::tipAngle);
    inherited<RGBATrait>            (Word::LineColor, black,              128, &E::lineColor);
    // clang-format on
  }
};
constinit Arrow2dPropertyListMgr arrow2dPropertyList;

}  // namespace

PropertyListMgr& Arrow2d::propertyList() { return arrow2dPropertyList; }

Arrow2d::Arrow2d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
