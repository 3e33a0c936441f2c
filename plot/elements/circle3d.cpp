#include "vantry/plot/elements/circle3d.h"

namespace vantry::plot {

namespace {

using E = Circle3d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,            &E::center>       (Word::Center,       {0, 0, 0}),
    mandatory<P3Type,            &E::normal>       (Word::Normal,       {0, 0, 1}),
    mandatory<NonNegLengthType,  &E::radius>       (Word::Radius,       1),
    inherited<LineStyleType,     &E::lineStyle>    (Word::LineStyle,    Word::Solid),
    inherited<PosOutputSizeType, &E::lineWidth>    (Word::LineWidth,    0.5),
    inherited<BoolType,          &E::filled>       (Word::Filled,       true),
    inherited<BoolType,          &E::linesVisible> (Word::LinesVisible, true),
    inherited<RGBAType,          &E::lineColor>    (Word::LineColor,    black),
    inherited<RGBAType,          &E::fillColor>    (Word::FillColor,    black),
};
// clang-format on

}  // namespace

const PropertyList& Circle3d::propertyList() { return properties; }

Circle3d::Circle3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
