// Whether two drawings are the same.
#pragma once

#include <string>

#include "vantry/plot/framework/element.h"

/// The first difference between two trees in elements, attributes, text or point data, empty if
/// there is none. What is never written counts for nothing: ids, and matrices, colour functions and
/// text orientations whose first expression is blank. Nor does it count in how many nodes a text
/// lies.
std::string differenceOf(const vantry::plot::PlotElement& a, const vantry::plot::PlotElement& b);
