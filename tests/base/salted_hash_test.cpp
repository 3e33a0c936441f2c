#include "vantry/base/salted_hash.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "../colliding_words.h"

namespace vantry::base {

namespace {

TEST(SaltedHash, IsTheSameForTheSameText) {
  const std::string text = "a text of some length";
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const std::string copy = text.substr(0, size);
    EXPECT_EQ(saltedHash({text.data(), size}), saltedHash(copy)) << size;
  }
}

TEST(SaltedHash, DistinguishesTextsThatDifferInOneBitOrByte) {
  std::set<std::size_t> seen;
  std::size_t count = 0;
  for (std::size_t size = 0; size <= 20; ++size) {
    seen.insert(saltedHash(std::string(size, '\0')));
    ++count;
    for (std::size_t bit = 0; bit < 8 * size; ++bit) {
      std::string text(size, '\0');
      text[bit / 8] = static_cast<char>(1 << bit % 8);
      seen.insert(saltedHash(text));
      ++count;
    }
  }
  EXPECT_EQ(seen.size(), count);
}

TEST(SaltedHash, CannotBeForeseen) {
  const std::vector<std::string> words = collidingWords(200);
  std::set<std::size_t> foreseen;
  std::set<std::size_t> salted;
  for (const std::string& word : words) {
    foreseen.insert(std::hash<std::string>()(word));
    salted.insert(saltedHash(word));
  }
  EXPECT_EQ(foreseen.size(), 1U) << "the words are of no use here";
  EXPECT_EQ(salted.size(), words.size());
}

}  // namespace

}  // namespace vantry::base
