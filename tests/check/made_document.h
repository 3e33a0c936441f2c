// Documents that are made by chance.
#pragma once

#include <random>
#include <string>
#include <string_view>

#include "vantry/check/model_facts.h"

/// Writes documents with elements, values and data that may be there, the same ones for each seed.
/// Nearly all of them are right.
class DocumentMaker {
 public:
  /// `mostAttributes` is how many each element may have beside those that it needs.
  explicit DocumentMaker(unsigned seed, int mostAttributes = 100)
      : random_(seed), mostAttributes_(mostAttributes) {}

  std::string make();

  /// A document with one change of its text: a part goes, comes again, becomes something else, or
  /// some bytes come that need not be text.
  std::string withMistake(std::string document);

 private:
  using Token = vantry::base::Token;

  int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }
  bool oneIn(int count) { return below(count) == 0; }
  template <class List>
  auto oneOf(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
  }

  std::string element(const vantry::check::ClassFacts& facts, int depth);
  std::string attributes(const vantry::check::ClassFacts& facts, const std::string& fixed);
  std::string children(const vantry::check::ClassFacts& facts, int depth);
  std::string value(const vantry::check::Property& property);
  std::string number();
  std::string numbers(int count);
  std::string color();
  std::string points(Token name, int count);
  std::string manyPieces();
  std::string list(const vantry::check::ClassFacts& facts);

  std::mt19937 random_;
  int mostAttributes_;
  int elementsLeft_ = 0;
};
