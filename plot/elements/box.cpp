#include "vantry/plot/elements/box.h"

namespace vantry::plot {

namespace {

using E = Box;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<DoubleType,        &E::xMax>         (Word::XMax,         -1),
    mandatory<DoubleType,        &E::yMax>         (Word::YMax,         -1),
    mandatory<DoubleType,        &E::zMax>         (Word::ZMax,         -1),
    mandatory<DoubleType,        &E::xMin>         (Word::XMin,         -1),
    mandatory<DoubleType,        &E::yMin>         (Word::YMin,         -1),
    mandatory<DoubleType,        &E::zMin>         (Word::ZMin,         -1),
    inherited<LineStyleType,     &E::lineStyle>    (Word::LineStyle,    Word::Solid),
    inherited<PosOutputSizeType, &E::lineWidth>    (Word::LineWidth,    0.5),
    inherited<BoolType,          &E::filled>       (Word::Filled,       true),
    inherited<BoolType,          &E::linesVisible> (Word::LinesVisible, true),
    inherited<RGBAType,          &E::lineColor>    (Word::LineColor,    black),
    inherited<RGBAType,          &E::fillColor>    (Word::FillColor,    black),
};
// clang-format on

}  // namespace

const PropertyList& Box::propertyList() { return properties; }

Box::Box(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
