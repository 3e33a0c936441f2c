// The vocabulary of the ZRD format: 528 words with the numbers 1 to 528, and a token for each.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "vantry/base/token.h"

namespace vantry::base {

/// The number of each word, in alphabetical order from 1; 0 stands for no word.
enum class WordId : int {
  none = 0,
#define WORD(name, text) name,
#include "vantry/base/vocabulary.def"
  pastLast
};

inline constexpr int wordCount = static_cast<int>(WordId::pastLast) - 1;

/// The texts of all words in rows of one size, by number, with an empty one at 0. A token holds the
/// address of its text, so its row tells its number, and tokens of words stand in the order of
/// their texts.
inline constexpr char wordTexts[wordCount + 1][32] = {
    "",
#define WORD(name, text) text,
#include "vantry/base/vocabulary.def"
};

/// The token of each word, under the word itself as its name ("true", "false" and "id" are True,
/// False and Id). They are constants and can be used from any static initialiser.
namespace Word {
#define WORD(name, text)              \
  inline constexpr base::Token name = \
      base::Token::ofVocabulary(wordTexts[static_cast<int>(WordId::name)]);
#include "vantry/base/vocabulary.def"
}  // namespace Word

/// The token of a word's number; the null token for 0 and for all numbers above 528.
constexpr Token tokenById(int id) {
  return id > 0 && id <= wordCount ? Token::ofVocabulary(wordTexts[id]) : Token();
}
constexpr Token tokenOf(WordId id) { return tokenById(static_cast<int>(id)); }

/// The tokens of all words by number, with the null token at 0.
inline constexpr auto wordTokens = [] {
  std::array<Token, wordCount + 1> tokens;
  for (int id = 0; id <= wordCount; ++id) tokens[static_cast<std::size_t>(id)] = tokenById(id);
  return tokens;
}();

/// The number of the word that the token stands for; WordId::none for the null token and for any
/// other text.
inline WordId wordOf(Token token) {
  const auto offset =
      reinterpret_cast<std::uintptr_t>(token.str()) - reinterpret_cast<std::uintptr_t>(wordTexts);
  return offset < sizeof wordTexts ? static_cast<WordId>(offset / sizeof wordTexts[0])
                                   : WordId::none;
}

/// The number of the word with exactly this text; WordId::none for any other text.
WordId findWord(std::string_view text);

}  // namespace vantry::base
