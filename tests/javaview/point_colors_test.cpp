#include "vantry/javaview/point_colors.h"

#include <gtest/gtest.h>

#include <vector>

#include "written.h"

namespace vantry::javaview {

using namespace plot;

namespace {

std::string entry(int r, int g, int b) {
  return "<c>" + std::to_string(r) + " " + std::to_string(g) + " " + std::to_string(b) + "</c>\n";
}

const std::vector<P3> slope{{9, 9, 0}, {9, 9, 0.5}, {9, 9, 1}};

std::string coloured(std::span<const RGBA> list, auto write) {
  return written([&](GeometryOutput& out) {
    const Token type = list.empty() ? Word::Monochrome : Word::Functional;
    PointColors<P3> colors(out, slope, list, ColorScale(type, RGBA(100, 200, 0), black, {0, 1}));
    write(colors);
  });
}

const std::vector<RGBA> threeColors{{10, 0, 1}, {21, 0, 1}, {30, 0, 3}};

}  // namespace

TEST(PointColorsTest, GoByTheHeightOfPoints) {
  EXPECT_EQ(coloured({}, [](auto& colors) { colors.writeColors(); }),
            "<colors num=\"3\">\n" + entry(0, 0, 0) + entry(50, 100, 0) + entry(100, 200, 0) +
                "</colors>\n");
  const std::vector<P2> flat{{9, 0}, {9, 0.5}};
  EXPECT_EQ(written([&](GeometryOutput& out) {
              const ColorScale scale(Word::Monochrome, RGBA(100, 200, 0), black, {0, 1});
              PointColors<P2>(out, flat, {}, scale).writeColors();
            }),
            "<colors num=\"2\">\n" + entry(0, 0, 0) + entry(50, 100, 0) + "</colors>\n");
}

TEST(PointColorsTest, AreThoseOfAListIfThereIsOne) {
  EXPECT_EQ(
      coloured(threeColors, [](auto& colors) { colors.writeColors(); }),
      "<colors num=\"3\">\n" + entry(10, 0, 1) + entry(21, 0, 1) + entry(30, 0, 3) + "</colors>\n");
}

TEST(PointColorsTest, HaveMeansOfHeights) {
  EXPECT_EQ(coloured({},
                     [](auto& colors) {
                       colors.writeMeanColor(0, 1);
                       colors.writeMeanColor(0, 1, 2);
                       colors.writeMeanColor(1, 2, 2, 2);
                     }),
            entry(25, 50, 0) + entry(50, 100, 0) + entry(88, 175, 0));
}

TEST(PointColorsTest, HaveMeansOfListedColorsByChannelWithoutRounding) {
  EXPECT_EQ(coloured(threeColors,
                     [](auto& colors) {
                       colors.writeMeanColor(0, 1);
                       colors.writeMeanColor(0, 1, 2);
                       colors.writeMeanColor(0, 1, 1, 2);
                     }),
            entry(15, 0, 1) + entry(20, 0, 1) + entry(20, 0, 1));
}

TEST(PointColorsTest, TakeTheLastPointForAnIndexPastTheEnd) {
  const auto past = [](auto& colors) {
    colors.writeColor(3);
    colors.writeMeanColor(1, 1000);
  };
  EXPECT_EQ(coloured({}, past), entry(100, 200, 0) + entry(75, 150, 0));
  EXPECT_EQ(coloured(threeColors, past), entry(30, 0, 3) + entry(25, 0, 2));
}

TEST(PointColorsTest, ColorLineStrips) {
  const auto strip = [](int count, bool closed) {
    return coloured({}, [=](auto& colors) { colors.writeLineStripColors(count, closed); });
  };
  EXPECT_EQ(strip(3, false), entry(25, 50, 0) + entry(75, 150, 0));
  EXPECT_EQ(strip(3, true), entry(25, 50, 0) + entry(75, 150, 0) + entry(50, 100, 0));
  EXPECT_EQ(strip(1, true), entry(0, 0, 0));
  EXPECT_EQ(strip(1, false), "");
}

TEST(PointColorsTest, TakeTheListOnlyIfFunctional) {
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
    SCOPED_TRACE(std::string(c.type.str()) + (c.hasList ? " with a list" : ""));
    const auto list = c.hasList ? std::span(threeColors) : std::span<const RGBA>();
    const std::string text = written([&](GeometryOutput& out) {
      PointColors<P3> colors(out, slope, list, ColorScale(c.type, white, black, {0, 1}));
      EXPECT_EQ(colors.isColored(), c.isColored);
      if (colors.isColored()) colors.writeColor(0);
    });
    EXPECT_EQ(text == entry(10, 0, 1), c.usesList) << text;
  }
}

}  // namespace vantry::javaview
