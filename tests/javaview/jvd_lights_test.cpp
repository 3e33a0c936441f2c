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

TEST(JvdLights, SpotAngleAndCameraCoordinatesChangeNothing) {
  EXPECT_EQ(lights(object("SpotLight", "<SpotLight SpotAngle=\"1\" CameraCoordinates=\"1\"/>")),
            lights(object("SpotLight", "<SpotLight/>")));
}

std::string defaultLights(const std::string& content) {
  return Display(plot3d(content, "", "Lighting=\"Automatic\"")).element("lights");
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
