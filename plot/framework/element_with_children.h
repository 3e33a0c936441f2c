// Elements that decide which children they take.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "vantry/plot/framework/element.h"
#include "vantry/plot/framework/grammar.h"

namespace vantry::plot {

/// The rules for the children of an element, by its class.
inline const ChildRules& childRulesOf(const PlotElement& element) {
  return childRulesOf(element.nodeClass()->name);
}

/// Whether the grammar has each of the children below `parent`. Reports nothing.
bool isContentOf(const PlotElement& parent, dom::NewChildren children);

/// An element whose children are of certain names, as the grammar has them.
class ElementWithChildren : public PlotElement {
 public:
  using PlotElement::PlotElement;

  /// Whether a node may be a plain child, of which there may be any number.
  virtual bool isContentChild(const dom::Node& node) const;

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;

 protected:
  ElementWithChildren(const ElementWithChildren&) = default;

  /// Reports a child that is none of the plain children. Always false.
  bool refuseContent(const dom::Node& child) const;
};

/// An element with option children, of each of which there may be one, beside the plain ones.
class ElementWithOptions : public ElementWithChildren {
 public:
  using ElementWithChildren::ElementWithChildren;

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;
  void doReplaceChildren(dom::Node* first, unsigned count, dom::Node* newChildren) override;
  /// Finds an option child without a look at the others. Should there be two of one name, which no
  /// checked operation lets in, it is the one that came first.
  dom::Node* firstChildByName(Token name) const override;

  /// Whether the option is present.
  bool hasOption(Token name) const;

 protected:
  ElementWithOptions(const ElementWithOptions& other) : ElementWithChildren(other) {}

 private:
  std::uint32_t maskWithout(const dom::Node* first, unsigned count) const;

  std::uint32_t optionMask_ = 0;
  // In the order in which they came; null for the many elements without any.
  std::unique_ptr<std::vector<dom::Node*>> optionChildren_;
};

}  // namespace vantry::plot
