#include "vantry/plot/elements/pt2d.h"

namespace vantry::plot {

namespace {

class Pt2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Pt2d;
    // clang-format off
    mandatory<P2Trait>           (Word::Position,      {0, 0},         1, &E::position);
    inherited<PointStyleType>    (Word::PointStyle,    Word::Squares,  2, &E::pointStyle);
    inherited<PosOutputSizeType> (Word::PointSize,     2,              4, &E::pointSize);
    inherited<RGBATrait>         (Word::PointColor,    black,          8, &E::pointColor);
    inherited<BoolTrait>         (Word::PointsVisible, true,          16, &E::pointsVisible);
    // clang-format on
  }
};
constinit Pt2dPropertyListMgr pt2dPropertyList;

}  // namespace

PropertyListMgr& Pt2d::propertyList() { return pt2dPropertyList; }

Pt2d::Pt2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
