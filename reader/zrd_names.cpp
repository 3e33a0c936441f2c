#include "reader/zrd_names.h"

#include <array>

#include "SRC/element_factory.h"

namespace PlotDom {

using Ubase::WordId;

namespace {

using WordSet = std::array<bool, Ubase::wordCount + 1>;

std::size_t indexOf(WordId word) { return static_cast<std::size_t>(word); }

constexpr WordId attributeNames[] = {
    WordId::AdaptiveMesh, WordId::AffectViewingBox, WordId::Anchor, WordId::AnimationStyle,
    WordId::ArrowLength, WordId::AutoPlay, WordId::AutoViewingBox, WordId::Axes,
    WordId::AxesInFront, WordId::AxesLineColor, WordId::AxesLineWidth, WordId::AxesTips,
    WordId::AxesTitleFont, WordId::BackgroundColor, WordId::BackgroundColor2,
    WordId::BackgroundStyle, WordId::BackgroundTransparent, WordId::Base, WordId::BaseDir,
    WordId::BaseRadius, WordId::Billboarding, WordId::BorderColor, WordId::BorderWidth,
    WordId::Bottom, WordId::BottomMargin, WordId::CameraCoordinates, WordId::Center, WordId::Closed,
    WordId::Columns, WordId::Consistent, WordId::CoordinateType, WordId::CurrentTime, WordId::Delta,
    WordId::DiscontinuitySearch, WordId::Dom, WordId::EndAngle, WordId::Enum, WordId::Extension,
    WordId::FaceDir, WordId::FillColor, WordId::FillColor2, WordId::FillColorDirectionX,
    WordId::FillColorDirectionY, WordId::FillColorDirectionZ, WordId::FillColorType,
    WordId::FillPattern, WordId::FillStyle, WordId::Filled, WordId::FocalPoint,
    WordId::FooterAlignment, WordId::FooterFont, WordId::Frames, WordId::From, WordId::GridInFront,
    WordId::GridLineColor, WordId::GridLineStyle, WordId::GridLineWidth, WordId::HasLineColors,
    WordId::HeaderAlignment, WordId::HeaderFont, WordId::Height, WordId::HorizontalAlignment,
    WordId::Info, WordId::InitialTime, WordId::KeepUpVector, WordId::Layout, WordId::Left,
    WordId::LeftMargin, WordId::LegendAlignment, WordId::LegendColor, WordId::LegendEntry,
    WordId::LegendFont, WordId::LegendPlacement, WordId::LegendVisible, WordId::LightColor,
    WordId::LightIntensity, WordId::Lighting, WordId::LineColor, WordId::LineColor2,
    WordId::LineColorDirectionX, WordId::LineColorDirectionY, WordId::LineColorDirectionZ,
    WordId::LineColorType, WordId::LineStyle, WordId::LineWidth, WordId::LinesVisible,
    WordId::MeshVisible, WordId::Name, WordId::Normal, WordId::Opt, WordId::OrthogonalProjection,
    WordId::OutputUnits, WordId::Param, WordId::Point1, WordId::Point2, WordId::PointColor,
    WordId::PointSize, WordId::PointStyle, WordId::PointsVisible, WordId::Position, WordId::Radius,
    WordId::Recalc, WordId::RightMargin, WordId::Row1, WordId::Row2, WordId::Row3, WordId::Rows,
    WordId::Scaling, WordId::SemiAxisX, WordId::SemiAxisY, WordId::SemiAxisZ, WordId::Shading,
    WordId::Shift, WordId::Spacing, WordId::SpotAngle, WordId::StartAngle, WordId::SubgridLineColor,
    WordId::SubgridLineStyle, WordId::SubgridLineWidth, WordId::Target, WordId::TextFont,
    WordId::TextRotation, WordId::TicksLabelFont, WordId::TicksLength, WordId::TimeBegin,
    WordId::TimeEnd, WordId::TipAngle, WordId::TipLength, WordId::TipStyle, WordId::TitleAlignment,
    WordId::TitleFont, WordId::TitlePositionX, WordId::TitlePositionY, WordId::TitlePositionZ,
    WordId::To, WordId::Top, WordId::TopMargin, WordId::TopRadius, WordId::TubeDiameter,
    WordId::Tubular, WordId::Type, WordId::ULinesVisible, WordId::UMesh, WordId::USubmesh,
    WordId::UpVector, WordId::UseXYLinesVisible, WordId::VLinesVisible, WordId::VMesh,
    WordId::VSubmesh, WordId::Val, WordId::VerticalAlignment, WordId::VerticalAsymptotesColor,
    WordId::VerticalAsymptotesStyle, WordId::VerticalAsymptotesVisible,
    WordId::VerticalAsymptotesWidth, WordId::ViewDirectional, WordId::ViewFocalPointX,
    WordId::ViewFocalPointY, WordId::ViewFocalPointZ, WordId::ViewKeepUpVector,
    WordId::ViewOrthogonalProjection, WordId::ViewPositionX, WordId::ViewPositionY,
    WordId::ViewPositionZ, WordId::ViewTranslationX, WordId::ViewTranslationY,
    WordId::ViewTranslationZ, WordId::ViewUpVectorX, WordId::ViewUpVectorY, WordId::ViewUpVectorZ,
    WordId::ViewViewingAngle, WordId::ViewXMax, WordId::ViewXMin, WordId::ViewYMax,
    WordId::ViewYMin, WordId::ViewingAngle, WordId::Visible, WordId::VisibleAfterEnd,
    WordId::VisibleBeforeBegin, WordId::Width, WordId::XAxisTitleAlignment, WordId::XAxisVisible,
    WordId::XGridVisible, WordId::XLinesVisible, WordId::XMax, WordId::XMesh, WordId::XMin,
    WordId::XSubgridVisible, WordId::XSubmesh, WordId::XTicksBetween, WordId::XTicksLabelStyle,
    WordId::XTicksLabelsVisible, WordId::XTicksNumber, WordId::XTicksVisible,
    WordId::YAxisTitleAlignment, WordId::YAxisTitleOrientation, WordId::YAxisVisible,
    WordId::YGridVisible, WordId::YLinesVisible, WordId::YMax, WordId::YMesh, WordId::YMin,
    WordId::YSubgridVisible, WordId::YSubmesh, WordId::YTicksBetween, WordId::YTicksLabelStyle,
    WordId::YTicksLabelsVisible, WordId::YTicksNumber, WordId::YTicksVisible, WordId::YXRatio,
    WordId::ZAxisTitleAlignment, WordId::ZAxisVisible, WordId::ZGridVisible, WordId::ZMax,
    WordId::ZMesh, WordId::ZMin, WordId::ZSubgridVisible, WordId::ZTicksBetween,
    WordId::ZTicksLabelStyle, WordId::ZTicksLabelsVisible, WordId::ZTicksNumber,
    WordId::ZTicksVisible, WordId::ZXRatio, WordId::Id,
};

const WordSet elements = [] {
  WordSet set{};
  for (const Ubase::Token name : elementNames()) set[indexOf(Ubase::findWord(name.str()))] = true;
  set[indexOf(WordId::P2)] = true;
  set[indexOf(WordId::P3)] = true;
  return set;
}();

const WordSet attributes = [] {
  WordSet set{};
  for (const WordId name : attributeNames) set[indexOf(name)] = true;
  return set;
}();

}  // namespace

bool isFormatNamespace(std::string_view uri) { return uri.ends_with("/xml/Corvane"); }

bool isElementName(WordId word) { return elements[indexOf(word)]; }

bool isAttributeName(WordId word) { return attributes[indexOf(word)]; }

}  // namespace PlotDom
