#include "vantry/plot/elements/vertical_asymptote.h"

namespace vantry::plot {

namespace {

using E = VerticalAsymptote;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<DoubleType,        &E::position>                  (Word::Position,                  0),
    inherited<BoolType,          &E::verticalAsymptotesVisible> (Word::VerticalAsymptotesVisible, true),
    inherited<LineStyleType,     &E::verticalAsymptotesStyle>   (Word::VerticalAsymptotesStyle,   Word::Dashed),
    inherited<PosOutputSizeType, &E::verticalAsymptotesWidth>   (Word::VerticalAsymptotesWidth,   0.5),
    inherited<RGBAType,          &E::verticalAsymptotesColor>   (Word::VerticalAsymptotesColor,   black),
};
// clang-format on

}  // namespace

const PropertyList& VerticalAsymptote::propertyList() { return properties; }

VerticalAsymptote::VerticalAsymptote(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
