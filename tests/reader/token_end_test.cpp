#include "vantry/reader/token_end.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace vantry::reader {

namespace {

/// How many bytes of the text the token is found to need, where it comes byte by byte behind the
/// first `begin` bytes; 0 if it does not end.
std::size_t sizeOfToken(std::string_view text, std::size_t begin) {
  TokenEnd end(text.substr(0, begin));
  std::size_t size = 0;
  for (std::size_t at = begin; at < text.size(); ++at) {
    if (!end.isIn(text.substr(at, 1))) continue;
    EXPECT_EQ(size, 0U) << "a second time";
    size = at + 1;
  }
  return size;
}

TEST(TokenEnd, IsThatOfTheKindOfToken) {
  const struct {
    std::size_t begin;
    const char* token;
  } rows[] = {{1, "<a b='>' c=\"'>\" d=''>"},
              {1, "</abc>"},
              {4, "<!-- it's a -> b - -> \" -->"},
              {4, "<!--->-->"},
              {2, "<?p it's ? > \" ?>"},
              {2, "<!ENTITY "},
              {1, "&name;"},
              {1, "%name;"},
              {1, "%name "},
              {1, "#IMPLIED "},
              {1, "name'"},
              {1, "'a \"b\" >' "},
              {1, "\"a 'b' >\"x"},
              {1, " \r\n\t<"}};
  for (const auto& [begin, token] : rows) {
    const std::string text = std::string(token) + " -->?>\"'> ;x";
    for (std::size_t first = begin; first < std::string_view(token).size(); ++first) {
      EXPECT_EQ(sizeOfToken(text, first), std::string_view(token).size())
          << token << " of which " << first << " bytes have come";
    }
  }
}

TEST(TokenEnd, IsFoundInBlocks) {
  TokenEnd comment("<!-- a");
  EXPECT_FALSE(comment.isIn(""));
  EXPECT_FALSE(comment.isIn("b -"));
  EXPECT_FALSE(comment.isIn("-"));
  EXPECT_TRUE(comment.isIn("> <!-- "));
  EXPECT_FALSE(comment.isIn("-->"));
  TokenEnd tag("<a b='");
  EXPECT_FALSE(tag.isIn("> \" >"));
  EXPECT_FALSE(tag.isIn("' c=\""));
  EXPECT_TRUE(tag.isIn("'\" > <"));
}

}  // namespace

}  // namespace vantry::reader
