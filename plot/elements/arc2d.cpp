#include "vantry/plot/elements/arc2d.h"

namespace vantry::plot {

namespace {

class Arc2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Arc2d;
    // clang-format off
    mandatory<P2Trait>           (Word::Center,       {0, 0},         1, &E::center);
    inherited<LineStyleType>     (Word::LineStyle,    Word::Solid,   64, &E::lineStyle);
    inherited<FillPatternType>   (Word::FillPattern,  Word::Solid, 2048, &E::fillPattern);
    mandatory<SemiAxisType>      (Word::SemiAxisX,    1,              2, &E::semiAxisX);
    mandatory<SemiAxisType>      (Word::SemiAxisY,    1,              4, &E::semiAxisY);
    optional<AngleType>          (Word::StartAngle,   0,              8, &E::startAngle);
    optional<AngleType>          (Word::EndAngle,     6.2831853,     16, &E::endAngle);
    inherited<PosOutputSizeType> (Word::LineWidth,    0.5,          128, &E::lineWidth);
    inherited<RGBATrait>         (Word::LineColor,    black,        256, &E::lineColor);
    inherited<RGBATrait>         (Word::FillColor,    red,          512, &E::fillColor);
    inherited<BoolTrait>         (Word::Filled,       true,          32, &E::filled);
    inherited<BoolTrait>         (Word::LinesVisible, true,        1024, &E::linesVisible);
    inherited<BoolTrait>         (Word::Closed,       false,       4096, &E::closed);
    // clang-format on
  }
};
constinit Arc2dPropertyListMgr arc2dPropertyList;

}  // namespace

PropertyListMgr& Arc2d::propertyList() { return arc2dPropertyList; }

Arc2d::Arc2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
