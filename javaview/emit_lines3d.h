// Writers of the primitives in space that are lists of points, and of those with two points.
#pragma once

#include "vantry/javaview/geometry_output.h"
#include "vantry/plot/elements/arrow3d.h"
#include "vantry/plot/elements/line3d.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/pts3d.h"

namespace vantry::javaview {

/// Writes nothing if points are not visible.
void emitPts3d(GeometryOutput& out, const plot::Pts3d& points);

/// `Lines` of an odd number of points end in a line to a point that does not exist, and their
/// number leaves that line out.
void emitLines3d(GeometryOutput& out, const plot::Lines3d& lines);

/// Only triangles are filled in space: a filled polygon of more points is not written at all.
void emitPoly3d(GeometryOutput& out, const plot::Poly3d& polygon);

void emitLine3d(GeometryOutput& out, const plot::Line3d& line);
void emitArrow3d(GeometryOutput& out, const plot::Arrow3d& arrow);

}  // namespace vantry::javaview
