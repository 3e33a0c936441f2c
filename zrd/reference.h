// The reference of the input format: what each element may hold.
#pragma once

#include <iosfwd>

#include "vantry/check/model_facts.h"

namespace vantry::zrd {

/// Writes what an element is, where it may be, and what it may hold.
void writeReference(std::ostream& out, const check::ClassFacts& element);
/// The same as a page in Markdown, with links to the pages of other elements, which are called as
/// their element with ".md".
void writeReferencePage(std::ostream& out, const check::ClassFacts& element);

/// Writes a list of all elements with what each is.
void writeReferenceList(std::ostream& out);
/// The same as a page in Markdown.
void writeReferenceIndex(std::ostream& out);

}  // namespace vantry::zrd
