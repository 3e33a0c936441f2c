#include "vantry/plot/elements/line3d.h"

namespace vantry::plot {

namespace {

using E = Line3d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,            &E::from>         (Word::From,         {0, 0, 0}),
    mandatory<P3Type,            &E::to>           (Word::To,           {1, 1, 1}),
    inherited<ExtensionType,     &E::extension>    (Word::Extension,    Word::Finite),
    inherited<LineStyleType,     &E::lineStyle>    (Word::LineStyle,    Word::Solid),
    inherited<PosOutputSizeType, &E::lineWidth>    (Word::LineWidth,    0.5),
    inherited<PosOutputSizeType, &E::tubeDiameter> (Word::TubeDiameter, 2),
    inherited<RGBAType,          &E::lineColor>    (Word::LineColor,    black),
    inherited<BoolType,          &E::tubular>      (Word::Tubular,      true),
};
// clang-format on

}  // namespace

const PropertyList& Line3d::propertyList() { return properties; }

Line3d::Line3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
