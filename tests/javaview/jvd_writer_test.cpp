// The frame of a display and the order of its blocks.

#include "vantry/javaview/jvd_writer.h"

#include <gtest/gtest.h>

#include "display.h"

namespace vantry::javaview {

using namespace plot;
namespace {

using Warnings = std::vector<std::string>;

const std::string header =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="no"?>
<!DOCTYPE jv-disp SYSTEM "http://www.javaview.de/rsrc/jv-disp.dtd">
<jv-disp>
<meta generator="vantry vers 1.5"/>
<meta date="DATE"/>
<meta dtd="1.04.000"/>
<version></version>
<title></title>
<authors>
  <author>
   <firstname></firstname>
   <lastname></lastname>
   <affiliation>
     <organization></organization>
     <address>
       <line></line>
     </address>
   </affiliation>
   <email></email>
   <url></url>
  </author>
</authors>
<description>
  <abstract></abstract>
</description>
)";

/// The text with "DATE" in the place of its date.
std::string undated(std::string text) {
  const std::string begin = "<meta date=\"";
  const std::size_t at = text.find(begin) + begin.size();
  return text.replace(at, JavaViewWriter::timestamp().size(), "DATE");
}

TEST(JvdWriter, BeginsWithTheHeader) {
  EXPECT_TRUE(undated(Display(plot3d("")).text).starts_with(header + "<displays>\n"));
  EXPECT_TRUE(undated(Display(plot2d("")).text).starts_with(header + "<displays>\n"));
}

TEST(JvdWriter, HoldsNoGeometry) {
  const std::string sphere = "<Obj3d Type=\"Sphere\"><Img3d><Sphere/></Img3d></Obj3d>";
  EXPECT_EQ(Display(plot3d(box3d + sphere)).body(), Display(plot3d(box3d)).body());
}

TEST(JvdWriter, IsWrittenAnewEachTime) {
  const ReadDocument plot(plot3d(box3d, "", "Lighting=\"Automatic\""));
  JVDWriter writer(plot.get());
  std::ostringstream once;
  std::ostringstream again;
  writer.write(once, nan);
  writer.write(again, nan);
  EXPECT_EQ(undated(again.str()), undated(once.str()));
}

TEST(JvdWriter, WithoutDocumentNothingIsWritten) {
  const Display display(nullptr);
  EXPECT_EQ(display.error, "no document");
  EXPECT_EQ(display.text, "");
}

TEST(JvdWriter, WithoutRootOnlyTheHeaderIsWritten) {
  const base::Ref<PlotDocument> document = new PlotDocument;
  const Display display(document.get());
  EXPECT_EQ(display.error, "no Canvas");
  EXPECT_EQ(undated(display.text), header);
}

TEST(JvdWriter, WithoutSceneOnlyTheHeaderIsWritten) {
  const Display display("<Canvas/>");
  EXPECT_EQ(display.error, "no scene");
  EXPECT_EQ(undated(display.text), header);
}

TEST(JvdWriter, WithoutCoordinateSystemOnlyTheHeaderIsWritten) {
  const Display display("<Canvas><Scene3d/></Canvas>");
  EXPECT_EQ(display.error, "no coordinate system");
  EXPECT_EQ(undated(display.text), header);
}

TEST(JvdWriter, ACameraObjectWithoutImageEndsTheTextBeforeTheCameras) {
  const Display display(plot3d("<Obj3d Type=\"Camera\"/>"));
  EXPECT_EQ(display.error, "no Img3d");
  EXPECT_TRUE(display.text.ends_with("</bndbox>\n"));
}

TEST(JvdWriter, ALightObjectWithoutImageEndsTheTextBeforeTheLights) {
  const Display display(plot3d(box3d + "<Obj3d Type=\"PointLight\"/>"));
  EXPECT_EQ(display.error, "no Img3d");
  EXPECT_TRUE(display.text.ends_with("</cameras>\n"));
}

TEST(JvdWriter, WarnsOfASecondSceneAndUsesTheFirst) {
  const Display display(
      "<Canvas><Scene2d BackgroundColor=\"#010203\"><CoordinateSystem2d/></Scene2d>"
      "<Scene3d><CoordinateSystem3d/></Scene3d></Canvas>");
  EXPECT_EQ(display.error, "");
  EXPECT_EQ(display.warnings, Warnings{"more than one scene"});
  EXPECT_EQ(display.element("background"), "<background>\n<color>1 2 3</color>\n</background>\n");
}

TEST(JvdWriter, WritesTheSceneWithTheIndexAskedFor) {
  const ReadDocument document(
      "<Canvas><Scene3d BackgroundColor=\"#010101\"><CoordinateSystem3d/></Scene3d>"
      "<Scene2d BackgroundColor=\"#020202\"><CoordinateSystem2d/></Scene2d></Canvas>");
  const auto displayed = [&](std::size_t scene) {
    WarningsWriter<JVDWriter> writer(document.get(), scene);
    std::ostringstream out;
    writer.write(out, nan);
    EXPECT_EQ(writer.warnings, Warnings());
    return out.str();
  };
  EXPECT_EQ(withoutHeader(displayed(0)), Display(document.get()).body());
  EXPECT_NE(displayed(0).find("<color>1 1 1</color>"), std::string::npos);
  EXPECT_NE(displayed(1).find("<color>2 2 2</color>"), std::string::npos);
  EXPECT_THROW(displayed(2), JavaViewExportError);
}

TEST(JvdWriter, WarnsOfASecondCoordinateSystemAndUsesTheFirst) {
  const Display display(
      "<Canvas><Scene2d><CoordinateSystem2d AxesLineColor=\"#010203\"/><CoordinateSystem2d/>"
      "</Scene2d></Canvas>");
  EXPECT_EQ(display.error, "");
  EXPECT_EQ(display.warnings, Warnings{"more than one coordinate system"});
  EXPECT_NE(display.text.find("<color>1 2 3</color>"), std::string::npos);
}

TEST(JvdWriter, WarnsOfATimeThatADocumentAtRestDoesNotHave) {
  const Display display(plot3d(""), 3);
  EXPECT_EQ(display.error, "");
  EXPECT_EQ(display.warnings, Warnings{"not an animation"});
  EXPECT_EQ(display.body(), Display(plot3d("")).body());
}

TEST(JvdWriter, WarnsOfNothingElse) {
  EXPECT_EQ(Display(plot3d(box3d)).warnings, Warnings{});
  EXPECT_EQ(Display(plot2d(box2d)).warnings, Warnings{});
}

TEST(JvdWriter, LightingChoosesTheLights) {
  const std::string light = "<Obj3d Type=\"AmbientLight\"><Img3d><AmbientLight/></Img3d></Obj3d>";
  const auto lights = [&](const std::string& sceneAttributes) {
    return Display(plot3d(box3d + light, "", sceneAttributes)).element("lights");
  };
  const std::string explicitLights =
      "<lights lightingModel=\"Light\">\n"
      "<ambient><color>255 255 255</color></ambient>\n"
      "<light type=\"ambient\">\n"
      "<color>255 255 255</color>\n"
      "<intensity>1</intensity>\n"
      "</light>\n"
      "</lights>\n";
  EXPECT_EQ(lights(""), explicitLights);
  EXPECT_EQ(lights("Lighting=\"Explicit\""), explicitLights);
  EXPECT_NE(lights("Lighting=\"Automatic\"").find("<exponent>50</exponent>"), std::string::npos);
  EXPECT_EQ(lights("Lighting=\"None\""), "");
  EXPECT_EQ(lights("Lighting=\"Wobbly\""), "");
}

}  // namespace
}  // namespace vantry::javaview
