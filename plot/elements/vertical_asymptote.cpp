#include "vantry/plot/elements/vertical_asymptote.h"

namespace vantry::plot {

namespace {

class VerticalAsymptotePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = VerticalAsymptote;
    // clang-format off
    mandatory<DoubleTrait>       (Word::Position,                  0,             1, &E::position);
    inherited<BoolTrait>         (Word::VerticalAsymptotesVisible, true,          2, &E::verticalAsymptotesVisible);
    inherited<LineStyleType>     (Word::VerticalAsymptotesStyle,   Word::Dashed,  4, &E::verticalAsymptotesStyle);
    inherited<PosOutputSizeType> (Word::VerticalAsymptotesWidth,   0.5,           8, &E::verticalAsymptotesWidth);
    inherited<RGBATrait>         (Word::VerticalAsymptotesColor,   black,        16, &E::verticalAsymptotesColor);
    // clang-format on
  }
};
constinit VerticalAsymptotePropertyListMgr verticalAsymptotePropertyList;

}  // namespace

PropertyListMgr& VerticalAsymptote::propertyList() { return verticalAsymptotePropertyList; }

VerticalAsymptote::VerticalAsymptote(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
