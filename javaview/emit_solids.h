// Writers of the primitives in space whose geometry is computed. How finely they are divided is
// fixed: no property and no size changes it.
#pragma once

#include "vantry/javaview/geometry_output.h"
#include "vantry/plot/elements/box.h"
#include "vantry/plot/elements/circle3d.h"
#include "vantry/plot/elements/cone.h"
#include "vantry/plot/elements/ellipsoid.h"
#include "vantry/plot/elements/sphere.h"
#include "vantry/plot/elements/text3d.h"

namespace vantry::javaview {

void emitBox(GeometryOutput& out, const plot::Box& box);
void emitSphere(GeometryOutput& out, const plot::Sphere& sphere);
void emitEllipsoid(GeometryOutput& out, const plot::Ellipsoid& ellipsoid);
void emitCircle3d(GeometryOutput& out, const plot::Circle3d& circle);

/// The mantle and the two rims, without caps.
void emitCone(GeometryOutput& out, const plot::Cone& cone);

/// The place of a text does not follow the transforms around it. Throws base::BadUnicodeString for
/// a text that the locale cannot hold.
void emitText3d(GeometryOutput& out, const plot::Text3d& text);

}  // namespace vantry::javaview
