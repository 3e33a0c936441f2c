#include "vantry/javaview/geometry_output.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "../locale_guard.h"
#include "vantry/base/text_errors.h"
#include "vantry/base/vocabulary.h"
#include "vantry/plot/values/variants.h"
#include "written.h"

namespace vantry::javaview {

using namespace plot;

namespace {

namespace Word = base::Word;
using base::Token;

constexpr double infinity = std::numeric_limits<double>::infinity();

std::string thickness(double size) {
  return written([=](GeometryOutput& out) { out.writeThickness(size); });
}

std::string edges(RGBA color) {
  return written([=](GeometryOutput& out) { out.writeEdges(color, nan); });
}

std::string material(int alpha, bool smooth) {
  return written([=](GeometryOutput& out) { out.writeMaterial(alpha, smooth); });
}

std::string label(const FontStyle& font, Token horizontal, Token vertical) {
  return written([&](GeometryOutput& out) { out.writeLabelAtt(font, horizontal, vertical); });
}

std::string line(const std::string& text, std::size_t number) {
  std::istringstream lines(text);
  std::string found;
  for (std::size_t i = 0; i <= number; ++i) std::getline(lines, found);
  return found;
}

/// Turns the x axis to the y axis, doubles z and moves by (10, 20, 30).
constexpr Matrix turnAndMove{0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 2, 30, 0, 0, 0, 1};

}  // namespace

TEST(JavaViewOutputTest, WritesShowAttributes) {
  EXPECT_EQ(written([](auto& out) { out.writeShowAttribute("point", true); }), " point=\"show\"");
  EXPECT_EQ(written([](auto& out) { out.writeShowAttribute("edge", false); }), " edge=\"hide\"");
}

TEST(JavaViewOutputTest, WritesColorsWithoutAlpha) {
  EXPECT_EQ(written([](auto& out) { out.writeColor(RGBA(1, 20, 255, 7)); }),
            "<color>1 20 255</color>\n");
}

TEST(JavaViewOutputTest, WritesThicknessInPixels) {
  EXPECT_EQ(thickness(1), "<thickness>3.54331</thickness>\n");
  EXPECT_EQ(thickness(25.4), "<thickness>90</thickness>\n");
  EXPECT_EQ(thickness(infinity), "<thickness>inf</thickness>\n");
}

TEST(JavaViewOutputTest, WritesNoThicknessBelowAPixel) {
  for (const double size : {0.0, 0.1, 0.28, -3.0, -infinity}) {
    EXPECT_EQ(thickness(size), "<thickness>1</thickness>\n") << size;
  }
}

TEST(JavaViewOutputTest, LeavesOutAThicknessThatIsNoNumber) { EXPECT_EQ(thickness(nan), ""); }

TEST(JavaViewOutputTest, EscapesTexts) {
  EXPECT_EQ(written([](auto& out) { out.writeEscapedLocaleText("a<b & \"c\""); }),
            "a&lt;b &amp; &quot;c&quot;");
  EXPECT_EQ(written([](auto& out) { out.writeEscapedLocaleText(nullptr); }), "");
}

TEST(GeometryOutputTest, WritesThicknessBeforeColor) {
  EXPECT_EQ(written([](auto& out) { out.writeThicknessAndColor(red, 2); }),
            "<thickness>7.08661</thickness>\n<color>255 0 0</color>\n");
  EXPECT_EQ(written([](auto& out) { out.writeThicknessAndColor(red, nan); }),
            "<color>255 0 0</color>\n");
}

TEST(GeometryOutputTest, WritesEdges) {
  EXPECT_EQ(written([](auto& out) { out.writeEdges(RGBA(1, 2, 3), 0.5); }),
            "<edges>\n<thickness>1.77165</thickness>\n<color>1 2 3</color>\n</edges>\n");
}

TEST(GeometryOutputTest, LightensTransparentEdges) {
  EXPECT_EQ(edges(RGBA(250, 0, 0, 0)), "<edges>\n<color>255 85 85</color>\n</edges>\n");
  EXPECT_EQ(edges(RGBA(10, 20, 30, 128)), "<edges>\n<color>52 62 72</color>\n</edges>\n");
  EXPECT_EQ(edges(RGBA(10, 20, 30, 254)), "<edges>\n<color>10 20 30</color>\n</edges>\n");
}

TEST(GeometryOutputTest, WritesMaterials) {
  EXPECT_EQ(material(255, false),
            "<material>\n"
            "<ambientIntensity>0.2</ambientIntensity>\n"
            "<diffuse><color>128 128 128</color></diffuse>\n"
            "<emissive><color>0 0 0</color></emissive>\n"
            "<shininess>0.9</shininess>\n"
            "<specular><color>128 128 128</color></specular>\n"
            "<transparency visible=\"hide\">0</transparency>\n"
            "</material>\n");
  EXPECT_EQ(material(254, true),
            "<material shading=\"gouraud\">\n"
            "<ambientIntensity>0.2</ambientIntensity>\n"
            "<diffuse><color>128 128 128</color></diffuse>\n"
            "<emissive><color>0 0 0</color></emissive>\n"
            "<shininess>0.9</shininess>\n"
            "<specular><color>128 128 128</color></specular>\n"
            "<transparency visible=\"show\">0.00392157</transparency>\n"
            "</material>\n");
  EXPECT_EQ(line(material(0, false), 6), "<transparency visible=\"show\">1</transparency>");
}

TEST(GeometryOutputTest, WritesLabelAttributes) {
  FontStyle font;
  font.family = "A & B";
  font.size = 12;
  font.color = blue;
  EXPECT_EQ(label(font, Word::Center, Word::Top),
            "<labelAtt visible=\"show\" horAlign=\"center\" verAlign=\"top\" style=\"plain\" "
            "name=\"A &amp; B\">\n"
            "<color>0 0 255</color>\n"
            "<size>12</size>\n"
            "</labelAtt>\n");
}

TEST(GeometryOutputTest, RefusesAFamilyThatIsNoText) {
  FontStyle font;
  font.family = "\xff";
  for (const char* locale : {"C.UTF-8", "C"}) {
    const LocaleGuard here(LC_CTYPE, locale);
    EXPECT_THROW(label(font, Word::Center, Word::Top), base::BadUnicodeString) << locale;
  }
}

TEST(GeometryOutputTest, TranslatesTheAlignmentOfLabels) {
  const auto alignment = [](Token horizontal, Token vertical) {
    const std::string text = label({}, horizontal, vertical);
    const std::string_view begin = "<labelAtt visible=\"show\" ";
    return text.substr(begin.size(), text.find(" style") - begin.size());
  };
  EXPECT_EQ(alignment(Word::End, Word::Bottom), "horAlign=\"tail\" verAlign=\"bottom\"");
  EXPECT_EQ(alignment(Word::Begin, Word::Center), "horAlign=\"head\" verAlign=\"middle\"");
  EXPECT_EQ(alignment(Word::Left, Word::BaseLine), "horAlign=\"head\" verAlign=\"middle\"");
  EXPECT_EQ(alignment(Word::Right, Token()), "horAlign=\"head\" verAlign=\"middle\"");
}

TEST(GeometryOutputTest, NeverCombinesBoldAndItalic) {
  const auto style = [](bool bold, bool italic) {
    FontStyle font;
    font.bold = bold;
    font.italic = italic;
    const std::string text = label(font, Word::Left, Word::Top);
    const std::size_t begin = text.find("style=\"");
    return text.substr(begin, text.find(" name") - begin);
  };
  EXPECT_EQ(style(false, false), "style=\"plain\"");
  EXPECT_EQ(style(false, true), "style=\"italic\"");
  EXPECT_EQ(style(true, false), "style=\"bold\"");
  EXPECT_EQ(style(true, true), "style=\"bold\"");
}

TEST(GeometryOutputTest, WritesTheSizeOfAFontAsUnsigned) {
  FontStyle font;
  font.size = -1;
  EXPECT_EQ(line(label(font, Word::Left, Word::Top), 2), "<size>4294967295</size>");
}

TEST(GeometryOutputTest, WritesPointsAsTheyAre) {
  EXPECT_EQ(written([](auto& out) {
              out.writePoint(P3{0.2, 1e-5, 1234.567});
            }),
            "<p>0.2 1e-05 1234.57</p>\n");
  EXPECT_EQ(written([](auto& out) {
              out.writePoint(P3{nan, infinity, -infinity});
            }),
            "<p>nan inf -inf</p>\n");
  EXPECT_EQ(written([](auto& out) { out.writePoint(P2{-0.0, nan}); }), "<p>-0 nan</p>\n");
}

TEST(GeometryOutputTest, TransformsPoints) {
  EXPECT_EQ(written([](auto& out) {
              out.pushTransform(turnAndMove);
              out.writePoint(P3{1, 2, 3});
              out.writePoint(P2{1, 2});
            }),
            "<p>8 21 36</p>\n<p>8 21</p>\n");
}

TEST(GeometryOutputTest, DividesByTheLastEntryOnly) {
  EXPECT_EQ(written([](auto& out) {
              out.pushTransform({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 5, 5, 4});
              out.writePoint(P3{1, 2, 3});
              out.writePoint(P2{1, 2});
            }),
            "<p>0.25 0.5 0.75</p>\n<p>0.25 0.5</p>\n");
}

TEST(GeometryOutputTest, AppliesInnerTransformsFirst) {
  EXPECT_EQ(written([](auto& out) {
              out.pushTransform(turnAndMove);
              out.pushTransform({3, 0, 0, 0, 0, 3, 0, 0, 0, 0, 3, 0, 0, 0, 0, 1});
              out.writePoint(P3{1, 2, 3});
              out.popTransform();
              out.writePoint(P3{1, 2, 3});
              out.popTransform();
              out.writePoint(P3{1, 2, 3});
            }),
            "<p>4 23 48</p>\n<p>8 21 36</p>\n<p>1 2 3</p>\n");
}

TEST(GeometryOutputTest, HalvesTheSizeOfPoints) {
  const P3 points[] = {{1, 2, 3}, {4, 5, 6}};
  EXPECT_EQ(written([&](auto& out) { out.writePoints(points, red, 1); }),
            "<points num=\"2\">\n<p>1 2 3</p>\n<p>4 5 6</p>\n<thickness>1.77165</thickness>\n"
            "<color>255 0 0</color>\n</points>\n");
  const P2 flat[] = {{1, 2}};
  EXPECT_EQ(written([&](auto& out) { out.writePoints(flat, red, 1); }),
            "<points num=\"1\">\n<p>1 2</p>\n<thickness>1.77165</thickness>\n"
            "<color>255 0 0</color>\n</points>\n");
  EXPECT_EQ(written([](auto& out) { out.writePoints(std::span<const P3>(), red, nan); }),
            "<points num=\"0\">\n<color>255 0 0</color>\n</points>\n");
}

TEST(GeometryOutputTest, MovesVectorsLikePoints) {
  const P3 vectors[] = {{1, 2, 3}};
  EXPECT_EQ(written([&](auto& out) { out.writeVectors(vectors, red, 0.4, 1); }),
            "<vectors num=\"1\">\n<v>1 2 3</v>\n<thickness>3.54331</thickness>\n"
            "<length>0.4</length>\n<color>255 0 0</color>\n</vectors>\n");
  EXPECT_EQ(written([&](auto& out) {
              out.pushTransform(turnAndMove);
              out.writeVectors(vectors, red, 0, nan);
            }),
            "<vectors num=\"1\">\n<v>8 21 36</v>\n<length>0</length>\n<color>255 0 0</color>\n"
            "</vectors>\n");
  const P2 flat[] = {{1, 2}};
  EXPECT_EQ(written([&](auto& out) {
              out.pushTransform(turnAndMove);
              out.writeVectors(flat, red, 0.5, 1);
            }),
            "<vectors num=\"1\">\n<v>8 21</v>\n<thickness>3.54331</thickness>\n"
            "<length>0.5</length>\n<color>255 0 0</color>\n</vectors>\n");
}

namespace {

std::string circle(const P3& center, const P3& normal, double radius) {
  return written([&](auto& out) { out.writeCirclePoints(center, normal, radius); });
}

}  // namespace

TEST(CirclePointsTest, GoRoundThirtyEightPoints) {
  const std::string text = circle({0, 0, 0}, {0, 0, 7}, 1);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 38);
  EXPECT_EQ(line(text, 0), "<p>0 -1 0</p>");
  EXPECT_EQ(line(text, 1), "<p>-0.164595 -0.986361 0</p>");
  EXPECT_EQ(line(text, 37), "<p>0.164595 -0.986361 0</p>");
}

TEST(CirclePointsTest, BeginByTheSmallestComponentOfTheNormal) {
  EXPECT_EQ(line(circle({1, 2, 3}, {2, 1, 2}, 2), 0), "<p>2.41421 2 1.58579</p>");
  EXPECT_EQ(line(circle({0, 0, 0}, {2, 2, -1}, 2), 0), "<p>-1.41421 1.41421 0</p>");
}

TEST(CirclePointsTest, TakeTheFirstOfEqualComponents) {
  EXPECT_EQ(line(circle({0, 0, 0}, {1, 1, 1}, 1), 0), "<p>0 -0.707107 0.707107</p>");
}

TEST(CirclePointsTest, CollapseWithoutANormal) {
  std::string expected;
  for (int i = 0; i < 38; ++i) expected += "<p>1 2 3</p>\n";
  EXPECT_EQ(circle({1, 2, 3}, {0, 0, 0}, 5), expected);
  EXPECT_EQ(circle({1, 2, 3}, {1e-16, 0, 0}, 5), expected);
}

TEST(CirclePointsTest, FollowTheTransform) {
  const std::string text = written([](GeometryOutput& out) {
    out.pushTransform(turnAndMove);
    out.writeCirclePoints({0, 0, 1}, {0, 0, 1}, 1);
    EXPECT_EQ(out.transformStack.size(), 1U);
  });
  EXPECT_EQ(line(text, 0), "<p>11 20 32</p>");
}

TEST(GeometryOutputTest, WritesLineStrips) {
  const auto strip = [](int count, bool closed) {
    return written([=](auto& out) { out.writeLineStrip(count, closed); });
  };
  EXPECT_EQ(strip(3, false), "<l>0 1</l>\n<l>1 2</l>\n");
  EXPECT_EQ(strip(3, true), "<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n");
  EXPECT_EQ(strip(1, false), "");
  EXPECT_EQ(strip(1, true), "<l>0 0</l>\n");
  EXPECT_EQ(strip(0, false), "");
}

TEST(GeometryOutputTest, WritesIndices) {
  EXPECT_EQ(written([](auto& out) { out.writeIndices(1, 4); }), "1 2 3 4");
  EXPECT_EQ(written([](auto& out) { out.writeIndices(0, -3); }), "0");
}

TEST(GeometryOutputTest, WritesGrids) {
  EXPECT_EQ(written([](auto& out) { out.writeGridFaces(3, 2); }),
            "<f>0 1 4 3</f>\n<f>1 2 5 4</f>\n");
  EXPECT_EQ(written([](auto& out) { out.writeGridNeighbours(3, 2); }),
            "<nb>1 -1 -1 -1</nb>\n<nb>-1 -1 0 -1</nb>\n");
  EXPECT_EQ(written([](auto& out) { out.writeGridNeighbours(3, 3); }),
            "<nb>1 2 -1 -1</nb>\n<nb>-1 3 0 -1</nb>\n<nb>3 -1 -1 0</nb>\n<nb>-1 -1 2 1</nb>\n");
  EXPECT_EQ(written([](auto& out) {
              out.writeGridFaces(5, 1);
              out.writeGridFaces(1, 5);
              out.writeGridNeighbours(5, 1);
              out.writeGridNeighbours(1, 5);
            }),
            "");
}

TEST(GeometryOutputTest, LightensHalfWayToWhite) {
  EXPECT_EQ(lightenColor(RGBA(255, 0, 101, 7)), RGBA(255, 128, 178, 7));
}

}  // namespace vantry::javaview
