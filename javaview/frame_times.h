// The times of the frames of an animation.
#pragma once

#include <cstddef>
#include <vector>

namespace vantry::javaview {

/// The times from `begin` on in steps, `framesPerUnit` (above 0) to a unit of time, the last one at
/// `end`. Only `begin` if that is not before `end`; none if the range is not finite or has more
/// than `most` frames.
std::vector<double> frameTimes(double begin, double end, int framesPerUnit, std::size_t most);

}  // namespace vantry::javaview
