#include "vantry/plot/elements/hints.h"

namespace vantry::plot {

namespace {

class HintsPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    optional<ScalingType>(Word::Scaling, Word::Unconstrained, 1, &Hints::scaling);
  }
};
constinit HintsPropertyListMgr hintsPropertyList;

}  // namespace

PropertyListMgr& Hints::propertyList() { return hintsPropertyList; }

Hints::Hints(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
