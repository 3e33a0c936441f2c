// The tips of arrows.
#pragma once

namespace vantry::javaview {

/// Whether arrows have a tip. The viewer draws it: its length and width are not in the file. A NaN
/// angle is not 0.
template <class Arrow>
bool hasTip(const Arrow& arrow) {
  return arrow.tipLength() > 0 && arrow.tipAngle() != 0;
}

}  // namespace vantry::javaview
