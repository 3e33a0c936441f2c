// Elements whose content is text.
#pragma once

#include "SRC/plot_element.h"

namespace PlotDom {

/// The rule of an element with text: the first new child must be a text node, which is all that is
/// looked at. Reports a refusal.
bool acceptsOnlyText(const PlotElement& element, const Arbor::Node* newChildren);

/// An element with text children.
class PCDataElement : public PlotElement {
 public:
  using PlotElement::PlotElement;

  bool canReplaceChildren(Arbor::Node* first, unsigned count,
                          Arbor::Node* newChildren) const override;

  /// Whether there is no text; with `allowWhiteSpace` also whether there are only characters up to
  /// the blank. A child that is no text makes it false.
  bool isBlank(bool allowWhiteSpace) const;

 protected:
  PCDataElement(const PCDataElement&) = default;
};

/// A text for people.
class StringElement : public PCDataElement {
 public:
  using PCDataElement::PCDataElement;

 protected:
  StringElement(const StringElement&) = default;
};

}  // namespace PlotDom
