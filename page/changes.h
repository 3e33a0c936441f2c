// When a part of an animated drawing changes.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/object.h"

namespace vantry::page {

/// The times at which objects come and go and get another image, and transforms another map.
class Changes {
 public:
  /// Of those objects and transforms of the coordinate system that `isMeant` picks.
  Changes(const plot::CoordinateSystemBase& system, bool (*isMeant)(const dom::Node&));

  /// What distinguishes a state from all others.
  using State = std::pair<std::size_t, std::size_t>;

  /// The state at a time: where it is the same at two times, so is the drawing.
  State at(double time) const;

 private:
  void addTimesOf(const plot::ObjectBase& object);
  void addFramesOf(const dom::Node& parent);

  std::vector<double> from_;   // what changes at these times has changed at the time itself
  std::vector<double> after_;  // and here only after it
};

}  // namespace vantry::page
