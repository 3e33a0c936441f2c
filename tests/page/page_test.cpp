#include "vantry/page/page.h"

#include <gtest/gtest.h>

#include <istream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "../javaview/conversion.h"
#include "../locale_guard.h"
#include "read_page.h"
#include "vantry/javaview/jvd_writer.h"

namespace vantry::page {

namespace {

using nlohmann::json;

std::string scene2d(const std::string& inside) {
  return "<Scene2d><CoordinateSystem2d>" + inside + "</CoordinateSystem2d></Scene2d>";
}

std::string object(const std::string& primitives, const std::string& attributes = "",
                   const std::string& before = "") {
  return "<Obj2d Type=\"Curve2d\" " + attributes + ">" + before + "<Img2d>" + primitives +
         "</Img2d></Obj2d>";
}

std::string canvas(const std::string& inside, const std::string& attributes = "") {
  return "<Canvas " + attributes + ">" + inside + "</Canvas>";
}

std::string timed(const std::string& begin, const std::string& end, const std::string& inside,
                  const std::string& attributes = "") {
  return canvas("<TimeRange TimeBegin=\"" + begin + "\" TimeEnd=\"" + end + "\"/>" + inside,
                attributes);
}

const std::string point = "<Pt2d Position=\"1 2\"/>";

/// The text of a writer without its head, which has the time.
std::string bodyOf(const std::string& text, const std::string& begin) {
  return text.substr(text.find(begin));
}

TEST(PageTest, HoldsWhatTheWritersWrite) {
  const std::string document = canvas(scene2d(object(point)));
  const ReadPage page = pageOf(document);
  EXPECT_TRUE(page.isWhole);
  EXPECT_EQ(page.blocks.size(), 2U);
  const javaview::Conversion<javaview::JVXWriter> model(document);
  const javaview::Conversion<javaview::JVDWriter> display(document);
  EXPECT_TRUE(page.block(0, 0, "model").starts_with("<?xml"));
  EXPECT_EQ(bodyOf(page.block(0, 0, "model"), "<geometries>"), bodyOf(model.text, "<geometries>"));
  EXPECT_EQ(bodyOf(page.block(0, 0, "display"), "<displays>"), bodyOf(display.text, "<displays>"));
}

TEST(PageTest, HasThePanelsOfAllScenesThatCanBeDrawn) {
  const ReadPage page =
      pageOf(canvas("<Scene2d Name=\"first\"><CoordinateSystem2d>" + object(point) +
                    "</CoordinateSystem2d></Scene2d>" + "<Scene2d/>" + scene2d("")));
  ASSERT_EQ(page.text.at("panels").size(), 2U);
  EXPECT_EQ(page.panel(0).at("name"), "first");
  EXPECT_EQ(page.panel(1).at("name"), "plot 2");
  EXPECT_NE(page.block(0, 0, "model").find("<p>1 2</p>"), std::string::npos);
  EXPECT_EQ(page.block(1, 0, "model").find("<p>1 2</p>"), std::string::npos);
}

TEST(PageTest, RefusesAPlotWithoutAScene) {
  EXPECT_EQ(refusal("<Canvas/>"), "plot.zrd: there is no scene to show");
  EXPECT_EQ(refusal("<Canvas><Scene2d/></Canvas>"), "plot.zrd: there is no scene to show");
}

TEST(PageTest, NamesThePlotThatCannotBeWritten) {
  EXPECT_EQ(refusal(canvas(scene2d("<Obj2d Type=\"a\"/>"))), "plot.zrd: no Img2d");
}

TEST(PageTest, HasTheTextsOfTheCanvas) {
  const ReadPage page =
      pageOf(canvas("<Header>above</Header><Footer>below</Footer>" + scene2d(""),
                    "Name=\"two words\" Width=\"120\" Height=\"60\" BackgroundColor=\"#010203\" "
                    "HeaderFont=\"sans-serif 12 Bold #0a0b0c\" HeaderAlignment=\"Left\""));
  EXPECT_EQ(page.text.at("title"), "two words");
  EXPECT_EQ(page.text.at("aspect"), 2);
  EXPECT_EQ(page.text.at("background"), "#010203");
  EXPECT_EQ(page.text.at("header"), json({{"text", "above"},
                                          {"family", "Helvetica"},
                                          {"size", 15.0},
                                          {"bold", true},
                                          {"italic", false},
                                          {"color", "#0a0b0c"},
                                          {"align", "left"}}));
  EXPECT_EQ(page.text.at("footer").at("text"), "below");
  EXPECT_EQ(page.text.at("footer").at("align"), "center");
}

TEST(PageTest, SaysNothingThatTheCanvasDoesNotSay) {
  const ReadPage page = pageOf(canvas(scene2d("")));
  EXPECT_EQ(page.text.at("title"), "plot");
  for (const char* member : {"header", "footer", "background", "animation"}) {
    EXPECT_FALSE(page.text.contains(member)) << member;
  }
}

TEST(PageTest, SaysWhichObjectsAndStylesTheGeometriesHave) {
  const ReadPage page = pageOf(canvas(
      scene2d(object("<Line2d From=\"0 0\" To=\"1 1\" LineStyle=\"Dashed\"/>"
                     "<Line2d From=\"0 0\" To=\"1 2\" LineStyle=\"Dashed\"/>" +
                         point,
                     "Name=\"lines\"", "<LegendText>two lines</LegendText>") +
              object("<Poly2d Filled=\"1\" LinesVisible=\"1\" FillPattern=\"XCrossedLines\" "
                     "PointStyle=\"Stars\"><P2>0 0</P2><P2>1 0</P2><P2>0 1</P2></Poly2d>"))));
  const json& panel = page.panel(0);
  ASSERT_EQ(panel.at("objects").size(), 2U);
  EXPECT_EQ(panel.at("objects")[0],
            json({{"name", "lines"}, {"legend", "two lines"}, {"color", "#000000"}}));
  EXPECT_EQ(panel.at("objects")[1], json({{"name", "Curve2d"}}));
  EXPECT_EQ(panel.at("frames")[0].at("runs"),
            json::parse(R"([{"object": 0, "line": "dashed", "count": 2},
                            {"object": 0, "point": "squares", "count": 1},
                            {"object": 1, "point": "stars", "fill": "xCrossedLines", "count": 2}
                           ])"));
}

TEST(PageTest, NamesTheRuleByWhichAreasAreFilled) {
  const auto area = [](const std::string& rule) {
    return object("<Poly2d Filled=\"1\" LinesVisible=\"0\" PointsVisible=\"0\" FillStyle=\"" +
                  rule + "\"><P2>0 0</P2><P2>1 0</P2><P2>0 1</P2></Poly2d>");
  };
  const ReadPage page = pageOf(canvas(scene2d(area("EvenOdd") + area("Winding"))));
  const json& runs = page.panel(0).at("frames")[0].at("runs");
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_EQ(runs[0].at("rule"), "evenOdd");
  EXPECT_FALSE(runs[1].contains("rule"));
}

TEST(PageTest, DrawsAsymptotesInTheirOwnStyle) {
  const std::string box = "<ViewingBoxYMin Val=\"0\"/><ViewingBoxYMax Val=\"1\"/>";
  const ReadPage page = pageOf(canvas(scene2d(
      box + object("<VerticalAsymptote Position=\"1\"/>", "VerticalAsymptotesVisible=\"1\""))));
  EXPECT_EQ(page.panel(0).at("frames")[0].at("runs"),
            json::parse(R"([{"object": 0, "line": "dashed", "count": 1}])"));
}

TEST(PageTest, ListsObjectsThatMayBeSeen) {
  const ReadPage page = pageOf(canvas(
      scene2d("<Group2d Visible=\"0\">" + object(point, "Name=\"a\"") + "</Group2d>" +
              object(point, "Name=\"b\" Visible=\"0\"") + object("", "Name=\"c\"") +
              object(point, "Name=\"d\"") + "<Group2d>" + object(point, "", "<Title>e</Title>") +
              "</Group2d>" + object(point, "", "<LegendText>f</LegendText>"))));
  const json& objects = page.panel(0).at("objects");
  ASSERT_EQ(objects.size(), 3U);
  EXPECT_EQ(objects[0].at("name"), "d");
  EXPECT_EQ(objects[1].at("name"), "e");
  EXPECT_EQ(objects[2].at("name"), "f");
}

TEST(PageTest, TakesTheColourOfTheLegendFromThePropertyThatIsNamed) {
  const ReadPage page =
      pageOf(canvas(scene2d(object(point, "LegendColor=\"FillColor\" FillColor=\"#a0b0c0\"",
                                   "<LegendText>x</LegendText>") +
                            object(point, "LegendEntry=\"0\"", "<LegendText>y</LegendText>"))));
  EXPECT_EQ(page.panel(0).at("objects")[0].at("color"), "#a0b0c0");
  EXPECT_FALSE(page.panel(0).at("objects")[1].contains("legend"));
}

TEST(PageTest, TakesTheColourOfTheLegendFromThePrimitiveIfNoPropertyIsNamed) {
  const std::string colors = "LineColor=\"#0000ff\" FillColor=\"#00ff00\" PointColor=\"#ff0000\"";
  const std::string polygon = "<P2>0 0</P2><P2>1 0</P2><P2>0 1</P2></Poly2d>";
  const ReadPage page = pageOf(canvas(
      scene2d(object(point, colors, "<LegendText>x</LegendText>") +
              object("<Poly2d Filled=\"1\">" + polygon, colors, "<LegendText>x</LegendText>") +
              object("<Poly2d Filled=\"0\">" + polygon, colors, "<LegendText>x</LegendText>") +
              object("<Text2d>x</Text2d>", colors, "<LegendText>x</LegendText>"))));
  std::string shown;
  for (const json& entry : page.panel(0).at("objects")) {
    shown += entry.at("color").get<std::string>();
  }
  EXPECT_EQ(shown, "#ff0000#00ff00#0000ff#0000ff");
}

TEST(PageTest, SaysHowTheBoxIsDrawn) {
  const auto box = [](const std::string& kind, const std::string& scene, const std::string& system,
                      const std::string& hints = "") {
    const std::string inside =
        "<CoordinateSystem" + kind + system + ">" + hints + "</CoordinateSystem" + kind + ">";
    return pageOf(canvas("<Scene" + kind + scene + ">" + inside + "</Scene" + kind + ">",
                         "Width=\"120\" Height=\"60\""))
        .panel(0)
        .at("box");
  };
  EXPECT_EQ(box("2d", "", ""), json({{"scaling", "automatic"}, {"sides", {120.0, 60.0}}}));
  EXPECT_EQ(box("2d", "", " Scaling=\"Unconstrained\"").at("scaling"), "unconstrained");
  EXPECT_EQ(box("2d", "", "", "<Hints Scaling=\"Constrained\"/>").at("scaling"), "constrained");
  EXPECT_EQ(box("3d", " YXRatio=\"2\" ZXRatio=\"0.5\"", " Scaling=\"Constrained\""),
            json({{"scaling", "constrained"}, {"sides", {1.0, 2.0, 0.5}}}));
}

TEST(PageTest, HasTheScalesOfColoursByHeight) {
  const std::string box = "<ViewingBoxYMin Val=\"-1\"/><ViewingBoxYMax Val=\"3\"/>";
  const auto curve = [](const std::string& type) {
    return object(
        "<Poly2d LinesVisible=\"1\" LineColor=\"#ff0000\" LineColor2=\"#0000ff\" "
        "LineColorType=\"" +
        type + "\"><P2>0 0</P2><P2>1 1</P2></Poly2d>");
  };
  const ReadPage page = pageOf(canvas(scene2d(box + curve("Dichromatic") + curve("Monochrome") +
                                              curve("Rainbow") + curve("Flat"))));
  const json& objects = page.panel(0).at("objects");
  EXPECT_EQ(objects[0].at("scale"),
            json({{"min", -1.0}, {"max", 3.0}, {"colors", {"#0000ff", "#ff0000"}}}));
  EXPECT_EQ(objects[1].at("scale").at("colors"), json({"#000000", "#ff0000"}));
  EXPECT_EQ(objects[2].at("scale").at("colors").size(), 25U);
  EXPECT_EQ(objects[2].at("scale").at("colors")[0], "#0000ff");
  // Halfway on the long way from blue to red is green.
  EXPECT_EQ(objects[2].at("scale").at("colors")[12], "#00ff00");
  EXPECT_FALSE(objects[3].contains("scale"));
  EXPECT_FALSE(
      pageOf(canvas(scene2d(curve("Rainbow")))).panel(0).at("objects")[0].contains("scale"));
}

TEST(PageTest, HasTheScaleOfDensities) {
  const ReadPage page = pageOf(canvas(
      scene2d(object("<DensityArray2d XMesh=\"2\" YMesh=\"1\" FillColorType=\"Dichromatic\" "
                     "FillColor=\"#ffffff\" FillColor2=\"#800000\">5 -2</DensityArray2d>"))));
  // The smallest number has the first colour.
  EXPECT_EQ(page.panel(0).at("objects")[0].at("scale"),
            json({{"min", -2.0}, {"max", 5.0}, {"colors", {"#ffffff", "#800000"}}}));
}

TEST(PageTest, HasTheScalesOfFields) {
  const auto field2d = [](const std::string& type) {
    return object(
        "<Field2d Anchor=\"0 1\" Delta=\"1 0.5\" XMesh=\"1\" YMesh=\"2\" LineColor=\"#ff0000\" "
        "LineColor2=\"#0000ff\" LineColorType=\"" +
        type + "\"><P2>1 0</P2><P2>0 1</P2></Field2d>");
  };
  const ReadPage plane = pageOf(canvas(scene2d(field2d("Dichromatic") + field2d("Flat"))));
  // The colours reach one step beyond the last row, at 1.5.
  EXPECT_EQ(plane.panel(0).at("objects")[0].at("scale"),
            json({{"min", 1.0}, {"max", 2.0}, {"colors", {"#0000ff", "#ff0000"}}}));
  EXPECT_FALSE(plane.panel(0).at("objects")[1].contains("scale"));

  const ReadPage space =
      pageOf(canvas("<Scene3d><CoordinateSystem3d><Obj3d Type=\"VectorField3d\"><Img3d><Field3d "
                    "Anchor=\"0 0 4\" Delta=\"1 1 -2\" XMesh=\"1\" YMesh=\"1\" ZMesh=\"3\" "
                    "LineColor=\"#ff0000\" LineColor2=\"#0000ff\" LineColorType=\"Dichromatic\">"
                    "<P3>0 0 1</P3><P3>0 0 1</P3><P3>0 0 1</P3></Field3d></Img3d></Obj3d>"
                    "</CoordinateSystem3d></Scene3d>"));
  EXPECT_EQ(space.panel(0).at("objects")[0].at("scale"),
            json({{"min", -2.0}, {"max", 4.0}, {"colors", {"#0000ff", "#ff0000"}}}));
}

TEST(PageTest, HasTheAxes) {
  const ReadPage page =
      pageOf(canvas("<Scene2d><CoordinateSystem2d Axes=\"Origin\" XGridVisible=\"1\" "
                    "YSubgridVisible=\"1\" GridLineColor=\"#112233\" GridLineStyle=\"Dashed\" "
                    "XAxisTitleAlignment=\"End\" AxesTitleFont=\"serif 8 Italic\">"
                    "<XAxisTitle>time</XAxisTitle></CoordinateSystem2d></Scene2d>"));
  const json& axes = page.panel(0).at("axes");
  EXPECT_EQ(axes.at("kind"), "origin");
  EXPECT_EQ(axes.at("x").at("grid"), true);
  EXPECT_EQ(axes.at("x").at("subgrid"), false);
  EXPECT_EQ(axes.at("y").at("grid"), false);
  EXPECT_EQ(axes.at("y").at("subgrid"), true);
  EXPECT_FALSE(axes.contains("z"));
  EXPECT_EQ(axes.at("x").at("title").at("text"), "time");
  EXPECT_EQ(axes.at("x").at("title").at("align"), "right");
  EXPECT_EQ(axes.at("x").at("title").at("size"), 10);
  EXPECT_EQ(axes.at("x").at("title").at("italic"), true);
  EXPECT_FALSE(axes.at("y").contains("title"));
  EXPECT_EQ(axes.at("grid").at("color"), "#112233");
  EXPECT_EQ(axes.at("grid").at("style"), "dashed");
  EXPECT_NEAR(axes.at("grid").at("width").get<double>(), 0.709, 0.001);  // of 0.2 mm
}

TEST(PageTest, HasWhatAPlotSaysOfItsRulers) {
  const ReadPage page = pageOf(
      canvas("<CoordinateSystem2dStyle TicksLength=\"2.54\" XTicksLabelStyle=\"Shifted\"/>"
             "<Scene2d><CoordinateSystem2d AxesInFront=\"0\" GridInFront=\"1\" AxesTips=\"0\" "
             "CoordinateType=\"LinLog\" YTicksLabelStyle=\"Diagonal\" XTicksNumber=\"High\" "
             "YTicksNumber=\"None\" YAxisTitleOrientation=\"Vertical\"><AxesOriginY Val=\"2.5\"/>"
             "<XTicksAnchor Val=\"0.5\"/><XTicksAt><TickPos><VExpr Val=\"3\"/></TickPos>"
             "<TickPos><VExpr Val=\"3.14\">PI</VExpr></TickPos><TickPos><VExpr>x</VExpr></TickPos>"
             "<TickPos><VExpr Val=\"4\">4</VExpr><Title>four</Title></TickPos></XTicksAt>"
             "</CoordinateSystem2d></Scene2d>"));
  const json& axes = page.panel(0).at("axes");
  EXPECT_EQ(axes.at("inFront"), false);
  EXPECT_EQ(axes.at("gridInFront"), true);
  EXPECT_EQ(axes.at("tips"), false);
  EXPECT_NEAR(axes.at("tickLength").get<double>(), 9, 1e-9);  // a tenth of an inch
  EXPECT_EQ(axes.at("origin"), json({0.0, 2.5}));
  const json& x = axes.at("x");
  EXPECT_EQ(x.at("logarithmic"), false);
  EXPECT_EQ(x.at("numbers"), "shifted");
  EXPECT_EQ(x.at("amount"), "high");
  EXPECT_EQ(x.at("anchor"), 0.5);
  EXPECT_EQ(x.at("ticks"), json::parse(R"([{"at": 3}, {"at": 3.14, "text": "PI"},
                                            {"at": 4, "text": "four"}])"));
  const json& y = axes.at("y");
  EXPECT_EQ(y.at("logarithmic"), true);
  EXPECT_EQ(y.at("numbers"), "diagonal");
  EXPECT_EQ(y.at("amount"), "none");
  EXPECT_EQ(y.at("turned"), true);
}

TEST(PageTest, LeavesToThePageWhatAPlotDoesNotSayOfItsRulers) {
  const ReadPage page =
      pageOf(canvas(scene2d("") + "<Scene3d><CoordinateSystem3d><AxesOriginZ Val=\"3\"/>"
                                  "<ZTicksAnchor Val=\"2\"/></CoordinateSystem3d></Scene3d>"));
  const json& plane = page.panel(0).at("axes");
  EXPECT_FALSE(plane.contains("tickLength"));
  EXPECT_EQ(plane.at("inFront"), true);
  EXPECT_EQ(plane.at("origin"), json({0.0, 0.0}));
  EXPECT_EQ(plane.at("y").at("logarithmic"), false);
  for (const char* member : {"turned", "anchor", "ticks"}) {
    EXPECT_FALSE(plane.at("y").contains(member)) << member;
  }
  const json& space = page.panel(1).at("axes");
  EXPECT_EQ(space.at("origin"), json({0.0, 0.0, 3.0}));
  EXPECT_EQ(space.at("z").at("anchor"), 2);
  EXPECT_FALSE(space.at("y").contains("logarithmic"));
}

TEST(PageTest, HasTheTipsOfArrows) {
  const ReadPage page = pageOf(canvas(
      "<ObjStyle Type=\"Curve2d\" TipLength=\"2.54\"/>" +
      scene2d(
          object("<Arrow2d From=\"0 0\" To=\"1 1\"/>"
                 "<Arrow2d From=\"0 0\" To=\"1 1\" TipStyle=\"Open\" TipAngle=\"0.5\"/>") +
          "<Obj2d Type=\"Arrow2d\"><Img2d><Arrow2d From=\"0 0\" To=\"1 1\"/></Img2d></Obj2d>")));
  const json& runs = page.runs(0, 0);
  ASSERT_EQ(runs.size(), 3U);
  EXPECT_NEAR(runs[0].at("tip").at("length").get<double>(), 9, 1e-9);
  EXPECT_EQ(runs[0].at("tip").size(), 1U);
  EXPECT_EQ(runs[1].at("tip").at("style"), "open");
  EXPECT_EQ(runs[1].at("tip").at("angle"), 0.25);  // on each side
  EXPECT_FALSE(runs[2].contains("tip"));
}

TEST(PageTest, HasBothColoursOfABackground) {
  const auto background = [](const std::string& attributes) {
    const ReadPage page =
        pageOf(canvas("<Scene3d BackgroundColor=\"#010203\" BackgroundColor2=\"#0a0b0c\" " +
                      attributes + "><CoordinateSystem3d/></Scene3d>"));
    return page.panel(0).value("background", json());
  };
  EXPECT_EQ(background("BackgroundStyle=\"LeftRight\""),
            json::parse(R"({"style": "leftRight", "colors": ["#010203", "#0a0b0c"]})"));
  EXPECT_EQ(background(""), json());
  EXPECT_EQ(background("BackgroundStyle=\"Pyramid\" BackgroundTransparent=\"1\""), json());
}

TEST(PageTest, HasTheTextsOfAScene) {
  const ReadPage page = pageOf(canvas(
      "<Scene2d FooterAlignment=\"Right\" LegendPlacement=\"Top\" LegendAlignment=\"Left\" "
      "LegendVisible=\"0\"><Header>a</Header><Footer>b</Footer><CoordinateSystem2d/></Scene2d>"));
  EXPECT_EQ(page.panel(0).at("header").at("text"), "a");
  EXPECT_EQ(page.panel(0).at("footer").at("align"), "right");
  EXPECT_EQ(page.panel(0).at("legend").at("placement"), "top");
  EXPECT_EQ(page.panel(0).at("legend").at("align"), "left");
  EXPECT_EQ(page.panel(0).at("legend").at("visible"), false);
}

TEST(PageTest, LetsNoTextEndItsElement) {
  const std::string evil = "</script><script>alert(1)</script><!--";
  const std::string escaped = "&lt;/script>&lt;script>alert(1)&lt;/script>&lt;!--";
  const javaview::ReadDocument document(
      canvas("<Header>" + escaped + "</Header>" +
             scene2d(object(point, "Name=\"" + escaped + "\"", "<Title>x</Title>"))));
  Page page;
  page.add(*document.get(), {evil, "plot.zrd"});
  std::ostringstream out;
  page.write(out, smallTemplate, {});
  const ReadPage read(out.str());
  ASSERT_TRUE(read.isWhole);
  EXPECT_EQ(read.text.at("title"), evil);
  EXPECT_EQ(read.text.at("header").at("text"), evil);
  EXPECT_EQ(read.panel(0).at("name"), evil);
  EXPECT_EQ(read.panel(0).at("objects")[0].at("name"), evil);
  EXPECT_EQ(out.str().find("<script>"), std::string::npos);
  EXPECT_EQ(out.str().find("<!--"), std::string::npos);
}

TEST(PageTest, HoldsTextsThatAreThereAlready) {
  std::istringstream model("<jvx-model>1</jvx-model>");
  std::istringstream display("<jv-disp>2</jv-disp>");
  std::istringstream other("<jvx-model>3</jvx-model>");
  Page page;
  page.add(model, &display, "a.jvx");
  page.add(other, nullptr, "b.jvx");
  std::ostringstream out;
  page.write(out, smallTemplate, {});
  const ReadPage read(out.str());
  EXPECT_EQ(read.text.at("title"), "a.jvx, b.jvx");
  EXPECT_EQ(read.block(0, 0, "model"), "<jvx-model>1</jvx-model>");
  EXPECT_EQ(read.block(0, 0, "display"), "<jv-disp>2</jv-disp>");
  EXPECT_EQ(read.block(1, 0, "model"), "<jvx-model>3</jvx-model>");
  EXPECT_FALSE(read.panel(1).at("frames")[0].contains("display"));
  EXPECT_FALSE(read.panel(0).contains("place"));
}

/// Breaks off after its first letters.
class BrokenBuffer final : public std::streambuf {
 protected:
  int_type underflow() override {
    if (gptr()) throw std::runtime_error("broken");
    setg(text_.data(), text_.data(), text_.data() + text_.size());
    return traits_type::to_int_type(text_[0]);
  }

 private:
  std::string text_ = "<jvx-model>";
};

TEST(PageTest, HasTheTextsOfEachCanvasBesideOthers) {
  const javaview::ReadDocument first(
      canvas("<Header>above</Header><Footer>below</Footer>" + scene2d("") + scene2d("")));
  const javaview::ReadDocument second(
      canvas("<Header>over</Header><Footer>under</Footer>"
             "<Scene2d><Header>own</Header><CoordinateSystem2d/></Scene2d>"));
  std::istringstream model("<jvx-model/>");
  Page page;
  page.add(*first.get(), {"first", "first.zrd"});
  page.add(model, nullptr, "a.jvx");
  page.add(*second.get(), {"second", "second.zrd"});
  std::ostringstream out;
  page.write(out, smallTemplate, {});
  const ReadPage read(out.str());
  EXPECT_FALSE(read.text.contains("header"));
  std::string lines;
  for (const json& panel : read.text.at("panels")) {
    const auto line = [&panel](const char* name) {
      return panel.contains(name) ? panel.at(name).at("text").get<std::string>() : "-";
    };
    lines += line("header") + ' ' + line("footer") + '\n';
  }
  EXPECT_EQ(lines, "above -\n- below\n- -\nown under\n");
}

TEST(PageTest, TakesNoPartOfAText) {
  BrokenBuffer buffer;
  std::istream model(&buffer);
  Page page;
  page.add(model, nullptr, "a.jvx");
  std::ostringstream out;
  try {
    page.write(out, smallTemplate, {});
    FAIL();
  } catch (const std::runtime_error& failure) {
    EXPECT_STREQ(failure.what(), "a.jvx: cannot be read");
  }
}

TEST(PageTest, MayHaveNoPlots) {
  std::ostringstream out;
  Page().write(out, smallTemplate, {});
  const ReadPage read(out.str());
  EXPECT_TRUE(read.isWhole);
  EXPECT_FALSE(read.text.contains("panels"));
}

const std::string moving =
    timed("0", "4",
          scene2d("<Obj2d Type=\"Point2d\" TimeBegin=\"0\" TimeEnd=\"4\">"
                  "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"4\"/>"
                  "<Img2d Param=\"0\"><Pt2d Position=\"0 0\"/></Img2d>"
                  "<Img2d Param=\"2\"><Pt2d Position=\"2 0\"/></Img2d></Obj2d>"),
          "AnimationStyle=\"BackAndForth\" AutoPlay=\"1\" InitialTime=\"2.2\"");

TEST(PageTest, HasAllFramesOfAnAnimation) {
  const ReadPage page = pageOf(moving, {.framesPerUnit = 2});
  const json& animation = page.text.at("animation");
  EXPECT_EQ(animation.at("times"), json({0.0, 0.5, 1.0, 1.5, 2.0, 2.5, 3.0, 3.5, 4.0}));
  EXPECT_EQ(animation.at("style"), "backAndForth");
  EXPECT_EQ(animation.at("autoPlay"), true);
  EXPECT_EQ(animation.at("initial"), 4);
  EXPECT_EQ(page.panel(0).at("frames").size(), 9U);
  EXPECT_NE(page.block(0, 3, "model").find("<p>0 0</p>"), std::string::npos);
  EXPECT_NE(page.block(0, 4, "model").find("<p>2 0</p>"), std::string::npos);
}

TEST(PageTest, HoldsOnceWhatSeveralFramesShow) {
  const ReadPage page = pageOf(moving);
  EXPECT_EQ(page.text.at("animation").at("times").size(), 101U);
  EXPECT_EQ(page.blocks.size(), 3U);  // two models and a display
}

TEST(PageTest, SaysOnceWhatTheGeometriesOfSeveralFramesAre) {
  // The second object has two points from the time 2 on.
  const std::string two = "<Img2d Param=\"0\">" + point + "</Img2d><Img2d Param=\"2\">" + point +
                          point + "</Img2d></Obj2d>";
  const ReadPage page =
      pageOf(timed("0", "4",
                   scene2d(object(point) +
                           "<Obj2d Type=\"Point2d\" TimeBegin=\"0\" TimeEnd=\"4\">"
                           "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"4\"/>" +
                           two)),
             {.framesPerUnit = 1});
  const json& frames = page.panel(0).at("frames");
  ASSERT_EQ(frames.size(), 5U);
  std::string said;
  for (const json& frame : frames) said += frame.contains("runs") ? '1' : '0';
  EXPECT_EQ(said, "10100");
  EXPECT_EQ(page.runs(0, 1)[1].at("count"), 1);
  EXPECT_EQ(page.runs(0, 4)[1].at("count"), 2);
}

TEST(PageTest, BeginsAtTheBeginUnlessThePlotSaysOtherwise) {
  EXPECT_FALSE(pageOf(timed("0", "1", scene2d(""))).text.at("animation").contains("initial"));
  for (const auto& [time, frame] : {std::pair("-5", 0), std::pair("0.9", 1), std::pair("5", 2)}) {
    const ReadPage page =
        pageOf(timed("0", "1", scene2d(""), "InitialTime=\"" + std::string(time) + "\""),
               {.framesPerUnit = 2});
    EXPECT_EQ(page.text.at("animation").at("initial"), frame);
  }
}

TEST(PageTest, NamesThePlotWithLettersThatTheLocaleLacks) {
  const LocaleGuard locale(LC_CTYPE, "C");
  EXPECT_EQ(refusal(canvas("<Header>\xC3\xA9</Header>" + scene2d(""))),
            "plot.zrd: a text has letters that are not in the character set of the locale");
}

TEST(PageTest, WantsAPlaceForItsData) {
  std::ostringstream out;
  EXPECT_THROW(Page().write(out, "<html></html>", {}), std::invalid_argument);
}

TEST(PageTest, LetsObjectsComeAndGo) {
  const std::string coming =
      "TimeBegin=\"1\" VisibleBeforeBegin=\"0\" TimeEnd=\"2\" VisibleAfterEnd=\"0\"";
  const ReadPage page =
      pageOf(timed("0", "3", scene2d(object(point, coming))), {.framesPerUnit = 2});
  std::string seen;
  for (std::size_t frame = 0; frame < 7; ++frame) {
    seen += page.block(0, frame, "model").find("<p>") != std::string::npos ? '1' : '0';
  }
  EXPECT_EQ(seen, "0011100");
  EXPECT_EQ(page.blocks.size(), 4U);  // three models and a display
}

TEST(PageTest, LeavesTheModelAloneWhenTheCameraMoves) {
  const std::string camera =
      "<Obj3d Type=\"Camera\"><ParameterBegin Val=\"0\"/><ParameterEnd Val=\"4\"/>"
      "<Img3d Param=\"0\"><Camera Position=\"1 1 1\"/></Img3d>"
      "<Img3d Param=\"2\"><Camera Position=\"2 2 2\"/></Img3d></Obj3d>";
  const ReadPage page = pageOf(
      timed("0", "4", "<Scene3d><CoordinateSystem3d>" + camera + "</CoordinateSystem3d></Scene3d>"),
      {.framesPerUnit = 1});
  EXPECT_EQ(page.blocks.size(), 3U);  // a model and two displays
  const json& frames = page.panel(0).at("frames");
  EXPECT_EQ(frames[0].at("model"), frames[4].at("model"));
  EXPECT_NE(frames[1].at("display"), frames[2].at("display"));
}

TEST(PageTest, HasOneFrameAtATime) {
  const ReadPage page = pageOf(moving, {.time = 3});
  EXPECT_FALSE(page.text.contains("animation"));
  EXPECT_EQ(page.panel(0).at("frames").size(), 1U);
  EXPECT_NE(page.block(0, 0, "model").find("<p>2 0</p>"), std::string::npos);
}

TEST(PageTest, HasOneFrameWhereThePlotBegins) {
  const ReadPage page = pageOf(moving, {.framesPerUnit = 0});
  EXPECT_EQ(page.panel(0).at("frames").size(), 1U);
  EXPECT_NE(page.block(0, 0, "model").find("<p>2 0</p>"), std::string::npos);  // at 2.2
}

TEST(PageTest, EndsAtTheEndOfTheTime) {
  const ReadPage page = pageOf(timed("0", "1.1", scene2d("")), {.framesPerUnit = 2});
  EXPECT_EQ(page.text.at("animation").at("times"), json({0.0, 0.5, 1.0, 1.1}));
}

TEST(PageTest, HasOneFrameWhenNoTimePasses) {
  EXPECT_FALSE(pageOf(timed("1", "1", scene2d(""))).text.contains("animation"));
}

TEST(PageTest, RefusesAnAnimationWithTooManyFrames) {
  for (const char* end : {"4001", "1e300", "inf"}) {
    EXPECT_EQ(refusal(timed("0", end, scene2d(""))),
              "the animation is too long for so many frames");
  }
}

TEST(PageTest, MovesAllPlotsTogether) {
  const javaview::ReadDocument early(timed("0", "1", scene2d("")));
  const javaview::ReadDocument late(timed("2", "3", scene2d("")));
  Page page;
  page.add(*early.get(), {"early", "early.zrd"});
  page.add(*late.get(), {"late", "late.zrd"});
  std::ostringstream out;
  std::vector<std::size_t> reported;
  page.write(out, smallTemplate,
             {.framesPerUnit = 1, .progress = [&](std::size_t frame, std::size_t frames) {
                EXPECT_EQ(frames, 4U);
                reported.push_back(frame);
              }});
  const ReadPage read(out.str());
  EXPECT_EQ(read.text.at("animation").at("times"), json({0.0, 1.0, 2.0, 3.0}));
  EXPECT_EQ(read.panel(1).at("frames").size(), 4U);
  EXPECT_EQ(reported, (std::vector<std::size_t>{0, 1, 2, 3}));
}

}  // namespace

}  // namespace vantry::page
