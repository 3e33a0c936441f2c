#include "vantry/page/packed_text.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <stdexcept>
#include <string>

#include "read_page.h"

namespace vantry::page {

namespace {

std::string packed(const std::string& text) {
  std::ostringstream out;
  writePacked(out, [&text](std::ostream& stream) { stream << text; });
  return out.str();
}

/// A text that cannot be made smaller.
std::string noise(std::size_t size) {
  std::mt19937 random(1);
  std::string text(size, '\0');
  for (char& letter : text) letter = static_cast<char>(random() & 255);
  return text;
}

TEST(PackedTextTest, ComesOutAsItWentIn) {
  for (const std::string& text : {std::string(), std::string("a"), std::string("ab"),
                                  std::string("abc"), std::string(1, '\0'), noise(1'000'000)}) {
    EXPECT_TRUE(unpacked(packed(text)) == text) << text.size();
  }
}

/// The faces of a surface of n by n cells.
std::string mesh(int n) {
  std::ostringstream text;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const int at = i * (n + 1) + j;
      text << "<f>" << at << ' ' << at + 1 << ' ' << at + n + 2 << ' ' << at + n + 1 << "</f>\n";
    }
  }
  return text.str();
}

TEST(PackedTextTest, HoldsTheIndicesOfAMeshInAHundredth) {
  const std::string text = mesh(200);
  const std::string page = packed(text);
  EXPECT_LT(page.size() * 100, text.size());
  EXPECT_TRUE(unpacked(page) == text);
}

// Around the size of the block that is held back.
TEST(PackedTextTest, EndsAnywhere) {
  for (std::size_t size = 49'100; size < 49'160; ++size) {
    EXPECT_TRUE(unpacked(packed(noise(size))) == noise(size)) << size;
  }
}

TEST(PackedTextTest, IsSmall) { EXPECT_LT(packed(std::string(1'000'000, 'a')).size(), 3000U); }

TEST(PackedTextTest, TakesLettersOneByOne) {
  std::ostringstream out;
  writePacked(out, [](std::ostream& stream) {
    for (const char letter : std::string("letters")) stream.put(letter);
  });
  EXPECT_EQ(unpacked(out.str()), "letters");
}

TEST(PackedTextTest, LetsErrorsPass) {
  std::ostringstream out;
  EXPECT_THROW(writePacked(out, [](std::ostream&) { throw std::runtime_error("no text"); }),
               std::runtime_error);
}

}  // namespace

}  // namespace vantry::page
