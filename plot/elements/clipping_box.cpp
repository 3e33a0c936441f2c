#include "vantry/plot/elements/clipping_box.h"

namespace vantry::plot {

namespace {

class ClippingBoxPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = ClippingBox;
    // clang-format off
    mandatory<RangeBoundType> (Word::XMax, -1,  8, &E::xMax);
    mandatory<RangeBoundType> (Word::YMax, -1, 16, &E::yMax);
    mandatory<RangeBoundType> (Word::ZMax, -1, 32, &E::zMax);
    mandatory<RangeBoundType> (Word::XMin, -1,  1, &E::xMin);
    mandatory<RangeBoundType> (Word::YMin, -1,  2, &E::yMin);
    mandatory<RangeBoundType> (Word::ZMin, -1,  4, &E::zMin);
    // clang-format on
  }
};
constinit ClippingBoxPropertyListMgr clippingBoxPropertyList;

}  // namespace

PropertyListMgr& ClippingBox::propertyList() { return clippingBoxPropertyList; }

ClippingBox::ClippingBox(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
