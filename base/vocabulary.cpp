#include "vantry/base/vocabulary.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace vantry::base {

namespace {

constexpr std::string_view textOf(int id) { return wordTexts[id]; }

constexpr bool isInOrder() {
  for (int id = 2; id <= wordCount; ++id) {
    if (textOf(id - 1) >= textOf(id)) return false;
  }
  return true;
}
static_assert(isInOrder(), "the words are in the order of their texts");

struct Lengths {
  std::size_t shortest = textOf(1).size();
  std::size_t longest = 0;
};

constexpr Lengths lengths = [] {
  Lengths found;
  for (int id = 1; id <= wordCount; ++id) {
    found.shortest = std::min(found.shortest, textOf(id).size());
    found.longest = std::max(found.longest, textOf(id).size());
  }
  return found;
}();
static_assert(lengths.shortest >= 2, "the hash looks at the last two characters");

// Open addressing in a table of at least twice the size of the vocabulary: nearly every word, and
// nearly every text that is no word, is settled by its first slot.
constexpr std::size_t slotCount = std::bit_ceil(2 * std::size(wordTexts));

// Length and four characters are different enough for most words. The weights are the best of some
// thousand random ones: no word takes more than a few slots to find.
constexpr std::size_t firstSlot(std::string_view text) {
  const std::size_t size = text.size();
  const auto at = [text](std::size_t i) -> std::size_t {
    return static_cast<unsigned char>(text[i]);
  };
  const std::size_t hash =
      size * 1005 + at(0) * 481 + at(size / 2) * 151 + at(size - 2) * 1391 + at(size - 1) * 1285;
  return (hash ^ (hash >> 11)) % slotCount;
}

constexpr auto slots = [] {
  std::array<std::uint16_t, slotCount> table{};
  for (int id = 1; id <= wordCount; ++id) {
    std::size_t slot = firstSlot(textOf(id));
    while (table[slot] != 0) slot = (slot + 1) % slotCount;
    table[slot] = static_cast<std::uint16_t>(id);
  }
  return table;
}();

}  // namespace

WordId findWord(std::string_view text) {
  if (text.size() < lengths.shortest || text.size() > lengths.longest) return WordId::none;
  for (std::size_t slot = firstSlot(text); slots[slot] != 0; slot = (slot + 1) % slotCount) {
    if (textOf(slots[slot]) == text) return static_cast<WordId>(slots[slot]);
  }
  return WordId::none;
}

}  // namespace vantry::base
