#include "vantry/plot/elements/parameter_range.h"

#include <cmath>

#include "vantry/plot/elements/expr.h"

namespace vantry::plot {

bool parameterRange(const PlotElement& parent, double& begin, double& end) {
  const auto* beginChild = firstChildOf<ParameterBegin>(parent);
  const auto* endChild = firstChildOf<ParameterEnd>(parent);
  if (!beginChild || !endChild) return false;
  if (std::isnan(beginChild->value()) || std::isnan(endChild->value())) return false;
  begin = beginChild->value();
  end = endChild->value();
  return true;
}

}  // namespace vantry::plot
