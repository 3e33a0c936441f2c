#include "vantry/plot/elements/surf3d.h"

namespace vantry::plot {

namespace {

struct TypeType : EnumType<> {
  static constexpr std::array allowed{Word::Triangles, Word::TriangleStrip, Word::TriangleFan,
                                      Word::Quads, Word::QuadStrip};
};

using E = Surf3d;

// clang-format off
constexpr PropertyListOf properties{
    // The default type is none of the five: a surface that does not say its type is an error.
    mandatory<TypeType,          &E::type>                (Word::Type,                Word::Lines),
    inherited<LineStyleType,     &E::lineStyle>           (Word::LineStyle,           Word::Solid),
    inherited<PointStyleType,    &E::pointStyle>          (Word::PointStyle,          Word::Squares),
    inherited<ColorType,         &E::lineColorType>       (Word::LineColorType,       Word::Flat),
    inherited<ColorType,         &E::fillColorType>       (Word::FillColorType,       Word::Flat),
    inherited<ShadingType,       &E::shading>             (Word::Shading,             Word::Flat),
    inherited<PosOutputSizeType, &E::lineWidth>           (Word::LineWidth,           0.5),
    inherited<PosOutputSizeType, &E::pointSize>           (Word::PointSize,           2),
    inherited<RGBAType,          &E::lineColor>           (Word::LineColor,           black),
    inherited<RGBAType,          &E::lineColor2>          (Word::LineColor2,          blue),
    inherited<RGBAType,          &E::fillColor>           (Word::FillColor,           red),
    inherited<RGBAType,          &E::fillColor2>          (Word::FillColor2,          yellow),
    optional<BoolType,           &E::hasLineColors>       (Word::HasLineColors,       false),
    inherited<BoolType,          &E::meshVisible>         (Word::MeshVisible,         false),
    inherited<BoolType,          &E::pointsVisible>       (Word::PointsVisible,       false),
    inherited<BoolType,          &E::filled>              (Word::Filled,              true),
    inherited<DoubleType,        &E::lineColorDirectionX> (Word::LineColorDirectionX, 0),
    inherited<DoubleType,        &E::lineColorDirectionY> (Word::LineColorDirectionY, 0),
    inherited<DoubleType,        &E::lineColorDirectionZ> (Word::LineColorDirectionZ, 1),
    inherited<DoubleType,        &E::fillColorDirectionX> (Word::FillColorDirectionX, 0),
    inherited<DoubleType,        &E::fillColorDirectionY> (Word::FillColorDirectionY, 0),
    inherited<DoubleType,        &E::fillColorDirectionZ> (Word::FillColorDirectionZ, 1),
};
// clang-format on

}  // namespace

const PropertyList& Surf3d::propertyList() { return properties; }

Surf3d::Surf3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
