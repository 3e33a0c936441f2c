#include "vantry/plot/styles/object_properties.h"

#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf objectList{
    optional<IdType>         (Word::Id,         {}),
    optional<StringType>     (Word::Name,       {}),
    optional<ConsistentType> (Word::Consistent, false),
    optional<BoolType>       (Word::Visible,    true),
};

constexpr PropertyListOf objectStyleList{
    inherited<BoolType>                 (Word::DiscontinuitySearch, true),
    inherited<BoolType>                 (Word::VisibleBeforeBegin,  true),
    inherited<BoolType>                 (Word::VisibleAfterEnd,     true),
    inherited<BoolType>                 (Word::Closed,              false),
    inherited<MeshType>                 (Word::XMesh,               20),
    inherited<MeshType>                 (Word::YMesh,               20),
    inherited<MeshType>                 (Word::UMesh,               20),
    inherited<NonNegLongType>           (Word::XSubmesh,            0),
    inherited<NonNegLongType>           (Word::YSubmesh,            0),
    inherited<NonNegLongType>           (Word::USubmesh,            0),
    inherited<NonNegLongType>           (Word::VSubmesh,            0),
    inherited<NonNegLongType>           (Word::AdaptiveMesh,        0),
    inherited<NonNegLongType>           (Word::Frames,              0),
    mandatory<TypeNameType>             (Word::Type,                {}),
    inherited<DoubleType>               (Word::TimeBegin,           0),
    inherited<DoubleType>               (Word::TimeEnd,             4),
    inherited<RGBAType>                 (Word::LineColor,           black),
    inherited<RGBAType>                 (Word::LineColor2,          blue),
    inherited<RGBAType>                 (Word::PointColor,          black),
    inherited<RGBAType>                 (Word::FillColor,           black),
    inherited<RGBAType>                 (Word::FillColor2,          blue),
    inherited<BoolType>                 (Word::Filled,              true),
    inherited<BoolType>                 (Word::LegendEntry,         true),
    inherited<BoolType>                 (Word::LinesVisible,        true),
    inherited<BoolType>                 (Word::PointsVisible,       true),
    inherited<BoolType>                 (Word::AffectViewingBox,    true),
    inherited<LineStyleType>            (Word::LineStyle,           Word::Solid),
    inherited<PointStyleType>           (Word::PointStyle,          Word::Squares),
    inherited<ColorType>                (Word::LineColorType,       Word::Flat),
    inherited<ColorType>                (Word::FillColorType,       Word::Flat),
    inherited<ArrowLengthType>          (Word::ArrowLength,         Word::Fixed),
    inherited<TipStyleType>             (Word::TipStyle,            Word::Filled),
    inherited<HorizontalAlignmentType>  (Word::HorizontalAlignment, Word::Left),
    inherited<VerticalAlignmentType>    (Word::VerticalAlignment,   Word::BaseLine),
    inherited<ExtensionType>            (Word::Extension,           Word::Finite),
    inherited<NonNegOutputSizeListType> (Word::TipLength,           4),
    inherited<PosOutputSizeType>        (Word::LineWidth,           0.5),
    inherited<PosOutputSizeType>        (Word::PointSize,           2),
    inherited<DoubleType>               (Word::TipAngle,            0.17453292519943295),
    inherited<FontStyleType>            (Word::TitleFont,           standardFont),
    inherited<FontStyleType>            (Word::TextFont,            standardFont),
    inherited<LegendColorType>          (Word::LegendColor,         {}),
    inherited<HorizontalAlignmentType>  (Word::TitleAlignment,      Word::Center),
    inherited<DoubleType>               (Word::LineColorDirectionX, 0),
};

constexpr PropertyListOf object2dStyleList{
    inherited<FillStyleType>     (Word::FillStyle,                 Word::Winding),
    inherited<FillPatternType>   (Word::FillPattern,               Word::Solid),
    inherited<BoolType>          (Word::VerticalAsymptotesVisible, false),
    inherited<LineStyleType>     (Word::VerticalAsymptotesStyle,   Word::Dashed),
    inherited<PosOutputSizeType> (Word::VerticalAsymptotesWidth,   0.5),
    inherited<RGBAType>          (Word::VerticalAsymptotesColor,   black),
    inherited<DoubleType>        (Word::LineColorDirectionY,       1),
};

constexpr PropertyListOf object3dStyleList{
    inherited<MeshType>          (Word::ZMesh,                20),
    inherited<MeshType>          (Word::VMesh,                20),
    inherited<BoolType>          (Word::OrthogonalProjection, false),
    inherited<BoolType>          (Word::KeepUpVector,         true),
    inherited<BoolType>          (Word::CameraCoordinates,    false),
    inherited<BoolType>          (Word::XLinesVisible,        true),
    inherited<BoolType>          (Word::YLinesVisible,        true),
    inherited<BoolType>          (Word::ULinesVisible,        true),
    inherited<BoolType>          (Word::VLinesVisible,        true),
    inherited<ShadingType>       (Word::Shading,              Word::Flat),
    inherited<RGBAType>          (Word::LightColor,           white),
    inherited<PosOutputSizeType> (Word::TubeDiameter,         2),
    inherited<BoolType>          (Word::Tubular,              true),
    inherited<BoolType>          (Word::MeshVisible,          false),
    inherited<BoolType>          (Word::Billboarding,         true),
    inherited<DoubleType>        (Word::LineColorDirectionY,  0),
    inherited<DoubleType>        (Word::LineColorDirectionZ,  1),
    inherited<DoubleType>        (Word::FillColorDirectionX,  0),
    inherited<DoubleType>        (Word::FillColorDirectionY,  0),
    inherited<DoubleType>        (Word::FillColorDirectionZ,  1),
};
// clang-format on

}  // namespace

const PropertyList& objectProperties() { return objectList; }
const PropertyList& objectStyleProperties() { return objectStyleList; }
const PropertyList& object2dStyleProperties() { return object2dStyleList; }
const PropertyList& object3dStyleProperties() { return object3dStyleList; }

}  // namespace vantry::plot
