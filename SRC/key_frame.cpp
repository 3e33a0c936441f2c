#include "SRC/key_frame.h"

#include <cmath>
#include <limits>

#include "SRC/parameter_range.h"
#include "SRC/style_getter.h"

namespace PlotDom {

double FrameTime::of(const PlotElement& frame, double param, bool isAnimatable) const {
  if (!std::isnan(cached_)) return cached_;
  if (std::isnan(param) || !isAnimatable) return nan;

  const PlotElement& parent = *PlotElement::from(frame.parent());
  const auto timeBegin = propertyValue<double>(parent, Word::TimeBegin);
  const auto timeEnd = propertyValue<double>(parent, Word::TimeEnd);
  if (std::isnan(timeBegin) || std::isnan(timeEnd)) return nan;

  double begin = nan;
  double end = nan;
  if (!parameterRange(parent, begin, end)) return nan;
  if (std::fabs(begin - end) <= std::numeric_limits<double>::epsilon()) return timeBegin;
  cached_ = timeBegin + (param - begin) / (end - begin) * (timeEnd - timeBegin);
  return cached_;
}

}  // namespace PlotDom
