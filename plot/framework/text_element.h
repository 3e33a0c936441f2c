// Elements whose content is text.
#pragma once

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

/// The rule of an element with text: the first new child must be a text node, which is all that is
/// looked at. Reports a refusal.
bool acceptsOnlyText(const PlotElement& element, dom::NewChildren newChildren);

/// An element with text children.
class TextElement : public PlotElement {
 public:
  using PlotElement::PlotElement;

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;

  /// Whether there is no text; with `allowWhiteSpace` also whether there are only characters up to
  /// the blank. A child that is no text makes it false.
  bool isBlank(bool allowWhiteSpace) const;

  /// Writes the text unchanged, or "NIL" if it is blank.
  void putText(std::ostream& out) const;
  /// Writes the item `name=(text)`, or `name=NIL`.
  void putNamed(CmdWriter& writer, Token name) const;

 protected:
  TextElement(const TextElement&) = default;
};

/// A text for people.
class StringElement : public TextElement {
 public:
  using TextElement::TextElement;

  /// Writes the text in double quotes.
  void printQuoted(CmdWriter& writer) const;
  bool beginCommand(CmdWriter& writer) const override;

 protected:
  StringElement(const StringElement&) = default;
};

}  // namespace vantry::plot
