// Writers of vector fields.
#pragma once

#include "export/geometry_output.h"

namespace PlotDom {

class Field2d;
class Field3d;

// A field with fewer vectors than its grid has nodes is not written; surplus vectors are ignored.

void emitField3d(GeometryOutput& out, const Field3d& field);
void emitField2d(GeometryOutput& out, const Field2d& field);

}  // namespace PlotDom
