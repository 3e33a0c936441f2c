#include "vantry/plot/elements/plane.h"

namespace vantry::plot {

namespace {

class PlanePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Plane;
    // clang-format off
    mandatory<P3Trait>   (Word::Position,     {0, 0, 0},   1, &E::position);
    mandatory<P3Trait>   (Word::Normal,       {0, 0, 1},   2, &E::normal);
    inherited<RGBATrait> (Word::FillColor,    white,       4, &E::fillColor);
    inherited<RGBATrait> (Word::LineColor,    black,      64, &E::lineColor);
    inherited<BoolTrait> (Word::Filled,       true,      128, &E::filled);
    inherited<BoolTrait> (Word::LinesVisible, false,      32, &E::linesVisible);
    inherited<MeshType>  (Word::UMesh,        10,          8, &E::uMesh);
    inherited<MeshType>  (Word::VMesh,        10,         16, &E::vMesh);
    // clang-format on
  }
};
constinit PlanePropertyListMgr planePropertyList;

}  // namespace

PropertyListMgr& Plane::propertyList() { return planePropertyList; }

Plane::Plane(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
