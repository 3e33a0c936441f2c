// Elements that decide which children may stand below them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

#include "vantry/base/word_table.h"
#include "vantry/plot/framework/element.h"

namespace vantry::plot {

/// An element whose children are told by their names.
class ContentPlotElement : public PlotElement {
 public:
  using PlotElement::PlotElement;

  /// Whether an element of that name may be a plain child, as often as wanted.
  virtual bool isContentName(Token name) const = 0;
  virtual bool isContentChild(const dom::Node& node) const;

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;

 protected:
  ContentPlotElement(const ContentPlotElement&) = default;

  /// Reports a child that is none of the plain children. Always false.
  bool refuseContent(const dom::Node& child) const;
};

/// The option children of a family of classes, each with its bit in the masks.
class OptionTable {
 public:
  struct Option {
    base::WordId name;
    std::uint32_t bit;
  };

  constexpr OptionTable(std::initializer_list<Option> options) {
    for (const Option& option : options) bits_[option.name] = option.bit;
  }

  /// The bit of `name`, 0 for any other name.
  std::uint32_t bit(Token name) const { return bits_[name]; }

 private:
  base::WordTable<std::uint32_t> bits_;
};

/// An element with option children, each of which may stand once, beside the plain ones.
class OptionedPlotElement : public ContentPlotElement {
 public:
  using ContentPlotElement::ContentPlotElement;

  /// The bit of an option child of the family, 0 for any other name.
  virtual std::uint32_t optionBit(Token name) const = 0;
  /// The options that this class may have, out of those of its family.
  virtual std::uint32_t allowedOptions() const = 0;
  virtual std::uint32_t requiredOptions() const { return 0; }

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;
  void doReplaceChildren(dom::Node* first, unsigned count, dom::Node* newChildren) override;
  /// Finds an option child without a look at the others. Should there be two of one name, which no
  /// checked operation lets in, it is the one that came first.
  dom::Node* firstChildByName(Token name) const override;

  /// The options that are present.
  std::uint32_t optionMask() const { return optionMask_; }

 protected:
  OptionedPlotElement(const OptionedPlotElement& other) : ContentPlotElement(other) {}

 private:
  std::uint32_t maskWithout(const dom::Node* first, unsigned count) const;

  std::uint32_t optionMask_ = 0;
  // In the order in which they came; null for the many elements without any.
  std::unique_ptr<std::vector<dom::Node*>> optionChildren_;
};

}  // namespace vantry::plot
