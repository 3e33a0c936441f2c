// What the algebra system knows about a drawing.
#pragma once

#include "vantry/plot/framework/leaf_element.h"

namespace vantry::plot {

/// How the axes of a coordinate system are best scaled when that is left to the viewer.
class Hints : public ElementOf<Hints, WithProperties<Hints, LeafElement>> {
 public:
  static constexpr Token tag = Word::Hints;

  explicit Hints(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> scaling;
};

}  // namespace vantry::plot
