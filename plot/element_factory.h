// The list of all element classes.
#pragma once

#include <vector>

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

class PlotDocument;

/// A new element of the class with that name; null for any other name.
base::Ref<PlotElement> makeElement(Token name, PlotDocument& document);

/// Whether an element is of the class with its name, or of a host's class that derives from that.
bool isOfItsClass(const dom::Element& element);

/// The names of all element classes, in the order of their tokens.
std::vector<Token> elementNames();

}  // namespace vantry::plot
