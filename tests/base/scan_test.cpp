#include "base/scan.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

using namespace Ubase;

TEST(Scan, ReadsPointsAsTheirTextsSay) {
  std::array<double, 3> p{};
  EXPECT_EQ(scanDoubles(" 1 -2.5\n3e2\t", p), 3);
  EXPECT_EQ(p, (std::array<double, 3>{1, -2.5, 300}));
  EXPECT_EQ(scanDoubles("7 8", p), 2);
  EXPECT_EQ(p, (std::array<double, 3>{7, 8, 300}));
  EXPECT_EQ(scanDoubles("", p), 0);
  EXPECT_EQ(scanDoubles(" \n", p), 0);
  EXPECT_EQ(scanDoubles("#ff0000 1 2", p), 0);
  EXPECT_EQ(scanDoubles("1 2 3 4", p), 3);
}

TEST(Scan, ReadsColoursBehindTheNumbers) {
  std::array<double, 2> p{};
  std::array<ScannedWord, 2> words{};
  EXPECT_EQ(scanPoint("1 2 #ff0000 # 00ff0080", p, words), 4);
  EXPECT_STREQ(words[0].data(), "ff0000");
  EXPECT_STREQ(words[1].data(), "00ff0080");
  EXPECT_EQ(scanPoint("1 2#ff0000", p, words), 3);
  EXPECT_EQ(scanPoint("1 2 ff0000", p, words), 2);
  EXPECT_EQ(scanPoint("1 2 #", p, words), 2);
  EXPECT_EQ(scanPoint("1 2 #0123456789abc #1", p, words), 3);
  EXPECT_STREQ(words[0].data(), "0123456789");
}

TEST(Scan, IgnoresWhatStandsBehindANumber) {
  std::int32_t number = 0;
  EXPECT_TRUE(scanLong(" 12abc", number));
  EXPECT_EQ(number, 12);
  double value = 0;
  EXPECT_TRUE(scanDouble("1.5 x", value));
  EXPECT_EQ(value, 1.5);
  EXPECT_FALSE(scanDouble("abc", value));
  EXPECT_FALSE(scanLong("", number));
}

TEST(Scan, SaturatesLongsAt32Bits) {
  std::int32_t number = 0;
  EXPECT_TRUE(scanLong("2147483648", number));
  EXPECT_EQ(number, INT32_MAX);
  EXPECT_TRUE(scanLong("-99999999999999999999999999", number));
  EXPECT_EQ(number, INT32_MIN);
}

}  // namespace
