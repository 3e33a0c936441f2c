// What it costs to check a document grows as the document does, and by no power of it: counted over
// n, 2n and 4n items of each shape, in instructions of the whole program with its libraries.

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "../../driver/program.h"
#include "../../driver/scaling/counted_instructions.h"
#include "../../driver/scaling/pieces.h"

namespace {

/// A document with `n` mistakes or odd things, or one that is not well-formed for the last of them.
struct Shape {
  const char* name;
  std::size_t items;
  std::string (*document)(std::size_t n);
};

void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.name; }

const std::string emptyScene = "<Scene2d><CoordinateSystem2d/></Scene2d>";

std::string raster(const std::string& cells) {
  return image("<DensityArray2d XMesh='1' YMesh='1'>" + cells + "</DensityArray2d>");
}

std::string inUtf16(const std::string& ascii) {
  std::string bytes = "\xFE\xFF";
  for (const char c : ascii) bytes.append({'\0', c});
  return bytes;
}

const std::vector<Shape> shapes = {
    {"ReplacedElements", 300,
     [](std::size_t n) { return canvas(repeated("<Header/>", n) + emptyScene); }},
    {"ReplacedElementsInLines", 300,
     [](std::size_t n) { return canvas(repeated("<Header/>\n", n) + emptyScene); }},
    {"BadPointsInOneLine", 200,
     [](std::size_t n) { return image("<Pts2d>" + repeated("<P2>a b</P2>", n) + "</Pts2d>"); }},
    {"BadPointsInLines", 200,
     [](std::size_t n) { return image("<Pts2d>" + repeated("<P2>a b</P2>\n", n) + "</Pts2d>"); }},
    {"BadPointsInUtf16", 200,
     [](std::size_t n) {
       return inUtf16(image("<Pts2d>" + repeated("<P2>a b</P2>", n) + "</Pts2d>"));
     }},
    {"PointsThatAreNotFinite", 200,
     [](std::size_t n) { return image(repeated("<Pts2d><P2>1 nan</P2></Pts2d>", n)); }},
    {"ElementsBeyondTheirNumber", 300,
     [](std::size_t n) {
       return plane("<Obj2d Type='F'><Img2d/><Points2d><Point2d>" + repeated("<IExpr/>", n) +
                    "</Point2d></Points2d></Obj2d>");
     }},
    {"MisplacedElements", 200, [](std::size_t n) { return plane(repeated("<Scene2d/>", n)); }},
    {"SecondCanvases", 200, [](std::size_t n) { return canvas(repeated("<Canvas/>", n)); }},
    {"UnknownElements", 200, [](std::size_t n) { return plane(numbered("<a#/>", n)); }},
    {"UnknownElementsBehindManyInOneLine", 200,
     [](std::size_t n) { return plane(repeated("<Group2d/>", 10 * n) + numbered("<a#/>", n)); }},
    {"UnknownAttributesOfOneElement", 200,
     [](std::size_t n) { return plane("<Group2d" + numbered(" a#=''", n) + "/>"); }},
    {"AttributesOfOtherElements", 200,
     [](std::size_t n) { return plane(repeated("<Group2d LineWidth='1'/>", n)); }},
    {"NamesInALongNamespace", 200,
     [](std::size_t n) {
       return "<Canvas xmlns:p='urn:" + std::string(50 * n, 'p') + "'>" + emptyScene +
              numbered("<p:a#/>", n) + "</Canvas>";
     }},
    {"BadValues", 200,
     [](std::size_t n) { return image(repeated("<Pt2d Position='1' PointSize='x'/>", n)); }},
    {"BadCells", 200, [](std::size_t n) { return raster(repeated("x ", n)); }},
    {"BadCellsThatAreNotInTheText", 200,
     [](std::size_t n) {
       return "<!DOCTYPE Canvas [<!ENTITY e 'x '>]>" + raster(repeated("&e;", n));
     }},
    {"StrayTexts", 200, [](std::size_t n) { return plane(repeated("<Group2d>a</Group2d>", n)); }},
    {"ObjectsWithoutImages", 200,
     [](std::size_t n) { return plane(repeated("<Obj2d Type='F'/>", n)); }},
    {"StylesOfManyTypesWithoutObjects", 200,
     [](std::size_t n) {
       return plane(numbered("<ObjStyle Type='K#' LineWidth='1'/>", n) +
                    numbered("<Obj2d Type='O#'><Img2d/></Obj2d>", n));
     }},
    {"StylesBehindTheirObjects", 100,
     [](std::size_t n) {
       return plane(repeated("<Obj2d Type='K'><Img2d/></Obj2d><ObjStyle Type='K'/>", n));
     }},
    {"CellsThatAreNotFinite", 200,
     [](std::size_t n) { return image(repeated("<DensityArray2d>nan</DensityArray2d>", n)); }},
    {"CellsOfEntitiesThatAreNotFinite", 200,
     [](std::size_t n) {
       const std::string array = "<!ENTITY e '<DensityArray2d>nan</DensityArray2d>'>";
       return "<!DOCTYPE Canvas [" + array + "]>" + image(repeated("&e;", n));
     }},
    {"CamerasBesideTheFirst", 200,
     [](std::size_t n) {
       return space(repeated("<Obj3d Type='Camera'><Img3d><Camera/></Img3d></Obj3d>", n));
     }},
    {"FramesInTheirOrder", 200,
     [](std::size_t n) {
       return canvas(
           "<TimeRange/><Scene2d><CoordinateSystem2d><Obj2d Type='F'>"
           "<ParameterBegin Val='0'/><ParameterEnd Val='1'/>" +
           numbered("<Img2d Param='#'/>", n) + "</Obj2d></CoordinateSystem2d></Scene2d>");
     }},
    {"PrimitivesThatAreNotDrawn", 200,
     [](std::size_t n) { return image(repeated("<Poly2d/>", n)); }},
    {"LongTextsInOtherEncodings", 50,
     [](std::size_t n) {
       const std::string text = "<Text2d Position='1 2'>" + std::string(1000, '\xBF') + "</Text2d>";
       return "<?xml version='1.0' encoding='ISO-8859-1'?>" + image(repeated(text + "<a/>", n));
     }},
    {"PrefixesBeforeOneThatIsNotDeclared", 800,
     [](std::size_t n) {
       return "<Canvas" + numbered(" xmlns:p#='urn:#'", n) + "><Scene2d" + numbered(" p#:a=''", n) +
              " zz:b=''/></Canvas>";
     }},
    {"EntitiesBeforeOneThatIsNotDeclared", 200,
     [](std::size_t n) {
       return "<!DOCTYPE Canvas [" + numbered("<!ENTITY e# '1'>", n) + "]><Canvas Width='" +
              numbered("&e#;", n) + "&deg;'/>";
     }},
    {"SectionsBeforeOneThatIsOpen", 200,
     [](std::size_t n) {
       return canvas(repeated("<!-- <![CDATA[ --><![CDATA[]]>", n) + "<![CDATA[");
     }},
};

class Check : public ProgramTest, public testing::WithParamInterface<Shape> {
 protected:
  Check() { setEnvironment("LC_ALL", "C.UTF-8"); }

  void check(const std::string& document) const {
    write("in.zrd", document);
    const Outcome outcome = runInto("/dev/null", {"check", "in.zrd"});
    EXPECT_LE(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
  }
};

using CheckInstructions = CountedInstructions<Check>;

// What the check costs before it has found anything is part of none of the differences.
TEST_P(CheckInstructions, GrowAsTheDocument) {
  std::vector<double> costs;
  for (const std::size_t parts : {1, 2, 4}) {
    check(GetParam().document(parts * GetParam().items));
    costs.push_back(counted());
  }
  const double further = std::log2((costs[2] - costs[1]) / (costs[1] - costs[0]));
  EXPECT_LE(further, largestExponent) << testing::PrintToString(costs);
}

INSTANTIATE_TEST_SUITE_P(Shape, CheckInstructions, testing::ValuesIn(shapes),
                         [](const auto& test) { return test.param.name; });

}  // namespace
