#include "vantry/javaview/frame_times.h"

#include <cmath>
#include <limits>

namespace vantry::javaview {

std::vector<double> frameTimes(double begin, double end, int framesPerUnit, std::size_t most) {
  if (!std::isfinite(end - begin)) return {};
  const double step = 1.0 / framesPerUnit;
  const double almostEnd = end - std::numeric_limits<double>::epsilon();
  std::vector<double> times = {begin};
  while (times.back() < almostEnd) {
    if (times.size() == most) return {};
    const double next = times.back() + step;
    const bool isStepLost = !(next > times.back());  // as there are no times in between
    times.push_back(isStepLost || next > almostEnd ? end : next);
  }
  return times;
}

}  // namespace vantry::javaview
