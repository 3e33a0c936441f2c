#include "vantry/plot/elements/text2d.h"

#include "vantry/plot/framework/text_element.h"

namespace vantry::plot {

namespace {

using E = Text2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P2Type,                  &E::position>            (Word::Position,            {0, 0}),
    optional<DoubleType,               &E::textRotation>        (Word::TextRotation,        0),
    inherited<HorizontalAlignmentType, &E::horizontalAlignment> (Word::HorizontalAlignment, Word::Left),
    inherited<VerticalAlignmentType,   &E::verticalAlignment>   (Word::VerticalAlignment,   Word::BaseLine),
    inherited<FontStyleType,           &E::textFont>            (Word::TextFont,            standardFont),
};
// clang-format on

}  // namespace

const PropertyList& Text2d::propertyList() { return properties; }

Text2d::Text2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

bool Text2d::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return acceptsOnlyText(*this, newChildren);
}

}  // namespace vantry::plot
