// What the text about a page says of the axes of one scene.
#pragma once

#include "vantry/page/texts.h"
#include "vantry/plot/elements/coordinate_system.h"

namespace vantry::page {

/// All that a display has no place for.
Json axesText(const plot::CoordinateSystemBase& system, bool is2d);

}  // namespace vantry::page
