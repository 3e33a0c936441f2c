// The elements that exist once per key frame.
#pragma once

#include "SRC/plot_element.h"
#include "SRC/plot_variants.h"

namespace PlotDom {

/// The point of time of a key frame, computed once and kept until the frame is attached anew or
/// something changes that it may depend on.
class FrameTime {
 public:
  FrameTime() = default;
  FrameTime(const FrameTime&) {}  // a copy of a frame may come to stand elsewhere
  FrameTime& operator=(const FrameTime&) = delete;

  /// The time of a `frame` with the parameter value `param`: the parameter range of the parent
  /// (see parameterRange()) mapped to its time from TimeBegin to TimeEnd. `isAnimatable` tells
  /// whether the parent is of a class that has these. NaN if anything is missing.
  double of(const PlotElement& frame, double param, bool isAnimatable) const;

  void forget() { cached_ = nan; }

 private:
  mutable double cached_ = nan;
};

}  // namespace PlotDom
