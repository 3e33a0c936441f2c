#include "vantry/plot/elements/canvas.h"

#include "vantry/plot/framework/property_list.h"
#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf properties{
    optional<IdType>                   (Word::Id,              {}),
    optional<StringType>               (Word::Name,            {}),
    optional<ConsistentType>           (Word::Consistent,      false),
    optional<LayoutType>               (Word::Layout,          Word::Tabular),
    optional<OutputUnitsType>          (Word::OutputUnits,     Word::MM),
    inherited<HorizontalAlignmentType> (Word::HeaderAlignment, Word::Center),
    inherited<HorizontalAlignmentType> (Word::FooterAlignment, Word::Center),
    optional<RGBAType>                 (Word::BackgroundColor, white),
    optional<RGBAType>                 (Word::BorderColor,     black),
    optional<AnimationStyleType>       (Word::AnimationStyle,  Word::RunOnce),
    optional<NonNegOutputSizeType>     (Word::Spacing,         0),
    optional<NonNegOutputSizeType>     (Word::TopMargin,       0),
    optional<NonNegOutputSizeType>     (Word::LeftMargin,      0),
    optional<NonNegOutputSizeType>     (Word::BottomMargin,    0),
    optional<NonNegOutputSizeType>     (Word::RightMargin,     0),
    optional<NonNegOutputSizeType>     (Word::BorderWidth,     0),
    optional<PosOutputSizeType>        (Word::Width,           100),
    optional<PosOutputSizeType>        (Word::Height,          75),
    optional<FontStyleType>            (Word::HeaderFont,      standardFont),
    optional<FontStyleType>            (Word::FooterFont,      standardFont),
    optional<NonNegLongType>           (Word::Rows,            0),
    optional<NonNegLongType>           (Word::Columns,         0),
    optional<FloatOrNaNType>           (Word::InitialTime,     nan),
    optional<FloatOrNaNType>           (Word::CurrentTime,     nan),
    optional<BoolType>                 (Word::AutoPlay,        false),
};
// clang-format on

bool isAnyNamed(dom::NewChildren children, Token name) {
  for (const dom::Node& child : children) {
    if (child.nodeName() == name) return true;
  }
  return false;
}

}  // namespace

// Scenes of both dimensions cannot come in one change, though one canvas may hold both.
bool Canvas::canReplaceChildren(dom::Node* first, unsigned count,
                                dom::NewChildren newChildren) const {
  return ElementOf::canReplaceChildren(first, count, newChildren) &&
         !(isAnyNamed(newChildren, Word::Scene2d) && isAnyNamed(newChildren, Word::Scene3d));
}

bool Canvas::canHoldItsChildren() const {
  return ElementOf::canReplaceChildren(firstChild(), length(), firstChild());
}

const Property* Canvas::findProperty(Token name) const { return properties.find(name); }

}  // namespace vantry::plot
