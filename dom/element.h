// Elements: named inner nodes with attributes.
#pragma once

#include "vantry/base/variant.h"
#include "vantry/dom/inner_node.h"

namespace vantry::dom {

using base::Variant;

/// An inner node with a tag name and attributes. How attributes are stored is left to the derived
/// class.
class Element : public InnerNode {
 public:
  int nodeType() const override { return ElementNode; }
  Token nodeName() const override { return tagName(); }
  Element* asElement() override { return this; }
  using Node::asElement;

  /// The name of the element, which is that of its kind: it never changes and is never null.
  virtual Token tagName() const = 0;

  /// The value of an attribute that the element has itself. What comes of one that it does not have
  /// is left to the derived class, so ask hasAttribute() first.
  virtual Variant getAttribute(Token name) const = 0;
  /// Throws DomException NoModificationAllowed, or HierarchyRequest if canSetAttribute() refuses.
  virtual void setAttribute(Token name, const Variant& value);
  /// Does nothing if there is no such attribute. Throws DomException NoModificationAllowed, or
  /// HierarchyRequest if canRemoveAttribute() refuses.
  virtual void removeAttribute(Token name);
  /// Whether the element itself has the attribute, whatever it may inherit.
  virtual bool hasAttribute(Token name) const = 0;

  /// Whether the element takes this change. What it refuses ends in HierarchyRequest.
  virtual bool canSetAttribute(Token name, const Variant& value) const;
  virtual bool canRemoveAttribute(Token name) const;

  /// Do what was checked, without checks, record or events.
  virtual void doSetAttribute(Token name, const Variant& value) = 0;
  virtual void doRemoveAttribute(Token name) = 0;

  /// Called around a change of an attribute of `origin`: first for `origin`, then downwards.
  /// Returns whether to go on to the children. They may change the tree: what has left is passed
  /// over.
  virtual bool beforeSetAttribute(Element& origin, Token name, const Variant& value);
  virtual bool afterSetAttribute(Element& origin, Token name);
  virtual bool beforeRemoveAttribute(Element& origin, Token name);
  virtual bool afterRemoveAttribute(Element& origin, Token name);

  /// Writes "<tag", the attributes, ">", the content, the children and "</tag>". Elements below are
  /// written by their own isWritten(), writeAttributes() and writeContent(), not by their
  /// writeXml().
  std::ostream& writeXml(std::ostream& out) const override;

  /// Whether the element appears in XML at all.
  virtual bool isWritten() const { return true; }
  /// Writes each attribute with a blank before it.
  virtual std::ostream& writeAttributes(std::ostream& out) const { return out; }
  /// Writes what comes between the start tag and the children.
  virtual std::ostream& writeContent(std::ostream& out) const { return out; }

 protected:
  using InnerNode::InnerNode;
};

}  // namespace vantry::dom
