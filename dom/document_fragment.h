// Fragments: a bundle of nodes to be put in together.
#pragma once

#include "vantry/dom/inner_node.h"

namespace vantry::dom {

/// A list of nodes that appendChild() and its like accept in place of a single node. It is emptied
/// thereby, and not to be used again: its lastChild() keeps its old value.
class DocumentFragment : public InnerNode {
 public:
  explicit DocumentFragment(Document* owner) : InnerNode(owner) {}

  int nodeType() const override { return DocumentFragmentNode; }
  Token nodeName() const override;
  DocumentFragment* asDocumentFragment() override { return this; }
  using Node::asDocumentFragment;
  Ref<Node> cloneNode(bool deep) const override;
  /// Writes nothing.
  std::ostream& writeXml(std::ostream& out) const override;
};

}  // namespace vantry::dom
