#include "vantry/plot/elements/cone.h"

namespace vantry::plot {

namespace {

class ConePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Cone;
    // clang-format off
    mandatory<P3Trait>           (Word::Base,         {0, 0, 0},      1, &E::base);
    mandatory<P3Trait>           (Word::Top,          {0, 0, 1},      2, &E::top);
    mandatory<RadiusType>        (Word::BaseRadius,   1,              4, &E::baseRadius);
    mandatory<RadiusType>        (Word::TopRadius,    1,              8, &E::topRadius);
    inherited<LineStyleType>     (Word::LineStyle,    Word::Solid,   16, &E::lineStyle);
    inherited<ShadingType>       (Word::Shading,      Word::Flat,   512, &E::shading);
    inherited<PosOutputSizeType> (Word::LineWidth,    0.5,           32, &E::lineWidth);
    inherited<BoolTrait>         (Word::Filled,       true,         128, &E::filled);
    inherited<BoolTrait>         (Word::LinesVisible, true,        1024, &E::linesVisible);
    inherited<RGBATrait>         (Word::LineColor,    black,         64, &E::lineColor);
    inherited<RGBATrait>         (Word::FillColor,    black,        256, &E::fillColor);
    // clang-format on
  }
};
constinit ConePropertyListMgr conePropertyList;

}  // namespace

PropertyListMgr& Cone::propertyList() { return conePropertyList; }

Cone::Cone(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
