#include "vantry/dom/model_operation.h"

#include <utility>

#include "vantry/dom/document.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/walk_in_change.h"

namespace vantry::dom {

namespace {

/// Calls `hook` on `origin`, and on the elements below each element whose hook asks for it.
template <class Hook>
void callDown(Element& origin, Hook hook) {
  walkInChange(origin, [&](Node& node) {
    Element* element = node.asElement();
    return element && hook(*element);
  });
}

}  // namespace

ModelOperation::ModelOperation(Node* node) : document_(node->ownerDocument()), node_(node) {}

NodeRun::NodeRun(Node* first, unsigned count) : first_(count > 0 ? first : nullptr) {
  for (Node* node = first; node && count > 1; --count) {
    node = node->nextSibling();
    if (node) others_.emplace_back(node);
  }
}

// What is before the first of them is cut off when they go into a list.
bool NodeRun::isJoined() const {
  for (unsigned i = 1; i < size(); ++i) {
    if ((*this)[i].previousSibling() != &(*this)[i - 1]) return false;
  }
  return !first_ || !last()->nextSibling();
}

void NodeRun::join() const {
  if (isJoined()) return;
  for (unsigned i = 0; i < size(); ++i) cutOff((*this)[i]);
  for (unsigned i = 1; i < size(); ++i) {
    Node& before = (*this)[i - 1];
    Node::link(before.nextSibling_, &before, &(*this)[i]);
  }
}

template <class Belongs>
void NodeRun::keepOnly(Belongs belongs) {
  std::erase_if(others_, [&](const Ref<Node>& node) { return !belongs(*node); });
  if (!first_ || belongs(*first_)) return;
  first_ = nullptr;
  if (others_.empty()) return;
  first_ = std::move(others_.front());
  others_.erase(others_.begin());
}

void NodeRun::closeGapsIn(Node& parent) const {
  for (unsigned i = 1; i < size(); ++i) {
    Node* const node = &(*this)[i];
    const Node& before = (*this)[i - 1];
    if (before.nextSibling() == node) continue;
    parent.doReplaceChildren(node, 1, nullptr);
    parent.doReplaceChildren(before.nextSibling(), 0, node);
  }
}

void NodeRun::cutOff(Node& node) {
  if (node.ownerDocument()) node.ownerDocument()->noteChange();
  if (node.previousSibling()) Node::cut(node.previousSibling()->nextSibling_);
  Node::cut(node.nextSibling_);
}

ReplaceChildrenOperation::ReplaceChildrenOperation(Node* node, Node* first, unsigned count,
                                                   NewChildren newChildren)
    : ModelOperation(node),
      going_(first, count),
      behind_(count > 0 ? nullptr : first),
      coming_(newChildren.first(), newChildren.count()) {}

// Deferred operations, observers and changes outside the document are not recorded, or change the
// tree in the midst of this change. So what comes and what goes may be anywhere by then. What can
// still be done is done.
void ReplaceChildrenOperation::execute() {
  Places origins;
  Ref<Node> behindRun;
  try {
    takeStock(origins);
    const std::uint64_t changeCount = document().changeCount();
    document().announce(
        BeforeReplaceChildrenEvent(node(), first(), coming_.first(), going_.size()));
    if (document().changeCount() != changeCount) takeStock(origins);
    behindRun = behind();
    document().keepDuringChange(going_.first(), going_.size());
    node()->doReplaceChildren(first(), going_.size(), coming_.first());
  } catch (...) {
    putBack(origins);
    throw;
  }

  std::swap(going_, coming_);
  behind_ = going_.first() ? nullptr : std::move(behindRun);
  const Places home = std::exchange(placesOfRun_, std::move(origins));
  // The record of a document must not hold it.
  std::erase_if(placesOfRun_, [&](const Place& place) { return place.parent == &document(); });
  document().afterChange([&] {
    putBack(home);
    for (unsigned i = 0; i < going_.size(); ++i) {
      if (going_[i].isInDocument()) going_[i].attachedToDocument();
    }
    document().notify(AfterReplaceChildrenEvent(node()));
  });
}

void ReplaceChildrenOperation::takeStock(Places& origins) {
  gatherWhatComes(origins);
  findWhatGoes();
}

/// Makes a row in no tree of what comes, wherever it is, and notes where that was. It stays there
/// if it holds the node that it is to come into.
void ReplaceChildrenOperation::gatherWhatComes(Places& origins) {
  for (unsigned i = 0; i < coming_.size(); ++i) takeOut(coming_[i], origins);
  // An observer of that may have put one back by now.
  coming_.keepOnly([](const Node& each) { return !each.parent(); });
  coming_.join();

  bool isCycle = false;
  for (unsigned i = 0; i < coming_.size(); ++i) isCycle |= isOrHolds(coming_[i], *node());
  if (!isCycle) return;
  coming_ = NodeRun();
  putBack(std::exchange(origins, {}));
}

/// Forgets what is no longer there.
void ReplaceChildrenOperation::findWhatGoes() {
  going_.keepOnly([this](const Node& each) { return each.parent() == node(); });
  going_.closeGapsIn(*node());
  if (behind_ && behind_->parent() != node()) behind_ = nullptr;
}

void ReplaceChildrenOperation::takeOut(Node& node, Places& places) {
  InnerNode* parent = node.parent();
  if (!parent) return;
  // A parent that nobody refers to yet would die with this reference.
  if (parent->refCount() > 0) places.push_back({&node, parent, node.nextSibling()});
  replaceUnrecorded(*parent, &node, 1, nullptr);
}

/// Puts nodes back that were taken out, the last one first, as far as they and their places are
/// free. So each goes to the last of its places.
void ReplaceChildrenOperation::putBack(const Places& places) {
  for (std::size_t i = places.size(); i-- > 0;) {
    const auto& [node, parent, next] = places[i];
    if (node->parent() || isOrHolds(*node, *parent)) continue;
    NodeRun::cutOff(*node);
    const bool hasNext = next && next->parent() == parent.get();
    replaceUnrecorded(*parent, hasNext ? next.get() : nullptr, 0, node.get());
  }
}

/// A change of any tree. Only within the document is there anybody to notify.
void ReplaceChildrenOperation::replaceUnrecorded(Node& parent, Node* first, unsigned count,
                                                 Node* newChild) {
  if (parent.isInDocument()) {
    ReplaceChildrenOperation(&parent, first, count, newChild).execute();
  } else {
    parent.doReplaceChildren(first, count, newChild);
  }
}

ReplaceTextOperation::ReplaceTextOperation(Text* node, unsigned offset, unsigned count,
                                           const char* text)
    : ModelOperation(node), offset_(offset), count_(count), text_(text ? text : "") {}

void ReplaceTextOperation::execute() {
  Text& target = *node()->asText();
  if (offset_ > target.length()) throw DomException(DomException::IndexSize);
  const char* text = text_.empty() ? nullptr : text_.c_str();
  document().announce(BeforeReplaceTextEvent(&target, offset_, count_, text));
  std::optional<std::string> old = target.substringData(offset_, count_);
  target.doReplaceText(offset_, count_, text);
  text_ = std::move(old).value_or(std::string());
  document().afterChange([&] { document().notify(AfterReplaceTextEvent(&target)); });
}

bool AttributeOperation::getFormer(Variant& former) const {
  if (!element().hasAttribute(name_)) return false;
  former = element().getAttribute(name_);
  return true;
}

bool AttributeOperation::set(const Variant& value, Variant& former) {
  Element& origin = element();
  callDown(origin, [&](Element& e) { return e.beforeSetAttribute(origin, name_, value); });
  document().notify(BeforeSetAttributeEvent(&origin, name_, value));
  const bool hadValue = getFormer(former);
  origin.doSetAttribute(name_, value);
  document().afterChange([&] {
    callDown(origin, [&](Element& e) { return e.afterSetAttribute(origin, name_); });
    document().notify(AfterSetAttributeEvent(&origin, name_));
  });
  return hadValue;
}

bool AttributeOperation::remove(Variant& former) {
  Element& origin = element();
  if (!origin.hasAttribute(name_)) return false;
  callDown(origin, [&](Element& e) { return e.beforeRemoveAttribute(origin, name_); });
  document().notify(BeforeRemoveAttributeEvent(&origin, name_));
  const bool hadValue = getFormer(former);
  if (hadValue) origin.doRemoveAttribute(name_);
  document().afterChange([&] {
    callDown(origin, [&](Element& e) { return e.afterRemoveAttribute(origin, name_); });
    document().notify(AfterRemoveAttributeEvent(&origin, name_));
  });
  return hadValue;
}

SetAttributeOperation::SetAttributeOperation(Element* node, Token name, const Variant& value)
    : AttributeOperation(node, name), newValue_(value) {}

void SetAttributeOperation::execute() { hadValue_ = set(newValue_, oldValue_); }

void SetAttributeOperation::undo() {
  if (hadValue_) {
    set(oldValue_, newValue_);
  } else {
    remove(newValue_);
  }
}

RemoveAttributeOperation::RemoveAttributeOperation(Element* node, Token name)
    : AttributeOperation(node, name) {}

void RemoveAttributeOperation::execute() { hadValue_ = remove(removedValue_); }

void RemoveAttributeOperation::undo() {
  Variant ignored;
  if (hadValue_) set(removedValue_, ignored);
}

}  // namespace vantry::dom
