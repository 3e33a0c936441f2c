#include <span>

#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/framework/element_document.h"

namespace vantry::plot {

namespace {

struct AttributeText {
  Token name;
  const char* text;
};

// clang-format off

constexpr AttributeText canvasLook[] = {
    {Word::Layout,          "Tabular"},
    {Word::FooterFont,      "'sans-serif' 14"},
    {Word::OutputUnits,     "MM"},
    {Word::Height,          "80"},
    {Word::FooterAlignment, "Center"},
    {Word::BackgroundColor, "#FFFFFF"},
    {Word::BorderColor,     "#FFFFFF"},
    {Word::BorderWidth,     "0"},
    {Word::LeftMargin,      "1"},
    {Word::RightMargin,     "1"},
    {Word::Width,           "120"},
    {Word::Spacing,         "1"},
    {Word::Columns,         "0"},
    {Word::Rows,            "0"},
    {Word::HeaderFont,      "'sans-serif' 14"},
    {Word::HeaderAlignment, "Center"},
    {Word::BottomMargin,    "1"},
    {Word::TopMargin,       "1"},
    {Word::AnimationStyle,  "RunOnce"},
    {Word::AutoPlay,        "0"},
};

constexpr AttributeText scene2dLook[] = {
    {Word::BackgroundTransparent, "0"},
    {Word::LegendPlacement,       "Bottom"},
    {Word::LegendFont,            "'sans-serif' 12"},
    {Word::LegendAlignment,       "Center"},
    {Word::YXRatio,               "1"},
    {Word::LegendVisible,         "0"},
};

constexpr AttributeText scene3dLook[] = {
    {Word::Lighting,              "Automatic"},
    {Word::BackgroundTransparent, "0"},
    {Word::LegendPlacement,       "Bottom"},
    {Word::LegendFont,            "'sans-serif' 12"},
    {Word::LegendAlignment,       "Center"},
    {Word::YXRatio,               "1"},
    {Word::BackgroundColor2,      "#C0C0C0"},
    {Word::BackgroundStyle,       "Flat"},
    {Word::LegendVisible,         "0"},
    {Word::ZXRatio,               "1"},
};

constexpr AttributeText coordinateSystem2dLook[] = {
    {Word::XAxisTitleAlignment,   "End"},
    {Word::YTicksVisible,         "1"},
    {Word::XTicksNumber,          "Normal"},
    {Word::SubgridLineColor,      "#C0C0C0"},
    {Word::SubgridLineWidth,      "0.05"},
    {Word::YTicksLabelsVisible,   "1"},
    {Word::AxesLineColor,         "#000000"},
    {Word::AxesLineWidth,         "0.25"},
    {Word::TicksLabelFont,        "'sans-serif' 8"},
    {Word::YAxisTitleAlignment,   "End"},
    {Word::YTicksNumber,          "Normal"},
    {Word::CoordinateType,        "LinLin"},
    {Word::GridLineStyle,         "Solid"},
    {Word::Scaling,               "Automatic"},
    {Word::XGridVisible,          "0"},
    {Word::GridInFront,           "0"},
    {Word::XAxisVisible,          "1"},
    {Word::SubgridLineStyle,      "Solid"},
    {Word::XSubgridVisible,       "0"},
    {Word::AxesTitleFont,         "'sans-serif' 10"},
    {Word::XTicksLabelStyle,      "Horizontal"},
    {Word::XTicksBetween,         "1"},
    {Word::YGridVisible,          "0"},
    {Word::YAxisTitleOrientation, "Horizontal"},
    {Word::Axes,                  "Boxed"},
    {Word::AxesInFront,           "0"},
    {Word::YAxisVisible,          "1"},
    {Word::XTicksVisible,         "1"},
    {Word::TicksLength,           "2"},
    {Word::YSubgridVisible,       "0"},
    {Word::GridLineColor,         "#708090"},
    {Word::XTicksLabelsVisible,   "1"},
    {Word::GridLineWidth,         "0.1"},
    {Word::YTicksLabelStyle,      "Horizontal"},
    {Word::YTicksBetween,         "1"},
    {Word::AxesTips,              "1"},
};

constexpr AttributeText coordinateSystem3dLook[] = {
    {Word::XAxisTitleAlignment, "Center"},
    {Word::ZAxisVisible,        "1"},
    {Word::YTicksVisible,       "1"},
    {Word::XTicksNumber,        "Normal"},
    {Word::SubgridLineColor,    "#C0C0C0"},
    {Word::SubgridLineWidth,    "0.05"},
    {Word::ZSubgridVisible,     "0"},
    {Word::YTicksLabelsVisible, "1"},
    {Word::AxesLineColor,       "#000000"},
    {Word::AxesLineWidth,       "0.25"},
    {Word::ZTicksLabelStyle,    "Horizontal"},
    {Word::ZTicksBetween,       "1"},
    {Word::TicksLabelFont,      "'sans-serif' 8"},
    {Word::YAxisTitleAlignment, "Center"},
    {Word::ZTicksVisible,       "1"},
    {Word::YTicksNumber,        "Normal"},
    {Word::GridLineStyle,       "Solid"},
    {Word::Scaling,             "Automatic"},
    {Word::ZTicksLabelsVisible, "1"},
    {Word::XGridVisible,        "0"},
    {Word::XAxisVisible,        "1"},
    {Word::SubgridLineStyle,    "Solid"},
    {Word::XSubgridVisible,     "0"},
    {Word::ZAxisTitleAlignment, "Center"},
    {Word::ZTicksNumber,        "Normal"},
    {Word::AxesTitleFont,       "'sans-serif' 10"},
    {Word::XTicksLabelStyle,    "Horizontal"},
    {Word::XTicksBetween,       "1"},
    {Word::YGridVisible,        "0"},
    {Word::Axes,                "Boxed"},
    {Word::YAxisVisible,        "1"},
    {Word::XTicksVisible,       "1"},
    {Word::TicksLength,         "2"},
    {Word::YSubgridVisible,     "0"},
    {Word::GridLineColor,       "#708090"},
    {Word::XTicksLabelsVisible, "1"},
    {Word::GridLineWidth,       "0.1"},
    {Word::YTicksLabelStyle,    "Horizontal"},
    {Word::YTicksBetween,       "1"},
    {Word::ZGridVisible,        "0"},
    {Word::AxesTips,            "1"},
};

constexpr AttributeText defaultLook[] = {
    {Word::FillColor,                 "#FF0000"},
    {Word::VerticalAsymptotesStyle,   "Dashed"},
    {Word::LineColor2,                "#FF8000"},
    {Word::FillPattern,               "DiagonalLines"},
    {Word::TimeBegin,                 "0"},
    {Word::Tubular,                   "1"},
    {Word::XMesh,                     "9"},
    {Word::TipLength,                 "2"},
    {Word::VerticalAsymptotesVisible, "1"},
    {Word::TitleFont,                 "'sans-serif' 10"},
    {Word::LineStyle,                 "Solid"},
    {Word::OrthogonalProjection,      "0"},
    {Word::KeepUpVector,              "1"},
    {Word::Frames,                    "50"},
    {Word::ArrowLength,               "Proportional"},
    {Word::UMesh,                     "25"},
    {Word::FillColorType,             "Dichromatic"},
    {Word::XLinesVisible,             "1"},
    {Word::VisibleAfterEnd,           "1"},
    {Word::LightColor,                "#FFFFFF"},
    {Word::AdaptiveMesh,              "0"},
    {Word::XSubmesh,                  "0"},
    {Word::LinesVisible,              "1"},
    {Word::LegendEntry,               "1"},
    {Word::YMesh,                     "9"},
    {Word::FillColor2,                "#6495ED"},
    {Word::PointStyle,                "FilledCircles"},
    {Word::TimeEnd,                   "10"},
    {Word::CameraCoordinates,         "1"},
    {Word::ULinesVisible,             "1"},
    {Word::VisibleBeforeBegin,        "1"},
    {Word::FillStyle,                 "EvenOdd"},
    {Word::VerticalAsymptotesColor,   "#778899"},
    {Word::USubmesh,                  "0"},
    {Word::VerticalAlignment,         "BaseLine"},
    {Word::VerticalAsymptotesWidth,   "0.2"},
    {Word::VMesh,                     "25"},
    {Word::YLinesVisible,             "1"},
    {Word::YSubmesh,                  "0"},
    {Word::Filled,                    "1"},
    {Word::ZMesh,                     "9"},
    {Word::PointsVisible,             "0"},
    {Word::LineColor,                 "#FF0000"},
    {Word::LineWidth,                 "0.2"},
    {Word::VLinesVisible,             "1"},
    {Word::VSubmesh,                  "0"},
    {Word::TipStyle,                  "Open"},
    {Word::TipAngle,                  "0.1745329252"},
    {Word::HorizontalAlignment,       "Center"},
    {Word::DiscontinuitySearch,       "1"},
    {Word::Closed,                    "1"},
    {Word::PointColor,                "#191970"},
    {Word::LineColorType,             "Flat"},
    {Word::LineColorDirectionX,       "0"},
    {Word::LineColorDirectionY,       "0"},
    {Word::LineColorDirectionZ,       "1"},
    {Word::LegendColor,               "LineColor"},
    {Word::FillColorDirectionX,       "0"},
    {Word::FillColorDirectionY,       "0"},
    {Word::FillColorDirectionZ,       "1"},
    {Word::AffectViewingBox,          "1"},
    {Word::Extension,                 "Finite"},
};

constexpr AttributeText surfaceLook[] = {
    {Word::LinesVisible, "0"},
    {Word::LineColor,    "#000000"},
    {Word::LegendColor,  "FillColor"},
};

constexpr AttributeText curve2dLook[] = {
    {Word::UMesh,               "121"},
    {Word::LineColorDirectionY, "1"},
};

constexpr AttributeText curve3dLook[] = {
    {Word::UMesh, "121"},
};

constexpr AttributeText function2dLook[] = {
    {Word::LineColorDirectionY, "1"},
};

constexpr AttributeText implicit2dLook[] = {
    {Word::LineColorDirectionY, "1"},
};

constexpr AttributeText polygon2dLook[] = {
    {Word::LineColorDirectionY, "1"},
};

constexpr AttributeText vectorField2dLook[] = {
    {Word::LineColorDirectionY, "1"},
};

constexpr AttributeText vectorField3dLook[] = {
    {Word::PointsVisible, "1"},
    {Word::PointSize,     "1.0"},
};

constexpr AttributeText planeLook[] = {
    {Word::FillColor,        "#99CCFF"},
    {Word::LinesVisible,     "0"},
    {Word::UMesh,            "10"},
    {Word::VMesh,            "10"},
    {Word::AffectViewingBox, "0"},
};

// clang-format on

/// A style element of the drawing: its tag, its type if it has one, and its attributes.
struct StyleLook {
  Token tag;
  const char* type;
  std::span<const AttributeText> attributes;
};

constexpr StyleLook styleLooks[] = {
    {Word::Scene2dStyle, nullptr, scene2dLook},
    {Word::Scene3dStyle, nullptr, scene3dLook},
    {Word::CoordinateSystem2dStyle, nullptr, coordinateSystem2dLook},
    {Word::CoordinateSystem3dStyle, nullptr, coordinateSystem3dLook},
    {Word::ObjStyle, "Default", defaultLook},
    {Word::ObjStyle, "Surface", surfaceLook},
    {Word::ObjStyle, "Curve2d", curve2dLook},
    {Word::ObjStyle, "Curve3d", curve3dLook},
    {Word::ObjStyle, "Function2d", function2dLook},
    {Word::ObjStyle, "Implicit2d", implicit2dLook},
    {Word::ObjStyle, "Polygon2d", polygon2dLook},
    {Word::ObjStyle, "VectorField2d", vectorField2dLook},
    {Word::ObjStyle, "VectorField3d", vectorField3dLook},
    {Word::ObjStyle, "Plane", planeLook},
};

void setAttributes(PlotElement& element, std::span<const AttributeText> attributes) {
  for (const AttributeText& attribute : attributes) {
    element.setAttributeFromString(attribute.name, attribute.text);
  }
}

}  // namespace

void Canvas::createDefaultStyles() {
  dom::asOneChange(*this, [this] {
    setAttributes(*this, canvasLook);
    for (const StyleLook& look : styleLooks) {
      const base::Ref<PlotElement> style(plotDocument()->createElement(look.tag));
      if (look.type) style->setAttributeFromString(Word::Type, look.type);
      setAttributes(*style, look.attributes);
      appendChild(style.get());
    }
  });
}

}  // namespace vantry::plot
