#include "dom/model_operation.h"

#include <utility>

#include "dom/document.h"
#include "dom/tree_walk.h"

namespace Arbor {

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

ReplaceChildrenOperation::ReplaceChildrenOperation(Node* node, Node* first, unsigned count,
                                                   Node* newChildren)
    : ModelOperation(node),
      first_(first),
      count_(countUpTo(count, first)),
      newChildren_(newChildren) {}

void ReplaceChildrenOperation::execute() {
  allowForUnrecordedChanges();
  document().notify(BeforeReplaceChildrenEvent(node(), first_.get(), newChildren_.get(), count_));
  const unsigned newCount = countSiblingsFrom(newChildren_.get());
  Ref<Node> removed = count_ != 0 ? first_ : nullptr;
  Ref<Node> anchor = newChildren_ ? newChildren_ : nodeBehindRun();

  node()->doReplaceChildren(first_.get(), count_, newChildren_.get());
  Node* attached = newChildren_.get();
  for (unsigned i = 0; i < newCount; ++i, attached = attached->nextSibling()) {
    attached->attachedToDocument();
  }

  first_ = std::move(anchor);
  count_ = newCount;
  newChildren_ = std::move(removed);
  document().notify(AfterReplaceChildrenEvent(node()));
}

Node* ReplaceChildrenOperation::nodeBehindRun() const {
  Node* behind = first_.get();
  for (unsigned i = 0; behind && i < count_; ++i) behind = behind->nextSibling();
  return behind;
}

/// Changes of detached trees are not recorded, nor are deferred operations. Between an execution
/// and its undo they may have put elsewhere what shall come in now or what shall go, or even put
/// the node itself below what shall come in. What can be done still is done.
void ReplaceChildrenOperation::allowForUnrecordedChanges() {
  if (newChildren_ && newChildren_->parent()) {
    newChildren_->parent()->doReplaceChildren(newChildren_.get(), 1, nullptr);
  }
  if (chainHoldsAncestorOf(newChildren_.get(), *node())) newChildren_ = nullptr;
  if (first_ && first_->parent() != node()) {
    first_ = nullptr;
    count_ = 0;
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
  document().notify(AfterReplaceTextEvent(&target));
}

AttributeOperation::AttributeOperation(Element* node, Token name)
    : ModelOperation(node), name_(name), hadAttribute_(node->hasAttribute(name)) {}

void AttributeOperation::announceSet(const Variant& value) {
  Element& origin = element();
  tellDown(origin, [&](Element& e) { return e.beforeSetAttribute(origin, name_, value); });
  document().notify(BeforeSetAttributeEvent(&origin, name_, value));
}

void AttributeOperation::reportSet() {
  Element& origin = element();
  tellDown(origin, [&](Element& e) { return e.afterSetAttribute(origin, name_); });
  document().notify(AfterSetAttributeEvent(&origin, name_));
}

void AttributeOperation::removeAndTell() {
  Element& origin = element();
  tellDown(origin, [&](Element& e) { return e.beforeRemoveAttribute(origin, name_); });
  document().notify(BeforeRemoveAttributeEvent(&origin, name_));
  origin.doRemoveAttribute(name_);
  tellDown(origin, [&](Element& e) { return e.afterRemoveAttribute(origin, name_); });
  document().notify(AfterRemoveAttributeEvent(&origin, name_));
}

SetAttributeOperation::SetAttributeOperation(Element* node, Token name, const Variant& value)
    : AttributeOperation(node, name), newValue_(value) {}

void SetAttributeOperation::execute() {
  announceSet(newValue_);
  Variant saved = hadAttribute() ? element().getAttribute(name()) : newValue_;
  element().doSetAttribute(name(), newValue_);
  newValue_ = std::move(saved);
  reportSet();
}

void SetAttributeOperation::undo() {
  if (hadAttribute()) {
    execute();
  } else {
    removeAndTell();
  }
}

RemoveAttributeOperation::RemoveAttributeOperation(Element* node, Token name)
    : AttributeOperation(node, name),
      removedValue_(hadAttribute() ? node->getAttribute(name) : Variant()) {}

void RemoveAttributeOperation::execute() {
  if (hadAttribute()) removeAndTell();
}

void RemoveAttributeOperation::undo() {
  if (!hadAttribute()) return;
  announceSet(removedValue_);
  element().doSetAttribute(name(), removedValue_);
  reportSet();
}

}  // namespace Arbor
