// The base of all element classes of the plot model.
#pragma once

#include "vantry/base/vocabulary.h"
#include "vantry/dom/element.h"
#include "vantry/plot/framework/property.h"
#include "vantry/plot/framework/refusal.h"
#include "vantry/plot/framework/style_visitor.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::Token;
using base::Variant;
using base::WordId;

class ElementDocument;
class StyleIndex;

/// What the classes of the model have in common: from PlotElement on, each node with this model is
/// one.
inline constexpr dom::NodeClass plotModel{&plotModel, Token()};

/// The class `T` of the model, as its elements return it.
template <class T>
inline constexpr dom::NodeClass elementClass{&plotModel, T::tag};

/// An element with properties. Errors of its operations are DomException, after a message to the
/// reporter of its document; nothing has changed then.
class PlotElement : public dom::Element {
 public:
  /// An element for a document of this model, or for none.
  explicit PlotElement(ElementDocument* document);

  const dom::NodeClass* nodeClass() const override { return &plotModel; }

  /// The document that the element was made for.
  ElementDocument* plotDocument() const;

  /// Sends a message in the manner of printf to the document's reporter.
  [[gnu::format(printf, 2, 3)]] void report(const char* format, ...) const;

  /// Reports a refusal of that kind to the document. Always false.
  bool refuse(RefusalKind kind, const char* subject = "", const char* detail = "") const;
  bool refuse(RefusalKind kind, Token subject, const char* detail = "") const {
    return refuse(kind, subject.str(), detail);
  }

  // Attributes, as the tree knows them: only what was set on the element itself.

  Variant getAttribute(Token name) const override;
  bool hasAttribute(Token name) const override;
  bool canSetAttribute(Token name, const Variant& value) const override;
  bool canRemoveAttribute(Token name) const override;
  void doSetAttribute(Token name, const Variant& value) override;
  void doRemoveAttribute(Token name) override;
  bool afterSetAttribute(Element& origin, Token name) override;
  bool afterRemoveAttribute(Element& origin, Token name) override;

  /// Sets an attribute from its text in the input format. Throws InvalidAccess for an unknown name,
  /// Syntax for a text that does not parse, and HierarchyRequest for a value that is refused.
  virtual void setAttributeFromString(Token name, const char* text);

  // Properties: resolved values, whether local, inherited or default. An unknown name throws
  // InvalidAccess.

  virtual bool hasProperty(Token name) const;
  virtual Variant getPropertyValue(Token name) const;

  /// Gives the property a value; one that equals the inherited value is not kept as local, unless
  /// the property is mandatory.
  virtual void setPropertyValue(Token name, const Variant& value);
  virtual bool isWritableProperty(Token name) const;

  // Inheritance.

  /// Visits the elements from which this one inherits, the nearest first, until the visitor wants
  /// no further one. Returns whether that was so. All questions about styles are answered by it.
  virtual bool visitStyles(StyleVisitor&) const { return false; }

  /// The nearest element from which this one inherits `name`, or null for the default.
  const PlotElement* styleParent(Token name) const;
  /// Adds all elements from which this one inherits, the nearest first.
  void collectStyleChain(StyleChain& chain) const;
  /// The same, but may leave out those that nearer ones hide.
  void collectEffectiveStyles(StyleChain& chain) const;
  /// The local value in the attribute list, null if there is none. It lives until the next change.
  virtual const Variant* findAttribute(Token name) const;
  /// The description of a property of this class, or null.
  virtual const Property* findProperty(Token name) const;
  virtual bool isStyle() const { return false; }
  /// What a container of object styles knows of them; null for any other element.
  virtual const StyleIndex* styleIndex() const { return nullptr; }

  /// `source`, which is this element or one that it may inherit from, has a new value of `name`.
  /// Returns whether the change concerns the children too.
  virtual bool parentPropertyChanged(PlotElement& source, Token name);
  /// `source` has a new value of `name`: a local value that has become the same may go.
  virtual void propertyChanged(PlotElement& source, Token name);
  /// Removes all local values that are the same as what would be inherited, save mandatory ones;
  /// an element with an attribute list then lets its children do so.
  virtual void dropInheritedProperties();

  /// Whether the input format can hold the element as it is now. What it cannot hold is reported.
  virtual bool canBeWritten() const;

  // What a host may build on.

  /// Called by PlotDocument::visitElements(); false leaves out what is below. It may change the
  /// tree: what has left by its turn is passed over.
  virtual bool visit() { return true; }
  /// Writes the element, and what is below it, in the command syntax of the algebra system.
  void printCommand(CmdWriter& writer) const;
  /// Writes for printCommand() what comes before the children. True if the children are to follow,
  /// each by its beginCommand() and endCommand(), and then endCommand().
  virtual bool beginCommand(CmdWriter&) const { return false; }
  virtual void endCommand(CmdWriter&) const {}
  /// Improves `result`, the next point of time at which something changes after (or before) `time`.
  virtual void timeStep(double time, bool forward, double& result);

  /// The element of the model that a node is, or null for any other node.
  static PlotElement* from(dom::Node* node) {
    return isElement(node) ? static_cast<PlotElement*>(node) : nullptr;
  }
  static const PlotElement* from(const dom::Node* node) {
    return isElement(node) ? static_cast<const PlotElement*>(node) : nullptr;
  }

 protected:
  PlotElement(const PlotElement&) = default;

  /// To be called by a class that has changed what its attributes are.
  void noteChange();

  /// Calls propertyChanged() of each child.
  void passToChildren(PlotElement& source, Token name);

  /// Whether the children are such as the element takes.
  virtual bool canHoldItsChildren() const;

  /// The property `name`. Throws InvalidAccess for one that does not exist.
  const Property& requireProperty(Token name) const;
  [[noreturn]] void throwUnknownProperty(Token name) const;

 private:
  static bool isElement(const dom::Node* node) {
    const dom::NodeClass* nodeClass = node ? node->nodeClass() : nullptr;
    return nodeClass && nodeClass->model == &plotModel;
  }
};

/// Whether `name` is one of the tokens.
template <class... Tokens>
constexpr bool isOneOf(Token name, Tokens... tokens) {
  return ((name == tokens) || ...);
}

/// Whether a node is of one of these classes of the model. An element of a host's class is of the
/// class that this derives from.
template <class... Classes>
bool isElementOf(const dom::Node& node) {
  const dom::NodeClass* nodeClass = node.nodeClass();
  return ((nodeClass == &elementClass<Classes>) || ...);
}

/// The node as a `T`, or null. It must be of one of the classes, or of `T` if none is given.
template <class T, class... Classes>
const T* elementCast(const dom::Node* node) {
  if constexpr (sizeof...(Classes) == 0) {
    return elementCast<T, T>(node);
  } else {
    return node && isElementOf<Classes...>(*node) ? static_cast<const T*>(node) : nullptr;
  }
}
template <class T, class... Classes>
T* elementCast(dom::Node* node) {
  return const_cast<T*>(elementCast<T, Classes...>(static_cast<const dom::Node*>(node)));
}

/// The first of the siblings from `node` on that is of one of the classes, or null.
template <class T, class... Classes>
const T* firstOf(const dom::Node* node) {
  while (node && !isElementOf<Classes...>(*node)) node = node->nextSibling();
  return elementCast<T, Classes...>(node);
}

/// The first child with the tag of a class, as an element of that class, or null.
template <class T>
const T* firstChildOf(const dom::Node& parent) {
  return elementCast<T>(parent.firstChildByName(T::tag));
}

/// Makes a class of the element named by its `tag`: the name, the class and the copy come from
/// here. A host's class can be made of the class of the model with it; it keeps the tag of that.
template <class Self, class Base>
class ElementOf : public Base {
 public:
  using Base::Base;

  Token tagName() const override { return Self::tag; }

  const dom::NodeClass* nodeClass() const override {
    if constexpr (requires { requires Base::tag == Self::tag; }) {
      return Base::nodeClass();
    } else {
      return &elementClass<Self>;
    }
  }

  base::Ref<dom::Node> cloneNode(bool deep) const override {
    base::Ref<dom::Node> copy = new Self(static_cast<const Self&>(*this));
    if (deep) this->cloneChildrenInto(*copy);
    return copy;
  }
};

/// A class that adds nothing to its base but a name.
template <base::WordId name, class Base>
class ElementNamed : public ElementOf<ElementNamed<name, Base>, Base> {
 public:
  static constexpr Token tag = base::tokenOf(name);
  using ElementOf<ElementNamed<name, Base>, Base>::ElementOf;
};

}  // namespace vantry::plot
