// Writers of the primitives of the plane.
#pragma once

#include "vantry/javaview/geometry_output.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/plot/elements/arrow2d.h"
#include "vantry/plot/elements/line2d.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/pt2d.h"
#include "vantry/plot/elements/pts2d.h"
#include "vantry/plot/elements/text2d.h"
#include "vantry/plot/elements/vertical_asymptote.h"

namespace vantry::javaview {

using namespace plot;

void emitPts2d(GeometryOutput& out, const Pts2d& points);

/// A single point is written whether points are visible or not.
void emitPt2d(GeometryOutput& out, const Pt2d& point);

/// Fill and outline are two geometries, the fill first.
void emitPoly2d(GeometryOutput& out, const Poly2d& polygon);

void emitLine2d(GeometryOutput& out, const Line2d& line);
void emitArrow2d(GeometryOutput& out, const Arrow2d& arrow);

/// Fill and line are two geometries, the fill first. Throws JavaViewExportError if the angles are
/// so far apart, or so large, that there is no end to the points between them.
void emitArc2d(GeometryOutput& out, const Arc2d& arc);

/// A text does not follow the transforms around it. Throws base::BadUnicodeString.
void emitText2d(GeometryOutput& out, const Text2d& text);

/// A line over the height of the viewing box, and a tenth of that beyond either end.
void emitVerticalAsymptote(GeometryOutput& out, const VerticalAsymptote& asymptote);

}  // namespace vantry::javaview
