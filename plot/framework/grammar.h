// The grammar of the model: which child an element may have.
#pragma once

#include <cstdint>
#include <span>

#include "vantry/base/word_table.h"

namespace vantry::plot {

/// The names of the children of which `parent` may have any number; empty for one that has none. In
/// a Group3d or Transform3d the type of an object counts too, see isMovable3d().
std::span<const base::Token> contentOf(base::Token parent);

/// The names of the children that `parent` may have once each.
std::span<const base::Token> allowedOptionsOf(base::Token parent);

/// Those of its options without which `parent` may not be.
std::span<const base::Token> requiredOptionsOf(base::Token parent);

/// Whether the content of an element is text.
bool takesText(base::Token element);

/// The grammar of one element, in the form in which children are checked: an option is a bit in a
/// mask. Beside the options of the element there are those of its counterpart in the other
/// dimension, which are refused with a message of their own.
class ChildRules {
 public:
  using Names = std::span<const base::Token>;

  constexpr ChildRules() = default;
  constexpr ChildRules(Names content, Names options, Names required, Names counterpartOptions) {
    for (const base::Token name : content) places_[name] = contentPlace;
    std::uint8_t place = firstOption;
    for (const base::Token name : options) places_[name] = place++;
    for (const base::Token name : options) allowed_ |= optionBit(name);
    for (const base::Token name : required) required_ |= optionBit(name);
    for (const base::Token name : counterpartOptions) {
      if (places_[name] == 0) places_[name] = place++;
    }
  }

  bool isContent(base::Token child) const { return places_[child] == contentPlace; }

  /// The bit of an option of the element or of its counterpart; 0 for any other name.
  constexpr std::uint32_t optionBit(base::Token child) const {
    const std::uint8_t place = places_[child];
    return place < firstOption ? 0 : std::uint32_t{1} << (place - firstOption);
  }

  /// The options that the element may have, and those that it must have.
  std::uint32_t allowedOptions() const { return allowed_; }
  std::uint32_t requiredOptions() const { return required_; }

  /// The name of an option in `mask`, which has one.
  base::Token optionIn(std::uint32_t mask) const;

 private:
  static constexpr std::uint8_t contentPlace = 1;
  static constexpr std::uint8_t firstOption = 2;

  base::WordTable<std::uint8_t> places_;  // 0 for a name that is no child
  std::uint32_t allowed_ = 0;
  std::uint32_t required_ = 0;
};

/// The rules of an element; those of one without children for any other name.
const ChildRules& childRulesOf(base::Token parent);

}  // namespace vantry::plot
