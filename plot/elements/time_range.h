// The time of an animation.
#pragma once

#include "vantry/plot/framework/with_members.h"

namespace vantry::plot {

/// From when to when the drawing moves; a drawing without it stands still.
class TimeRange : public ElementOf<TimeRange, WithMembers<TimeRange, LeafElement>> {
 public:
  static constexpr Token tag = Word::TimeRange;

  explicit TimeRange(dom::Document* document);

  static const PropertyList& propertyList();

  Resolved<double> timeBegin;
  Resolved<double> timeEnd;
};

}  // namespace vantry::plot
