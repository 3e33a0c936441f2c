#include "vantry/plot/elements/arc2d.h"

namespace vantry::plot {

namespace {

using E = Arc2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P2Type,            &E::center>       (Word::Center,       {0, 0}),
    inherited<LineStyleType,     &E::lineStyle>    (Word::LineStyle,    Word::Solid),
    inherited<FillPatternType,   &E::fillPattern>  (Word::FillPattern,  Word::Solid),
    mandatory<NonNegLengthType,  &E::semiAxisX>    (Word::SemiAxisX,    1),
    mandatory<NonNegLengthType,  &E::semiAxisY>    (Word::SemiAxisY,    1),
    optional<AngleType,          &E::startAngle>   (Word::StartAngle,   0),
    optional<AngleType,          &E::endAngle>     (Word::EndAngle,     6.2831853),
    inherited<PosOutputSizeType, &E::lineWidth>    (Word::LineWidth,    0.5),
    inherited<RGBAType,          &E::lineColor>    (Word::LineColor,    black),
    inherited<RGBAType,          &E::fillColor>    (Word::FillColor,    red),
    inherited<BoolType,          &E::filled>       (Word::Filled,       true),
    inherited<BoolType,          &E::linesVisible> (Word::LinesVisible, true),
    inherited<BoolType,          &E::closed>       (Word::Closed,       false),
};
// clang-format on

}  // namespace

const PropertyList& Arc2d::propertyList() { return properties; }

Arc2d::Arc2d(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
