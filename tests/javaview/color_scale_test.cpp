#include "vantry/javaview/color_scale.h"

#include <gtest/gtest.h>

#include <limits>

#include "vantry/plot/values/variants.h"

namespace vantry::javaview {

using namespace plot;

namespace {

/// What `value` becomes, between 0 for `color2` and 1 for `color1`.
RGBA mapped(Token type, RGBA color1, RGBA color2, double value) {
  return ColorScale(type, color1, color2, {0, 1}).colorOf(value);
}

constexpr RGBA green{0, 255, 0};
constexpr RGBA cyan{0, 255, 255};
constexpr RGBA magenta{255, 0, 255};

RGBA monochrome(RGBA color, double value) { return mapped(Word::Monochrome, color, white, value); }

RGBA rainbow(RGBA color1, RGBA color2, double value) {
  return mapped(Word::Rainbow, color1, color2, value);
}

}  // namespace

TEST(ColorScaleTest, IsConstantBetweenEqualBounds) {
  const auto between = [](double min, double max) {
    return ColorScale(Word::Rainbow, RGBA(1, 2, 3), red, {min, max}).colorOf(0.5);
  };
  EXPECT_EQ(between(0, 0), RGBA(1, 2, 3));
  EXPECT_EQ(between(0, 2.2e-16), RGBA(1, 2, 3));
  EXPECT_NE(between(0, 2.220446049250313e-16), RGBA(1, 2, 3));
  EXPECT_EQ(between(nan, 1), RGBA(0, 0, 0));
}

TEST(ColorScaleTest, DimsOneColor) {
  const RGBA color(200, 100, 1);
  EXPECT_EQ(monochrome(color, 1), RGBA(200, 100, 1));
  EXPECT_EQ(monochrome(color, 0), RGBA(0, 0, 0));
  EXPECT_EQ(monochrome(color, 0.5), RGBA(100, 50, 1));
  EXPECT_EQ(monochrome(color, 0.25), RGBA(50, 25, 0));
}

TEST(ColorScaleTest, MixesTwoColors) {
  const auto mix = [](double value) {
    return mapped(Word::Dichromatic, RGBA(200, 0, 255), RGBA(100, 255, 0), value);
  };
  EXPECT_EQ(mix(1), RGBA(200, 0, 255));
  EXPECT_EQ(mix(0), RGBA(100, 255, 0));
  EXPECT_EQ(mix(0.25), RGBA(125, 191, 64));
}

TEST(ColorScaleTest, MapsMinToTheSecondColorAndMaxToTheFirst) {
  const ColorScale scale(Word::Dichromatic, red, blue, {-10, 30});
  EXPECT_EQ(scale.colorOf(-10), blue);
  EXPECT_EQ(scale.colorOf(30), red);
}

TEST(ColorScaleTest, WrapsWhatIsOutOfRange) {
  EXPECT_EQ(monochrome(RGBA(200, 0, 0), 2), RGBA(144, 0, 0));
  EXPECT_EQ(monochrome(RGBA(200, 0, 0), -1), RGBA(57, 0, 0));
  EXPECT_EQ(monochrome(RGBA(1, 0, 0), 1099511627783.0), RGBA(7, 0, 0));  // 2 to the 40, and 7
}

TEST(ColorScaleTest, GivesZeroForWhatDoesNotFitAnInteger) {
  EXPECT_EQ(monochrome(RGBA(1, 2, 3), 1e300), RGBA(0, 0, 0));
  EXPECT_EQ(monochrome(white, nan), RGBA(0, 0, 0));
  EXPECT_EQ(monochrome(white, std::numeric_limits<double>::infinity()), RGBA(0, 0, 0));
  EXPECT_EQ(rainbow(red, blue, nan), RGBA(0, 0, 0));
  EXPECT_EQ(mapped(Word::Dichromatic, red, blue, nan), RGBA(0, 0, 0));
}

TEST(ColorScaleTest, WalksThroughTheHues) {
  EXPECT_EQ(rainbow(red, blue, 1), RGBA(255, 0, 0));
  EXPECT_EQ(rainbow(red, blue, 0.875), RGBA(255, 127, 0));
  EXPECT_EQ(rainbow(red, blue, 0.75), RGBA(255, 255, 0));
  EXPECT_EQ(rainbow(red, blue, 0.5), RGBA(0, 255, 0));
  EXPECT_EQ(rainbow(red, blue, 0.25), RGBA(0, 255, 255));
  EXPECT_EQ(rainbow(red, blue, 0), RGBA(0, 0, 255));
}

TEST(ColorScaleTest, FindsTheHueOfTies) {
  EXPECT_EQ(rainbow(yellow, blue, 1), RGBA(255, 255, 0));
  EXPECT_EQ(rainbow(cyan, red, 1), RGBA(0, 255, 255));
  EXPECT_EQ(rainbow(magenta, red, 1), RGBA(255, 0, 255));
}

TEST(ColorScaleTest, TakesHuesOutsideOfTheCircleForTheLastSector) {
  // -240 degrees, full and saturated.
  EXPECT_EQ(rainbow(red, blue, 2), RGBA(255, 0, 255));
  // A sector that no integer holds, and channels that none holds either.
  EXPECT_EQ(rainbow(red, RGBA(128, 64, 64), 1e300), RGBA(0, 0, 0));
}

TEST(ColorScaleTest, TakesTheLongWayRound) {
  // From 120 degrees on to 60 and a full turn.
  EXPECT_EQ(rainbow(green, yellow, 1), RGBA(0, 255, 0));
  EXPECT_EQ(rainbow(green, yellow, 0.5), RGBA(127, 0, 255));
  // From 60 degrees and a full turn back to 120.
  EXPECT_EQ(rainbow(yellow, green, 0.5), RGBA(127, 0, 255));
  EXPECT_EQ(rainbow(yellow, green, 0), RGBA(0, 255, 0));
  // Equal hues are a full turn apart.
  EXPECT_EQ(rainbow(red, red, 0.5), RGBA(0, 255, 255));
  EXPECT_EQ(rainbow(red, red, 0), RGBA(255, 0, 0));
  // Half a turn stays as it is.
  EXPECT_EQ(rainbow(red, cyan, 0.5), RGBA(127, 255, 0));
}

// All hues from 300 degrees on are taken for the last of the six sectors. That is deliberate.
TEST(ColorScaleTest, DoesNotReduceHuesToOneTurn) {
  EXPECT_EQ(rainbow(red, red, 1), RGBA(255, 0, 255));
  EXPECT_EQ(rainbow(green, yellow, 0), RGBA(255, 0, 255));
  EXPECT_EQ(rainbow(yellow, green, 1), RGBA(255, 0, 255));
}

TEST(ColorScaleTest, DoesNotRoundColorsOfTheRainbow) {
  EXPECT_EQ(rainbow(RGBA(100, 100, 100), RGBA(51, 51, 51), 0.5), RGBA(75, 75, 75));
  EXPECT_EQ(rainbow(black, black, 0.3), RGBA(0, 0, 0));
}

TEST(ColorScaleTest, IsBlackForAnyOtherType) {
  for (const Token type : {Word::Flat, Word::Functional, Word::Solid, Token()}) {
    EXPECT_EQ(mapped(type, red, blue, 0.7), RGBA(0, 0, 0));
  }
}

}  // namespace vantry::javaview
