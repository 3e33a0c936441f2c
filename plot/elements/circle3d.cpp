#include "vantry/plot/elements/circle3d.h"

namespace vantry::plot {

namespace {

class Circle3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Circle3d;
    // clang-format off
    mandatory<P3Trait>           (Word::Center,       {0, 0, 0},     1, &E::center);
    mandatory<P3Trait>           (Word::Normal,       {0, 0, 1},     2, &E::normal);
    mandatory<RadiusType>        (Word::Radius,       1,             4, &E::radius);
    inherited<LineStyleType>     (Word::LineStyle,    Word::Solid,   8, &E::lineStyle);
    inherited<PosOutputSizeType> (Word::LineWidth,    0.5,          16, &E::lineWidth);
    inherited<BoolTrait>         (Word::Filled,       true,         64, &E::filled);
    inherited<BoolTrait>         (Word::LinesVisible, true,        256, &E::linesVisible);
    inherited<RGBATrait>         (Word::LineColor,    black,        32, &E::lineColor);
    inherited<RGBATrait>         (Word::FillColor,    black,       128, &E::fillColor);
    // clang-format on
  }
};
constinit Circle3dPropertyListMgr circle3dPropertyList;

}  // namespace

PropertyListMgr& Circle3d::propertyList() { return circle3dPropertyList; }

Circle3d::Circle3d(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
