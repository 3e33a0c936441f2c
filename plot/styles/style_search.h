// The search for the styles from which objects, transforms and styles inherit.
#pragma once

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

/// Visits every ObjStyle of that type in the containers around `start`: the nearest level first, in
/// document order within a level. Returns whether the visitor has ended it. After a search near by,
/// the cost of a visit to the effective styles does not grow with the number of containers.
bool visitObjStyles(const dom::Node& start, Token type, StyleVisitor& visitor);

/// Visits what an element of that type inherits from: first the styles of the type, then those of
/// the type Default.
bool visitTypedStyles(const dom::Node& start, Token type, StyleVisitor& visitor);

}  // namespace vantry::plot
