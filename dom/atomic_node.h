// Nodes that have no children.
#pragma once

#include "vantry/dom/node.h"

namespace vantry::dom {

/// A leaf of the tree. It refuses children.
class AtomicNode : public Node {
 public:
  Node* firstChild() const override { return nullptr; }
  Node* lastChild() const override { return nullptr; }
  bool canReplaceChildren(Node* first, unsigned count, NewChildren newChildren) const override;
  /// Throws DomException HierarchyRequest.
  void doReplaceChildren(Node* first, unsigned count, Node* newChildren) override;

 protected:
  using Node::Node;
};

}  // namespace vantry::dom
