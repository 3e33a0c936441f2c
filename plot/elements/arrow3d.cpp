#include "vantry/plot/elements/arrow3d.h"

namespace vantry::plot {

namespace {

using E = Arrow3d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,               &E::from>         (Word::From,         {0, 0, 0}),
    mandatory<P3Type,               &E::to>           (Word::To,           {1, 1, 1}),
    inherited<TipStyleType,         &E::tipStyle>     (Word::TipStyle,     Word::Filled),
    inherited<LineStyleType,        &E::lineStyle>    (Word::LineStyle,    Word::Solid),
    inherited<NonNegOutputSizeType, &E::tipLength>    (Word::TipLength,    4),
    inherited<PosOutputSizeType,    &E::lineWidth>    (Word::LineWidth,    0.5),
    inherited<PosOutputSizeType,    &E::tubeDiameter> (Word::TubeDiameter, 2),
    inherited<DoubleType,           &E::tipAngle>     (Word::TipAngle,     0.17453292519943295),
    inherited<RGBAType,             &E::lineColor>    (Word::LineColor,    black),
    inherited<BoolType,             &E::tubular>      (Word::Tubular,      true),
};
// clang-format on

}  // namespace

const PropertyList& Arrow3d::propertyList() { return properties; }

Arrow3d::Arrow3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
