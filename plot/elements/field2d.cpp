#include "vantry/plot/elements/field2d.h"

namespace vantry::plot {

namespace {

using E = Field2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P2Type,               &E::anchor>              (Word::Anchor,              {0, 0}),
    mandatory<P2Type,               &E::delta>               (Word::Delta,               {1, 1}),
    mandatory<MeshType,             &E::xMesh>               (Word::XMesh,               20),
    mandatory<MeshType,             &E::yMesh>               (Word::YMesh,               20),
    inherited<ArrowLengthType,      &E::arrowLength>         (Word::ArrowLength,         Word::Fixed),
    inherited<ColorType,            &E::lineColorType>       (Word::LineColorType,       Word::Flat),
    inherited<TipStyleType,         &E::tipStyle>            (Word::TipStyle,            Word::Filled),
    inherited<PosOutputSizeType,    &E::lineWidth>           (Word::LineWidth,           0.5),
    inherited<NonNegOutputSizeType, &E::tipLength>           (Word::TipLength,           1),
    inherited<RGBAType,             &E::lineColor>           (Word::LineColor,           black),
    inherited<RGBAType,             &E::lineColor2>          (Word::LineColor2,          blue),
    inherited<DoubleType,           &E::tipAngle>            (Word::TipAngle,            0.5235987755982989),
    inherited<DoubleType,           &E::lineColorDirectionX> (Word::LineColorDirectionX, 0),
    inherited<DoubleType,           &E::lineColorDirectionY> (Word::LineColorDirectionY, 1),
};
// clang-format on

}  // namespace

const PropertyList& Field2d::propertyList() { return properties; }

Field2d::Field2d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
