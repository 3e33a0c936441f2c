#include "vantry/plot/elements/cone.h"

namespace vantry::plot {

namespace {

using E = Cone;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,            &E::base>         (Word::Base,         {0, 0, 0}),
    mandatory<P3Type,            &E::top>          (Word::Top,          {0, 0, 1}),
    mandatory<NonNegLengthType,  &E::baseRadius>   (Word::BaseRadius,   1),
    mandatory<NonNegLengthType,  &E::topRadius>    (Word::TopRadius,    1),
    inherited<LineStyleType,     &E::lineStyle>    (Word::LineStyle,    Word::Solid),
    inherited<ShadingType,       &E::shading>      (Word::Shading,      Word::Flat),
    inherited<PosOutputSizeType, &E::lineWidth>    (Word::LineWidth,    0.5),
    inherited<BoolType,          &E::filled>       (Word::Filled,       true),
    inherited<BoolType,          &E::linesVisible> (Word::LinesVisible, true),
    inherited<RGBAType,          &E::lineColor>    (Word::LineColor,    black),
    inherited<RGBAType,          &E::fillColor>    (Word::FillColor,    black),
};
// clang-format on

}  // namespace

const PropertyList& Cone::propertyList() { return properties; }

Cone::Cone(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
