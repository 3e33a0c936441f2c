#include "vantry/reader/in_quotes.h"

#include <gtest/gtest.h>

namespace vantry::reader {

namespace {

TEST(InQuotes, AreOnOneLine) {
  EXPECT_EQ(inQuotes(""), "''");
  EXPECT_EQ(inQuotes("red"), "'red'");
  EXPECT_EQ(inQuotes("1\n2\t3\x01\x7f"), "'1 2 3  '");
  EXPECT_EQ(inQuotes("\xc3\xa9"), "'\xc3\xa9'");
}

TEST(InQuotes, CutsALongTextBetweenCharacters) {
  const std::string sixty(60, 'x');
  EXPECT_EQ(inQuotes(sixty), "'" + sixty + "'");
  EXPECT_EQ(inQuotes(sixty + "y"), "'" + sixty + "...'");
  const std::string fiftyNine(59, 'x');
  EXPECT_EQ(inQuotes(fiftyNine + "\xc3\xa9z"), "'" + fiftyNine + "...'");
  EXPECT_EQ(inQuotes(std::string(100, '\x80')), "'...'");
}

}  // namespace

}  // namespace vantry::reader
