#include "vantry/plot/elements/camera.h"

namespace vantry::plot {

namespace {

using E = Camera;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<P3Type,     &E::position>             (Word::Position,             {10, 0, 0}),
    mandatory<P3Type,     &E::focalPoint>           (Word::FocalPoint,           {0, 0, 0}),
    optional<P3Type,      &E::upVector>             (Word::UpVector,             {0, 0, 1}),
    mandatory<DoubleType, &E::viewingAngle>         (Word::ViewingAngle,         0.5235987755982989),
    inherited<BoolType,   &E::orthogonalProjection> (Word::OrthogonalProjection, false),
    inherited<BoolType,   &E::keepUpVector>         (Word::KeepUpVector,         true),
};
// clang-format on

}  // namespace

const PropertyList& Camera::propertyList() { return properties; }

Camera::Camera(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
