// The view of a display.

#include "vantry/javaview/jvd_cameras.h"

#include <gtest/gtest.h>

#include "display.h"

namespace vantry::javaview {

using namespace plot;
namespace {

/// An object with one image that holds a camera.
std::string camera(const std::string& attributes, const std::string& objectAttributes = "") {
  return "<Obj3d Type=\"Camera\" " + objectAttributes + "><Img3d><Camera " + attributes +
         "/></Img3d></Obj3d>";
}

std::string cameras(const std::string& content) {
  return Display(plot3d(content)).element("cameras");
}

/// The block of one camera.
std::string view(const std::string& position, const std::string& interest,
                 const std::string& fieldOfView, const std::string& roll = "") {
  return "<cameras select=\"Perspective\">\n"
         "<camera projection=\"Perspective\">\n"
         "<position>" +
         position +
         "</position>\n"
         "<interest>" +
         interest +
         "</interest>\n"
         "<fieldOfView>" +
         fieldOfView + "</fieldOfView>\n" + roll +
         "</camera>\n"
         "</cameras>\n";
}

const std::string defaultView = view("-3.25458 -7.77334 3.06473", "0 5 1", "0.174977");

TEST(JvdCameras, APerspectiveNeedsNoViewingBox) {
  EXPECT_EQ(cameras(camera("")), cameras(box3d + camera("")));
}

TEST(JvdCameras, AParallelViewFromItsFocalPointIsNowhereInABoxWithoutEnd) {
  // infinity times the zero vector
  const std::string text =
      cameras(range('X', "0", "inf") + camera("OrthogonalProjection=\"1\" Position=\"0 0 0\""));
  EXPECT_NE(text.find("nan "), std::string::npos) << text;
}

TEST(JvdCameras, WhatFollowsTheFirstIsNotLookedAt) {
  EXPECT_EQ(Display(plot3d(camera("") + "<Obj3d Type=\"Camera\"/>")).error, "");
}

TEST(JvdCameras, AnObjectWithoutImageIsAnErrorEvenIfItIsHidden) {
  EXPECT_EQ(Display(plot3d("<Obj3d Type=\"Camera\"/>")).error, "no Img3d");
  EXPECT_EQ(Display(plot3d("<Obj3d Type=\"Camera\" Visible=\"0\"/>" + camera(""))).error,
            "no Img3d");
}

TEST(JvdCameras, AnObjectWithoutCameraInItsImageIsPassedOver) {
  const std::string empty = "<Obj3d Type=\"Camera\"><Img3d><PointLight/></Img3d></Obj3d>";
  EXPECT_EQ(cameras(empty + camera("")), cameras(camera("")));
  EXPECT_EQ(cameras(box3d + empty), defaultView);
}

TEST(JvdCameras, AHiddenObjectIsUsed) {
  EXPECT_EQ(cameras(camera("", "Visible=\"0\"")), cameras(camera("")));
}

TEST(JvdCameras, OnlyObjectsOfTheTypeCameraCount) {
  EXPECT_EQ(cameras(box3d + "<Obj3d Type=\"View\"><Img3d><Camera/></Img3d></Obj3d>"), defaultView);
  EXPECT_EQ(cameras("<Group3d><Obj3d Type=\"View\"><Img3d><Camera/></Img3d></Obj3d></Group3d>"),
            "");
}

TEST(JvdCameras, TheDefaultViewNeedsTheWholeBox) {
  EXPECT_EQ(cameras(box3d), defaultView);
  EXPECT_EQ(cameras(unitBox3d), view("-1.62729 -2.55467 1.03237", "0 0 0", "0.174977"));
  EXPECT_EQ(cameras(box2d), "");
  EXPECT_EQ(cameras(box2d + range('Z', "0", "nan")), "");
}

struct Roll {
  const char* position;
  const char* focalPoint;
  const char* upVector;
  const char* angle;  // null: none
};

void expectRolls(std::initializer_list<Roll> table) {
  for (const Roll& row : table) {
    const std::string block =
        cameras(camera(std::string("Position=\"") + row.position + "\" FocalPoint=\"" +
                       row.focalPoint + "\" UpVector=\"" + row.upVector + "\""));
    const std::string end = "</fieldOfView>\n";
    const std::string rest = block.substr(block.find(end) + end.size());
    const std::string roll = row.angle ? "<roll>" + std::string(row.angle) + "</roll>\n" : "";
    EXPECT_EQ(rest, roll + "</camera>\n</cameras>\n")
        << row.position << ", " << row.focalPoint << ", " << row.upVector;
  }
}

TEST(JvdCameraRoll, UpAlongZIsNoneAndDownAlongZIsUpsideDown) {
  expectRolls({
      {"0 -10 0", "0 0 0", "0 0 1", nullptr},
      {"0 -10 0", "0 0 0", "0 0 7", nullptr},
      {"0 -10 0", "0 0 0", "0 0 -2", "180"},
      {"0 -10 0", "0 0 0", "2e-16 -2e-16 -2", "180"},
      {"0 -10 0", "0 0 0", "0 0 0", nullptr},
  });
}

TEST(JvdCameraRoll, DownAlongZIsUpsideDownWhereverTheCameraLooks) {
  expectRolls({
      {"0 0 10", "0 0 0", "0 0 -1", "180"},
      {"1 2 3", "1 2 3", "0 0 -1", "180"},
  });
}

TEST(JvdCameraRoll, UpAcrossIsARightAngle) {
  expectRolls({
      {"0 -10 0", "0 0 0", "1 0 0", "90"},
      {"0 -10 0", "0 0 0", "-1 0 0", "-90"},
      {"10 0 0", "0 0 0", "0 1 0", "90"},
      {"10 0 0", "0 0 0", "0 -1 0", "-90"},
  });
}

TEST(JvdCameraRoll, IsTheSameFromTheOtherSide) {
  expectRolls({
      {"0 10 0", "0 0 0", "1 0 0", "90"},
      {"-10 0 0", "0 0 0", "0 1 0", "90"},
  });
}

TEST(JvdCameraRoll, IsTheAngleThatTheCameraSees) {
  expectRolls({
      {"0 -10 0", "0 0 0", "1 0 1", "45"},
      {"0 -10 0", "0 0 0", "-1 0 1", "-45"},
      {"0 -10 0", "0 0 0", "1 99 1", "45"},
      {"0 -10 0", "0 0 0", "1 0 -1", "135"},
      {"10 10 10", "0 0 0", "1 0 0", "-120"},
      {"10 10 10", "0 0 0", "0 1 0", "120"},
      {"11 12 13", "1 2 3", "0 1 0", "120"},
      {"3 -4 5", "1 1 1", "0.2 0.3 0.9", "19.3873"},
  });
}

TEST(JvdCameraRoll, InThePlaneOfViewAndZIsNoneOrUpsideDown) {
  expectRolls({
      {"0 -10 0", "0 0 0", "0 1 1", nullptr},
      {"0 -10 0", "0 0 0", "0 1 -1", "180"},
      {"0 -10 0", "0 0 0", "1e-9 0 1", nullptr},
      {"0 -10 0", "0 0 0", "1e-9 0 -1", "180"},
  });
}

TEST(JvdCameraRoll, TakesItsSignFromTheHeightIfTheRestIsSmall) {
  expectRolls({
      {"1e-8 0 10", "0 0 0", "0 1 0", "90"},
      {"1e-8 0 10", "0 0 0", "0 -1 0", "-90"},
      {"1e-8 0 10", "0 0 0", "1 1 0", "135"},
      {"0 -1e-8 10", "0 0 0", "-1 0 0", "-90"},
  });
}

TEST(JvdCameraRoll, IsNoneWithoutADirectionOfView) {
  expectRolls({
      {"1 2 3", "1 2 3", "1 0 0", nullptr},
      {"1e-8 0 0", "0 0 0", "0 1 0", nullptr},
      {"nan 0 0", "0 0 0", "0 1 0", nullptr},
  });
  EXPECT_EQ(cameras(camera("Position=\"1 2 3\" FocalPoint=\"1 2 3\" UpVector=\"1 0 0\"")),
            view("1 2 3", "1 2 3", "0.535898"));
}

TEST(JvdCameraRoll, IsNoneWhenLookingAlongZOrAlongTheUpVector) {
  expectRolls({
      {"0 0 10", "0 0 0", "1 0 0", nullptr},
      {"0 0 -10", "0 0 0", "0 1 0", nullptr},
      {"10 0 0", "0 0 0", "1 0 0", nullptr},
      {"0 -10 0", "0 0 0", "2e-16 3e-16 0", nullptr},
  });
}

TEST(JvdCameras, KeepUpVectorChangesNothing) {
  EXPECT_EQ(cameras(camera("KeepUpVector=\"0\" UpVector=\"1 0 0\"")),
            cameras(camera("UpVector=\"1 0 0\"")));
}

std::string cameras2d(const std::string& content, const std::string& attributes = "") {
  return Display(plot2d(content, attributes, "Width=\"120\" Height=\"80\"")).element("cameras");
}

TEST(JvdCamera2d, IsMissingInItsListIfTheBoxIsUnknown) {
  const std::string none = "<cameras select=\"X-Y\">\n</cameras>\n";
  EXPECT_EQ(cameras2d(""), none);
  EXPECT_EQ(cameras2d(range('X', "0", "1")), none);
  EXPECT_EQ(cameras2d(range('Y', "0", "1")), none);
  EXPECT_EQ(cameras2d(range('X', "0", "1") + range('Y', "1", "1")), none);
  EXPECT_EQ(cameras2d(range('X', "nan", "1") + range('Y', "0", "1")), none);
}

}  // namespace
}  // namespace vantry::javaview
