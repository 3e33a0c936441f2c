// The look with which a new drawing begins.
#include <vector>

#include "plot_test.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::plot::test {
namespace {

struct ExpectedStyle {
  const char* tag;
  const char* type;
  std::vector<std::pair<const char*, const char*>> attributes;
};

// clang-format off
const std::vector<ExpectedStyle> expectedStyles = {
  {"Canvas", nullptr, {
    {"Layout", "Tabular"}, {"FooterFont", "'sans-serif' 14"}, {"OutputUnits", "MM"},
    {"Height", "80"}, {"FooterAlignment", "Center"}, {"BackgroundColor", "#FFFFFF"},
    {"BorderColor", "#FFFFFF"}, {"BorderWidth", "0"}, {"LeftMargin", "1"}, {"RightMargin", "1"},
    {"Width", "120"}, {"Spacing", "1"}, {"Columns", "0"}, {"Rows", "0"},
    {"HeaderFont", "'sans-serif' 14"}, {"HeaderAlignment", "Center"}, {"BottomMargin", "1"},
    {"TopMargin", "1"}, {"AnimationStyle", "RunOnce"}, {"AutoPlay", "0"},
  }},
  {"Scene2dStyle", nullptr, {
    {"BackgroundTransparent", "0"}, {"LegendPlacement", "Bottom"},
    {"LegendFont", "'sans-serif' 12"}, {"LegendAlignment", "Center"}, {"YXRatio", "1"},
    {"LegendVisible", "0"},
  }},
  {"Scene3dStyle", nullptr, {
    {"Lighting", "Automatic"}, {"BackgroundTransparent", "0"}, {"LegendPlacement", "Bottom"},
    {"LegendFont", "'sans-serif' 12"}, {"LegendAlignment", "Center"}, {"YXRatio", "1"},
    {"BackgroundColor2", "#C0C0C0"}, {"BackgroundStyle", "Flat"}, {"LegendVisible", "0"},
    {"ZXRatio", "1"},
  }},
  {"CoordinateSystem2dStyle", nullptr, {
    {"XAxisTitleAlignment", "End"}, {"YTicksVisible", "1"}, {"XTicksNumber", "Normal"},
    {"SubgridLineColor", "#C0C0C0"}, {"SubgridLineWidth", "0.05"}, {"YTicksLabelsVisible", "1"},
    {"AxesLineColor", "#000000"}, {"AxesLineWidth", "0.25"}, {"TicksLabelFont", "'sans-serif' 8"},
    {"YAxisTitleAlignment", "End"}, {"YTicksNumber", "Normal"}, {"CoordinateType", "LinLin"},
    {"GridLineStyle", "Solid"}, {"Scaling", "Automatic"}, {"XGridVisible", "0"},
    {"GridInFront", "0"}, {"XAxisVisible", "1"}, {"SubgridLineStyle", "Solid"},
    {"XSubgridVisible", "0"}, {"AxesTitleFont", "'sans-serif' 10"},
    {"XTicksLabelStyle", "Horizontal"}, {"XTicksBetween", "1"}, {"YGridVisible", "0"},
    {"YAxisTitleOrientation", "Horizontal"}, {"Axes", "Boxed"}, {"AxesInFront", "0"},
    {"YAxisVisible", "1"}, {"XTicksVisible", "1"}, {"TicksLength", "2"}, {"YSubgridVisible", "0"},
    {"GridLineColor", "#708090"}, {"XTicksLabelsVisible", "1"}, {"GridLineWidth", "0.1"},
    {"YTicksLabelStyle", "Horizontal"}, {"YTicksBetween", "1"}, {"AxesTips", "1"},
  }},
  {"CoordinateSystem3dStyle", nullptr, {
    {"XAxisTitleAlignment", "Center"}, {"ZAxisVisible", "1"}, {"YTicksVisible", "1"},
    {"XTicksNumber", "Normal"}, {"SubgridLineColor", "#C0C0C0"}, {"SubgridLineWidth", "0.05"},
    {"ZSubgridVisible", "0"}, {"YTicksLabelsVisible", "1"}, {"AxesLineColor", "#000000"},
    {"AxesLineWidth", "0.25"}, {"ZTicksLabelStyle", "Horizontal"}, {"ZTicksBetween", "1"},
    {"TicksLabelFont", "'sans-serif' 8"}, {"YAxisTitleAlignment", "Center"},
    {"ZTicksVisible", "1"}, {"YTicksNumber", "Normal"}, {"GridLineStyle", "Solid"},
    {"Scaling", "Automatic"}, {"ZTicksLabelsVisible", "1"}, {"XGridVisible", "0"},
    {"XAxisVisible", "1"}, {"SubgridLineStyle", "Solid"}, {"XSubgridVisible", "0"},
    {"ZAxisTitleAlignment", "Center"}, {"ZTicksNumber", "Normal"},
    {"AxesTitleFont", "'sans-serif' 10"}, {"XTicksLabelStyle", "Horizontal"},
    {"XTicksBetween", "1"}, {"YGridVisible", "0"}, {"Axes", "Boxed"}, {"YAxisVisible", "1"},
    {"XTicksVisible", "1"}, {"TicksLength", "2"}, {"YSubgridVisible", "0"},
    {"GridLineColor", "#708090"}, {"XTicksLabelsVisible", "1"}, {"GridLineWidth", "0.1"},
    {"YTicksLabelStyle", "Horizontal"}, {"YTicksBetween", "1"}, {"ZGridVisible", "0"},
    {"AxesTips", "1"},
  }},
  {"ObjStyle", "Default", {
    {"FillColor", "#FF0000"}, {"VerticalAsymptotesStyle", "Dashed"}, {"LineColor2", "#FF8000"},
    {"FillPattern", "DiagonalLines"}, {"TimeBegin", "0"}, {"Tubular", "1"}, {"XMesh", "9"},
    {"TipLength", "2"}, {"VerticalAsymptotesVisible", "1"}, {"TitleFont", "'sans-serif' 10"},
    {"LineStyle", "Solid"}, {"OrthogonalProjection", "0"}, {"KeepUpVector", "1"},
    {"Frames", "50"}, {"ArrowLength", "Proportional"}, {"UMesh", "25"},
    {"FillColorType", "Dichromatic"}, {"XLinesVisible", "1"}, {"VisibleAfterEnd", "1"},
    {"LightColor", "#FFFFFF"}, {"AdaptiveMesh", "0"}, {"XSubmesh", "0"}, {"LinesVisible", "1"},
    {"LegendEntry", "1"}, {"YMesh", "9"}, {"FillColor2", "#6495ED"},
    {"PointStyle", "FilledCircles"}, {"TimeEnd", "10"}, {"CameraCoordinates", "1"},
    {"ULinesVisible", "1"}, {"VisibleBeforeBegin", "1"}, {"FillStyle", "EvenOdd"},
    {"VerticalAsymptotesColor", "#778899"}, {"USubmesh", "0"}, {"VerticalAlignment", "BaseLine"},
    {"VerticalAsymptotesWidth", "0.2"}, {"VMesh", "25"}, {"YLinesVisible", "1"},
    {"YSubmesh", "0"}, {"Filled", "1"}, {"ZMesh", "9"}, {"PointsVisible", "0"},
    {"LineColor", "#FF0000"}, {"LineWidth", "0.2"}, {"VLinesVisible", "1"}, {"VSubmesh", "0"},
    {"TipStyle", "Open"}, {"TipAngle", "0.1745329252"}, {"HorizontalAlignment", "Center"},
    {"DiscontinuitySearch", "1"}, {"Closed", "1"}, {"PointColor", "#191970"},
    {"LineColorType", "Flat"}, {"LineColorDirectionX", "0"}, {"LineColorDirectionY", "0"},
    {"LineColorDirectionZ", "1"}, {"LegendColor", "LineColor"}, {"FillColorDirectionX", "0"},
    {"FillColorDirectionY", "0"}, {"FillColorDirectionZ", "1"}, {"AffectViewingBox", "1"},
    {"Extension", "Finite"},
  }},
  {"ObjStyle", "Surface", {
    {"LinesVisible", "0"}, {"LineColor", "#000000"}, {"LegendColor", "FillColor"},
  }},
  {"ObjStyle", "Curve2d", {
    {"UMesh", "121"}, {"LineColorDirectionY", "1"},
  }},
  {"ObjStyle", "Curve3d", {
    {"UMesh", "121"},
  }},
  {"ObjStyle", "Function2d", {
    {"LineColorDirectionY", "1"},
  }},
  {"ObjStyle", "Implicit2d", {
    {"LineColorDirectionY", "1"},
  }},
  {"ObjStyle", "Polygon2d", {
    {"LineColorDirectionY", "1"},
  }},
  {"ObjStyle", "VectorField2d", {
    {"LineColorDirectionY", "1"},
  }},
  {"ObjStyle", "VectorField3d", {
    {"PointsVisible", "1"}, {"PointSize", "1.0"},
  }},
  {"ObjStyle", "Plane", {
    {"FillColor", "#99CCFF"}, {"LinesVisible", "0"}, {"UMesh", "10"}, {"VMesh", "10"},
    {"AffectViewingBox", "0"},
  }},
};
// clang-format on

class DefaultStylesTest : public PlotTest {
 protected:
  /// Checks the attributes of an element by reading the expected texts into another one.
  void check(const PlotElement& element, const ExpectedStyle& expected) {
    SCOPED_TRACE(std::string(expected.tag) + " " + (expected.type ? expected.type : ""));
    ASSERT_EQ(element.tagName(), token(expected.tag));
    const Ref<PlotElement> same = make(token(expected.tag));
    if (expected.type) same->setAttributeFromString(Word::Type, expected.type);
    for (const auto& [name, text] : expected.attributes) {
      same->setAttributeFromString(token(name), text);
      ASSERT_TRUE(element.hasAttribute(token(name))) << name;
      EXPECT_EQ(element.getAttribute(token(name)), same->getAttribute(token(name))) << name;
    }
    const Ref<dom::Node> bare(element.cloneNode(false));
    EXPECT_EQ(xmlOf(*bare), xmlOf(*same)) << "these attributes and no others";
  }
};

TEST_F(DefaultStylesTest, EachStyleInItsOrder) {
  for (const bool isInDocument : {false, true}) {
    const Ref<Canvas> canvas = make<Canvas>();
    if (isInDocument) document->appendChild(canvas.get());
    canvas->createDefaultStyles();
    check(*canvas, expectedStyles[0]);
    ASSERT_EQ(canvas->length(), expectedStyles.size() - 1);
    for (unsigned i = 1; i < expectedStyles.size(); ++i) {
      check(*PlotElement::from(canvas->childAt(i - 1)), expectedStyles[i]);
    }
  }
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(DefaultStylesTest, TheyDifferFromTheDefaultsOfProperties) {
  const Ref<Canvas> canvas = make<Canvas>();
  EXPECT_EQ(canvas->width(), 100);
  EXPECT_EQ(canvas->height(), 75);
  canvas->createDefaultStyles();
  EXPECT_EQ(canvas->width(), 120);
  EXPECT_EQ(canvas->height(), 80);
  EXPECT_EQ(textOf(*canvas, Word::BackgroundColor, canvas->getAttribute(Word::BackgroundColor)),
            "#ffffff");
}

TEST_F(DefaultStylesTest, AnObjectTakesItsLookFromThem) {
  Canvas* canvas = add<Canvas>(*document);
  canvas->createDefaultStyles();
  PlotElement* system = add(*add(*canvas, Word::Scene3d), Word::CoordinateSystem3d);
  const Obj3d* surface = add<Obj3d>(*system, {{Word::Type, "Surface"}});
  EXPECT_FALSE(surface->linesVisible());
  EXPECT_EQ(surface->fillColorType(), Word::Dichromatic);
  RGBA color;
  EXPECT_TRUE(surface->legendColor(color));
  EXPECT_EQ(color, red);
  const Obj3d* plane = add<Obj3d>(*system, {{Word::Type, "Plane"}});
  EXPECT_EQ(plane->uMesh(), 10);
  EXPECT_EQ(plane->fillColor(), RGBA(0x99, 0xCC, 0xFF));
}

TEST_F(DefaultStylesTest, OneUndoTakesThemAllBack) {
  Canvas* canvas = add<Canvas>(*document);
  document->clearUndo();
  canvas->createDefaultStyles();
  document->undo();
  EXPECT_EQ(xmlOf(*canvas), "<Canvas></Canvas>");
}

}  // namespace
}  // namespace vantry::plot::test
