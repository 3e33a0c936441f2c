#include "vantry/plot/elements/camera.h"

namespace vantry::plot {

namespace {

class CameraPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Camera;
    // clang-format off
    mandatory<P3Trait>     (Word::Position,             {10, 0, 0},          1, &E::position);
    mandatory<P3Trait>     (Word::FocalPoint,           {0, 0, 0},           2, &E::focalPoint);
    optional<P3Trait>      (Word::UpVector,             {0, 0, 1},          16, &E::upVector);
    mandatory<DoubleTrait> (Word::ViewingAngle,         0.5235987755982989,  4, &E::viewingAngle);
    inherited<BoolTrait>   (Word::OrthogonalProjection, false,               8, &E::orthogonalProjection);
    inherited<BoolTrait>   (Word::KeepUpVector,         true,               32, &E::keepUpVector);
    // clang-format on
  }
};
constinit CameraPropertyListMgr cameraPropertyList;

}  // namespace

PropertyListMgr& Camera::propertyList() { return cameraPropertyList; }

Camera::Camera(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
