#include "base/vocabulary.h"

#include <array>
#include <cstdint>

namespace Ubase {

namespace {

constexpr std::array<std::string_view, wordCount + 1> texts = {
    std::string_view(),
#define WORD(name, text) std::string_view(text),
#include "base/vocabulary.def"
};

// Open addressing in a table four times the size of the vocabulary: nearly every word, and nearly
// every text that is no word, is settled by its first slot.
constexpr std::size_t slotCount = 2048;

constexpr std::size_t firstSlot(std::string_view text) {
  std::uint32_t hash = 2166136261u;  // FNV-1a
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  return (hash ^ (hash >> 15)) % slotCount;
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

constexpr std::size_t shortestWord = 2;
constexpr std::size_t longestWord = 25;

}  // namespace

WordId findWord(std::string_view text) {
  if (text.size() < shortestWord || text.size() > longestWord) return WordId::none;
  for (std::size_t slot = firstSlot(text); slots[slot] != 0; slot = (slot + 1) % slotCount) {
    if (texts[slots[slot]] == text) return static_cast<WordId>(slots[slot]);
  }
  return WordId::none;
}

}  // namespace Ubase
