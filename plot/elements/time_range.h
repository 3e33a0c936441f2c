// The time of an animation.
#pragma once

#include "vantry/plot/framework/leaf_element.h"

namespace vantry::plot {

/// From when to when the drawing moves; a drawing without it stands still.
class TimeRange : public ElementOf<TimeRange, WithProperties<TimeRange, LeafElement>> {
 public:
  static constexpr Token tag = Word::TimeRange;

  explicit TimeRange(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> timeBegin;
  Resolved<double> timeEnd;
};

}  // namespace vantry::plot
