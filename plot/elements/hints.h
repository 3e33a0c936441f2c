// What the algebra system knows about a drawing.
#pragma once

#include "vantry/plot/framework/with_members.h"

namespace vantry::plot {

/// Tells how the axes of a coordinate system are best scaled when that is left to the viewer.
class Hints : public ElementOf<Hints, WithMembers<Hints, LeafElement>> {
 public:
  static constexpr Token tag = Word::Hints;

  explicit Hints(dom::Document* document);

  static const PropertyList& propertyList();

  Resolved<Token> scaling;
};

}  // namespace vantry::plot
