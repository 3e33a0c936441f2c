// A table with a value for each word of the vocabulary.
#pragma once

#include <array>
#include <cstddef>

#include "vantry/base/vocabulary.h"

namespace vantry::base {

/// A value for each word, and one more under WordId::none, which is what every token finds that
/// is no word of the vocabulary. All begin as `Value()`. Nothing is searched.
template <class Value>
class WordTable {
 public:
  constexpr Value& operator[](WordId word) { return values_[static_cast<std::size_t>(word)]; }
  constexpr const Value& operator[](WordId word) const {
    return values_[static_cast<std::size_t>(word)];
  }
  constexpr Value& operator[](Token token) { return (*this)[wordOf(token)]; }
  constexpr const Value& operator[](Token token) const { return (*this)[wordOf(token)]; }

 private:
  std::array<Value, wordCount + 1> values_{};
};

}  // namespace vantry::base
