#include "vantry/javaview/jvx_writer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <regex>
#include <stdexcept>

#include "conversion.h"
#include "vantry/javaview/header.h"
#include "vantry/plot/elements/time_range.h"
#include "written.h"

namespace vantry::javaview {

using namespace plot;

namespace {

using base::Ref;
using Strings = std::vector<std::string>;

std::string canvas(const std::string& content) { return "<Canvas>" + content + "</Canvas>"; }

std::string space(const std::string& content) {
  return canvas("<Scene3d><CoordinateSystem3d>" + content + "</CoordinateSystem3d></Scene3d>");
}

std::string plane(const std::string& content) {
  return canvas("<Scene2d><CoordinateSystem2d>" + content + "</CoordinateSystem2d></Scene2d>");
}

/// A still picture of the content, within a document from time 0 to 10.
std::string animated(const std::string& content) {
  return canvas("<TimeRange TimeBegin=\"0\" TimeEnd=\"10\"/><Scene3d><CoordinateSystem3d>" +
                content + "</CoordinateSystem3d></Scene3d>");
}

/// An image with one point at x.
std::string imageAt(const std::string& x, const std::string& attributes = "") {
  return "<Img3d" + attributes + "><Pts3d><P3>" + x + " 0 0</P3></Pts3d></Img3d>";
}

std::string object(const std::string& attributes, const std::string& content) {
  return "<Obj3d Type=\"PointList3d\"" + attributes + ">" + content + "</Obj3d>";
}

std::string pointAt(const std::string& x) { return object("", imageAt(x)); }

std::string flatPointAt(const std::string& x) {
  return "<Obj2d Type=\"PointList2d\"><Img2d><Pts2d><P2>" + x + " 0</P2></Pts2d></Img2d></Obj2d>";
}

std::string transform3d(const std::string& tr, const std::string& content) {
  return "<Transform3d Type=\"Rotate3d\"><Tr3d" + tr + "/>" + content + "</Transform3d>";
}

/// All points of the output, without what is around them.
Strings pointsOf(const std::string& text) {
  static const std::regex point("<p>([^<]*)</p>");
  Strings points;
  for (std::sregex_iterator i(text.begin(), text.end(), point), end; i != end; ++i) {
    points.push_back((*i)[1]);
  }
  return points;
}

Strings pointsOf(const JvxConversion& conversion) {
  EXPECT_EQ(conversion.error, "");
  return pointsOf(conversion.text);
}

Strings pointsAt(double time, const std::string& source) {
  return pointsOf(JvxConversion(source, time));
}

/// A new element of a document, held by whoever called.
Ref<PlotElement> element(PlotDocument& document, Token name) {
  return document.createElement(name);
}

/// Puts a child in where the grammar would not have it.
void forceInto(dom::Node& parent, const Ref<PlotElement>& child) {
  parent.doReplaceChildren(nullptr, 0, child.get());
}

constexpr char emptyModel[] = "<geometries>\n</geometries>\n</jvx-model>\n";

}  // namespace

TEST(JvxHeaderTest, SaysNothingOfTheDocument) {
  EXPECT_EQ(written([](auto& out) { writeJvxHeader(out, "Thu Jan  1 00:00:00 1970"); }),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n"
            "<!DOCTYPE jvx-model SYSTEM \"http://www.javaview.de/rsrc/jvx.dtd\">\n"
            "<jvx-model>\n"
            "<meta generator=\"vantry vers 1.5\"/>\n"
            "<meta date=\"Thu Jan  1 00:00:00 1970\"/>\n"
            "<meta dtd=\"1.10.000\"/>\n"
            "<version></version>\n"
            "<title></title>\n"
            "<authors>\n"
            "  <author>\n"
            "   <firstname></firstname>\n"
            "   <lastname></lastname>\n"
            "   <affiliation>\n"
            "     <organization></organization>\n"
            "     <address>\n"
            "       <line></line>\n"
            "     </address>\n"
            "   </affiliation>\n"
            "   <email></email>\n"
            "   <url></url>\n"
            "  </author>\n"
            "</authors>\n"
            "<description>\n"
            "  <abstract></abstract>\n"
            "  <detail></detail>\n"
            "  <msc2000>\n"
            "    <primary></primary>\n"
            "  </msc2000>\n"
            "  <keywords>\n"
            "    <keyword></keyword>\n"
            "  </keywords>\n"
            "  <zentralblatt></zentralblatt>\n"
            "  <software>Quillon Pro vers 3.1</software>\n"
            "</description>\n");
}

TEST(TimestampTest, HasTheFormOfAsctimeWithoutNewline) {
  static const std::regex form(R"([A-Z][a-z]{2} [A-Z][a-z]{2} [ 123]\d \d\d:\d\d:\d\d \d{4})");
  EXPECT_TRUE(std::regex_match(JVXWriter::timestamp(), form)) << JVXWriter::timestamp();
}

namespace {

/// Takes the local time of a time zone while it lives.
class InTimeZone {
 public:
  explicit InTimeZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) before_ = before;
    setenv("TZ", zone, 1);
  }
  InTimeZone(const InTimeZone&) = delete;
  InTimeZone& operator=(const InTimeZone&) = delete;
  ~InTimeZone() {
    if (before_) {
      setenv("TZ", before_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
  }

 private:
  std::optional<std::string> before_;
};

}  // namespace

TEST(TimestampTest, IsTakenAnewForEachDocument) {
  const ReadDocument document(space(""));
  JVXWriter writer(document.get());
  const auto headerIn = [&](const char* zone) {
    const InTimeZone here(zone);
    std::ostringstream out;
    writer.write(out, nan);
    return out.str();
  };
  EXPECT_NE(headerIn("UTC0"), headerIn("XYZ-9"));
}

TEST(JVXWriterTest, WritesHeaderAndGeometries) {
  const JvxConversion conversion(space(""));
  EXPECT_EQ(conversion.error, "");
  EXPECT_EQ(conversion.warnings, Strings());
  static const std::regex dateLine("<meta date=\"[^\"\n]+\"/>\n");
  const std::string text = std::regex_replace(conversion.text, dateLine, "<meta date=\"DATE\"/>\n");
  EXPECT_EQ(text, written([](auto& out) { writeJvxHeader(out, "DATE"); }) + emptyModel);
}

// What stops an export.

TEST(JVXWriterTest, NeedsADocument) {
  JVXWriter writer(nullptr);
  EXPECT_FALSE(writer.isAnimated());
  double begin = 0;
  double end = 0;
  EXPECT_FALSE(writer.timeRange(begin, end));
  std::ostringstream out;
  try {
    writer.write(out, nan);
    ADD_FAILURE() << "no error";
  } catch (const JavaViewExportError& error) {
    EXPECT_STREQ(error.what(), "no document");
  }
  EXPECT_EQ(out.str(), "");
}

TEST(JVXWriterTest, NeedsACanvas) {
  const Ref<PlotDocument> document(new PlotDocument);
  JVXWriter writer(document.get());
  EXPECT_FALSE(writer.isAnimated());
  std::ostringstream out;
  try {
    writer.write(out, nan);
    ADD_FAILURE() << "no error";
  } catch (const JavaViewExportError& error) {
    EXPECT_STREQ(error.what(), "no Canvas");
  }
  EXPECT_TRUE(out.str().ends_with("</description>\n"));
}

TEST(JVXWriterTest, TakesAnyRootForACanvas) {
  const Ref<PlotDocument> document(new PlotDocument);
  forceInto(*document, element(*document, Word::Group3d));
  std::ostringstream out;
  try {
    JVXWriter(document.get()).write(out, nan);
    ADD_FAILURE() << "no error";
  } catch (const JavaViewExportError& error) {
    EXPECT_STREQ(error.what(), "no scene");
  }
}

TEST(JVXWriterTest, NeedsAScene) {
  const JvxConversion conversion(canvas("<ObjStyle Type=\"Default\"/>"));
  EXPECT_EQ(conversion.error, "no scene");
  EXPECT_TRUE(conversion.text.ends_with("</description>\n"));
  EXPECT_EQ(conversion.body(), "");
}

TEST(JVXWriterTest, FindsNoSceneInABrokenDocument) {
  const ReadDocument document("<Canvas><Scene3d></Canvas>");
  EXPECT_FALSE(document.isWellFormed());
  std::ostringstream out;
  EXPECT_THROW(JVXWriter(document.get()).write(out, nan), JavaViewExportError);
}

TEST(JVXWriterTest, NeedsACoordinateSystem) {
  for (const char* scene : {"<Scene2d></Scene2d>", "<Scene3d></Scene3d>"}) {
    const JvxConversion conversion(canvas(scene));
    EXPECT_EQ(conversion.error, "no coordinate system");
    EXPECT_EQ(conversion.body(), "");
    EXPECT_NE(conversion.text, "");
  }
}

TEST(JVXWriterTest, NeedsACoordinateSystemOfTheSameDimension) {
  const ReadDocument document(canvas("<Scene2d></Scene2d>"));
  forceInto(*document->documentElement()->firstChild(),
            element(*document.get(), Word::CoordinateSystem3d));
  std::ostringstream out;
  try {
    JVXWriter(document.get()).write(out, nan);
    ADD_FAILURE() << "no error";
  } catch (const JavaViewExportError& error) {
    EXPECT_STREQ(error.what(), "no coordinate system");
  }
}

TEST(JVXWriterTest, NeedsAnImageOfEachVisibleObject) {
  const JvxConversion inSpace(space(pointAt("1") + object("", "") + pointAt("2")));
  EXPECT_EQ(inSpace.error, "no Img3d");
  EXPECT_EQ(pointsOf(inSpace.text), Strings{"1 0 0"});
  EXPECT_TRUE(inSpace.text.ends_with("</geometry>\n"));

  const JvxConversion inPlane(plane("<Obj2d Type=\"PointList2d\"></Obj2d>"));
  EXPECT_EQ(inPlane.error, "no Img2d");
  EXPECT_EQ(inPlane.body(), "<geometries>\n");
}

TEST(JVXWriterTest, NeverLooksIntoAnInvisibleObject) {
  EXPECT_EQ(pointsAt(nan, space(object(" Visible=\"false\"", "") + pointAt("2"))),
            Strings{"2 0 0"});
}

TEST(JVXWriterTest, NeedsAFrameOfEachTransform) {
  const JvxConversion inSpace(
      space("<Transform3d Type=\"Rotate3d\">" + pointAt("1") + "</Transform3d>"));
  EXPECT_EQ(inSpace.error, "no Tr3d");
  EXPECT_EQ(inSpace.body(), "<geometries>\n");

  const JvxConversion inPlane(plane("<Transform2d Type=\"Rotate2d\"></Transform2d>"));
  EXPECT_EQ(inPlane.error, "no Tr2d");
  EXPECT_EQ(inPlane.body(), "<geometries>\n");
}

TEST(JVXWriterTest, HandsOnWhatWasWrittenBeforeAnyException) {
  class Nervous : public JVXWriter {
   public:
    using JVXWriter::JVXWriter;
    void warning(const char* text) override { throw std::runtime_error(text); }
  };
  const ReadDocument document(canvas("<Scene3d></Scene3d><Scene3d></Scene3d>"));
  std::ostringstream out;
  EXPECT_THROW(Nervous(document.get()).write(out, nan), std::runtime_error);
  EXPECT_TRUE(out.str().ends_with("</description>\n"));
}

// The choice of the scene.

TEST(JVXWriterTest, ExportsTheFirstOfSeveralScenes) {
  const std::string first =
      "<Scene3d><CoordinateSystem3d>" + pointAt("1") + "</CoordinateSystem3d></Scene3d>";
  const std::string second =
      "<Scene2d><CoordinateSystem2d>" + flatPointAt("2") + "</CoordinateSystem2d></Scene2d>";

  const JvxConversion inSpace(canvas(first + second + first));
  EXPECT_EQ(pointsOf(inSpace), Strings{"1 0 0"});
  EXPECT_EQ(inSpace.warnings, Strings{"more than one scene"});

  const JvxConversion inPlane(canvas(second + first));
  EXPECT_EQ(pointsOf(inPlane), Strings{"2 0"});
  EXPECT_EQ(inPlane.warnings, Strings{"more than one scene"});

  EXPECT_EQ(JvxConversion(canvas(first)).warnings, Strings());
}

TEST(JVXWriterTest, ExportsTheSceneWithTheIndexAskedFor) {
  const ReadDocument document(
      canvas("<ObjStyle Type=\"Default\"/><Scene3d><CoordinateSystem3d>" + pointAt("1") +
             "</CoordinateSystem3d></Scene3d><Scene2d><CoordinateSystem2d>" + flatPointAt("2") +
             "</CoordinateSystem2d></Scene2d><Scene3d><CoordinateSystem3d>" + pointAt("3") +
             "</CoordinateSystem3d></Scene3d>"));
  const auto exported = [&](std::size_t scene) {
    WarningsWriter<JVXWriter> writer(document.get(), scene);
    std::ostringstream out;
    writer.write(out, nan);
    EXPECT_EQ(writer.warnings, Strings());
    return out.str();
  };
  EXPECT_EQ(pointsOf(exported(0)), Strings{"1 0 0"});
  EXPECT_EQ(pointsOf(exported(1)), Strings{"2 0"});
  EXPECT_EQ(pointsOf(exported(2)), Strings{"3 0 0"});
  EXPECT_EQ(withoutHeader(exported(0)), JvxConversion(document.get()).body());
  EXPECT_THROW(exported(3), JavaViewExportError);
}

TEST(JVXWriterTest, ExportsTheFirstOfSeveralCoordinateSystems) {
  const auto system = [](const std::string& x) {
    return "<CoordinateSystem3d>" + pointAt(x) + "</CoordinateSystem3d>";
  };
  const JvxConversion conversion(
      canvas("<Scene3d>" + system("1") + system("2") + system("3") + "</Scene3d>"));
  EXPECT_EQ(pointsOf(conversion), Strings{"1 0 0"});
  EXPECT_EQ(conversion.warnings, Strings{"more than one coordinate system"});
}

// The walk.

TEST(JVXWriterTest, WritesObjectsAndGroupsInTheirOrder) {
  EXPECT_EQ(
      pointsAt(nan, space(pointAt("1") + "<Group3d>" + pointAt("2") + "<Group3d>" + pointAt("3") +
                          "</Group3d>" + pointAt("4") + "</Group3d>" + pointAt("5"))),
      (Strings{"1 0 0", "2 0 0", "3 0 0", "4 0 0", "5 0 0"}));
  EXPECT_EQ(pointsAt(nan, plane(flatPointAt("1") + "<Group2d>" + flatPointAt("2") + "</Group2d>")),
            (Strings{"1 0", "2 0"}));
}

TEST(JVXWriterTest, WritesAllPrimitivesOfAnImage) {
  EXPECT_EQ(pointsAt(nan, space(object("",
                                       "<Img3d><Pts3d><P3>1 0 0</P3></Pts3d><Plane/>"
                                       "<Pts3d><P3>2 0 0</P3></Pts3d></Img3d>"))),
            (Strings{"1 0 0", "2 0 0"}));
}

TEST(JVXWriterTest, SkipsHiddenGroupsWithAllThatIsInThem) {
  EXPECT_EQ(pointsAt(nan, space("<Group3d Visible=\"false\">" + pointAt("1") + object("", "") +
                                "<Transform3d Type=\"Rotate3d\"></Transform3d></Group3d>" +
                                pointAt("2"))),
            Strings{"2 0 0"});
  EXPECT_EQ(pointsAt(5, animated("<Group3d Visible=\"false\">" + pointAt("1") + "</Group3d>")),
            Strings());
  const JvxConversion inPlane(plane("<Group2d Visible=\"false\">" + flatPointAt("1") +
                                    "<Obj2d Type=\"PointList2d\"/>" +
                                    "<Transform2d Type=\"Rotate2d\"></Transform2d></Group2d>"));
  EXPECT_EQ(inPlane.error, "");
  EXPECT_EQ(inPlane.body(), emptyModel);
}

TEST(JVXWriterTest, PassesOverEverythingElse) {
  const JvxConversion conversion(
      space("<ObjStyle Type=\"Default\"/><ViewingBoxXMin Val=\"1\"/><XAxisTitle>x</XAxisTitle>"));
  EXPECT_EQ(conversion.body(), emptyModel);

  const ReadDocument document(space(""));
  const Ref<PlotElement> hints = element(*document.get(), Word::Hints);
  forceInto(*document->documentElement()->firstChild()->firstChild(), hints);
  std::ostringstream out;
  JVXWriter(document.get()).write(out, nan);
  EXPECT_EQ(withoutHeader(out.str()), emptyModel);
}

TEST(JVXWriterTest, DoesNotCheckNumbers) {
  EXPECT_EQ(pointsAt(nan, space(pointAt("nan"))), Strings{"nan 0 0"});
}

TEST(JVXWriterTest, WalksThroughDeepDocuments) {
  const ReadDocument document(space(pointAt("1")));
  dom::Node* const system = document->documentElement()->firstChild()->firstChild();
  const Ref<dom::Node> object = system->removeChild(system->firstChild());
  Ref<PlotElement> inner = element(*document.get(), Word::Group3d);
  inner->appendChild(object.get());
  for (int level = 1; level < 100000; ++level) {
    const Ref<PlotElement> outer = element(*document.get(), Word::Group3d);
    forceInto(*outer, inner);
    inner = outer;
  }
  system->appendChild(inner.get());
  std::ostringstream out;
  JVXWriter(document.get()).write(out, nan);
  EXPECT_EQ(pointsOf(out.str()), Strings{"1 0 0"});
}

// Transforms.

TEST(JVXWriterTest, TransformsByRowsAndShift) {
  EXPECT_EQ(pointsAt(nan, space(transform3d(" Row1=\"1 2 3\" Row2=\"4 5 6\" Row3=\"7 8 9\" "
                                            "Shift=\"10 20 30\"",
                                            object("",
                                                   "<Img3d><Pts3d><P3>1 10 100</P3></Pts3d>"
                                                   "</Img3d>")))),
            Strings{"331 674 1017"});
  EXPECT_EQ(pointsAt(nan, plane("<Transform2d Type=\"Rotate2d\">"
                                "<Tr2d Row1=\"1 2\" Row2=\"3 4\" Shift=\"5 6\"/>"
                                "<Obj2d Type=\"PointList2d\"><Img2d><Pts2d><P2>10 100</P2></Pts2d>"
                                "</Img2d></Obj2d></Transform2d>")),
            Strings{"215 436"});
}

TEST(JVXWriterTest, AppliesInnerTransformsFirst) {
  const std::string twice = " Row1=\"2 0 0\"";
  const std::string moved = " Shift=\"1 0 0\"";
  EXPECT_EQ(
      pointsAt(nan, space(transform3d(twice, transform3d(moved, pointAt("3")) + pointAt("3")) +
                          pointAt("3") + transform3d(moved, transform3d(twice, pointAt("3"))))),
      (Strings{"8 0 0", "6 0 0", "3 0 0", "7 0 0"}));
}

// A map of the plane has no height, not even that of its points. That is deliberate.
TEST(JVXWriterTest, FlattensSpaceByTransformsOfThePlane) {
  const ReadDocument document(plane("<Transform2d Type=\"Rotate2d\"><Tr2d/></Transform2d>"));
  const ReadDocument other(space(object("", "<Img3d><Pts3d><P3>1 2 3</P3></Pts3d></Img3d>")));
  dom::Node* const transform =
      document->documentElement()->firstChild()->firstChild()->firstChild();
  dom::Node* const object3d = other->documentElement()->firstChild()->firstChild()->firstChild();
  transform->doReplaceChildren(nullptr, 0, Ref<dom::Node>(object3d->cloneNode(true)).get());
  std::ostringstream out;
  JVXWriter(document.get()).write(out, nan);
  EXPECT_EQ(pointsOf(out.str()), Strings{"1 2 0"});
}

TEST(JVXWriterTest, BeginsAnewAfterAnError) {
  const std::string attributes = " TimeBegin=\"1\" TimeEnd=\"2\" VisibleBeforeBegin=\"false\"";
  const ReadDocument document(
      animated(transform3d(" Shift=\"1 0 0\"", object(attributes, "")) + pointAt("3")));
  JVXWriter writer(document.get());
  std::ostringstream failed;
  EXPECT_THROW(writer.write(failed, 1), JavaViewExportError);
  std::ostringstream out;
  writer.write(out, 0);
  EXPECT_EQ(pointsOf(out.str()), Strings{"3 0 0"});
}

// The range of colours by height.

namespace {

/// The colour of a point at height 5: half-way, or that of a constant if there is no range.
std::string colorInTheMiddle(const std::string& bounds) {
  const JvxConversion conversion(
      space(bounds + object("",
                            "<Img3d><Lines3d LineColorType=\"Dichromatic\" LineColor=\"#c80000\""
                            " LineColor2=\"#0000c8\"><P3>0 0 5</P3></Lines3d></Img3d>")));
  const std::size_t begin = conversion.text.find("<c>");
  return conversion.text.substr(begin, conversion.text.find('\n', begin) - begin);
}

}  // namespace

TEST(JVXWriterTest, TakesTheRangeOfColorsFromTheViewingBox) {
  const std::string constant = "<c>200 0 0</c>";
  const auto bounds = [](const std::string& min, const std::string& max) {
    return "<ViewingBoxZMin Val=\"" + min + "\"/><ViewingBoxZMax Val=\"" + max + "\"/>";
  };
  EXPECT_EQ(colorInTheMiddle(bounds("0", "10")), "<c>100 0 100</c>");
  EXPECT_EQ(colorInTheMiddle(bounds("10", "0")), constant);
  EXPECT_EQ(colorInTheMiddle(bounds("5", "5")), constant);
  EXPECT_EQ(colorInTheMiddle(bounds("nan", "10")), constant);
  EXPECT_EQ(colorInTheMiddle(bounds("0", "nan")), constant);
  EXPECT_EQ(colorInTheMiddle("<ViewingBoxZMax Val=\"10\"/>"), constant);
  EXPECT_EQ(colorInTheMiddle(""), constant);
  EXPECT_EQ(colorInTheMiddle("<ViewingBoxYMin Val=\"0\"/><ViewingBoxYMax Val=\"10\"/>"), constant);
}

// Time.

TEST(JVXWriterTest, WarnsOfATimeWhereThereIsNone) {
  const JvxConversion conversion(space(pointAt("1")), 3);
  EXPECT_EQ(conversion.warnings, Strings{"not an animation"});
  EXPECT_EQ(pointsOf(conversion), Strings{"1 0 0"});
  EXPECT_EQ(JvxConversion(space("")).warnings, Strings());
  EXPECT_EQ(JvxConversion(animated(""), 3).warnings, Strings());
}

TEST(JVXWriterTest, KnowsTheTimeRange) {
  const ReadDocument still(space(""));
  EXPECT_FALSE(JVXWriter(still.get()).isAnimated());

  const ReadDocument document(
      canvas("<TimeRange TimeBegin=\"-1\" TimeEnd=\"4\"/><Scene3d></Scene3d>"));
  const JVXWriter writer(document.get());
  EXPECT_TRUE(writer.isAnimated());
  double begin = 0;
  double end = 0;
  EXPECT_TRUE(writer.timeRange(begin, end));
  EXPECT_EQ(begin, -1);
  EXPECT_EQ(end, 4);
}

namespace {

/// Frames at the times 0, 1, 2, ... with a point at their number.
std::string framesUpTo(int last) {
  const std::string end = std::to_string(last);
  std::string content = "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"" + end + "\"/>";
  for (int i = 0; i <= last; ++i) {
    content += imageAt(std::to_string(i), " Param=\"" + std::to_string(i) + "\"");
  }
  return object(" TimeBegin=\"0\" TimeEnd=\"" + end + "\"", content);
}

}  // namespace

TEST(JVXWriterTest, BringsTheTimeIntoTheRange) {
  const std::string document = animated(framesUpTo(20));
  EXPECT_EQ(pointsAt(nan, document), Strings{"0 0 0"});
  EXPECT_EQ(pointsAt(-7, document), Strings{"0 0 0"});
  EXPECT_EQ(pointsAt(4, document), Strings{"4 0 0"});
  EXPECT_EQ(pointsAt(10, document), Strings{"10 0 0"});
  EXPECT_EQ(pointsAt(15, document), Strings{"10 0 0"});
}

TEST(JVXWriterTest, TakesTheLastFrameThatIsNotLater) {
  const std::string document = animated(framesUpTo(3));
  EXPECT_EQ(pointsAt(0.999, document), Strings{"0 0 0"});
  EXPECT_EQ(pointsAt(1, document), Strings{"1 0 0"});
  EXPECT_EQ(pointsAt(2.5, document), Strings{"2 0 0"});
  EXPECT_EQ(pointsAt(9, document), Strings{"3 0 0"});
}

TEST(JVXWriterTest, TakesTheFirstFrameOfAStillPicture) {
  EXPECT_EQ(pointsAt(nan, space(object("", imageAt("1") + imageAt("2") + imageAt("3")))),
            Strings{"1 0 0"});
  const std::string framed = space(framesUpTo(3));
  EXPECT_EQ(pointsAt(nan, framed), Strings{"0 0 0"});
  EXPECT_EQ(pointsAt(2, framed), Strings{"0 0 0"});
}

TEST(JVXWriterTest, TakesFramesOfThePlaneByTheirTimesToo) {
  const auto image = [](const std::string& x, const std::string& param) {
    return "<Img2d Param=\"" + param + "\"><Pts2d><P2>" + x + " 0</P2></Pts2d></Img2d>";
  };
  const std::string span =
      " TimeBegin=\"0\" TimeEnd=\"10\"><ParameterBegin Val=\"0\"/><ParameterEnd Val=\"5\"/>";
  const std::string document = canvas(
      "<TimeRange TimeBegin=\"0\" TimeEnd=\"10\"/><Scene2d><CoordinateSystem2d>"
      "<Transform2d Type=\"Translate2d\"" +
      span + "<Tr2d Param=\"0\" Shift=\"100 0\"/><Tr2d Param=\"3\" Shift=\"200 0\"/>" +
      "<Obj2d Type=\"PointList2d\"" + span + image("1", "0") + image("2", "2") +
      "</Obj2d></Transform2d></CoordinateSystem2d></Scene2d>");
  EXPECT_EQ(pointsAt(nan, document), Strings{"101 0"});
  EXPECT_EQ(pointsAt(3.9, document), Strings{"101 0"});
  EXPECT_EQ(pointsAt(4, document), Strings{"102 0"});
  EXPECT_EQ(pointsAt(5.9, document), Strings{"102 0"});
  EXPECT_EQ(pointsAt(6, document), Strings{"202 0"});
}

namespace {

/// An object whose parameter is the time from 0 to 10.
std::string timed(const std::string& images) {
  return animated(object(" TimeBegin=\"0\" TimeEnd=\"10\"",
                         "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"10\"/>" + images));
}

std::string imageFrom(const std::string& time) { return imageAt(time, " Param=\"" + time + "\""); }

}  // namespace

TEST(JVXWriterTest, TakesTheFirstFrameBeforeItsTime) {
  EXPECT_EQ(pointsAt(1, timed(imageFrom("3") + imageFrom("5"))), Strings{"3 0 0"});
}

TEST(JVXWriterTest, SearchesNoFurtherThanALaterFrame) {
  EXPECT_EQ(pointsAt(4, timed(imageFrom("2") + imageFrom("6") + imageFrom("3"))), Strings{"2 0 0"});
}

TEST(JVXWriterTest, TakesAFrameWithoutTimeAtOnce) {
  EXPECT_EQ(pointsAt(9, timed(imageFrom("2") + imageAt("77") + imageFrom("5"))), Strings{"77 0 0"});
}

// Without a time of its own, a frame holds at any time, so that the first one wins.
TEST(JVXWriterTest, TakesTheFirstFrameWhereTimesAreMissing) {
  const std::string images = imageFrom("2") + imageFrom("5");
  const std::string transforms =
      "<Tr3d Param=\"2\" Shift=\"2 0 0\"/><Tr3d Param=\"5\" Shift=\"5 0 0\"/>" + pointAt("0");
  const std::string span = " TimeBegin=\"0\" TimeEnd=\"10\"";
  const std::string begin = "<ParameterBegin Val=\"0\"/>";
  const std::string end = "<ParameterEnd Val=\"10\"/>";
  const struct {
    std::string attributes;
    std::string range;
    const char* taken;
  } rows[] = {
      {span, begin + end, "5 0 0"},
      {span, end + begin, "5 0 0"},
      {span, "", "2 0 0"},
      {span, begin, "2 0 0"},
      {span, end, "2 0 0"},
      {span, begin + "<ParameterEnd/>", "2 0 0"},
      {span, begin + "<ParameterEnd Val=\"nan\"/>", "2 0 0"},
      {span, "<ParameterBegin Val=\"nan\"/>" + end, "2 0 0"},
      {" TimeBegin=\"0\" TimeEnd=\"nan\"", begin + end, "2 0 0"},
      {" TimeBegin=\"nan\" TimeEnd=\"10\"", begin + end, "2 0 0"},
  };
  for (const auto& [attributes, range, taken] : rows) {
    EXPECT_EQ(pointsAt(9, animated(object(attributes, range + images))), Strings{taken})
        << attributes << range;
    EXPECT_EQ(pointsAt(9, animated("<Transform3d Type=\"Translate3d\"" + attributes + ">" + range +
                                   transforms + "</Transform3d>")),
              Strings{taken})
        << attributes << range;
  }
}

TEST(JVXWriterTest, MapsParametersToTimes) {
  const auto at = [](double time) {
    return pointsAt(
        time, animated(object(" TimeBegin=\"2\" TimeEnd=\"6\"",
                              "<ParameterBegin Val=\"10\"/><ParameterEnd Val=\"0\"/>" +
                                  imageAt("1", " Param=\"10\"") + imageAt("2", " Param=\"5\"") +
                                  imageAt("3", " Param=\"0\""))));
  };
  EXPECT_EQ(at(3.9), Strings{"1 0 0"});
  EXPECT_EQ(at(4), Strings{"2 0 0"});
  EXPECT_EQ(at(6), Strings{"3 0 0"});
}

TEST(JVXWriterTest, TakesTheLastOfFramesWithoutParameterRange) {
  const std::string document =
      animated(object(" TimeBegin=\"2\" TimeEnd=\"6\"",
                      "<ParameterBegin Val=\"1\"/><ParameterEnd Val=\"1\"/>" +
                          imageAt("1", " Param=\"0\"") + imageAt("2", " Param=\"1\"")));
  EXPECT_EQ(pointsAt(1, document), Strings{"1 0 0"});
  EXPECT_EQ(pointsAt(2, document), Strings{"2 0 0"});
  EXPECT_EQ(pointsAt(9, document), Strings{"2 0 0"});
}

// A range of the machine epsilon counts as none, the next wider one does not.
TEST(JVXWriterTest, DividesByAnyParameterRangeAboveTheEpsilon) {
  const auto at = [](double time, const std::string& parameterEnd) {
    return pointsAt(time, animated(object(" TimeBegin=\"2\" TimeEnd=\"6\"",
                                          "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"" +
                                              parameterEnd + "\"/>" + imageAt("1", " Param=\"0\"") +
                                              imageAt("2", " Param=\"1.1102230246251565e-16\""))));
  };
  const std::string epsilon = "2.220446049250313e-16";
  const std::string wider = "2.2204460492503136e-16";
  EXPECT_EQ(at(1.9, epsilon), Strings{"1 0 0"});
  EXPECT_EQ(at(2, epsilon), Strings{"2 0 0"});
  EXPECT_EQ(at(2, "-" + epsilon), Strings{"2 0 0"});
  EXPECT_EQ(at(2, wider), Strings{"1 0 0"});
  EXPECT_EQ(at(3.9, wider), Strings{"1 0 0"});
  EXPECT_EQ(at(4, wider), Strings{"2 0 0"});
}

TEST(JVXWriterTest, MovesTransformsByTheirFrames) {
  const std::string document = animated(
      "<Transform3d Type=\"Translate3d\" TimeBegin=\"0\" TimeEnd=\"10\">"
      "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"1\"/>"
      "<Tr3d Param=\"0\" Shift=\"100 0 0\"/><Tr3d Param=\"0.5\" Shift=\"200 0 0\"/>" +
      pointAt("1") + "</Transform3d>");
  EXPECT_EQ(pointsAt(4.9, document), Strings{"101 0 0"});
  EXPECT_EQ(pointsAt(5, document), Strings{"201 0 0"});
}

TEST(JVXWriterTest, ShowsObjectsInTheirTime) {
  const auto isShown = [](double time, const std::string& attributes) {
    return !pointsAt(time, animated(object(attributes, imageAt("1")))).empty();
  };
  const std::string span = " TimeBegin=\"2\" TimeEnd=\"6\"";
  const std::string notBefore = span + " VisibleBeforeBegin=\"false\"";
  const std::string notAfter = span + " VisibleAfterEnd=\"false\"";
  EXPECT_FALSE(isShown(nan, notBefore));
  EXPECT_FALSE(isShown(1.9, notBefore));
  EXPECT_TRUE(isShown(2, notBefore));
  EXPECT_TRUE(isShown(9, notBefore));
  EXPECT_TRUE(isShown(1, notAfter));
  EXPECT_TRUE(isShown(6, notAfter));
  EXPECT_FALSE(isShown(6.1, notAfter));
  EXPECT_TRUE(isShown(0, span));
  EXPECT_TRUE(isShown(9, span));
  EXPECT_FALSE(isShown(4, span + " Visible=\"false\""));

  const std::string never = " VisibleBeforeBegin=\"false\" VisibleAfterEnd=\"false\"";
  EXPECT_TRUE(isShown(1, " TimeBegin=\"nan\" TimeEnd=\"0\"" + never));
  EXPECT_TRUE(isShown(9, " TimeBegin=\"2\" TimeEnd=\"nan\"" + never));
}

TEST(JVXWriterTest, ShowsAllObjectsOfAStillPicture) {
  EXPECT_EQ(pointsAt(nan, space(object(" TimeBegin=\"2\" TimeEnd=\"6\" VisibleBeforeBegin=\"false\""
                                       " VisibleAfterEnd=\"false\"",
                                       imageAt("1")))),
            Strings{"1 0 0"});
}

}  // namespace vantry::javaview
