#include "vantry/dom/inner_node.h"

#include <utility>

namespace vantry::dom {

InnerNode::~InnerNode() { destroyChildren(); }

unsigned InnerNode::length() const { return countSiblingsFrom(firstChild()); }

bool InnerNode::canReplaceChildren(Node*, unsigned, NewChildren) const { return true; }

void InnerNode::doReplaceChildren(Node* first, unsigned count, Node* newChildren) {
  if (!newChildren && (!first || count == 0)) return;

  // An emptied fragment still has a last child, which is none of its children.
  Node* last = first ? first->previousSibling() : firstChild_ ? lastChild_ : nullptr;
  const auto slotBehindLast = [&]() -> Ref<Node>& {
    return last ? last->nextSibling_ : firstChild_;
  };

  // Take the run out. What follows it is cut off too, for a moment.
  Ref<Node> removed = cut(slotBehindLast());
  Ref<Node> rest;
  if (first && count > 0) {
    Node* lastRemoved = first;
    while (--count > 0 && lastRemoved->nextSibling()) lastRemoved = lastRemoved->nextSibling();
    rest = cut(lastRemoved->nextSibling_);
    setParents(removed.get(), nullptr);
    for (Node* node = first; node; node = node->nextSibling()) node->markInDocument(false);
  } else {
    rest = std::move(removed);
  }

  if (newChildren) {
    Ref<Node> chain = newChildren;
    if (newChildren->previousSibling()) cut(newChildren->previousSibling()->nextSibling_);
    link(slotBehindLast(), last, std::move(chain));
    setParents(newChildren, this);
    for (last = newChildren;; last = last->nextSibling()) {
      last->markInDocument(isInDocument());
      if (!last->nextSibling()) break;
    }
  }
  if (rest) {
    link(slotBehindLast(), last, std::move(rest));
  } else {
    lastChild_ = last;
  }
}

// Takes the tree apart from its leaves, along the parent pointers: neither depth nor length costs
// stack or memory.
void InnerNode::destroyChildren() {
  InnerNode* node = this;
  for (;;) {
    Node* child = node->firstChild();
    if (!child) {
      node->lastChild_ = nullptr;
      if (node == this) return;
      node = node->parent();
    } else if (child->refCount() > 1) {
      const Ref<Node> survivors = cut(node->firstChild_);
      setParents(child, nullptr);
      for (; child; child = child->nextSibling()) child->markInDocument(false);
    } else if (child->firstChild()) {
      node = child->firstChild()->parent();
    } else {
      Ref<Node> rest = cut(child->nextSibling_);
      setParents(child, nullptr);
      link(node->firstChild_, nullptr, std::move(rest));  // the child dies
    }
  }
}

void InnerNode::dropChain() {
  setParents(firstChild(), nullptr);
  cut(firstChild_);
}

}  // namespace vantry::dom
