#include "vantry/plot/elements/poly2d.h"

namespace vantry::plot {

namespace {

class Poly2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Poly2d;
    // clang-format off
    inherited<LineStyleType>     (Word::LineStyle,           Word::Solid,       1, &E::lineStyle);
    inherited<PointStyleType>    (Word::PointStyle,          Word::Squares,    32, &E::pointStyle);
    inherited<ColorType>         (Word::LineColorType,       Word::Flat,        8, &E::lineColorType);
    inherited<FillStyleType>     (Word::FillStyle,           Word::Winding,   128, &E::fillStyle);
    inherited<FillPatternType>   (Word::FillPattern,         Word::Solid,    8192, &E::fillPattern);
    inherited<BoolTrait>         (Word::Closed,              false,           512, &E::closed);
    inherited<BoolTrait>         (Word::LinesVisible,        false,          1024, &E::linesVisible);
    inherited<BoolTrait>         (Word::PointsVisible,       false,          2048, &E::pointsVisible);
    inherited<BoolTrait>         (Word::Filled,              false,          4096, &E::filled);
    inherited<PosOutputSizeType> (Word::LineWidth,           0.5,               2, &E::lineWidth);
    inherited<PosOutputSizeType> (Word::PointSize,           2,                64, &E::pointSize);
    inherited<RGBATrait>         (Word::LineColor,           black,             4, &E::lineColor);
    inherited<RGBATrait>         (Word::LineColor2,          blue,             16, &E::lineColor2);
    inherited<RGBATrait>         (Word::FillColor,           black,           256, &E::fillColor);
    inherited<DoubleTrait>       (Word::LineColorDirectionX, 0,             16384, &E::lineColorDirectionX);
    inherited<DoubleTrait>       (Word::LineColorDirectionY, 1,             32768, &E::lineColorDirectionY);
    // clang-format on
  }
};
constinit Poly2dPropertyListMgr poly2dPropertyList;

}  // namespace

PropertyListMgr& Poly2d::propertyList() { return poly2dPropertyList; }

Poly2d::Poly2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
