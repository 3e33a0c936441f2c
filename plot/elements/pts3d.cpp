#include "vantry/plot/elements/pts3d.h"

namespace vantry::plot {

namespace {

using E = Pts3d;

// clang-format off
constexpr PropertyListOf properties{
    inherited<PointStyleType,    &E::pointStyle>    (Word::PointStyle,    Word::Squares),
    inherited<PosOutputSizeType, &E::pointSize>     (Word::PointSize,     2),
    inherited<RGBAType,          &E::pointColor>    (Word::PointColor,    red),
    inherited<BoolType,          &E::pointsVisible> (Word::PointsVisible, true),
};
// clang-format on

}  // namespace

const PropertyList& Pts3d::propertyList() { return properties; }

Pts3d::Pts3d(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
