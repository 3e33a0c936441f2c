#include "vantry/plot/elements/poly3d.h"

namespace vantry::plot {

namespace {

class Poly3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Poly3d;
    // clang-format off
    inherited<LineStyleType>     (Word::LineStyle,           Word::Solid,       2, &E::lineStyle);
    inherited<PointStyleType>    (Word::PointStyle,          Word::Squares,   256, &E::pointStyle);
    inherited<ColorType>         (Word::LineColorType,       Word::Flat,       16, &E::lineColorType);
    inherited<ShadingType>       (Word::Shading,             Word::Flat,     2048, &E::shading);
    inherited<PosOutputSizeType> (Word::LineWidth,           0.5,               4, &E::lineWidth);
    inherited<PosOutputSizeType> (Word::PointSize,           2,               512, &E::pointSize);
    inherited<RGBATrait>         (Word::LineColor,           black,             8, &E::lineColor);
    inherited<RGBATrait>         (Word::LineColor2,          blue,             32, &E::lineColor2);
    inherited<RGBATrait>         (Word::FillColor,           red,            4096, &E::fillColor);
    optional<BoolTrait>          (Word::HasLineColors,       false,          8192, &E::hasLineColors);
    inherited<BoolTrait>         (Word::LinesVisible,        false,             1, &E::linesVisible);
    inherited<BoolTrait>         (Word::PointsVisible,       false,           128, &E::pointsVisible);
    inherited<BoolTrait>         (Word::Filled,              true,           1024, &E::filled);
    inherited<BoolTrait>         (Word::Closed,              false,            64, &E::closed);
    inherited<DoubleTrait>       (Word::LineColorDirectionX, 0,             16384, &E::lineColorDirectionX);
    inherited<DoubleTrait>       (Word::LineColorDirectionY, 0,             32768, &E::lineColorDirectionY);
    inherited<DoubleTrait>       (Word::LineColorDirectionZ, 1,             65536, &E::lineColorDirectionZ);
    // clang-format on
  }
};
constinit Poly3dPropertyListMgr poly3dPropertyList;

}  // namespace

PropertyListMgr& Poly3d::propertyList() { return poly3dPropertyList; }

Poly3d::Poly3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
