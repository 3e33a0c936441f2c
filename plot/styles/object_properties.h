// The properties of objects and their styles.
#pragma once

#include "vantry/plot/framework/property_list_mgr.h"

namespace vantry::plot {

/// What every object has for itself.
PropertyListMgr& objectProperties();
/// What objects of both dimensions take from styles.
PropertyListMgr& objectStyleProperties();
PropertyListMgr& object2dStyleProperties();
PropertyListMgr& object3dStyleProperties();

}  // namespace vantry::plot
