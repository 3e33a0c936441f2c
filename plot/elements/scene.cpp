#include "vantry/plot/elements/scene.h"

#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/framework/property_list_mgr.h"
#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

class ScenePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    optional<IdPropertyImpl>         (Word::Id,         {});
    optional<StringTrait>            (Word::Name,       {});
    optional<ConsistentPropertyImpl> (Word::Consistent, false);
    optional<PositionType>           (Word::Bottom,     0);
    optional<PositionType>           (Word::Left,       0);
    // clang-format on
  }
};
constinit ScenePropertyListMgr scenePropertyList;

class SceneStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<HorizontalAlignmentType>  (Word::LegendAlignment,       Word::Center);
    inherited<HorizontalAlignmentType>  (Word::HeaderAlignment,       Word::Center);
    inherited<HorizontalAlignmentType>  (Word::FooterAlignment,       Word::Center);
    inherited<LegendPlacementType>      (Word::LegendPlacement,       Word::Bottom);
    inherited<RGBATrait>                (Word::BackgroundColor,       white);
    inherited<RGBATrait>                (Word::BorderColor,           black);
    inherited<BoolTrait>                (Word::BackgroundTransparent, false);
    inherited<BoolTrait>                (Word::LegendVisible,         true);
    inherited<NonNegOutputSizeListType> (Word::TopMargin,             0);
    inherited<NonNegOutputSizeListType> (Word::LeftMargin,            0);
    inherited<NonNegOutputSizeListType> (Word::BottomMargin,          0);
    inherited<NonNegOutputSizeListType> (Word::RightMargin,           0);
    inherited<NonNegOutputSizeListType> (Word::BorderWidth,           0);
    inherited<NonNegOutputSizeListType> (Word::YXRatio,               0);
    inherited<PosOutputSizeType>        (Word::Width,                 100);
    inherited<PosOutputSizeType>        (Word::Height,                75);
    inherited<FontStyleTrait>           (Word::HeaderFont,            FontStyle::standard());
    inherited<FontStyleTrait>           (Word::FooterFont,            FontStyle::standard());
    inherited<FontStyleTrait>           (Word::LegendFont,            FontStyle::standard());
    // clang-format on
  }
};
constinit SceneStylePropertyListMgr sceneStylePropertyList;

class Scene3dStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<BackgroundStyleType>      (Word::BackgroundStyle,  Word::Flat);
    inherited<RGBATrait>                (Word::BackgroundColor2, white);
    inherited<LightingType>             (Word::Lighting,         Word::Explicit);
    inherited<NonNegOutputSizeListType> (Word::ZXRatio,          0);
    // clang-format on
  }
};
constinit Scene3dStylePropertyListMgr scene3dStylePropertyList;

bool isPlacedRelatively(const SceneBase& scene) {
  const auto* canvas = elementCast<Canvas>(scene.parent());
  return canvas && canvas->layout() == Word::Relative;
}

}  // namespace

const PlotElement* SceneBase::styleOfCanvas() const {
  return parent() ? from(parent()->firstChildByName(styleTag())) : nullptr;
}

const PlotElement* SceneBase::styleParent(Token name) const {
  const PlotElement* style = styleOfCanvas();
  return style && style->hasAttribute(name) ? style : nullptr;
}

void SceneBase::collectStyleChain(StyleChain& chain) const {
  if (const PlotElement* style = styleOfCanvas()) chain.push_back(style);
}

// The place of a scene is a size, unless it is told in parts of the canvas.
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
  return findIn(name, scenePropertyList, sceneStylePropertyList);
}

const Property* Scene3d::findProperty(Token name) const {
  return findIn(name, scenePropertyList, sceneStylePropertyList, scene3dStylePropertyList);
}

const Property* Scene2dStyle::findProperty(Token name) const {
  return sceneStylePropertyList.find(name);
}

const Property* Scene3dStyle::findProperty(Token name) const {
  return findIn(name, scene3dStylePropertyList, sceneStylePropertyList);
}

}  // namespace vantry::plot
