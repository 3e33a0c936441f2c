// The changes of a tree as objects that can be undone. The checked mutators of the nodes make them.
#pragma once

#include <string>

#include "base/operation.h"
#include "base/variant.h"
#include "dom/element.h"
#include "dom/text.h"

namespace Arbor {

/// A change of one node. It tells the observers of the document before and after.
class ModelOperation : public Ubase::Operation {
 protected:
  explicit ModelOperation(Node* node);

  Document& document() const { return *document_; }
  Node* node() const { return node_.get(); }

 private:
  Document* document_;
  Ref<Node> node_;
};

/// Replaces `count` children of `node` from `first` on by the chain `newChildren`. When done it has
/// become its own inverse, so undo is the same call.
class ReplaceChildrenOperation final : public ModelOperation {
 public:
  ReplaceChildrenOperation(Node* node, Node* first, unsigned count, Node* newChildren);
  void execute() override;
  void undo() override { execute(); }

 private:
  Node* nodeBehindRun() const;
  void allowForUnrecordedChanges();

  Ref<Node> first_;
  unsigned count_;
  Ref<Node> newChildren_;
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

/// A change of the attribute `name`, made for an element that has it or does not: that decides what
/// the undo is. Beside the observers the elements from the changed one down are told, by the hooks
/// of Element.
class AttributeOperation : public ModelOperation {
 protected:
  AttributeOperation(Element* node, Token name);

  Element& element() const { return *node()->asElement(); }
  Token name() const { return name_; }
  bool hadAttribute() const { return hadAttribute_; }

  // What goes on around a change, in its order: first the elements concerned are told, from the
  // top down, and then the observers.
  void announceSet(const Variant& value);
  void reportSet();
  void removeAndTell();

 private:
  Token name_;
  bool hadAttribute_;
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
};

/// Removes the attribute; nothing happens for an element that does not have it. Undo sets it again.
class RemoveAttributeOperation final : public AttributeOperation {
 public:
  RemoveAttributeOperation(Element* node, Token name);
  void execute() override;
  void undo() override;

 private:
  Variant removedValue_;
};

}  // namespace Arbor
