// The search for the styles from which objects, transforms and styles inherit.
#pragma once

#include <vector>

#include "SRC/plot_element.h"

namespace PlotDom {

class ObjStyle;

/// The ObjStyle elements of one container, in document order.
using ObjStyles = std::vector<const ObjStyle*>;

/// The first ObjStyle with the type `key` and a local value of `name`, in the containers around
/// `start`, from the inside out. Null if there is none.
const PlotElement* findObjStyle(const Arbor::Node& start, Token key, Token name);

/// Adds every ObjStyle with the type `key` in the containers around `start`: the nearest level
/// first, in document order within a level.
void collectObjStyles(const Arbor::Node& start, Token key, StyleChain& chain);

/// What an element of the type `key` inherits from: first the styles of that type, then those of
/// the type Default.
const PlotElement* findTypedStyle(const Arbor::Node& start, Token key, Token name);
void collectTypedStyles(const Arbor::Node& start, Token key, StyleChain& chain);

/// The style that a node with the name ObjStyle is.
const ObjStyle* asObjStyle(const Arbor::Node& node);

/// A container in which ObjStyle elements may stand. It keeps a list of them, so that a search is
/// not slowed down by the other children.
template <class Base>
class StyleScope : public Base {
 public:
  using Base::Base;

  const ObjStyles* objStyles() const override { return &styles_; }

  void doReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newChildren) override {
    const bool isAppending = !first;
    const bool concernsStyles = holdsStyle(newChildren) || (count > 0 && holdsStyle(first, count));
    const Arbor::Node* from = concernsStyles && isAppending ? newChildren : nullptr;
    Base::doReplaceChildren(first, count, newChildren);
    if (!concernsStyles) return;
    if (!isAppending) {
      styles_.clear();
      from = this->firstChild();
    }
    listStyles(from);
  }

 protected:
  StyleScope(const StyleScope& other) : Base(other) {}

 private:
  static bool holdsStyle(const Arbor::Node* node, unsigned count = ~0u) {
    for (; node && count > 0; node = node->nextSibling(), --count) {
      if (node->nodeName() == Word::ObjStyle) return true;
    }
    return false;
  }

  void listStyles(const Arbor::Node* node) {
    for (; node; node = node->nextSibling()) {
      if (node->nodeName() == Word::ObjStyle) styles_.push_back(asObjStyle(*node));
    }
  }

  ObjStyles styles_;
};

}  // namespace PlotDom
