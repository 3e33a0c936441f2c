#include "vantry/plot/elements/canvas.h"

#include "vantry/plot/framework/property_list_mgr.h"
#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

class CanvasPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    optional<IdPropertyImpl>           (Word::Id,              {});
    optional<StringTrait>              (Word::Name,            {});
    optional<ConsistentPropertyImpl>   (Word::Consistent,      false);
    optional<LayoutType>               (Word::Layout,          Word::Tabular);
    optional<OutputUnitsType>          (Word::OutputUnits,     Word::MM);
    inherited<HorizontalAlignmentType> (Word::HeaderAlignment, Word::Center);
    inherited<HorizontalAlignmentType> (Word::FooterAlignment, Word::Center);
    optional<RGBATrait>                (Word::BackgroundColor, white);
    optional<RGBATrait>                (Word::BorderColor,     black);
    optional<AnimationStyleType>       (Word::AnimationStyle,  Word::RunOnce);
    optional<NonNegOutputSizeType>     (Word::Spacing,         0);
    optional<NonNegOutputSizeType>     (Word::TopMargin,       0);
    optional<NonNegOutputSizeType>     (Word::LeftMargin,      0);
    optional<NonNegOutputSizeType>     (Word::BottomMargin,    0);
    optional<NonNegOutputSizeType>     (Word::RightMargin,     0);
    optional<NonNegOutputSizeType>     (Word::BorderWidth,     0);
    optional<PosOutputSizeType>        (Word::Width,           100);
    optional<PosOutputSizeType>        (Word::Height,          75);
    optional<FontStyleTrait>           (Word::HeaderFont,      FontStyle::standard());
    optional<FontStyleTrait>           (Word::FooterFont,      FontStyle::standard());
    optional<NonNegLongType>           (Word::Rows,            0);
    optional<NonNegLongType>           (Word::Columns,         0);
    optional<TimeOrNaNType>            (Word::InitialTime,     nan);
    optional<TimeOrNaNType>            (Word::CurrentTime,     nan);
    optional<BoolTrait>                (Word::AutoPlay,        false);
    // clang-format on
  }
};
constinit CanvasPropertyListMgr canvasPropertyList;

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

const Property* Canvas::findProperty(Token name) const { return canvasPropertyList.find(name); }

}  // namespace vantry::plot
