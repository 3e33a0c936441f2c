// Nodes that can have children.
#pragma once

#include "vantry/dom/node.h"

namespace vantry::dom {

/// A node with a list of children. The list may be as long, and trees as deep, as memory allows.
class InnerNode : public Node {
 public:
  ~InnerNode() override;

  Node* firstChild() const override { return firstChild_.get(); }
  Node* lastChild() const override { return lastChild_; }
  unsigned length() const override;
  bool canReplaceChildren(Node* first, unsigned count, NewChildren newChildren) const override;

  /// The run that is taken out stays chained, so that a reference to its head keeps it all.
  void doReplaceChildren(Node* first, unsigned count, Node* newChildren) override;

 protected:
  explicit InnerNode(Document* owner) : Node(owner) {}
  InnerNode(const InnerNode& other) : Node(other) {}

  /// Gives up all children, without checks, record or events. A child that somebody else holds
  /// lives on without a parent, with the siblings behind it.
  void destroyChildren();

 private:
  friend class Node;

  /// Empties a fragment whose children go elsewhere. The last child keeps its value.
  void dropChain();

  Ref<Node> firstChild_;
  Node* lastChild_ = nullptr;
};

// A node, and 8 each for the first and the last child.
static_assert(sizeof(void*) != 8 || sizeof(InnerNode) == sizeof(Node) + 16);

}  // namespace vantry::dom
