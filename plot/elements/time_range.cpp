#include "vantry/plot/elements/time_range.h"

namespace vantry::plot {

namespace {

using E = TimeRange;

// clang-format off
constexpr PropertyListOf properties{
    mandatory<DoubleType, &E::timeBegin> (Word::TimeBegin, 0),
    mandatory<DoubleType, &E::timeEnd>   (Word::TimeEnd,   10),
};
// clang-format on

}  // namespace

const PropertyList& TimeRange::propertyList() { return properties; }

TimeRange::TimeRange(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

}  // namespace vantry::plot
