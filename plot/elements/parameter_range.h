// The range of the parameter of an animated object or transform.
#pragma once

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

/// The values of the children ParameterBegin and ParameterEnd. False unless both are there and are
/// numbers. They are options, so the cost does not grow with the number of children.
bool parameterRange(const PlotElement& parent, double& begin, double& end);

}  // namespace vantry::plot
