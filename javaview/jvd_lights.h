// The lights and the background of a display.
#pragma once

#include "vantry/javaview/display_output.h"
#include "vantry/javaview/javaview_writer.h"
#include "vantry/javaview/jvd_bounds.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/scene.h"

namespace vantry::javaview {

/// Writes `<lights>` with the visible lights of the coordinate system at the writer's time, nothing
/// if there are none. Throws JavaViewExportError for a light object without an image.
void writeExplicitLights(DisplayOutput& out, const plot::CoordinateSystemBase& coordinateSystem,
                         const JavaViewWriter& writer);

/// Writes `<lights>` with a fixed rig around the viewing box, nothing if that is unknown.
void writeDefaultLights(DisplayOutput& out, const Bounds& bounds);

/// Writes `<background>`.
void writeBackground(DisplayOutput& out, const plot::SceneBase& scene);

}  // namespace vantry::javaview
