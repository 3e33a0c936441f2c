#include "vantry/javaview/emit_rasters.h"

#include <gtest/gtest.h>

#include "property_effect.h"
#include "written.h"

namespace vantry::javaview {

using namespace plot;

namespace {

/// A raster with these corners, faces, neighbours and colours. The number of points is not written.
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

const Attributes fromRedToBlue{{Word::FillColor, "#c80000"},
                               {Word::FillColor2, "#0000c8"},
                               {Word::FillColorType, "Dichromatic"}};

}  // namespace

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
