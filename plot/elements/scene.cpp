#include "vantry/plot/elements/scene.h"

#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/framework/property_list.h"
#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf sceneProperties{
    optional<IdType>         (Word::Id,         {}),
    optional<StringType>     (Word::Name,       {}),
    optional<ConsistentType> (Word::Consistent, false),
    optional<DoubleType>     (Word::Bottom,     0),
    optional<DoubleType>     (Word::Left,       0),
};

constexpr PropertyListOf sceneStyleProperties{
    inherited<HorizontalAlignmentType>  (Word::LegendAlignment,       Word::Center),
    inherited<HorizontalAlignmentType>  (Word::HeaderAlignment,       Word::Center),
    inherited<HorizontalAlignmentType>  (Word::FooterAlignment,       Word::Center),
    inherited<LegendPlacementType>      (Word::LegendPlacement,       Word::Bottom),
    inherited<RGBAType>                 (Word::BackgroundColor,       white),
    inherited<RGBAType>                 (Word::BorderColor,           black),
    inherited<BoolType>                 (Word::BackgroundTransparent, false),
    inherited<BoolType>                 (Word::LegendVisible,         true),
    inherited<NonNegOutputSizeListType> (Word::TopMargin,             0),
    inherited<NonNegOutputSizeListType> (Word::LeftMargin,            0),
    inherited<NonNegOutputSizeListType> (Word::BottomMargin,          0),
    inherited<NonNegOutputSizeListType> (Word::RightMargin,           0),
    inherited<NonNegOutputSizeListType> (Word::BorderWidth,           0),
    inherited<NonNegOutputSizeListType> (Word::YXRatio,               0),
    inherited<PosOutputSizeType>        (Word::Width,                 100),
    inherited<PosOutputSizeType>        (Word::Height,                75),
    inherited<FontStyleType>            (Word::HeaderFont,            standardFont),
    inherited<FontStyleType>            (Word::FooterFont,            standardFont),
    inherited<FontStyleType>            (Word::LegendFont,            standardFont),
};

constexpr PropertyListOf scene3dStyleProperties{
    inherited<BackgroundStyleType>      (Word::BackgroundStyle,  Word::Flat),
    inherited<RGBAType>                 (Word::BackgroundColor2, white),
    inherited<LightingType>             (Word::Lighting,         Word::Explicit),
    inherited<NonNegOutputSizeListType> (Word::ZXRatio,          0),
};
// clang-format on

bool isPlacedRelatively(const SceneBase& scene) {
  const auto* canvas = elementCast<Canvas>(scene.parent());
  return canvas && canvas->layout() == Word::Relative;
}

}  // namespace

const PlotElement* SceneBase::styleOfCanvas() const {
  return parent() ? from(parent()->firstChildByName(styleTag())) : nullptr;
}

bool SceneBase::visitStyles(StyleVisitor& visitor) const {
  const PlotElement* style = styleOfCanvas();
  return style && visitor.visit(*style);
}

// The place of a scene is a size, unless it is in parts of the canvas.
void SceneBase::putAttribute(CmdWriter& writer, const Property& property,
                             const Variant& value) const {
  if (!isOneOf(property.name(), Word::Bottom, Word::Left) || isPlacedRelatively(*this)) {
    property.putCmd(writer, value);
    return;
  }
  writer.beginAssignment(property.name());
  SizePutCmd::put(writer, value.as<base::DoubleVariant>()->get());
  writer.endItem();
}

const Property* Scene2d::findProperty(Token name) const {
  return findIn(name, sceneProperties, sceneStyleProperties);
}

const Property* Scene3d::findProperty(Token name) const {
  return findIn(name, sceneProperties, sceneStyleProperties, scene3dStyleProperties);
}

const Property* Scene2dStyle::findProperty(Token name) const {
  return sceneStyleProperties.find(name);
}

const Property* Scene3dStyle::findProperty(Token name) const {
  return findIn(name, scene3dStyleProperties, sceneStyleProperties);
}

}  // namespace vantry::plot
