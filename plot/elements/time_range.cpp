#include "vantry/plot/elements/time_range.h"

namespace vantry::plot {

namespace {

class TimeRangePropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = TimeRange;
    // clang-format off
    mandatory<DoubleTrait> (Word::TimeBegin,  0, 1, &E::timeBegin);
    mandatory<DoubleTrait> (Word::TimeEnd,   10, 2, &E::timeEnd);
    // clang-format on
  }
};
constinit TimeRangePropertyListMgr timeRangePropertyList;

}  // namespace

PropertyListMgr& TimeRange::propertyList() { return timeRangePropertyList; }

TimeRange::TimeRange(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
