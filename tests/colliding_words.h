// Words that an attacker chooses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

/// Words of sixteen characters to which libstdc++'s std::hash gives one and the same value. It
/// takes eight bytes at a time, and each step can be undone: the second half follows from the
/// first.
inline std::vector<std::string> collidingWords(std::size_t count) {
  constexpr std::uint64_t multiplier = 0xc6a4a7935bd1e995;
  const auto mix = [](std::uint64_t v) { return v ^ (v >> 47); };  // undoes itself
  const std::uint64_t inverse = [] {
    std::uint64_t guess = multiplier;
    for (int i = 0; i < 6; ++i) guess *= 2 - multiplier * guess;
    return guess;
  }();
  const auto isInnocent = [](const std::string& word) {
    for (const char c : word) {
      if (c <= ' ' || c > '~' || std::strchr("<>&'\"", c)) return false;
    }
    return true;
  };

  std::vector<std::string> words;
  for (std::uint64_t number = 0; words.size() < count; ++number) {
    std::string word(16, 'a');
    for (std::size_t i = 0; i < 8; ++i) word[i] = static_cast<char>('a' + (number >> 4 * i) % 16);
    std::uint64_t half = 0;
    std::memcpy(&half, word.data(), 8);
    std::uint64_t state = 0xc70f6907 ^ (word.size() * multiplier);
    state = (state ^ (mix(half * multiplier) * multiplier)) * multiplier;
    half = mix(state * inverse) * inverse;
    std::memcpy(&word[8], &half, 8);
    if (isInnocent(word)) words.push_back(word);
  }
  return words;
}
