#include "vantry/javaview/emit_plane.h"

#include <gtest/gtest.h>

#include "../locale_guard.h"
#include "property_effect.h"
#include "vantry/base/text_errors.h"
#include "written.h"

namespace vantry::javaview {

using namespace plot;

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

const Attributes filled{{Word::Filled, "true"}};
const Attributes withLines{{Word::LinesVisible, "true"}};
const Attributes withPoints{{Word::PointsVisible, "true"}};

}  // namespace

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

TEST(Line2dTest, ShowsItsProperties) { expectPropertyEffects<Line2d>({fromAndTo}, effectsOfALine); }

TEST(Arrow2dTest, ShowsItsProperties) {
  std::vector<PropertyEffect> effects = effectsOfALine;
  effects.push_back({Word::TipLength, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}});
  effects.push_back({Word::TipAngle, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}});
  expectPropertyEffects<Arrow2d>({fromAndTo}, effects);
}

// Arcs.

namespace {

const Attributes fillAlone{{Word::LinesVisible, "false"}};

std::string arcPoints(int declared, const std::string& points) {
  return "<geometry>\n"
         "<pointSet dim=\"2\" point=\"hide\">\n"
         "<points num=\"" +
         std::to_string(declared) + "\">\n" + points +
         "</points>\n"
         "</pointSet>\n";
}

std::string arcFill(const std::string& indices) {
  return "<faceSet edge=\"hide\">\n"
         "<faces num=\"1\">\n"
         "<f>" +
         indices +
         "</f>\n"
         "<color>255 0 0</color>\n"
         "</faces>\n"
         "<neighbours num=\"0\"/>\n"
         "</faceSet>\n" +
         material() + "</geometry>\n";
}

}  // namespace

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
  const std::string text = convert<Arc2d>({{{Word::EndAngle, "1000"}, {Word::Filled, "false"}}});
  EXPECT_EQ(countOf("<points num=\"15918\">", text), 1U);
  EXPECT_EQ(countOf("<p>", text), 15918U);
}

TEST(Arc2dTest, ShowsItsProperties) {
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

TEST(Text2dTest, RefusesLettersThatTheLocaleCannotRead) {
  const LocaleGuard ascii(LC_CTYPE, "C");
  EXPECT_THROW(convert<Text2d>({{}, "é"}), base::BadUnicodeString);
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
    out.heightRange = {min, max};
    emitVerticalAsymptote(out, *element);
  });
}

}  // namespace

TEST(VerticalAsymptoteTest, GoesATenthBeyondAnyViewingBox) {
  EXPECT_EQ(convert<VerticalAsymptote>({{{Word::Position, "3"}}}),
            lineThrough("<p>3 -1</p>\n<p>3 11</p>\n", "<lineSet>\n"));
  EXPECT_EQ(asymptote(-3, 1), lineThrough("<p>3 -3.4</p>\n<p>3 1.4</p>\n", "<lineSet>\n"));
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
