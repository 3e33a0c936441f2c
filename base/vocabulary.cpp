#include "base/vocabulary.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Ubase {

namespace {

constexpr std::array<std::string_view, wordCount + 1> texts = {
    std::string_view(),
#define WORD(name, text) std::string_view(text),
#include "base/vocabulary.def"
};

struct Lengths {
  std::size_t shortest = texts[1].size();
  std::size_t longest = 0;
};

constexpr Lengths lengths = [] {
  Lengths found;
  for (std::size_t id = 1; id < texts.size(); ++id) {
    found.shortest = std::min(found.shortest, texts[id].size());
    found.longest = std::max(found.longest, texts[id].size());
  }
  return found;
}();
static_assert(lengths.shortest >= 2, "the hash looks at the last two characters");

// Open addressing in a table four times the size of the vocabulary: nearly every word, and nearly
// every text that is no word, is settled by its first slot.
constexpr std::size_t slotCount = 2048;

// Length and four characters tell the words well enough apart. The weights are the best of some
// thousand random ones: no word takes more than four slots to find.
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
  for (std::size_t id = 1; id < texts.size(); ++id) {
    std::size_t slot = firstSlot(texts[id]);
    while (table[slot] != 0) slot = (slot + 1) % slotCount;
    table[slot] = static_cast<std::uint16_t>(id);
  }
  return table;
}();

}  // namespace

WordId findWord(std::string_view text) {
  if (text.size() < lengths.shortest || text.size() > lengths.longest) return WordId::none;
  for (std::size_t slot = firstSlot(text); slots[slot] != 0; slot = (slot + 1) % slotCount) {
    if (texts[slots[slot]] == text) return static_cast<WordId>(slots[slot]);
  }
  return WordId::none;
}

}  // namespace Ubase
