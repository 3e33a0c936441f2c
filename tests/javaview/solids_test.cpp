#include "vantry/javaview/emit_solids.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "../locale_guard.h"
#include "property_effect.h"
#include "vantry/base/text_errors.h"
#include "vantry/plot/elements/plane.h"

namespace vantry::javaview {

using namespace plot;

namespace {

constexpr double pi = 3.141592653589793;

/// The lines of `text` that begin with `tag`.
std::vector<std::string> linesOf(const std::string& text, const std::string& tag) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(tag)) lines.push_back(line);
  }
  return lines;
}

std::string pointLine(const P3& point) {
  std::ostringstream line;
  line << "<p>" << point << "</p>\n";
  return line.str();
}

// Points as formulas give them, without the sums of the steps, which show only where a coordinate
// all but cancels out. The centres below are far enough from 0 for that not to happen.

std::string ellipsoidPoints(const P3& center, const P3& axes) {
  std::string points;
  for (int row = 0; row < 29; ++row) {
    const double latitude = pi / 2 - row * pi / 28;
    for (int column = 0; column < 29; ++column) {
      const double longitude = column * pi / 14;
      points += pointLine({center.x + axes.x * std::cos(latitude) * std::cos(longitude),
                           center.y + axes.y * std::sin(latitude),
                           center.z + axes.z * std::cos(latitude) * std::sin(longitude)});
    }
  }
  return points;
}

/// A ring that begins in the direction `u` and turns to `w`.
std::string ringPoints(const P3& center, const P3& u, const P3& w, double radius) {
  std::string points;
  for (int i = 0; i < 38; ++i) {
    const double c = radius * std::cos(i * pi / 19);
    const double s = radius * std::sin(i * pi / 19);
    points += pointLine(
        {center.x + u.x * c + w.x * s, center.y + u.y * c + w.y * s, center.z + u.z * c + w.z * s});
  }
  return points;
}

/// The ring around an axis in the direction of z.
std::string ringAroundZ(const P3& center, double radius) {
  return ringPoints(center, {0, -1, 0}, {-1, 0, 0}, radius);
}

/// The ring around an axis in the direction of y.
std::string ringAroundY(const P3& center, double radius) {
  return ringPoints(center, {0, 0, 1}, {-1, 0, 0}, radius);
}

/// " first ... last".
std::string indices(int first, int last) {
  std::string text;
  for (int i = first; i <= last; ++i) text += " " + std::to_string(i);
  return text;
}

/// The edits that change both the lines of a geometry and its faces.
std::vector<Edit> inBoth(const std::string& text, const std::string& before,
                         const std::string& after) {
  std::string changed = text;
  for (std::size_t at = 0; (at = changed.find(before, at)) != std::string::npos;) {
    changed.replace(at, before.size(), after);
    at += after.size();
  }
  return {{text, changed}};
}

const Attributes boxBounds{{Word::XMin, "1"}, {Word::XMax, "2"}, {Word::YMin, "3"},
                           {Word::YMax, "4"}, {Word::ZMin, "5"}, {Word::ZMax, "6"}};

}  // namespace

TEST(BoxTest, ShowsItsProperties) {
  expectPropertyEffects<Box>(
      {boxBounds},
      {
          {Word::XMin,
           "0",
           {{"<p>1 3 5<", "<p>0 3 5<"},
            {"<p>1 3 6<", "<p>0 3 6<"},
            {"<p>1 4 5<", "<p>0 4 5<"},
            {"<p>1 4 6<", "<p>0 4 6<"}}},
          {Word::XMax,
           "0",
           {{"<p>2 3 5<", "<p>0 3 5<"},
            {"<p>2 3 6<", "<p>0 3 6<"},
            {"<p>2 4 5<", "<p>0 4 5<"},
            {"<p>2 4 6<", "<p>0 4 6<"}}},
          {Word::YMin,
           "0",
           {{"<p>1 3 5<", "<p>1 0 5<"},
            {"<p>1 3 6<", "<p>1 0 6<"},
            {"<p>2 3 5<", "<p>2 0 5<"},
            {"<p>2 3 6<", "<p>2 0 6<"}}},
          {Word::YMax,
           "0",
           {{"<p>1 4 5<", "<p>1 0 5<"},
            {"<p>1 4 6<", "<p>1 0 6<"},
            {"<p>2 4 5<", "<p>2 0 5<"},
            {"<p>2 4 6<", "<p>2 0 6<"}}},
          {Word::ZMin,
           "0",
           {{"<p>1 3 5<", "<p>1 3 0<"},
            {"<p>1 4 5<", "<p>1 4 0<"},
            {"<p>2 3 5<", "<p>2 3 0<"},
            {"<p>2 4 5<", "<p>2 4 0<"}}},
          {Word::ZMax,
           "0",
           {{"<p>1 3 6<", "<p>1 3 0<"},
            {"<p>1 4 6<", "<p>1 4 0<"},
            {"<p>2 3 6<", "<p>2 3 0<"},
            {"<p>2 4 6<", "<p>2 4 0<"}}},
          {Word::Filled, "false", {{"face=\"show\"", "face=\"hide\""}}},
          {Word::LinesVisible,
           "false",
           {{"edge=\"show\"", "edge=\"hide\""},
            {"<edges>\n<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</edges>\n", ""}}},
          {Word::FillColor,
           "#01020380",
           {{"<color>0 0 0</color>\n</faces>", "<color>1 2 3</color>\n</faces>"},
            {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColor,  // an edge of alpha 128 is lighter by (255 - 128) / 3
           "#01020380",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
            {"<color>0 0 0</color>\n</edges>", "<color>43 44 45</color>\n</edges>"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165", "<thickness>3.54331"}}},
      });
}

TEST(SphereTest, RepeatsPolesAndSeam) {
  const std::string text = convert<Sphere>({{}});
  EXPECT_TRUE(
      text.starts_with("<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n"
                       "<points num=\"841\">\n<p>0 1 0</p>\n"));
  const std::vector<std::string> points = linesOf(text, "<p>");
  ASSERT_EQ(points.size(), 841);
  for (std::size_t i = 0; i < 29; ++i) {
    EXPECT_EQ(points[i], "<p>0 1 0</p>");
    EXPECT_EQ(points[28 * 29 + i], "<p>0 -1 0</p>");
  }
  EXPECT_EQ(points[29], "<p>0.111964 0.993712 0</p>");
  EXPECT_EQ(points[29 + 1], "<p>0.109157 0.993712 0.0249144</p>");
  // The errors that the sums of the steps gather.
  EXPECT_EQ(points[14 * 29], "<p>1 0 0</p>");
  EXPECT_EQ(points[14 * 29 + 7], "<p>6.12323e-17 0 1</p>");
  EXPECT_EQ(points[14 * 29 + 14], "<p>-1 0 1.22465e-16</p>");
  EXPECT_EQ(points[14 * 29 + 21], "<p>-1.83697e-16 0 -1</p>");
  EXPECT_EQ(points[14 * 29 + 28], "<p>1 0 -2.44929e-16</p>");
}

TEST(SphereTest, HasAGridOfFacesThatIsOpenAtTheSeam) {
  const std::string text = convert<Sphere>({{}});
  EXPECT_NE(text.find("</points>\n</pointSet>\n<faceSet edge=\"hide\" colorSmooth=\"hide\">\n"
                      "<faces num=\"784\">\n<f>0 1 30 29</f>\n<f>1 2 31 30</f>\n"),
            std::string::npos);
  EXPECT_TRUE(text.ends_with("<f>810 811 840 839</f>\n<color>0 0 0</color>\n</faces>\n" +
                             text.substr(text.find("<neighbours"))));
  EXPECT_NE(text.find("</faces>\n<neighbours num=\"784\">\n<nb>1 28 -1 -1</nb>\n"),
            std::string::npos);
  EXPECT_TRUE(text.ends_with("<nb>-1 -1 782 755</nb>\n</neighbours>\n</faceSet>\n" + material() +
                             "</geometry>\n"));

  const std::vector<std::string> faces = linesOf(text, "<f>");
  ASSERT_EQ(faces.size(), 784);
  EXPECT_EQ(faces[27], "<f>27 28 57 56</f>");
  EXPECT_EQ(faces[28], "<f>29 30 59 58</f>");

  const std::vector<std::string> neighbours = linesOf(text, "<nb>");
  ASSERT_EQ(neighbours.size(), 784);
  EXPECT_EQ(neighbours[27], "<nb>-1 55 26 -1</nb>");
  EXPECT_EQ(neighbours[28], "<nb>29 56 -1 0</nb>");
  EXPECT_EQ(neighbours[29], "<nb>30 57 28 1</nb>");
  EXPECT_EQ(neighbours[756], "<nb>757 -1 -1 728</nb>");
}

TEST(SphereTest, WritesNaNAsItComes) {
  const std::vector<std::string> points =
      linesOf(convert<Sphere>({{{Word::Center, "nan 0 0"}}}), "<p>");
  ASSERT_EQ(points.size(), 841);
  EXPECT_EQ(points.front(), "<p>nan 1 0</p>");
  EXPECT_EQ(points.back(), "<p>nan -1 0</p>");
}

TEST(SphereTest, ShowsItsProperties) {
  const P3 center{10, 20, 30};
  const std::string collapsed = repeated("<p>10 20 30</p>\n", 841);
  expectPropertyEffects<Sphere>(
      {{{Word::Center, "10 20 30"}, {Word::Radius, "0"}}},
      {
          {Word::Center, "1 2 3", {{collapsed, repeated("<p>1 2 3</p>\n", 841)}}},
          {Word::Radius, "2", {{collapsed, ellipsoidPoints(center, {2, 2, 2})}}},
          {Word::Shading,
           "Smooth",
           {{"colorSmooth=\"hide\"", "colorSmooth=\"show\""},
            {"<material>", "<material shading=\"gouraud\">"}}},
          {Word::FillColor,
           "#01020380",
           {{"<color>0 0 0</color>\n</faces>", "<color>1 2 3</color>\n</faces>"},
            {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
      });
}

TEST(EllipsoidTest, IsASphereWhenItsAxesAreEqual) {
  EXPECT_EQ(convert<Ellipsoid>({{{Word::SemiAxisX, "2"},
                                 {Word::SemiAxisY, "2"},
                                 {Word::SemiAxisZ, "2"},
                                 {Word::Shading, "Smooth"}}}),
            convert<Sphere>({{{Word::Radius, "2"}, {Word::Shading, "Smooth"}}}));
}

TEST(EllipsoidTest, ShowsItsProperties) {
  const P3 center{10, 20, 30};
  const std::string collapsed = repeated("<p>10 20 30</p>\n", 841);
  expectPropertyEffects<Ellipsoid>(
      {{{Word::Center, "10 20 30"},
        {Word::SemiAxisX, "0"},
        {Word::SemiAxisY, "0"},
        {Word::SemiAxisZ, "0"}}},
      {
          {Word::Center, "1 2 3", {{collapsed, repeated("<p>1 2 3</p>\n", 841)}}},
          {Word::SemiAxisX, "1", {{collapsed, ellipsoidPoints(center, {1, 0, 0})}}},
          {Word::SemiAxisY, "2", {{collapsed, ellipsoidPoints(center, {0, 2, 0})}}},
          {Word::SemiAxisZ, "3", {{collapsed, ellipsoidPoints(center, {0, 0, 3})}}},
          {Word::Shading,
           "Smooth",
           {{"colorSmooth=\"hide\"", "colorSmooth=\"show\""},
            {"<material>", "<material shading=\"gouraud\">"}}},
          {Word::FillColor,
           "#01020380",
           {{"<color>0 0 0</color>\n</faces>", "<color>1 2 3</color>\n</faces>"},
            {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
      });
}

namespace {

std::string circleHead(const std::string& points) {
  return "<geometry>\n"
         "<pointSet dim=\"3\" point=\"hide\">\n"
         "<points num=\"38\">\n" +
         points +
         "</points>\n"
         "</pointSet>\n";
}

std::string circleLine(const std::string& points) {
  return circleHead(points) +
         "<lineSet>\n"
         "<lines num=\"1\">\n"
         "<l>0" +
         indices(1, 37) +
         " 0</l>\n"
         "<thickness>1.77165</thickness>\n"
         "<color>0 0 255</color>\n"
         "</lines>\n"
         "</lineSet>\n" +
         material() + "</geometry>\n";
}

std::string circleFill(const std::string& points) {
  return circleHead(points) +
         "<faceSet face=\"show\" edge=\"hide\">\n"
         "<faces num=\"1\">\n"
         "<f>0" +
         indices(1, 37) +
         "</f>\n"
         "<color>255 0 0</color>\n"
         "</faces>\n"
         "<neighbours num=\"0\"/>\n"
         "</faceSet>\n" +
         material() + "</geometry>\n";
}

const Attributes blueAndRed{{Word::LineColor, "#0000ff"}, {Word::FillColor, "#ff0000"}};

}  // namespace

TEST(Circle3dTest, ShowsItsProperties) {
  const Attributes circle = with(blueAndRed, {{Word::Center, "10 20 30"}, {Word::Radius, "2"}});
  const std::string points = ringAroundZ({10, 20, 30}, 2);
  const std::string text = circleLine(points) + circleFill(points);
  expectPropertyEffects<Circle3d>(
      {circle},
      {
          {Word::Center, "20 30 40", inBoth(text, points, ringAroundZ({20, 30, 40}, 2))},
          {Word::Normal, "0 5 0", inBoth(text, points, ringAroundY({10, 20, 30}, 2))},
          {Word::Radius, "3", inBoth(text, points, ringAroundZ({10, 20, 30}, 3))},
          {Word::Filled, "false", {{circleFill(points), ""}}},
          {Word::LinesVisible, "false", {{circleLine(points), ""}}},
          {Word::FillColor, "#010203", {{"<color>255 0 0</", "<color>1 2 3</"}}},
          {Word::FillColor,
           "#ff000080",
           {{"</faceSet>\n" + material(), "</faceSet>\n" + material("", halfTransparent)}}},
          {Word::LineColor, "#010203", {{"<color>0 0 255</", "<color>1 2 3</"}}},
          {Word::LineColor,
           "#0000ff80",
           {{"</lineSet>\n" + material(), "</lineSet>\n" + material("", halfTransparent)}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165", "<thickness>3.54331"}}},
      });
}

namespace {

std::string coneHead(const std::string& top, const std::string& base) {
  return "<geometry>\n"
         "<pointSet dim=\"3\" point=\"hide\">\n"
         "<points num=\"76\">\n" +
         top + base +
         "</points>\n"
         "</pointSet>\n";
}

std::string coneLines(const std::string& top, const std::string& base) {
  return coneHead(top, base) +
         "<lineSet>\n"
         "<lines num=\"2\">\n"
         "<l>0" +
         indices(1, 37) +
         " 0</l>\n"
         "<l>38" +
         indices(39, 75) +
         " 38</l>\n"
         "<thickness>1.77165</thickness>\n"
         "<color>0 0 255</color>\n"
         "</lines>\n"
         "</lineSet>\n" +
         material() + "</geometry>\n";
}

std::string coneMantle(const std::string& top, const std::string& base) {
  std::string faces;
  std::string neighbours;
  for (int i = 0; i < 37; ++i) {
    faces += "<f>" + std::to_string(i) + " " + std::to_string(i + 1) + " " +
             std::to_string(i + 39) + " " + std::to_string(i + 38) + "</f>\n";
  }
  for (int i = 1; i < 37; ++i) {
    neighbours += "<nb>" + std::to_string(i + 1) + " -1 " + std::to_string(i - 1) + " -1</nb>\n";
  }
  return coneHead(top, base) +
         "<faceSet face=\"show\" edge=\"hide\">\n"
         "<faces num=\"38\">\n" +
         faces +
         "<f>37 0 38 75</f>\n"
         "<color>255 0 0</color>\n"
         "</faces>\n"
         "<neighbours num=\"38\">\n"
         "<nb>1 -1 37 -1</nb>\n" +
         neighbours +
         "<nb>0 -1 36 -1</nb>\n"
         "</neighbours>\n"
         "</faceSet>\n" +
         smoothMaterial() + "</geometry>\n";
}

const Attributes coneAroundZ = with(blueAndRed, {{Word::Base, "10 20 30"},
                                                 {Word::Top, "10 20 35"},
                                                 {Word::BaseRadius, "2"},
                                                 {Word::TopRadius, "1"}});

}  // namespace

TEST(ConeTest, ShowsItsProperties) {
  const std::string top = ringAroundZ({10, 20, 35}, 1);
  const std::string base = ringAroundZ({10, 20, 30}, 2);
  const std::string text = coneLines(top, base) + coneMantle(top, base);
  expectPropertyEffects<Cone>(
      {coneAroundZ},
      {
          {Word::Base, "10 20 25", inBoth(text, base, ringAroundZ({10, 20, 25}, 2))},
          {Word::Base,
           "10 10 35",  // another axis turns both rings
           inBoth(text, top + base, ringAroundY({10, 20, 35}, 1) + ringAroundY({10, 10, 35}, 2))},
          {Word::Top, "10 20 45", inBoth(text, top, ringAroundZ({10, 20, 45}, 1))},
          {Word::BaseRadius, "3", inBoth(text, base, ringAroundZ({10, 20, 30}, 3))},
          {Word::TopRadius, "3", inBoth(text, top, ringAroundZ({10, 20, 35}, 3))},
          {Word::Filled, "false", {{coneMantle(top, base), ""}}},
          {Word::LinesVisible, "false", {{coneLines(top, base), ""}}},
          {Word::FillColor, "#010203", {{"<color>255 0 0</", "<color>1 2 3</"}}},
          {Word::FillColor,
           "#ff000080",
           {{"</faceSet>\n" + smoothMaterial(), "</faceSet>\n" + smoothMaterial(halfTransparent)}}},
          {Word::LineColor, "#010203", {{"<color>0 0 255</", "<color>1 2 3</"}}},
          {Word::LineColor,
           "#0000ff80",
           {{"</lineSet>\n" + material(), "</lineSet>\n" + material("", halfTransparent)}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165", "<thickness>3.54331"}}},
      });
}

TEST(PlaneTest, LeavesNoTrace) {
  EXPECT_EQ(convert<Plane>({{}}), "");
  expectPropertyEffects<Plane>({{}}, {});
}

namespace {

std::string label(const std::string& name) {
  return "<geometry>\n"
         "<pointSet dim=\"3\" point=\"show\">\n"
         "<points num=\"1\">\n"
         "<p name=\"" +
         name +
         "\">1 2 3</p>\n"
         "<thickness>0</thickness>\n"
         "<color>0 0 0</color>\n"
         "<labelAtt visible=\"show\" horAlign=\"head\" verAlign=\"middle\" style=\"plain\" "
         "name=\"Times\">\n"
         "<color>0 0 0</color>\n"
         "<size>11</size>\n"
         "</labelAtt>\n"
         "</points>\n"
         "</pointSet>\n"
         "</geometry>\n";
}

const Attributes at123{{Word::Position, "1 2 3"}};

/// What is written for a label with these texts.
std::string emitted(std::initializer_list<const char*> texts) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const base::Ref<Text3d> element(new Text3d(document.get()));
  element->setAttributeFromString(Word::Position, "1 2 3");
  element->setAttributeFromString(Word::TextFont, "'Times' 11");
  for (const char* text : texts) element->appendChild(document->createTextNode(text).get());
  std::ostringstream stream;
  GeometryOutput out;
  out.attach(stream);
  emitText3d(out, *element);
  out.flush();
  return stream.str();
}

}  // namespace

TEST(Text3dTest, JoinsItsTextNodes) {
  EXPECT_EQ(emitted({"Sum", nullptr, "mit"}), label("Summit"));
}

TEST(Text3dTest, ThrowsForATextThatIsNotValid) {
  const LocaleGuard utf8(LC_CTYPE, "C.UTF-8");
  EXPECT_THROW(emitted({"\xff"}), base::BadUnicodeString);
}

TEST(Text3dTest, ShowsItsProperties) {
  expectPropertyEffects<Text3d>(
      {at123, "Summit"},
      {
          {Word::Position, "-1 0.5 1e9", {{"\">1 2 3</p>", "\">-1 0.5 1e+09</p>"}}},
          {Word::HorizontalAlignment, "Center", {{"\"head\"", "\"center\""}}},
          {Word::HorizontalAlignment, "End", {{"\"head\"", "\"tail\""}}},
          {Word::VerticalAlignment, "Top", {{"\"middle\"", "\"top\""}}},
          {Word::VerticalAlignment, "Bottom", {{"\"middle\"", "\"bottom\""}}},
          {Word::TextFont, "'Times' 14", {{"<size>11<", "<size>14<"}}},
          {Word::TextFont, "'Courier New' 11", {{"name=\"Times\"", "name=\"Courier New\""}}},
          {Word::TextFont, "'Times' 11 Italic", {{"\"plain\"", "\"italic\""}}},
          {Word::TextFont, "'Times' 11 Italic Bold", {{"\"plain\"", "\"bold\""}}},
          {Word::TextFont,
           "'Times' 11 #01020380",
           {{"<color>0 0 0</color>\n<labelAtt", "<color>1 2 3</color>\n<labelAtt"},
            {"<color>0 0 0</color>\n<size>", "<color>1 2 3</color>\n<size>"}}},
      });
}

}  // namespace vantry::javaview
