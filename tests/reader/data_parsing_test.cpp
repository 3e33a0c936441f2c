#include <gtest/gtest.h>

#include <cmath>

#include "reading.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/poly2d.h"

namespace {

using namespace vantry::plot;

std::string inPlane(const std::string& primitive) {
  return "<Canvas><Scene2d><CoordinateSystem2d><Obj2d Type=\"x\"><Img2d>" + primitive +
         "</Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>";
}

std::string inSpace(const std::string& primitive) {
  return "<Canvas><Scene3d><CoordinateSystem3d><Obj3d Type=\"x\"><Img3d>" + primitive +
         "</Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>";
}

std::string poly(const std::string& points) { return inPlane("<Poly2d>" + points + "</Poly2d>"); }
std::string mesh(const std::string& points) { return inSpace("<Mesh3d>" + points + "</Mesh3d>"); }
std::string p2(const std::string& text) { return "<P2>" + text + "</P2>"; }
std::string p3(const std::string& text) { return "<P3>" + text + "</P3>"; }

TEST(DataParsing, ReadsPointsOfThePlane) {
  const struct {
    const char* text;
    P2 point;
  } rows[] = {
      {"1 2", {1, 2}},      {"\n 1\n\t-2.5e3 \n", {1, -2500}},
      {"1 2 3", {1, 2}},    {"1 2 ff0000", {1, 2}},
      {"0x10 +2", {16, 2}}, {"1e400 2", {INFINITY, 2}},
      {"1\r\n2", {1, 2}},   {"1 2abc", {1, 2}},
  };
  for (const auto& row : rows) {
    Reading reading(poly(p2(row.text)));
    ASSERT_EQ(reading.code(), 0) << row.text;
    EXPECT_EQ(reading.first<Poly2d>().points, std::vector<P2>{row.point}) << row.text;
    EXPECT_TRUE(reading.first<Poly2d>().colors.empty());
  }
}

TEST(DataParsing, StoresNanWithoutComplaint) {
  Reading reading(poly(p2("nan 1") + p2("-inf inf")));
  EXPECT_EQ(reading.code(), 0);
  EXPECT_TRUE(std::isnan(reading.first<Poly2d>().points[0].x));
  EXPECT_EQ(reading.first<Poly2d>().points[1].x, -INFINITY);
}

TEST(DataParsing, ReadsColouredPointsOfThePlane) {
  Reading reading(poly(p2("1 2 #FF8000") + p2("3 4 #01020380")));
  EXPECT_EQ(reading.code(), 0);
  EXPECT_EQ(reading.first<Poly2d>().points.size(), 2u);
  EXPECT_EQ(reading.first<Poly2d>().colors,
            (std::vector<RGBA>{RGBA(255, 128, 0), RGBA(1, 2, 3, 128)}));
}

TEST(DataParsing, RefusesBadPointsOfThePlane) {
  const struct {
    std::string text;
    const char* message;
  } rows[] = {
      {poly(p2("")), "P2 data corrupted: ''\n"},
      {poly(p2("1")), "P2 data corrupted: '1'\n"},
      {poly(p2("a 1")), "P2 data corrupted: 'a 1'\n"},
      {poly(p2("1 2 #12")), "P2 data corrupted: '1 2 #12'\n"},
      {poly(p2("#ff0000 1 2")), "P2 data corrupted: '#ff0000 1 2'\n"},
      {poly(p2("1 2") + p2("1 2 #ff0000")), "illegal P2 [parent Poly2d]\n"},
      {poly(p2("1 2 #ff0000") + p2("1 2")), "illegal P2 [parent Poly2d]\n"},
      {inPlane("<Line2d><P2>1 2</P2></Line2d>"), "illegal P2 [parent Line2d]\n"},
      {poly("<P3>1 2 3</P3>"), "illegal P3 [parent Poly2d]\n"},
      {poly("<P2>1 2<P2>3</P2></P2>"), "P2 data corrupted: ''\n"},
  };
  for (const auto& row : rows) {
    Reading reading(row.text);
    EXPECT_EQ(reading.code(), 15) << row.text;
    EXPECT_EQ(reading.complaints(), std::string("ZRD error: ") + row.message) << row.text;
  }
}

TEST(DataParsing, ReadsEachFormOfAPointInSpace) {
  const RGBA red(255, 0, 0);
  const RGBA green(0, 255, 0, 128);
  const struct {
    const char* text;
    std::size_t normals, colors, secondColors;
  } rows[] = {
      {"1 2 3", 0, 0, 0},
      {"1 2 3 #ff0000", 0, 1, 0},
      {"1 2 3 #FF0000 #00ff0080", 0, 1, 1},
      {"1 2 3 4 5 6", 1, 0, 0},
      {"1 2 3 4 5 6 #ff0000", 1, 1, 0},
      {" 1 2 3\n4 5 6\t#ff0000 #00ff0080\n", 1, 1, 1},
  };
  for (const auto& row : rows) {
    Reading reading(mesh(p3(row.text)));
    ASSERT_EQ(reading.code(), 0) << row.text;
    const auto& found = reading.first<Mesh3d>();
    EXPECT_EQ(found.points, (std::vector<P3>{{1, 2, 3}}));
    EXPECT_EQ(found.normals, std::vector<P3>(row.normals, P3{4, 5, 6})) << row.text;
    EXPECT_EQ(found.colors, std::vector<RGBA>(row.colors, red)) << row.text;
    EXPECT_EQ(found.secondColors, std::vector<RGBA>(row.secondColors, green)) << row.text;
  }
}

TEST(DataParsing, RefusesBadPointsInSpace) {
  const std::string tests[] = {
      "",
      "1 2",
      "1 2 3 4",
      "1 2 3 4 5 6 7",
      "1 2 3 ff0000",
      "1 2 3 #ff0000 #00ff00 #0000ff",
      "#ff0000 1 2 3",
      "1 2 x",
      "1 2 3 #ff00",
      "1 2 3 #ff0000 #12",
  };
  for (const std::string& text : tests) {
    Reading reading(mesh(p3(text)));
    EXPECT_EQ(reading.code(), 15) << text;
    EXPECT_EQ(reading.complaints(), "ZRD error: P3 data corrupted: '" + text + "'\n");
  }
}

TEST(DataParsing, CutsAColourWordOfMoreThanTenCharactersInThePlane) {
  Reading cut(poly(p2("1 2 #ff000080ab99")));
  EXPECT_EQ(cut.code(), 0) << "the rest is ignored";
  EXPECT_EQ(cut.first<Poly2d>().colors, std::vector<RGBA>{RGBA(255, 0, 0, 128)});
  Reading bad(poly(p2("1 2 #ff0000xx80ab99")));
  EXPECT_EQ(bad.code(), 0) << "what follows the three pairs is no alpha";
  Reading refused(poly(p2("1 2 #ff00xx000000ab")));
  EXPECT_EQ(refused.complaints(), "ZRD error: P2 data corrupted: '1 2 #ff00xx000000ab'\n")
      << "the message shows the whole text";
}

TEST(DataParsing, CutsAColourWordOfMoreThanTenCharacters) {
  EXPECT_EQ(Reading(mesh(p3("1 2 3 #ff000080ab99"))).code(), 0) << "the rest is ignored";
  EXPECT_EQ(Reading(mesh(p3("1 2 3 #ff000080ab99 #00ff00"))).code(), 15)
      << "the rest makes the next item fail";
}

TEST(DataParsing, HoldsAListToTheFormOfItsFirstPoint) {
  const char* const forms[] = {"1 2 3",       "1 2 3 #111111",       "1 2 3 #111111 #222222",
                               "1 2 3 4 5 6", "1 2 3 4 5 6 #111111", "1 2 3 4 5 6 #111111 #222222"};
  for (const char* first : forms) {
    for (const char* second : forms) {
      Reading reading(mesh(p3(first) + p3(second)));
      EXPECT_EQ(reading.code(), first == second ? 0 : 15) << first << " / " << second;
      const std::string message = "ZRD error: P3 data corrupted: '" + std::string(second) + "'\n";
      EXPECT_EQ(reading.complaints(), first == second ? "" : message);
    }
  }
}

TEST(DataParsing, ReadsTheListsOfAllClassesThatHaveOne) {
  for (const std::string tag : {"Poly2d", "Field2d", "Pts2d"}) {
    Reading reading(inPlane("<" + tag + "><P2>1 2</P2></" + tag + ">"));
    EXPECT_EQ(reading.code(), 0) << tag;
    EXPECT_NE(reading.xml().find("<P2>1 2</P2></" + tag), std::string::npos) << tag;
    Reading other(inPlane("<" + tag + "><P3>1 2 3</P3></" + tag + ">"));
    EXPECT_EQ(other.complaints(), "ZRD error: illegal P3 [parent " + tag + "]\n");
  }
  for (const std::string tag : {"Mesh3d", "Poly3d", "Pts3d", "Lines3d", "Field3d", "Surf3d"}) {
    Reading reading(inSpace("<" + tag + "><P3>1 2 3</P3></" + tag + ">"));
    EXPECT_EQ(reading.code(), 0) << tag;
    EXPECT_NE(reading.xml().find("<P3>1 2 3</P3></" + tag), std::string::npos) << tag;
    Reading other(inSpace("<" + tag + "><P2>1 2</P2></" + tag + ">"));
    EXPECT_EQ(other.complaints(), "ZRD error: illegal P2 [parent " + tag + "]\n");
  }
}

TEST(DataParsing, LeavesTheListOfThePlaneAloneWhenAPointIsRefused) {
  Reading reading(poly(p2("1 2 #111111") + p2("3 4 #zz")));
  EXPECT_EQ(reading.code(), 15);
  EXPECT_EQ(reading.first<Poly2d>().points.size(), 1u);
  EXPECT_EQ(reading.first<Poly2d>().colors.size(), 1u);
}

TEST(DataParsing, TakesAColourDirectlyBehindANumberInThePlaneOnly) {
  EXPECT_EQ(Reading(poly(p2("1 2#ff0000"))).first<Poly2d>().colors.size(), 1u);
  Reading space(mesh(p3("1 2 3#ff0000")));
  EXPECT_EQ(space.code(), 0);
  EXPECT_TRUE(space.first<Mesh3d>().colors.empty());
}

TEST(DataParsing, LeavesTheListAloneWhenAPointIsRefused) {
  Reading reading(mesh(p3("1 2 3 #111111") + p3("4 5 6 #zz")));
  EXPECT_EQ(reading.code(), 15);
  EXPECT_EQ(reading.first<Mesh3d>().points.size(), 1u);
  EXPECT_EQ(reading.first<Mesh3d>().colors.size(), 1u);
}

std::string colorArray(const std::string& words) {
  return inPlane("<ColorArray2d XMesh=\"2\" YMesh=\"2\">" + words + "</ColorArray2d>");
}

std::string densityArray(const std::string& words) {
  return inPlane("<DensityArray2d XMesh=\"3\" YMesh=\"2\">" + words + "</DensityArray2d>");
}

TEST(DataParsing, ReadsColourArrays) {
  Reading reading(colorArray("#ff0000 00FF00\n#0000ff80\t\r\n  #111111 #222222"));
  EXPECT_EQ(reading.code(), 0);
  EXPECT_EQ(reading.first<ColorArray2d>().colors,
            (std::vector<RGBA>{RGBA(255, 0, 0), RGBA(0, 255, 0), RGBA(0, 0, 255, 128),
                               RGBA(17, 17, 17), RGBA(34, 34, 34)}))
      << "all that are given are kept";
}

TEST(DataParsing, ReadsDensityArrays) {
  Reading reading(densityArray("1 2 3\n4 5 6\n"));
  EXPECT_EQ(reading.code(), 0);
  EXPECT_EQ(reading.first<DensityArray2d>().values, (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(DataParsing, JoinsWordsAcrossBlocks) {
  std::string words;
  for (int i = 0; i < 400; ++i) words += "1234.5 ";
  Reading reading(densityArray(words));
  EXPECT_EQ(reading.first<DensityArray2d>().values, std::vector<double>(400, 1234.5));
}

TEST(DataParsing, RefusesBadArrays) {
  const struct {
    std::string text;
    const char* message;
  } rows[] = {
      {colorArray("#ff0000 xyz #ff0000"), "ColorArray2d data corrupted: 'xyz'\n"},
      {colorArray("#111111 #111111 #111111"), "ColorArray2d data corrupted: 'colors missing'\n"},
      {colorArray(""), "ColorArray2d data corrupted: 'colors missing'\n"},
      {densityArray("1 abc"), "DensityArray2d data corrupted: 'abc'\n"},
      {densityArray("1 2 3 4 5"), "DensityArray2d data corrupted: 'values missing'\n"},
      {inPlane("<DensityArray2d XMesh=\"2147483647\" YMesh=\"2147483647\">1</DensityArray2d>"),
       "DensityArray2d data corrupted: 'values missing'\n"},
      {inPlane("<ColorArray2d XMesh=\"65536\" YMesh=\"65536\">#111111</ColorArray2d>"),
       "ColorArray2d data corrupted: 'colors missing'\n"},
  };
  for (const auto& row : rows) {
    Reading reading(row.text);
    EXPECT_EQ(reading.code(), 15) << row.text;
    EXPECT_EQ(reading.complaints(), std::string("ZRD error: ") + row.message) << row.text;
  }
}

TEST(DataParsing, AMeshHasRoomForThePointsThatItAnnounces) {
  std::string points;
  for (int i = 0; i < 300; ++i) points += "<P3>1 2 3</P3>";
  const auto meshOf = [&points](const std::string& size) {
    return inSpace("<Mesh3d " + size + ">" + points + "</Mesh3d>");
  };
  Reading announced(meshOf("UMesh=\"20\" VMesh=\"15\""));
  EXPECT_EQ(announced.first<Mesh3d>().points.size(), 300u);
  EXPECT_EQ(announced.first<Mesh3d>().points.capacity(), 300u);

  for (const char* size :
       {"UMesh=\"2147483647\" VMesh=\"2147483647\"", "UMesh=\"2\" VMesh=\"2\"", ""}) {
    Reading reading(meshOf(size));
    EXPECT_EQ(reading.first<Mesh3d>().points.size(), 300u) << size;
    EXPECT_LE(reading.first<Mesh3d>().points.capacity(), 4 * 300u) << size;
  }
}

TEST(DataParsing, WritesPointsBackInTheirForm) {
  const std::string points =
      "<P3>1 2.5 3 0 0 1 #ff0000 #00ff0080</P3><P3>4 5 6 0 1 0 #000000 #ffffff</P3>";
  EXPECT_NE(Reading(mesh(points)).xml().find(">" + points + "</Mesh3d>"), std::string::npos);
  const std::string flat = "<P2>1 -2 #ff8000</P2>";
  EXPECT_NE(Reading(poly(flat)).xml().find(">" + flat + "</Poly2d>"), std::string::npos);
  const std::string words = "1 2 3 4 5 6 ";
  EXPECT_NE(Reading(densityArray(words)).xml().find(">" + words + "</DensityArray2d>"),
            std::string::npos);
}

}  // namespace
