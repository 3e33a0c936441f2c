// The primitive Text3d.
#pragma once

#include "vantry/plot/framework/primitive.h"

namespace vantry::plot {

/// A text at a point in space; the text itself is a child node.
class Text3d : public Primitive<Text3d> {
 public:
  static constexpr Token tag = Word::Text3d;

  explicit Text3d(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<P3> position;
  Resolved<P3> baseDir;
  Resolved<P3> faceDir;
  Resolved<Token> horizontalAlignment;
  Resolved<Token> verticalAlignment;
  Resolved<FontStyle> textFont;
  Resolved<bool> billboarding;

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;
};

}  // namespace vantry::plot
