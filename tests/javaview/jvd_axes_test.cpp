// Axes, rulers and the bounding box.

#include "vantry/javaview/jvd_axes.h"

#include <gtest/gtest.h>

#include <array>

#include "../locale_guard.h"
#include "display.h"
#include "vantry/base/text_errors.h"
#include "vantry/plot/elements/string_elements.h"

namespace vantry::javaview {

using namespace plot;
namespace {

/// The start tag of the axes.
std::string axesTag(const std::string& zrd) {
  const std::string axes = Display(zrd).element("axes");
  return axes.substr(0, axes.find('\n'));
}

/// The ruler of the axis with that number.
std::string ruler(const std::string& zrd, int axis) {
  const std::string text = Display(zrd).text;
  std::size_t at = text.find("<ruler");
  for (int i = 0; i < axis; ++i) at = text.find("<ruler", at + 1);
  const std::string end = "</ruler>\n";
  return text.substr(at, text.find(end, at) + end.size() - at);
}

std::string rulerTag(const std::string& zrd, int axis) {
  const std::string text = ruler(zrd, axis);
  return text.substr(0, text.find('\n'));
}

constexpr std::array<char, 3> axisLetters = {'X', 'Y', 'Z'};

struct Form {
  const char* word;
  const char* type2d;
  const char* type3d;
};

constexpr Form forms[] = {
    {"Boxed", "corner", "bndbox"},  {"Frame", "corner", "bndbox"},
    {"Origin", "center", "center"}, {"Automatic", "center", "center"},
    {"Wobbly", "center", "center"},
};

TEST(JvdAxes, TheFormGivesTheType) {
  for (const Form& form : forms) {
    const std::string attribute = std::string("Axes=\"") + form.word + "\"";
    EXPECT_EQ(axesTag(plot2d("", attribute)),
              std::string("<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"show\" "
                          "dim=\"2\" span=\"xy\" type=\"") +
                  form.type2d + "\">");
    EXPECT_EQ(axesTag(plot3d("", attribute)),
              std::string("<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"show\" "
                          "dim=\"3\" type=\"") +
                  form.type3d + "\">");
  }
}

TEST(JvdAxes, TheFormNoneIsCentredAndHidden) {
  EXPECT_EQ(axesTag(plot2d("", "Axes=\"None\"")),
            "<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"hide\" dim=\"2\" "
            "span=\"xy\" type=\"center\">");
  EXPECT_EQ(axesTag(plot3d("", "Axes=\"None\"")),
            "<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"hide\" dim=\"3\" "
            "type=\"center\">");
}

TEST(JvdAxes, AxesThatAreAllInvisibleAreHidden) {
  const auto isHidden = [](const std::string& zrd) {
    return axesTag(zrd).find("visible=\"hide\"") != std::string::npos;
  };
  const std::string noX = " XAxisVisible=\"0\"";
  const std::string noY = " YAxisVisible=\"0\"";
  const std::string noZ = " ZAxisVisible=\"0\"";
  EXPECT_FALSE(isHidden(plot2d("", noX)));
  EXPECT_FALSE(isHidden(plot2d("", noY)));
  EXPECT_TRUE(isHidden(plot2d("", noX + noY)));
  EXPECT_FALSE(isHidden(plot3d("", noX + noY)));
  EXPECT_FALSE(isHidden(plot3d("", noX + noZ)));
  EXPECT_FALSE(isHidden(plot3d("", noY + noZ)));
  EXPECT_TRUE(isHidden(plot3d("", noX + noY + noZ)));
}

TEST(JvdAxes, AGridShowsEvenAxesThatAreHiddenOtherwise) {
  EXPECT_EQ(axesTag(plot2d("", "Axes=\"None\" XGridVisible=\"1\"")),
            "<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"show\" dim=\"2\" "
            "span=\"xy\" type=\"corner\" longHash=\"ttfttf\">");
  EXPECT_EQ(axesTag(plot3d("",
                           "XAxisVisible=\"0\" YAxisVisible=\"0\" ZAxisVisible=\"0\" "
                           "YGridVisible=\"1\"")),
            "<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"show\" dim=\"3\" "
            "type=\"corner\" longHash=\"tfttft\">");
}

struct Hash {
  const char* axes;
  const char* letters;
};

/// Checks the hash lines of grids and of subgrids, for each form of the axes.
void expectLongHash(std::string (*plot)(const std::string&, const std::string&), const Hash& row) {
  for (const char* grid : {"GridVisible", "SubgridVisible"}) {
    for (const char* form : {"Boxed", "Frame", "Origin", "Automatic", "None"}) {
      std::string attributes = std::string("Axes=\"") + form + "\"";
      for (const char* axis = row.axes; *axis; ++axis) {
        attributes += std::string(" ") + *axis + grid + "=\"1\"";
      }
      const std::string tag = axesTag(plot("", attributes));
      EXPECT_TRUE(tag.ends_with(std::string(" type=\"corner\" longHash=\"") + row.letters + "\">"))
          << attributes << '\n'
          << tag;
    }
  }
}

TEST(JvdAxes, AGridHasHashLinesInThePlanesAtItsAxis) {
  constexpr Hash table[] = {
      {"X", "ttfttf"},  {"Y", "tfttft"},  {"Z", "fttftt"},   {"XY", "tttttt"},
      {"XZ", "tttttt"}, {"YZ", "tttttt"}, {"XYZ", "tttttt"},
  };
  for (const Hash& row : table) {
    expectLongHash([](const std::string& content,
                      const std::string& attributes) { return plot3d(content, attributes); },
                   row);
  }
}

TEST(JvdAxes, AGridIn2dHasTheSameHashLines) {
  constexpr Hash table[] = {{"X", "ttfttf"}, {"Y", "tfttft"}, {"XY", "tttttt"}};
  for (const Hash& row : table) {
    expectLongHash([](const std::string& content,
                      const std::string& attributes) { return plot2d(content, attributes); },
                   row);
  }
}

TEST(JvdAxes, GridAndSubgridOfDifferentAxesAddUp) {
  EXPECT_TRUE(axesTag(plot3d("", "YGridVisible=\"1\" ZSubgridVisible=\"1\""))
                  .ends_with(" type=\"corner\" longHash=\"tttttt\">"));
}

TEST(JvdAxes, OfAnAnimationDoNotFindTheirBounds) {
  const std::string animated =
      "<Canvas><TimeRange TimeBegin=\"0\" TimeEnd=\"1\"/><Scene2d><CoordinateSystem2d/></Scene2d>"
      "</Canvas>";
  EXPECT_EQ(axesTag(animated),
            "<axes autoHashing=\"show\" autoBounds=\"hide\" visible=\"show\" dim=\"2\" "
            "span=\"xy\" type=\"corner\">");
}

bool extendClip(const std::string& content, const std::string& attributes) {
  const ReadDocument plot(plot3d(content, attributes));
  const auto& system = first<CoordinateSystem3d>(plot);
  DisplayOutput out;
  return writeAxes(out, system, false, computeBounds(system, false), false);
}

TEST(JvdAxes, OnlyCentredAxesStrictlyInsideTheBoxKeepTheClipRange) {
  for (const char* form : {"Origin", "Automatic", "None", "Wobbly"}) {
    const std::string attribute = std::string("Axes=\"") + form + "\"";
    EXPECT_FALSE(extendClip(unitBox3d, attribute)) << form;
    EXPECT_TRUE(extendClip(unitBox3d, attribute + " XGridVisible=\"1\"")) << form;
    EXPECT_TRUE(extendClip("", attribute)) << form;
  }
  EXPECT_TRUE(extendClip(unitBox3d, "Axes=\"Boxed\""));
  EXPECT_TRUE(extendClip(unitBox3d, "Axes=\"Frame\""));
}

TEST(JvdAxes, ABoundAtTheOriginExtendsTheClipRange) {
  const std::string origin = "Axes=\"Origin\"";
  const std::string x = range('X', "-1", "1");
  const std::string y = range('Y', "-1", "1");
  const std::string z = range('Z', "-1", "1");
  EXPECT_TRUE(extendClip(range('X', "0", "1") + y + z, origin));
  EXPECT_TRUE(extendClip(range('X', "-1", "0") + y + z, origin));
  EXPECT_TRUE(extendClip(x + range('Y', "0", "1") + z, origin));
  EXPECT_TRUE(extendClip(x + range('Y', "-1", "0") + z, origin));
  EXPECT_TRUE(extendClip(x + y + range('Z', "0", "1"), origin));
  EXPECT_TRUE(extendClip(x + y + range('Z', "-1", "0"), origin));
  EXPECT_TRUE(extendClip(x + y + range('Z', "2", "3"), origin));
}

TEST(JvdAxes, AnUnknownBoundExtendsTheClipRange) {
  EXPECT_TRUE(extendClip(range('X', "-1", "1") + range('Y', "-1", "1"), "Axes=\"Origin\""));
  EXPECT_TRUE(extendClip(range('X', "-1", "1") + range('Y', "-1", "1") + range('Z', "-1", "nan"),
                         "Axes=\"Origin\""));
}

TEST(JvdAxes, In2dTheThirdRulerIsFixed) {
  const std::string axes = Display(plot2d("")).element("axes");
  EXPECT_TRUE(
      axes.ends_with("</ruler>\n"
                     "<ruler visible=\"hide\" name=\"z\" label=\"hide\" "
                     "hashsUp=\"show\"/>\n"
                     "</axes>\n"));
}

TEST(JvdAxes, ARulerShowsWhatItsAxisHas) {
  for (int i = 0; i < 3; ++i) {
    const std::string axis(1, axisLetters[static_cast<std::size_t>(i)]);
    const std::string box = range(axis[0], "-3", "4");
    const std::string attributes = axis +
                                   "TicksBetween=\"3\" AxesLineColor=\"#102030\" "
                                   "AxesLineWidth=\"2\"";
    const std::string content = box + "<" + axis + "AxisTitle>the title</" + axis + "AxisTitle><" +
                                axis + "TicksDistance Val=\"2\"/>";
    const std::string expected =
        "<ruler visible=\"show\" label=\"show\" name=\"the title\" numbers=\"show\" "
        "ticksMajor=\"show\" ticksMinor=\"show\">\n"
        "<minValue>-3</minValue>\n"
        "<maxValue>4</maxValue>\n"
        "<minorUnit>0.5</minorUnit>\n"
        "<majorUnit>2</majorUnit>\n"
        "<color>16 32 48</color>\n"
        "<thickness>7.08661</thickness>\n"
        "</ruler>\n";
    EXPECT_EQ(ruler(plot3d(content, attributes), i), expected);
    if (i < 2) {
      EXPECT_EQ(ruler(plot2d(content, attributes), i), expected);
    }

    const std::string other =
        "<ruler visible=\"show\" numbers=\"show\" ticksMajor=\"show\" ticksMinor=\"show\">\n"
        "<color>16 32 48</color>\n"
        "<thickness>7.08661</thickness>\n"
        "</ruler>\n";
    EXPECT_EQ(ruler(plot3d(content, attributes), (i + 1) % 3), other);
    EXPECT_EQ(ruler(plot3d(content, attributes), (i + 2) % 3), other);
  }
}

TEST(JvdAxes, ARulerIsVisibleWithItsAxisOrItsGrid) {
  for (int i = 0; i < 3; ++i) {
    const std::string axis(1, axisLetters[static_cast<std::size_t>(i)]);
    const std::string invisible = axis + "AxisVisible=\"0\"";
    const auto isVisible = [&](const std::string& attributes) {
      return rulerTag(plot3d("", attributes), i).starts_with("<ruler visible=\"show\"");
    };
    EXPECT_TRUE(isVisible(""));
    EXPECT_FALSE(isVisible(invisible));
    EXPECT_TRUE(isVisible(invisible + " " + axis + "GridVisible=\"1\""));
    EXPECT_TRUE(isVisible(invisible + " " + axis + "SubgridVisible=\"1\""));
    const std::string other(1, axisLetters[static_cast<std::size_t>((i + 1) % 3)]);
    EXPECT_FALSE(isVisible(invisible + " " + other + "GridVisible=\"1\""));
  }
}

struct Ticks {
  const char* labels;
  const char* ticks;
  const char* shown;
};

TEST(JvdAxes, TicksShowWithTheirLabelsEvenIfTheyAreInvisibleThemselves) {
  constexpr Ticks table[] = {
      {"1", "1", "numbers=\"show\" ticksMajor=\"show\" ticksMinor=\"show\""},
      {"1", "0", "numbers=\"show\" ticksMajor=\"show\" ticksMinor=\"show\""},
      {"0", "1", "numbers=\"hide\" ticksMajor=\"show\" ticksMinor=\"show\""},
      {"0", "0", "numbers=\"hide\" ticksMajor=\"hide\" ticksMinor=\"hide\""},
  };
  for (const Ticks& row : table) {
    for (int i = 0; i < 3; ++i) {
      const std::string axis(1, axisLetters[static_cast<std::size_t>(i)]);
      const std::string attributes = axis + "TicksLabelsVisible=\"" + row.labels + "\" " + axis +
                                     "TicksVisible=\"" + row.ticks + "\"";
      EXPECT_EQ(rulerTag(plot3d("", attributes), i),
                std::string("<ruler visible=\"show\" ") + row.shown + ">");
      EXPECT_EQ(rulerTag(plot3d("", attributes), (i + 1) % 3),
                "<ruler visible=\"show\" numbers=\"show\" ticksMajor=\"show\" "
                "ticksMinor=\"show\">");
    }
  }
}

TEST(JvdAxes, AnUnknownRangeIsNotOnTheRuler) {
  const std::string bare =
      "<ruler visible=\"show\" numbers=\"show\" ticksMajor=\"show\" ticksMinor=\"show\">\n"
      "<color>0 0 0</color>\n"
      "<thickness>1</thickness>\n"
      "</ruler>\n";
  EXPECT_EQ(ruler(plot2d(range('X', "nan", "1")), 0), bare);
  EXPECT_EQ(ruler(plot2d(range('X', "1", "nan")), 0), bare);
  EXPECT_EQ(ruler(plot2d(range('X', "1", "1")), 0), bare);
}

TEST(JvdAxes, AThinLineIsOnePixelWide) {
  const auto thickness = [](const std::string& width) {
    const std::string text = ruler(plot2d("", "AxesLineWidth=\"" + width + "\""), 0);
    return text.substr(text.find("<thickness>"));
  };
  EXPECT_EQ(thickness("0.01"), "<thickness>1</thickness>\n</ruler>\n");
  EXPECT_EQ(thickness("0.28"), "<thickness>1</thickness>\n</ruler>\n");
  EXPECT_EQ(thickness("0.3"), "<thickness>1.06299</thickness>\n</ruler>\n");
  EXPECT_EQ(thickness("1"), "<thickness>3.54331</thickness>\n</ruler>\n");
}

/// The attributes of a ruler that come from its title.
std::string titleOf(const std::string& zrd) {
  const std::string tag = rulerTag(zrd, 0);
  const std::string before = "<ruler visible=\"show\"";
  return tag.substr(before.size(), tag.find(" numbers=") - before.size());
}

TEST(JvdAxes, ATitleIsEscaped) {
  EXPECT_EQ(titleOf(plot2d("<XAxisTitle>a &lt; b &amp; \"c\" &gt; d'</XAxisTitle>")),
            " label=\"show\" name=\"a &lt; b &amp; &quot;c&quot; &gt; d&apos;\"");
}

TEST(JvdAxes, ATitleKeepsItsLeadingBlanks) {
  EXPECT_EQ(titleOf(plot2d("<XAxisTitle>  x  </XAxisTitle>")), " label=\"show\" name=\"  x\"");
}

TEST(JvdAxes, WithoutTextThereIsNoLabel) {
  EXPECT_EQ(titleOf(plot2d("")), "");
  EXPECT_EQ(titleOf(plot2d("<XAxisTitle/>")), "");
  EXPECT_EQ(titleOf(plot2d("<XAxisTitle>  </XAxisTitle>")), "");
}

TEST(JvdAxes, ATitleIsAllItsTextsWithoutASeparator) {
  const ReadDocument plot(plot2d("<XAxisTitle/>"));
  PlotDocument& document = *plot.get();
  auto& title = first<XAxisTitle>(plot);
  for (const char* text : {"a", "", "b c", "<"})
    title.appendChild(document.createTextNode(text).get());
  const std::string text = Display(&document).text;
  EXPECT_NE(text.find("<ruler visible=\"show\" label=\"show\" name=\"ab c&lt;\" numbers="),
            std::string::npos);
}

TEST(JvdAxes, ATitleWithoutChildrenIsNone) {
  const ReadDocument plot(plot2d("<XAxisTitle>x</XAxisTitle>"));
  auto& title = first<XAxisTitle>(plot);
  title.removeChild(title.firstChild());
  EXPECT_NE(Display(plot.get()).text.find("<ruler visible=\"show\" numbers="), std::string::npos);
}

TEST(JvdAxes, ATitleMayHoldAnyLetters) {
  const LocaleGuard utf8(LC_CTYPE, "C.UTF-8");
  EXPECT_EQ(titleOf(plot2d("<XAxisTitle>größe α → ∞</XAxisTitle>")),
            " label=\"show\" name=\"größe α → ∞\"");
}

TEST(JvdAxes, ATitleThatTheLocaleDoesNotKnowEndsTheTextBeforeTheLetter) {
  const LocaleGuard ascii(LC_CTYPE, "C");
  const ReadDocument plot(plot2d("<XAxisTitle>gr&#246;&#223;e</XAxisTitle>"));
  JVDWriter writer(plot.get());
  std::ostringstream out;
  EXPECT_THROW(writer.write(out, nan), base::BadUnicodeString);
  EXPECT_TRUE(out.str().ends_with("<ruler visible=\"show\" label=\"show\" name=\"gr"));
}

std::string tickUnits(const std::string& distance, const std::string& between) {
  std::string text = ruler(plot2d(distance, "XTicksBetween=\"" + between + "\""), 0);
  const std::size_t begin = text.find('\n') + 1;
  return text.substr(begin, text.find("<color>") - begin);
}

TEST(JvdAxes, TickUnitsDivideTheDistance) {
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"3\">3</XTicksDistance>", "0"),
            "<minorUnit>3</minorUnit>\n<majorUnit>3</majorUnit>\n");
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"3\"/>", "4"),
            "<minorUnit>0.6</minorUnit>\n<majorUnit>3</majorUnit>\n");
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"2.2204460492503135e-16\"/>", "0"),
            "<minorUnit>2.22045e-16</minorUnit>\n<majorUnit>2.22045e-16</majorUnit>\n");
}

TEST(JvdAxes, TheLargestNumberOfMinorTicksDoesNotOverflow) {
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"2147483648\"/>", "2147483647"),
            "<minorUnit>1</minorUnit>\n<majorUnit>2.14748e+09</majorUnit>\n");
}

TEST(JvdAxes, ANegativeNumberOfMinorTicksMeansNoUnits) {
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"3\"/>", "-1"), "");
}

TEST(JvdAxes, WithoutAPositiveDistanceThereAreNoUnits) {
  EXPECT_EQ(tickUnits("", "0"), "");
  EXPECT_EQ(tickUnits("<XTicksDistance/>", "0"), "");
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"nan\"/>", "0"), "");
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"0\"/>", "0"), "");
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"-3\"/>", "0"), "");
  EXPECT_EQ(tickUnits("<XTicksDistance Val=\"2.220446049250313e-16\"/>", "0"), "");
}

TEST(JvdAxes, TheBoundingBoxIsVisibleIfAllAxesOfTheBoxAre) {
  const auto isVisible = [](const std::string& zrd) {
    const std::string box = Display(zrd).element("bndbox");
    EXPECT_TRUE(box.ends_with(">\n<color>0 0 0</color>\n<thickness>1</thickness>\n</bndbox>\n"));
    EXPECT_TRUE(box.starts_with("<bndbox visible=\"show\">\n") ||
                box.starts_with("<bndbox visible=\"hide\">\n"));
    return box.starts_with("<bndbox visible=\"show\">\n");
  };
  EXPECT_TRUE(isVisible(plot2d("")));
  EXPECT_TRUE(isVisible(plot3d("")));
  for (const char* form : {"Frame", "Origin", "Automatic", "None"}) {
    EXPECT_FALSE(isVisible(plot2d("", std::string("Axes=\"") + form + "\""))) << form;
    EXPECT_FALSE(isVisible(plot3d("", std::string("Axes=\"") + form + "\""))) << form;
  }
  for (const char* invisible : {"XAxisVisible=\"0\"", "YAxisVisible=\"0\""}) {
    EXPECT_FALSE(isVisible(plot2d("", invisible)));
    EXPECT_FALSE(isVisible(plot3d("", invisible)));
  }
  EXPECT_FALSE(isVisible(plot3d("", "ZAxisVisible=\"0\"")));
}

TEST(JvdAxes, AGridDoesNotShowTheBoundingBox) {
  EXPECT_TRUE(Display(plot3d("", "XAxisVisible=\"0\" XGridVisible=\"1\""))
                  .element("bndbox")
                  .starts_with("<bndbox visible=\"hide\">\n"));
}

/// Attributes of a coordinate system that say nothing to a display, each with a value that is not
/// its default.
constexpr const char* unread2d[] = {
    "Name=\"system\"",
    "AutoViewingBox=\"0\"",
    "XAxisTitleAlignment=\"End\"",
    "YAxisTitleAlignment=\"End\"",
    "YAxisTitleOrientation=\"Vertical\"",
    "AxesTips=\"0\"",
    "AxesInFront=\"0\"",
    "AxesTitleFont=\"Courier 20\"",
    "XTicksLabelStyle=\"Vertical\"",
    "YTicksLabelStyle=\"Vertical\"",
    "XTicksNumber=\"None\"",
    "YTicksNumber=\"None\"",
    "TicksLength=\"9\"",
    "TicksLabelFont=\"Courier 20\"",
    "GridLineColor=\"#ff0000\"",
    "SubgridLineColor=\"#ff0000\"",
    "GridLineStyle=\"Solid\"",
    "SubgridLineStyle=\"Solid\"",
    "GridLineWidth=\"9\"",
    "SubgridLineWidth=\"9\"",
    "GridInFront=\"1\"",
    "CoordinateType=\"LogLog\"",
};

TEST(JvdAxes, OtherPropertiesOfACoordinateSystemChangeNothing) {
  const std::string grid = "XGridVisible=\"1\" ";
  const std::string plain = Display(plot2d(box2d, grid)).body();
  for (const char* attribute : unread2d) {
    EXPECT_EQ(Display(plot2d(box2d, grid + attribute)).body(), plain) << attribute;
  }
  const std::string plain3d = Display(plot3d(box3d, grid)).body();
  for (const char* attribute :
       {"ZAxisTitleAlignment=\"End\"", "ZTicksLabelStyle=\"Vertical\"", "ZTicksNumber=\"None\""}) {
    EXPECT_EQ(Display(plot3d(box3d, grid + attribute)).body(), plain3d) << attribute;
  }
}

TEST(JvdAxes, OtherChildrenOfACoordinateSystemChangeNothing) {
  const std::string plain = Display(plot2d(box2d)).body();
  for (const char* child : {"<AxesOriginX Val=\"1\"/>", "<XTicksAnchor Val=\"1\"/>",
                            "<XTicksAt><TickPos><VExpr Val=\"1\"/></TickPos></XTicksAt>",
                            "<Obj2d Type=\"Curve2d\"/>"}) {
    EXPECT_EQ(Display(plot2d(box2d + child)).body(), plain) << child;
  }
}

}  // namespace
}  // namespace vantry::javaview
