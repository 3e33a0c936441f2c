#include "vantry/plot/elements/pts3d.h"

namespace vantry::plot {

namespace {

class Pts3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Pts3d;
    // clang-format off
    inherited<PointStyleType>    (Word::PointStyle,    Word::Squares, 1, &E::pointStyle);
    inherited<PosOutputSizeType> (Word::PointSize,     2,             2, &E::pointSize);
    inherited<RGBATrait>         (Word::PointColor,    red,           4, &E::pointColor);
    inherited<BoolTrait>         (Word::PointsVisible, true,          8, &E::pointsVisible);
    // clang-format on
  }
};
constinit Pts3dPropertyListMgr pts3dPropertyList;

}  // namespace

PropertyListMgr& Pts3d::propertyList() { return pts3dPropertyList; }

Pts3d::Pts3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
