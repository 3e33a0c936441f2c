// What the text about a page says of one scene.
#pragma once

#include <span>
#include <vector>

#include "vantry/javaview/javaview_writer.h"
#include "vantry/page/texts.h"

namespace vantry::page {

/// Whether an image of the object has a primitive that becomes a geometry. Those of cameras and
/// lights have none.
bool hasGeometry(const plot::ObjectBase& object);

/// The objects of a coordinate system with geometries, but for those that are never shown, in the
/// order of the document.
std::vector<const plot::ObjectBase*> objectsOf(const plot::CoordinateSystemBase& system);

/// Everything about the panel of a scene but its place and its frames. `name` is for a scene that
/// has none.
Json sceneText(const javaview::ExportedScene& exported,
               std::span<const plot::ObjectBase* const> objects, const std::string& name);

}  // namespace vantry::page
