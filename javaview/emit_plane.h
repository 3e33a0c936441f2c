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

/// Writes nothing if points are not visible.
void emitPts2d(GeometryOutput& out, const plot::Pts2d& points);

/// A single point is written whether points are visible or not.
void emitPt2d(GeometryOutput& out, const plot::Pt2d& point);

/// Fill and outline are two geometries, the fill first.
void emitPoly2d(GeometryOutput& out, const plot::Poly2d& polygon);

void emitLine2d(GeometryOutput& out, const plot::Line2d& line);
void emitArrow2d(GeometryOutput& out, const plot::Arrow2d& arrow);

/// Fill and line are two geometries, the fill first. Throws JavaViewExportError, before anything is
/// written, if the angles are so far apart, or so large, that the points between them have no end.
void emitArc2d(GeometryOutput& out, const plot::Arc2d& arc);

/// The place of a text does not follow the transforms around it. Throws base::BadUnicodeString for
/// a text that the locale cannot hold.
void emitText2d(GeometryOutput& out, const plot::Text2d& text);

/// A line over the height of the viewing box, and a tenth of that beyond either end.
void emitVerticalAsymptote(GeometryOutput& out, const plot::VerticalAsymptote& asymptote);

}  // namespace vantry::javaview
