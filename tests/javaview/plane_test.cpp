#include "vantry/javaview/emit_plane.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "../locale_guard.h"
#include "property_effect.h"
#include "vantry/base/text_errors.h"
#include "written.h"

namespace vantry::javaview {

namespace {

// Scales x by 2 and moves y by 10.
const Attributes someTransform{{Word::Row1, "2 0"}, {Word::Shift, "0 10"}};

int count(const std::string& text, const std::string& part) {
  int result = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++result;
  }
  return result;
}

}  // namespace

TEST(Pts2dTest, WritesItsPoints) {
  EXPECT_EQ(convert<Pts2d>({{}, "<P2>1 2</P2><P2>nan 0.1</P2><P2>-1e-7 1234567</P2>"}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\">\n"
            "<points num=\"3\">\n"
            "<p>1 2</p>\n"
            "<p>nan 0.1</p>\n"
            "<p>-1e-07 1.23457e+06</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>255 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n" +
                material() + "</geometry>\n");
}

TEST(Pts2dTest, WritesAnEmptyList) {
  EXPECT_EQ(convert<Pts2d>({}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\">\n"
            "<points num=\"0\">\n"
            "<thickness>3.54331</thickness>\n"
            "<color>255 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n" +
                material() + "</geometry>\n");
}

TEST(Pts2dTest, PassesOverTheColorsOfItsPoints) {
  EXPECT_EQ(convert<Pts2d>({{}, "<P2>1 2 #00ff00</P2>"}), convert<Pts2d>({{}, "<P2>1 2</P2>"}));
}

TEST(Pts2dTest, ShowsItsProperties) {
  expectPropertyEffects<Pts2d>(
      {{}, "<P2>1 2</P2>"},
      {
          {Word::PointsVisible, "false", vanishes},
          {Word::PointSize, "1", {{"<thickness>3.54331</", "<thickness>1.77165</"}}},
          {Word::PointColor, "#010203", {{"<color>255 0 0</", "<color>1 2 3</"}}},
          {Word::PointColor, "#ff000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
      });
}

TEST(Pt2dTest, WritesItsPosition) {
  EXPECT_EQ(convert<Pt2d>({{{Word::Position, "3 -4.5"}}, "", someTransform}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\">\n"
            "<points num=\"1\">\n"
            "<p>6 5.5</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n" +
                material() + "</geometry>\n");
}

// PointsVisible is not among the properties that have an effect.
TEST(Pt2dTest, ShowsItsPropertiesAndIsWrittenWhetherPointsAreVisibleOrNot) {
  expectPropertyEffects<Pt2d>(
      {{{Word::Position, "1 2"}}},
      {
          {Word::Position, "0.5 -1", {{"<p>1 2</p>", "<p>0.5 -1</p>"}}},
          {Word::PointSize, "0.1", {{"<thickness>3.54331</", "<thickness>1</"}}},
          {Word::PointColor,
           "#010203",
           {{"<color>0 0 0</color>\n</p", "<color>1 2 3</color>\n</p"}}},
          {Word::PointColor, "#00000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
      });
}

// Polygons. Heights are in a viewing box from 0 to 10.

namespace {

const std::string triangle = "<P2>0 0</P2><P2>4 0</P2><P2>4 10</P2>";

std::string trianglePoints(const std::string& color = "0 0 0") {
  return "<points num=\"3\">\n"
         "<p>0 0</p>\n"
         "<p>4 0</p>\n"
         "<p>4 10</p>\n"
         "<thickness>3.54331</thickness>\n"
         "<color>" +
         color +
         "</color>\n"
         "</points>\n";
}

std::string filledTriangle(const std::string& color = "0 0 0") {
  return "<geometry>\n"
         "<pointSet dim=\"2\" point=\"hide\">\n" +
         trianglePoints() +
         "</pointSet>\n"
         "<faceSet edge=\"hide\">\n"
         "<faces num=\"1\">\n"
         "<f>0 1 2</f>\n"
         "<color>" +
         color +
         "</color>\n"
         "</faces>\n"
         "<neighbours num=\"0\"/>\n"
         "</faceSet>\n" +
         material() + "</geometry>\n";
}

std::string outlineOfTriangle() {
  return "<geometry>\n"
         "<pointSet dim=\"2\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n" +
         trianglePoints() +
         "</pointSet>\n"
         "<lineSet color=\"hide\" colorFromPoints=\"hide\">\n"
         "<lines num=\"2\">\n"
         "<l>0 1</l>\n"
         "<l>1 2</l>\n"
         "<thickness>1.77165</thickness>\n"
         "<color>0 0 0</color>\n"
         "</lines>\n"
         "</lineSet>\n" +
         material() + "</geometry>\n";
}

const Attributes filled{{Word::Filled, "true"}};
const Attributes withLines{{Word::LinesVisible, "true"}};
const Attributes withPoints{{Word::PointsVisible, "true"}};

}  // namespace

TEST(Poly2dTest, IsNothingWithoutFillLinesAndPoints) {
  EXPECT_EQ(convert<Poly2d>({{}, triangle}), "");
}

TEST(Poly2dTest, IsNothingWithAFillOfTwoPoints) {
  EXPECT_EQ(convert<Poly2d>({filled, "<P2>0 0</P2><P2>4 0</P2>"}), "");
}

TEST(Poly2dTest, IsItsFillAlone) {
  EXPECT_EQ(convert<Poly2d>({filled, triangle}), filledTriangle());
}

TEST(Poly2dTest, FillsAnyNumberOfPointsWithOneFace) {
  const std::string text =
      convert<Poly2d>({filled, "<P2>0 0</P2><P2>1 0</P2><P2>2 1</P2><P2>1 2</P2><P2>0 2</P2>"});
  EXPECT_EQ(count(text, "<faces num=\"1\">\n<f>0 1 2 3 4</f>\n"), 1);
}

TEST(Poly2dTest, WritesTheFillAheadOfTheOutline) {
  EXPECT_EQ(convert<Poly2d>({with(filled, withLines), triangle}),
            filledTriangle() + outlineOfTriangle());
}

TEST(Poly2dTest, IsItsOutlineWithAFillOfTwoPoints) {
  const std::string two = "<P2>0 0</P2><P2>4 0</P2>";
  EXPECT_EQ(convert<Poly2d>({with(filled, withLines), two}), convert<Poly2d>({withLines, two}));
}

TEST(Poly2dTest, HasNoMaterialWithPointsAlone) {
  EXPECT_EQ(convert<Poly2d>({withPoints, triangle}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\" color=\"hide\" point=\"show\">\n" +
                trianglePoints() +
                "</pointSet>\n"
                "</geometry>\n");
}

TEST(Poly2dTest, HasNoLinesThroughASinglePoint) {
  EXPECT_EQ(convert<Poly2d>({withLines, "<P2>1 2</P2>"}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n"
            "<points num=\"1\">\n"
            "<p>1 2</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n"
            "</geometry>\n");
}

TEST(Poly2dTest, ClosesASinglePointWithALineToItself) {
  EXPECT_EQ(convert<Poly2d>({with(withLines, {{Word::Closed, "true"}}), "<P2>1 2</P2>"}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n"
            "<points num=\"1\">\n"
            "<p>1 2</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n"
            "<lineSet color=\"hide\" colorFromPoints=\"hide\">\n"
            "<lines num=\"1\">\n"
            "<l>0 0</l>\n"
            "<thickness>1.77165</thickness>\n"
            "<color>0 0 0</color>\n"
            "</lines>\n"
            "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Poly2dTest, IsAnEmptyPointSetWithoutPoints) {
  const std::string nothing =
      "<geometry>\n"
      "<pointSet dim=\"2\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n"
      "<points num=\"0\">\n"
      "<thickness>3.54331</thickness>\n"
      "<color>0 0 0</color>\n"
      "</points>\n"
      "</pointSet>\n"
      "</geometry>\n";
  EXPECT_EQ(convert<Poly2d>({withLines}), nothing);
  EXPECT_EQ(convert<Poly2d>({with(withLines, {{Word::Closed, "true"}})}), nothing);
}

TEST(Poly2dTest, TakesColorsFromHeights) {
  EXPECT_EQ(convert<Poly2d>({with(with(fromBlueToRed, withLines), {{Word::Closed, "true"}}),
                             "<P2>0 0</P2><P2>1 4</P2><P2>2 10</P2>"}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\" color=\"show\" point=\"hide\">\n"
            "<points num=\"3\">\n"
            "<p>0 0</p>\n"
            "<p>1 4</p>\n"
            "<p>2 10</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>200 0 0</color>\n"
            "</points>\n"
            "<colors num=\"3\">\n"
            "<c>0 0 200</c>\n"
            "<c>80 0 120</c>\n"
            "<c>200 0 0</c>\n"
            "</colors>\n"
            "</pointSet>\n"
            "<lineSet color=\"show\" colorFromPoints=\"show\">\n"
            "<lines num=\"3\">\n"
            "<l>0 1</l>\n"
            "<l>1 2</l>\n"
            "<l>2 0</l>\n"
            "<thickness>1.77165</thickness>\n"
            "<color>200 0 0</color>\n"
            "</lines>\n"
            "<colors num=\"3\">\n"
            "<c>40 0 160</c>\n"
            "<c>140 0 60</c>\n"
            "<c>100 0 100</c>\n"
            "</colors>\n"
            "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Poly2dTest, TakesFunctionalColorsFromItsPoints) {
  EXPECT_EQ(convert<Poly2d>({with(withLines, {{Word::LineColorType, "Functional"}}),
                             "<P2>0 0 #ff0000</P2><P2>1 4 #00ff01</P2>"}),
            "<geometry>\n"
            "<pointSet dim=\"2\" pointOutline=\"hide\" color=\"show\" point=\"hide\">\n"
            "<points num=\"2\">\n"
            "<p>0 0</p>\n"
            "<p>1 4</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "<colors num=\"2\">\n"
            "<c>255 0 0</c>\n"
            "<c>0 255 1</c>\n"
            "</colors>\n"
            "</pointSet>\n"
            "<lineSet color=\"show\" colorFromPoints=\"show\">\n"
            "<lines num=\"1\">\n"
            "<l>0 1</l>\n"
            "<thickness>1.77165</thickness>\n"
            "<color>0 0 0</color>\n"
            "</lines>\n"
            "<colors num=\"1\">\n"
            "<c>127 127 0</c>\n"
            "</colors>\n"
            "</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Poly2dTest, IsNotColoredByFunctionalColorsThatItDoesNotHave) {
  EXPECT_EQ(convert<Poly2d>({with(withLines, {{Word::LineColorType, "Functional"}}), triangle}),
            outlineOfTriangle());
}

TEST(Poly2dTest, PassesOverTheColorsOfItsPointsUnlessFunctional) {
  EXPECT_EQ(
      convert<Poly2d>({withLines, "<P2>0 0 #ff0000</P2><P2>4 0 #00ff00</P2><P2>4 10 #0000ff</P2>"}),
      outlineOfTriangle());
}

TEST(Poly2dTest, ShowsAnyPatternByALighterFill) {
  const auto polygonWith = [](const std::string& pattern) {
    return convert<Poly2d>(
        {with(filled, {{Word::FillColor, "#ff0000"}, {Word::FillPattern, pattern}}), triangle});
  };
  EXPECT_EQ(polygonWith("Solid"), filledTriangle("255 0 0"));
  EXPECT_EQ(polygonWith("DiagonalLines"), filledTriangle("255 128 128"));
  EXPECT_EQ(polygonWith("Anything"), filledTriangle("255 128 128"));
}

TEST(Poly2dTest, ShowsItsPropertiesAsAFill) {
  const Attributes colors{{Word::LineColor, "#c80000"}, {Word::FillColor, "#00c800"}};
  const MinimalDocument base{with(colors, filled), triangle};
  const auto fillAnd = [&](const Attributes& outline) {
    return convert<Poly2d>(base) + convert<Poly2d>({with(colors, outline), triangle});
  };
  expectPropertyEffects<Poly2d>(
      base, {
                {Word::Filled, "false", vanishes},
                {Word::FillColor, "#010203", {{"<color>0 200 0</", "<color>1 2 3</"}}},
                {Word::FillColor, "#00c80080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
                {Word::FillPattern, "CrossedLines", {{"<color>0 200 0</", "<color>128 228 128</"}}},
                {Word::LineColor, "#01020380", {{"<color>200 0 0</", "<color>1 2 3</"}}},
                {Word::PointSize, "4", {{"<thickness>3.54331</", "<thickness>7.08661</"}}},
                {Word::LinesVisible, "true", {{"", fillAnd(withLines)}}},
                {Word::PointsVisible, "true", {{"", fillAnd(withPoints)}}},
            });
}

TEST(Poly2dTest, ShowsItsPropertiesAsAnOutline) {
  const std::string coloredPoints =
      "<colors num=\"3\">\n<c>0 0 200</c>\n<c>0 0 200</c>\n<c>200 0 0</c>\n</colors>\n";
  const std::string coloredLines =
      "<colors num=\"2\">\n<c>0 0 200</c>\n<c>100 0 100</c>\n</colors>\n";
  const MinimalDocument base{with(fromBlueToRed, withLines), triangle};
  const MinimalDocument fill{with(fromBlueToRed, filled), triangle};
  expectPropertyEffects<Poly2d>(
      base,
      {
          {Word::LinesVisible, "false", vanishes},
          {Word::PointsVisible, "true", {{"point=\"hide\"", "point=\"show\""}}},
          {Word::Filled, "true", {{"", convert<Poly2d>(fill) + convert<Poly2d>(base)}}},
          {Word::Closed,
           "true",
           {{"<lines num=\"2\">\n<l>0 1</l>\n<l>1 2</l>\n",
             "<lines num=\"3\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n"},
            {coloredLines,
             "<colors num=\"3\">\n<c>0 0 200</c>\n<c>100 0 100</c>\n<c>100 0 100</c>\n"
             "</colors>\n"}}},
          {Word::LineColorType,
           "Flat",
           {{"pointOutline=\"hide\" color=\"show\"", "pointOutline=\"hide\" color=\"hide\""},
            {coloredPoints, ""},
            {"<lineSet color=\"show\" colorFromPoints=\"show\">",
             "<lineSet color=\"hide\" colorFromPoints=\"hide\">"},
            {coloredLines, ""}}},
          {Word::LineColor2,
           "#00c800",
           {{coloredPoints,
             "<colors num=\"3\">\n<c>0 200 0</c>\n<c>0 200 0</c>\n<c>200 0 0</c>\n</colors>\n"},
            {coloredLines, "<colors num=\"2\">\n<c>0 200 0</c>\n<c>100 100 0</c>\n</colors>\n"}}},
          {Word::LineColor, "#c8000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColor,
           "#640000",
           {{"<thickness>3.54331</thickness>\n<color>200 0 0</",
             "<thickness>3.54331</thickness>\n<color>100 0 0</"},
            {coloredPoints,
             "<colors num=\"3\">\n<c>0 0 200</c>\n<c>0 0 200</c>\n<c>100 0 0</c>\n</colors>\n"},
            {"<thickness>1.77165</thickness>\n<color>200 0 0</",
             "<thickness>1.77165</thickness>\n<color>100 0 0</"},
            {coloredLines, "<colors num=\"2\">\n<c>0 0 200</c>\n<c>50 0 100</c>\n</colors>\n"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
          {Word::PointSize, "4", {{"<thickness>3.54331</", "<thickness>7.08661</"}}},
      });
}

// Lines and arrows.

namespace {

const Attributes fromAndTo{{Word::From, "1 2"}, {Word::To, "4 5"}};

std::string lineThrough(const std::string& points, const std::string& lineSet) {
  return "<geometry>\n"
         "<pointSet dim=\"2\" point=\"hide\">\n"
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

const std::vector<PropertyEffect> effectsOfALine{
    {Word::From, "-1 0.5", {{"<p>1 2</p>", "<p>-1 0.5</p>"}}},
    {Word::To, "-1 0.5", {{"<p>4 5</p>", "<p>-1 0.5</p>"}}},
    {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
    {Word::LineColor,
     "#01020380",
     {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
      {"<color>0 0 0</color>\n</lines>", "<color>1 2 3</color>\n</lines>"},
      {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
};

}  // namespace

TEST(Line2dTest, WritesItsTwoPoints) {
  EXPECT_EQ(convert<Line2d>({fromAndTo}), lineThrough("<p>1 2</p>\n<p>4 5</p>\n", "<lineSet>\n"));
}

TEST(Line2dTest, FollowsATransform) {
  EXPECT_EQ(convert<Line2d>({fromAndTo, "", someTransform}),
            lineThrough("<p>2 12</p>\n<p>8 15</p>\n", "<lineSet>\n"));
}

TEST(Line2dTest, ShowsItsProperties) { expectPropertyEffects<Line2d>({fromAndTo}, effectsOfALine); }

TEST(Arrow2dTest, HasATipOnlyWithLengthAndAngle) {
  const auto arrow = [](const std::string& length, const std::string& angle) {
    return convert<Arrow2d>(
        {with(fromAndTo, {{Word::TipLength, length}, {Word::TipAngle, angle}})});
  };
  const std::string points = "<p>1 2</p>\n<p>4 5</p>\n";
  const std::string withTip = lineThrough(points, "<lineSet arrow=\"show\">\n");
  const std::string withoutTip = lineThrough(points, "<lineSet arrow=\"hide\">\n");
  EXPECT_EQ(convert<Arrow2d>({fromAndTo}), withTip);
  EXPECT_EQ(arrow("4", "-1"), withTip);
  EXPECT_EQ(arrow("4", "nan"), withTip);
  EXPECT_EQ(arrow("4", "0"), withoutTip);
  EXPECT_EQ(arrow("0", "1"), withoutTip);
  EXPECT_EQ(arrow("nan", "1"), withoutTip);
}

TEST(Arrow2dTest, ShowsItsProperties) {
  std::vector<PropertyEffect> effects = effectsOfALine;
  effects.push_back({Word::TipLength, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}});
  effects.push_back({Word::TipAngle, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}});
  expectPropertyEffects<Arrow2d>({fromAndTo}, effects);
}

// Arcs.

namespace {

const Attributes lineAlone{{Word::Filled, "false"}};
const Attributes fillAlone{{Word::LinesVisible, "false"}};

/// An arc of the unit circle, with these angles.
std::string arc(const std::string& start, const std::string& end, const Attributes& attributes) {
  return convert<Arc2d>({with({{Word::StartAngle, start}, {Word::EndAngle, end}}, attributes)});
}

std::string arcPoints(int declared, const std::string& points) {
  return "<geometry>\n"
         "<pointSet dim=\"2\" point=\"hide\">\n"
         "<points num=\"" +
         std::to_string(declared) + "\">\n" + points +
         "</points>\n"
         "</pointSet>\n";
}

std::string arcLine(const std::string& indices) {
  return "<lineSet>\n"
         "<lines num=\"1\">\n"
         "<l>" +
         indices +
         "</l>\n"
         "<thickness>1.77165</thickness>\n"
         "<color>0 0 0</color>\n"
         "</lines>\n"
         "</lineSet>\n" +
         material() + "</geometry>\n";
}

std::string arcFill(const std::string& indices, const std::string& color = "255 0 0") {
  return "<faceSet edge=\"hide\">\n"
         "<faces num=\"1\">\n"
         "<f>" +
         indices +
         "</f>\n"
         "<color>" +
         color +
         "</color>\n"
         "</faces>\n"
         "<neighbours num=\"0\"/>\n"
         "</faceSet>\n" +
         material() + "</geometry>\n";
}

/// "first", and each following index up to "last" after a blank.
std::string indices(int first, int last) {
  std::string text = std::to_string(first);
  for (int i = first + 1; i <= last; ++i) text += " " + std::to_string(i);
  return text;
}

// Of an ellipse with the axes 2 and 1 around (1, -1), from 0 to 0.2.
const Attributes shortArc{{Word::Center, "1 -1"},
                          {Word::SemiAxisX, "2"},
                          {Word::SemiAxisY, "1"},
                          {Word::EndAngle, "0.2"}};
const std::string pointsOfShortArc =
    "<p>1 -1</p>\n"  // the centre
    "<p>3 -1</p>\n"
    "<p>2.99605 -0.937209</p>\n"
    "<p>2.98423 -0.874667</p>\n"
    "<p>2.96457 -0.812619</p>\n"
    "<p>2.96013 -0.801331</p>\n";

}  // namespace

TEST(Arc2dTest, IsNothingWithoutFillAndLines) {
  EXPECT_EQ(convert<Arc2d>({with(lineAlone, fillAlone)}), "");
}

TEST(Arc2dTest, LeavesTheCentreOutOfAnOpenLine) {
  EXPECT_EQ(convert<Arc2d>({with(shortArc, lineAlone)}),
            arcPoints(6, pointsOfShortArc) + arcLine("1 2 3 4 5"));
}

TEST(Arc2dTest, GoesThroughTheCentreWithAClosedLine) {
  EXPECT_EQ(convert<Arc2d>({with(with(shortArc, lineAlone), {{Word::Closed, "true"}})}),
            arcPoints(6, pointsOfShortArc) + arcLine("0 1 2 3 4 5 0"));
}

TEST(Arc2dTest, FillsASectorAheadOfTheLine) {
  EXPECT_EQ(convert<Arc2d>({shortArc}), arcPoints(6, pointsOfShortArc) + arcFill("0 1 2 3 4 5") +
                                            arcPoints(6, pointsOfShortArc) + arcLine("1 2 3 4 5"));
}

TEST(Arc2dTest, ShowsAnyPatternByALighterFill) {
  EXPECT_EQ(
      convert<Arc2d>({with(with(shortArc, fillAlone), {{Word::FillPattern, "VerticalLines"}})}),
      arcPoints(6, pointsOfShortArc) + arcFill("0 1 2 3 4 5", "255 128 128"));
}

TEST(Arc2dTest, FollowsATransform) {
  EXPECT_EQ(convert<Arc2d>({with(shortArc, lineAlone), "", someTransform}),
            arcPoints(6,
                      "<p>2 9</p>\n"
                      "<p>6 9</p>\n"
                      "<p>5.99211 9.06279</p>\n"
                      "<p>5.96846 9.12533</p>\n"
                      "<p>5.92915 9.18738</p>\n"
                      "<p>5.92027 9.19867</p>\n") +
                arcLine("1 2 3 4 5"));
}

TEST(Arc2dTest, GoesFromPointToPointInHundredthsOfATurn) {
  const std::string text = arc("0", "1", lineAlone);
  EXPECT_EQ(count(text, "<p>"), 18);
  EXPECT_TRUE(
      text.starts_with("<geometry>\n"
                       "<pointSet dim=\"2\" point=\"hide\">\n"
                       "<points num=\"18\">\n"
                       "<p>0 0</p>\n"
                       "<p>1 0</p>\n"
                       "<p>0.998027 0.0627905</p>\n"));
  EXPECT_TRUE(
      text.ends_with("<p>0.587785 0.809017</p>\n"
                     "<p>0.540302 0.841471</p>\n"
                     "</points>\n"
                     "</pointSet>\n" +
                     arcLine(indices(1, 17))));
}

// The hundredth step ends just before the full turn, so that the first point comes once more.
TEST(Arc2dTest, WritesOnePointMoreThanItDeclaresForAFullTurn) {
  const std::string text = arc("0", "6.283185307179586", {});
  EXPECT_EQ(count(text, "<points num=\"100\">\n<p>1 0</p>\n<p>0.998027 0.0627905</p>\n"), 2);
  EXPECT_EQ(count(text, "<p>"), 2 * 101);
  EXPECT_EQ(count(text, arcFill(indices(0, 99))), 1);
  EXPECT_EQ(count(text, arcLine(indices(0, 99) + " 0")), 1);
}

TEST(Arc2dTest, IsFullAfterATurnFromAnywhere) {
  const std::string text = arc("1", "7.283185307179586", lineAlone);
  EXPECT_EQ(count(text, "<points num=\"100\">\n<p>0.540302 0.841471</p>\n"), 1);
  EXPECT_EQ(count(text, arcLine(indices(0, 99) + " 0")), 1);
}

TEST(Arc2dTest, IsNotFullWithoutAngles) {
  const std::string text = convert<Arc2d>({lineAlone});
  EXPECT_EQ(count(text, "<points num=\"102\">\n<p>0 0</p>\n<p>1 0</p>\n"), 1);
  EXPECT_EQ(count(text, "<p>"), 102);
  EXPECT_EQ(count(text, "<p>0.998027 -0.0627905</p>\n<p>1 -7.17959e-09</p>\n</points>\n"), 1);
  EXPECT_EQ(count(text, arcLine(indices(1, 101))), 1);
}

TEST(Arc2dTest, WritesOnePointLessThanItDeclaresForWholeSteps) {
  EXPECT_EQ(
      arc("0", "0.06283185307179587", {}),
      arcPoints(4, "<p>0 0</p>\n<p>1 0</p>\n<p>0.998027 0.0627905</p>\n") + arcFill("0 1 2 3") +
          arcPoints(4, "<p>0 0</p>\n<p>1 0</p>\n<p>0.998027 0.0627905</p>\n") + arcLine("1 2 3"));
}

TEST(Arc2dTest, IsACentreAndAnEndWhenItGoesBackwards) {
  const std::string points = arcPoints(-12, "<p>0 0</p>\n<p>1 0</p>\n");
  EXPECT_EQ(arc("1", "0", {}), points + arcFill("0") + points + arcLine("1"));
  EXPECT_EQ(arc("1", "0", with(lineAlone, {{Word::Closed, "true"}})), points + arcLine("0 0"));
}

TEST(Arc2dTest, PrintsACountBelowAllOthersForATurnFarBackwards) {
  const std::string text = arc("1e300", "0", lineAlone);
  EXPECT_EQ(count(text, "<points num=\"-9223372036854775805\">\n<p>0 0</p>\n<p>1 0</p>\n</p"), 1);
}

TEST(Arc2dTest, CountsThreePointsBetweenAnglesThatAreNoNumbers) {
  EXPECT_EQ(arc("nan", "0", {}), arcPoints(3, "<p>0 0</p>\n<p>1 0</p>\n") + arcFill("0 1 2") +
                                     arcPoints(3, "<p>0 0</p>\n<p>1 0</p>\n") + arcLine("1 2"));
  EXPECT_EQ(arc("0", "nan", lineAlone),
            arcPoints(3, "<p>0 0</p>\n<p>nan nan</p>\n") + arcLine("1 2"));
}

TEST(Arc2dTest, RefusesAnglesWithoutEndBeforeAnythingIsWritten) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const auto expectRefusal = [&document](const char* start, const char* end) {
    SCOPED_TRACE(std::string(start) + " to " + end);
    const base::Ref<Arc2d> endless(new Arc2d(document.get()));
    endless->setAttributeFromString(Word::Filled, "true");
    endless->setAttributeFromString(Word::StartAngle, start);
    endless->setAttributeFromString(Word::EndAngle, end);
    EXPECT_EQ(refusal([&](GeometryOutput& out) { emitArc2d(out, *endless); }),
              "angle range too large in Arc2d");
  };
  expectRefusal("0", "inf");
  expectRefusal("0", "-inf");
  expectRefusal("-inf", "0");
  expectRefusal("inf", "-inf");
  expectRefusal("-1e308", "1.7e308");
  expectRefusal("0", "628318.6");
  expectRefusal("1e18", "1.0000000000001e18");  // a step changes nothing here
}

TEST(Arc2dTest, AcceptsManyTurns) {
  const std::string text = arc("0", "1000", lineAlone);
  EXPECT_EQ(count(text, "<points num=\"15918\">"), 1);
  EXPECT_EQ(count(text, "<p>"), 15918);
}

TEST(Arc2dTest, IsNothingWithAnglesWithoutEndThatNobodySees) {
  EXPECT_EQ(arc("0", "inf", with(lineAlone, fillAlone)), "");
}

TEST(Arc2dTest, ShowsItsProperties) {
  // Filled and LinesVisible have tests of their own above.
  const MinimalDocument base{
      {{Word::EndAngle, "0.05"}, {Word::Filled, "false"}, {Word::LineColor, "#c80000"}}};
  expectPropertyEffects<Arc2d>(
      base,
      {
          {Word::Center,
           "2 3",
           {{"<p>0 0</p>", "<p>2 3</p>"},
            {"<p>1 0</p>", "<p>3 3</p>"},
            {"<p>0.99875 0.0499792</p>", "<p>2.99875 3.04998</p>"}}},
          {Word::SemiAxisX,
           "2",
           {{"<p>1 0</p>", "<p>2 0</p>"}, {"<p>0.99875 0.0499792</p>", "<p>1.9975 0.0499792</p>"}}},
          {Word::SemiAxisY, "2", {{"<p>0.99875 0.0499792</p>", "<p>0.99875 0.0999583</p>"}}},
          {Word::StartAngle,
           "0.05",
           {{"num=\"3\">\n<p>0 0</p>\n<p>1 0</p>\n",  //
             "num=\"3\">\n<p>0 0</p>\n"}}},
          {Word::EndAngle, "0", {{"<p>0.99875 0.0499792</p>\n", ""}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
          {Word::LineColor, "#010203", {{"<color>200 0 0</", "<color>1 2 3</"}}},
          {Word::LineColor, "#c8000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::Closed, "true", {{"<l>1 2</l>", "<l>0 1 2 0</l>"}}},
          {Word::LinesVisible, "false", vanishes},
          {Word::Filled,
           "true",
           {{"", arcPoints(3, "<p>0 0</p>\n<p>1 0</p>\n<p>0.99875 0.0499792</p>\n") +
                     arcFill("0 1 2") + convert<Arc2d>(base)}}},
      });
}

TEST(Arc2dTest, ShowsItsPropertiesAsAFill) {
  const MinimalDocument base{with(fillAlone, {{Word::EndAngle, "0.05"}})};
  const Attributes lineToo{{Word::EndAngle, "0.05"}, {Word::Filled, "false"}};
  expectPropertyEffects<Arc2d>(
      base,
      {
          {Word::FillColor, "#010203", {{"<color>255 0 0</", "<color>1 2 3</"}}},
          {Word::FillColor, "#ff000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::FillPattern, "CrossedLines", {{"<color>255 0 0</", "<color>255 128 128</"}}},
          {Word::Filled, "false", vanishes},
          {Word::LinesVisible, "true", {{"", convert<Arc2d>(base) + convert<Arc2d>({lineToo})}}},
          {Word::EndAngle, "0", {{"<p>0.99875 0.0499792</p>\n", ""}}},
          {Word::StartAngle,
           "0.05",
           {{"num=\"3\">\n<p>0 0</p>\n<p>1 0</p>\n", "num=\"3\">\n<p>0 0</p>\n"}}},
          {Word::SemiAxisY, "2", {{"<p>0.99875 0.0499792</p>", "<p>0.99875 0.0999583</p>"}}},
          {Word::SemiAxisX,
           "2",
           {{"<p>1 0</p>", "<p>2 0</p>"}, {"<p>0.99875 0.0499792</p>", "<p>1.9975 0.0499792</p>"}}},
          {Word::Center,
           "2 3",
           {{"<p>0 0</p>", "<p>2 3</p>"},
            {"<p>1 0</p>", "<p>3 3</p>"},
            {"<p>0.99875 0.0499792</p>", "<p>2.99875 3.04998</p>"}}},
      });
}

// Texts.

namespace {

std::string label(const std::string& name, const std::string& position) {
  return "<geometry>\n"
         "<pointSet dim=\"2\" point=\"show\">\n"
         "<points num=\"1\">\n"
         "<p name=\"" +
         name + "\">" + position +
         "</p>\n"
         "<thickness>0</thickness>\n"
         "<color>0 0 0</color>\n"
         "<labelAtt visible=\"show\" horAlign=\"head\" verAlign=\"middle\" style=\"plain\""
         " name=\"Times\">\n"
         "<color>0 0 0</color>\n"
         "<size>11</size>\n"
         "</labelAtt>\n"
         "</points>\n"
         "</pointSet>\n"
         "</geometry>\n";
}

}  // namespace

TEST(Text2dTest, IsANamedPointWithoutMaterial) {
  EXPECT_EQ(convert<Text2d>({{{Word::Position, "1.5 -2"}}, "a label"}), label("a label", "1.5 -2"));
}

TEST(Text2dTest, EscapesItsText) {
  EXPECT_EQ(convert<Text2d>({{}, "&lt;a&gt; &amp; \"b\" 'c'"}),
            label("&lt;a&gt; &amp; &quot;b&quot; &apos;c&apos;", "0 0"));
}

TEST(Text2dTest, KeepsLettersBeyondAscii) {
  const LocaleGuard utf8(LC_CTYPE, "C.UTF-8");
  EXPECT_EQ(convert<Text2d>({{}, "α² ≤ ½ 𝛑"}), label("α² ≤ ½ 𝛑", "0 0"));
}

TEST(Text2dTest, RefusesLettersThatTheLocaleCannotRead) {
  const LocaleGuard ascii(LC_CTYPE, "C");
  EXPECT_THROW(convert<Text2d>({{}, "é"}), base::BadUnicodeString);
}

TEST(Text2dTest, MayBeEmpty) { EXPECT_EQ(convert<Text2d>({}), label("", "0 0")); }

TEST(Text2dTest, StaysWhereItIsWithinATransform) {
  EXPECT_EQ(convert<Text2d>({{{Word::Position, "3 4"}}, "x", someTransform}), label("x", "3 4"));
}

TEST(Text2dTest, ShowsItsProperties) {
  expectPropertyEffects<Text2d>(
      {{}, "x"},
      {
          {Word::Position, "1 2", {{"\">0 0</p>", "\">1 2</p>"}}},
          {Word::HorizontalAlignment, "Center", {{"horAlign=\"head\"", "horAlign=\"center\""}}},
          {Word::HorizontalAlignment, "End", {{"horAlign=\"head\"", "horAlign=\"tail\""}}},
          {Word::VerticalAlignment, "Top", {{"verAlign=\"middle\"", "verAlign=\"top\""}}},
          {Word::VerticalAlignment, "Bottom", {{"verAlign=\"middle\"", "verAlign=\"bottom\""}}},
          {Word::TextFont,
           "'Lucida &amp; Co' 14 #010203",
           {{"</thickness>\n<color>0 0 0</", "</thickness>\n<color>1 2 3</"},
            {"name=\"Times\">\n<color>0 0 0</color>\n<size>11</",
             "name=\"Lucida &amp; Co\">\n<color>1 2 3</color>\n<size>14</"}}},
          {Word::TextFont, "Times 11 Bold", {{"style=\"plain\"", "style=\"bold\""}}},
          {Word::TextFont, "Times 11 Italic", {{"style=\"plain\"", "style=\"italic\""}}},
          {Word::TextFont, "Times 11 Italic Bold", {{"style=\"plain\"", "style=\"bold\""}}},
      });
}

// There is no word for the right side: it is the same as the left.
TEST(Text2dTest, IsToTheLeftAndToTheRightAlike) {
  EXPECT_EQ(convert<Text2d>({{{Word::HorizontalAlignment, "Right"}}, "x"}),
            convert<Text2d>({{{Word::HorizontalAlignment, "Left"}}, "x"}));
}

// Asymptotes.

namespace {

/// A visible asymptote at 3, within these bounds.
std::string asymptote(double min, double max) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const base::Ref<VerticalAsymptote> element(new VerticalAsymptote(document.get()));
  element->setAttributeFromString(Word::Position, "3");
  element->setAttributeFromString(Word::VerticalAsymptotesVisible, "true");
  element->setAttributeFromString(Word::VerticalAsymptotesWidth, "0.5");
  return written([&](GeometryOutput& out) {
    out.valueMin = min;
    out.valueMax = max;
    emitVerticalAsymptote(out, *element);
  });
}

}  // namespace

TEST(VerticalAsymptoteTest, GoesATenthBeyondTheViewingBox) {
  EXPECT_EQ(convert<VerticalAsymptote>({{{Word::Position, "3"}}}),
            lineThrough("<p>3 -1</p>\n<p>3 11</p>\n", "<lineSet>\n"));
  EXPECT_EQ(asymptote(-3, 1), lineThrough("<p>3 -3.4</p>\n<p>3 1.4</p>\n", "<lineSet>\n"));
}

TEST(VerticalAsymptoteTest, FollowsATransform) {
  EXPECT_EQ(convert<VerticalAsymptote>({{{Word::Position, "3"}}, "", someTransform}),
            lineThrough("<p>6 9</p>\n<p>6 21</p>\n", "<lineSet>\n"));
}

TEST(VerticalAsymptoteTest, CollapsesIntoAPointWithoutAViewingBox) {
  EXPECT_EQ(asymptote(0, 0), lineThrough("<p>3 0</p>\n<p>3 0</p>\n", "<lineSet>\n"));
}

TEST(VerticalAsymptoteTest, IsNothingBetweenBoundsThatAreNoNumbers) {
  EXPECT_EQ(asymptote(nan, 1), "");
  EXPECT_EQ(asymptote(0, nan), "");
}

TEST(VerticalAsymptoteTest, ShowsItsProperties) {
  expectPropertyEffects<VerticalAsymptote>(
      {{{Word::Position, "3"}}},
      {
          {Word::Position, "nan", {{"<p>3 -1</p>\n<p>3 11</p>", "<p>nan -1</p>\n<p>nan 11</p>"}}},
          {Word::VerticalAsymptotesVisible, "false", vanishes},
          {Word::VerticalAsymptotesWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
          {Word::VerticalAsymptotesColor,
           "#01020380",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
            {"<color>0 0 0</color>\n</lines>", "<color>1 2 3</color>\n</lines>"},
            {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
      });
}

}  // namespace vantry::javaview
