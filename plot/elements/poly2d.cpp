#include "vantry/plot/elements/poly2d.h"

namespace vantry::plot {

namespace {

using E = Poly2d;

// clang-format off
constexpr PropertyListOf properties{
    inherited<LineStyleType,     &E::lineStyle>           (Word::LineStyle,           Word::Solid),
    inherited<PointStyleType,    &E::pointStyle>          (Word::PointStyle,          Word::Squares),
    inherited<ColorType,         &E::lineColorType>       (Word::LineColorType,       Word::Flat),
    inherited<FillStyleType,     &E::fillStyle>           (Word::FillStyle,           Word::Winding),
    inherited<FillPatternType,   &E::fillPattern>         (Word::FillPattern,         Word::Solid),
    inherited<BoolType,          &E::closed>              (Word::Closed,              false),
    inherited<BoolType,          &E::linesVisible>        (Word::LinesVisible,        false),
    inherited<BoolType,          &E::pointsVisible>       (Word::PointsVisible,       false),
    inherited<BoolType,          &E::filled>              (Word::Filled,              false),
    inherited<PosOutputSizeType, &E::lineWidth>           (Word::LineWidth,           0.5),
    inherited<PosOutputSizeType, &E::pointSize>           (Word::PointSize,           2),
    inherited<RGBAType,          &E::lineColor>           (Word::LineColor,           black),
    inherited<RGBAType,          &E::lineColor2>          (Word::LineColor2,          blue),
    inherited<RGBAType,          &E::fillColor>           (Word::FillColor,           black),
    inherited<DoubleType,        &E::lineColorDirectionX> (Word::LineColorDirectionX, 0),
    inherited<DoubleType,        &E::lineColorDirectionY> (Word::LineColorDirectionY, 1),
};
// clang-format on

}  // namespace

const PropertyList& Poly2d::propertyList() { return properties; }

Poly2d::Poly2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
