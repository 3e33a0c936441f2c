#include "vantry/plot/styles/object_properties.h"

#include "vantry/plot/framework/property_types.h"

namespace vantry::plot {

namespace {

class ObjectPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    optional<IdPropertyImpl>         (Word::Id,         {});
    optional<StringTrait>            (Word::Name,       {});
    optional<ConsistentPropertyImpl> (Word::Consistent, false);
    optional<BoolTrait>              (Word::Visible,    true);
    // clang-format on
  }
};
constinit ObjectPropertyListMgr objectPropertyList;

class ObjectStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<BoolTrait>                (Word::DiscontinuitySearch, true);
    inherited<BoolTrait>                (Word::VisibleBeforeBegin,  true);
    inherited<BoolTrait>                (Word::VisibleAfterEnd,     true);
    inherited<BoolTrait>                (Word::Closed,              false);
    inherited<MeshType>                 (Word::XMesh,               20);
    inherited<MeshType>                 (Word::YMesh,               20);
    inherited<MeshType>                 (Word::UMesh,               20);
    inherited<SubmeshType>              (Word::XSubmesh,            0);
    inherited<SubmeshType>              (Word::YSubmesh,            0);
    inherited<SubmeshType>              (Word::USubmesh,            0);
    inherited<SubmeshType>              (Word::VSubmesh,            0);
    inherited<SubmeshType>              (Word::AdaptiveMesh,        0);
    inherited<FramesType>               (Word::Frames,              0);
    mandatory<TypePropertyImpl>         (Word::Type,                {});
    inherited<DoubleTrait>              (Word::TimeBegin,           0);
    inherited<DoubleTrait>              (Word::TimeEnd,             4);
    inherited<RGBATrait>                (Word::LineColor,           black);
    inherited<RGBATrait>                (Word::LineColor2,          blue);
    inherited<RGBATrait>                (Word::PointColor,          black);
    inherited<RGBATrait>                (Word::FillColor,           black);
    inherited<RGBATrait>                (Word::FillColor2,          blue);
    inherited<BoolTrait>                (Word::Filled,              true);
    inherited<BoolTrait>                (Word::LegendEntry,         true);
    inherited<BoolTrait>                (Word::LinesVisible,        true);
    inherited<BoolTrait>                (Word::PointsVisible,       true);
    inherited<BoolTrait>                (Word::AffectViewingBox,    true);
    inherited<LineStyleType>            (Word::LineStyle,           Word::Solid);
    inherited<PointStyleType>           (Word::PointStyle,          Word::Squares);
    inherited<ColorType>                (Word::LineColorType,       Word::Flat);
    inherited<ColorType>                (Word::FillColorType,       Word::Flat);
    inherited<ArrowLengthType>          (Word::ArrowLength,         Word::Fixed);
    inherited<TipStyleType>             (Word::TipStyle,            Word::Filled);
    inherited<HorizontalAlignmentType>  (Word::HorizontalAlignment, Word::Left);
    inherited<VerticalAlignmentType>    (Word::VerticalAlignment,   Word::BaseLine);
    inherited<ExtensionType>            (Word::Extension,           Word::Finite);
    inherited<NonNegOutputSizeListType> (Word::TipLength,           4);
    inherited<PosOutputSizeType>        (Word::LineWidth,           0.5);
    inherited<PosOutputSizeType>        (Word::PointSize,           2);
    inherited<DoubleTrait>              (Word::TipAngle,            0.17453292519943295);
    inherited<FontStyleTrait>           (Word::TitleFont,           FontStyle::standard());
    inherited<FontStyleTrait>           (Word::TextFont,            FontStyle::standard());
    inherited<LegendColorType>          (Word::LegendColor,         {});
    inherited<HorizontalAlignmentType>  (Word::TitleAlignment,      Word::Center);
    inherited<DoubleTrait>              (Word::LineColorDirectionX, 0);
    // clang-format on
  }
};
constinit ObjectStylePropertyListMgr objectStylePropertyList;

class Object2dStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<FillStyleType>     (Word::FillStyle,                 Word::Winding);
    inherited<FillPatternType>   (Word::FillPattern,               Word::Solid);
    inherited<BoolTrait>         (Word::VerticalAsymptotesVisible, false);
    inherited<LineStyleType>     (Word::VerticalAsymptotesStyle,   Word::Dashed);
    inherited<PosOutputSizeType> (Word::VerticalAsymptotesWidth,   0.5);
    inherited<RGBATrait>         (Word::VerticalAsymptotesColor,   black);
    inherited<DoubleTrait>       (Word::LineColorDirectionY,       1);
    // clang-format on
  }
};
constinit Object2dStylePropertyListMgr object2dStylePropertyList;

class Object3dStylePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    // clang-format off
    inherited<MeshType>          (Word::ZMesh,                20);
    inherited<MeshType>          (Word::VMesh,                20);
    inherited<BoolTrait>         (Word::OrthogonalProjection, false);
    inherited<BoolTrait>         (Word::KeepUpVector,         true);
    inherited<BoolTrait>         (Word::CameraCoordinates,    false);
    inherited<BoolTrait>         (Word::XLinesVisible,        true);
    inherited<BoolTrait>         (Word::YLinesVisible,        true);
    inherited<BoolTrait>         (Word::ULinesVisible,        true);
    inherited<BoolTrait>         (Word::VLinesVisible,        true);
    inherited<ShadingType>       (Word::Shading,              Word::Flat);
    inherited<RGBATrait>         (Word::LightColor,           white);
    inherited<PosOutputSizeType> (Word::TubeDiameter,         2);
    inherited<BoolTrait>         (Word::Tubular,              true);
    inherited<BoolTrait>         (Word::MeshVisible,          false);
    inherited<BoolTrait>         (Word::Billboarding,         true);
    inherited<DoubleTrait>       (Word::LineColorDirectionY,  0);
    inherited<DoubleTrait>       (Word::LineColorDirectionZ,  1);
    inherited<DoubleTrait>       (Word::FillColorDirectionX,  0);
    inherited<DoubleTrait>       (Word::FillColorDirectionY,  0);
    inherited<DoubleTrait>       (Word::FillColorDirectionZ,  1);
    // clang-format on
  }
};
constinit Object3dStylePropertyListMgr object3dStylePropertyList;

}  // namespace

PropertyListMgr& objectProperties() { return objectPropertyList; }
PropertyListMgr& objectStyleProperties() { return objectStylePropertyList; }
PropertyListMgr& object2dStyleProperties() { return object2dStylePropertyList; }
PropertyListMgr& object3dStyleProperties() { return object3dStylePropertyList; }

}  // namespace vantry::plot
