// The view of a display.
#pragma once

#include "vantry/javaview/display_output.h"
#include "vantry/javaview/javaview_writer.h"
#include "vantry/javaview/jvd_bounds.h"
#include "vantry/plot/elements/coordinate_system.h"

namespace vantry::javaview {

/// Writes `<cameras>` with the first camera of the coordinate system that can be used at the
/// writer's time; without one, with a view of the whole viewing box; and nothing if that is
/// unknown. Throws JavaViewExportError for a camera object without an image.
void writeCameras3d(DisplayOutput& out, const plot::CoordinateSystemBase& coordinateSystem,
                    const Bounds& bounds, const JavaViewWriter& writer);

/// Writes `<cameras>` with a view of the viewing box from above, empty if that is unknown. `ratio`
/// is the box ratio.
void writeCamera2d(DisplayOutput& out, const Bounds& bounds, double ratio);

}  // namespace vantry::javaview
