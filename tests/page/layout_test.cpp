#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "read_page.h"

namespace vantry::page {

namespace {

using Places = std::vector<std::string>;

/// The places of the scenes of a canvas of 100 by 50 millimetres, as "left top width height" in
/// percent.
Places places(const std::string& attributes, int scenes, const std::string& ofScene = "") {
  std::string document = "<Canvas Width=\"100\" Height=\"50\" " + attributes + ">";
  for (int i = 0; i < scenes; ++i) {
    document += "<Scene2d " + ofScene + "><CoordinateSystem2d/></Scene2d>";
  }
  const ReadPage page = pageOf(document + "</Canvas>");
  Places all;
  for (const auto& panel : page.text.at("panels")) {
    std::string text;
    for (const char* side : {"left", "top", "width", "height"}) {
      const double part = panel.at("place").at(side);
      text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(part * 100 + 0.5));
    }
    all.push_back(text);
  }
  return all;
}

TEST(LayoutTest, IsATableOfAboutAsManyColumnsAsRows) {
  EXPECT_EQ(places("", 1), (Places{"0 0 100 100"}));
  EXPECT_EQ(places("", 2), (Places{"0 0 50 100", "50 0 50 100"}));
  EXPECT_EQ(places("", 3), (Places{"0 0 50 50", "50 0 50 50", "0 50 50 50"}));
}

TEST(LayoutTest, HasTheRowsAndColumnsThatAreAskedFor) {
  EXPECT_EQ(places("Columns=\"1\"", 2), (Places{"0 0 100 50", "0 50 100 50"}));
  EXPECT_EQ(places("Rows=\"2\"", 2), (Places{"0 0 100 50", "0 50 100 50"}));
  EXPECT_EQ(places("Rows=\"1\"", 2), (Places{"0 0 50 100", "50 0 50 100"}));
  EXPECT_EQ(places("Columns=\"2000000000\"", 2), (Places{"0 0 50 100", "50 0 50 100"}));
}

TEST(LayoutTest, IsARowOrAColumn) {
  EXPECT_EQ(places("Layout=\"Horizontal\"", 4).at(3), "75 0 25 100");
  EXPECT_EQ(places("Layout=\"Vertical\"", 4).at(3), "0 75 100 25");
}

TEST(LayoutTest, LeavesMarginsAndSpacing) {
  // What is left is 80 by 40, in two columns of 35 with 10 between them.
  EXPECT_EQ(places("LeftMargin=\"15\" RightMargin=\"5\" TopMargin=\"2\" BottomMargin=\"8\" "
                   "Spacing=\"10\"",
                   2),
            (Places{"15 4 35 80", "60 4 35 80"}));
}

TEST(LayoutTest, IsWhatTheScenesSay) {
  const std::string scene = R"(Width="30" Height="10" )";
  EXPECT_EQ(places("Layout=\"Absolute\"", 1, scene + R"(Left="20" Bottom="5")"),
            (Places{"20 70 30 20"}));
  EXPECT_EQ(places("Layout=\"Relative\"", 1, scene + R"(Left="0.2" Bottom="0.1")"),
            (Places{"20 70 30 20"}));
}

}  // namespace

}  // namespace vantry::page
