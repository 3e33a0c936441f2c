#include "vantry/plot/elements/poly3d.h"

namespace vantry::plot {

namespace {

using E = Poly3d;

// clang-format off
constexpr PropertyListOf properties{
    inherited<LineStyleType,     &E::lineStyle>           (Word::LineStyle,           Word::Solid),
    inherited<PointStyleType,    &E::pointStyle>          (Word::PointStyle,          Word::Squares),
    inherited<ColorType,         &E::lineColorType>       (Word::LineColorType,       Word::Flat),
    inherited<ShadingType,       &E::shading>             (Word::Shading,             Word::Flat),
    inherited<PosOutputSizeType, &E::lineWidth>           (Word::LineWidth,           0.5),
    inherited<PosOutputSizeType, &E::pointSize>           (Word::PointSize,           2),
    inherited<RGBAType,          &E::lineColor>           (Word::LineColor,           black),
    inherited<RGBAType,          &E::lineColor2>          (Word::LineColor2,          blue),
    inherited<RGBAType,          &E::fillColor>           (Word::FillColor,           red),
    optional<BoolType,           &E::hasLineColors>       (Word::HasLineColors,       false),
    inherited<BoolType,          &E::linesVisible>        (Word::LinesVisible,        false),
    inherited<BoolType,          &E::pointsVisible>       (Word::PointsVisible,       false),
    inherited<BoolType,          &E::filled>              (Word::Filled,              true),
    inherited<BoolType,          &E::closed>              (Word::Closed,              false),
    inherited<DoubleType,        &E::lineColorDirectionX> (Word::LineColorDirectionX, 0),
    inherited<DoubleType,        &E::lineColorDirectionY> (Word::LineColorDirectionY, 0),
    inherited<DoubleType,        &E::lineColorDirectionZ> (Word::LineColorDirectionZ, 1),
};
// clang-format on

}  // namespace

const PropertyList& Poly3d::propertyList() { return properties; }

Poly3d::Poly3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
