// Writers of surfaces: the grid of a function of two parameters, and lists of triangles or
// quadrilaterals.
#pragma once

#include "vantry/javaview/geometry_output.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/surf3d.h"

namespace vantry::javaview {

// Normals are read and not exported.

/// Throws JavaViewExportError, before anything is written, if there are fewer points than the grid
/// has.
void emitMesh3d(GeometryOutput& out, const plot::Mesh3d& mesh);

/// Throws JavaViewExportError, after the points, if the type is none of those that make faces.
void emitSurf3d(GeometryOutput& out, const plot::Surf3d& surface);

}  // namespace vantry::javaview
