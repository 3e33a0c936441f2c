// Writers of the rasters of the plane: a coloured quadrilateral for each cell of a grid.
#pragma once

#include "vantry/javaview/geometry_output.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"

namespace vantry::javaview {

// Both throw JavaViewExportError, before anything is written, if there are fewer entries than
// cells. Entries beyond the cells are ignored. A raster does not follow the transforms around it.

void emitColorArray2d(GeometryOutput& out, const plot::ColorArray2d& raster);

/// The smallest density has the first fill colour, the largest has the second.
void emitDensityArray2d(GeometryOutput& out, const plot::DensityArray2d& raster);

}  // namespace vantry::javaview
