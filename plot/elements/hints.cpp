#include "vantry/plot/elements/hints.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf properties{
    optional<ScalingType, &Hints::scaling> (Word::Scaling, Word::Unconstrained),
};
// clang-format on

}  // namespace

const PropertyList& Hints::propertyList() { return properties; }

Hints::Hints(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

}  // namespace vantry::plot
