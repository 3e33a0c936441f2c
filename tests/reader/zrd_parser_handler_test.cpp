#include "vantry/reader/zrd_parser_handler.h"

#include <gtest/gtest.h>

#include <new>

#include "reading.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/expr_list.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/reader/zrd_names.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using namespace vantry::reader;
using vantry::dom::DomException;

// A document around the content of a 2d coordinate system.
std::string plane(const std::string& content) {
  return "<Canvas xmlns=\"http://www.example.org/xml/Corvane\"><Scene2d><CoordinateSystem2d>" +
         content + "</CoordinateSystem2d></Scene2d></Canvas>";
}

std::string object(const std::string& content) {
  return plane("<Obj2d Type=\"Curve2d\">" + content + "</Obj2d>");
}

std::string space(const std::string& content) {
  return "<Canvas><Scene3d><CoordinateSystem3d>" + content +
         "</CoordinateSystem3d></Scene3d></Canvas>";
}

const char* textOf(const dom::Node& element) { return element.firstChild()->nodeValue(); }

TEST(ZrdParserHandler, GivesTheDocumentAnEmptyCanvasAndOpensABatch) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  {
    ZrdParserHandler handler(document.get(), true, nullptr);
    ASSERT_TRUE(document->documentElement());
    EXPECT_EQ(document->documentElement()->tagName(), Word::Canvas);
    EXPECT_TRUE(document->isInBatch());
  }
  document->tearDown();
}

TEST(ZrdParserHandler, BuildsTheTreeOfAPlot) {
  Reading reading(
      "<?xml version=\"1.0\"?>\n"
      "<Canvas xmlns=\"http://www.example.org/xml/Corvane\" Width=\"120\" Height=\"80\">"
      "<Header>Sine</Header><Scene2d><CoordinateSystem2d>"
      "<ObjStyle Type=\"Default\" LineWidth=\"1\"/>"
      "<Obj2d Type=\"Curve2d\"><Title>curve</Title><Expr Opt=\"Function\">sin(x)</Expr>"
      "<Img2d><Poly2d><P2>0 0</P2><P2>1 0.84</P2></Poly2d></Img2d></Obj2d>"
      "</CoordinateSystem2d></Scene2d></Canvas>");
  EXPECT_EQ(reading.code(), 0);
  EXPECT_EQ(reading.failures(), 0);
  EXPECT_EQ(reading.complaints(), "");
  EXPECT_FALSE(reading.document().isInBatch());

  const auto& canvas = reading.first<Canvas>();
  EXPECT_EQ(canvas.width(), 120);
  EXPECT_EQ(canvas.height(), 80);
  ASSERT_EQ(canvas.length(), 2u);
  EXPECT_STREQ(textOf(*canvas.firstChild()), "Sine");
  const auto& object = reading.first<Obj2d>();
  EXPECT_EQ(object.parent()->length(), 2u);
  ASSERT_EQ(object.length(), 3u);
  EXPECT_STREQ(textOf(*object.childAt(0)), "curve");
  EXPECT_STREQ(textOf(*object.childAt(1)), "sin(x)");
  const auto& poly = reading.first<Poly2d>();
  ASSERT_EQ(poly.points.size(), 2u);
  EXPECT_EQ(poly.points[1], (P2{1, 0.84}));
  EXPECT_EQ(poly.lineWidth(), 1) << "a primitive resolves its members when it is attached";
}

TEST(ZrdParserHandler, IgnoresIdsUnlessAskedToKeepThem) {
  const std::string text = plane("<Obj2d id=\"a7\" Type=\"Curve2d\"/>");
  EXPECT_FALSE(Reading(text).first<Obj2d>().hasAttribute(Word::Id));
  Reading keeping(text, false);
  const Variant id = keeping.first<Obj2d>().getAttribute(Word::Id);
  EXPECT_STREQ(id.as<base::FixedStringVariant>()->get().c_str(), "a7");
}

TEST(ZrdParserHandler, ReplacesAUniqueChildByTheNextOfItsName) {
  Reading reading(object("<Title>one</Title><LegendText>l</LegendText><Title>two</Title>"));
  const auto& found = reading.first<Obj2d>();
  ASSERT_EQ(found.length(), 2u);
  EXPECT_STREQ(textOf(*found.childAt(0)), "two") << "it takes the place of the first";

  Reading ticks(plane("<XTicksAt><TickPos/><TickPos/></XTicksAt><XTicksAt><TickPos/></XTicksAt>"));
  EXPECT_EQ(ticks.code(), 0);
  EXPECT_EQ(ticks.first<XTicksAt>().length(), 1u);
}

TEST(ZrdParserHandler, TakesElementsWithoutANamespace) {
  Reading reading("<z:Canvas xmlns:z=\"urn:x/xml/Corvane\"><Scene2d/><z:Scene2d/></z:Canvas>");
  EXPECT_EQ(reading.first<Canvas>().length(), 2u);
  EXPECT_EQ(reading.complaints(), "");
}

TEST(ZrdParserHandler, TakesAttributesOfTheFormatsNamespace) {
  Reading reading("<z:Canvas xmlns:z=\"urn:x/xml/Corvane\" z:Width=\"7\"/>");
  EXPECT_EQ(reading.first<Canvas>().width(), 7);
  EXPECT_EQ(reading.complaints(), "");
}

TEST(ZrdNames, NamespaceOfTheFormatIsKnownByItsEnd) {
  EXPECT_TRUE(isFormatNamespace("http://www.example.org/xml/Corvane"));
  EXPECT_TRUE(isFormatNamespace("/xml/Corvane"));
  EXPECT_FALSE(isFormatNamespace("fooxml/Corvane"));
  EXPECT_FALSE(isFormatNamespace("xml/Corvane"));
  EXPECT_FALSE(isFormatNamespace("http://www.example.org/xml/corvane"));
  EXPECT_FALSE(isFormatNamespace("http://www.example.org/xml/Corvane/"));
  EXPECT_FALSE(isFormatNamespace(""));
}

TEST(ZrdParserHandler, SkipsWhatHasAnotherNamespace) {
  Reading reading(
      "<Canvas xmlns:o=\"http://www.example.org/xml/Corvanes\" Width=\"3\" o:Height=\"4\">"
      "<o:Scene2d><Bad/></o:Scene2d></Canvas>");
  EXPECT_EQ(reading.first<Canvas>().length(), 0u);
  EXPECT_EQ(reading.first<Canvas>().width(), 3);
  EXPECT_EQ(reading.first<Canvas>().height(), 75);
  const std::string message =
      "ZRD error: unknown namespace 'http://www.example.org/xml/Corvanes'\n";
  EXPECT_EQ(reading.complaints(), message + message);
}

TEST(ZrdParserHandler, SkipsUnknownNames) {
  const struct {
    const char* text;
    const char* message;
  } rows[] = {
      {"<Canvas><Foo><Scene2d/>text</Foo></Canvas>", "ZRD error: unknown element 'Foo'\n"},
      {"<Canvas><A/></Canvas>", "ZRD error: unknown element 'A'\n"},
      {"<Canvas><AVeryLongNameOfAnElement12/></Canvas>",
       "ZRD error: unknown element 'AVeryLongNameOfAnElement12'\n"},
      {"<Canvas><canvas/></Canvas>", "ZRD error: unknown element 'canvas'\n"},
      {"<Canvas><Smooth/></Canvas>", "ZRD error: not an element 'Smooth'\n"},
      {"<Canvas><id/></Canvas>", "ZRD error: not an element 'id'\n"},
      {"<Canvas foo=\"1\"/>", "ZRD error: unknown attribute 'foo'\n"},
      {"<Canvas Canvas=\"1\"/>", "ZRD error: not an attribute 'Canvas'\n"},
      {"<Canvas ViewingBox=\"1\"/>", "ZRD error: not an attribute 'ViewingBox'\n"},
  };
  for (const auto& row : rows) {
    Reading reading(row.text);
    EXPECT_EQ(reading.complaints(), row.message) << row.text;
    EXPECT_EQ(reading.code(), 0);
    EXPECT_EQ(reading.first<Canvas>().length(), 0u);
    EXPECT_FALSE(reading.document().isInBatch());
  }
}

TEST(ZrdParserHandler, StopsAtBadData) {
  const struct {
    std::string text;
    int code;
    const char* message;
  } rows[] = {
      {"<Canvas><P2>1 2</P2></Canvas>", 15, "ZRD error: illegal P2 [parent Canvas]\n"},
      {"<Canvas Radius=\"1\"/>", 15, "PlotDom error: unknown property 'Radius' [node 'Canvas']\n"},
      {"<Canvas Width=\"wide\"/>", 12, "PlotDom error: illegal value string [attribute 'Width']\n"},
      {"<Canvas Width=\"0\"/>", 3, "PlotDom error: illegal value [attribute 'Width']\n"},
      {"<Canvas><Obj2d Type=\"x\"/></Canvas>", 3,
       "PlotDom error: not a valid content child 'Obj2d' [parent 'Canvas']\n"},
      {"<Canvas><Scene2d><View3d/></Scene2d></Canvas>", 3,
       "PlotDom error: illegal option child [parent 'Scene2d']\n"},
      {plane("<Obj2d/>"), 15, "PlotDom error: illegal attribute 'Type' [node 'Obj2d']\n"},
      {plane("<Obj2d Type=\"\"/>"), 12, "PlotDom error: illegal value string [attribute 'Type']\n"},
      {plane("<ObjStyle LineWidth=\"1\"/>"), 15,
       "PlotDom error: illegal attribute 'Type' [node 'ObjStyle']\n"},
      {plane("<Transform2d/>"), 3, ""},
      {object("<Expr>x</Expr>"), 3, ""},
      {object("<Expr Opt=\"\">x</Expr>"), 15, "PlotDom error: empty option name\n"},
      {object("<Expr Opt=\"a\" Val=\"1\">x</Expr>"), 15,
       "PlotDom error: illegal attribute 'Val'\n"},
      {object("<ParameterBegin Val=\"x\"/>"), 15,
       "PlotDom error: illegal value string [Val='x']\n"},
      {object("<Prop Val=\"1\"/>"), 3, ""},
      {"<Canvas><ObjType/></Canvas>", 3, ""},
      {"<Canvas><ObjType Type=\"a\"><PropCat/></ObjType></Canvas>", 3, ""},
      {"<Canvas><ObjType Type=\"a\"><PropCat Name=\"\"/></ObjType></Canvas>", 3, ""},
      {"<Canvas><ObjType Type=\"a\"><PropCat Name=\"n\"><PropInfo/></PropCat></ObjType></Canvas>",
       3, ""},
      {plane("<Transform2d Type=\"Rotate2d\"><Matrix2d><IExpr/><IExpr/><IExpr/><IExpr/><IExpr/>"
             "</Matrix2d></Transform2d>"),
       3, ""},
      {object("<Title><Header/></Title>"), 3,
       "PlotDom error: not a text node child [parent 'Title']\n"},
      {space("<Group3d><Obj3d Type=\"Camera\"/></Group3d>"), 3,
       "PlotDom error: not a valid content child 'Obj3d' [parent 'Group3d']\n"},
  };
  for (const auto& row : rows) {
    Reading reading(row.text);
    EXPECT_EQ(reading.code(), row.code) << row.text;
    EXPECT_EQ(reading.complaints(), row.message) << row.text;
  }
}

TEST(ZrdParserHandler, SaysWhatWasRefused) {
  const struct {
    std::string text;
    const char* what;
  } rows[] = {
      {"<Canvas Width=\"wide\"/>", "SYNTAX_ERR: element 'Canvas', attribute 'Width', value 'wide'"},
      {"<Canvas Width=\"0\"/>",
       "HIERARCHY_REQUEST_ERR: element 'Canvas', attribute 'Width', value '0'"},
      {"<Canvas Radius=\"1\"/>",
       "INVALID_ACCESS_ERR: element 'Canvas', attribute 'Radius', value '1'"},
      {"<Scene2d/>", "HIERARCHY_REQUEST_ERR: element 'Scene2d'"},
      {"<Canvas><Line2d From=\"0 0\" To=\"1 1\"/></Canvas>",
       "HIERARCHY_REQUEST_ERR: element 'Line2d' in 'Canvas'"},
      {plane("<Obj2d/>"), "INVALID_ACCESS_ERR: element 'Obj2d' needs attribute 'Type'"},
      {object("<Prop Val=\"1\"/>"), "HIERARCHY_REQUEST_ERR: element 'Prop' needs attribute 'Opt'"},
      {"<Canvas><P2>1 2</P2></Canvas>", "INVALID_ACCESS_ERR: element 'P2' in 'Canvas'"},
      {"<P3>1 2</P3>", "INVALID_ACCESS_ERR: element 'P3'"},
      {object("<Img2d><Pts2d><P2>1\nx</P2></Pts2d></Img2d>"),
       "INVALID_ACCESS_ERR: element 'P2', data '1 x'"},
      {object("<Img2d><DensityArray2d>1 x 2</DensityArray2d></Img2d>"),
       "INVALID_ACCESS_ERR: element 'DensityArray2d', data 'x'"},
      {object("<Img2d><ColorArray2d XMesh=\"2\" YMesh=\"1\">#ffffff</ColorArray2d></Img2d>"),
       "INVALID_ACCESS_ERR: element 'ColorArray2d', colors missing"},
      {"<Canvas><Scene2d><Canvas/></Scene2d></Canvas>",
       "HIERARCHY_REQUEST_ERR: end of element 'Scene2d'"},
      {object("<Title><Header/></Title>"), "HIERARCHY_REQUEST_ERR: element 'Header' in 'Title'"},
  };
  for (const auto& row : rows) EXPECT_EQ(Reading(row.text).what(), row.what) << row.text;
}

TEST(ZrdParserHandler, AcceptsAPropWithoutAValueAndATypeThatHasADefault) {
  EXPECT_EQ(Reading(object("<Prop Opt=\"Color\"/>")).code(), 0);
  EXPECT_EQ(Reading(space("<Obj3d Type=\"x\"><Img3d><Lines3d/><Surf3d/></Img3d></Obj3d>")).code(),
            0);
}

TEST(ZrdParserHandler, RefusesAnOutermostElementOtherThanCanvas) {
  EXPECT_EQ(Reading("<Scene2d/>").code(), DomException::HierarchyRequest);
  EXPECT_EQ(Reading("<P2>1 2</P2>").code(), DomException::InvalidAccess);
  EXPECT_EQ(Reading("<P3>1 2 3</P3>").code(), DomException::InvalidAccess);
  Reading unknown("<svg/>");
  EXPECT_EQ(unknown.code(), 0) << "an unknown outermost element is skipped like any other";
  EXPECT_EQ(unknown.first<Canvas>().length(), 0u);
}

TEST(ZrdParserHandler, LetsANestedCanvasTakeTheRoot) {
  Reading twice("<Canvas Width=\"7\"><Canvas Width=\"8\"/></Canvas>");
  EXPECT_EQ(twice.code(), 0);
  EXPECT_EQ(twice.first<Canvas>().width(), 8);
  EXPECT_FALSE(twice.document().isInBatch());
  EXPECT_EQ(Reading("<Canvas><Scene2d><Canvas/></Scene2d></Canvas>").code(), 3)
      << "there is no current element at the end tag of the scene";
  EXPECT_EQ(Reading("<Canvas><Canvas/><Scene2d/></Canvas>").code(), 3);
  EXPECT_EQ(Reading(object("<Title><Canvas/></Title>")).code(), 3);
  EXPECT_EQ(Reading(object("<Img2d><DensityArray2d><Canvas/></DensityArray2d></Img2d>")).code(), 3);
}

TEST(ZrdParserHandler, KeepsLeadingBlanksAndDropsTrailingOnes) {
  EXPECT_STREQ(textOf(Reading(object("<Title>  x \n\t </Title>")).first<Title>()), "  x");
  Reading blank(object("<Title> \n </Title>"));
  ASSERT_TRUE(blank.first<Title>().firstChild()) << "an empty text is a child all the same";
  EXPECT_EQ(textOf(blank.first<Title>()), nullptr);
  EXPECT_TRUE(Reading(object("<Title/>")).first<Title>().firstChild());
}

TEST(ZrdParserHandler, DropsCarriageReturnsAndKeepsNewlines) {
  Reading reading(object("<Expr Opt=\"f\">a&#13;b\nc</Expr>"));
  EXPECT_STREQ(textOf(reading.first<Expr>()), "ab\nc");
}

TEST(ZrdParserHandler, FillsPremadeChildrenInOrder) {
  Reading reading(
      plane("<Transform2d Type=\"Scale2d\"><Matrix2d><IExpr>a</IExpr><IExpr>b</IExpr></Matrix2d>"
            "</Transform2d>"));
  const auto& matrix = reading.first<Matrix2d>();
  ASSERT_EQ(matrix.length(), 4u);
  EXPECT_STREQ(textOf(*matrix.childAt(0)), "a");
  EXPECT_STREQ(textOf(*matrix.childAt(1)), "b");
  EXPECT_EQ(matrix.childAt(2)->firstChild(), nullptr);

  Reading points(
      object("<Points2d><Point2d><IExpr>1</IExpr><IExpr>2</IExpr><IExpr>red</IExpr></Point2d></"
             "Points2d>"));
  ASSERT_EQ(points.first<Point2d>().length(), 3u) << "what is more than the premade is appended";
  EXPECT_STREQ(textOf(*points.first<Point2d>().childAt(2)), "red");
}

TEST(ZrdParserHandler, CountsPositionsAnewAfterAnotherElement) {
  Reading reading(
      object("<ExprSeq Opt=\"a\"><IExpr>1</IExpr><IExpr>2</IExpr></ExprSeq>"
             "<ColorFunc Opt=\"b\"><IExpr>3</IExpr><IExpr>4</IExpr></ColorFunc>"));
  EXPECT_EQ(reading.first<ExprSeq>().length(), 2u);
  ASSERT_EQ(reading.first<ColorFunc>().length(), 2u);
  EXPECT_STREQ(textOf(*reading.first<ColorFunc>().childAt(0)), "3");
}

TEST(ZrdParserHandler, ThrowsTheTreeAwayWhenTheXmlIsBroken) {
  const std::string start = plane("<Obj2d Type=\"x\"/>").substr(0, 90);
  Reading reading(start + "<" + std::string(1000, ' '));
  EXPECT_EQ(reading.failures(), 3) << "each further block fails again";
  const auto& canvas = reading.first<Canvas>();
  EXPECT_EQ(canvas.length(), 0u);
  EXPECT_EQ(reading.document().length(), 1u);
  EXPECT_FALSE(reading.document().isInBatch());
}

TEST(ZrdParserHandler, GivesANewCanvasForEachBlockThatFails) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  {
    ZrdParserHandler handler(document.get(), true, nullptr);
    reader::Parser parser(&handler, true, nullptr);
    EXPECT_FALSE(parser.parse("<<", 2, false));
    const base::Ref<dom::Node> first(document->firstChild());
    EXPECT_FALSE(parser.parse("  ", 2, false));
    EXPECT_NE(document->firstChild(), first.get());
    EXPECT_EQ(document->length(), 1u);
  }
  document->tearDown();
}

TEST(ZrdParserHandler, KeepsTheRootThatADocumentHas) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const base::Ref<dom::Node> root(document->createElement(Word::Canvas));
  document->appendChild(root.get());
  {
    ZrdParserHandler handler(document.get(), true, nullptr);
    EXPECT_EQ(document->firstChild(), root.get());
    EXPECT_EQ(document->length(), 1u);
  }
  document->tearDown();
}

TEST(ZrdParserHandler, FailsOnAnEmptyInput) {
  Reading reading("");
  EXPECT_EQ(reading.failures(), 1);
  EXPECT_EQ(reading.first<Canvas>().length(), 0u);
}

TEST(ZrdParserHandler, ReadsDeepAndLongDocumentsInProportionToTheirSize) {
  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "<Group2d>";
  for (int i = 0; i < 100000; ++i) deep += "</Group2d>";
  EXPECT_EQ(Reading(plane(deep)).code(), 0);

  std::string list = "<ExprSeq Opt=\"x\">";
  for (int i = 0; i < 100000; ++i) list += "<IExpr>1</IExpr>";
  EXPECT_EQ(Reading(object(list + "</ExprSeq>")).first<ExprSeq>().length(), 100000u);
}

TEST(ZrdParser, AnswersBadDataLikeBrokenXml) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  {
    ZrdParserHandler handler(document.get(), true, nullptr);
    ZrdParser parser(&handler, true, nullptr);
    const std::string_view text = "<Canvas><Scene2d/><P2>1</P2></Canvas>";
    EXPECT_FALSE(parser.parse(text.data(), static_cast<int>(text.size()), true));
    EXPECT_EQ(document->documentElement()->length(), 0u);
    EXPECT_FALSE(document->isInBatch());
  }
  document->tearDown();
}

// As after broken XML, each further block fails and gives a new Canvas.
TEST(ZrdParser, GoesOnFailingAfterBadData) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  {
    ZrdParserHandler handler(document.get(), true, nullptr);
    ZrdParser parser(&handler, true, nullptr);
    const std::string_view text = "<Canvas><Scene2d/><P2>1</P2>";
    EXPECT_FALSE(parser.parse(text.data(), static_cast<int>(text.size()), false));
    const base::Ref<dom::Node> canvas(document->documentElement());
    EXPECT_FALSE(parser.parse("<Scene3d/></Canvas>", 19, true));
    EXPECT_NE(document->documentElement(), canvas.get());
    EXPECT_EQ(document->documentElement()->length(), 0u);
    EXPECT_EQ(document->length(), 1u);
    EXPECT_FALSE(document->isInBatch());
  }
  document->tearDown();
}

TEST(ZrdParser, LetsAllOtherExceptionsPass) {
  class ThrowingHandler : public ZrdParserHandler {
   public:
    using ZrdParserHandler::ZrdParserHandler;
    void endElement(std::uint32_t, std::uint32_t) override { throw std::bad_alloc(); }
    void parseFailed() override { ++failures; }
    int failures = 0;
  };
  const base::Ref<PlotDocument> document(new PlotDocument);
  {
    ThrowingHandler handler(document.get(), true, nullptr);
    ZrdParser parser(&handler, true, nullptr);
    const std::string_view text = "<Canvas><Scene2d/></Canvas>";
    EXPECT_THROW(parser.parse(text.data(), static_cast<int>(text.size()), true), std::bad_alloc);
    EXPECT_EQ(handler.failures, 0);
    EXPECT_EQ(document->documentElement()->length(), 1u) << "the tree stays";
  }
  document->tearDown();
}

}  // namespace
