// Walks over a subtree in document order. They use no stack, so a tree may be of any depth.
#pragma once

#include "vantry/dom/inner_node.h"

namespace vantry::dom {

/// Walks over `root` and its descendants. `enter(node)` is called before the children of a node and
/// returns whether to go into it; `leave(node)` is called after the children of each node that was
/// gone into. `NodeType` is Node or const Node. What is called may change nodes, but not the part
/// of the tree that is still to come.
template <class NodeType, class Enter, class Leave>
void walkSubtree(NodeType& root, Enter enter, Leave leave) {
  NodeType* node = &root;
  for (;;) {
    if (enter(*node)) {
      if (NodeType* child = node->firstChild()) {
        node = child;
        continue;
      }
      leave(*node);
    }
    // Up to the nearest node that has a sibling to go on with.
    while (node != &root && !node->nextSibling()) {
      node = node->parent();
      leave(*node);
    }
    if (node == &root) return;
    node = node->nextSibling();
  }
}

/// The same without leaving: `enter(node)` returns whether to go into the node.
template <class NodeType, class Enter>
void walkSubtree(NodeType& root, Enter enter) {
  walkSubtree(root, enter, [](NodeType&) {});
}

}  // namespace vantry::dom
