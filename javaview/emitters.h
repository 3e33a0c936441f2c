// The table of the functions that write primitives.
#pragma once

#include "vantry/javaview/geometry_output.h"
#include "vantry/plot/framework/element.h"

namespace vantry::javaview {

/// Writes a primitive, which is of the class that the function belongs to, as geometries; as none
/// if nothing of it is visible. Throws JavaViewExportError, and base::BadUnicodeString for a text
/// that the locale cannot hold.
using Emitter = void (*)(GeometryOutput& out, const dom::Node& primitive);

/// The function for primitives of the class of `node`. Null for any other node, and for what an
/// image may hold that has no geometry: planes, clipping boxes, cameras and lights.
Emitter emitterFor(const dom::Node& node);

}  // namespace vantry::javaview
