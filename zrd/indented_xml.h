// Plot documents as XML for people.
#pragma once

#include <string>

#include "vantry/plot/document.h"

namespace vantry::zrd {

/// A document in the input format: an element per line, indented by its depth, each point and each
/// row of an array on a line of its own, numbers in as few digits as give them back. Throws
/// DomException InvalidState for a document that could not be read back.
std::string indentedXml(const plot::PlotDocument& document);

}  // namespace vantry::zrd
