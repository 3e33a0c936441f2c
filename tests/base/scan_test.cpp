#include "vantry/base/scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "../locale_guard.h"
#include "samples.h"

namespace {

using namespace vantry::base;

TEST(Scan, ReadsTheNumbersOfAPoint) {
  std::array<double, 3> point{};
  EXPECT_EQ(scanDoubles("1 -2.5 3e2", point), 3);
  EXPECT_EQ(point, (std::array{1.0, -2.5, 300.0}));
  EXPECT_EQ(scanDoubles("\n .5\t\v-.25\f\r5.  ", point), 3);
  EXPECT_EQ(point, (std::array{0.5, -0.25, 5.0}));
  EXPECT_EQ(scanDoubles("+1 0x10 1E-2", point), 3);
  EXPECT_EQ(point, (std::array{1.0, 16.0, 0.01}));
}

TEST(Scan, CountsTheNumbersThatAreThere) {
  std::array<double, 3> point{1, 2, 3};
  EXPECT_EQ(scanDoubles("", point), 0);
  EXPECT_EQ(scanDoubles(" \n", point), 0);
  EXPECT_EQ(scanDoubles("#ff0000 1 2", point), 0);
  EXPECT_EQ(scanDoubles("7 abc 8", point), 1);
  EXPECT_EQ(point, (std::array{7.0, 2.0, 3.0}));
  EXPECT_EQ(scanDoubles("8 9", point), 2);
  EXPECT_EQ(point, (std::array{8.0, 9.0, 3.0}));
  EXPECT_EQ(scanDoubles("1 2 3 4", point), 3);
}

TEST(Scan, ReadsWhatIsNoFiniteNumber) {
  std::array<double, 4> numbers{};
  EXPECT_EQ(scanDoubles("nan -nan inf -Infinity", numbers), 4);
  EXPECT_TRUE(std::isnan(numbers[0]) && !std::signbit(numbers[0]));
  EXPECT_TRUE(std::isnan(numbers[1]) && std::signbit(numbers[1]));
  EXPECT_EQ(numbers[2], std::numeric_limits<double>::infinity());
  EXPECT_EQ(numbers[3], -std::numeric_limits<double>::infinity());
  EXPECT_EQ(scanDoubles("1e400 -1e400 1e-400 4.9e-324", numbers), 4);
  EXPECT_EQ(numbers[0], std::numeric_limits<double>::infinity());
  EXPECT_EQ(numbers[1], -std::numeric_limits<double>::infinity());
  EXPECT_EQ(numbers[2], 0.0);
  EXPECT_EQ(numbers[3], std::numeric_limits<double>::denorm_min());
}

TEST(Scan, GoesOnWhereANumberEnds) {
  std::array<double, 2> numbers{};
  EXPECT_EQ(scanDoubles("1.5.25", numbers), 2);
  EXPECT_EQ(numbers, (std::array{1.5, 0.25}));
  EXPECT_EQ(scanDoubles("1-2", numbers), 2);
  EXPECT_EQ(numbers, (std::array{1.0, -2.0}));
  EXPECT_EQ(scanDoubles("1,5", numbers), 1);
  EXPECT_EQ(numbers[0], 1.0);
}

TEST(Scan, ReadsColoursBehindTheNumbers) {
  std::array<double, 2> point{};
  std::array<ScannedWord, 2> colours{};
  EXPECT_EQ(scanPoint("1 2 #ff0000 # 00ff0080 ", point, colours), 4);
  EXPECT_STREQ(colours[0].data(), "ff0000");
  EXPECT_STREQ(colours[1].data(), "00ff0080");
  EXPECT_EQ(scanPoint("1 2#fF8000", point, colours), 3);
  EXPECT_STREQ(colours[0].data(), "fF8000");
  EXPECT_EQ(scanPoint("1 2 ff0000", point, colours), 2);
  EXPECT_EQ(scanPoint("1 2 #", point, colours), 2);
  EXPECT_EQ(scanPoint("1 #ff0000 2", point, colours), 1);
}

TEST(Scan, CutsColoursAtTenCharacters) {
  std::array<double, 1> number{};
  std::array<ScannedWord, 2> colours{};
  EXPECT_EQ(scanPoint("1 #0123456789abc #1", number, colours), 2);
  EXPECT_STREQ(colours[0].data(), "0123456789");
  EXPECT_EQ(scanPoint("1 #0123456789#1", number, colours), 3);
  EXPECT_STREQ(colours[1].data(), "1");
}

TEST(Scan, IgnoresWhatFollowsANumber) {
  std::int32_t integer = 0;
  EXPECT_TRUE(scanLong(" 12abc", integer));
  EXPECT_EQ(integer, 12);
  EXPECT_TRUE(scanLong("-3.7", integer));
  EXPECT_EQ(integer, -3);
  double number = 0;
  EXPECT_TRUE(scanDouble("1.5 x", number));
  EXPECT_EQ(number, 1.5);
}

TEST(Scan, LeavesTheTargetAloneWithoutANumber) {
  std::int32_t integer = 7;
  double number = 7;
  int plain = 7;
  ScannedWord word{"seven"};
  for (const char* text : {"", "  ", "x1", "-", "#1"}) {
    EXPECT_FALSE(scanLong(text, integer)) << text;
    EXPECT_FALSE(scanDouble(text, number)) << text;
    EXPECT_FALSE(scanInt(text, plain)) << text;
  }
  EXPECT_FALSE(scanWord(" \n", word));
  EXPECT_EQ(integer, 7);
  EXPECT_EQ(number, 7.0);
  EXPECT_EQ(plain, 7);
  EXPECT_STREQ(word.data(), "seven");
}

TEST(Scan, LeavesTheTargetAloneWhereATextOnlyBeginsLikeANumber) {
  for (const char* text : {"0xg", "0x", "-0x"}) {
    std::array<double, 2> numbers{7, 8};
    EXPECT_EQ(scanDoubles(text, numbers), 0) << text;
    EXPECT_EQ(numbers[0], 7) << text;
  }
  std::array<double, 3> numbers{7, 8, 9};
  EXPECT_EQ(scanDoubles("1 2 0xg", numbers), 2);
  EXPECT_EQ(numbers[2], 9);
}

TEST(Scan, SaturatesLongsAt32Bits) {
  std::int32_t number = 0;
  EXPECT_TRUE(scanLong("2147483647", number));
  EXPECT_EQ(number, 2147483647);
  EXPECT_TRUE(scanLong("2147483648", number));
  EXPECT_EQ(number, 2147483647);
  EXPECT_TRUE(scanLong("-2147483649", number));
  EXPECT_EQ(number, std::numeric_limits<std::int32_t>::min());
  EXPECT_TRUE(scanLong("99999999999999999999999999", number));
  EXPECT_EQ(number, 2147483647);
  EXPECT_TRUE(scanLong("-99999999999999999999999999", number));
  EXPECT_EQ(number, std::numeric_limits<std::int32_t>::min());
}

TEST(Scan, CutsWordsAtTenCharacters) {
  ScannedWord word{};
  EXPECT_TRUE(scanWord(" \ttrue false", word));
  EXPECT_STREQ(word.data(), "true");
  EXPECT_TRUE(scanWord("truetruetruetrue", word));
  EXPECT_STREQ(word.data(), "truetruetr");
  EXPECT_TRUE(scanWord("\xC3\xA9t\xC3\xA9 x", word));
  EXPECT_STREQ(word.data(), "\xC3\xA9t\xC3\xA9");
}

TEST(Scan, ReadsIntsAsTheCommandLineHasThem) {
  int number = 0;
  EXPECT_TRUE(scanInt("25", number));
  EXPECT_EQ(number, 25);
  EXPECT_TRUE(scanInt("4294967299", number));
  EXPECT_EQ(number, 3);
  EXPECT_TRUE(scanInt("99999999999999999999", number));
  EXPECT_EQ(number, -1);
  EXPECT_TRUE(scanInt("-99999999999999999999", number));
  EXPECT_EQ(number, 0);
  EXPECT_TRUE(scanInt(" -3x", number));
  EXPECT_EQ(number, -3);
}

TEST(Scan, TakesAShortCutForShortDecimalsAlone) {
  std::array<double, 3> point{};
  EXPECT_TRUE(scanOnlyShortDecimals("1 -2.5 0.001", point));
  EXPECT_EQ(point, (std::array{1.0, -2.5, 0.001}));
  EXPECT_TRUE(scanOnlyShortDecimals("\n\t.5\r\n-.25  5. \n", point));
  EXPECT_EQ(point, (std::array{0.5, -0.25, 5.0}));
  EXPECT_TRUE(scanOnlyShortDecimals("-0 00 9007199254740992", point));
  EXPECT_TRUE(std::signbit(point[0]));
  EXPECT_EQ(point[2], 9007199254740992.0);
  for (const char* text :
       {"", "1 2", "1 2 3 4", "1 2 3x", "1 2 x", "1 2 .", "1 2 -", "1 2 +3", "1 2 3e1", "1 2 nan",
        "1 2 0x3", "1 2 3#", "1,2 3 4", "1 2 9007199254740993", "1 2 0.12345678901234567890"}) {
    EXPECT_FALSE(scanOnlyShortDecimals(text, point)) << text;
  }
}

// Whatever decimal mark a host has chosen, texts have a point.
TEST(Scan, ReadsAPointInEveryLocale) {
  const LocaleGuard guard(LC_NUMERIC);
  for (const char* name : {"C", "C.UTF-8", "de_DE.UTF-8", "de_DE", "fr_FR.UTF-8"}) {
    std::setlocale(LC_NUMERIC, name);  // a locale that is not there changes nothing
    const std::string mark = std::localeconv()->decimal_point;
    std::array<double, 4> numbers{};
    EXPECT_EQ(scanDoubles("1.5 +2.5 0x1.8p1 4.5#", numbers), 4) << name;
    EXPECT_EQ(numbers, (std::array{1.5, 2.5, 3.0, 4.5})) << name;
    EXPECT_EQ(scanDoubles("1,5", numbers), 1) << name;
    EXPECT_EQ(scanDoubles("+1,5", numbers), 1) << name;
    EXPECT_EQ(std::localeconv()->decimal_point, mark) << name;
  }
}

// ---- Comparison with the C library on generated texts ----

// Makes texts of numbers, of words that look like numbers, and of odd bytes.
class TextMaker {
 public:
  explicit TextMaker(unsigned seed) : random_(seed) {}

  std::string text() { return below(3) == 0 ? plainText() : oddText(); }

 private:
  // What nearly all texts of a plot look like.
  std::string plainText() {
    std::string result;
    for (std::size_t words = below(8); words > 0; --words) {
      result += below(2) ? "-" : "";
      result += digits(6) + "." + digits(10) + (words > 1 ? " " : "");
    }
    return result;
  }

  std::string oddText() {
    std::string result;
    const auto append = [&](const std::string& word) {
      if (below(6) != 0) result += pick(spaces);
      result += word;
    };
    for (std::size_t words = below(8); words > 0; --words) append(word());
    for (std::size_t colours = below(3); colours > 0; --colours) append(colour());
    if (below(2) == 0) result += pick(spaces);
    if (below(8) == 0) damage(result);
    return result;
  }

  static constexpr std::string_view spaces[] = {
      " ", " ", " ", " ", "\n", "\t", "\v", "\f", "\r", "  ", " \n ", "\r\n", "\xC2\xA0", "\x85"};
  static constexpr std::string_view oddWords[] = {"1e",
                                                  "1e+",
                                                  "1e-",
                                                  "1E5",
                                                  "1e+5",
                                                  "1e-05",
                                                  "0x",
                                                  "0x1p3",
                                                  "0x1p",
                                                  "0x1.8p+1",
                                                  "0xg",
                                                  "0X1F",
                                                  "-0x1",
                                                  "inf",
                                                  "INF",
                                                  "infx",
                                                  "infi",
                                                  "infinity",
                                                  "infinityx",
                                                  "-inf",
                                                  "nan",
                                                  "NaN",
                                                  "nan(1)",
                                                  "nan(",
                                                  "-nan",
                                                  "+nan",
                                                  "+5",
                                                  "+",
                                                  "-",
                                                  "--1",
                                                  "+-1",
                                                  ".",
                                                  "-.",
                                                  ".5",
                                                  "5.",
                                                  "-.5e1",
                                                  "1.5.2",
                                                  "1,5",
                                                  "1,000.5",
                                                  "1'000",
                                                  "00012",
                                                  "-0",
                                                  "1e400",
                                                  "-1e400",
                                                  "1e-400",
                                                  "4e-324",
                                                  "2e-324",
                                                  "1e-310",
                                                  "1e00000000000000005",
                                                  "9223372036854775807",
                                                  "9223372036854775808",
                                                  "-9223372036854775809",
                                                  "2147483648",
                                                  "0.1e1e1",
                                                  "1_0",
                                                  "1f",
                                                  "1d5",
                                                  "#",
                                                  "#12",
                                                  "#ff8000",
                                                  "#ff800080",
                                                  "#0123456789ab",
                                                  "##1",
                                                  "ff0000",
                                                  "true",
                                                  "falsefalsefalse",
                                                  "e5",
                                                  "x",
                                                  "\xC3\xA9",
                                                  "\xFF",
                                                  "1\xC2\xA0",
                                                  "i",
                                                  "1.7976931348623157e308",
                                                  "1.7976931348623159e308",
                                                  "2.2250738585072011e-308"};
  static constexpr std::string_view oddBytes = "0123456789+-.,eExXpPinfa()# \n\t\v\f\r\x80\xA0\xFF";

  std::size_t below(std::size_t limit) { return random_() % limit; }

  template <class List>
  auto pick(const List& list) -> std::remove_cvref_t<decltype(list[0])> {
    return list[below(std::size(list))];
  }

  std::string digits(std::size_t most) {
    std::string result;
    for (std::size_t count = below(most + 1); count > 0; --count) {
      result += static_cast<char>('0' + below(10));
    }
    return result;
  }

  std::string word() {
    switch (below(8)) {
      case 0:
      case 1:
        return std::string(pick(oddWords));
      case 2:
        return (below(2) ? "-" : "") + digits(11);
      case 3:
        return (below(2) ? "-" : "") + digits(40) + "." + digits(40);
      case 4:
        return exact();
      default:
        return (below(2) ? "-" : "") + digits(3) + "." + digits(17) + exponent();
    }
  }

  std::string colour() {
    std::string result = below(8) ? "#" : "# ";
    for (std::size_t count = below(12); count > 0; --count) result += pick(hexDigits);
    return result;
  }

  // Any double, with all of its digits or more.
  std::string exact() {
    std::array<char, 400> room;
    const int precision = static_cast<int>(below(40));
    std::snprintf(room.data(), room.size(), "%.*e", precision, std::bit_cast<double>(random_()));
    return room.data();
  }

  std::string exponent() {
    if (below(2) == 0) return "";
    return std::string(below(2) ? "e" : "E") + std::string(pick(signs)) + digits(3);
  }

  void damage(std::string& text) {
    for (std::size_t count = below(3); count > 0 && !text.empty(); --count) {
      text[below(text.size())] = pick(oddBytes);
    }
  }

  static constexpr std::string_view signs[] = {"", "+", "-"};
  static constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";

  std::mt19937_64 random_;
};

// What was read: numbers as bits, so that NaNs and zeros differ too.
struct Outcome {
  int items = 0;
  std::array<double, 6> numbers{};
  std::array<ScannedWord, 2> words{};

  bool operator==(const Outcome& other) const {
    using Bits = std::array<std::uint64_t, 6>;
    return items == other.items && words == other.words &&
           std::bit_cast<Bits>(numbers) == std::bit_cast<Bits>(other.numbers);
  }
};

struct PointFormat {
  const char* text;
  std::size_t numbers;
  std::size_t words;
};

Outcome scanByLibrary(const char* text, const PointFormat& format) {
  Outcome result;
  std::array<void*, 8> targets{};
  for (std::size_t i = 0; i < format.numbers; ++i) targets[i] = &result.numbers[i];
  for (std::size_t i = 0; i < format.words; ++i) {
    targets[format.numbers + i] = result.words[i].data();
  }
  result.items =
      std::max(0, std::sscanf(text, format.text, targets[0], targets[1], targets[2], targets[3],
                              targets[4], targets[5], targets[6], targets[7]));
  return result;
}

Outcome scanByScanPoint(const char* text, const PointFormat& format) {
  Outcome result;
  result.items = scanPoint(text, std::span(result.numbers).first(format.numbers),
                           std::span(result.words).first(format.words));
  return result;
}

/// The library that is compared with has the decimal mark of its locale.
class ScanComparison : public testing::TestWithParam<PointFormat> {
  LocaleGuard numbers_{LC_NUMERIC, "C"};
};

TEST_P(ScanComparison, ReadsGeneratedTextsAsTheLibrary) {
  const PointFormat format = GetParam();
  TextMaker maker(static_cast<unsigned>(10 * format.numbers + format.words));
  for (long i = samples(200'000); i > 0; --i) {
    const std::string text = maker.text();
    const Outcome expected = scanByLibrary(text.c_str(), format);
    const Outcome actual = scanByScanPoint(text.c_str(), format);
    ASSERT_TRUE(expected == actual)
        << "'" << text << "' has " << expected.items << " items, not " << actual.items;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Points, ScanComparison,
    testing::Values(PointFormat{" %lf ", 1, 0}, PointFormat{" %lf %lf ", 2, 0},
                    PointFormat{" %lf %lf %lf ", 3, 0},
                    PointFormat{" %lf %lf %lf %lf %lf %lf ", 6, 0},
                    PointFormat{" %lf %lf #%10s ", 2, 1}, PointFormat{" %lf %lf %lf #%10s ", 3, 1},
                    PointFormat{" %lf %lf %lf #%10s #%10s ", 3, 2},
                    PointFormat{" %lf %lf %lf %lf %lf %lf #%10s ", 6, 1},
                    PointFormat{" %lf %lf %lf %lf %lf %lf #%10s #%10s ", 6, 2}));

TEST(ScanOfShortDecimals, ReadsGeneratedTextsAsTheLibraryOrNotAtAll) {
  const LocaleGuard numbers(LC_NUMERIC, "C");
  const PointFormat format{" %lf %lf ", 2, 0};
  TextMaker maker(99);
  long taken = 0;
  for (long i = samples(200'000); i > 0; --i) {
    const std::string text = maker.text();
    Outcome actual{2, {}, {}};
    if (!scanOnlyShortDecimals(text.c_str(), std::span(actual.numbers).first(2))) continue;
    ++taken;
    ASSERT_TRUE(scanByLibrary(text.c_str(), format) == actual) << text;
    std::array<char, 2> rest{};
    ASSERT_EQ(std::sscanf(text.c_str(), " %*f %*f %1s", rest.data()), EOF) << text;
  }
  EXPECT_GT(taken, samples(5'000));
}

TEST(ScanOfOneItem, ReadsGeneratedWordsAsTheLibrary) {
  TextMaker maker(100);
  for (long i = samples(200'000); i > 0; --i) {
    const std::string text = maker.text();
    ScannedWord expected{};
    ScannedWord actual{};
    const int items = std::sscanf(text.c_str(), " %10s ", expected.data());
    ASSERT_EQ(items == 1, scanWord(text.c_str(), actual)) << text;
    ASSERT_STREQ(expected.data(), actual.data()) << text;
  }
}

TEST(ScanOfOneItem, ReadsGeneratedIntegersAsTheLibrary) {
  constexpr long lowest = std::numeric_limits<std::int32_t>::min();
  constexpr long highest = std::numeric_limits<std::int32_t>::max();
  TextMaker maker(101);
  for (long i = samples(200'000); i > 0; --i) {
    const std::string text = maker.text();
    long expected = 0;
    std::int32_t actual = 0;
    const int items = std::sscanf(text.c_str(), " %ld ", &expected);
    ASSERT_EQ(items == 1, scanLong(text.c_str(), actual)) << text;
    ASSERT_EQ(std::clamp(expected, lowest, highest), actual) << text;
  }
}

}  // namespace
