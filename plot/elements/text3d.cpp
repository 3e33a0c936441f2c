#include "vantry/plot/elements/text3d.h"

#include "vantry/plot/framework/text_content.h"

namespace vantry::plot {

namespace {

class Text3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Text3d;
    // clang-format off
    mandatory<P3Trait>                 (Word::Position,            {0, 0, 0},              1, &E::position);
    mandatory<P3Trait>                 (Word::BaseDir,             {1, 0, 0},              2, &E::baseDir);
    mandatory<P3Trait>                 (Word::FaceDir,             {0, 0, 1},              4, &E::faceDir);
    inherited<HorizontalAlignmentType> (Word::HorizontalAlignment, Word::Left,             8, &E::horizontalAlignment);
    inherited<VerticalAlignmentType>   (Word::VerticalAlignment,   Word::BaseLine,        16, &E::verticalAlignment);
    inherited<FontStyleTrait>          (Word::TextFont,            FontStyle::standard(), 32, &E::textFont);
    inherited<BoolTrait>               (Word::Billboarding,        true,                  64, &E::billboarding);
    // clang-format on
  }
};
constinit Text3dPropertyListMgr text3dPropertyList;

}  // namespace

PropertyListMgr& Text3d::propertyList() { return text3dPropertyList; }

Text3d::Text3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

bool Text3d::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return acceptsOnlyText(*this, newChildren);
}

}  // namespace vantry::plot
