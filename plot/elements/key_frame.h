// The elements that exist once per key frame.
#pragma once

#include <cstdint>

#include "vantry/plot/framework/element.h"
#include "vantry/plot/values/variants.h"

namespace vantry::plot {

/// The point of time of a key frame, computed once and kept until the document changes.
class FrameTime {
 public:
  FrameTime() = default;
  FrameTime(const FrameTime&) {}  // a copy of a frame may be put elsewhere
  FrameTime& operator=(const FrameTime&) = delete;

  /// The time of a `frame` with the parameter value `param`: the parameter range of `parent` (see
  /// parameterRange()) mapped to its time from TimeBegin to TimeEnd. NaN if anything is missing,
  /// and for a null `parent`, as no other class is animated.
  double of(const PlotElement& frame, double param, const PlotElement* parent) const;

 private:
  mutable double time_ = nan;
  mutable std::uint64_t changeCount_ = 0;  // of the document, when the time was computed
};

}  // namespace vantry::plot
