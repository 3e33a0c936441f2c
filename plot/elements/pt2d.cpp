#include "vantry/plot/elements/pt2d.h"

namespace vantry::plot {

namespace {

using E = Pt2d;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P2Type,            &E::position>      (Word::Position,      {0, 0}),
    inherited<PointStyleType,    &E::pointStyle>    (Word::PointStyle,    Word::Squares),
    inherited<PosOutputSizeType, &E::pointSize>     (Word::PointSize,     2),
    inherited<RGBAType,          &E::pointColor>    (Word::PointColor,    black),
    inherited<BoolType,          &E::pointsVisible> (Word::PointsVisible, true),
};
// clang-format on

}  // namespace

const PropertyList& Pt2d::propertyList() { return properties; }

Pt2d::Pt2d(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
