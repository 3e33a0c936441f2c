// Lights and background.

#include "vantry/javaview/jvd_lights.h"

#include <gtest/gtest.h>

#include "display.h"

namespace vantry::javaview {
namespace {

/// An object with one image.
std::string object(const std::string& type, const std::string& primitives,
                   const std::string& attributes = "") {
  return "<Obj3d Type=\"" + type + "\" " + attributes + "><Img3d>" + primitives +
         "</Img3d></Obj3d>";
}

std::string lights(const std::string& content) {
  return Display(plot3d(content, "", "Lighting=\"Explicit\"")).element("lights");
}

/// The block with these lights in it.
std::string block(const std::string& content) {
  return "<lights lightingModel=\"Light\">\n"
         "<ambient><color>255 255 255</color></ambient>\n" +
         content + "</lights>\n";
}

const std::string ambient =
    "<light type=\"ambient\">\n"
    "<color>255 255 255</color>\n"
    "<intensity>1</intensity>\n"
    "</light>\n";

TEST(JvdLights, AmbientLightHasNoPlace) {
  EXPECT_EQ(lights(object("AmbientLight",
                          "<AmbientLight LightIntensity=\"0.25\" LightColor=\"#0a141e\"/>")),
            block("<light type=\"ambient\">\n"
                  "<color>10 20 30</color>\n"
                  "<intensity>0.25</intensity>\n"
                  "</light>\n"));
}

TEST(JvdLights, PointLightHasAPosition) {
  EXPECT_EQ(lights(object("PointLight",
                          "<PointLight Position=\"1 -2 3.5\" LightIntensity=\"0.5\" "
                          "LightColor=\"#0a141e\"/>")),
            block("<light type=\"point\">\n"
                  "<position>1 -2 3.5</position>\n"
                  "<color>10 20 30</color>\n"
                  "<intensity>0.5</intensity>\n"
                  "</light>\n"));
}

TEST(JvdLights, DistantLightHasAPositionAndATarget) {
  EXPECT_EQ(lights(object("DistantLight",
                          "<DistantLight Position=\"1 -2 3.5\" Target=\"4 5 6\" "
                          "LightIntensity=\"0.75\" LightColor=\"#0a141e\"/>")),
            block("<light type=\"direction\">\n"
                  "<position>1 -2 3.5</position>\n"
                  "<interest>4 5 6</interest>\n"
                  "<color>10 20 30</color>\n"
                  "<intensity>0.75</intensity>\n"
                  "</light>\n"));
}

TEST(JvdLights, SpotLightHasAPositionAndATarget) {
  EXPECT_EQ(lights(object("SpotLight",
                          "<SpotLight Position=\"1 -2 3.5\" Target=\"4 5 6\" "
                          "LightIntensity=\"0.75\" LightColor=\"#0a141e\"/>")),
            block("<light type=\"spot\">\n"
                  "<position>1 -2 3.5</position>\n"
                  "<interest>4 5 6</interest>\n"
                  "<color>10 20 30</color>\n"
                  "<intensity>0.75</intensity>\n"
                  "</light>\n"));
}

TEST(JvdLights, HaveDefaults) {
  EXPECT_EQ(lights(object("SpotLight", "<SpotLight/>")), block("<light type=\"spot\">\n"
                                                               "<position>0 10 0</position>\n"
                                                               "<interest>0 0 0</interest>\n"
                                                               "<color>255 255 255</color>\n"
                                                               "<intensity>1</intensity>\n"
                                                               "</light>\n"));
}

TEST(JvdLights, TheColorMayComeFromAStyleAndItsAlphaIsNotWritten) {
  EXPECT_EQ(lights("<ObjStyle Type=\"AmbientLight\" LightColor=\"#11223344\"/>" +
                   object("AmbientLight", "<AmbientLight/>")),
            block("<light type=\"ambient\">\n"
                  "<color>17 34 51</color>\n"
                  "<intensity>1</intensity>\n"
                  "</light>\n"));
}

TEST(JvdLights, OfAllObjectsShareOneBlock) {
  EXPECT_EQ(
      lights(object("AmbientLight", "<AmbientLight/>") + object("PointLight", "<PointLight/>") +
             object("AmbientLight", "<AmbientLight/>")),
      block(ambient +
            "<light type=\"point\">\n"
            "<position>0 10 0</position>\n"
            "<color>255 255 255</color>\n"
            "<intensity>1</intensity>\n"
            "</light>\n" +
            ambient));
}

TEST(JvdLights, AnImageGivesItsFirstLightInDocumentOrder) {
  EXPECT_EQ(lights(object("SpotLight", "<Camera/><AmbientLight/><SpotLight/>")), block(ambient));
  EXPECT_EQ(lights(object("AmbientLight", "<SpotLight Position=\"1 2 3\"/><AmbientLight/>")),
            block("<light type=\"spot\">\n"
                  "<position>1 2 3</position>\n"
                  "<interest>0 0 0</interest>\n"
                  "<color>255 255 255</color>\n"
                  "<intensity>1</intensity>\n"
                  "</light>\n"));
}

TEST(JvdLights, WithoutLightsThereIsNoBlock) {
  EXPECT_EQ(lights(""), "");
  EXPECT_EQ(lights(object("PointLight", "")), "");
  EXPECT_EQ(lights(object("PointLight", "<Camera/>")), "");
  EXPECT_EQ(lights(object("Camera", "<PointLight/>")), "");
  EXPECT_EQ(lights(object("Sphere", "<PointLight/>")), "");
}

TEST(JvdLights, AHiddenObjectIsNotLookedInto) {
  EXPECT_EQ(lights(object("PointLight", "<PointLight/>", "Visible=\"0\"")), "");
  EXPECT_EQ(Display(plot3d("<Obj3d Type=\"PointLight\" Visible=\"0\"/>")).error, "");
}

TEST(JvdLights, AnObjectWithoutImageIsAnError) {
  for (const char* type : {"AmbientLight", "PointLight", "DistantLight", "SpotLight"}) {
    const std::string empty = std::string("<Obj3d Type=\"") + type + "\"/>";
    EXPECT_EQ(Display(plot3d(empty)).error, "no Img3d") << type;
    EXPECT_EQ(Display(plot3d(empty, "", "Lighting=\"Automatic\"")).error, "") << type;
    EXPECT_EQ(Display(plot3d(empty, "", "Lighting=\"None\"")).error, "") << type;
  }
}

/// A document from time 0 to 10 with one light that is there from 5 on.
const std::string animated =
    "<Canvas><TimeRange TimeBegin=\"0\" TimeEnd=\"10\"/><Scene3d><CoordinateSystem3d>"
    "<Obj3d Type=\"AmbientLight\" TimeBegin=\"5\" TimeEnd=\"9\" VisibleBeforeBegin=\"0\">"
    "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"1\"/>"
    "<Img3d Param=\"0\"><AmbientLight LightIntensity=\"0.5\"/></Img3d>"
    "<Img3d Param=\"0.5\"><AmbientLight/></Img3d>"
    "</Obj3d></CoordinateSystem3d></Scene3d></Canvas>";

TEST(JvdLights, TheImageIsThatOfTheTime) {
  EXPECT_EQ(Display(animated, 7).element("lights"), block(ambient));
  EXPECT_EQ(Display(animated, 6.9).element("lights"), block("<light type=\"ambient\">\n"
                                                            "<color>255 255 255</color>\n"
                                                            "<intensity>0.5</intensity>\n"
                                                            "</light>\n"));
}

TEST(JvdLights, ALightShinesEvenBeforeItsObjectAppears) {
  EXPECT_EQ(Display(animated, 0).element("lights"), block("<light type=\"ambient\">\n"
                                                          "<color>255 255 255</color>\n"
                                                          "<intensity>0.5</intensity>\n"
                                                          "</light>\n"));
}

TEST(JvdLights, SpotAngleAndCameraCoordinatesChangeNothing) {
  EXPECT_EQ(lights(object("SpotLight", "<SpotLight SpotAngle=\"1\" CameraCoordinates=\"1\"/>")),
            lights(object("SpotLight", "<SpotLight/>")));
}

std::string defaultLights(const std::string& content) {
  return Display(plot3d(content, "", "Lighting=\"Automatic\"")).element("lights");
}

std::string rigLight(const std::string& position, const std::string& intensity) {
  return "<light type=\"point\">\n"
         "<position>" +
         position +
         "</position>\n"
         "<interest>0 0 0</interest>\n"
         "<color>255 255 255</color>\n"
         "<intensity>" +
         intensity +
         "</intensity>\n"
         "<exponent>50</exponent>\n"
         "</light>\n";
}

TEST(JvdLights, TheDefaultRigIsFittedToTheBox) {
  EXPECT_EQ(defaultLights(unitBox3d),
            block("<light type=\"ambient\">\n"
                  "<color>255 255 255</color>\n"
                  "<intensity>0.125</intensity>\n"
                  "</light>\n" +
                  rigLight("5 6 -8", "0.4") + rigLight("-5 -6 8", "0.5") +
                  rigLight("-5 6 -8", "0.1") + rigLight("5 -6 8", "0.125") +
                  rigLight("5 -6 -8", "0.1") + rigLight("-5 6 8", "0.125")));
}

TEST(JvdLights, TheDefaultRigNeedsTheWholeBox) {
  EXPECT_EQ(defaultLights(""), "");
  EXPECT_EQ(defaultLights(box2d), "");
  EXPECT_EQ(defaultLights(box2d + range('Z', "nan", "1")), "");
  EXPECT_EQ(defaultLights(box2d + range('Z', "1", "1")), "");
}

TEST(JvdLights, TheDefaultRigReplacesTheLightsOfTheDocument) {
  EXPECT_EQ(defaultLights(unitBox3d + object("AmbientLight", "<AmbientLight/>")),
            defaultLights(unitBox3d));
  EXPECT_EQ(defaultLights(object("AmbientLight", "<AmbientLight/>")), "");
}

std::string background(const std::string& zrd) { return Display(zrd).element("background"); }

TEST(JvdBackground, HasTheColorOfTheScene) {
  EXPECT_EQ(background(plot3d("")), "<background>\n<color>255 255 255</color>\n</background>\n");
  EXPECT_EQ(background(plot3d("", "", "BackgroundColor=\"#0a141e80\"")),
            "<background>\n<color>10 20 30</color>\n</background>\n");
  EXPECT_EQ(background("<Canvas BackgroundColor=\"#ff0000\"><Scene2dStyle "
                       "BackgroundColor=\"#0a141e\"/><Scene2d><CoordinateSystem2d/></Scene2d>"
                       "</Canvas>"),
            "<background>\n<color>10 20 30</color>\n</background>\n");
}

TEST(JvdBackground, IsAlwaysPlain) {
  EXPECT_EQ(Display(plot3d("", "",
                           "BackgroundStyle=\"Pyramid\" BackgroundColor2=\"#ff0000\" "
                           "BackgroundTransparent=\"1\""))
                .body(),
            Display(plot3d("")).body());
}

TEST(JvdBackground, OtherPropertiesOfASceneChangeNothing) {
  const std::string plain = Display(plot3d(box3d)).body();
  for (const char* attribute :
       {"LegendVisible=\"0\"", "Width=\"20\"", "Height=\"20\"", "BorderColor=\"#ff0000\"",
        "BorderWidth=\"3\"", "TopMargin=\"3\"", "Bottom=\"3\"", "Left=\"3\"", "Name=\"scene\""}) {
    EXPECT_EQ(Display(plot3d(box3d, "", attribute)).body(), plain) << attribute;
  }
}

}  // namespace
}  // namespace vantry::javaview
