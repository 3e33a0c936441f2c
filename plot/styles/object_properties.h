// The properties of objects and their styles.
#pragma once

#include "vantry/plot/framework/property_list.h"

namespace vantry::plot {

/// What every object has for itself.
const PropertyList& objectProperties();
/// What objects of both dimensions take from styles.
const PropertyList& objectStyleProperties();
const PropertyList& object2dStyleProperties();
const PropertyList& object3dStyleProperties();

}  // namespace vantry::plot
