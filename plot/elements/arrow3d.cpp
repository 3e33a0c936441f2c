#include "vantry/plot/elements/arrow3d.h"

namespace vantry::plot {

namespace {

class Arrow3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Arrow3d;
    // clang-format off
    mandatory<P3Trait>              (Word::From,         {0, 0, 0},             1, &E::from);
    mandatory<P3Trait>              (Word::To,           {1, 1, 1},             2, &E::to);
    inherited<TipStyleType>         (Word::TipStyle,     Word::Filled,          4, &E::tipStyle);
    inherited<LineStyleType>        (Word::LineStyle,    Word::Solid,          32, &E::lineStyle);
    inherited<NonNegOutputSizeType> (Word::TipLength,    4,                     8, &E::tipLength);
    inherited<PosOutputSizeType>    (Word::LineWidth,    0.5,                  64, &E::lineWidth);
    inherited<PosOutputSizeType>    (Word::TubeDiameter, 2,                   512, &E::tubeDiameter);
    inherited<DoubleTrait>          (Word::TipAngle,     0.17453292519943295,  16, &E::tipAngle);
    inherited<RGBATrait>            (Word::LineColor,    black,               128, &E::lineColor);
    inherited<BoolTrait>            (Word::Tubular,      true,                256, &E::tubular);
    // clang-format on
  }
};
constinit Arrow3dPropertyListMgr arrow3dPropertyList;

}  // namespace

PropertyListMgr& Arrow3d::propertyList() { return arrow3dPropertyList; }

Arrow3d::Arrow3d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
