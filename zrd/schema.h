// The input format as a schema.
#pragma once

#include <iosfwd>

namespace vantry::zrd {

/// Writes a RELAX NG schema, in the XML syntax, of what a document may hold: the names of elements
/// and attributes, which is where, and the words of closed lists. It accepts every document in
/// which the check finds no error. It does not know of ranges of numbers, of how many children
/// there may be, and of how a text, a point list and an array go together with attributes.
void writeSchema(std::ostream& out);

}  // namespace vantry::zrd
