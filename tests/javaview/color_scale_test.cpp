#include "vantry/javaview/color_writer.h"

#include <gtest/gtest.h>

#include <limits>

#include "vantry/plot/values/variants.h"
#include "written.h"

namespace vantry::javaview {

namespace {

/// What `value` becomes, between 0 for `color2` and 1 for `color1`.
std::string mapped(Token type, RGBA color1, RGBA color2, double value) {
  return written([&](GeometryOutput& out) {
    ColorWriter(type, color1, color2, 0, 1, out.sink()).writeValueColor(value);
  });
}

std::string entry(int r, int g, int b) {
  return "<c>" + std::to_string(r) + " " + std::to_string(g) + " " + std::to_string(b) + "</c>\n";
}

constexpr RGBA green{0, 255, 0};
constexpr RGBA cyan{0, 255, 255};
constexpr RGBA magenta{255, 0, 255};

std::string monochrome(RGBA color, double value) {
  return mapped(Word::Monochrome, color, white, value);
}

std::string rainbow(RGBA color1, RGBA color2, double value) {
  return mapped(Word::Rainbow, color1, color2, value);
}

}  // namespace

TEST(ColorWriterTest, IsConstantBetweenEqualBounds) {
  const auto between = [](double min, double max) {
    return written([=](GeometryOutput& out) {
      ColorWriter(Word::Rainbow, RGBA(1, 2, 3), red, min, max, out.sink()).writeValueColor(0.5);
    });
  };
  EXPECT_EQ(between(0, 0), entry(1, 2, 3));
  EXPECT_EQ(between(0, 2.2e-16), entry(1, 2, 3));
  EXPECT_NE(between(0, 2.220446049250313e-16), entry(1, 2, 3));
  EXPECT_EQ(between(nan, 1), entry(0, 0, 0));
}

TEST(ColorWriterTest, DimsOneColor) {
  const RGBA color(200, 100, 1);
  EXPECT_EQ(monochrome(color, 1), entry(200, 100, 1));
  EXPECT_EQ(monochrome(color, 0), entry(0, 0, 0));
  EXPECT_EQ(monochrome(color, 0.5), entry(100, 50, 1));
  EXPECT_EQ(monochrome(color, 0.25), entry(50, 25, 0));
}

TEST(ColorWriterTest, MixesTwoColors) {
  const auto mix = [](double value) {
    return mapped(Word::Dichromatic, RGBA(200, 0, 255), RGBA(100, 255, 0), value);
  };
  EXPECT_EQ(mix(1), entry(200, 0, 255));
  EXPECT_EQ(mix(0), entry(100, 255, 0));
  EXPECT_EQ(mix(0.25), entry(125, 191, 64));
}

TEST(ColorWriterTest, MapsMinToTheSecondColorAndMaxToTheFirst) {
  EXPECT_EQ(written([](GeometryOutput& out) {
              ColorWriter colors(Word::Dichromatic, red, blue, -10, 30, out.sink());
              colors.writeValueColor(-10);
              colors.writeValueColor(30);
            }),
            entry(0, 0, 255) + entry(255, 0, 0));
}

TEST(ColorWriterTest, WrapsWhatIsOutOfRange) {
  EXPECT_EQ(monochrome(RGBA(200, 0, 0), 2), entry(144, 0, 0));
  EXPECT_EQ(monochrome(RGBA(200, 0, 0), -1), entry(57, 0, 0));
  EXPECT_EQ(monochrome(RGBA(1, 0, 0), 1099511627783.0), entry(7, 0, 0));  // 2 to the 40, and 7
}

TEST(ColorWriterTest, GivesZeroForWhatDoesNotFitAnInteger) {
  EXPECT_EQ(monochrome(RGBA(1, 2, 3), 1e300), entry(0, 0, 0));
  EXPECT_EQ(monochrome(white, nan), entry(0, 0, 0));
  EXPECT_EQ(monochrome(white, std::numeric_limits<double>::infinity()), entry(0, 0, 0));
  EXPECT_EQ(rainbow(red, blue, nan), entry(0, 0, 0));
  EXPECT_EQ(mapped(Word::Dichromatic, red, blue, nan), entry(0, 0, 0));
}

TEST(ColorWriterTest, WalksThroughTheHues) {
  EXPECT_EQ(rainbow(red, blue, 1), entry(255, 0, 0));
  EXPECT_EQ(rainbow(red, blue, 0.875), entry(255, 127, 0));
  EXPECT_EQ(rainbow(red, blue, 0.75), entry(255, 255, 0));
  EXPECT_EQ(rainbow(red, blue, 0.5), entry(0, 255, 0));
  EXPECT_EQ(rainbow(red, blue, 0.25), entry(0, 255, 255));
  EXPECT_EQ(rainbow(red, blue, 0), entry(0, 0, 255));
}

TEST(ColorWriterTest, FindsTheHueOfTies) {
  EXPECT_EQ(rainbow(yellow, blue, 1), entry(255, 255, 0));
  EXPECT_EQ(rainbow(cyan, red, 1), entry(0, 255, 255));
  EXPECT_EQ(rainbow(magenta, red, 1), entry(255, 0, 255));
}

TEST(ColorWriterTest, TakesHuesOutsideOfTheCircleForTheLastSector) {
  // -240 degrees, full and saturated.
  EXPECT_EQ(rainbow(red, blue, 2), entry(255, 0, 255));
  // A sector that no integer holds, and channels that none holds either.
  EXPECT_EQ(rainbow(red, RGBA(128, 64, 64), 1e300), entry(0, 0, 0));
}

TEST(ColorWriterTest, TakesTheLongWayRound) {
  // From 120 degrees on to 60 and a full turn.
  EXPECT_EQ(rainbow(green, yellow, 1), entry(0, 255, 0));
  EXPECT_EQ(rainbow(green, yellow, 0.5), entry(127, 0, 255));
  // From 60 degrees and a full turn back to 120.
  EXPECT_EQ(rainbow(yellow, green, 0.5), entry(127, 0, 255));
  EXPECT_EQ(rainbow(yellow, green, 0), entry(0, 255, 0));
  // Equal hues are a full turn apart.
  EXPECT_EQ(rainbow(red, red, 0.5), entry(0, 255, 255));
  EXPECT_EQ(rainbow(red, red, 0), entry(255, 0, 0));
  // Half a turn stays as it is.
  EXPECT_EQ(rainbow(red, cyan, 0.5), entry(127, 255, 0));
}

// All hues from 300 degrees on are taken for the last of the six sectors. That is deliberate.
TEST(ColorWriterTest, DoesNotReduceHuesToOneTurn) {
  EXPECT_EQ(rainbow(red, red, 1), entry(255, 0, 255));
  EXPECT_EQ(rainbow(green, yellow, 0), entry(255, 0, 255));
  EXPECT_EQ(rainbow(yellow, green, 1), entry(255, 0, 255));
}

TEST(ColorWriterTest, DoesNotRoundColorsOfTheRainbow) {
  EXPECT_EQ(rainbow(RGBA(100, 100, 100), RGBA(51, 51, 51), 0.5), entry(75, 75, 75));
  EXPECT_EQ(rainbow(black, black, 0.3), entry(0, 0, 0));
}

TEST(ColorWriterTest, IsBlackForAnyOtherType) {
  for (const Token type : {Word::Flat, Word::Functional, Word::Solid, Token()}) {
    EXPECT_EQ(mapped(type, red, blue, 0.7), entry(0, 0, 0));
  }
}

namespace {

const std::vector<P3> slope{{9, 9, 0}, {9, 9, 0.5}, {9, 9, 1}};

std::string coloured(std::span<const RGBA> list, auto write) {
  return written([&](GeometryOutput& out) {
    ColorWriter3D colors(Word::Monochrome, slope, list, RGBA(100, 200, 0), black, 0, 1, out.sink());
    write(colors);
  });
}

const std::vector<RGBA> threeColors{{10, 0, 1}, {21, 0, 1}, {30, 0, 3}};

}  // namespace

TEST(ColorListWriterTest, GoesByTheHeightOfPoints) {
  EXPECT_EQ(coloured({}, [](auto& colors) { colors.writeColors(); }),
            "<colors num=\"3\">\n" + entry(0, 0, 0) + entry(50, 100, 0) + entry(100, 200, 0) +
                "</colors>\n");
  const std::vector<P2> flat{{9, 0}, {9, 0.5}};
  EXPECT_EQ(written([&](GeometryOutput& out) {
              ColorWriter2D(Word::Monochrome, flat, {}, RGBA(100, 200, 0), black, 0, 1, out.sink())
                  .writeColors();
            }),
            "<colors num=\"2\">\n" + entry(0, 0, 0) + entry(50, 100, 0) + "</colors>\n");
}

TEST(ColorListWriterTest, PrefersAListOfColors) {
  EXPECT_EQ(
      coloured(threeColors, [](auto& colors) { colors.writeColors(); }),
      "<colors num=\"3\">\n" + entry(10, 0, 1) + entry(21, 0, 1) + entry(30, 0, 3) + "</colors>\n");
}

TEST(ColorListWriterTest, TakesTheMeanOfValues) {
  EXPECT_EQ(coloured({},
                     [](auto& colors) {
                       colors.writeMeanColor(0, 1);
                       colors.writeMeanColor(0, 1, 2);
                       colors.writeMeanColor(1, 2, 2, 2);
                     }),
            entry(25, 50, 0) + entry(50, 100, 0) + entry(88, 175, 0));
}

TEST(ColorListWriterTest, TakesTheMeanOfColorsByChannelWithoutRounding) {
  EXPECT_EQ(coloured(threeColors,
                     [](auto& colors) {
                       colors.writeMeanColor(0, 1);
                       colors.writeMeanColor(0, 1, 2);
                       colors.writeMeanColor(0, 1, 1, 2);
                     }),
            entry(15, 0, 1) + entry(20, 0, 1) + entry(20, 0, 1));
}

TEST(ColorListWriterTest, TakesTheLastPointForAnIndexPastTheEnd) {
  const auto past = [](auto& colors) {
    colors.writeColor(3);
    colors.writeMeanColor(1, 1000);
  };
  EXPECT_EQ(coloured({}, past), entry(100, 200, 0) + entry(75, 150, 0));
  EXPECT_EQ(coloured(threeColors, past), entry(30, 0, 3) + entry(25, 0, 2));
}

TEST(ColorListWriterTest, ColorsLineStrips) {
  const auto strip = [](int count, bool closed) {
    return coloured({}, [=](auto& colors) { colors.writeLineStripColors(count, closed); });
  };
  EXPECT_EQ(strip(3, false), entry(25, 50, 0) + entry(75, 150, 0));
  EXPECT_EQ(strip(3, true), entry(25, 50, 0) + entry(75, 150, 0) + entry(50, 100, 0));
  EXPECT_EQ(strip(1, true), entry(0, 0, 0));
  EXPECT_EQ(strip(1, false), "");
}

TEST(ColorModeTest, TakesTheListOnlyIfFunctional) {
  struct Case {
    Token type;
    bool hasList;
    bool isColored;
    bool usesList;
  };
  for (const Case& c : {
           Case{Word::Flat, false, false, false},
           Case{Word::Flat, true, false, false},
           Case{Word::Monochrome, false, true, false},
           Case{Word::Monochrome, true, true, false},
           Case{Word::Dichromatic, true, true, false},
           Case{Word::Rainbow, true, true, false},
           Case{Word::Functional, false, false, false},
           Case{Word::Functional, true, true, true},
           Case{Word::Solid, true, true, false},
       }) {
    const ColorMode mode =
        colorMode(c.type, c.hasList ? std::span<const RGBA>(threeColors) : std::span<const RGBA>());
    EXPECT_EQ(mode.isColored, c.isColored) << c.type.str() << c.hasList;
    EXPECT_EQ(mode.list.data(), c.usesList ? threeColors.data() : nullptr) << c.type.str();
  }
}

}  // namespace vantry::javaview
