#include "vantry/plot/metadata/property_categories.h"

#include "vantry/base/word_table.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::Token;

namespace {

constexpr Token definition[] = {
    Word::Name, Word::Type, Word::Id, Word::Consistent,
    // Points and vectors.
    Word::Position, Word::Center, Word::Normal, Word::Anchor, Word::Delta, Word::From, Word::To,
    Word::Base, Word::Top, Word::BaseDir, Word::FaceDir, Word::Extension,
    // Measures.
    Word::Radius, Word::BaseRadius, Word::TopRadius, Word::SemiAxisX, Word::SemiAxisY,
    Word::SemiAxisZ, Word::StartAngle, Word::EndAngle,
    // Bounds.
    Word::XMin, Word::XMax, Word::YMin, Word::YMax, Word::ZMin, Word::ZMax,
    // Maps.
    Word::Shift, Word::Row1, Word::Row2, Word::Row3,
    // Expressions.
    Word::Opt, Word::Val};

constexpr Token animation[] = {Word::TimeBegin,       Word::TimeEnd,     Word::VisibleBeforeBegin,
                               Word::VisibleAfterEnd, Word::InitialTime, Word::CurrentTime,
                               Word::AnimationStyle,  Word::AutoPlay,    Word::Param};

constexpr Token animationSteps[] = {Word::Frames};

constexpr Token style[] = {Word::Visible,
                           Word::AffectViewingBox,
                           Word::Closed,
                           Word::BackgroundColor,
                           Word::BackgroundColor2,
                           Word::BackgroundStyle,
                           Word::BackgroundTransparent,
                           Word::BorderColor,
                           Word::BorderWidth};

constexpr Token annotation[] = {Word::TitleFont,       Word::TitleAlignment,  Word::TitlePositionX,
                                Word::TitlePositionY,  Word::TitlePositionZ,  Word::HeaderFont,
                                Word::HeaderAlignment, Word::FooterFont,      Word::FooterAlignment,
                                Word::LegendVisible,   Word::LegendEntry,     Word::LegendColor,
                                Word::LegendPlacement, Word::LegendAlignment, Word::LegendFont};

constexpr Token surface[] = {Word::Filled,
                             Word::FillColorType,
                             Word::FillColor,
                             Word::FillColor2,
                             Word::FillColorDirectionX,
                             Word::FillColorDirectionY,
                             Word::FillColorDirectionZ,
                             Word::FillPattern,
                             Word::FillStyle,
                             Word::Shading};

constexpr Token lines[] = {Word::LinesVisible,
                           Word::LineStyle,
                           Word::LineWidth,
                           Word::LineColorType,
                           Word::LineColor,
                           Word::LineColor2,
                           Word::LineColorDirectionX,
                           Word::LineColorDirectionY,
                           Word::LineColorDirectionZ,
                           Word::HasLineColors,
                           Word::MeshVisible,
                           Word::XLinesVisible,
                           Word::YLinesVisible,
                           Word::ULinesVisible,
                           Word::VLinesVisible,
                           Word::UseXYLinesVisible,
                           Word::Tubular,
                           Word::TubeDiameter};

constexpr Token points[] = {Word::PointsVisible, Word::PointStyle, Word::PointSize,
                            Word::PointColor};

constexpr Token tip[] = {Word::AxesTips};

constexpr Token text[] = {Word::TextFont, Word::TextRotation, Word::HorizontalAlignment,
                          Word::VerticalAlignment, Word::Billboarding};

constexpr Token layout[] = {Word::Layout,     Word::OutputUnits,  Word::Width,      Word::Height,
                            Word::YXRatio,    Word::ZXRatio,      Word::Left,       Word::Bottom,
                            Word::Rows,       Word::Columns,      Word::Spacing,    Word::TopMargin,
                            Word::LeftMargin, Word::BottomMargin, Word::RightMargin};

constexpr Token axes[] = {Word::Axes,
                          Word::CoordinateType,
                          Word::Scaling,
                          Word::AutoViewingBox,
                          Word::XAxisVisible,
                          Word::YAxisVisible,
                          Word::ZAxisVisible,
                          Word::AxesInFront,
                          Word::AxesLineColor,
                          Word::AxesLineWidth,
                          Word::AxesTitleFont,
                          Word::XAxisTitleAlignment,
                          Word::YAxisTitleAlignment,
                          Word::ZAxisTitleAlignment,
                          Word::YAxisTitleOrientation};

constexpr Token gridLines[] = {
    Word::XGridVisible,    Word::YGridVisible,    Word::ZGridVisible,     Word::GridInFront,
    Word::GridLineColor,   Word::GridLineStyle,   Word::GridLineWidth,    Word::XSubgridVisible,
    Word::YSubgridVisible, Word::ZSubgridVisible, Word::SubgridLineColor, Word::SubgridLineStyle,
    Word::SubgridLineWidth};

constexpr Token tickMarks[] = {
    Word::XTicksVisible,       Word::YTicksVisible,       Word::ZTicksVisible,
    Word::XTicksNumber,        Word::YTicksNumber,        Word::ZTicksNumber,
    Word::XTicksBetween,       Word::YTicksBetween,       Word::ZTicksBetween,
    Word::TicksLength,         Word::XTicksLabelsVisible, Word::YTicksLabelsVisible,
    Word::ZTicksLabelsVisible, Word::XTicksLabelStyle,    Word::YTicksLabelStyle,
    Word::ZTicksLabelStyle,    Word::TicksLabelFont};

constexpr Token calculation[] = {Word::XMesh,
                                 Word::YMesh,
                                 Word::ZMesh,
                                 Word::UMesh,
                                 Word::VMesh,
                                 Word::XSubmesh,
                                 Word::YSubmesh,
                                 Word::USubmesh,
                                 Word::VSubmesh,
                                 Word::AdaptiveMesh,
                                 Word::DiscontinuitySearch};

constexpr Token asymptotes[] = {Word::VerticalAsymptotesVisible, Word::VerticalAsymptotesStyle,
                                Word::VerticalAsymptotesWidth, Word::VerticalAsymptotesColor};

constexpr Token arrowTips[] = {Word::TipStyle, Word::TipLength, Word::TipAngle};

constexpr Token cameraAndLight[] = {
    Word::FocalPoint, Word::UpVector, Word::KeepUpVector, Word::ViewingAngle,
    Word::OrthogonalProjection, Word::Lighting, Word::LightColor, Word::LightIntensity,
    Word::Target, Word::SpotAngle, Word::CameraCoordinates,
    // The view that a user chose.
    Word::ViewXMin, Word::ViewXMax, Word::ViewYMin, Word::ViewYMax, Word::ViewPositionX,
    Word::ViewPositionY, Word::ViewPositionZ, Word::ViewFocalPointX, Word::ViewFocalPointY,
    Word::ViewFocalPointZ, Word::ViewUpVectorX, Word::ViewUpVectorY, Word::ViewUpVectorZ,
    Word::ViewTranslationX, Word::ViewTranslationY, Word::ViewTranslationZ, Word::ViewViewingAngle,
    Word::ViewOrthogonalProjection, Word::ViewDirectional, Word::ViewKeepUpVector};

constexpr Token arrows[] = {Word::ArrowLength};

// The definition comes first.
constexpr CategoryRow rows[] = {
    {"Definition", Recalculation::needless, definition},
    {"Animation", Recalculation::needed, animationSteps},
    {"Animation", Recalculation::needless, animation},
    {"Style", Recalculation::needless, style},
    {"Annotation", Recalculation::needless, annotation},
    {"Surface", Recalculation::needless, surface},
    {"Lines", Recalculation::needless, lines},
    {"Points", Recalculation::needless, points},
    {"Tip", Recalculation::needless, tip},
    {"Text", Recalculation::needless, text},
    {"Layout", Recalculation::needless, layout},
    {"Axes", Recalculation::needless, axes},
    {"Grid Lines", Recalculation::needless, gridLines},
    {"Tick Marks", Recalculation::needless, tickMarks},
    {"Calculation", Recalculation::needed, calculation},
    {"Asymptotes", Recalculation::needless, asymptotes},
    {"Arrow Tips", Recalculation::needless, arrowTips},
    {"Camera && Light", Recalculation::needless, cameraAndLight},
    {"Arrows", Recalculation::needless, arrows},
};

constexpr auto named = [] {
  base::WordTable<bool> names;
  for (const CategoryRow& row : rows) {
    for (const Token name : row.properties) names[name] = true;
  }
  return names;
}();

}  // namespace

std::span<const CategoryRow> propertyCategories() { return rows; }

const CategoryRow& definitionRow() { return rows[0]; }

bool isOnlyInTheDefinition(Token property) { return !named[property]; }

}  // namespace vantry::plot
