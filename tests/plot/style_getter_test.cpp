// The typed getters, each against the property whose name it bears.
#include <functional>

#include "plot_test.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::plot::test {
namespace {

template <class Owner>
struct Getter {
  template <class Value>
  Getter(Token propertyName, Value (Owner::*getter)() const)
      : name(propertyName), read([getter](const Owner& owner) -> Variant {
          return typename VariantOf<Value>::type((owner.*getter)());
        }) {}

  Token name;
  std::function<Variant(const Owner&)> read;
};

using O = ObjectStyleGetter;
using S = SceneStyleGetter;
using C = CoordinateSystemStyleGetter;

// clang-format off
const std::vector<Getter<ObjectStyleGetter>> objectGetters = {
    {Word::Type, &O::type}, {Word::LineStyle, &O::lineStyle}, {Word::PointStyle, &O::pointStyle},
    {Word::LineColorType, &O::lineColorType}, {Word::FillColorType, &O::fillColorType},
    {Word::Shading, &O::shading}, {Word::ArrowLength, &O::arrowLength},
    {Word::TipStyle, &O::tipStyle}, {Word::FillStyle, &O::fillStyle},
    {Word::FillPattern, &O::fillPattern}, {Word::HorizontalAlignment, &O::horizontalAlignment},
    {Word::VerticalAlignment, &O::verticalAlignment},
    {Word::VerticalAsymptotesStyle, &O::verticalAsymptotesStyle},
    {Word::LegendColor, &O::legendColor}, {Word::TitleAlignment, &O::titleAlignment},
    {Word::Extension, &O::extension}, {Word::LineWidth, &O::lineWidth},
    {Word::PointSize, &O::pointSize}, {Word::LineColorDirectionX, &O::lineColorDirectionX},
    {Word::LineColorDirectionY, &O::lineColorDirectionY},
    {Word::LineColorDirectionZ, &O::lineColorDirectionZ},
    {Word::FillColorDirectionX, &O::fillColorDirectionX},
    {Word::FillColorDirectionY, &O::fillColorDirectionY},
    {Word::FillColorDirectionZ, &O::fillColorDirectionZ}, {Word::TubeDiameter, &O::tubeDiameter},
    {Word::TipLength, &O::tipLength}, {Word::TipAngle, &O::tipAngle},
    {Word::VerticalAsymptotesWidth, &O::verticalAsymptotesWidth}, {Word::TimeBegin, &O::timeBegin},
    {Word::TimeEnd, &O::timeEnd}, {Word::LineColor, &O::lineColor},
    {Word::PointColor, &O::pointColor}, {Word::LineColor2, &O::lineColor2},
    {Word::FillColor, &O::fillColor}, {Word::FillColor2, &O::fillColor2},
    {Word::LightColor, &O::lightColor},
    {Word::VerticalAsymptotesColor, &O::verticalAsymptotesColor}, {Word::XMesh, &O::xMesh},
    {Word::YMesh, &O::yMesh}, {Word::ZMesh, &O::zMesh}, {Word::UMesh, &O::uMesh},
    {Word::VMesh, &O::vMesh}, {Word::XSubmesh, &O::xSubmesh}, {Word::YSubmesh, &O::ySubmesh},
    {Word::USubmesh, &O::uSubmesh}, {Word::VSubmesh, &O::vSubmesh},
    {Word::AdaptiveMesh, &O::adaptiveMesh}, {Word::Frames, &O::frames},
    {Word::XLinesVisible, &O::xLinesVisible}, {Word::YLinesVisible, &O::yLinesVisible},
    {Word::ULinesVisible, &O::uLinesVisible}, {Word::VLinesVisible, &O::vLinesVisible},
    {Word::Filled, &O::filled}, {Word::DiscontinuitySearch, &O::discontinuitySearch},
    {Word::VisibleBeforeBegin, &O::visibleBeforeBegin},
    {Word::VisibleAfterEnd, &O::visibleAfterEnd}, {Word::LegendEntry, &O::legendEntry},
    {Word::Consistent, &O::consistent}, {Word::OrthogonalProjection, &O::orthogonalProjection},
    {Word::KeepUpVector, &O::keepUpVector}, {Word::CameraCoordinates, &O::cameraCoordinates},
    {Word::Tubular, &O::tubular}, {Word::LinesVisible, &O::linesVisible},
    {Word::PointsVisible, &O::pointsVisible}, {Word::Closed, &O::closed},
    {Word::Visible, &O::visible}, {Word::VerticalAsymptotesVisible, &O::verticalAsymptotesVisible},
    {Word::MeshVisible, &O::meshVisible}, {Word::Billboarding, &O::billboarding},
    {Word::AffectViewingBox, &O::affectViewingBox}, {Word::TitleFont, &O::titleFont},
    {Word::TextFont, &O::textFont},
};
// clang-format on

// clang-format off
const std::vector<Getter<SceneStyleGetter>> sceneGetters = {
    {Word::LegendPlacement, &S::legendPlacement}, {Word::LegendAlignment, &S::legendAlignment},
    {Word::BackgroundStyle, &S::backgroundStyle}, {Word::HeaderAlignment, &S::headerAlignment},
    {Word::FooterAlignment, &S::footerAlignment}, {Word::Lighting, &S::lighting},
    {Word::Width, &S::width}, {Word::Height, &S::height}, {Word::TopMargin, &S::topMargin},
    {Word::BottomMargin, &S::bottomMargin}, {Word::LeftMargin, &S::leftMargin},
    {Word::RightMargin, &S::rightMargin}, {Word::YXRatio, &S::yXRatio},
    {Word::ZXRatio, &S::zXRatio}, {Word::BorderWidth, &S::borderWidth},
    {Word::BackgroundColor, &S::backgroundColor}, {Word::BackgroundColor2, &S::backgroundColor2},
    {Word::BorderColor, &S::borderColor}, {Word::BackgroundTransparent, &S::backgroundTransparent},
    {Word::LegendVisible, &S::legendVisible}, {Word::HeaderFont, &S::headerFont},
    {Word::FooterFont, &S::footerFont}, {Word::LegendFont, &S::legendFont},
};
// clang-format on

// clang-format off
const std::vector<Getter<CoordinateSystemStyleGetter>> systemGetters = {
    {Word::CoordinateType, &C::coordinateType}, {Word::Scaling, &C::scaling},
    {Word::Axes, &C::axes}, {Word::XAxisTitleAlignment, &C::xAxisTitleAlignment},
    {Word::YAxisTitleAlignment, &C::yAxisTitleAlignment},
    {Word::ZAxisTitleAlignment, &C::zAxisTitleAlignment},
    {Word::YAxisTitleOrientation, &C::yAxisTitleOrientation},
    {Word::XTicksLabelStyle, &C::xTicksLabelStyle}, {Word::YTicksLabelStyle, &C::yTicksLabelStyle},
    {Word::ZTicksLabelStyle, &C::zTicksLabelStyle}, {Word::XTicksNumber, &C::xTicksNumber},
    {Word::YTicksNumber, &C::yTicksNumber}, {Word::ZTicksNumber, &C::zTicksNumber},
    {Word::GridLineStyle, &C::gridLineStyle}, {Word::SubgridLineStyle, &C::subgridLineStyle},
    {Word::AxesLineWidth, &C::axesLineWidth}, {Word::TicksLength, &C::ticksLength},
    {Word::GridLineWidth, &C::gridLineWidth}, {Word::SubgridLineWidth, &C::subgridLineWidth},
    {Word::AxesLineColor, &C::axesLineColor}, {Word::GridLineColor, &C::gridLineColor},
    {Word::SubgridLineColor, &C::subgridLineColor}, {Word::AutoViewingBox, &C::autoViewingBox},
    {Word::XTicksBetween, &C::xTicksBetween}, {Word::YTicksBetween, &C::yTicksBetween},
    {Word::ZTicksBetween, &C::zTicksBetween}, {Word::XAxisVisible, &C::xAxisVisible},
    {Word::YAxisVisible, &C::yAxisVisible}, {Word::ZAxisVisible, &C::zAxisVisible},
    {Word::AxesInFront, &C::axesInFront}, {Word::AxesTips, &C::axesTips},
    {Word::XTicksVisible, &C::xTicksVisible}, {Word::YTicksVisible, &C::yTicksVisible},
    {Word::ZTicksVisible, &C::zTicksVisible}, {Word::XGridVisible, &C::xGridVisible},
    {Word::YGridVisible, &C::yGridVisible}, {Word::ZGridVisible, &C::zGridVisible},
    {Word::GridInFront, &C::gridInFront}, {Word::XSubgridVisible, &C::xSubgridVisible},
    {Word::YSubgridVisible, &C::ySubgridVisible}, {Word::ZSubgridVisible, &C::zSubgridVisible},
    {Word::XTicksLabelsVisible, &C::xTicksLabelsVisible},
    {Word::YTicksLabelsVisible, &C::yTicksLabelsVisible},
    {Word::ZTicksLabelsVisible, &C::zTicksLabelsVisible}, {Word::AxesTitleFont, &C::axesTitleFont},
    {Word::TicksLabelFont, &C::ticksLabelFont},
};
// clang-format on

/// A value of the same type as `value` that is another one.
const char* otherThan(const Variant& value) {
  if (const auto flag = value.as<BoolVariant>()) return flag->get() ? "0" : "1";
  if (value.as<TokenVariant>()) return "Wobbly";
  if (value.as<RGBAVariant>()) return "#010203";
  if (value.as<FontStyleVariant>()) return "Courier 17 Bold";
  return "7";
}

class StyleGetterTest : public PlotTest {
 protected:
  /// Checks each getter on a new element: it reads the default first, and then what was set. Gives
  /// the number of getters whose property the class does not have; those raise an error.
  template <class Element, class Owner>
  int checkAll(const std::vector<Getter<Owner>>& getters) {
    int unknown = 0;
    for (const Getter<Owner>& getter : getters) {
      SCOPED_TRACE(std::string(Element::tag.str()) + "." + getter.name.str());
      const Ref<Element> element = make<Element>();
      const Property* property = element->findProperty(getter.name);
      if (!property) {
        ++unknown;
        EXPECT_EQ(codeOf([&] { getter.read(*element); }), DomException::InvalidAccess);
        EXPECT_EQ(takeComplaints(), std::string("PlotDom error: unknown property '") +
                                        getter.name.str() + "' [node '" + Element::tag.str() +
                                        "']\n");
        continue;
      }
      if (!property->isMandatory()) {
        EXPECT_EQ(getter.read(*element), property->defaultVariant());
      }
      element->setAttributeFromString(getter.name, otherThan(property->defaultVariant()));
      EXPECT_EQ(getter.read(*element), element->getAttribute(getter.name));
      EXPECT_FALSE(getter.read(*element) == property->defaultVariant());
    }
    return unknown;
  }
};

TEST_F(StyleGetterTest, Objects) {
  EXPECT_EQ(objectGetters.size(), 72U);
  EXPECT_EQ((checkAll<Obj2d, O>(objectGetters)), 19) << "those of space";
  EXPECT_EQ((checkAll<Obj3d, O>(objectGetters)), 6) << "those of the plane";
  EXPECT_EQ((checkAll<ObjStyle, O>(objectGetters)), 2) << "Visible and Consistent";
}

TEST_F(StyleGetterTest, Scenes) {
  EXPECT_EQ(sceneGetters.size(), 23U);
  EXPECT_EQ((checkAll<Scene2d, S>(sceneGetters)), 4);
  EXPECT_EQ((checkAll<Scene3d, S>(sceneGetters)), 0);
  EXPECT_EQ((checkAll<Scene2dStyle, S>(sceneGetters)), 4);
  EXPECT_EQ((checkAll<Scene3dStyle, S>(sceneGetters)), 0);
  EXPECT_EQ((checkAll<Scene2d, SceneBase>(
                {{Word::Bottom, &SceneBase::bottom}, {Word::Left, &SceneBase::left}})),
            0);
}

TEST_F(StyleGetterTest, CoordinateSystems) {
  EXPECT_EQ(systemGetters.size(), 46U);
  EXPECT_EQ((checkAll<CoordinateSystem2d, C>(systemGetters)), 9);
  EXPECT_EQ((checkAll<CoordinateSystem3d, C>(systemGetters)), 4);
  EXPECT_EQ((checkAll<CoordinateSystem2dStyle, C>(systemGetters)), 10) << "and AutoViewingBox";
  EXPECT_EQ((checkAll<CoordinateSystem3dStyle, C>(systemGetters)), 5);
}

TEST_F(StyleGetterTest, Canvases) {
  // clang-format off
  const std::vector<Getter<Canvas>> getters = {
    {Word::Layout, &Canvas::layout}, {Word::OutputUnits, &Canvas::outputUnits},
    {Word::HeaderAlignment, &Canvas::headerAlignment},
    {Word::FooterAlignment, &Canvas::footerAlignment},
    {Word::AnimationStyle, &Canvas::animationStyle},
    {Word::BackgroundColor, &Canvas::backgroundColor}, {Word::BorderColor, &Canvas::borderColor},
    {Word::Spacing, &Canvas::spacing}, {Word::TopMargin, &Canvas::topMargin},
    {Word::BottomMargin, &Canvas::bottomMargin}, {Word::LeftMargin, &Canvas::leftMargin},
    {Word::RightMargin, &Canvas::rightMargin}, {Word::BorderWidth, &Canvas::borderWidth},
    {Word::Width, &Canvas::width}, {Word::Height, &Canvas::height},
    {Word::HeaderFont, &Canvas::headerFont}, {Word::FooterFont, &Canvas::footerFont},
    {Word::Rows, &Canvas::rows}, {Word::Columns, &Canvas::columns},
    {Word::InitialTime, &Canvas::initialTime}, {Word::CurrentTime, &Canvas::currentTime},
    {Word::AutoPlay, &Canvas::autoPlay},
  };
  // clang-format on
  EXPECT_EQ((checkAll<Canvas, Canvas>(getters)), 0);
}

TEST_F(StyleGetterTest, TheSameGetterReadsAnObjectAndAStyle) {
  const Ref<Obj2d> object = make<Obj2d>({{Word::LineWidth, "3"}});
  const Ref<ObjStyle> style = make<ObjStyle>({{Word::LineWidth, "4"}});
  const auto widthOf = [](const ObjectStyleGetter& getter) { return getter.lineWidth(); };
  EXPECT_EQ(widthOf(*object), 3);
  EXPECT_EQ(widthOf(*style), 4);

  const Ref<dom::Node> copy(object->cloneNode(false));
  object->setAttributeFromString(Word::LineWidth, "5");
  EXPECT_EQ(widthOf(static_cast<const Obj2d&>(*copy)), 3) << "a copy reads itself";
}

}  // namespace
}  // namespace vantry::plot::test
