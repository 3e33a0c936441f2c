// The axes of a display with their rulers, and the box around the scene.
#pragma once

#include "vantry/javaview/display_output.h"
#include "vantry/javaview/jvd_bounds.h"
#include "vantry/plot/elements/coordinate_system.h"

namespace vantry::javaview {

/// Writes `<axes>`. Returns whether the clip ranges are to be wider than the viewing box.
/// Throws base::BadUnicodeString for a title that is no text of the locale.
bool writeAxes(DisplayOutput& out, const plot::CoordinateSystemBase& coordinateSystem, bool is2d,
               const Bounds& bounds, bool isAnimated);

/// Writes `<bndbox>`, which shows if all axes of a boxed form do.
void writeBoundingBox(DisplayOutput& out, const plot::CoordinateSystemBase& coordinateSystem,
                      bool is2d);

}  // namespace vantry::javaview
