// What elements and properties are for, in words for users.
#pragma once

#include <string_view>

#include "vantry/base/token.h"

namespace vantry::plot {

/// A sentence that says what an element with this name is; empty for any other name. Besides the
/// element classes it knows P2 and P3, the points in the lists of primitives.
std::string_view elementDescription(base::Token element);

/// A sentence that says what a property of that element means; empty for a name that is a property
/// of no element. Whether this element has the property is not looked at.
std::string_view propertyDescription(base::Token element, base::Token property);

}  // namespace vantry::plot
