#include "vantry/plot/elements/pts2d.h"

namespace vantry::plot {

namespace {

using E = Pts2d;

// clang-format off
constexpr PropertyListOf properties{
    inherited<PointStyleType,    &E::pointStyle>    (Word::PointStyle,    Word::Squares),
    inherited<PosOutputSizeType, &E::pointSize>     (Word::PointSize,     2),
    inherited<RGBAType,          &E::pointColor>    (Word::PointColor,    red),
    inherited<BoolType,          &E::pointsVisible> (Word::PointsVisible, true),
};
// clang-format on

}  // namespace

const PropertyList& Pts2d::propertyList() { return properties; }

Pts2d::Pts2d(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
