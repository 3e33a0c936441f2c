#include "vantry/plot/elements/coordinate_system.h"

#include "vantry/plot/framework/property_list.h"
#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf coordinateSystemProperties{
    optional<IdType>         (Word::Id,             {}),
    optional<StringType>     (Word::Name,           {}),
    optional<ConsistentType> (Word::Consistent,     false),
    optional<LongType>       (Word::AutoViewingBox, 31),
};

constexpr PropertyListOf coordinateSystemStyleProperties{
    inherited<RGBAType>               (Word::AxesLineColor,       black),
    inherited<ScalingType>            (Word::Scaling,             Word::Automatic),
    inherited<AxesType>               (Word::Axes,                Word::Boxed),
    inherited<AxisTitleAlignmentType> (Word::XAxisTitleAlignment, Word::Center),
    inherited<AxisTitleAlignmentType> (Word::YAxisTitleAlignment, Word::Center),
    inherited<BoolType>               (Word::AxesTips,            true),
    inherited<BoolType>               (Word::XAxisVisible,        true),
    inherited<BoolType>               (Word::YAxisVisible,        true),
    inherited<PosOutputSizeType>      (Word::AxesLineWidth,       0.2),
    inherited<FontStyleType>          (Word::AxesTitleFont,       standardFont),
    inherited<TicksLabelStyleType>    (Word::XTicksLabelStyle,    Word::Horizontal),
    inherited<TicksLabelStyleType>    (Word::YTicksLabelStyle,    Word::Horizontal),
    inherited<TicksNumberType>        (Word::XTicksNumber,        Word::Normal),
    inherited<TicksNumberType>        (Word::YTicksNumber,        Word::Normal),
    inherited<BoolType>               (Word::XTicksVisible,       true),
    inherited<BoolType>               (Word::YTicksVisible,       true),
    inherited<BoolType>               (Word::XTicksLabelsVisible, true),
    inherited<BoolType>               (Word::YTicksLabelsVisible, true),
    inherited<LongType>               (Word::XTicksBetween,       0),
    inherited<LongType>               (Word::YTicksBetween,       0),
    inherited<PosOutputSizeType>      (Word::TicksLength,         1.5),
    inherited<FontStyleType>          (Word::TicksLabelFont,      standardFont),
    inherited<RGBAType>               (Word::GridLineColor,       black),
    inherited<RGBAType>               (Word::SubgridLineColor,    black),
    inherited<LineStyleType>          (Word::GridLineStyle,       Word::Dotted),
    inherited<LineStyleType>          (Word::SubgridLineStyle,    Word::Dotted),
    inherited<BoolType>               (Word::XGridVisible,        false),
    inherited<BoolType>               (Word::YGridVisible,        false),
    inherited<BoolType>               (Word::XSubgridVisible,     false),
    inherited<BoolType>               (Word::YSubgridVisible,     false),
    inherited<PosOutputSizeType>      (Word::GridLineWidth,       0.2),
    inherited<PosOutputSizeType>      (Word::SubgridLineWidth,    0.2),
};

constexpr PropertyListOf coordinateSystem2dStyleProperties{
    inherited<CoordinateType2dType>      (Word::CoordinateType,        Word::LinLin),
    inherited<BoolType>                  (Word::AxesInFront,           true),
    inherited<YAxisTitleOrientationType> (Word::YAxisTitleOrientation, Word::Horizontal),
    inherited<BoolType>                  (Word::GridInFront,           false),
};

constexpr PropertyListOf coordinateSystem3dStyleProperties{
    inherited<AxisTitleAlignmentType> (Word::ZAxisTitleAlignment, Word::Center),
    inherited<BoolType>               (Word::ZAxisVisible,        true),
    inherited<TicksLabelStyleType>    (Word::ZTicksLabelStyle,    Word::Horizontal),
    inherited<TicksNumberType>        (Word::ZTicksNumber,        Word::Normal),
    inherited<BoolType>               (Word::ZTicksVisible,       true),
    inherited<BoolType>               (Word::ZTicksLabelsVisible, true),
    inherited<LongType>               (Word::ZTicksBetween,       0),
    inherited<BoolType>               (Word::ZGridVisible,        false),
    inherited<BoolType>               (Word::ZSubgridVisible,     false),
};
// clang-format on

// The style with the given tag among the children of `container`, or null.
const PlotElement* styleIn(const dom::Node* container, Token tag) {
  return container ? PlotElement::from(container->firstChildByName(tag)) : nullptr;
}

// The container around the parent of `element`: the canvas, for what is in a scene.
const dom::Node* outerContainer(const dom::Node& element) {
  return element.parent() ? element.parent()->parent() : nullptr;
}

}  // namespace

bool CoordinateSystemBase::visitStyles(StyleVisitor& visitor) const {
  const PlotElement* ofScene = styleIn(parent(), styleTag());
  if (ofScene && visitor.visit(*ofScene)) return true;
  const PlotElement* ofCanvas = styleIn(outerContainer(*this), styleTag());
  return ofCanvas && visitor.visit(*ofCanvas);
}

const Property* CoordinateSystem2d::findProperty(Token name) const {
  return findIn(name, coordinateSystemStyleProperties, coordinateSystem2dStyleProperties,
                coordinateSystemProperties);
}

const Property* CoordinateSystem3d::findProperty(Token name) const {
  return findIn(name, coordinateSystemStyleProperties, coordinateSystem3dStyleProperties,
                coordinateSystemProperties);
}

bool CoordinateSystemStyleBase::visitStyles(StyleVisitor& visitor) const {
  const PlotElement* ofCanvas = styleIn(outerContainer(*this), tagName());
  return ofCanvas && visitor.visit(*ofCanvas);
}

const Property* CoordinateSystem2dStyle::findProperty(Token name) const {
  return findIn(name, coordinateSystem2dStyleProperties, coordinateSystemStyleProperties);
}

const Property* CoordinateSystem3dStyle::findProperty(Token name) const {
  return findIn(name, coordinateSystem3dStyleProperties, coordinateSystemStyleProperties);
}

}  // namespace vantry::plot
