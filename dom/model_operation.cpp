#include "vantry/dom/model_operation.h"

#include <utility>

#include "vantry/dom/document.h"
#include "vantry/dom/tree_walk.h"

namespace vantry::dom {

namespace {

/// Calls `hook` on `origin`, and on the elements below each element whose hook wants them told.
template <class Hook>
void tellDown(Element& origin, Hook hook) {
  walkSubtree<Node>(origin, [&](Node& node) {
    Element* element = node.asElement();
    return element && hook(*element);
  });
}

/// The number of nodes in the chain at `first`, or `count` if it has more.
unsigned countUpTo(unsigned count, const Node* first) {
  unsigned found = 0;
  for (; first && found < count; first = first->nextSibling()) ++found;
  return found;
}

}  // namespace

ModelOperation::ModelOperation(Node* node) : document_(node->ownerDocument()), node_(node) {}

NodeRun::NodeRun(Node* first, unsigned count) : first_(count > 0 ? first : nullptr) {
  for (Node* node = first; node && count > 1; --count) {
    node = node->nextSibling();
    if (node) others_.emplace_back(node);
  }
}

bool NodeRun::isJoined() const {
  const Node* before = nullptr;
  for (unsigned i = 0; i < size(); ++i) {
    const Node& node = (*this)[i];
    if (node.previousSibling() != before) return false;
    before = &node;
  }
  return !before || !before->nextSibling();
}

void NodeRun::join() const {
  if (isJoined()) return;
  for (unsigned i = 0; i < size(); ++i) cutOff((*this)[i]);
  for (unsigned i = 1; i < size(); ++i) {
    Node& before = (*this)[i - 1];
    Node::link(before.nextSibling_, &before, &(*this)[i]);
  }
}

void NodeRun::cutOff(Node& node) {
  if (node.previousSibling()) Node::cut(node.previousSibling()->nextSibling_);
  Node::cut(node.nextSibling_);
}

ReplaceChildrenOperation::ReplaceChildrenOperation(Node* node, Node* first, unsigned count,
                                                   NewChildren newChildren)
    : ModelOperation(node),
      first_(first),
      count_(countUpTo(count, first)),
      coming_(newChildren.first(), newChildren.count()) {}

void ReplaceChildrenOperation::execute() {
  Places origins;
  NodeRun going;
  Ref<Node> behind;
  try {
    gatherWhatComes(origins);
    document().notify(BeforeReplaceChildrenEvent(node(), first_.get(), coming_.first(), count_));
    Places ignored;
    gatherWhatComes(ignored);  // an observer may have changed the tree
    going = NodeRun(first_.get(), count_);
    behind = nodeBehindRun();
    node()->doReplaceChildren(first_.get(), count_, coming_.first());
  } catch (...) {
    putBack(coming_, origins);
    throw;
  }

  const NodeRun arrived = std::exchange(coming_, std::move(going));
  first_ = arrived.first() ? arrived.first() : std::move(behind);
  count_ = arrived.size();
  const Places home = std::exchange(placesOfRun_, std::move(origins));
  for (Place& place : placesOfRun_) {
    if (place.parent == &document()) place.parent = nullptr;  // its record must not hold it
  }
  document().afterChange([&] {
    putBack(coming_, home);
    for (unsigned i = 0; i < arrived.size(); ++i) arrived[i].attachedToDocument();
    document().notify(AfterReplaceChildrenEvent(node()));
  });
}

Node* ReplaceChildrenOperation::nodeBehindRun() const {
  Node* behind = first_.get();
  for (unsigned i = 0; behind && i < count_; ++i) behind = behind->nextSibling();
  return behind;
}

/// Makes a row of what comes in, wherever it is, and notes where that was. Deferred operations,
/// observers and changes outside of the document are not recorded: they may have put elsewhere what
/// shall go, or even put the node itself below what shall come. What can be done still is done.
void ReplaceChildrenOperation::gatherWhatComes(Places& places) {
  gather(coming_, places);
  bool isCycle = false;
  for (unsigned i = 0; i < coming_.size(); ++i) isCycle |= isOrHolds(coming_[i], *node());
  if (isCycle) coming_ = NodeRun();
  if (first_ && first_->parent() != node()) {
    first_ = nullptr;
    count_ = 0;
  }
}

void ReplaceChildrenOperation::gather(const NodeRun& nodes, Places& places) {
  for (unsigned i = 0; i < nodes.size(); ++i) {
    InnerNode* parent = nodes[i].parent();
    if (!parent) continue;
    places.resize(nodes.size());
    // One that nobody refers to yet would die with this reference.
    if (parent->refCount() > 0) places[i] = {&nodes[i], parent, nodes[i].nextSibling()};
    replaceUnrecorded(*parent, &nodes[i], 1, nullptr);
  }
  nodes.join();
}

/// Puts nodes back that were gathered, the last one first, as far as they and their places are
/// free.
void ReplaceChildrenOperation::putBack(const NodeRun& nodes, const Places& places) {
  if (places.empty()) return;
  for (unsigned i = nodes.size(); i-- > 0;) {
    const auto& [node, parent, next] = places[i];
    if (node != &nodes[i] || !parent || node->parent() || isOrHolds(nodes[i], *parent)) continue;
    NodeRun::cutOff(nodes[i]);
    const bool hasNext = next && next->parent() == parent.get();
    replaceUnrecorded(*parent, hasNext ? next.get() : nullptr, 0, &nodes[i]);
  }
}

/// A change of whatever tree. Only within the document is there somebody to be told.
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
  const char* text = text_.empty() ? nullptr : text_.c_str();
  document().notify(BeforeReplaceTextEvent(&target, offset_, count_, text));
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
  tellDown(origin, [&](Element& e) { return e.beforeSetAttribute(origin, name_, value); });
  document().notify(BeforeSetAttributeEvent(&origin, name_, value));
  const bool hadValue = getFormer(former);
  origin.doSetAttribute(name_, value);
  document().afterChange([&] {
    tellDown(origin, [&](Element& e) { return e.afterSetAttribute(origin, name_); });
    document().notify(AfterSetAttributeEvent(&origin, name_));
  });
  return hadValue;
}

bool AttributeOperation::remove(Variant& former) {
  Element& origin = element();
  if (!origin.hasAttribute(name_)) return false;
  tellDown(origin, [&](Element& e) { return e.beforeRemoveAttribute(origin, name_); });
  document().notify(BeforeRemoveAttributeEvent(&origin, name_));
  const bool hadValue = getFormer(former);
  if (hadValue) origin.doRemoveAttribute(name_);
  document().afterChange([&] {
    tellDown(origin, [&](Element& e) { return e.afterRemoveAttribute(origin, name_); });
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
