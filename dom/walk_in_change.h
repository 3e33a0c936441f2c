// Walks whose steps may change the tree, for instance through observers.
#pragma once

#include <utility>
#include <vector>

#include "vantry/dom/document.h"

namespace vantry::dom {

/// Walks over `root` and its descendants in document order, as one change of the document.
/// `enter(node)` is called before the children of a node and returns whether to go into it. A node
/// that has left its parent or the document by its turn is passed over, with all below it. What
/// comes in during the walk may be passed over too. The caller must hold a root that has no
/// document.
template <class Enter>
void walkInChange(Node& root, Enter enter) {
  using Place = std::pair<const Node*, bool>;
  const auto placeOf = [](const Node& node) { return Place(node.parent(), node.isInDocument()); };
  asOneChange(root, [&] {
    std::vector<std::pair<Ref<Node>, Place>> pending;  // the next node last
    const auto go = [&](Node& node) {
      const Place place = placeOf(node);
      if (!enter(node) || placeOf(node) != place || !node.firstChild()) return;
      for (Node* child = node.lastChild(); child; child = child->previousSibling()) {
        pending.emplace_back(child, placeOf(*child));
      }
    };
    go(root);
    while (!pending.empty()) {
      const auto [node, place] = std::move(pending.back());
      pending.pop_back();
      if (placeOf(*node) == place) go(*node);
    }
  });
}

/// Calls `call(child)` for each child in the same way.
template <class Call>
void forEachChildInChange(Node& parent, Call call) {
  walkInChange(parent, [&](Node& node) {
    if (&node == &parent) return true;
    call(node);
    return false;
  });
}

}  // namespace vantry::dom
