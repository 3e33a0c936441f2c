// A table with a value for each word of the vocabulary.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>

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

/// The place of each row in a table, from 1, by the word that `key` gives of it; 0 for a word
/// without a row. Two rows for a word, or one for none, do not compile.
template <class Rows, class Key>
constexpr WordTable<std::uint8_t> rowNumbers(const Rows& rows, Key key) {
  if (std::size(rows) > std::numeric_limits<std::uint8_t>::max()) throw "too many rows";
  WordTable<std::uint8_t> numbers;
  std::uint8_t number = 0;
  for (const auto& row : rows) {
    std::uint8_t& place = numbers[std::invoke(key, row)];
    if (place != 0) throw "two rows for a word";
    place = ++number;
  }
  if (numbers[WordId::none] != 0) throw "a row without a word";
  return numbers;
}

}  // namespace vantry::base
