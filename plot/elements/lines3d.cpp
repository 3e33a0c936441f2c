#include "vantry/plot/elements/lines3d.h"

namespace vantry::plot {

namespace {

struct TypeType : EnumType<> {
  static constexpr std::array allowed{Word::Lines, Word::LineStrip, Word::LineLoop};
};

using E = Lines3d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<TypeType,          &E::type>                (Word::Type,                Word::Lines),
    inherited<LineStyleType,     &E::lineStyle>           (Word::LineStyle,           Word::Solid),
    inherited<PointStyleType,    &E::pointStyle>          (Word::PointStyle,          Word::Squares),
    inherited<ColorType,         &E::lineColorType>       (Word::LineColorType,       Word::Flat),
    inherited<PosOutputSizeType, &E::lineWidth>           (Word::LineWidth,           0.5),
    inherited<PosOutputSizeType, &E::pointSize>           (Word::PointSize,           2),
    inherited<RGBAType,          &E::lineColor>           (Word::LineColor,           black),
    inherited<RGBAType,          &E::lineColor2>          (Word::LineColor2,          blue),
    inherited<BoolType,          &E::pointsVisible>       (Word::PointsVisible,       false),
    inherited<DoubleType,        &E::lineColorDirectionX> (Word::LineColorDirectionX, 0),
    inherited<DoubleType,        &E::lineColorDirectionY> (Word::LineColorDirectionY, 0),
    inherited<DoubleType,        &E::lineColorDirectionZ> (Word::LineColorDirectionZ, 1),
};
// clang-format on

}  // namespace

const PropertyList& Lines3d::propertyList() { return properties; }

Lines3d::Lines3d(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
