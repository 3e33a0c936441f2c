// Elements that decide which children may stand below them.
#pragma once

#include <cstdint>
#include <span>

#include "SRC/plot_element.h"

namespace PlotDom {

/// An element whose children are told by their names.
class ContentPlotElement : public PlotElement {
 public:
  using PlotElement::PlotElement;

  /// Whether an element of that name may be a plain child, as often as wanted.
  virtual bool isContentName(Token name) const = 0;
  virtual bool isContentChild(const Arbor::Node& node) const;

  bool canReplaceChildren(Arbor::Node* first, unsigned count,
                          Arbor::Node* newChildren) const override;

 protected:
  ContentPlotElement(const ContentPlotElement&) = default;

  /// Reports a child that is none of the plain children. Always false.
  bool refuseContent(const Arbor::Node& child) const;
};

/// An option child and its bit in the mask of a family of classes.
struct OptionBit {
  Token name;
  std::uint32_t bit;
};

/// The bit of `name` in a table of options, 0 for any other name.
std::uint32_t bitIn(std::span<const OptionBit> table, Token name);

/// An element with option children, each of which may stand once, beside the plain ones.
class OptionedPlotElement : public ContentPlotElement {
 public:
  using ContentPlotElement::ContentPlotElement;

  /// The bit of an option child of the family, 0 for any other name.
  virtual std::uint32_t optionBit(Token name) const = 0;
  /// The options that this class may have, out of those of its family.
  virtual std::uint32_t allowedOptions() const = 0;
  virtual std::uint32_t requiredOptions() const { return 0; }

  bool canReplaceChildren(Arbor::Node* first, unsigned count,
                          Arbor::Node* newChildren) const override;
  void doReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newChildren) override;

  /// The options that are present.
  std::uint32_t optionMask() const { return optionMask_; }

 protected:
  OptionedPlotElement(const OptionedPlotElement& other) : ContentPlotElement(other) {}

 private:
  std::uint32_t maskWithout(const Arbor::Node* first, unsigned count) const;

  std::uint32_t optionMask_ = 0;
};

}  // namespace PlotDom
