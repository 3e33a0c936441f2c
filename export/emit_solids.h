// Writers of the primitives in space whose geometry is generated. How finely they are divided is
// fixed: no property and no size changes it.
#pragma once

#include "SRC/box.h"
#include "SRC/circle3d.h"
#include "SRC/cone.h"
#include "SRC/ellipsoid.h"
#include "SRC/sphere.h"
#include "SRC/text3d.h"
#include "export/geometry_output.h"

namespace PlotDom {

void emitBox(GeometryOutput& out, const Box& box);
void emitSphere(GeometryOutput& out, const Sphere& sphere);
void emitEllipsoid(GeometryOutput& out, const Ellipsoid& ellipsoid);
void emitCircle3d(GeometryOutput& out, const Circle3d& circle);

/// The mantle and the two rims, without caps.
void emitCone(GeometryOutput& out, const Cone& cone);

/// Throws Ubase::BadUnicodeString.
void emitText3d(GeometryOutput& out, const Text3d& text);

}  // namespace PlotDom
