// The vocabulary of the ZRD format: its words, numbered from 1, and a token for each.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <type_traits>

#include "vantry/base/token.h"

namespace vantry::base {

/// The number of each word, in alphabetical order from 1; 0 is no word.
enum class WordId : int {
  none = 0,
#define WORD_AS(name, text) name,
#include "vantry/base/vocabulary.def"
  pastLast
};

inline constexpr int wordCount = static_cast<int>(WordId::pastLast) - 1;

/// The room for the text of a word.
inline constexpr std::size_t wordSize = [] {
  std::size_t longest = 0;
  for (const std::size_t size : {
#define WORD_AS(name, text) sizeof(text),
#include "vantry/base/vocabulary.def"
       }) {
    if (size > longest) longest = size;
  }
  return std::bit_ceil(longest);
}();

/// The texts of all words in rows of one size, by number, with an empty one at 0. A token holds the
/// address of its text. So the row gives the number, and tokens of words are in the order of their
/// texts.
inline constexpr char wordTexts[wordCount + 1][wordSize] = {
    "",
#define WORD_AS(name, text) text,
#include "vantry/base/vocabulary.def"
};

/// The token of each word, under the word itself as its name ("true", "false" and "id" are True,
/// False and Id). They are constants and can be used from any static initialiser.
namespace Word {
#define WORD_AS(name, text)           \
  inline constexpr base::Token name = \
      base::Token::ofVocabulary(wordTexts[static_cast<int>(WordId::name)]);
#include "vantry/base/vocabulary.def"
}  // namespace Word

/// The token of a word's number; the null token for 0 and for all numbers above the last.
constexpr Token tokenById(int id) {
  return id > 0 && id <= wordCount ? Token::ofVocabulary(wordTexts[id]) : Token();
}
constexpr Token tokenOf(WordId id) {
  return id == WordId::none ? Token() : Token::ofVocabulary(wordTexts[static_cast<int>(id)]);
}

/// The tokens of all words by number, with the null token at 0.
inline constexpr auto wordTokens = [] {
  std::array<Token, wordCount + 1> tokens;
  for (int id = 0; id <= wordCount; ++id) tokens[static_cast<std::size_t>(id)] = tokenById(id);
  return tokens;
}();

/// The number of the word whose token this is; WordId::none for the null token and for any other
/// text.
constexpr WordId wordOf(Token token) {
  if (std::is_constant_evaluated()) {
    int id = wordCount;
    while (id > 0 && tokenById(id) != token) --id;
    return static_cast<WordId>(id);
  }
  const auto offset =
      reinterpret_cast<std::uintptr_t>(token.str()) - reinterpret_cast<std::uintptr_t>(wordTexts);
  return offset < sizeof wordTexts ? static_cast<WordId>(offset / sizeof wordTexts[0])
                                   : WordId::none;
}

/// The number of the word with exactly this text; WordId::none for any other text.
WordId findWord(std::string_view text);

/// Whether the word is the name of a class of elements.
constexpr bool isElementWord(WordId word) {
  switch (word) {
#define WORD_AS(name, text)
#define ELEMENT(name) case WordId::name:
#include "vantry/base/vocabulary.def"
    return true;
    default:
      return false;
  }
}

/// Whether the word is the name of a property, and so of an attribute.
constexpr bool isAttributeWord(WordId word) {
  switch (word) {
#define WORD_AS(name, text)
#define ATTRIBUTE_AS(name, text) case WordId::name:
#define ELEMENT_AND_ATTRIBUTE(name) case WordId::name:
#include "vantry/base/vocabulary.def"
    return true;
    default:
      return false;
  }
}

}  // namespace vantry::base
