#include "vantry/plot/elements/tr.h"

#include "vantry/plot/elements/transform.h"

namespace vantry::plot {

namespace {

class TrPropertyListMgr final : public PropertyListMgr {
  void fill() override { optional<DoubleTrait>(Word::Param, nan, 1, &TrBase::param); }
};
constinit TrPropertyListMgr trPropertyList;

class Tr2dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Tr2d;
    // clang-format off
    optional<P2Trait> (Word::Shift, {0, 0}, 2, &E::shift);
    optional<P2Trait> (Word::Row1,  {1, 0}, 4, &E::row1);
    optional<P2Trait> (Word::Row2,  {0, 1}, 8, &E::row2);
    // clang-format on
  }
};
constinit Tr2dPropertyListMgr tr2dPropertyList;

class Tr3dPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Tr3d;
    // clang-format off
    optional<P3Trait> (Word::Shift, {0, 0, 0},  2, &E::shift);
    optional<P3Trait> (Word::Row1,  {1, 0, 0},  4, &E::row1);
    optional<P3Trait> (Word::Row2,  {0, 1, 0},  8, &E::row2);
    optional<P3Trait> (Word::Row3,  {0, 0, 1}, 16, &E::row3);
    // clang-format on
  }
};
constinit Tr3dPropertyListMgr tr3dPropertyList;

}  // namespace

PropertyListMgr& TrBase::propertyList() { return trPropertyList; }
PropertyListMgr& Tr2d::propertyList() { return tr2dPropertyList; }
PropertyListMgr& Tr3d::propertyList() { return tr3dPropertyList; }

TrBase::TrBase(dom::Document* document) : WithMembers(document) {
  propertyList().initialise(*this);
}

Tr2d::Tr2d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

Tr3d::Tr3d(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

double TrBase::frameTime() const {
  const auto* transform = elementCast<TransformBase, Transform2d, Transform3d>(parent());
  return frameTime_.of(*this, param(), transform);
}

}  // namespace vantry::plot
