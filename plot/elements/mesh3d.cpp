#include "vantry/plot/elements/mesh3d.h"

namespace vantry::plot {

namespace {

using E = Mesh3d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<MeshType,          &E::uMesh>               (Word::UMesh,               20),
    mandatory<MeshType,          &E::vMesh>               (Word::VMesh,               20),
    optional<NonNegLongType,     &E::uSubmesh>            (Word::USubmesh,            0),
    optional<NonNegLongType,     &E::vSubmesh>            (Word::VSubmesh,            0),
    inherited<LineStyleType,     &E::lineStyle>           (Word::LineStyle,           Word::Solid),
    inherited<ColorType,         &E::lineColorType>       (Word::LineColorType,       Word::Flat),
    inherited<PointStyleType,    &E::pointStyle>          (Word::PointStyle,          Word::Squares),
    inherited<ColorType,         &E::fillColorType>       (Word::FillColorType,       Word::Flat),
    inherited<ShadingType,       &E::shading>             (Word::Shading,             Word::Flat),
    optional<BoolType,           &E::hasLineColors>       (Word::HasLineColors,       false),
    inherited<BoolType,          &E::xLinesVisible>       (Word::XLinesVisible,       true),
    inherited<BoolType,          &E::yLinesVisible>       (Word::YLinesVisible,       true),
    inherited<BoolType,          &E::uLinesVisible>       (Word::ULinesVisible,       true),
    inherited<BoolType,          &E::vLinesVisible>       (Word::VLinesVisible,       true),
    optional<BoolType,           &E::useXYLinesVisible>   (Word::UseXYLinesVisible,   false),
    inherited<BoolType,          &E::filled>              (Word::Filled,              true),
    inherited<BoolType,          &E::pointsVisible>       (Word::PointsVisible,       true),
    inherited<PosOutputSizeType, &E::lineWidth>           (Word::LineWidth,           0.5),
    inherited<PosOutputSizeType, &E::pointSize>           (Word::PointSize,           2),
    inherited<RGBAType,          &E::lineColor>           (Word::LineColor,           black),
    inherited<RGBAType,          &E::lineColor2>          (Word::LineColor2,          blue),
    inherited<RGBAType,          &E::fillColor>           (Word::FillColor,           red),
    inherited<RGBAType,          &E::fillColor2>          (Word::FillColor2,          yellow),
    inherited<DoubleType,        &E::lineColorDirectionX> (Word::LineColorDirectionX, 0),
    inherited<DoubleType,        &E::lineColorDirectionY> (Word::LineColorDirectionY, 0),
    inherited<DoubleType,        &E::lineColorDirectionZ> (Word::LineColorDirectionZ, 1),
    inherited<DoubleType,        &E::fillColorDirectionX> (Word::FillColorDirectionX, 0),
    inherited<DoubleType,        &E::fillColorDirectionY> (Word::FillColorDirectionY, 0),
    inherited<DoubleType,        &E::fillColorDirectionZ> (Word::FillColorDirectionZ, 1),
};
// clang-format on

}  // namespace

const PropertyList& Mesh3d::propertyList() { return properties; }

Mesh3d::Mesh3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
