#include "vantry/plot/elements/hints.h"

namespace PlotDom {

namespace {

class HintsPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    optional<ScalingType>(Word::Scaling, Word::Unconstrained, 1, &Hints::scaling);
  }
};
constinit HintsPropertyListMgr hintsPropertyList;

}  // namespace

PropertyListMgr& Hints::propertyList() { return hintsPropertyList; }

Hints::Hints(Arbor::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace PlotDom
