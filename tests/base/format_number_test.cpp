#include "vantry/base/format_number.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <utility>

#include "../locale_guard.h"
#include "samples.h"

namespace {

using vantry::base::formatDouble;
using vantry::base::formatInteger;

template <class Format, class Number>
std::string textOf(Format format, Number number) {
  std::array<char, vantry::base::numberRoom> room;
  return std::string(room.data(), format(room.data(), number));
}

std::string text(double number) { return textOf(formatDouble, number); }

std::string integerText(std::int64_t number) {
  return textOf([](char* out, std::int64_t n) { return formatInteger(out, n); }, number);
}

std::string integerText(std::uint64_t number) {
  return textOf([](char* out, std::uint64_t n) { return formatInteger(out, n); }, number);
}

double decimal(std::string digits, int exponent) {
  digits += 'e';
  digits += std::to_string(exponent);
  return std::strtod(digits.c_str(), nullptr);
}

// Compares with the C library, which is the slow part: hence no std::string on the way.
/// The library that is compared with has the decimal mark of its locale.
class FormatDouble : public testing::Test {
  LocaleGuard numbers_{LC_NUMERIC, "C"};
};

void expectAsPrintf(double number) {
  std::array<char, 40> expected;
  std::array<char, 40> actual;
  const int length = std::snprintf(expected.data(), expected.size(), "%g", number);
  *formatDouble(actual.data(), number) = '\0';
  const std::size_t compared = static_cast<std::size_t>(length) + 1;
  if (std::memcmp(expected.data(), actual.data(), compared) != 0) {
    ADD_FAILURE() << std::hexfloat << number << " is " << expected.data() << ", not "
                  << actual.data();
  }
}

void expectAsPrintfWithNeighbours(double number) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double x : {number, -number}) {
    expectAsPrintf(x);
    expectAsPrintf(std::nextafter(x, infinity));
    expectAsPrintf(std::nextafter(x, -infinity));
  }
}

TEST_F(FormatDouble, KeepsSixSignificantDigits) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0"},
      {-0.0, "-0"},
      {1.0, "1"},
      {-1.0, "-1"},
      {0.5, "0.5"},
      {1.0 / 3, "0.333333"},
      {2.0 / 3, "0.666667"},
      {3.14159265358979, "3.14159"},
      {-12.3456789, "-12.3457"},
      {100.0, "100"},
      {100.25, "100.25"},
      {123456.0, "123456"},
      {123456.7, "123457"},
      {1234567.0, "1.23457e+06"},
      {1e6, "1e+06"},
      {1e10, "1e+10"},
      {1.5e100, "1.5e+100"},
      {0.0001, "0.0001"},
      {0.00012345678, "0.000123457"},
      {0.00001, "1e-05"},
      {0.0000999999, "9.99999e-05"},
      {-2.5e-300, "-2.5e-300"},
      {1.7976931348623157e308, "1.79769e+308"},
      {2.2250738585072014e-308, "2.22507e-308"},
      {4.9406564584124654e-324, "4.94066e-324"},
  };
  for (const auto& [number, expected] : cases) EXPECT_EQ(text(number), expected);
}

TEST_F(FormatDouble, RoundsUpIntoAnotherDigit) {
  EXPECT_EQ(text(999999.4), "999999");
  EXPECT_EQ(text(999999.6), "1e+06");
  EXPECT_EQ(text(99999.96), "100000");
  EXPECT_EQ(text(9.9999996), "10");
  EXPECT_EQ(text(0.99999996), "1");
  EXPECT_EQ(text(0.000099999996), "0.0001");
  EXPECT_EQ(text(9.9999996e99), "1e+100");
}

TEST_F(FormatDouble, TakesTheEvenDigitHalfWay) {
  EXPECT_EQ(text(100000.5), "100000");
  EXPECT_EQ(text(100001.5), "100002");
  EXPECT_EQ(text(999999.5), "1e+06");
  EXPECT_EQ(text(1.000005e6), "1e+06");
  EXPECT_EQ(text(1.000015e6), "1.00002e+06");
  EXPECT_EQ(text(0.5000005), "0.5");  // a little below half way, as a double
  EXPECT_EQ(text(0.00012207031250), "0.00012207");
  EXPECT_EQ(text(2097152.5), "2.09715e+06");
  EXPECT_EQ(text(1.000005e20), "1e+20");
  EXPECT_EQ(text(1.000015e20), "1.00002e+20");
}

TEST_F(FormatDouble, NamesWhatIsNoNumber) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(text(nan), "nan");
  EXPECT_EQ(text(std::copysign(nan, -1.0)), "-nan");
  EXPECT_EQ(text(std::numeric_limits<double>::signaling_NaN()), "nan");
  EXPECT_EQ(text(infinity), "inf");
  EXPECT_EQ(text(-infinity), "-inf");
}

// ---- Comparison with printf; VANTRY_SAMPLES=400 makes it more than 160 million numbers ----

TEST_F(FormatDouble, WritesAnyBitsAsPrintf) {
  std::mt19937_64 random(1);
  for (long i = samples(100'000); i > 0; --i) expectAsPrintf(std::bit_cast<double>(random()));
}

TEST_F(FormatDouble, WritesPlotCoordinatesAsPrintf) {
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  std::uniform_int_distribution<int> magnitude(-7, 7);
  for (long i = samples(60'000); i > 0; --i) {
    expectAsPrintf(mantissa(random) * std::pow(10.0, magnitude(random)));
  }
}

TEST_F(FormatDouble, WritesShortDecimalsAsPrintf) {
  std::mt19937_64 random(3);
  std::uniform_int_distribution<int> digits(-9'999'999, 9'999'999);
  std::uniform_int_distribution<int> places(0, 12);
  for (long i = samples(60'000); i > 0; --i) {
    expectAsPrintf(digits(random) / std::pow(10.0, places(random)));
  }
}

// n + 1/2 with six digits in front, scaled by powers of ten while it stays exact, is half way
// between two texts.
TEST_F(FormatDouble, WritesHalfWaysAsPrintf) {
  std::mt19937_64 random(4);
  std::uniform_int_distribution<int> sixDigits(100'000, 999'999);
  std::uniform_int_distribution<int> scale(0, 15);
  std::uniform_int_distribution<int> fraction(1, 40);
  for (long i = samples(6'000); i > 0; --i) {
    const double halfWay = sixDigits(random) + 0.5;
    expectAsPrintfWithNeighbours(halfWay * std::pow(10.0, scale(random)));
    expectAsPrintfWithNeighbours(halfWay / std::pow(10.0, scale(random)));
    const std::uint64_t bits = random() & ((std::uint64_t{1} << 53) - 1);
    expectAsPrintfWithNeighbours(std::ldexp(static_cast<double>(bits | 1), -fraction(random)));
  }
}

TEST_F(FormatDouble, WritesSubnormalsAsPrintf) {
  std::mt19937_64 random(5);
  for (long i = samples(30'000); i > 0; --i) {
    const std::uint64_t bits = random() >> (12 + random() % 52);
    expectAsPrintf(std::bit_cast<double>(bits));
  }
}

TEST_F(FormatDouble, WritesPowersOfTenAndTheirNeighboursAsPrintf) {
  for (int exponent = -324; exponent <= 308; ++exponent) {
    const double power = decimal("1", exponent);
    double below = power;
    double above = power;
    for (int i = 0; i < 20; ++i) {
      expectAsPrintfWithNeighbours(below);
      expectAsPrintfWithNeighbours(above);
      below = std::nextafter(below, 0.0);
      above = std::nextafter(above, 2 * above);
    }
    for (const char* digits :
         {"9.999995", "9.9999949999999999", "9.9999950000000001", "1.000005"}) {
      expectAsPrintfWithNeighbours(decimal(digits, exponent));
    }
  }
}

TEST_F(FormatDouble, WritesPowersOfTwoAndTheirNeighboursAsPrintf) {
  for (int exponent = -1074; exponent <= 1023; ++exponent) {
    expectAsPrintfWithNeighbours(std::ldexp(1.0, exponent));
  }
}

// Seven digits that end in 5 are half way as decimals; the double next to them hardly ever is.
TEST_F(FormatDouble, WritesAlmostHalfWaysAsPrintf) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<int> sixDigits(100'000, 999'999);
  std::uniform_int_distribution<int> exponent(-330, 302);
  for (long i = samples(10'000); i > 0; --i) {
    const std::string digits = std::to_string(sixDigits(random)) + '5';
    expectAsPrintfWithNeighbours(decimal(digits, exponent(random)));
  }
}

// The closest that a double times a power of ten comes to half way without being there: less than
// 2^-60 of the sixth digit away from it.
TEST_F(FormatDouble, WritesTheNarrowestCasesAsPrintf) {
  for (const double number :
       {1.263005e+125, 1.263005e+126, 2.920845e+234, 3.789015e+125, 2.052025e+45, 9.088115e+112,
        9.088115e+113, 9.088115e+114, 1.448835e-173, 1.792115e+279, 1.049505e-06, 4.463855e-208,
        2.706245e+146, 2.706245e+147, 6.017295e-292, 6.193195e+107, 6.193195e+108, 6.193195e+109}) {
    expectAsPrintfWithNeighbours(number);
  }
}

TEST(FormatInteger, WritesAllDigits) {
  EXPECT_EQ(integerText(std::int64_t{0}), "0");
  EXPECT_EQ(integerText(std::int64_t{7}), "7");
  EXPECT_EQ(integerText(std::int64_t{-7}), "-7");
  EXPECT_EQ(integerText(std::int64_t{10}), "10");
  EXPECT_EQ(integerText(std::int64_t{-12345}), "-12345");
  EXPECT_EQ(integerText(std::int64_t{99'999'999}), "99999999");
  EXPECT_EQ(integerText(std::int64_t{100'000'000}), "100000000");
  EXPECT_EQ(integerText(std::int64_t{1'000'000'000'000'000}), "1000000000000000");
  EXPECT_EQ(integerText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(integerText(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
  EXPECT_EQ(integerText(std::uint64_t{0}), "0");
  EXPECT_EQ(integerText(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

TEST(FormatInteger, WritesAnyNumberAsTheLibrary) {
  std::mt19937_64 random(6);
  for (long i = samples(100'000); i > 0; --i) {
    const std::uint64_t number = random() >> (random() % 64);
    const auto negative = -static_cast<std::int64_t>(number >> 1);
    ASSERT_EQ(integerText(number), std::to_string(number));
    ASSERT_EQ(integerText(negative), std::to_string(negative));
  }
}

TEST(FormatInteger, WritesPowersOfTenAndTheirNeighbours) {
  std::uint64_t power = 1;
  for (int digits = 1; digits < 20; ++digits, power *= 10) {
    for (const std::uint64_t number : {power - 1, power, power + 1}) {
      EXPECT_EQ(integerText(number), std::to_string(number));
    }
  }
}

}  // namespace
