#include "vantry/plot/elements/line2d.h"

namespace vantry::plot {

namespace {

using E = Line2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P2Type,            &E::from>      (Word::From,      {0, 0}),
    mandatory<P2Type,            &E::to>        (Word::To,        {1, 1}),
    inherited<ExtensionType,     &E::extension> (Word::Extension, Word::Finite),
    inherited<LineStyleType,     &E::lineStyle> (Word::LineStyle, Word::Solid),
    inherited<PosOutputSizeType, &E::lineWidth> (Word::LineWidth, 0.5),
    inherited<RGBAType,          &E::lineColor> (Word::LineColor, black),
};
// clang-format on

}  // namespace

const PropertyList& Line2d::propertyList() { return properties; }

Line2d::Line2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
