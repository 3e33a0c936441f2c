// The description of all properties, for a host that lets users edit them.
#pragma once

#include "vantry/plot/elements/property_info.h"

namespace vantry::plot {

/// The properties of an element class, or of a type of object: the class's own name or the type
/// of an object or a transform in a drawing. A name that is both means the class. Null for any
/// other name.
///
/// The result has a PropCat for each category, which has a PropInfo for each property of the class:
/// `dom` is its name, `opt` the option of a command by which the algebra system knows it, which is
/// the same name, and null where commands leave the property out; `type` is the kind of field in
/// which it is edited, `enumWords` the words that it may take, with a blank between them, and
/// `recalc` is whether a change makes a new calculation necessary. `name` and `info` are not
/// set: texts for the user are the host's, in the user's language. The description of all classes
/// is made at the first call, for all threads. It must not be changed, nor copied by cloneNode().
const ObjType* propertyInfo(Token name);

}  // namespace vantry::plot
