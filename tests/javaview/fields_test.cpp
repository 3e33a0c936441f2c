#include "vantry/javaview/emit_fields.h"

#include <gtest/gtest.h>

#include "property_effect.h"

namespace vantry::javaview {

namespace {

std::string vectors3d(int count) {
  std::string vectors;
  for (int i = 1; i <= count; ++i) vectors += "<P3>0 0 " + std::to_string(i) + "</P3>";
  return vectors;
}

std::string vectors2d(int count) {
  std::string vectors;
  for (int i = 1; i <= count; ++i) vectors += "<P2>0 " + std::to_string(i) + "</P2>";
  return vectors;
}

Attributes mesh(const std::string& x, const std::string& y) {
  return {{Word::XMesh, x}, {Word::YMesh, y}};
}

Attributes mesh(const std::string& x, const std::string& y, const std::string& z) {
  return {{Word::XMesh, x}, {Word::YMesh, y}, {Word::ZMesh, z}};
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

TEST(Field3dTest, WritesNodesAndVectorsWithXFastestAndColorsByTheHeightOfTheNodes) {
  const Attributes grid =
      with(mesh("2", "2", "2"), {{Word::Anchor, "1 2 3"}, {Word::Delta, "0.5 -1 2"}});
  EXPECT_EQ(convert<Field3d>({with(grid, fromBlueToRed), vectors3d(8)}),
            "<geometry>\n"
            "<pointSet dim=\"3\" point=\"hide\">\n"
            "<points num=\"8\">\n"
            "<p>1 2 3</p>\n"
            "<p>1.5 2 3</p>\n"
            "<p>1 1 3</p>\n"
            "<p>1.5 1 3</p>\n"
            "<p>1 2 5</p>\n"
            "<p>1.5 2 5</p>\n"
            "<p>1 1 5</p>\n"
            "<p>1.5 1 5</p>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n"
            "<vectorField material=\"show\" color=\"show\" arrow=\"show\">\n"
            "<vectors num=\"8\">\n"
            "<v>0 0 1</v>\n"
            "<v>0 0 2</v>\n"
            "<v>0 0 3</v>\n"
            "<v>0 0 4</v>\n"
            "<v>0 0 5</v>\n"
            "<v>0 0 6</v>\n"
            "<v>0 0 7</v>\n"
            "<v>0 0 8</v>\n"
            "<thickness>1.77165</thickness>\n"
            "<length>0.2</length>\n"
            "<color>200 0 0</color>\n"
            "</vectors>\n"
            "<colors num=\"8\">\n" +
                // from 3 to 7, one layer beyond the last one, and not the viewing box
                repeated("<c>0 0 200</c>\n", 4) + repeated("<c>100 0 100</c>\n", 4) +
                "</colors>\n"
                "</vectorField>\n" +
                material() + "</geometry>\n");
}

TEST(Field3dTest, TurnsTheRangeOfANegativeStepRound) {
  const Attributes grid =
      with(mesh("1", "1", "2"), {{Word::Anchor, "0 0 3"}, {Word::Delta, "1 1 -2"}});
  EXPECT_TRUE(contains(convert<Field3d>({with(grid, fromBlueToRed), vectors3d(2)}),
                       "<colors num=\"2\">\n<c>200 0 0</c>\n<c>100 0 100</c>\n</colors>\n"));
}

TEST(Field3dTest, SumsTheStepsUp) {
  const Attributes grid =
      with(mesh("4", "1", "1"), {{Word::Anchor, "-0.3 0 0"}, {Word::Delta, "0.1 1 1"}});
  EXPECT_TRUE(contains(convert<Field3d>({grid, vectors3d(4)}),
                       "<p>-0.3 0 0</p>\n<p>-0.2 0 0</p>\n<p>-0.1 0 0</p>\n"
                       "<p>2.77556e-17 0 0</p>\n"));  // -0.3 + 3 * 0.1 is 5.55112e-17
}

TEST(Field3dTest, IsSilentWithTooFewVectorsAndIgnoresThoseTooMany) {
  EXPECT_EQ(convert<Field3d>({mesh("3", "2", "1"), vectors3d(5)}), "");
  EXPECT_EQ(convert<Field3d>({mesh("3", "2", "1"), ""}), "");
  EXPECT_EQ(convert<Field3d>({mesh("3", "2", "1"), vectors3d(7)}),
            convert<Field3d>({mesh("3", "2", "1"), vectors3d(6)}));
}

TEST(Field3dTest, IsSilentForANonsenseMesh) {
  EXPECT_EQ(convert<Field3d>({mesh("2147483647", "2147483647", "2147483647"), vectors3d(1)}), "");
  // Products that are 0 in 32 and in 64 bits.
  EXPECT_EQ(convert<Field3d>({mesh("65536", "65536", "1"), vectors3d(1)}), "");
  EXPECT_EQ(convert<Field3d>({mesh("4194304", "2097152", "2097152"), vectors3d(1)}), "");
}

TEST(Field3dTest, WritesALengthOfZero) {
  const Attributes grid = with(mesh("1", "1", "1"), {{Word::Delta, "0 1 1"}});
  EXPECT_TRUE(contains(convert<Field3d>({grid, vectors3d(1)}), "<length>0</length>\n"));
}

TEST(Field3dTest, TakesTheSmallestStepForTheLength) {
  const auto lengthFor = [](const std::string& delta) {
    const std::string text =
        convert<Field3d>({with(mesh("1", "1", "1"), {{Word::Delta, delta}}), vectors3d(1)});
    const std::size_t begin = text.find("<length>");
    return text.substr(begin, text.find("</length>") - begin);
  };
  EXPECT_EQ(lengthFor("5 10 15"), "<length>2");
  EXPECT_EQ(lengthFor("10 -5 15"), "<length>2");
  EXPECT_EQ(lengthFor("-10 15 5"), "<length>2");
}

TEST(Field3dTest, IsNotColoredWhenFunctionalWithoutColors) {
  EXPECT_EQ(
      convert<Field3d>(
          {with(mesh("2", "1", "1"), {{Word::LineColorType, "Functional"}}), vectors3d(2)}),
      convert<Field3d>({with(mesh("2", "1", "1"), {{Word::LineColorType, "Flat"}}), vectors3d(2)}));
}

TEST(Field3dTest, TakesTheColorsOfTheListByTheNumberOfTheNode) {
  const Attributes grid = with(mesh("1", "2", "1"), {{Word::LineColorType, "Functional"}});
  const std::string text = convert<Field3d>(
      {grid, "<P3>0 0 1 #010203</P3><P3>0 0 2 #040506</P3><P3>0 0 3 #070809</P3>"});
  EXPECT_TRUE(contains(text, "<vectorField material=\"show\" color=\"show\" arrow=\"show\">"));
  EXPECT_TRUE(contains(text, "<colors num=\"2\">\n<c>1 2 3</c>\n<c>4 5 6</c>\n</colors>\n"));
}

TEST(Field3dTest, MovesVectorsLikePoints) {
  const std::string text =
      convert<Field3d>({mesh("1", "1", "1"), vectors3d(1), {{Word::Shift, "10 20 30"}}});
  EXPECT_TRUE(contains(text, "<p>10 20 30</p>\n"));
  EXPECT_TRUE(contains(text, "<v>10 20 31</v>\n"));
}

TEST(Field3dTest, ShowsItsProperties) {
  expectPropertyEffects<Field3d>(
      {with(mesh("2", "1", "1"), {{Word::Delta, "1 2 3"}}), vectors3d(2)},
      {
          {Word::Anchor,
           "5 6 7",
           {{"<p>0 0 0</p>\n<p>1 0 0</p>\n", "<p>5 6 7</p>\n<p>6 6 7</p>\n"}}},
          {Word::Delta,
           "0.5 2 3",
           {{"<p>1 0 0</p>", "<p>0.5 0 0</p>"}, {"<length>0.4<", "<length>0.2<"}}},
          {Word::XMesh,
           "1",
           {{"<points num=\"2\">\n<p>0 0 0</p>\n<p>1 0 0</p>\n",
             "<points num=\"1\">\n<p>0 0 0</p>\n"},
            {"<vectors num=\"2\">\n<v>0 0 1</v>\n<v>0 0 2</v>\n",
             "<vectors num=\"1\">\n<v>0 0 1</v>\n"}}},
          {Word::YMesh, "2", vanishes},
          {Word::ZMesh, "2", vanishes},
          {Word::LineWidth, "1", {{"<thickness>1.77165<", "<thickness>3.54331<"}}},
          {Word::LineColor,
           "#01020380",
           {{"<color>0 0 0</color>\n</vectors>", "<color>1 2 3</color>\n</vectors>"},
            {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{"color=\"hide\"", "color=\"show\""},
            {"</vectors>\n",
             "</vectors>\n<colors num=\"2\">\n<c>0 0 255</c>\n<c>0 0 255</c>\n</colors>\n"}}},
          {Word::LineColorType,
           "Monochrome",
           {{"color=\"hide\"", "color=\"show\""},
            {"</vectors>\n",
             "</vectors>\n<colors num=\"2\">\n<c>0 0 0</c>\n<c>0 0 0</c>\n</colors>\n"}}},
          {Word::PointsVisible, "false", {{"arrow=\"show\"", "arrow=\"hide\""}}},
      });
}

TEST(Field3dTest, ShowsWhatColorsItsNodes) {
  const std::string colors = "<colors num=\"2\">\n<c>0 0 200</c>\n<c>100 0 100</c>\n</colors>\n";
  expectPropertyEffects<Field3d>(
      {with(with(mesh("1", "1", "2"), {{Word::Delta, "1 2 5"}}), fromBlueToRed), vectors3d(2)},
      {
          {Word::Anchor,  // the colours follow the anchor
           "5 6 7",
           {{"<p>0 0 0</p>\n<p>0 0 5</p>\n", "<p>5 6 7</p>\n<p>5 6 12</p>\n"}}},
          {Word::Delta,
           "1 2 -5",
           {{"<p>0 0 5</p>", "<p>0 0 -5</p>"}, {"<c>0 0 200</c>\n", "<c>200 0 0</c>\n"}}},
          {Word::XMesh, "2", vanishes},
          {Word::YMesh, "2", vanishes},
          {Word::ZMesh,
           "1",
           {{"<points num=\"2\">\n<p>0 0 0</p>\n<p>0 0 5</p>\n",
             "<points num=\"1\">\n<p>0 0 0</p>\n"},
            {"<vectors num=\"2\">\n<v>0 0 1</v>\n<v>0 0 2</v>\n",
             "<vectors num=\"1\">\n<v>0 0 1</v>\n"},
            {colors, "<colors num=\"1\">\n<c>0 0 200</c>\n</colors>\n"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165<", "<thickness>3.54331<"}}},
          {Word::LineColor,
           "#640000",
           {{"<color>200 0 0</color>\n</vectors>", "<color>100 0 0</color>\n</vectors>"},
            {"<c>100 0 100</c>", "<c>50 0 100</c>"}}},
          {Word::LineColor2,
           "#006400",
           {{"<c>0 0 200</c>\n<c>100 0 100</c>\n", "<c>0 100 0</c>\n<c>100 50 0</c>\n"}}},
          {Word::LineColorType, "Flat", {{"color=\"show\"", "color=\"hide\""}, {colors, ""}}},
          {Word::PointsVisible, "false", {{"arrow=\"show\"", "arrow=\"hide\""}}},
      });
}

TEST(Field2dTest, WritesNodesAndVectorsWithXFastestAndColorsByTheHeightOfTheNodes) {
  const Attributes grid = with(mesh("2", "2"), {{Word::Anchor, "1 2"}, {Word::Delta, "-0.5 2"}});
  EXPECT_EQ(convert<Field2d>({with(grid, fromBlueToRed), vectors2d(4)}),
            "<geometry>\n"
            "<pointSet dim=\"2\" point=\"hide\">\n"
            "<points num=\"4\">\n"
            "<p>1 2</p>\n"
            "<p>0.5 2</p>\n"
            "<p>1 4</p>\n"
            "<p>0.5 4</p>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n"
            "<vectorField material=\"show\" color=\"show\" arrow=\"show\">\n"
            "<vectors num=\"4\">\n"
            "<v>0 1</v>\n"
            "<v>0 2</v>\n"
            "<v>0 3</v>\n"
            "<v>0 4</v>\n"
            "<thickness>1.77165</thickness>\n"
            "<length>0.2</length>\n"
            "<color>200 0 0</color>\n"
            "</vectors>\n"
            "<colors num=\"4\">\n"  // from 2 to 6
            "<c>0 0 200</c>\n"
            "<c>0 0 200</c>\n"
            "<c>100 0 100</c>\n"
            "<c>100 0 100</c>\n"
            "</colors>\n"
            "</vectorField>\n" +
                material() + "</geometry>\n");
}

TEST(Field2dTest, TurnsTheRangeOfANegativeStepRound) {
  const Attributes grid = with(mesh("1", "2"), {{Word::Anchor, "0 3"}, {Word::Delta, "1 -2"}});
  EXPECT_TRUE(contains(convert<Field2d>({with(grid, fromBlueToRed), vectors2d(2)}),
                       "<colors num=\"2\">\n<c>200 0 0</c>\n<c>100 0 100</c>\n</colors>\n"));
}

TEST(Field2dTest, IsSilentWithTooFewVectorsAndIgnoresThoseTooMany) {
  EXPECT_EQ(convert<Field2d>({mesh("3", "2"), vectors2d(5)}), "");
  EXPECT_EQ(convert<Field2d>({mesh("65536", "65536"), vectors2d(1)}), "");
  EXPECT_EQ(convert<Field2d>({mesh("2147483647", "2147483647"), vectors2d(1)}), "");
  EXPECT_EQ(convert<Field2d>({mesh("3", "2"), vectors2d(7)}),
            convert<Field2d>({mesh("3", "2"), vectors2d(6)}));
}

TEST(Field2dTest, HasArrowHeadsOnlyWithLengthAndAngle) {
  const auto hasHeads = [](const std::string& length, const std::string& angle) {
    const Attributes tip{{Word::TipLength, length}, {Word::TipAngle, angle}};
    return contains(convert<Field2d>({with(mesh("1", "1"), tip), vectors2d(1)}), "arrow=\"show\"");
  };
  EXPECT_TRUE(hasHeads("4", "-1"));
  EXPECT_TRUE(hasHeads("4", "nan"));
  EXPECT_FALSE(hasHeads("4", "0"));
  EXPECT_FALSE(hasHeads("0", "1"));
  EXPECT_FALSE(hasHeads("nan", "1"));
}

TEST(Field2dTest, MovesVectorsLikePoints) {
  const std::string text =
      convert<Field2d>({mesh("1", "1"), vectors2d(1), {{Word::Shift, "10 20"}}});
  EXPECT_TRUE(contains(text, "<p>10 20</p>\n"));
  EXPECT_TRUE(contains(text, "<v>10 21</v>\n"));
}

TEST(Field2dTest, ShowsItsProperties) {
  const std::string colors = "<colors num=\"2\">\n<c>0 0 200</c>\n<c>100 0 100</c>\n</colors>\n";
  expectPropertyEffects<Field2d>(
      {with(with(mesh("1", "2"), {{Word::Delta, "1 5"}}), fromBlueToRed), vectors2d(2)},
      {
          {Word::Anchor, "5 6", {{"<p>0 0</p>\n<p>0 5</p>\n", "<p>5 6</p>\n<p>5 11</p>\n"}}},
          {Word::Delta,
           "0.5 -5",
           {{"<p>0 5</p>", "<p>0 -5</p>"},
            {"<length>0.4<", "<length>0.2<"},
            {"<c>0 0 200</c>\n", "<c>200 0 0</c>\n"}}},
          {Word::XMesh, "2", vanishes},
          {Word::YMesh,
           "1",
           {{"<points num=\"2\">\n<p>0 0</p>\n<p>0 5</p>\n", "<points num=\"1\">\n<p>0 0</p>\n"},
            {"<vectors num=\"2\">\n<v>0 1</v>\n<v>0 2</v>\n", "<vectors num=\"1\">\n<v>0 1</v>\n"},
            {colors, "<colors num=\"1\">\n<c>0 0 200</c>\n</colors>\n"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165<", "<thickness>3.54331<"}}},
          {Word::LineColor, "#c8000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColor,
           "#640000",
           {{"<color>200 0 0</color>\n</vectors>", "<color>100 0 0</color>\n</vectors>"},
            {"<c>100 0 100</c>", "<c>50 0 100</c>"}}},
          {Word::LineColor2,
           "#006400",
           {{"<c>0 0 200</c>\n<c>100 0 100</c>\n", "<c>0 100 0</c>\n<c>100 50 0</c>\n"}}},
          {Word::LineColorType, "Flat", {{"color=\"show\"", "color=\"hide\""}, {colors, ""}}},
          {Word::TipLength, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}},
          {Word::TipAngle, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}},
      });
}

}  // namespace vantry::javaview
