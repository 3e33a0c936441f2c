#include "vantry/javaview/emit_lines3d.h"

#include <gtest/gtest.h>

#include "property_effect.h"
#include "vantry/plot/elements/arrow3d.h"
#include "vantry/plot/elements/line3d.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/pts3d.h"

namespace vantry::javaview {

namespace {

// Heights in a viewing box from 0 to 10. Between these two colours they give the colours below.
const std::string threeHeights = "<P3>0 0 0</P3><P3>1 0 4</P3><P3>0 1 10</P3>";
constexpr char colorsOfThree[] =
    "<colors num=\"3\">\n<c>0 0 200</c>\n<c>80 0 120</c>\n<c>200 0 0</c>\n</colors>\n";
constexpr char colorOf0To4[] = "<c>40 0 160</c>\n";
constexpr char colorOf4To10[] = "<c>140 0 60</c>\n";
constexpr char colorOf10To0[] = "<c>100 0 100</c>\n";

/// So many points on the x axis.
std::string pointsInARow(int count) {
  std::string points;
  for (int i = 0; i < count; ++i) points += "<P3>" + std::to_string(i) + " 0 0</P3>";
  return points;
}

// The point list of pointsInARow(), black and of the default size.
std::string blackPoints(int count) {
  std::string list = "<points num=\"" + std::to_string(count) + "\">\n";
  for (int i = 0; i < count; ++i) list += "<p>" + std::to_string(i) + " 0 0</p>\n";
  return list + "<thickness>3.54331</thickness>\n<color>0 0 0</color>\n</points>\n";
}

}  // namespace

TEST(Pts3dTest, WritesItsPoints) {
  EXPECT_EQ(convert<Pts3d>({{}, "<P3>1 2 3</P3><P3>nan 0.1 -1e-7</P3>"}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\">\n"
            "<points num=\"2\">\n"
            "<p>1 2 3</p>\n"
            "<p>nan 0.1 -1e-07</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>255 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n" +
                material() + "</geometry>\n");
}

TEST(Pts3dTest, LeavesNoTraceWhenItsPointsAreHidden) {
  EXPECT_EQ(convert<Pts3d>({{{Word::PointsVisible, "false"}}, pointsInARow(2)}), "");
}

TEST(Pts3dTest, ShowsItsProperties) {
  expectPropertyEffects<Pts3d>(
      {{}, pointsInARow(1)},
      {
          {Word::PointsVisible, "false", vanishes},
          {Word::PointSize, "1", {{"<thickness>3.54331</", "<thickness>1.77165</"}}},
          {Word::PointColor, "#010203", {{"<color>255 0 0</", "<color>1 2 3</"}}},
          {Word::PointColor, "#ff000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
      });
}

TEST(Lines3dTest, WritesOneLineForEachTwoPoints) {
  EXPECT_EQ(convert<Lines3d>({{}, pointsInARow(4)}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n" +
                blackPoints(4) +
                "</pointSet>\n"
                "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n"
                "<lines num=\"2\">\n"
                "<l>0 1</l>\n"
                "<l>2 3</l>\n"
                "<thickness>1.77165</thickness>\n"
                "<color>0 0 0</color>\n"
                "</lines>\n"
                "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Lines3dTest, WritesOneLineMoreThanItDeclaresForAnOddNumberOfPoints) {
  EXPECT_EQ(convert<Lines3d>({{}, pointsInARow(5)}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n" +
                blackPoints(5) +
                "</pointSet>\n"
                "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n"
                "<lines num=\"2\">\n"
                "<l>0 1</l>\n"
                "<l>2 3</l>\n"
                "<l>4 5</l>\n"
                "<thickness>1.77165</thickness>\n"
                "<color>0 0 0</color>\n"
                "</lines>\n"
                "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Lines3dTest, ColorsOneLineMoreThanItDeclaresForAnOddNumberOfPoints) {
  const std::string heights = "<P3>0 0 10</P3><P3>0 0 0</P3>" + threeHeights;
  EXPECT_EQ(convert<Lines3d>({with(fromBlueToRed, {{Word::PointsVisible, "true"}}), heights}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"show\" point=\"show\">\n"
            "<points num=\"5\">\n"
            "<p>0 0 10</p>\n"
            "<p>0 0 0</p>\n"
            "<p>0 0 0</p>\n"
            "<p>1 0 4</p>\n"
            "<p>0 1 10</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>200 0 0</color>\n"
            "</points>\n"
            "<colors num=\"5\">\n"
            "<c>200 0 0</c>\n"
            "<c>0 0 200</c>\n"
            "<c>0 0 200</c>\n"
            "<c>80 0 120</c>\n"
            "<c>200 0 0</c>\n"
            "</colors>\n"
            "</pointSet>\n"
            "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">\n"
            "<lines num=\"2\">\n"
            "<l>0 1</l>\n"
            "<l>2 3</l>\n"
            "<l>4 5</l>\n"
            "<thickness>1.77165</thickness>\n"
            "<color>200 0 0</color>\n"
            "</lines>\n"
            "<colors num=\"2\">\n"
            "<c>100 0 100</c>\n"
            "<c>40 0 160</c>\n"
            "<c>200 0 0</c>\n"  // of the last point alone: there is no sixth
            "</colors>\n"
            "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Lines3dTest, WritesAStripThroughAllPoints) {
  EXPECT_EQ(convert<Lines3d>({with(fromBlueToRed, {{Word::Type, "LineStrip"}}), threeHeights}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"show\" point=\"hide\">\n"
            "<points num=\"3\">\n"
            "<p>0 0 0</p>\n"
            "<p>1 0 4</p>\n"
            "<p>0 1 10</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>200 0 0</color>\n"
            "</points>\n" +
                std::string(colorsOfThree) +
                "</pointSet>\n"
                "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">\n"
                "<lines num=\"2\">\n"
                "<l>0 1</l>\n"
                "<l>1 2</l>\n"
                "<thickness>1.77165</thickness>\n"
                "<color>200 0 0</color>\n"
                "</lines>\n"
                "<colors num=\"2\">\n" +
                colorOf0To4 + colorOf4To10 +
                "</colors>\n"
                "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Lines3dTest, ClosesALoop) {
  EXPECT_EQ(convert<Lines3d>({with(fromBlueToRed, {{Word::Type, "LineLoop"}}), threeHeights}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"show\" point=\"hide\">\n"
            "<points num=\"3\">\n"
            "<p>0 0 0</p>\n"
            "<p>1 0 4</p>\n"
            "<p>0 1 10</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>200 0 0</color>\n"
            "</points>\n" +
                std::string(colorsOfThree) +
                "</pointSet>\n"
                "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">\n"
                "<lines num=\"3\">\n"
                "<l>0 1</l>\n"
                "<l>1 2</l>\n"
                "<l>2 0</l>\n"
                "<thickness>1.77165</thickness>\n"
                "<color>200 0 0</color>\n"
                "</lines>\n"
                "<colors num=\"3\">\n" +
                colorOf0To4 + colorOf4To10 + colorOf10To0 +
                "</colors>\n"
                "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Lines3dTest, GoesThereAndBackInALoopOfTwoPoints) {
  const std::string text = convert<Lines3d>({{{Word::Type, "LineLoop"}}, pointsInARow(2)});
  EXPECT_NE(text.find("<lines num=\"2\">\n<l>0 1</l>\n<l>1 0</l>\n<thickness>"), std::string::npos);
}

TEST(Lines3dTest, TakesAnUnknownTypeForAStrip) {
  const std::string strip = convert<Lines3d>({{{Word::Type, "LineStrip"}}, pointsInARow(3)});
  EXPECT_EQ(convert<Lines3d>({{{Word::Type, "Zigzag"}}, pointsInARow(3)}), strip);
}

TEST(Lines3dTest, HasNoLineSetWithoutLines) {
  const auto pointsAlone = [](int count) {
    return "<geometry>\n"
           "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n" +
           blackPoints(count) + "</pointSet>\n" + material() + "</geometry>\n";
  };
  EXPECT_EQ(convert<Lines3d>({{{Word::Type, "Lines"}}, ""}), pointsAlone(0));
  EXPECT_EQ(convert<Lines3d>({{{Word::Type, "Lines"}}, pointsInARow(1)}), pointsAlone(1));
  EXPECT_EQ(convert<Lines3d>({{{Word::Type, "LineStrip"}}, ""}), pointsAlone(0));
  EXPECT_EQ(convert<Lines3d>({{{Word::Type, "LineStrip"}}, pointsInARow(1)}), pointsAlone(1));
  EXPECT_EQ(convert<Lines3d>({{{Word::Type, "LineLoop"}}, ""}), pointsAlone(0));
}

TEST(Lines3dTest, TakesTheColorsOfTheListWhenFunctional) {
  const std::string text =
      convert<Lines3d>({{{Word::LineColorType, "Functional"}, {Word::Type, "LineStrip"}},
                        "<P3>0 0 0 #0a0000</P3><P3>0 0 0 #150000</P3>"});
  EXPECT_NE(text.find("<colors num=\"2\">\n<c>10 0 0</c>\n<c>21 0 0</c>\n</colors>\n</pointSet>"),
            std::string::npos);
  EXPECT_NE(text.find("<colors num=\"1\">\n<c>15 0 0</c>\n</colors>\n</lineSet>"),
            std::string::npos);
}

TEST(Lines3dTest, IsNotColoredWhenFunctionalWithoutColors) {
  EXPECT_EQ(convert<Lines3d>({{{Word::LineColorType, "Functional"}}, pointsInARow(2)}),
            convert<Lines3d>({{{Word::LineColorType, "Flat"}}, pointsInARow(2)}));
}

TEST(Lines3dTest, ShowsItsProperties) {
  const std::string heads[] = {"pointOutline=\"hide\" color=\"hide\"",
                               "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\""
                               "hide\">"};
  const std::string coloredHeads[] = {
      "pointOutline=\"hide\" color=\"show\"",
      "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">"};
  expectPropertyEffects<Lines3d>(
      {{{Word::LineColor, "#c80000"}, {Word::LineColor2, "#0000c8"}}, threeHeights},
      {
          {Word::Type,
           "LineStrip",
           {{"<lines num=\"1\">\n<l>0 1</l>\n<l>2 3</l>\n",
             "<lines num=\"2\">\n<l>0 1</l>\n<l>1 2</l>\n"}}},
          {Word::Type,
           "LineLoop",
           {{"<lines num=\"1\">\n<l>0 1</l>\n<l>2 3</l>\n",
             "<lines num=\"3\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{heads[0], coloredHeads[0]},
            {"</points>\n", std::string("</points>\n") + colorsOfThree},
            {heads[1], coloredHeads[1]},
            {"</lines>\n",
             "</lines>\n<colors num=\"1\">\n<c>40 0 160</c>\n<c>200 0 0</c>\n</colors>\n"}}},
          {Word::LineColorType,
           "Monochrome",
           {{heads[0], coloredHeads[0]},
            {"</points>\n",
             "</points>\n"
             "<colors num=\"3\">\n<c>0 0 0</c>\n<c>80 0 0</c>\n<c>200 0 0</c>\n</colors>\n"},
            {heads[1], coloredHeads[1]},
            {"</lines>\n",
             "</lines>\n<colors num=\"1\">\n<c>40 0 0</c>\n<c>200 0 0</c>\n</colors>\n"}}},
          {Word::LineColor,
           "#01020380",
           {{"<thickness>3.54331</thickness>\n<color>200 0 0</",
             "<thickness>3.54331</thickness>\n<color>1 2 3</"},
            {"<thickness>1.77165</thickness>\n<color>200 0 0</",
             "<thickness>1.77165</thickness>\n<color>1 2 3</"},
            {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
          {Word::PointSize, "4", {{"<thickness>3.54331</", "<thickness>7.08661</"}}},
          {Word::PointsVisible, "true", {{"point=\"hide\">\n<points", "point=\"show\">\n<points"}}},
      });
}

TEST(Lines3dTest, ShowsItsSecondColorInTheColorsAlone) {
  expectPropertyEffects<Lines3d>(
      {with(fromBlueToRed, {{Word::PointsVisible, "true"}}), "<P3>0 0 0</P3><P3>0 0 5</P3>"},
      {
          {Word::LineColor2,
           "#006400",
           {{"<c>0 0 200</c>\n<c>100 0 100</c>\n", "<c>0 100 0</c>\n<c>100 50 0</c>\n"},
            {"<c>50 0 150</c>\n", "<c>50 75 0</c>\n"}}},
          {Word::LineColor,
           "#640000",
           {{"<thickness>3.54331</thickness>\n<color>200 0 0</",
             "<thickness>3.54331</thickness>\n<color>100 0 0</"},
            {"<c>100 0 100</c>\n", "<c>50 0 100</c>\n"},
            {"<thickness>1.77165</thickness>\n<color>200 0 0</",
             "<thickness>1.77165</thickness>\n<color>100 0 0</"},
            {"<c>50 0 150</c>\n", "<c>25 0 150</c>\n"}}},
          {Word::LineColorType,
           "Flat",
           {{"pointOutline=\"hide\" color=\"show\"", "pointOutline=\"hide\" color=\"hide\""},
            {"<colors num=\"2\">\n<c>0 0 200</c>\n<c>100 0 100</c>\n</colors>\n", ""},
            {"<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">",
             "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">"},
            {"<colors num=\"1\">\n<c>50 0 150</c>\n</colors>\n", ""}}},
          {Word::Type,
           "LineLoop",
           {{"<lines num=\"1\">\n<l>0 1</l>\n", "<lines num=\"2\">\n<l>0 1</l>\n<l>1 0</l>\n"},
            {"<colors num=\"1\">\n<c>50 0 150</c>\n",
             "<colors num=\"2\">\n<c>50 0 150</c>\n<c>50 0 150</c>\n"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
          {Word::PointSize, "4", {{"<thickness>3.54331</", "<thickness>7.08661</"}}},
          {Word::PointsVisible,
           "false",
           {{"point=\"show\">\n<points", "point=\"hide\">\n<points"}}},
      });
}

TEST(Poly3dTest, FillsATriangle) {
  EXPECT_EQ(convert<Poly3d>({{{Word::LinesVisible, "true"}}, pointsInARow(3)}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" point=\"hide\">\n" +
                blackPoints(3) +
                "</pointSet>\n"
                "<faceSet edge=\"show\">\n"
                "<faces num=\"1\">\n"
                "<f>0 1 2</f>\n"
                "<color>255 0 0</color>\n"
                "</faces>\n"
                "<neighbours num=\"0\"/>\n"
                "<edges>\n"
                "<thickness>1.77165</thickness>\n"
                "<color>0 0 0</color>\n"
                "</edges>\n"
                "</faceSet>\n" +
                material() + "</geometry>\n");
}

TEST(Poly3dTest, HasNoEdgesInATriangleWithoutLines) {
  EXPECT_EQ(convert<Poly3d>({{}, pointsInARow(3)}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" point=\"hide\">\n" +
                blackPoints(3) +
                "</pointSet>\n"
                "<faceSet edge=\"hide\">\n"
                "<faces num=\"1\">\n"
                "<f>0 1 2</f>\n"
                "<color>255 0 0</color>\n"
                "</faces>\n"
                "<neighbours num=\"0\"/>\n"
                "</faceSet>\n" +
                material() + "</geometry>\n");
}

TEST(Poly3dTest, VanishesWithLinesAndPointsWhenFilledWithMoreThanThreePoints) {
  EXPECT_EQ(convert<Poly3d>(
                {{{Word::LinesVisible, "true"}, {Word::PointsVisible, "true"}}, pointsInARow(4)}),
            "");
}

TEST(Poly3dTest, IsALineWhenFilledWithFewerThanThreePoints) {
  const Attributes visible{{Word::LinesVisible, "true"}, {Word::PointsVisible, "true"}};
  EXPECT_EQ(convert<Poly3d>({visible, pointsInARow(2)}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\" point=\"show\">\n" +
                blackPoints(2) +
                "</pointSet>\n"
                "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n"
                "<lines num=\"1\">\n"
                "<l>0 1</l>\n"
                "<thickness>1.77165</thickness>\n"
                "<color>0 0 0</color>\n"
                "</lines>\n"
                "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Poly3dTest, IsSilentAsALineWithoutLinesAndPoints) {
  EXPECT_EQ(convert<Poly3d>({{{Word::Filled, "false"}}, pointsInARow(3)}), "");
  EXPECT_EQ(convert<Poly3d>({{}, pointsInARow(2)}), "");
}

TEST(Poly3dTest, HasNoMaterialWithoutLines) {
  const auto pointsAlone = [](int count) {
    return "<geometry>\n"
           "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\" point=\"show\">\n" +
           blackPoints(count) + "</pointSet>\n</geometry>\n";
  };
  const Attributes points{{Word::Filled, "false"}, {Word::PointsVisible, "true"}};
  const Attributes linesToo = with(points, {{Word::LinesVisible, "true"}});
  EXPECT_EQ(convert<Poly3d>({points, pointsInARow(3)}), pointsAlone(3));
  EXPECT_EQ(convert<Poly3d>({linesToo, pointsInARow(1)}), pointsAlone(1));
  EXPECT_EQ(convert<Poly3d>({linesToo, ""}), pointsAlone(0));
  EXPECT_EQ(convert<Poly3d>({with(linesToo, {{Word::Closed, "true"}}), ""}), pointsAlone(0));
}

TEST(Poly3dTest, ClosesASinglePointWithItself) {
  const Attributes closed{{Word::LinesVisible, "true"}, {Word::Closed, "true"}};
  const std::string text = convert<Poly3d>({closed, pointsInARow(1)});
  EXPECT_NE(text.find("<lines num=\"1\">\n<l>0 0</l>\n<thickness>"), std::string::npos);
}

TEST(Poly3dTest, ClosesAColoredLine) {
  const Attributes closed{{Word::Filled, "false"},
                          {Word::LinesVisible, "true"},
                          {Word::Closed, "true"},
                          {Word::Shading, "Smooth"}};
  EXPECT_EQ(convert<Poly3d>({with(fromBlueToRed, closed), threeHeights}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"show\" point=\"hide\">\n"
            "<points num=\"3\">\n"
            "<p>0 0 0</p>\n"
            "<p>1 0 4</p>\n"
            "<p>0 1 10</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>200 0 0</color>\n"
            "</points>\n" +
                std::string(colorsOfThree) +
                "</pointSet>\n"
                "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">\n"
                "<lines num=\"3\">\n"
                "<l>0 1</l>\n"
                "<l>1 2</l>\n"
                "<l>2 0</l>\n"
                "<thickness>1.77165</thickness>\n"
                "<color>200 0 0</color>\n"
                "</lines>\n"
                "<colors num=\"3\">\n" +
                colorOf0To4 + colorOf4To10 + colorOf10To0 +
                "</colors>\n"
                "</lineSet>\n" +
                smoothMaterial() + "</geometry>\n");
}

TEST(Poly3dTest, ShowsItsPropertiesAsATriangle) {
  expectPropertyEffects<Poly3d>(
      {{{Word::LinesVisible, "true"}, {Word::LineColor, "#c80000"}, {Word::LineColor2, "#0000c8"}},
       threeHeights},
      {
          {Word::LinesVisible,
           "false",
           {{"<faceSet edge=\"show\">", "<faceSet edge=\"hide\">"},
            {"<edges>\n<thickness>1.77165</thickness>\n<color>200 0 0</color>\n</edges>\n", ""}}},
          {Word::PointsVisible, "true", {{"point=\"hide\"", "point=\"show\""}}},
          {Word::Filled,
           "false",  // the lines stay; that there is no face is the point
           {{"pointOutline=\"hide\" point", "pointOutline=\"hide\" color=\"hide\" point"},
            {"<faceSet edge=\"show\">\n"
             "<faces num=\"1\">\n<f>0 1 2</f>\n<color>255 0 0</color>\n</faces>\n"
             "<neighbours num=\"0\"/>\n<edges>\n",
             "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n"
             "<lines num=\"2\">\n<l>0 1</l>\n<l>1 2</l>\n"},
            {"</edges>\n</faceSet>\n", "</lines>\n</lineSet>\n"}}},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
          {Word::FillColor, "#010203", {{"<color>255 0 0</", "<color>1 2 3</"}}},
          {Word::FillColor, "#ff000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{"</points>\n", std::string("</points>\n") + colorsOfThree}}},
          {Word::LineColor,
           "#010203",
           {{"<thickness>3.54331</thickness>\n<color>200 0 0</",
             "<thickness>3.54331</thickness>\n<color>1 2 3</"},
            {"<thickness>1.77165</thickness>\n<color>200 0 0</",
             "<thickness>1.77165</thickness>\n<color>1 2 3</"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
          {Word::PointSize, "4", {{"<thickness>3.54331</", "<thickness>7.08661</"}}},
      });
}

TEST(Poly3dTest, ShowsItsPropertiesAsALine) {
  const std::string coloredLineSet =
      "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"hide\">";
  expectPropertyEffects<Poly3d>(
      {with(fromBlueToRed, {{Word::Filled, "false"}, {Word::LinesVisible, "true"}}), threeHeights},
      {
          {Word::LinesVisible, "false", vanishes},
          {Word::PointsVisible, "true", {{"point=\"hide\"", "point=\"show\""}}},
          {Word::Filled,
           "true",
           {{"pointOutline=\"hide\" color=\"show\" point", "pointOutline=\"hide\" point"},
            {coloredLineSet + "\n<lines num=\"2\">\n<l>0 1</l>\n<l>1 2</l>\n",
             "<faceSet edge=\"show\">\n"
             "<faces num=\"1\">\n<f>0 1 2</f>\n<color>255 0 0</color>\n</faces>\n"
             "<neighbours num=\"0\"/>\n<edges>\n"},
            {std::string("</lines>\n<colors num=\"2\">\n") + colorOf0To4 + colorOf4To10 +
                 "</colors>\n</lineSet>\n",
             "</edges>\n</faceSet>\n"}}},
          {Word::Closed,
           "true",
           {{"<lines num=\"2\">\n<l>0 1</l>\n<l>1 2</l>\n",
             "<lines num=\"3\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n"},
            {std::string("<colors num=\"2\">\n") + colorOf0To4 + colorOf4To10,
             std::string("<colors num=\"3\">\n") + colorOf0To4 + colorOf4To10 + colorOf10To0}}},
          {Word::Shading,
           "Smooth",
           {{"colorSmooth=\"hide\"", "colorSmooth=\"show\""},
            {"<material>", "<material shading=\"gouraud\">"}}},
          {Word::LineColorType,
           "Flat",
           {{"pointOutline=\"hide\" color=\"show\"", "pointOutline=\"hide\" color=\"hide\""},
            {colorsOfThree, ""},
            {coloredLineSet,
             "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">"},
            {std::string("<colors num=\"2\">\n") + colorOf0To4 + colorOf4To10 + "</colors>\n",
             ""}}},
          {Word::LineColor2,
           "#00c800",
           {{"<c>0 0 200</c>\n<c>80 0 120</c>\n", "<c>0 200 0</c>\n<c>80 120 0</c>\n"},
            {std::string(colorOf0To4) + colorOf4To10, "<c>40 160 0</c>\n<c>140 60 0</c>\n"}}},
          {Word::LineColor, "#c8000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColor,
           "#640000",
           {{"<thickness>3.54331</thickness>\n<color>200 0 0</",
             "<thickness>3.54331</thickness>\n<color>100 0 0</"},
            {"<c>80 0 120</c>\n<c>200 0 0</c>\n", "<c>40 0 120</c>\n<c>100 0 0</c>\n"},
            {"<thickness>1.77165</thickness>\n<color>200 0 0</",
             "<thickness>1.77165</thickness>\n<color>100 0 0</"},
            {std::string(colorOf0To4) + colorOf4To10, "<c>20 0 160</c>\n<c>70 0 60</c>\n"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
          {Word::PointSize, "4", {{"<thickness>3.54331</", "<thickness>7.08661</"}}},
      });
}

namespace {

const Attributes fromAndTo{{Word::From, "1 2 3"}, {Word::To, "4 5 6"}};

std::string lineThrough(const std::string& points, const std::string& lineSet) {
  return "<geometry>\n"
         "<pointSet dim=\"3\" point=\"hide\">\n"
         "<points num=\"2\">\n" +
         points +
         "<color>0 0 0</color>\n"
         "</points>\n"
         "</pointSet>\n" +
         lineSet +
         "<lines num=\"1\">\n"
         "<l>0 1</l>\n"
         "<thickness>1.77165</thickness>\n"
         "<color>0 0 0</color>\n"
         "</lines>\n"
         "</lineSet>\n" +
         material() + "</geometry>\n";
}

}  // namespace

TEST(Line3dTest, WritesItsTwoPoints) {
  EXPECT_EQ(convert<Line3d>({fromAndTo}),
            lineThrough("<p>1 2 3</p>\n<p>4 5 6</p>\n", "<lineSet>\n"));
}

TEST(Line3dTest, FollowsATransform) {
  EXPECT_EQ(convert<Line3d>({fromAndTo, "", {{Word::Row1, "2 0 0"}, {Word::Shift, "0 10 0"}}}),
            lineThrough("<p>2 12 3</p>\n<p>8 15 6</p>\n", "<lineSet>\n"));
}

TEST(Line3dTest, ShowsItsProperties) {
  expectPropertyEffects<Line3d>(
      {fromAndTo}, {
                       {Word::From, "-1 0 0.5", {{"<p>1 2 3</p>", "<p>-1 0 0.5</p>"}}},
                       {Word::To, "-1 0 0.5", {{"<p>4 5 6</p>", "<p>-1 0 0.5</p>"}}},
                       {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
                       {Word::LineColor,
                        "#01020380",
                        {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
                         {"<color>0 0 0</color>\n</lines>", "<color>1 2 3</color>\n</lines>"},
                         {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
                   });
}

TEST(Arrow3dTest, HasATipOfItsOwnOnlyWithLengthAndAngle) {
  const auto arrow = [](const std::string& length, const std::string& angle) {
    return convert<Arrow3d>(
        {with(fromAndTo, {{Word::TipLength, length}, {Word::TipAngle, angle}})});
  };
  const std::string points = "<p>1 2 3</p>\n<p>4 5 6</p>\n";
  const std::string withTip = lineThrough(points, "<lineSet arrow=\"show\">\n");
  const std::string withoutTip = lineThrough(points, "<lineSet arrow=\"hide\">\n");
  EXPECT_EQ(convert<Arrow3d>({fromAndTo}), withTip);
  EXPECT_EQ(arrow("4", "-1"), withTip);
  EXPECT_EQ(arrow("4", "nan"), withTip);
  EXPECT_EQ(arrow("4", "0"), withoutTip);
  EXPECT_EQ(arrow("0", "1"), withoutTip);
  EXPECT_EQ(arrow("nan", "1"), withoutTip);
}

TEST(Arrow3dTest, ShowsItsProperties) {
  expectPropertyEffects<Arrow3d>(
      {fromAndTo}, {
                       {Word::From, "-1 0 0.5", {{"<p>1 2 3</p>", "<p>-1 0 0.5</p>"}}},
                       {Word::To, "-1 0 0.5", {{"<p>4 5 6</p>", "<p>-1 0 0.5</p>"}}},
                       {Word::TipLength, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}},
                       {Word::TipAngle, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}},
                       {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
                       {Word::LineColor,
                        "#01020380",
                        {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
                         {"<color>0 0 0</color>\n</lines>", "<color>1 2 3</color>\n</lines>"},
                         {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
                   });
}

}  // namespace vantry::javaview
