#include "vantry/javaview/emit_lines3d.h"

#include <gtest/gtest.h>

#include "property_effect.h"

namespace vantry::javaview {

using namespace plot;

namespace {

// Heights in a viewing box from 0 to 10. Between these two colours they give the colours below.
const std::string threeHeights = "<P3>0 0 0</P3><P3>1 0 4</P3><P3>0 1 10</P3>";
constexpr char colorsOfThree[] =
    "<colors num=\"3\">\n<c>0 0 200</c>\n<c>80 0 120</c>\n<c>200 0 0</c>\n</colors>\n";
constexpr char colorOf0To4[] = "<c>40 0 160</c>\n";
constexpr char colorOf4To10[] = "<c>140 0 60</c>\n";
constexpr char colorOf10To0[] = "<c>100 0 100</c>\n";

}  // namespace

TEST(Pts3dTest, ShowsItsProperties) {
  expectPropertyEffects<Pts3d>(
      {{}, "<P3>0 0 0</P3>"},
      {
          {Word::PointsVisible, "false", vanishes},
          {Word::PointSize, "1", {{"<thickness>3.54331</", "<thickness>1.77165</"}}},
          {Word::PointColor, "#010203", {{"<color>255 0 0</", "<color>1 2 3</"}}},
          {Word::PointColor, "#ff000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
      });
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

const std::vector<PropertyEffect> effectsOfALine{
    {Word::From, "-1 0 0.5", {{"<p>1 2 3</p>", "<p>-1 0 0.5</p>"}}},
    {Word::To, "-1 0 0.5", {{"<p>4 5 6</p>", "<p>-1 0 0.5</p>"}}},
    {Word::LineWidth, "1", {{"<thickness>1.77165", "<thickness>3.54331"}}},
    {Word::LineColor,
     "#01020380",
     {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
      {"<color>0 0 0</color>\n</lines>", "<color>1 2 3</color>\n</lines>"},
      {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
};

}  // namespace

TEST(Line3dTest, ShowsItsProperties) { expectPropertyEffects<Line3d>({fromAndTo}, effectsOfALine); }

TEST(Arrow3dTest, ShowsItsProperties) {
  std::vector<PropertyEffect> effects = effectsOfALine;
  effects.push_back({Word::TipLength, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}});
  effects.push_back({Word::TipAngle, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}});
  expectPropertyEffects<Arrow3d>({fromAndTo}, effects);
}

}  // namespace vantry::javaview
