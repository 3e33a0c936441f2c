#include "vantry/plot/elements/coordinate_system.h"

#include "vantry/plot/framework/property_list_mgr.h"
#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

class CoordinateSystemPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    optional<IdPropertyImpl>         (Word::Id,             {});
    optional<StringTrait>            (Word::Name,           {});
    optional<ConsistentPropertyImpl> (Word::Consistent,     false);
    optional<AutoViewingBoxType>     (Word::AutoViewingBox, 31);
    // clang-format on
  }
};
constinit CoordinateSystemPropertyListMgr coordinateSystemPropertyList;

class CoordinateSystemStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<RGBATrait>              (Word::AxesLineColor,       black);
    inherited<ScalingType>            (Word::Scaling,             Word::Automatic);
    inherited<AxesType>               (Word::Axes,                Word::Boxed);
    inherited<AxisTitleAlignmentType> (Word::XAxisTitleAlignment, Word::Center);
    inherited<AxisTitleAlignmentType> (Word::YAxisTitleAlignment, Word::Center);
    inherited<AxesBoolProperty>       (Word::AxesTips,            true);
    inherited<AxesBoolProperty>       (Word::XAxisVisible,        true);
    inherited<AxesBoolProperty>       (Word::YAxisVisible,        true);
    inherited<PosOutputSizeType>      (Word::AxesLineWidth,       0.2);
    inherited<FontStyleTrait>         (Word::AxesTitleFont,       FontStyle::standard());
    inherited<TicksLabelStyleType>    (Word::XTicksLabelStyle,    Word::Horizontal);
    inherited<TicksLabelStyleType>    (Word::YTicksLabelStyle,    Word::Horizontal);
    inherited<TicksNumberType>        (Word::XTicksNumber,        Word::Normal);
    inherited<TicksNumberType>        (Word::YTicksNumber,        Word::Normal);
    inherited<TicksBoolProperty>      (Word::XTicksVisible,       true);
    inherited<TicksBoolProperty>      (Word::YTicksVisible,       true);
    inherited<TicksBoolProperty>      (Word::XTicksLabelsVisible, true);
    inherited<TicksBoolProperty>      (Word::YTicksLabelsVisible, true);
    inherited<TicksLongProperty>      (Word::XTicksBetween,       0);
    inherited<TicksLongProperty>      (Word::YTicksBetween,       0);
    inherited<PosOutputSizeType>      (Word::TicksLength,         1.5);
    inherited<FontStyleTrait>         (Word::TicksLabelFont,      FontStyle::standard());
    inherited<RGBATrait>              (Word::GridLineColor,       black);
    inherited<RGBATrait>              (Word::SubgridLineColor,    black);
    inherited<LineStyleType>          (Word::GridLineStyle,       Word::Dotted);
    inherited<LineStyleType>          (Word::SubgridLineStyle,    Word::Dotted);
    inherited<GridBoolProperty>       (Word::XGridVisible,        false);
    inherited<GridBoolProperty>       (Word::YGridVisible,        false);
    inherited<GridBoolProperty>       (Word::XSubgridVisible,     false);
    inherited<GridBoolProperty>       (Word::YSubgridVisible,     false);
    inherited<PosOutputSizeType>      (Word::GridLineWidth,       0.2);
    inherited<PosOutputSizeType>      (Word::SubgridLineWidth,    0.2);
    // clang-format on
  }
};
constinit CoordinateSystemStylePropertyListMgr coordinateSystemStylePropertyList;

class CoordinateSystem2dStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<CoordinateType2dType>      (Word::CoordinateType,        Word::LinLin);
    inherited<AxesBoolProperty>          (Word::AxesInFront,           true);
    inherited<YAxisTitleOrientationType> (Word::YAxisTitleOrientation, Word::Horizontal);
    inherited<GridBoolProperty>          (Word::GridInFront,           false);
    // clang-format on
  }
};
constinit CoordinateSystem2dStylePropertyListMgr coordinateSystem2dStylePropertyList;

class CoordinateSystem3dStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<AxisTitleAlignmentType> (Word::ZAxisTitleAlignment, Word::Center);
    inherited<AxesBoolProperty>       (Word::ZAxisVisible,        true);
    inherited<TicksLabelStyleType>    (Word::ZTicksLabelStyle,    Word::Horizontal);
    inherited<TicksNumberType>        (Word::ZTicksNumber,        Word::Normal);
    inherited<TicksBoolProperty>      (Word::ZTicksVisible,       true);
    inherited<TicksBoolProperty>      (Word::ZTicksLabelsVisible, true);
    inherited<TicksLongProperty>      (Word::ZTicksBetween,       0);
    inherited<GridBoolProperty>       (Word::ZGridVisible,        false);
    inherited<GridBoolProperty>       (Word::ZSubgridVisible,     false);
    // clang-format on
  }
};
constinit CoordinateSystem3dStylePropertyListMgr coordinateSystem3dStylePropertyList;

// The style with the given tag among the children of `container`, or null.
const PlotElement* styleIn(const dom::Node* container, Token tag) {
  return container ? PlotElement::from(container->firstChildByName(tag)) : nullptr;
}

// The container around the parent of `element`: the canvas, for all that stands in a scene.
const dom::Node* outerContainer(const dom::Node& element) {
  return element.parent() ? element.parent()->parent() : nullptr;
}

}  // namespace

const PlotElement* CoordinateSystemBase::styleParent(Token name) const {
  const PlotElement* ofScene = styleIn(parent(), styleTag());
  if (ofScene && ofScene->hasAttribute(name)) return ofScene;
  const PlotElement* ofCanvas = styleIn(outerContainer(*this), styleTag());
  return ofCanvas && ofCanvas->hasAttribute(name) ? ofCanvas : nullptr;
}

void CoordinateSystemBase::collectStyleChain(StyleChain& chain) const {
  if (const PlotElement* ofScene = styleIn(parent(), styleTag())) chain.push_back(ofScene);
  const PlotElement* ofCanvas = styleIn(outerContainer(*this), styleTag());
  if (ofCanvas) chain.push_back(ofCanvas);
}

const Property* CoordinateSystem2d::findProperty(Token name) const {
  return findIn(name, coordinateSystemStylePropertyList, coordinateSystem2dStylePropertyList,
                coordinateSystemPropertyList);
}

const Property* CoordinateSystem3d::findProperty(Token name) const {
  return findIn(name, coordinateSystemStylePropertyList, coordinateSystem3dStylePropertyList,
                coordinateSystemPropertyList);
}

const PlotElement* CoordinateSystemStyleBase::styleParent(Token name) const {
  const PlotElement* ofCanvas = styleIn(outerContainer(*this), tagName());
  return ofCanvas && ofCanvas->hasAttribute(name) ? ofCanvas : nullptr;
}

void CoordinateSystemStyleBase::collectStyleChain(StyleChain& chain) const {
  const PlotElement* ofCanvas = styleIn(outerContainer(*this), tagName());
  if (ofCanvas) chain.push_back(ofCanvas);
}

const Property* CoordinateSystem2dStyle::findProperty(Token name) const {
  return findIn(name, coordinateSystem2dStylePropertyList, coordinateSystemStylePropertyList);
}

const Property* CoordinateSystem3dStyle::findProperty(Token name) const {
  return findIn(name, coordinateSystem3dStylePropertyList, coordinateSystemStylePropertyList);
}

}  // namespace vantry::plot
