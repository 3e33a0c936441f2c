#include "vantry/javaview/emit_surfaces.h"

#include <gtest/gtest.h>

#include "property_effect.h"
#include "vantry/javaview/export_error.h"
#include "written.h"

namespace vantry::javaview {

namespace {

using Strings = std::vector<std::string>;

/// The points of a surface, and how they are written.
struct Points {
  std::string content() const {
    std::string text;
    for (const std::string& point : points) text += "<P3>" + point + "</P3>";
    return text;
  }
  std::string list(std::size_t count, const std::string& thickness = "3.54331") const {
    std::string text = "<points num=\"" + std::to_string(count) + "\">\n";
    for (std::size_t i = 0; i < count; ++i) text += "<p>" + points[i] + "</p>\n";
    return text + "<thickness>" + thickness + "</thickness>\n<color>0 0 0</color>\n</points>\n";
  }
  Strings points;
};

std::string pointSet(const std::string& color, const std::string& point,
                     const std::string& content) {
  return "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"" + color + "\" point=\"" +
         point + "\">\n" + content + "</pointSet>\n";
}

/// `<colors>` with the number that it declares, and the entries that it has.
std::string colors(int declared, const Strings& entries, const std::string& end = "\n") {
  std::string text = "<colors num=\"" + std::to_string(declared) + "\">\n";
  for (const std::string& entry : entries) text += "<c>" + entry + "</c>\n";
  return text + "</colors>" + end;
}

/// As many colours as there are numbers, grey ones whose channels are the number.
Strings greys(const std::vector<int>& numbers) {
  Strings entries;
  for (const int number : numbers) {
    const std::string n = std::to_string(number);
    entries.push_back(n + " " + n + " " + n);
  }
  return entries;
}

/// Points in a row; number i has the grey 10 times i, and behind it, if `both`, 10 times i plus 5.
std::string greyPoints(int count, bool both = false) {
  std::string content;
  for (int i = 0; i < count; ++i) {
    char text[100];
    std::snprintf(text, sizeof text, "<P3>%d 0 0 #%02x%02x%02x", i, 10 * i, 10 * i, 10 * i);
    content += text;
    if (both) {
      std::snprintf(text, sizeof text, " #%02x%02x%02x", 10 * i + 5, 10 * i + 5, 10 * i + 5);
      content += text;
    }
    content += "</P3>";
  }
  return content;
}

/// The part of the text from `begin` on up to the end of `end`.
std::string part(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t from = text.find(begin);
  if (from == std::string::npos) return "";
  return text.substr(from, text.find(end, from) + end.size() - from);
}

bool contains(const std::string& text, const std::string& what) {
  return text.find(what) != std::string::npos;
}

std::size_t count(const std::string& text, const std::string& what) {
  std::size_t number = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
    ++number;
  }
  return number;
}

const Attributes twoByTwo{{Word::UMesh, "2"}, {Word::VMesh, "2"}};
const Attributes threeByTwo{{Word::UMesh, "3"}, {Word::VMesh, "2"}};

/// The first four are those of a grid of two by two; the others serve for finer grids.
const Points sixPoints{{"0 0 0", "1 0 0", "0 1 0", "1 1 10", "4 0 0", "5 0 0"}};

// What a filled grid of two by two is made of.
constexpr char faceOfFour[] =
    "<faces num=\"1\">\n<f>0 1 3 2</f>\n<color>255 0 0</color>\n</faces>\n"
    "<neighbours num=\"1\">\n<nb>-1 -1 -1 -1</nb>\n</neighbours>\n";
constexpr char blackEdges[] =
    "<edges>\n<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</edges>\n";

// The lines of that grid.
constexpr char linesOfFour[] =
    "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n"
    "<lines num=\"4\">\n<l>0 1</l>\n<l>2 3</l>\n<l>0 2</l>\n<l>1 3</l>\n"
    "<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</lines>\n</lineSet>\n";

std::string filledFour() {
  return pointSet("hide", "show", sixPoints.list(4)) +
         "<faceSet face=\"show\" edge=\"show\" color=\"hide\" colorFromPoints=\"hide\" "
         "colorSmooth=\"hide\">\n" +
         faceOfFour + blackEdges + "</faceSet>\n" + material() + "</geometry>\n";
}

std::string wireFour() {
  return pointSet("hide", "show", sixPoints.list(4)) + linesOfFour + material() + "</geometry>\n";
}

}  // namespace

TEST(Mesh3dTest, WritesATypicalSurface) {
  EXPECT_EQ(convert<Mesh3d>({twoByTwo, "<P3>0 0 0</P3><P3>1 0 0</P3><P3>0 1 0</P3><P3>1 1 1</P3>"}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\" point=\"show\">\n"
            "<points num=\"4\">\n"
            "<p>0 0 0</p>\n"
            "<p>1 0 0</p>\n"
            "<p>0 1 0</p>\n"
            "<p>1 1 1</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n"
            "<faceSet face=\"show\" edge=\"show\" color=\"hide\" colorFromPoints=\"hide\" "
            "colorSmooth=\"hide\">\n"
            "<faces num=\"1\">\n"
            "<f>0 1 3 2</f>\n"
            "<color>255 0 0</color>\n"
            "</faces>\n"
            "<neighbours num=\"1\">\n"
            "<nb>-1 -1 -1 -1</nb>\n"
            "</neighbours>\n"
            "<edges>\n"
            "<thickness>1.77165</thickness>\n"
            "<color>0 0 0</color>\n"
            "</edges>\n"
            "</faceSet>\n"
            "<material>\n"
            "<ambientIntensity>0.2</ambientIntensity>\n"
            "<diffuse><color>128 128 128</color></diffuse>\n"
            "<emissive><color>0 0 0</color></emissive>\n"
            "<shininess>0.9</shininess>\n"
            "<specular><color>128 128 128</color></specular>\n"
            "<transparency visible=\"hide\">0</transparency>\n"
            "</material>\n"
            "</geometry>\n");
}

TEST(Mesh3dTest, NumbersFacesAndNeighboursRowByRow) {
  std::string content;
  for (int i = 0; i < 12; ++i) content += "<P3>0 0 0</P3>";
  const std::string text = convert<Mesh3d>({{{Word::UMesh, "4"}, {Word::VMesh, "3"}}, content});
  EXPECT_EQ(part(text, "<faces", "</neighbours>\n"),
            "<faces num=\"6\">\n"
            "<f>0 1 5 4</f>\n<f>1 2 6 5</f>\n<f>2 3 7 6</f>\n"
            "<f>4 5 9 8</f>\n<f>5 6 10 9</f>\n<f>6 7 11 10</f>\n"
            "<color>255 0 0</color>\n</faces>\n"
            "<neighbours num=\"6\">\n"
            "<nb>1 3 -1 -1</nb>\n<nb>2 4 0 -1</nb>\n<nb>-1 5 1 -1</nb>\n"
            "<nb>4 -1 -1 0</nb>\n<nb>5 -1 3 1</nb>\n<nb>-1 -1 4 2</nb>\n"
            "</neighbours>\n");
}

TEST(Mesh3dTest, HasNoFacesInASingleRowOrColumn) {
  const std::string expected =
      pointSet("hide", "show", sixPoints.list(2)) + material() + "</geometry>\n";
  EXPECT_EQ(convert<Mesh3d>({{{Word::UMesh, "1"}, {Word::VMesh, "2"}}, sixPoints.content()}),
            expected);
  EXPECT_EQ(convert<Mesh3d>({{{Word::UMesh, "2"}, {Word::VMesh, "1"}}, sixPoints.content()}),
            expected);
}

TEST(Mesh3dTest, WritesNumbersThatAreNone) {
  EXPECT_TRUE(contains(
      convert<Mesh3d>({twoByTwo, "<P3>nan 0 0</P3><P3>1 0 0</P3><P3>0 1 0</P3><P3>1 1 1</P3>"}),
      "<p>nan 0 0</p>\n<p>1 0 0</p>\n"));
}

TEST(Mesh3dTest, DoesNotExportNormals) {
  EXPECT_EQ(convert<Mesh3d>({twoByTwo,
                             "<P3>0 0 0 0 0 1</P3><P3>1 0 0 0 0 1</P3>"
                             "<P3>0 1 0 0 0 1</P3><P3>1 1 10 0 0 1</P3>"}),
            filledFour());
}

TEST(Mesh3dTest, FollowsTheTransform) {
  EXPECT_TRUE(contains(convert<Mesh3d>({twoByTwo, sixPoints.content(), {{Word::Shift, "1 2 3"}}}),
                       "<p>1 2 3</p>\n<p>2 2 3</p>\n<p>1 3 3</p>\n<p>2 3 13</p>\n"));
}

namespace {

std::string errorOf(const Attributes& attributes, std::size_t points) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const base::Ref<Mesh3d> mesh(new Mesh3d(document.get()));
  for (const auto& [name, value] : attributes) mesh->setAttributeFromString(name, value.c_str());
  mesh->points.resize(points);
  std::string error;
  const std::string text = written([&](GeometryOutput& out) {
    try {
      emitMesh3d(out, *mesh);
    } catch (const JavaViewExportError& failure) {
      error = failure.what();
    }
  });
  EXPECT_EQ(text.empty(), !error.empty());
  return error;
}

}  // namespace

TEST(Mesh3dTest, NeedsAsManyPointsAsTheGridHas) {
  const std::string error = "not enough points in Mesh3d";
  EXPECT_EQ(errorOf(threeByTwo, 5), error);
  EXPECT_EQ(errorOf(threeByTwo, 6), "");
  EXPECT_EQ(errorOf(threeByTwo, 7), "");
  EXPECT_EQ(errorOf(twoByTwo, 0), error);
  EXPECT_EQ(errorOf(with(threeByTwo, {{Word::USubmesh, "1"}}), 9), error);
  EXPECT_EQ(errorOf(with(threeByTwo, {{Word::USubmesh, "1"}}), 10), "");
}

TEST(Mesh3dTest, IsNotImpressedByEnormousGrids) {
  const std::string error = "not enough points in Mesh3d";
  const std::string most = "2147483647";
  EXPECT_EQ(errorOf({{Word::UMesh, most}, {Word::VMesh, most}}, 100), error);
  EXPECT_EQ(errorOf({{Word::UMesh, most},
                     {Word::VMesh, most},
                     {Word::USubmesh, most},
                     {Word::VSubmesh, most}},
                    100),
            error);
  EXPECT_EQ(errorOf({{Word::UMesh, "1"}, {Word::VMesh, most}}, 100), error);
  EXPECT_EQ(errorOf({{Word::UMesh, "65536"}, {Word::VMesh, "65536"}}, 100), error);
  EXPECT_EQ(
      errorOf(
          {{Word::UMesh, "1"}, {Word::VMesh, "1"}, {Word::USubmesh, most}, {Word::VSubmesh, most}},
          1),
      "");
}

TEST(Mesh3dTest, IgnoresSurplusPoints) {
  EXPECT_EQ(convert<Mesh3d>({twoByTwo, sixPoints.content()}), filledFour());
}

// Refined meshes: the points that are to be seen are those of the parameter lines only.

namespace {

const Attributes refined{
    {Word::UMesh, "3"}, {Word::VMesh, "2"}, {Word::USubmesh, "1"}, {Word::VSubmesh, "0"}};

const Points tenPoints{{"0 0 0", "1 0 0", "2 0 0", "3 0 0", "4 0 0",  //
                        "0 1 0", "1 1 0", "2 1 0", "3 1 0", "4 1 10"}};

const std::string crossings =
    "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\">\n" +
    Points{{"0 0 0", "2 0 0", "4 0 0", "0 1 0", "2 1 0", "4 1 10"}}.list(6) + "</pointSet>\n" +
    material() + "</geometry>\n";

}  // namespace

TEST(Mesh3dTest, WritesThePointsOfParameterLinesFirst) {
  EXPECT_EQ(convert<Mesh3d>({refined, tenPoints.content()}),
            crossings + pointSet("hide", "hide", tenPoints.list(10)) +
                "<faceSet face=\"show\" edge=\"show\" color=\"hide\" colorFromPoints=\"hide\" "
                "colorSmooth=\"hide\">\n"
                "<faces num=\"4\">\n"
                "<f>0 1 6 5</f>\n<f>1 2 7 6</f>\n<f>2 3 8 7</f>\n<f>3 4 9 8</f>\n"
                "<color>255 0 0</color>\n</faces>\n"
                "<neighbours num=\"4\">\n"
                "<nb>1 -1 -1 -1</nb>\n<nb>2 -1 0 -1</nb>\n<nb>3 -1 1 -1</nb>\n"
                "<nb>-1 -1 2 -1</nb>\n</neighbours>\n" +
                blackEdges + "</faceSet>\n" + material() + "</geometry>\n");
}

TEST(Mesh3dTest, WritesTheLinesOfARefinedMeshAlongTheParameters) {
  EXPECT_EQ(convert<Mesh3d>({with(refined, {{Word::Filled, "false"}}), tenPoints.content()}),
            crossings + pointSet("hide", "hide", tenPoints.list(10)) +
                "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n"
                "<lines num=\"11\">\n"
                "<l>0 1</l>\n<l>1 2</l>\n<l>2 3</l>\n<l>3 4</l>\n"
                "<l>5 6</l>\n<l>6 7</l>\n<l>7 8</l>\n<l>8 9</l>\n"
                "<l>0 5</l>\n<l>2 7</l>\n<l>4 9</l>\n"
                "<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</lines>\n</lineSet>\n" +
                material() + "</geometry>\n");
}

TEST(Mesh3dTest, RefinesRowsToo) {
  const Attributes attributes{
      {Word::UMesh, "2"}, {Word::VMesh, "2"}, {Word::VSubmesh, "1"}, {Word::Filled, "false"}};
  const std::string text = convert<Mesh3d>({attributes, sixPoints.content()});
  EXPECT_EQ(part(text, "<points", "</points>\n"),
            (Points{{"0 0 0", "1 0 0", "4 0 0", "5 0 0"}}.list(4)));
  EXPECT_EQ(part(text, "<lines ", "<thickness>"),
            "<lines num=\"6\">\n<l>0 1</l>\n<l>4 5</l>\n"
            "<l>0 2</l>\n<l>1 3</l>\n<l>2 4</l>\n<l>3 5</l>\n<thickness>");
}

TEST(Mesh3dTest, WritesOnlyThePointsOfARefinedMeshWithoutFacesAndLines) {
  EXPECT_EQ(convert<Mesh3d>({with(refined, {{Word::Filled, "false"},
                                            {Word::ULinesVisible, "false"},
                                            {Word::VLinesVisible, "false"}}),
                             tenPoints.content()}),
            crossings);
}

TEST(Mesh3dTest, WritesARefinedMeshOnceIfItsPointsAreHidden) {
  const std::string text =
      convert<Mesh3d>({with(refined, {{Word::PointsVisible, "false"}}), tenPoints.content()});
  EXPECT_EQ(count(text, "<geometry>"), 1U);
  EXPECT_TRUE(text.starts_with(pointSet("hide", "hide", tenPoints.list(10))));
}

TEST(Mesh3dTest, DoesNotTakeASubmeshWithoutFacesForRefined) {
  EXPECT_EQ(convert<Mesh3d>({{{Word::UMesh, "1"}, {Word::VMesh, "2"}, {Word::VSubmesh, "1"}},
                             sixPoints.content()}),
            pointSet("hide", "show", sixPoints.list(3)) + material() + "</geometry>\n");
}

TEST(Mesh3dTest, ColorsThePointsOfParameterLinesLikeLines) {
  const std::string text = convert<Mesh3d>(
      {with(refined, {{Word::LineColorType, "Functional"}, {Word::HasLineColors, "true"}}),
       greyPoints(10)});
  EXPECT_EQ(part(text, "<geometry>", "</geometry>\n"),
            "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"show\">\n" +
                (Points{{"0 0 0", "2 0 0", "4 0 0", "5 0 0", "7 0 0", "9 0 0"}}.list(6)) +
                colors(6, greys({0, 20, 40, 50, 70, 90})) + "</pointSet>\n" + material() +
                "</geometry>\n");
}

// Wire form.

TEST(Mesh3dTest, HidesEverythingRatherThanLeavingItOut) {
  EXPECT_EQ(convert<Mesh3d>({with(twoByTwo, {{Word::Filled, "false"},
                                             {Word::ULinesVisible, "false"},
                                             {Word::VLinesVisible, "false"},
                                             {Word::PointsVisible, "false"}}),
                             sixPoints.content()}),
            pointSet("hide", "hide", sixPoints.list(4)) + material() + "</geometry>\n");
}

TEST(Mesh3dTest, HasNoLinesBetweenASinglePoint) {
  EXPECT_EQ(convert<Mesh3d>({{{Word::UMesh, "1"}, {Word::VMesh, "1"}, {Word::Filled, "false"}},
                             "<P3>0 0 0</P3>"}),
            pointSet("hide", "show", sixPoints.list(1)) + material() + "</geometry>\n");
}

// Both walks over the colours of the two lines take one step more for each parameter line.
TEST(Mesh3dTest, IsALineWithASingleColumn) {
  const Attributes column{{Word::UMesh, "1"}, {Word::VMesh, "3"}, {Word::Filled, "false"}};
  const std::string lines =
      "<lines num=\"2\">\n<l>0 1</l>\n<l>1 2</l>\n"
      "<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</lines>\n";
  EXPECT_EQ(convert<Mesh3d>({column, sixPoints.content()}),
            pointSet("hide", "show", sixPoints.list(3)) +
                "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n" + lines +
                "</lineSet>\n" + material() + "</geometry>\n");
  const std::string colored = convert<Mesh3d>(
      {with(column, {{Word::LineColorType, "Functional"}, {Word::HasLineColors, "true"}}),
       greyPoints(3)});
  EXPECT_EQ(part(colored, "<lineSet", "</lineSet>\n"),
            "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"hide\">\n" + lines +
                colors(2, greys({5, 15, 20,  //
                                 10, 15, 20})) +
                "</lineSet>\n");
}

// The colours of lines do not go along with the lines: there are more of them, those along v count
// as if the grid lay the other way round, and past the end the last point stands in. That is
// deliberate.
TEST(Mesh3dTest, ColorsLinesInAnOrderOfTheirOwn) {
  const std::string text = convert<Mesh3d>({with(threeByTwo, {{Word::Filled, "false"},
                                                              {Word::LineColorType, "Functional"},
                                                              {Word::HasLineColors, "true"},
                                                              {Word::Shading, "Smooth"}}),
                                            greyPoints(6)});
  EXPECT_TRUE(contains(text, "color=\"show\" point=\"show\">\n"));
  EXPECT_EQ(part(text, "<colors", "</colors>\n"), colors(6, greys({0, 10, 20, 30, 40, 50})));
  EXPECT_EQ(part(text, "<lineSet", "</geometry>\n"),
            "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">\n"
            "<lines num=\"7\">\n"
            "<l>0 1</l>\n<l>1 2</l>\n<l>3 4</l>\n<l>4 5</l>\n"
            "<l>0 3</l>\n<l>1 4</l>\n<l>2 5</l>\n"
            "<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</lines>\n" +
                colors(7, greys({5, 15, 25, 35, 45, 50,  //
                                 10, 20, 30, 40, 45, 50})) +
                "</lineSet>\n" + smoothMaterial() + "</geometry>\n");
}

TEST(Mesh3dTest, ColorsRefinedLinesWithTheStepsOfTheMesh) {
  const std::string text = convert<Mesh3d>({with(refined, {{Word::Filled, "false"},
                                                           {Word::PointsVisible, "false"},
                                                           {Word::LineColorType, "Functional"},
                                                           {Word::HasLineColors, "true"}}),
                                            greyPoints(10)});
  EXPECT_EQ(part(text, "</lines>\n", "</colors>\n"),
            "</lines>\n" + colors(11, greys({5, 15, 25, 35, 45, 55, 65, 75, 85, 90,  //
                                             10, 20, 50, 60, 85, 90})));
}

TEST(Mesh3dTest, ColorsLinesByHeight) {
  const std::string text = convert<Mesh3d>({with(twoByTwo, {{Word::Filled, "false"},
                                                            {Word::LineColorType, "Dichromatic"},
                                                            {Word::LineColor, "#c80000"},
                                                            {Word::LineColor2, "#0000c8"}}),
                                            sixPoints.content()});
  const std::string low = "0 0 200";
  const std::string middle = "100 0 100";
  const std::string high = "200 0 0";
  EXPECT_EQ(part(text, "<colors", "</colors>\n"), colors(4, {low, low, low, high}));
  EXPECT_EQ(part(text, "</lines>\n", "</colors>\n"),
            "</lines>\n" + colors(4, {low, low, middle, high, low, middle, middle, high}));
}

// Colours.

TEST(Mesh3dTest, ColorsFacesByHeight) {
  const std::string text = convert<Mesh3d>({with(twoByTwo, {{Word::FillColorType, "Dichromatic"},
                                                            {Word::FillColor, "#c80000"},
                                                            {Word::FillColor2, "#0000c8"},
                                                            {Word::Shading, "Smooth"}}),
                                            sixPoints.content()});
  EXPECT_EQ(text,
            pointSet("show", "show",
                     sixPoints.list(4) + colors(4, {"0 0 200", "0 0 200", "0 0 200", "200 0 0"})) +
                "<faceSet face=\"show\" edge=\"show\" color=\"show\" colorFromPoints=\"show\" "
                "colorSmooth=\"show\">\n"
                "<faces num=\"1\">\n<f>0 1 3 2</f>\n<color>200 0 0</color>\n</faces>\n"
                "<neighbours num=\"1\">\n<nb>-1 -1 -1 -1</nb>\n</neighbours>\n" +
                blackEdges + colors(1, {"50 0 150"}) + "</faceSet>\n" + smoothMaterial() +
                "</geometry>\n");
}

TEST(Mesh3dTest, ColorsAPointThatIsNoNumberBlack) {
  const std::string text = convert<Mesh3d>(
      {with(twoByTwo, {{Word::FillColorType, "Rainbow"}, {Word::FillColor2, "#0000ff"}}),
       "<P3>0 0 nan</P3><P3>1 0 10</P3><P3>0 1 10</P3><P3>1 1 10</P3>"});
  EXPECT_EQ(part(text, "<colors num=\"4\">", "</colors>\n"),
            colors(4, {"0 0 0", "255 0 0", "255 0 0", "255 0 0"}));
  EXPECT_EQ(part(text, "<colors num=\"1\">", "</colors>\n"), colors(1, {"0 0 0"}));
}

TEST(Mesh3dTest, AveragesTheColorsOfFaces) {
  const std::string text =
      convert<Mesh3d>({with(threeByTwo, {{Word::FillColorType, "Functional"}}), greyPoints(6)});
  EXPECT_EQ(part(text, "<colors num=\"6\">", "</colors>\n"),
            colors(6, greys({0, 10, 20, 30, 40, 50})));
  EXPECT_EQ(part(text, "<colors num=\"2\">", "</colors>\n"), colors(2, greys({20, 30})));
  EXPECT_TRUE(contains(text, "color=\"show\" colorFromPoints=\"show\" colorSmooth=\"hide\""));
}

TEST(Mesh3dTest, IsNotFunctionalWithoutColors) {
  for (const char* filled : {"true", "false"}) {
    const std::string text = convert<Mesh3d>({with(twoByTwo, {{Word::LineColorType, "Functional"},
                                                              {Word::FillColorType, "Functional"},
                                                              {Word::Filled, filled}}),
                                              sixPoints.content()});
    EXPECT_FALSE(contains(text, "color=\"show\""));
    EXPECT_FALSE(contains(text, "<colors"));
  }
}

TEST(Mesh3dTest, KnowsWhatColorsAreFor) {
  struct Case {
    bool both;
    const char* hasLineColors;
    int line;  // the colour of the second point in the wire form, -1 for none
    int fill;
  };
  for (const Case& c : {
           Case{false, "false", -1, 10},
           Case{false, "true", 10, -1},
           Case{true, "false", 10, 15},
           Case{true, "true", 10, 15},
       }) {
    SCOPED_TRACE(std::string(c.both ? "both " : "one ") + c.hasLineColors);
    const auto colorsOf = [&](const char* filled) {
      return part(convert<Mesh3d>({with(twoByTwo, {{Word::LineColorType, "Functional"},
                                                   {Word::FillColorType, "Functional"},
                                                   {Word::HasLineColors, c.hasLineColors},
                                                   {Word::Filled, filled}}),
                                   greyPoints(4, c.both)}),
                  "<colors", "</colors>\n");
    };
    const auto expected = [](int second) {
      const int first = second - 10;
      return second < 0 ? "" : colors(4, greys({first, second, second + 10, second + 20}));
    };
    EXPECT_EQ(colorsOf("false"), expected(c.line));
    EXPECT_EQ(colorsOf("true"), expected(c.fill));
  }
}

TEST(Mesh3dTest, SwitchesAllLinesAtOnce) {
  struct Case {
    const char* useXY;
    const char* x;
    const char* y;
    const char* u;
    const char* v;
    const char* edge;
  };
  for (const Case& c : {
           Case{"false", "true", "true", "false", "false", "hide"},
           Case{"false", "false", "false", "true", "false", "show"},
           Case{"false", "false", "false", "false", "true", "show"},
           Case{"true", "false", "false", "true", "true", "hide"},
           Case{"true", "true", "false", "false", "false", "show"},
           Case{"true", "false", "true", "false", "false", "show"},
       }) {
    const Attributes lines{{Word::UseXYLinesVisible, c.useXY},
                           {Word::XLinesVisible, c.x},
                           {Word::YLinesVisible, c.y},
                           {Word::ULinesVisible, c.u},
                           {Word::VLinesVisible, c.v}};
    SCOPED_TRACE(startTag("Mesh3d", lines));
    const std::string filled = convert<Mesh3d>({with(twoByTwo, lines), sixPoints.content()});
    EXPECT_EQ(filled,
              edited(filledFour(), {{"edge=\"show\"", std::string("edge=\"") + c.edge + "\""}}));
    const std::string wire = convert<Mesh3d>(
        {with(with(twoByTwo, lines), {{Word::Filled, "false"}}), sixPoints.content()});
    EXPECT_EQ(contains(wire, "<lineSet"), contains(filled, "edge=\"show\""));
  }
}

TEST(Mesh3dTest, ShowsItsPropertiesWhenFilled) {
  const std::string withoutFaces =
      pointSet("hide", "show", sixPoints.list(2)) + material() + "</geometry>\n";
  const std::string refinedSix =
      "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\">\n" +
      Points{{"0 0 0", "0 1 0", "1 1 10", "5 0 0"}}.list(4) + "</pointSet>\n" + material() +
      "</geometry>\n" + pointSet("hide", "hide", sixPoints.list(6)) +
      "<faceSet face=\"show\" edge=\"show\" color=\"hide\" colorFromPoints=\"hide\" "
      "colorSmooth=\"hide\">\n"
      "<faces num=\"2\">\n<f>0 1 4 3</f>\n<f>1 2 5 4</f>\n<color>255 0 0</color>\n</faces>\n"
      "<neighbours num=\"2\">\n<nb>1 -1 -1 -1</nb>\n<nb>-1 -1 0 -1</nb>\n</neighbours>\n" +
      blackEdges + "</faceSet>\n" + material() + "</geometry>\n";
  const std::string refinedRows =
      edited(refinedSix, {{Points{{"0 0 0", "0 1 0", "1 1 10", "5 0 0"}}.list(4),
                           Points{{"0 0 0", "1 0 0", "4 0 0", "5 0 0"}}.list(4)},
                          {"<f>0 1 4 3</f>\n<f>1 2 5 4</f>\n", "<f>0 1 3 2</f>\n<f>2 3 5 4</f>\n"},
                          {"<nb>1 -1 -1 -1</nb>\n<nb>-1 -1 0 -1</nb>\n",
                           "<nb>-1 1 -1 -1</nb>\n<nb>-1 -1 -1 0</nb>\n"}});
  const auto colored = [](const Strings& ofPoints, const std::string& ofFace) {
    return std::vector<Edit>{
        {"color=\"hide\" point", "color=\"show\" point"},
        {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
        {"</points>\n", "</points>\n" + colors(4, ofPoints)},
        {"</edges>\n", "</edges>\n" + colors(1, {ofFace})}};
  };
  expectPropertyEffects<Mesh3d>(
      {twoByTwo, sixPoints.content()},
      {
          {Word::UMesh, "1", {{"", withoutFaces}}},
          {Word::VMesh, "1", {{"", withoutFaces}}},
          {Word::USubmesh, "1", {{"", refinedSix}}},
          {Word::VSubmesh, "1", {{"", refinedRows}}},
          {Word::PointsVisible, "false", {{"point=\"show\"", "point=\"hide\""}}},
          {Word::Filled, "false", {{"", wireFour()}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineWidth, "2", {{"<thickness>1.77165<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
            {"<color>0 0 0</color>\n</edges>", "<color>1 2 3</color>\n</edges>"}}},
          {Word::LineColor,
           "#00000000",
           {{"<color>0 0 0</color>\n</edges>", "<color>85 85 85</color>\n</edges>"}}},
          {Word::FillColor, "#010203", {{"<color>255 0 0</color>", "<color>1 2 3</color>"}}},
          {Word::FillColor,
           "#ff000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::FillColorType, "Monochrome",
           colored({"0 0 0", "0 0 0", "0 0 0", "255 0 0"}, "64 0 0")},
          {Word::FillColorType, "Dichromatic",
           colored({"255 255 0", "255 255 0", "255 255 0", "255 0 0"}, "255 191 0")},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

TEST(Mesh3dTest, ShowsItsPropertiesAsAWire) {
  const Attributes wire = with(twoByTwo, {{Word::Filled, "false"}});
  const std::string ofPairs = "<lines num=\"1\">\n<l>0 1</l>\n";
  const auto lessLines = [&](const std::string& lines) {
    return std::vector<Edit>{
        {sixPoints.list(4), sixPoints.list(2)},
        {"<lines num=\"4\">\n<l>0 1</l>\n<l>2 3</l>\n<l>0 2</l>\n<l>1 3</l>\n", lines}};
  };
  const auto refinedBy = [&](const Strings& shown, const std::string& lines) {
    return std::vector<Edit>{
        {"", "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\">\n" +
                 Points{shown}.list(4) + "</pointSet>\n" + material() + "</geometry>\n" +
                 pointSet("hide", "hide", sixPoints.list(6)) +
                 "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n" +
                 lines +
                 "<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</lines>\n</lineSet>\n" +
                 material() + "</geometry>\n"}};
  };
  expectPropertyEffects<Mesh3d>(
      {wire, sixPoints.content()},
      {
          {Word::UMesh, "1", lessLines(ofPairs)},
          {Word::VMesh, "1", lessLines(ofPairs)},
          {Word::USubmesh, "1",
           refinedBy({"0 0 0", "0 1 0", "1 1 10", "5 0 0"},
                     "<lines num=\"6\">\n<l>0 1</l>\n<l>1 2</l>\n<l>3 4</l>\n<l>4 5</l>\n"
                     "<l>0 3</l>\n<l>2 5</l>\n")},
          {Word::VSubmesh, "1",
           refinedBy({"0 0 0", "1 0 0", "4 0 0", "5 0 0"},
                     "<lines num=\"6\">\n<l>0 1</l>\n<l>4 5</l>\n"
                     "<l>0 2</l>\n<l>1 3</l>\n<l>2 4</l>\n<l>3 5</l>\n")},
          {Word::PointsVisible, "false", {{"point=\"show\"", "point=\"hide\""}}},
          {Word::Filled, "true", {{"", filledFour()}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineWidth, "2", {{"<thickness>1.77165<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
            {"<color>0 0 0</color>\n</lines>", "<color>1 2 3</color>\n</lines>"}}},
          {Word::LineColor,
           "#00000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{"color=\"hide\" point", "color=\"show\" point"},
            {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
            {"</points>\n", "</points>\n" + colors(4, {"0 0 255", "0 0 255", "0 0 255", "0 0 0"})},
            {"</lines>\n", "</lines>\n" + colors(4, {"0 0 255", "0 0 255", "0 0 128", "0 0 0",  //
                                                     "0 0 255", "0 0 128", "0 0 128", "0 0 0"})}}},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

// Surf3d.

namespace {

Attributes ofType(const std::string& type, const Attributes& more = {}) {
  return with({{Word::Type, type}}, more);
}

const Points threePoints{{"0 0 0", "1 0 5", "0 1 10"}};

const Attributes wireOnly{{Word::Filled, "false"}, {Word::MeshVisible, "true"}};

std::string facesOf(const std::string& type, int points) {
  std::string content;
  for (int i = 0; i < points; ++i) content += "<P3>0 0 0</P3>";
  return part(convert<Surf3d>({ofType(type), content}), "<faceSet", "</faceSet>\n");
}

std::string linesOf(const std::string& type, int points) {
  std::string content;
  for (int i = 0; i < points; ++i) content += "<P3>0 0 0</P3>";
  return part(convert<Surf3d>({ofType(type, wireOnly), content}), "<lineSet", "</lineSet>\n");
}

constexpr char plainFaceSet[] =
    "<faceSet face=\"show\" edge=\"hide\" color=\"hide\" colorFromPoints=\"hide\" "
    "colorEdge=\"hide\" colorSmooth=\"hide\">\n";
constexpr char endOfFaces[] = "<color>255 0 0</color>\n</faces>\n";
constexpr char plainLineSet[] =
    "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n";

}  // namespace

TEST(Surf3dTest, WritesTriangles) {
  EXPECT_EQ(convert<Surf3d>({ofType("Triangles"),
                             "<P3>0 0 0</P3><P3>1 0 0</P3><P3>0 1 0</P3><P3>0 0 1</P3>"
                             "<P3>1 0 1</P3><P3>0 1 1</P3><P3>9 9 9</P3>"}),
            "<geometry>\n"
            "<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\" point=\"hide\">\n"
            "<points num=\"7\">\n"
            "<p>0 0 0</p>\n<p>1 0 0</p>\n<p>0 1 0</p>\n<p>0 0 1</p>\n<p>1 0 1</p>\n<p>0 1 1</p>\n"
            "<p>9 9 9</p>\n"
            "<thickness>3.54331</thickness>\n"
            "<color>0 0 0</color>\n"
            "</points>\n"
            "</pointSet>\n"
            "<faceSet face=\"show\" edge=\"hide\" color=\"hide\" colorFromPoints=\"hide\" "
            "colorEdge=\"hide\" colorSmooth=\"hide\">\n"
            "<faces num=\"2\">\n"
            "<f>0 1 2</f>\n"
            "<f>3 4 5</f>\n"
            "<color>255 0 0</color>\n"
            "</faces>\n"
            "<neighbours num=\"0\"/>\n"
            "</faceSet>\n" +
                material() + "</geometry>\n");
}

TEST(Surf3dTest, WritesFacesAndNeighboursOfEachType) {
  EXPECT_EQ(facesOf("TriangleStrip", 5),
            plainFaceSet +
                std::string("<faces num=\"3\">\n<f>0 1 2</f>\n<f>1 3 2</f>\n"
                            "<f>2 3 4</f>\n") +
                endOfFaces +
                "<neighbours num=\"3\">\n<nb>1 -1 -1</nb>\n<nb>2 0 -1</nb>\n<nb>-1 -1 1</nb>\n"
                "</neighbours>\n</faceSet>\n");
  EXPECT_EQ(facesOf("TriangleFan", 5),
            plainFaceSet +
                std::string("<faces num=\"3\">\n<f>0 1 2</f>\n<f>0 2 3</f>\n"
                            "<f>0 3 4</f>\n") +
                endOfFaces +
                "<neighbours num=\"3\">\n<nb>-1 1 -1</nb>\n<nb>-1 2 0</nb>\n<nb>-1 -1 1</nb>\n"
                "</neighbours>\n</faceSet>\n");
  EXPECT_EQ(facesOf("Quads", 8),
            plainFaceSet + std::string("<faces num=\"2\">\n<f>0 1 2 3</f>\n<f>4 5 6 7</f>\n") +
                endOfFaces + "<neighbours num=\"0\"/>\n</faceSet>\n");
  EXPECT_EQ(facesOf("QuadStrip", 6),
            plainFaceSet + std::string("<faces num=\"2\">\n<f>0 1 3 2</f>\n<f>2 3 5 4</f>\n") +
                endOfFaces +
                "<neighbours num=\"2\">\n<nb>-1 1 -1 -1</nb>\n<nb>-1 -1 -1 0</nb>\n"
                "</neighbours>\n</faceSet>\n");
}

TEST(Surf3dTest, WritesTheNeighboursOfASingleFace) {
  EXPECT_TRUE(contains(facesOf("QuadStrip", 5),
                       "<neighbours num=\"1\">\n<nb>-1 -1 -1 -1</nb>\n</neighbours>\n"));
  EXPECT_TRUE(contains(facesOf("QuadStrip", 4), "<neighbours num=\"0\"/>\n"));
  EXPECT_TRUE(contains(facesOf("TriangleStrip", 3), "<neighbours num=\"0\"/>\n"));
}

TEST(Surf3dTest, WritesPointsAndMaterialWithoutFaces) {
  for (const char* type : {"Triangles", "TriangleStrip", "TriangleFan", "Quads", "QuadStrip"}) {
    EXPECT_EQ(convert<Surf3d>({ofType(type), "<P3>0 0 0</P3><P3>1 0 0</P3>"}),
              pointSet("hide", "hide", sixPoints.list(2)) + material() + "</geometry>\n")
        << type;
  }
}

// The lines declare one more than there are for strips and fans, and have no thickness and no
// colour. That is deliberate.
TEST(Surf3dTest, WritesLinesOfEachType) {
  EXPECT_EQ(linesOf("Triangles", 3),
            plainLineSet + std::string("<lines num=\"3\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n"
                                       "</lines>\n</lineSet>\n"));
  EXPECT_EQ(linesOf("TriangleStrip", 4),
            plainLineSet + std::string("<lines num=\"5\">\n<l>1 2</l>\n<l>2 0</l>\n<l>2 3</l>\n"
                                       "<l>3 1</l>\n</lines>\n</lineSet>\n"));
  EXPECT_EQ(linesOf("TriangleFan", 4),
            plainLineSet + std::string("<lines num=\"5\">\n<l>1 2</l>\n<l>2 0</l>\n<l>2 3</l>\n"
                                       "<l>3 1</l>\n</lines>\n</lineSet>\n"));
  EXPECT_EQ(linesOf("Quads", 4),
            plainLineSet + std::string("<lines num=\"4\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 3</l>\n"
                                       "<l>3 0</l>\n</lines>\n</lineSet>\n"));
  EXPECT_EQ(linesOf("QuadStrip", 4),
            plainLineSet + std::string("<lines num=\"4\">\n<l>1 2</l>\n<l>2 3</l>\n<l>3 0</l>\n"
                                       "</lines>\n</lineSet>\n"));
}

TEST(Surf3dTest, DeclaresLinesEvenWithoutFaces) {
  EXPECT_EQ(linesOf("TriangleStrip", 2),
            plainLineSet + std::string("<lines num=\"1\">\n</lines>\n</lineSet>\n"));
  EXPECT_EQ(linesOf("QuadStrip", 1),
            plainLineSet + std::string("<lines num=\"1\">\n</lines>\n</lineSet>\n"));
}

TEST(Surf3dTest, WritesPointsAndMaterialWithoutLines) {
  const std::string expected =
      pointSet("hide", "hide", sixPoints.list(1)) + material() + "</geometry>\n";
  EXPECT_EQ(convert<Surf3d>({ofType("TriangleFan", wireOnly), "<P3>0 0 0</P3>"}), expected);
  EXPECT_EQ(convert<Surf3d>({ofType("Triangles", {{Word::Filled, "false"}}), "<P3>0 0 0</P3>"}),
            expected);
}

TEST(Surf3dTest, RefusesUnknownTypesAfterThePoints) {
  const auto convertDirectly = [](const Attributes& attributes, std::string& error) {
    const base::Ref<PlotDocument> document(new PlotDocument);
    const base::Ref<Surf3d> surface(new Surf3d(document.get()));
    for (const auto& [name, value] :
         with(attributes, {{Word::LineColorType, "Flat"}, {Word::FillColorType, "Flat"}})) {
      surface->setAttributeFromString(name, value.c_str());
    }
    surface->points.resize(3);
    return written([&](GeometryOutput& out) {
      try {
        emitSurf3d(out, *surface);
      } catch (const JavaViewExportError& failure) {
        error = failure.what();
      }
    });
  };
  for (const char* type : {"Lines", "Spheres", ""}) {  // none is "Lines"
    const auto typed = [type](const Attributes& attributes) {
      return *type ? ofType(type, attributes) : attributes;
    };
    std::string error;
    const std::string filled = convertDirectly(typed({{Word::Filled, "true"}}), error);
    EXPECT_EQ(error, "unknown Surf3d type");
    EXPECT_TRUE(filled.ends_with("</points>\n</pointSet>\n"));

    error.clear();
    const std::string wire = convertDirectly(typed(wireOnly), error);
    EXPECT_EQ(error, "unknown Surf3d type");
    EXPECT_TRUE(wire.ends_with("</points>\n</pointSet>\n"));

    error.clear();
    const std::string points =
        convertDirectly(typed({{Word::Filled, "false"}, {Word::MeshVisible, "false"}}), error);
    EXPECT_EQ(error, "");
    EXPECT_TRUE(points.ends_with("</geometry>\n"));
  }
}

TEST(Surf3dTest, ColorsFacesByHeight) {
  const std::string text =
      convert<Surf3d>({ofType("Triangles", {{Word::FillColorType, "Dichromatic"},
                                            {Word::FillColor, "#c80000"},
                                            {Word::FillColor2, "#0000c8"},
                                            {Word::MeshVisible, "true"},
                                            {Word::Shading, "Smooth"}}),
                       "<P3>0 0 0</P3><P3>1 0 5</P3><P3>0 1 10</P3>"});
  EXPECT_EQ(text, pointSet("show", "hide",
                           threePoints.list(3) + colors(3, {"0 0 200", "100 0 100", "200 0 0"})) +
                      "<faceSet face=\"show\" edge=\"show\" color=\"show\" "
                      "colorFromPoints=\"show\" colorEdge=\"show\" colorSmooth=\"show\">\n"
                      "<faces num=\"1\">\n<f>0 1 2</f>\n<color>200 0 0</color>\n</faces>\n"
                      "<neighbours num=\"0\"/>\n" +
                      blackEdges + colors(1, {"100 0 100"}) + "</faceSet>\n" + smoothMaterial() +
                      "</geometry>\n");
}

TEST(Surf3dTest, AveragesTheColorsOfFaces) {
  const Attributes functional{{Word::FillColorType, "Functional"}};
  const auto colorsOfFaces = [&](const std::string& type, int points) {
    const std::string text = convert<Surf3d>({ofType(type, functional), greyPoints(points)});
    return part(text, "</neighbours>\n", "</colors>\n") +
           part(text, "<neighbours num=\"0\"/>\n", "</colors>\n");
  };
  EXPECT_EQ(colorsOfFaces("TriangleStrip", 4), "</neighbours>\n" + colors(2, greys({10, 20})));
  EXPECT_EQ(colorsOfFaces("Quads", 8), "<neighbours num=\"0\"/>\n" + colors(2, greys({15, 55})));
}

// Each face has the colours of the first points, whatever its own are, and no newline ends the
// element. That is deliberate.
TEST(Surf3dTest, ColorsLinesByTheFirstPoints) {
  const auto colorsOfLines = [](const std::string& type, int points) {
    const std::string text =
        convert<Surf3d>({ofType(type, with(wireOnly, {{Word::LineColorType, "Functional"},
                                                      {Word::HasLineColors, "true"},
                                                      {Word::Shading, "Smooth"}})),
                         greyPoints(points)});
    EXPECT_TRUE(
        contains(text, "<lineSet color=\"show\" colorFromPoints=\"show\" colorSmooth=\"show\">\n"));
    EXPECT_TRUE(text.ends_with(smoothMaterial() + "</geometry>\n"));
    return part(text, "</lines>\n", "</lineSet>\n");
  };
  EXPECT_EQ(colorsOfLines("Triangles", 6),
            "</lines>\n" + colors(6, greys({5, 25, 45, 5, 25, 45}), "") + "</lineSet>\n");
  EXPECT_EQ(colorsOfLines("TriangleStrip", 5),
            "</lines>\n" + colors(7, greys({5, 25, 5, 25, 5, 25}), "") + "</lineSet>\n");
  EXPECT_EQ(colorsOfLines("TriangleFan", 3),
            "</lines>\n" + colors(3, greys({5, 20}), "") + "</lineSet>\n");
  EXPECT_EQ(colorsOfLines("Quads", 4),
            "</lines>\n" + colors(4, greys({5, 25, 30, 30}), "") + "</lineSet>\n");
  EXPECT_EQ(colorsOfLines("QuadStrip", 4),
            "</lines>\n" + colors(4, greys({5, 25, 30}), "") + "</lineSet>\n");
}

TEST(Surf3dTest, HasNoListOfLineColorsWhenLinesAndPointsAreHidden) {
  const auto headOf = [](const char* mesh, const char* points) {
    return part(convert<Surf3d>({ofType("Triangles", {{Word::Filled, "false"},
                                                      {Word::MeshVisible, mesh},
                                                      {Word::PointsVisible, points},
                                                      {Word::LineColorType, "Functional"},
                                                      {Word::HasLineColors, "true"}}),
                                 greyPoints(3)}),
                "color=", " ");
  };
  EXPECT_EQ(headOf("false", "false"), "color=\"hide\" ");
  EXPECT_EQ(headOf("true", "false"), "color=\"show\" ");
  EXPECT_EQ(headOf("false", "true"), "color=\"show\" ");
}

TEST(Surf3dTest, KnowsWhatColorsAreFor) {
  const auto isColored = [](bool both, const char* hasLineColors, const char* filled) {
    return contains(convert<Surf3d>({ofType("Triangles", {{Word::Filled, filled},
                                                          {Word::MeshVisible, "true"},
                                                          {Word::LineColorType, "Functional"},
                                                          {Word::FillColorType, "Functional"},
                                                          {Word::HasLineColors, hasLineColors}}),
                                     greyPoints(3, both)}),
                    "<colors");
  };
  EXPECT_TRUE(isColored(false, "false", "true"));
  EXPECT_FALSE(isColored(false, "false", "false"));
  EXPECT_FALSE(isColored(false, "true", "true"));
  EXPECT_TRUE(isColored(false, "true", "false"));
  EXPECT_TRUE(isColored(true, "false", "true"));
  EXPECT_TRUE(isColored(true, "false", "false"));
}

TEST(Surf3dTest, ShowsItsPropertiesWhenFilled) {
  const std::string wire =
      pointSet("hide", "hide", threePoints.list(3)) + material() + "</geometry>\n";
  expectPropertyEffects<Surf3d>(
      {ofType("Triangles"), threePoints.content()},
      {
          {Word::Type, "Quads", {{"", wire}}},
          {Word::PointsVisible, "true", {{"point=\"hide\"", "point=\"show\""}}},
          {Word::MeshVisible,
           "true",
           {{" edge=\"hide\"", " edge=\"show\""},
            {"<neighbours num=\"0\"/>\n", std::string("<neighbours num=\"0\"/>\n") + blackEdges}}},
          {Word::Filled, "false", {{"", wire}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"}}},
          {Word::FillColor, "#010203", {{"<color>255 0 0</color>", "<color>1 2 3</color>"}}},
          {Word::FillColor,
           "#ff000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::FillColorType,
           "Dichromatic",
           {{"color=\"hide\" point", "color=\"show\" point"},
            {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
            {"</points>\n", "</points>\n" + colors(3, {"255 255 0", "255 128 0", "255 0 0"})},
            {"<neighbours num=\"0\"/>\n", "<neighbours num=\"0\"/>\n" + colors(1, {"255 128 0"})}}},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

TEST(Surf3dTest, ShowsItsPropertiesAsAWire) {
  expectPropertyEffects<Surf3d>(
      {ofType("Triangles", wireOnly), threePoints.content()},
      {
          {Word::Type,
           "TriangleStrip",
           {{"<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n", "<l>1 2</l>\n<l>2 0</l>\n"}}},
          {Word::PointsVisible, "true", {{"point=\"hide\"", "point=\"show\""}}},
          {Word::MeshVisible,
           "false",
           {{std::string(plainLineSet) +
                 "<lines num=\"3\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n</lines>\n</lineSet>\n",
             ""}}},
          {Word::Filled,
           "true",
           {{"", pointSet("hide", "hide", threePoints.list(3)) +
                     edited(plainFaceSet, {{"edge=\"hide\"", "edge=\"show\""}}) +
                     "<faces num=\"1\">\n<f>0 1 2</f>\n" + endOfFaces +
                     "<neighbours num=\"0\"/>\n" + blackEdges + "</faceSet>\n" + material() +
                     "</geometry>\n"}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"}}},
          {Word::LineColor,
           "#00000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{"color=\"hide\" point", "color=\"show\" point"},
            {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
            {"</points>\n", "</points>\n" + colors(3, {"0 0 255", "0 0 128", "0 0 0"})},
            {"</lines>\n", "</lines>\n" + colors(3, {"0 0 191", "0 0 0", "0 0 0"}, "")}}},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

}  // namespace vantry::javaview
