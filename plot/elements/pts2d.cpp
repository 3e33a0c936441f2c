#include "vantry/plot/elements/pts2d.h"

namespace vantry::plot {

namespace {

class Pts2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Pts2d;
    // clang-format off
    inherited<PointStyleType>    (Word::PointStyle,    Word::Squares, 1, &E::pointStyle);
    inherited<PosOutputSizeType> (Word::PointSize,     2,             2, &E::pointSize);
    inherited<RGBATrait>         (Word::PointColor,    red,           4, &E::pointColor);
    inherited<BoolTrait>         (Word::PointsVisible, true,          8, &E::pointsVisible);
    // clang-format on
  }
};
constinit Pts2dPropertyListMgr pts2dPropertyList;

}  // namespace

PropertyListMgr& Pts2d::propertyList() { return pts2dPropertyList; }

Pts2d::Pts2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
