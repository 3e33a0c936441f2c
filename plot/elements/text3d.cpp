#include "vantry/plot/elements/text3d.h"

#include "vantry/plot/framework/text_element.h"

namespace vantry::plot {

namespace {

using E = Text3d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,                  &E::position>            (Word::Position,            {0, 0, 0}),
    mandatory<P3Type,                  &E::baseDir>             (Word::BaseDir,             {1, 0, 0}),
    mandatory<P3Type,                  &E::faceDir>             (Word::FaceDir,             {0, 0, 1}),
    inherited<HorizontalAlignmentType, &E::horizontalAlignment> (Word::HorizontalAlignment, Word::Left),
    inherited<VerticalAlignmentType,   &E::verticalAlignment>   (Word::VerticalAlignment,   Word::BaseLine),
    inherited<FontStyleType,           &E::textFont>            (Word::TextFont,            standardFont),
    inherited<BoolType,                &E::billboarding>        (Word::Billboarding,        true),
};
// clang-format on

}  // namespace

const PropertyList& Text3d::propertyList() { return properties; }

Text3d::Text3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

bool Text3d::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return acceptsOnlyText(*this, newChildren);
}

}  // namespace vantry::plot
