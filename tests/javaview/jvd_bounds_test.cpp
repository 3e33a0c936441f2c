// The viewing box, the box ratio and the clip range.

#include "vantry/javaview/jvd_bounds.h"

#include <gtest/gtest.h>

#include <limits>

#include "display.h"
#include "vantry/plot/elements/hints.h"

namespace vantry::javaview {

using namespace plot;
namespace {

constexpr double inf = std::numeric_limits<double>::infinity();

Bounds bounds3d(const std::string& box) {
  const ReadDocument plot(plot3d(box));
  return computeBounds(first<CoordinateSystem3d>(plot), false);
}

Bounds bounds2d(const std::string& box) {
  const ReadDocument plot(plot2d(box));
  return computeBounds(first<CoordinateSystem2d>(plot), true);
}

TEST(JvdBounds, AreThoseOfTheViewingBox) {
  const Bounds bounds = bounds3d(box3d);
  EXPECT_EQ(bounds.x.min, -2);
  EXPECT_EQ(bounds.x.max, 2);
  EXPECT_EQ(bounds.y.min, 0);
  EXPECT_EQ(bounds.y.max, 10);
  EXPECT_EQ(bounds.z.min, -1);
  EXPECT_EQ(bounds.z.max, 3);
  EXPECT_EQ(bounds.span, 10);
  EXPECT_TRUE(bounds.isKnown3d());
}

TEST(JvdBounds, AreUnknownWithoutViewingBox) {
  const Bounds bounds = bounds3d("");
  for (const AxisRange& axis : {bounds.x, bounds.y, bounds.z}) {
    EXPECT_TRUE(std::isnan(axis.min));
    EXPECT_TRUE(std::isnan(axis.max));
    EXPECT_FALSE(axis.isKnown());
  }
  EXPECT_TRUE(std::isnan(bounds.span));
}

TEST(JvdBounds, InThePlaneHaveNoHeight) {
  const Bounds bounds = bounds2d(box2d);
  EXPECT_EQ(bounds.x.min, 0);
  EXPECT_EQ(bounds.y.max, 1);
  EXPECT_TRUE(std::isnan(bounds.z.min));
  EXPECT_TRUE(bounds.isKnown2d());
  EXPECT_FALSE(bounds.isKnown3d());
  EXPECT_EQ(bounds.span, 4);
}

TEST(JvdBounds, AnEmptyRangeIsUnknown) {
  const Bounds bounds = bounds3d(range('X', "1", "1"));
  EXPECT_TRUE(std::isnan(bounds.x.min));
  EXPECT_TRUE(std::isnan(bounds.x.max));
  EXPECT_TRUE(std::isnan(bounds.span));
}

TEST(JvdBounds, ARangeUpsideDownIsUnknown) {
  const Bounds bounds = bounds3d(range('X', "2", "1") + range('Y', "0", "3"));
  EXPECT_TRUE(std::isnan(bounds.x.min));
  EXPECT_TRUE(std::isnan(bounds.x.max));
  EXPECT_EQ(bounds.span, 3);
}

TEST(JvdBounds, OneBoundAloneDoesNotCount) {
  const Bounds bounds = bounds3d("<ViewingBoxZMax Val=\"7\"/>" + range('X', "0", "1"));
  EXPECT_TRUE(std::isnan(bounds.z.min));
  EXPECT_TRUE(std::isnan(bounds.z.max));
  EXPECT_EQ(bounds.span, 1);
}

TEST(JvdBounds, APairWithANanStaysAsItIsAndDoesNotCount) {
  const Bounds bounds = bounds3d(range('X', "nan", "7") + range('Y', "-9", "nan"));
  EXPECT_TRUE(std::isnan(bounds.x.min));
  EXPECT_EQ(bounds.x.max, 7);
  EXPECT_EQ(bounds.y.min, -9);
  EXPECT_TRUE(std::isnan(bounds.y.max));
  EXPECT_FALSE(bounds.x.isKnown());
  EXPECT_FALSE(bounds.y.isKnown());
  EXPECT_TRUE(std::isnan(bounds.span));
}

TEST(JvdBounds, ABoundWithoutValueIsNan) {
  const Bounds bounds = bounds3d("<ViewingBoxXMin/><ViewingBoxXMax Val=\"7\">x</ViewingBoxXMax>");
  EXPECT_TRUE(std::isnan(bounds.x.min));
  EXPECT_EQ(bounds.x.max, 7);
}

TEST(JvdBounds, SpanIsTheLargestSizeOfAnyAxis) {
  EXPECT_EQ(bounds3d(range('X', "0", "5") + range('Y', "0", "2") + range('Z', "0", "1")).span, 5);
  EXPECT_EQ(bounds3d(range('X', "0", "1") + range('Y', "0", "5") + range('Z', "0", "2")).span, 5);
  EXPECT_EQ(bounds3d(range('X', "0", "1") + range('Y', "0", "2") + range('Z', "0", "5")).span, 5);
  EXPECT_EQ(bounds3d(range('Y', "-inf", "5")).span, inf);
}

TEST(JvdBounds, MapABoxFromMinusOneToOneOntoThemselves) {
  const Bounds bounds = bounds3d(box3d);
  EXPECT_EQ(mapToBox(bounds, {-1, -1, -1}), (P3{-2, 0, -1}));
  EXPECT_EQ(mapToBox(bounds, {0, 0, 0}), (P3{0, 5, 1}));
  EXPECT_EQ(mapToBox(bounds, {1, 1, 1}), (P3{2, 10, 3}));
  EXPECT_EQ(mapToBox(bounds, {-3, 2, 0.5}), (P3{-6, 15, 2}));
}

TEST(JvdBounds, TheMapAddsFromLeftToRight) {
  // Added to the upper bound first, the lower one would be lost.
  const Bounds bounds{{-1, 1e16}, {0, 1}, {0, 1}};
  EXPECT_EQ(mapToBox(bounds, {-1, 0, 0}).x, -0.5);
}

struct Scaling {
  const char* attribute;
  const char* hints;
  bool isConstrained;
};

TEST(JvdBounds, ScalingIsThatOfTheSystemAndOtherwiseAHint) {
  const Scaling table[] = {
      {"", "", false},
      {"", "<Hints/>", false},
      {"", "<Hints Scaling=\"Constrained\"/>", true},
      {"", "<Hints Scaling=\"Unconstrained\"/>", false},
      {"", "<Hints Scaling=\"Automatic\"/>", false},
      {"Scaling=\"Automatic\"", "<Hints Scaling=\"Constrained\"/>", true},
      {"Scaling=\"Wobbly\"", "<Hints Scaling=\"Constrained\"/>", true},
      {"Scaling=\"Wobbly\"", "", false},
      {"Scaling=\"Constrained\"", "", true},
      {"Scaling=\"Constrained\"", "<Hints Scaling=\"Unconstrained\"/>", true},
      {"Scaling=\"Unconstrained\"", "<Hints Scaling=\"Constrained\"/>", false},
  };
  for (const Scaling& row : table) {
    const ReadDocument plane(plot2d(row.hints, row.attribute));
    EXPECT_EQ(isConstrained(first<CoordinateSystem2d>(plane)), row.isConstrained)
        << row.attribute << row.hints;
    const ReadDocument space(plot3d(row.hints, row.attribute));
    EXPECT_EQ(isConstrained(first<CoordinateSystem3d>(space)), row.isConstrained)
        << row.attribute << row.hints;
  }
}

std::string boxRatio2d(const std::string& content, const std::string& attributes,
                       const std::string& canvasAttributes) {
  return Display(plot2d(content, attributes, canvasAttributes)).element("boxRatio");
}

TEST(JvdBounds, ACanvasWithoutUsableSizeIsReplacedInBothDimensions) {
  for (const char* attribute : {"Width", "Height"}) {
    for (const double size : {0.0, -1.0, nan}) {
      const ReadDocument plot(plot2d(box2d, "", "Width=\"120\" Height=\"80\""));
      // Such a size cannot be read from a file.
      plot.get()->documentElement()->doSetAttribute(Token::find(attribute),
                                                    base::DoubleVariant(size));
      EXPECT_EQ(Display(plot.get()).element("boxRatio"),
                "<boxRatio visible=\"show\">0.75 1 1</boxRatio>\n")
          << attribute << ' ' << size;
    }
  }
}

TEST(JvdBounds, TheRatioIn2dIsOneForTheCameraUnlessItIsShown) {
  const auto ratio = [](const std::string& content, const std::string& attributes) {
    const ReadDocument plot(plot2d(content, attributes, "Width=\"120\" Height=\"80\""));
    const auto& system = first<CoordinateSystem2d>(plot);
    DisplayOutput out;
    return writeBoxRatio2d(out, system, computeBounds(system, true));
  };
  EXPECT_EQ(ratio(box2d, ""), 0.75);
  EXPECT_EQ(ratio(box2d, "Scaling=\"Constrained\""), 1);
  EXPECT_EQ(ratio(range('X', "0", "4"), ""), 1);
}

TEST(JvdBounds, WithoutRootThereIsNoRatioIn2d) {
  const ReadDocument plot(plot2d(box2d));
  const auto& system = first<CoordinateSystem2d>(plot);
  const Bounds bounds = computeBounds(system, true);
  const base::Ref<dom::Node> root = plot.get()->removeChild(plot.get()->documentElement());
  std::ostringstream text;
  DisplayOutput out;
  out.attach(text);
  EXPECT_EQ(writeBoxRatio2d(out, system, bounds), 1);
  out.flush();
  EXPECT_EQ(text.str(), "");
}

TEST(JvdBounds, UnderARootWithoutSizeThereIsNoRatioIn2d) {
  const ReadDocument plot(plot2d(box2d));
  const base::Ref<dom::Node> canvas = plot.get()->removeChild(plot.get()->documentElement());
  const base::Ref<dom::Node> scene = canvas->removeChild(canvas->firstChild());
  // Such a root cannot be read from a file.
  const base::Ref<PlotElement> root = plot.get()->createElement(Word::Group2d);
  plot.get()->doReplaceChildren(nullptr, 0, root.get());
  root->doReplaceChildren(nullptr, 0, scene.get());
  const Display display(plot.get());
  EXPECT_EQ(display.error, "");
  EXPECT_EQ(display.element("boxRatio"), "");
  EXPECT_TRUE(display.text.ends_with("</jv-disp>\n"));
}

TEST(JvdBounds, WithABoundUnknownThereIsNoRatio) {
  EXPECT_EQ(boxRatio2d(range('X', "0", "4"), "", ""), "");
  EXPECT_EQ(boxRatio2d(range('X', "0", "4") + range('Y', "nan", "1"), "", ""), "");
  EXPECT_EQ(boxRatio2d(range('X', "0", "4") + range('Y', "1", "1"), "", ""), "");
  EXPECT_EQ(Display(plot3d(box2d)).element("boxRatio"), "");
}

std::string boxRatio3d(const std::string& sceneAttributes, const std::string& attributes = "") {
  return Display(plot3d(range('X', "0", "2") + range('Y', "0", "4") + range('Z', "0", "5"),
                        attributes, sceneAttributes))
      .element("boxRatio");
}

TEST(JvdBounds, ARatioOfTheSceneThatIsTooSmallReplacesBoth) {
  // 2 / 4 * 1 and 2 / 5 * 2 / 3
  const std::string replaced = "<boxRatio visible=\"show\">1 0.5 0.266667</boxRatio>\n";
  EXPECT_EQ(boxRatio3d(""), replaced);
  EXPECT_EQ(boxRatio3d("YXRatio=\"3\""), replaced);
  EXPECT_EQ(boxRatio3d("ZXRatio=\"3\""), replaced);
  EXPECT_EQ(boxRatio3d("YXRatio=\"2.220446049250313e-16\" ZXRatio=\"3\""), replaced);
  EXPECT_EQ(boxRatio3d("YXRatio=\"2.2204460492503135e-16\" ZXRatio=\"3\""),
            "<boxRatio visible=\"show\">1 1.11022e-16 1.2</boxRatio>\n");
}

TEST(JvdBounds, ARatioOfTheSceneThatIsNoNumberReplacesBoth) {
  for (const Token name : {Word::YXRatio, Word::ZXRatio}) {
    const ReadDocument plot(plot3d(unitBox3d, "", "YXRatio=\"3\" ZXRatio=\"4\""));
    // Such a ratio cannot be read from a file.
    first<Scene3d>(plot).doSetAttribute(name, base::DoubleVariant(nan));
    EXPECT_EQ(Display(plot.get()).element("boxRatio"),
              "<boxRatio visible=\"show\">1 1 0.666667</boxRatio>\n");
  }
}

std::string clipRange3d(const std::string& content, const std::string& attributes = "") {
  return Display(plot3d(content, attributes)).element("clipRange");
}

TEST(JvdBounds, OnlyKnownAxesAreClipped) {
  EXPECT_EQ(clipRange3d(range('Y', "0", "10")),
            "<clipRange visible=\"show\" autoBounds=\"hide\">\n"
            "<range type=\"Y\">-1 11</range>\n"
            "</clipRange>\n");
  EXPECT_EQ(clipRange3d(range('X', "0", "nan") + range('Z', "0", "1")),
            "<clipRange visible=\"show\" autoBounds=\"hide\">\n"
            "<range type=\"Z\">-0.1 1.1</range>\n"
            "</clipRange>\n");
  EXPECT_EQ(clipRange3d(range('X', "0", "nan") + range('Y', "3", "3")), "");
}

}  // namespace
}  // namespace vantry::javaview
