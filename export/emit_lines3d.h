// Writers of the primitives in space that are lists of points, and of those with two points.
#pragma once

#include "SRC/arrow3d.h"
#include "SRC/line3d.h"
#include "SRC/lines3d.h"
#include "SRC/poly3d.h"
#include "SRC/pts3d.h"
#include "export/geometry_output.h"

namespace PlotDom {

void emitPts3d(GeometryOutput& out, const Pts3d& points);

/// `Lines` of an odd number of points end in a line to a point that does not exist, and their
/// number leaves that line out.
void emitLines3d(GeometryOutput& out, const Lines3d& lines);

/// Only triangles are filled in space: a filled polygon of more points is not written at all.
void emitPoly3d(GeometryOutput& out, const Poly3d& polygon);

void emitLine3d(GeometryOutput& out, const Line3d& line);
void emitArrow3d(GeometryOutput& out, const Arrow3d& arrow);

}  // namespace PlotDom
