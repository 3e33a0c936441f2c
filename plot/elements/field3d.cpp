#include "vantry/plot/elements/field3d.h"

namespace vantry::plot {

namespace {

using E = Field3d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,            &E::anchor>              (Word::Anchor,              {0, 0, 0}),
    mandatory<P3Type,            &E::delta>               (Word::Delta,               {1, 1, 1}),
    mandatory<MeshType,          &E::xMesh>               (Word::XMesh,               20),
    mandatory<MeshType,          &E::yMesh>               (Word::YMesh,               20),
    mandatory<MeshType,          &E::zMesh>               (Word::ZMesh,               20),
    inherited<ArrowLengthType,   &E::arrowLength>         (Word::ArrowLength,         Word::Fixed),
    inherited<ColorType,         &E::lineColorType>       (Word::LineColorType,       Word::Flat),
    inherited<PointStyleType,    &E::pointStyle>          (Word::PointStyle,          Word::Squares),
    inherited<PosOutputSizeType, &E::lineWidth>           (Word::LineWidth,           0.5),
    inherited<PosOutputSizeType, &E::pointSize>           (Word::PointSize,           1),
    inherited<RGBAType,          &E::lineColor>           (Word::LineColor,           black),
    inherited<RGBAType,          &E::lineColor2>          (Word::LineColor2,          blue),
    inherited<BoolType,          &E::pointsVisible>       (Word::PointsVisible,       true),
    inherited<DoubleType,        &E::lineColorDirectionX> (Word::LineColorDirectionX, 0),
    inherited<DoubleType,        &E::lineColorDirectionY> (Word::LineColorDirectionY, 0),
    inherited<DoubleType,        &E::lineColorDirectionZ> (Word::LineColorDirectionZ, 1),
};
// clang-format on

}  // namespace

const PropertyList& Field3d::propertyList() { return properties; }

Field3d::Field3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
