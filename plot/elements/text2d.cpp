#include "vantry/plot/elements/text2d.h"

#include "vantry/plot/framework/text_content.h"

namespace vantry::plot {

namespace {

class Text2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Text2d;
    // clang-format off
    mandatory<P2Trait>                 (Word::Position,            {0, 0},                 1, &E::position);
    optional<DoubleTrait>              (Word::TextRotation,        0,                      2, &E::textRotation);
    inherited<HorizontalAlignmentType> (Word::HorizontalAlignment, Word::Left,             4, &E::horizontalAlignment);
    inherited<VerticalAlignmentType>   (Word::VerticalAlignment,   Word::BaseLine,         8, &E::verticalAlignment);
    inherited<FontStyleTrait>          (Word::TextFont,            FontStyle::standard(), 16, &E::textFont);
    // clang-format on
  }
};
constinit Text2dPropertyListMgr text2dPropertyList;

}  // namespace

PropertyListMgr& Text2d::propertyList() { return text2dPropertyList; }

Text2d::Text2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

bool Text2d::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return acceptsOnlyText(*this, newChildren);
}

}  // namespace vantry::plot
