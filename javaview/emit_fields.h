// Writers of vector fields.
#pragma once

#include "vantry/javaview/geometry_output.h"
#include "vantry/javaview/value_range.h"
#include "vantry/plot/elements/field2d.h"
#include "vantry/plot/elements/field3d.h"

namespace vantry::javaview {

// A field with fewer vectors than its grid has nodes is not written; surplus vectors are ignored.

/// Writes the vectors as arrows from the nodes of the grid.
void emitField3d(GeometryOutput& out, const plot::Field3d& field);
void emitField2d(GeometryOutput& out, const plot::Field2d& field);

/// The heights over which the colours of a field run. They reach one step beyond the last nodes.
ValueRange colorRange(const plot::Field3d& field);
ValueRange colorRange(const plot::Field2d& field);

}  // namespace vantry::javaview
