// The bounds of values.
#pragma once

namespace vantry::javaview {

/// The values from `min` to `max`.
struct ValueRange {
  double min = 0;
  double max = 0;
};

}  // namespace vantry::javaview
