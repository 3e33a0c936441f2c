#include "vantry/plot/elements/key_frame.h"

#include <cmath>
#include <limits>

#include "vantry/plot/elements/parameter_range.h"
#include "vantry/plot/framework/element_document.h"
#include "vantry/plot/framework/style_getter.h"

namespace vantry::plot {

namespace {

double timeOf(double param, const PlotElement* parent) {
  if (std::isnan(param) || !parent) return nan;

  const auto timeBegin = propertyValue<double>(*parent, Word::TimeBegin);
  const auto timeEnd = propertyValue<double>(*parent, Word::TimeEnd);
  if (std::isnan(timeBegin) || std::isnan(timeEnd)) return nan;

  double begin = nan;
  double end = nan;
  if (!parameterRange(*parent, begin, end)) return nan;
  if (std::fabs(begin - end) <= std::numeric_limits<double>::epsilon()) return timeBegin;
  return timeBegin + (param - begin) / (end - begin) * (timeEnd - timeBegin);
}

}  // namespace

double FrameTime::of(const PlotElement& frame, double param, const PlotElement* parent) const {
  const dom::Document* document = frame.ownerDocument();
  if (!document) return timeOf(param, parent);
  if (changeCount_ != document->changeCount()) {
    time_ = timeOf(param, parent);
    changeCount_ = document->changeCount();
  }
  return time_;
}

}  // namespace vantry::plot
