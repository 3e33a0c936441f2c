// The primitive Text2d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A text at a point; the text itself is a child node. `textRotation` is in radians.
class Text2d : public Primitive<Text2d> {
 public:
  static constexpr Token tag = Word::Text2d;

  explicit Text2d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P2> position;
  Resolved<double> textRotation;
  Resolved<Token> horizontalAlignment;
  Resolved<Token> verticalAlignment;
  Resolved<FontStyle> textFont;

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;
};

}  // namespace vantry::plot
