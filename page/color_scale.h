// The scales of colours that stand for heights or densities.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vantry/javaview/jvd_bounds.h"
#include "vantry/plot/elements/object.h"

namespace vantry::page {

/// Colours at even steps from the value `min` to the value `max`, as "#rrggbb".
struct ColorScale {
  double min;
  double max;
  std::vector<std::string> colors;
};

/// The scale of the first primitive of the object that is coloured by its height in the viewing
/// box, as a vector field by its height, or by its densities; none if there is no such primitive.
std::optional<ColorScale> colorScaleOf(const plot::ObjectBase& object,
                                       const javaview::Bounds& bounds);

}  // namespace vantry::page
