// Points and vectors.
#pragma once

#include <compare>

namespace vantry::plot {

/// A point or vector in the plane. A NaN coordinate never equals anything.
struct P2 {
  double x = 0;
  double y = 0;

  friend auto operator<=>(const P2&, const P2&) = default;
};

/// A point or vector in space.
struct P3 {
  double x = 0;
  double y = 0;
  double z = 0;

  friend auto operator<=>(const P3&, const P3&) = default;
};

}  // namespace vantry::plot
