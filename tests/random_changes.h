// Changes of a drawing by chance.
#pragma once

#include <map>
#include <random>
#include <vector>

#include "vantry/dom/dom_exception.h"
#include "vantry/dom/text.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/document.h"
#include "vantry/plot/element_factory.h"

/// The names of all properties of each element class, found when first asked for.
class PropertyNames {
  using Token = vantry::plot::Token;

 public:
  const std::vector<Token>& of(const vantry::plot::PlotElement& element) {
    const auto [known, isNew] = namesOfClass_.try_emplace(element.tagName());
    if (isNew) {
      for (const Token name : vantry::base::wordTokens) {
        if (name && element.findProperty(name)) known->second.push_back(name);
      }
    }
    return known->second;
  }

 private:
  std::map<Token, std::vector<Token>> namesOfClass_;
};

/// Whether styles come, go and get another type, or just have other values.
enum class StyleChanges { All, ValuesOnly };

/// Changes a document in all the ways that a host may, the same ways for each `seed`.
class RandomChanges {
  using Token = vantry::plot::Token;
  using PlotElement = vantry::plot::PlotElement;

 public:
  RandomChanges(vantry::plot::PlotDocument& document, unsigned seed,
                StyleChanges styleChanges = StyleChanges::All)
      : document_(document), styleChanges_(styleChanges), random_(seed) {}

  /// Does one change, or none where it is refused.
  void changeSomething() {
    try {
      switch (below(9)) {
        case 0:
          return removeSomething();
        case 1:
          return replaceSomething();
        case 2:
          return editText();
        case 3:
          return setAttribute();
        case 4:
          return removeAttribute();
        case 5:
          return setProperty();
        default:
          return insertSomething();
      }
    } catch (const vantry::dom::DomException&) {
      ++refusals_;
    }
  }

  unsigned below(std::size_t bound) { return static_cast<unsigned>(random_() % bound); }

  unsigned refusals() const { return refusals_; }

 private:
  template <class T>
  T oneOf(const std::vector<T>& values) {
    return values[below(values.size())];
  }

  template <class Filter>
  std::vector<vantry::dom::Node*> nodes(Filter filter) {
    std::vector<vantry::dom::Node*> result;
    vantry::dom::walkSubtree<vantry::dom::Node>(*document_.documentElement(),
                                                [&](vantry::dom::Node& node) {
                                                  if (filter(node)) result.push_back(&node);
                                                  return true;
                                                });
    return result;
  }

  PlotElement& someElement() {
    return *PlotElement::from(
        oneOf(nodes([](vantry::dom::Node& node) { return node.asElement(); })));
  }

  /// An element of any class, with an attribute if it takes one.
  vantry::base::Ref<PlotElement> freshElement() {
    static const std::vector<Token> names = vantry::plot::elementNames();
    vantry::base::Ref<PlotElement> element = document_.createElement(oneOf(names));
    const Token property = somePropertyOf(*element);
    if (!property) return element;
    try {
      element->setAttributeFromString(property, someText());
    } catch (const vantry::dom::DomException&) {
      // A text of another type.
    }
    return element;
  }

  /// An element that may be in `parent`, with a descendant or a text if it takes that too; null
  /// if none was met.
  vantry::base::Ref<vantry::dom::Node> freshChildOf(const PlotElement& parent) {
    const vantry::base::Ref<vantry::dom::Node> text = document_.createTextNode("some text");
    if (parent.canReplaceChildren(nullptr, 0, text.get())) return text;
    for (int i = 0; i < 100; ++i) {
      const vantry::base::Ref<PlotElement> child = freshElement();
      if (!mayMove(*child) || !parent.canReplaceChildren(nullptr, 0, child.get())) continue;
      if (below(2) == 0) {
        const vantry::base::Ref<vantry::dom::Node> grandchild = freshChildOf(*child);
        if (grandchild) child->appendChild(grandchild.get());
      }
      return child;
    }
    return nullptr;
  }

  Token somePropertyOf(const PlotElement& element) {
    const std::vector<Token>& names = propertyNames_.of(element);
    const Token name = names.empty() ? Token() : oneOf(names);
    return mayChange(name) ? name : Token();
  }

  bool mayMove(const vantry::dom::Node& node) const {
    const PlotElement* element = PlotElement::from(&node);
    return styleChanges_ == StyleChanges::All || !element || !element->isStyle();
  }
  bool mayChange(Token name) const {
    return styleChanges_ == StyleChanges::All || name != vantry::plot::Word::Type;
  }

  const char* someText() {
    return oneOf<const char*>({"0", "1", "0.25", "12", "#0000ff", "#10203040", "Default", "Curve2d",
                               "Flat", "1 2", "1 2 3", "'sans' 10 Bold"});
  }

  void insertSomething() {
    PlotElement& parent = someElement();
    if (below(4) == 0) {
      moveSomething(parent);
    } else if (const vantry::base::Ref<vantry::dom::Node> child = freshChildOf(parent)) {
      parent.insertBefore(child.get(), parent.childAt(below(4)));
    }
  }

  /// Moves an element, alone, with another one or in a new element.
  void moveSomething(PlotElement& parent) {
    PlotElement& child = someElement();
    if (!mayMove(child) || &child == document_.documentElement()) return;
    vantry::dom::Node* place = parent.childAt(below(4));
    const unsigned way = below(4);
    if (way > 1) {
      parent.insertBefore(&child, place);
    } else if (way == 1) {
      moveInFragment(parent, child);
    } else {
      moveWrapped(parent, child);
    }
  }

  /// Whether `parent` would take the element, and does not leave the document with it.
  static bool fits(const vantry::dom::Node& parent, PlotElement& child) {
    return !vantry::dom::isOrHolds(child, parent) &&
           parent.canReplaceChildren(nullptr, 0, vantry::dom::NewChildren::only(child));
  }

  void moveInFragment(PlotElement& parent, PlotElement& child) {
    PlotElement& other = someElement();
    if (!mayMove(other) || !fits(parent, child) || !fits(parent, other)) return;
    const vantry::base::Ref<vantry::dom::DocumentFragment> fragment =
        document_.createDocumentFragment();
    const vantry::base::Ref<PlotElement> kept[] = {&parent, &other};  // observers may take part
    fragment->appendChild(&child);
    fragment->appendChild(&other);
    if (parent.isInDocument()) parent.appendChild(fragment.get());
  }

  void moveWrapped(PlotElement& parent, PlotElement& child) {
    const vantry::base::Ref<vantry::dom::Node> wrapper = freshChildOf(parent);
    if (!wrapper || vantry::dom::isOrHolds(child, parent) || !fits(*wrapper, child)) return;
    const vantry::base::Ref<PlotElement> kept = &parent;
    wrapper->appendChild(&child);
    if (parent.isInDocument()) parent.appendChild(wrapper.get());
  }

  /// Whether so little is below the node that the drawing can be without it.
  bool mayGo(const vantry::dom::Node& node) const {
    return mayMove(node) && (node.asText() || node.length() < 2);
  }

  void removeSomething() {
    PlotElement& element = someElement();
    const bool isRoot = &element == document_.documentElement();
    if (!isRoot && mayGo(element)) element.parent()->removeChild(&element);
  }

  void replaceSomething() {
    PlotElement& parent = someElement();
    vantry::dom::Node* former = parent.firstChild();
    if (!former || !mayGo(*former)) return;
    const vantry::base::Ref<vantry::dom::Node> child = freshChildOf(parent);
    if (child) parent.replaceChild(child.get(), former);
  }

  /// Replaces one byte by another: an undo gives back as many bytes as were taken. The parts of a
  /// longer letter stay together.
  void editText() {
    const auto texts = nodes([](vantry::dom::Node& node) { return node.nodeValue() != nullptr; });
    if (texts.empty()) return;
    vantry::dom::Text* text = oneOf(texts)->asText();
    const unsigned offset = below(text->length());
    const bool isLetter = static_cast<unsigned char>(text->nodeValue()[offset]) < 0x80;
    if (isLetter) text->replaceData(offset, 1, below(2) == 0 ? "#" : "<");
  }

  void setAttribute() {
    PlotElement& element = someElement();
    const Token name = somePropertyOf(element);
    if (name) element.setAttributeFromString(name, someText());
  }

  void removeAttribute() {
    PlotElement& element = someElement();
    std::vector<Token> names = propertyNames_.of(element);
    std::erase_if(names,
                  [&](Token name) { return !mayChange(name) || !element.hasAttribute(name); });
    if (!names.empty()) element.removeAttribute(oneOf(names));
  }

  /// Gives a property a value that it may inherit already, or that another element has.
  void setProperty() {
    PlotElement& element = someElement();
    const Token name = somePropertyOf(element);
    if (!name) return;
    const PlotElement* source = below(2) == 0 ? element.styleParent(name) : &someElement();
    const bool hasSource = source && source->hasProperty(name);
    element.setPropertyValue(name, hasSource ? source->getPropertyValue(name)
                                             : element.findProperty(name)->defaultVariant());
  }

  vantry::plot::PlotDocument& document_;
  StyleChanges styleChanges_;
  std::mt19937 random_;
  PropertyNames propertyNames_;
  unsigned refusals_ = 0;
};
