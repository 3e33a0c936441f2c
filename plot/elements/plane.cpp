#include "vantry/plot/elements/plane.h"

namespace vantry::plot {

namespace {

using E = Plane;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,   &E::position>     (Word::Position,     {0, 0, 0}),
    mandatory<P3Type,   &E::normal>       (Word::Normal,       {0, 0, 1}),
    inherited<RGBAType, &E::fillColor>    (Word::FillColor,    white),
    inherited<RGBAType, &E::lineColor>    (Word::LineColor,    black),
    inherited<BoolType, &E::filled>       (Word::Filled,       true),
    inherited<BoolType, &E::linesVisible> (Word::LinesVisible, false),
    inherited<MeshType, &E::uMesh>        (Word::UMesh,        10),
    inherited<MeshType, &E::vMesh>        (Word::VMesh,        10),
};
// clang-format on

}  // namespace

const PropertyList& Plane::propertyList() { return properties; }

Plane::Plane(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
