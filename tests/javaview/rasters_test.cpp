#include "vantry/javaview/emit_rasters.h"

#include <gtest/gtest.h>

#include "property_effect.h"
#include "written.h"

namespace vantry::javaview {

namespace {

// Scales x by 2 and moves y by 10.
const Attributes someTransform{{Word::Row1, "2 0"}, {Word::Shift, "0 10"}};

/// A raster with these corners, faces, neighbours and colours. The number of points is not told.
std::string raster(int cells, const std::string& corners, const std::string& faces,
                   const std::string& neighbours, const std::string& colors) {
  const std::string number = std::to_string(cells);
  return "<geometry>\n"
         "<pointSet dim=\"2\" color=\"hide\" point=\"hide\">\n"
         "<points>\n" +
         corners +
         "</points>\n"
         "</pointSet>\n"
         "<faceSet face=\"show\" color=\"show\" edge=\"hide\">\n"
         "<faces num=\"" +
         number + "\">\n" + faces +
         "</faces>\n"
         "<neighbours num=\"" +
         number + "\">\n" + neighbours +
         "</neighbours>\n"
         "<edges>\n"
         "<thickness>1.77165</thickness>\n"
         "<color>0 0 0</color>\n"
         "</edges>\n"
         "<colors num=\"" +
         number + "\">\n" + colors +
         "</colors>\n"
         "</faceSet>\n" +
         material() + "</geometry>\n";
}

/// A raster of two cells between 0 and 1, side by side.
std::string twoCells(const std::string& colors) {
  return raster(2,
                "<p>0 0</p>\n"
                "<p>0.5 0</p>\n"
                "<p>1 0</p>\n"
                "<p>0 1</p>\n"
                "<p>0.5 1</p>\n"
                "<p>1 1</p>\n",
                "<f>0 1 4 3</f>\n"
                "<f>1 2 5 4</f>\n",
                "<nb>1 -1 -1 -1 </nb>\n"
                "<nb>-1 -1 0 -1 </nb>\n",
                colors);
}

const Attributes two{{Word::XMesh, "2"}};

/// Shows that a raster of these mesh sizes without a single entry is refused before anything of it
/// is written.
template <class Raster, void (*emit)(GeometryOutput&, const Raster&)>
void expectRefusal(const char* xMesh, const char* yMesh, const char* message) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const base::Ref<Raster> empty(new Raster(document.get()));
  empty->setAttributeFromString(Word::XMesh, xMesh);
  empty->setAttributeFromString(Word::YMesh, yMesh);
  EXPECT_EQ(refusal([&](GeometryOutput& out) { emit(out, *empty); }), message);
}

}  // namespace

TEST(ColorArray2dTest, WritesASingleCell) {
  EXPECT_EQ(convert<ColorArray2d>({{}, "#010203"}),
            raster(1,
                   "<p>0 0</p>\n"
                   "<p>1 0</p>\n"
                   "<p>0 1</p>\n"
                   "<p>1 1</p>\n",
                   "<f>0 1 3 2</f>\n", "<nb>-1 -1 -1 -1 </nb>\n", "<c>1 2 3</c>\n"));
}

TEST(ColorArray2dTest, WritesTwoCellsSideBySide) {
  EXPECT_EQ(convert<ColorArray2d>({two, "#ff0000 00ff00"}),
            twoCells("<c>255 0 0</c>\n<c>0 255 0</c>\n"));
}

TEST(ColorArray2dTest, WritesRowsFromTheLowestOn) {
  EXPECT_EQ(convert<ColorArray2d>({{{Word::XMesh, "2"},
                                    {Word::YMesh, "3"},
                                    {Word::XMin, "-1"},
                                    {Word::XMax, "1"},
                                    {Word::YMin, "10"},
                                    {Word::YMax, "11.5"}},
                                   "#010000 #020000\n#030000 #040000\n#050000 #060000"}),
            raster(6,
                   "<p>-1 10</p>\n<p>0 10</p>\n<p>1 10</p>\n"
                   "<p>-1 10.5</p>\n<p>0 10.5</p>\n<p>1 10.5</p>\n"
                   "<p>-1 11</p>\n<p>0 11</p>\n<p>1 11</p>\n"
                   "<p>-1 11.5</p>\n<p>0 11.5</p>\n<p>1 11.5</p>\n",
                   "<f>0 1 4 3</f>\n<f>1 2 5 4</f>\n"
                   "<f>3 4 7 6</f>\n<f>4 5 8 7</f>\n"
                   "<f>6 7 10 9</f>\n<f>7 8 11 10</f>\n",
                   "<nb>1 2 -1 -1 </nb>\n<nb>-1 3 0 -1 </nb>\n"
                   "<nb>3 4 -1 0 </nb>\n<nb>-1 5 2 1 </nb>\n"
                   "<nb>5 -1 -1 2 </nb>\n<nb>-1 -1 4 3 </nb>\n",
                   "<c>1 0 0</c>\n<c>2 0 0</c>\n"
                   "<c>3 0 0</c>\n<c>4 0 0</c>\n"
                   "<c>5 0 0</c>\n<c>6 0 0</c>\n"));
}

TEST(ColorArray2dTest, TakesBoundsThatAreTurnedRoundOrNoNumbers) {
  const auto corners = [](const std::string& xMin, const std::string& xMax) {
    const std::string text =
        convert<ColorArray2d>({{{Word::XMin, xMin}, {Word::XMax, xMax}}, "#000000"});
    const std::size_t begin = text.find("<p>");
    return text.substr(begin, text.find("</points>") - begin);
  };
  EXPECT_EQ(corners("1", "-1"), "<p>1 0</p>\n<p>-1 0</p>\n<p>1 1</p>\n<p>-1 1</p>\n");
  EXPECT_EQ(corners("nan", "1"), "<p>nan 0</p>\n<p>nan 0</p>\n<p>nan 1</p>\n<p>nan 1</p>\n");
}

TEST(ColorArray2dTest, PassesOverTheAlphaOfItsCells) {
  EXPECT_EQ(convert<ColorArray2d>({two, "#ff000000 #00ff0080"}),
            twoCells("<c>255 0 0</c>\n<c>0 255 0</c>\n"));
}

TEST(ColorArray2dTest, PassesOverEntriesThatAreTooMany) {
  EXPECT_EQ(convert<ColorArray2d>({two, "#ff0000 #00ff00 #0000ff"}),
            twoCells("<c>255 0 0</c>\n<c>0 255 0</c>\n"));
}

TEST(ColorArray2dTest, StaysWhereItIsWithinATransform) {
  EXPECT_EQ(convert<ColorArray2d>({two, "#ff0000 #00ff00", someTransform}),
            convert<ColorArray2d>({two, "#ff0000 #00ff00"}));
}

TEST(ColorArray2dTest, RefusesFewerEntriesThanCells) {
  const char* message = "not enough points in ColorArray2d";
  expectRefusal<ColorArray2d, emitColorArray2d>("1", "1", message);
  expectRefusal<ColorArray2d, emitColorArray2d>("65536", "65536", message);
  expectRefusal<ColorArray2d, emitColorArray2d>("2147483647", "2147483647", message);
}

namespace {

/// What the properties do that both rasters have, in a document with two cells and entries for
/// four. `colors` are the colours of as many cells. LinesVisible changes the attribute alone: the
/// edges are written in any case.
std::vector<PropertyEffect> effectsOfAGrid(const std::string& oneColor,
                                           const std::string& fourColors) {
  return {
      {Word::XMesh,
       "1",
       {{"", raster(1, "<p>0 0</p>\n<p>1 0</p>\n<p>0 1</p>\n<p>1 1</p>\n", "<f>0 1 3 2</f>\n",
                    "<nb>-1 -1 -1 -1 </nb>\n", oneColor)}}},
      {Word::YMesh,
       "2",
       {{"", raster(4,
                    "<p>0 0</p>\n<p>0.5 0</p>\n<p>1 0</p>\n"
                    "<p>0 0.5</p>\n<p>0.5 0.5</p>\n<p>1 0.5</p>\n"
                    "<p>0 1</p>\n<p>0.5 1</p>\n<p>1 1</p>\n",
                    "<f>0 1 4 3</f>\n<f>1 2 5 4</f>\n<f>3 4 7 6</f>\n<f>4 5 8 7</f>\n",
                    "<nb>1 2 -1 -1 </nb>\n<nb>-1 3 0 -1 </nb>\n"
                    "<nb>3 -1 -1 0 </nb>\n<nb>-1 -1 2 1 </nb>\n",
                    fourColors)}}},
      {Word::XMin,
       "-1",
       {{"<p>0 0</p>\n<p>0.5 0</p>", "<p>-1 0</p>\n<p>0 0</p>"},
        {"<p>0 1</p>\n<p>0.5 1</p>", "<p>-1 1</p>\n<p>0 1</p>"}}},
      {Word::XMax,
       "2",
       {{"<p>0.5 0</p>\n<p>1 0</p>", "<p>1 0</p>\n<p>2 0</p>"},
        {"<p>0.5 1</p>\n<p>1 1</p>", "<p>1 1</p>\n<p>2 1</p>"}}},
      {Word::YMin,
       "0.25",
       {{"<p>0 0</p>\n<p>0.5 0</p>\n<p>1 0</p>", "<p>0 0.25</p>\n<p>0.5 0.25</p>\n<p>1 0.25</p>"}}},
      {Word::YMax,
       "3",
       {{"<p>0 1</p>\n<p>0.5 1</p>\n<p>1 1</p>", "<p>0 3</p>\n<p>0.5 3</p>\n<p>1 3</p>"}}},
      {Word::LinesVisible, "true", {{"edge=\"hide\"", "edge=\"show\""}}},
      {Word::LineWidth, "1", {{"<thickness>1.77165</", "<thickness>3.54331</"}}},
      {Word::LineColor, "#010203", {{"<color>0 0 0</color>\n</e", "<color>1 2 3</color>\n</e"}}},
      {Word::LineColor,
       "#fa000000",
       {{"<color>0 0 0</color>\n</e", "<color>255 85 85</color>\n</e"}}},
  };
}

}  // namespace

TEST(ColorArray2dTest, ShowsItsProperties) {
  expectPropertyEffects<ColorArray2d>(
      {two, "#ff0000 #00ff00 #0000ff #ffffff"},
      effectsOfAGrid("<c>255 0 0</c>\n",
                     "<c>255 0 0</c>\n<c>0 255 0</c>\n<c>0 0 255</c>\n<c>255 255 255</c>\n"));
}

namespace {

/// The colours of these densities side by side, between 0 and 10 and with these attributes.
std::string colorsOf(const std::string& densities, int count, Attributes attributes) {
  attributes[Word::XMesh] = std::to_string(count);
  const std::string text = convert<DensityArray2d>({attributes, densities});
  const std::string head = "<colors num=\"" + std::to_string(count) + "\">\n";
  const std::size_t begin = text.find(head) + head.size();
  return text.substr(begin, text.find("</colors>") - begin);
}

Attributes between(const std::string& color, const std::string& color2, const std::string& type) {
  return {{Word::FillColor, color}, {Word::FillColor2, color2}, {Word::FillColorType, type}};
}

const Attributes fromRedToBlue = between("#c80000", "#0000c8", "Dichromatic");

}  // namespace

TEST(DensityArray2dTest, WritesTwoCellsSideBySide) {
  Attributes attributes = fromRedToBlue;
  attributes[Word::XMesh] = "2";
  EXPECT_EQ(convert<DensityArray2d>({attributes, "3 7"}),
            twoCells("<c>200 0 0</c>\n<c>0 0 200</c>\n"));
}

TEST(DensityArray2dTest, GivesTheSmallestDensityTheFirstColorAndTheLargestTheSecond) {
  EXPECT_EQ(colorsOf("7 -3 2", 3, fromRedToBlue),
            "<c>0 0 200</c>\n<c>200 0 0</c>\n<c>100 0 100</c>\n");
}

TEST(DensityArray2dTest, IsBlackAtTheLargestDensityWithOneColor) {
  EXPECT_EQ(colorsOf("0 5 10", 3, between("#c86432", "#ffffff", "Monochrome")),
            "<c>200 100 50</c>\n<c>100 50 25</c>\n<c>0 0 0</c>\n");
}

TEST(DensityArray2dTest, GoesTheLongWayRoundTheRainbow) {
  EXPECT_EQ(colorsOf("0 5 10", 3, between("#ff0000", "#0000ff", "Rainbow")),
            "<c>255 0 0</c>\n<c>0 255 0</c>\n<c>0 0 255</c>\n");
  EXPECT_EQ(colorsOf("0 5 10", 3, between("#0000ff", "#ff0000", "Rainbow")),
            "<c>0 0 255</c>\n<c>0 255 0</c>\n<c>255 0 0</c>\n");
}

// From yellow, at 60 degrees, the long way leads to a red at 360. From 300 on all hues are taken
// for the last sixth of the circle, which at its beginning is magenta.
TEST(DensityArray2dTest, EndsARainbowBeyondTheCircleInMagenta) {
  EXPECT_EQ(colorsOf("0 5 10", 3, between("#ffff00", "#ff0000", "Rainbow")),
            "<c>255 255 0</c>\n<c>0 127 255</c>\n<c>255 0 255</c>\n");
}

// Only three words name a way to colour by value; the others colour by a rainbow of black.
TEST(DensityArray2dTest, IsBlackWithAColorTypeThatIsNotByValue) {
  const std::string threeBlack = "<c>0 0 0</c>\n<c>0 0 0</c>\n<c>0 0 0</c>\n";
  EXPECT_EQ(colorsOf("0 5 10", 3, between("#ff0000", "#0000ff", "Flat")), threeBlack);
  EXPECT_EQ(colorsOf("0 5 10", 3, between("#ff0000", "#0000ff", "Functional")), threeBlack);
  EXPECT_EQ(colorsOf("0 5 10", 3, between("#ff0000", "#0000ff", "Anything")), threeBlack);
  EXPECT_EQ(colorsOf("0 5 10", 3, {}), threeBlack);
}

TEST(DensityArray2dTest, HasTheFirstColorWhenAllDensitiesAreEqual) {
  for (const char* type : {"Flat", "Monochrome", "Dichromatic", "Rainbow", "Functional"}) {
    EXPECT_EQ(colorsOf("4 4", 2, between("#010203", "#0000ff", type)),
              "<c>1 2 3</c>\n<c>1 2 3</c>\n");
  }
}

TEST(DensityArray2dTest, IsBlackWhereADensityIsNoNumber) {
  EXPECT_EQ(colorsOf("0 nan 10", 3, fromRedToBlue),
            "<c>200 0 0</c>\n<c>0 0 0</c>\n<c>0 0 200</c>\n");
}

TEST(DensityArray2dTest, IsAllBlackWhenTheFirstDensityIsNoNumber) {
  for (const char* type : {"Monochrome", "Dichromatic", "Rainbow"}) {
    EXPECT_EQ(colorsOf("nan 0 10", 3, between("#ff0000", "#0000ff", type)),
              "<c>0 0 0</c>\n<c>0 0 0</c>\n<c>0 0 0</c>\n");
  }
}

TEST(DensityArray2dTest, PassesOverEntriesThatAreTooMany) {
  EXPECT_EQ(colorsOf("0 10 -1000 1000", 2, fromRedToBlue), "<c>200 0 0</c>\n<c>0 0 200</c>\n");
}

TEST(DensityArray2dTest, StaysWhereItIsWithinATransform) {
  EXPECT_EQ(convert<DensityArray2d>({two, "3 7", someTransform}),
            convert<DensityArray2d>({two, "3 7"}));
}

TEST(DensityArray2dTest, RefusesFewerEntriesThanCells) {
  const char* message = "not enough points in DensityArray2d";
  expectRefusal<DensityArray2d, emitDensityArray2d>("1", "1", message);
  expectRefusal<DensityArray2d, emitDensityArray2d>("65536", "65536", message);
  expectRefusal<DensityArray2d, emitDensityArray2d>("2147483647", "2147483647", message);
}

TEST(DensityArray2dTest, ShowsItsProperties) {
  Attributes attributes = fromRedToBlue;
  attributes[Word::XMesh] = "2";
  // With two more cells the densities go from 0 to 20; with one cell they are all equal.
  std::vector<PropertyEffect> effects = effectsOfAGrid(
      "<c>200 0 0</c>\n", "<c>150 0 50</c>\n<c>100 0 100</c>\n<c>200 0 0</c>\n<c>0 0 200</c>\n");
  const std::string colors = "<c>200 0 0</c>\n<c>0 0 200</c>\n";
  effects.insert(
      effects.end(),
      {
          {Word::FillColor, "#640000", {{colors, "<c>100 0 0</c>\n<c>0 0 200</c>\n"}}},
          {Word::FillColor, "#c8000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::FillColor2, "#00c800", {{colors, "<c>200 0 0</c>\n<c>0 200 0</c>\n"}}},
          {Word::FillColorType, "Monochrome", {{colors, "<c>200 0 0</c>\n<c>0 0 0</c>\n"}}},
          {Word::FillColorType, "Flat", {{colors, "<c>0 0 0</c>\n<c>0 0 0</c>\n"}}},
      });
  expectPropertyEffects<DensityArray2d>({attributes, "5 10 0 20"}, effects);
}

}  // namespace vantry::javaview
