// The changes of a tree as objects that can be undone. The checked mutators of the nodes make them.
#pragma once

#include <string>
#include <vector>

#include "vantry/base/operation.h"
#include "vantry/base/variant.h"
#include "vantry/dom/element.h"
#include "vantry/dom/text.h"

namespace vantry::dom {

/// A change of one node. It notifies the observers of the document before and after.
class ModelOperation : public base::Operation {
 protected:
  explicit ModelOperation(Node* node);

  Document& document() const { return *document_; }
  Node* node() const { return node_.get(); }

 private:
  Document* document_;
  Ref<Node> node_;
};

/// Nodes in a row. It keeps each of them, so that none is lost when they part.
class NodeRun {
 public:
  NodeRun() = default;
  /// Up to `count` siblings from `first` on.
  NodeRun(Node* first, unsigned count);

  Node* first() const { return first_.get(); }
  Node* last() const { return others_.empty() ? first_.get() : others_.back().get(); }
  unsigned size() const { return first_ ? 1 + static_cast<unsigned>(others_.size()) : 0; }
  Node& operator[](unsigned i) const { return i == 0 ? *first_ : *others_[i - 1]; }

  /// Forgets the nodes of which `belongs(node)` is false.
  template <class Belongs>
  void keepOnly(Belongs belongs);

  /// Makes siblings without a parent of the nodes, in their order and with no other among or behind
  /// them. No node may have a parent.
  void join() const;
  /// Brings the nodes, which are all children of `parent`, together behind the first of them.
  void closeGapsIn(Node& parent) const;
  /// Cuts a node without a parent off from what siblings it has.
  static void cutOff(Node& node);

 private:
  bool isJoined() const;

  Ref<Node> first_;
  std::vector<Ref<Node>> others_;  // a single node, as most are, needs none
};

/// Replaces `count` children of `node` from `first` on by the new children. When done it has become
/// its own inverse, so undo is the same call.
///
/// Changes outside the document are not recorded. So what comes in may be in a tree by then: it is
/// taken out of there, and goes back to that place when the operation turns the other way. What
/// goes is known by its nodes, so that no other takes the place of one that has gone by itself.
class ReplaceChildrenOperation final : public ModelOperation {
 public:
  ReplaceChildrenOperation(Node* node, Node* first, unsigned count, NewChildren newChildren);
  void execute() override;
  void undo() override { execute(); }

 private:
  /// Where a node was before it came in.
  struct Place {
    Ref<Node> node;
    Ref<Node> parent;
    Ref<Node> next;
  };
  using Places = std::vector<Place>;  // of the nodes that were in a tree

  static void replaceUnrecorded(Node& parent, Node* first, unsigned count, Node* newChild);
  static void takeOut(Node& node, Places& places);
  static void putBack(const Places& places);
  void takeStock(Places& origins);
  void gatherWhatComes(Places& origins);
  void findWhatGoes();

  // The child that the change begins with, and the one behind those that go.
  Node* first() const { return going_.first() ? going_.first() : behind_.get(); }
  Node* behind() const { return going_.first() ? going_.last()->nextSibling() : behind_.get(); }

  NodeRun going_;
  Ref<Node> behind_;  // if nothing goes; null for the end
  NodeRun coming_;
  Places placesOfRun_;  // where those that go came from
};

/// Replaces `count` bytes from `offset` on by `text`. Undo is the same call with the old text; it
/// takes out as many bytes as the change itself did, whatever the length of the new text was.
class ReplaceTextOperation final : public ModelOperation {
 public:
  ReplaceTextOperation(Text* node, unsigned offset, unsigned count, const char* text);
  void execute() override;
  void undo() override { execute(); }

 private:
  unsigned offset_;
  unsigned count_;
  std::string text_;
};

/// A change of the attribute `name`. Before and after it the hooks of Element are called, from the
/// changed element down, and then the observers are notified.
class AttributeOperation : public ModelOperation {
 protected:
  AttributeOperation(Element* node, Token name) : ModelOperation(node), name_(name) {}

  // Do the change. If the element has the attribute then, which observers may have changed,
  // `former` gets its value. Return whether it had it.
  bool set(const Variant& value, Variant& former);
  bool remove(Variant& former);

 private:
  Element& element() const { return *node()->asElement(); }
  bool getFormer(Variant& former) const;

  Token name_;
};

/// Sets the attribute. Undo gives it the value back that it had before, and removes one that was
/// not there.
class SetAttributeOperation final : public AttributeOperation {
 public:
  SetAttributeOperation(Element* node, Token name, const Variant& value);
  void execute() override;
  void undo() override;

 private:
  Variant newValue_;
  Variant oldValue_;
  bool hadValue_ = false;
};

/// Removes the attribute; nothing happens for an element that does not have it. Undo sets it again.
class RemoveAttributeOperation final : public AttributeOperation {
 public:
  RemoveAttributeOperation(Element* node, Token name);
  void execute() override;
  void undo() override;

 private:
  Variant removedValue_;
  bool hadValue_ = false;
};

}  // namespace vantry::dom
