#include "vantry/dom/node.h"

#include <memory>
#include <utility>

#include "vantry/dom/document.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/model_operation.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/dom/walk_in_change.h"

namespace vantry::dom {

namespace {

/// Whether a node of this type may be a child, as far as the parent takes it.
bool isTypeOfChild(int type) {
  return type != Node::DocumentNode && type != Node::DocumentFragmentNode &&
         type != Node::RangeNode && type != Node::RangeListNode;
}

/// A change that puts nothing in and takes nothing out.
bool isNothing(const Node* first, unsigned count, const Node* newChildren) {
  return !newChildren && (!first || count == 0);
}

/// The node that follows in document order within the subtree of `top`, or null.
const Node* nextBelow(const Node& top, const Node* node) {
  if (node->firstChild()) return node->firstChild();
  while (node != &top && !node->nextSibling()) node = node->parent();
  return node == &top ? nullptr : node->nextSibling();
}

/// Whether the document knows the classes of the nodes. Without one there is none to ask.
bool areKnown(const Document* document, const NewChildren& children) {
  if (!document) return true;
  for (const Node& child : children) {
    if (!document->knowsClassOf(child)) return false;
  }
  return true;
}

/// A reference to `node`, unless nobody refers to it yet: the end of this one would destroy it.
Ref<Node> keep(Node* node) { return node && node->refCount() > 0 ? node : nullptr; }

}  // namespace

Node::Node(Document* owner) : ownerDocument_(owner) {
  if (ownerDocument_) ownerDocument_->nodeMade();
}

Node::Node(const Node& other) : RefCounted(other), ownerDocument_(other.ownerDocument_) {
  if (ownerDocument_) ownerDocument_->nodeMade();
}

// A long row of siblings dies one by one from the front, so that their number costs no stack.
Node::~Node() {
  Ref<Node> next = cut(nextSibling_);
  while (next && next->refCount() == 1) next = cut(next->nextSibling_);
  if (ownerDocument_) ownerDocument_->nodeGone();
}

void Node::setNodeValue(const char*) {}

bool Node::canReplaceText(unsigned, unsigned, const char*) const { return false; }

void Node::replaceChildren(Node* first, unsigned count, Node* newChildren) {
  if (isNothing(first, count, newChildren)) return;
  checkReplaceChildren(first, count, newChildren);
  if (newChildren && newChildren->parent()) throw DomException(DomException::HierarchyRequest);
  performReplaceChildren(first, count, newChildren);
}

void Node::checkReplaceChildren(Node* first, unsigned count, NewChildren newChildren) const {
  const bool goesBeforeItself = first && newChildren.isSingle() && newChildren.first() == first;
  if (goesBeforeItself || (first && first->parent() != this)) {
    throw DomException(DomException::NotFound);
  }
  if (newChildren && newChildren.first()->ownerDocument() != ownerDocument()) {
    throw DomException(DomException::WrongDocument);
  }
  if (isReadOnly()) throw DomException(DomException::NoModificationAllowed);
  for (const Node& child : newChildren) {
    if (!isTypeOfChild(child.nodeType()) || isOrHolds(child, *this)) {
      throw DomException(DomException::HierarchyRequest);
    }
  }
  if (!areKnown(ownerDocument(), newChildren) || !canReplaceChildren(first, count, newChildren)) {
    throw DomException(DomException::HierarchyRequest);
  }
}

void Node::performReplaceChildren(Node* first, unsigned count, NewChildren newChildren) {
  if (isInDocument()) {
    ownerDocument()->perform<ReplaceChildrenOperation>(this, first, count, newChildren);
    return;
  }
  const Ref<Node> kept = newChildren.first();
  if (ownerDocument()) ownerDocument()->keepDuringChange(first, count);
  if (newChildren.isSingle()) kept->parent()->doReplaceChildren(kept.get(), 1, nullptr);
  doReplaceChildren(first, count, kept.get());
}

Node* Node::putIn(Node* first, unsigned count, Node* newChild) {
  DocumentFragment* fragment = newChild ? newChild->asDocumentFragment() : nullptr;
  if (fragment) return putChildrenIn(first, count, *fragment);
  if (newChild && newChild->parent()) {
    moveIn(first, count, *newChild);
  } else {
    replaceChildren(first, count, newChild);
  }
  return newChild;
}

Node* Node::putChildrenIn(Node* first, unsigned count, DocumentFragment& fragment) {
  const Ref<Node> chain = fragment.firstChild();
  if (isNothing(first, count, chain.get())) return nullptr;
  if (&fragment == this) throw DomException(DomException::HierarchyRequest);
  checkReplaceChildren(first, count, chain.get());
  fragment.dropChain();
  try {
    performReplaceChildren(first, count, chain.get());
  } catch (...) {
    const bool isNowhere = chain && !chain->parent();
    if (isNowhere) fragment.doReplaceChildren(fragment.firstChild(), 0, chain.get());
    throw;
  }
  return chain.get();
}

void Node::moveIn(Node* first, unsigned count, Node& newChild) {
  InnerNode& formerParent = *newChild.parent();
  const NewChildren moved = NewChildren::only(newChild);
  formerParent.checkReplaceChildren(&newChild, 1, nullptr);
  checkReplaceChildren(first, count, moved);
  if (!formerParent.isInDocument()) return performReplaceChildren(first, count, moved);

  // Observers are notified in between. Nothing here may die of what they do.
  const Ref<Node> kept[] = {keep(this), keep(first), &newChild};
  const bool wasInDocument = isInDocument();
  ownerDocument()->asOneChange([&] {
    formerParent.performReplaceChildren(&newChild, 1, nullptr);
    // A node that was in the document may be changed only while it is there, where it is recorded.
    const bool wasOrIsInDocument = wasInDocument || newChild.isInDocument();
    if (wasOrIsInDocument && !isInDocument()) throw DomException(DomException::HierarchyRequest);
    const NewChildren arriving = newChild.parent() ? moved : NewChildren(&newChild);
    checkReplaceChildren(first, count, arriving);
    performReplaceChildren(first, count, arriving);
  });
}

Node* Node::appendChild(Node* newChild) { return putIn(nullptr, 0, newChild); }

Node* Node::insertBefore(Node* newChild, Node* refChild) { return putIn(refChild, 0, newChild); }

Ref<Node> Node::replaceChild(Node* newChild, Node* oldChild) {
  Ref<Node> replaced = oldChild && oldChild->parent() == this ? oldChild : nullptr;
  putIn(oldChild, 1, newChild);
  return replaced;
}

Ref<Node> Node::removeChild(Node* child) {
  if (!child) return nullptr;
  checkReplaceChildren(child, 1, nullptr);
  Ref<Node> removed = child;
  performReplaceChildren(child, 1, nullptr);
  return removed;
}

Node* Node::firstChildByName(Token name) const {
  Node* child = firstChild();
  while (child && !(child->nodeName() == name)) child = child->nextSibling();
  return child;
}

Node* Node::childAt(unsigned index) const {
  Node* child = firstChild();
  for (; child && index > 0; --index) child = child->nextSibling();
  return child;
}

unsigned Node::indexInParent() const {
  unsigned index = 0;
  for (const Node* node = previousSibling(); node; node = node->previousSibling()) ++index;
  return index;
}

// Goes through the subtree backwards, in step with the copy that it makes: `source` was copied as
// the node before which the next copy on its level goes.
void Node::cloneChildrenInto(Node& target) const {
  const auto lastChildOf = [](const Node& node) {
    return node.firstChild() ? node.lastChild() : nullptr;
  };
  Node* parent = &target;
  Node* before = nullptr;
  const Node* source = lastChildOf(*this);
  while (source) {
    const Ref<Node> copy = source->cloneNode(false);
    parent->doReplaceChildren(before, 0, copy.get());
    before = copy.get();
    if (const Node* child = lastChildOf(*source)) {
      source = child;
      parent = before;
      before = nullptr;
      continue;
    }
    while (source && !source->previousSibling()) {
      source = source->parent() == this ? nullptr : source->parent();
      before = parent;
      parent = parent->parent();
    }
    if (source) source = source->previousSibling();
  }
}

void Node::setFlag(unsigned bit, bool value) {
  const unsigned mask = 1U << bit;
  flags_ = static_cast<std::uint16_t>(value ? flags_ | mask : flags_ & ~mask);
}

void Node::link(Ref<Node>& slot, Node* before, Ref<Node> chain) {
  if (chain) chain->previousSibling_ = before;
  slot = std::move(chain);
}

Ref<Node> Node::cut(Ref<Node>& slot) {
  if (slot) slot->previousSibling_ = nullptr;
  return std::move(slot);
}

void Node::setParents(Node* chain, InnerNode* parent) {
  if (chain && chain->ownerDocument()) chain->ownerDocument()->noteChange();
  for (; chain; chain = chain->nextSibling()) chain->parent_ = parent;
}

void Node::attachedToDocument() {
  walkInChange(*this, [](Node& node) {
    node.onAttached();
    return true;
  });
}

void Node::markInDocument(bool inDocument) {
  if (isInDocument() == inDocument) return;
  walkSubtree(*this, [inDocument](Node& node) {
    node.setFlag(InDocument, inDocument);
    return true;
  });
}

unsigned NewChildren::count() const { return isSingle_ ? 1 : countSiblingsFrom(first_); }

bool NewChildren::isMovedWithin(const Node& parent) const {
  return isSingle_ && first_->parent() == &parent;
}

unsigned countSiblingsFrom(const Node* node) {
  unsigned count = 0;
  for (; node; node = node->nextSibling()) ++count;
  return count;
}

bool isOrHolds(const Node& top, const Node& node) {
  if (&top == &node) return true;
  if (top.isInDocument() != node.isInDocument()) return false;
  const Node* below = nextBelow(top, &top);
  const Node* above = node.parent();
  while (below && above) {
    if (below == &node || above == &top) return true;
    below = nextBelow(top, below);
    above = above->parent();
  }
  return false;
}

Node* commonAncestor(Node* a, Node* b) {
  if (a == b) return a;
  for (Node* node = a; node; node = node->parent()) node->setFlag(Node::AncestorMark, true);
  Node* common = b;
  while (common && !common->hasFlag(Node::AncestorMark)) common = common->parent();
  for (Node* node = a; node; node = node->parent()) node->setFlag(Node::AncestorMark, false);
  return common;
}

}  // namespace vantry::dom
