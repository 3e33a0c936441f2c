#include "vantry/plot/elements/arrow2d.h"

namespace vantry::plot {

namespace {

using E = Arrow2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P2Type,               &E::from>      (Word::From,      {0, 0}),
    mandatory<P2Type,               &E::to>        (Word::To,        {1, 1}),
    inherited<TipStyleType,         &E::tipStyle>  (Word::TipStyle,  Word::Filled),
    inherited<LineStyleType,        &E::lineStyle> (Word::LineStyle, Word::Solid),
    inherited<NonNegOutputSizeType, &E::tipLength> (Word::TipLength, 4),
    inherited<PosOutputSizeType,    &E::lineWidth> (Word::LineWidth, 0.5),
    inherited<DoubleType,           &E::tipAngle>  (Word::TipAngle,  0.5235987755982989),
    inherited<RGBAType,             &E::lineColor> (Word::LineColor, black),
};
// clang-format on

}  // namespace

const PropertyList& Arrow2d::propertyList() { return properties; }

Arrow2d::Arrow2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
