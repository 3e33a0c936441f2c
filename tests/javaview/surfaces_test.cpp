#include "vantry/javaview/emit_surfaces.h"

#include <gtest/gtest.h>

#include "property_effect.h"
#include "vantry/javaview/export_error.h"
#include "written.h"

namespace vantry::javaview {

using namespace plot;

namespace {

using Strings = std::vector<std::string>;

/// The points of a surface, and how they are written.
struct Points {
  std::string content() const {
    std::string text;
    for (const std::string& point : points) text += "<P3>" + point + "</P3>";
    return text;
  }
  std::string list(std::size_t count) const {
    std::string text = "<points num=\"" + std::to_string(count) + "\">\n";
    for (std::size_t i = 0; i < count; ++i) text += "<p>" + points[i] + "</p>\n";
    return text + "<thickness>3.54331</thickness>\n<color>0 0 0</color>\n</points>\n";
  }
  Strings points;
};

std::string pointSet(const std::string& color, const std::string& point,
                     const std::string& content) {
  return "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"" + color + "\" point=\"" +
         point + "\">\n" + content + "</pointSet>\n";
}

/// `<colors>` with the number that it declares, and the entries that it has.
std::string colors(int declared, const Strings& entries, const std::string& end = "\n") {
  std::string text = "<colors num=\"" + std::to_string(declared) + "\">\n";
  for (const std::string& entry : entries) text += "<c>" + entry + "</c>\n";
  return text + "</colors>" + end;
}

const Attributes twoByTwo{{Word::UMesh, "2"}, {Word::VMesh, "2"}};
const Attributes threeByTwo{{Word::UMesh, "3"}, {Word::VMesh, "2"}};

/// The first four are those of a grid of two by two; the others serve for finer grids.
const Points sixPoints{{"0 0 0", "1 0 0", "0 1 0", "1 1 10", "4 0 0", "5 0 0"}};

// What a filled grid of two by two is made of.
constexpr char faceOfFour[] =
    "<faces num=\"1\">\n<f>0 1 3 2</f>\n<color>255 0 0</color>\n</faces>\n"
    "<neighbours num=\"1\">\n<nb>-1 -1 -1 -1</nb>\n</neighbours>\n";
constexpr char blackEdges[] =
    "<edges>\n<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</edges>\n";

// The lines of that grid.
constexpr char linesOfFour[] =
    "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n"
    "<lines num=\"4\">\n<l>0 1</l>\n<l>2 3</l>\n<l>0 2</l>\n<l>1 3</l>\n"
    "<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</lines>\n</lineSet>\n";

std::string filledFour() {
  return pointSet("hide", "show", sixPoints.list(4)) +
         "<faceSet face=\"show\" edge=\"show\" color=\"hide\" colorFromPoints=\"hide\" "
         "colorSmooth=\"hide\">\n" +
         faceOfFour + blackEdges + "</faceSet>\n" + material() + "</geometry>\n";
}

std::string wireFour() {
  return pointSet("hide", "show", sixPoints.list(4)) + linesOfFour + material() + "</geometry>\n";
}

std::string errorOf(const Attributes& attributes, std::size_t points) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  const base::Ref<Mesh3d> mesh(new Mesh3d(document.get()));
  for (const auto& [name, value] : attributes) mesh->setAttributeFromString(name, value.c_str());
  mesh->points.resize(points);
  std::string error;
  const std::string text = written([&](GeometryOutput& out) {
    try {
      emitMesh3d(out, *mesh);
    } catch (const JavaViewExportError& failure) {
      error = failure.what();
    }
  });
  EXPECT_EQ(text.empty(), !error.empty());
  return error;
}

}  // namespace

TEST(Mesh3dTest, NeedsAsManyPointsAsTheGridHas) {
  const std::string error = "not enough points in Mesh3d";
  EXPECT_EQ(errorOf(threeByTwo, 5), error);
  EXPECT_EQ(errorOf(threeByTwo, 6), "");
  EXPECT_EQ(errorOf(threeByTwo, 7), "");
  EXPECT_EQ(errorOf(twoByTwo, 0), error);
  EXPECT_EQ(errorOf(with(threeByTwo, {{Word::USubmesh, "1"}}), 9), error);
  EXPECT_EQ(errorOf(with(threeByTwo, {{Word::USubmesh, "1"}}), 10), "");
}

TEST(Mesh3dTest, RefusesEnormousGrids) {
  const std::string error = "not enough points in Mesh3d";
  const std::string most = "2147483647";
  EXPECT_EQ(errorOf({{Word::UMesh, most}, {Word::VMesh, most}}, 100), error);
  EXPECT_EQ(errorOf({{Word::UMesh, most},
                     {Word::VMesh, most},
                     {Word::USubmesh, most},
                     {Word::VSubmesh, most}},
                    100),
            error);
  EXPECT_EQ(errorOf({{Word::UMesh, "1"}, {Word::VMesh, most}}, 100), error);
  EXPECT_EQ(errorOf({{Word::UMesh, "65536"}, {Word::VMesh, "65536"}}, 100), error);
  EXPECT_EQ(
      errorOf(
          {{Word::UMesh, "1"}, {Word::VMesh, "1"}, {Word::USubmesh, most}, {Word::VSubmesh, most}},
          1),
      "");
}

TEST(Mesh3dTest, ShowsItsPropertiesWhenFilled) {
  const std::string withoutFaces =
      pointSet("hide", "show", sixPoints.list(2)) + material() + "</geometry>\n";
  const std::string refinedSix =
      "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\">\n" +
      Points{{"0 0 0", "0 1 0", "1 1 10", "5 0 0"}}.list(4) + "</pointSet>\n" + material() +
      "</geometry>\n" + pointSet("hide", "hide", sixPoints.list(6)) +
      "<faceSet face=\"show\" edge=\"show\" color=\"hide\" colorFromPoints=\"hide\" "
      "colorSmooth=\"hide\">\n"
      "<faces num=\"2\">\n<f>0 1 4 3</f>\n<f>1 2 5 4</f>\n<color>255 0 0</color>\n</faces>\n"
      "<neighbours num=\"2\">\n<nb>1 -1 -1 -1</nb>\n<nb>-1 -1 0 -1</nb>\n</neighbours>\n" +
      blackEdges + "</faceSet>\n" + material() + "</geometry>\n";
  const std::string refinedRows =
      edited(refinedSix, {{Points{{"0 0 0", "0 1 0", "1 1 10", "5 0 0"}}.list(4),
                           Points{{"0 0 0", "1 0 0", "4 0 0", "5 0 0"}}.list(4)},
                          {"<f>0 1 4 3</f>\n<f>1 2 5 4</f>\n", "<f>0 1 3 2</f>\n<f>2 3 5 4</f>\n"},
                          {"<nb>1 -1 -1 -1</nb>\n<nb>-1 -1 0 -1</nb>\n",
                           "<nb>-1 1 -1 -1</nb>\n<nb>-1 -1 -1 0</nb>\n"}});
  const auto colored = [](const Strings& ofPoints, const std::string& ofFace) {
    return std::vector<Edit>{
        {"color=\"hide\" point", "color=\"show\" point"},
        {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
        {"</points>\n", "</points>\n" + colors(4, ofPoints)},
        {"</edges>\n", "</edges>\n" + colors(1, {ofFace})}};
  };
  expectPropertyEffects<Mesh3d>(
      {twoByTwo, sixPoints.content()},
      {
          {Word::UMesh, "1", {{"", withoutFaces}}},
          {Word::VMesh, "1", {{"", withoutFaces}}},
          {Word::USubmesh, "1", {{"", refinedSix}}},
          {Word::VSubmesh, "1", {{"", refinedRows}}},
          {Word::PointsVisible, "false", {{"point=\"show\"", "point=\"hide\""}}},
          {Word::Filled, "false", {{"", wireFour()}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineWidth, "2", {{"<thickness>1.77165<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
            {"<color>0 0 0</color>\n</edges>", "<color>1 2 3</color>\n</edges>"}}},
          {Word::LineColor,
           "#00000000",
           {{"<color>0 0 0</color>\n</edges>", "<color>85 85 85</color>\n</edges>"}}},
          {Word::FillColor, "#010203", {{"<color>255 0 0</color>", "<color>1 2 3</color>"}}},
          {Word::FillColor,
           "#ff000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::FillColorType, "Monochrome",
           colored({"0 0 0", "0 0 0", "0 0 0", "255 0 0"}, "64 0 0")},
          {Word::FillColorType, "Dichromatic",
           colored({"255 255 0", "255 255 0", "255 255 0", "255 0 0"}, "255 191 0")},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

TEST(Mesh3dTest, ShowsItsPropertiesAsAWire) {
  const Attributes wire = with(twoByTwo, {{Word::Filled, "false"}});
  const std::string ofPairs = "<lines num=\"1\">\n<l>0 1</l>\n";
  const auto lessLines = [&](const std::string& lines) {
    return std::vector<Edit>{
        {sixPoints.list(4), sixPoints.list(2)},
        {"<lines num=\"4\">\n<l>0 1</l>\n<l>2 3</l>\n<l>0 2</l>\n<l>1 3</l>\n", lines}};
  };
  const auto refinedBy = [&](const Strings& shown, const std::string& lines) {
    return std::vector<Edit>{
        {"", "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\">\n" +
                 Points{shown}.list(4) + "</pointSet>\n" + material() + "</geometry>\n" +
                 pointSet("hide", "hide", sixPoints.list(6)) +
                 "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n" +
                 lines +
                 "<thickness>1.77165</thickness>\n<color>0 0 0</color>\n</lines>\n</lineSet>\n" +
                 material() + "</geometry>\n"}};
  };
  expectPropertyEffects<Mesh3d>(
      {wire, sixPoints.content()},
      {
          {Word::UMesh, "1", lessLines(ofPairs)},
          {Word::VMesh, "1", lessLines(ofPairs)},
          {Word::USubmesh, "1",
           refinedBy({"0 0 0", "0 1 0", "1 1 10", "5 0 0"},
                     "<lines num=\"6\">\n<l>0 1</l>\n<l>1 2</l>\n<l>3 4</l>\n<l>4 5</l>\n"
                     "<l>0 3</l>\n<l>2 5</l>\n")},
          {Word::VSubmesh, "1",
           refinedBy({"0 0 0", "1 0 0", "4 0 0", "5 0 0"},
                     "<lines num=\"6\">\n<l>0 1</l>\n<l>4 5</l>\n"
                     "<l>0 2</l>\n<l>1 3</l>\n<l>2 4</l>\n<l>3 5</l>\n")},
          {Word::PointsVisible, "false", {{"point=\"show\"", "point=\"hide\""}}},
          {Word::Filled, "true", {{"", filledFour()}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineWidth, "2", {{"<thickness>1.77165<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"},
            {"<color>0 0 0</color>\n</lines>", "<color>1 2 3</color>\n</lines>"}}},
          {Word::LineColor,
           "#00000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{"color=\"hide\" point", "color=\"show\" point"},
            {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
            {"</points>\n", "</points>\n" + colors(4, {"0 0 255", "0 0 255", "0 0 255", "0 0 0"})},
            {"</lines>\n", "</lines>\n" + colors(4, {"0 0 255", "0 0 255", "0 0 128", "0 0 0",  //
                                                     "0 0 255", "0 0 128", "0 0 128", "0 0 0"})}}},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

// Surf3d.

namespace {

Attributes ofType(const std::string& type, const Attributes& more = {}) {
  return with({{Word::Type, type}}, more);
}

const Points threePoints{{"0 0 0", "1 0 5", "0 1 10"}};

const Attributes wireOnly{{Word::Filled, "false"}, {Word::MeshVisible, "true"}};

constexpr char plainFaceSet[] =
    "<faceSet face=\"show\" edge=\"hide\" color=\"hide\" colorFromPoints=\"hide\" "
    "colorEdge=\"hide\" colorSmooth=\"hide\">\n";
constexpr char endOfFaces[] = "<color>255 0 0</color>\n</faces>\n";
constexpr char plainLineSet[] =
    "<lineSet color=\"hide\" colorFromPoints=\"hide\" colorSmooth=\"hide\">\n";

}  // namespace

TEST(Surf3dTest, RefusesUnknownTypesAfterThePoints) {
  const auto convertDirectly = [](const Attributes& attributes, std::string& error) {
    const base::Ref<PlotDocument> document(new PlotDocument);
    const base::Ref<Surf3d> surface(new Surf3d(document.get()));
    for (const auto& [name, value] :
         with(attributes, {{Word::LineColorType, "Flat"}, {Word::FillColorType, "Flat"}})) {
      surface->setAttributeFromString(name, value.c_str());
    }
    surface->points.resize(3);
    return written([&](GeometryOutput& out) {
      try {
        emitSurf3d(out, *surface);
      } catch (const JavaViewExportError& failure) {
        error = failure.what();
      }
    });
  };
  for (const char* type : {"Lines", "Spheres", ""}) {  // none is "Lines"
    const auto typed = [type](const Attributes& attributes) {
      return *type ? ofType(type, attributes) : attributes;
    };
    std::string error;
    const std::string filled = convertDirectly(typed({{Word::Filled, "true"}}), error);
    EXPECT_EQ(error, "unknown Surf3d type");
    EXPECT_TRUE(filled.ends_with("</points>\n</pointSet>\n"));

    error.clear();
    const std::string wire = convertDirectly(typed(wireOnly), error);
    EXPECT_EQ(error, "unknown Surf3d type");
    EXPECT_TRUE(wire.ends_with("</points>\n</pointSet>\n"));

    error.clear();
    const std::string points =
        convertDirectly(typed({{Word::Filled, "false"}, {Word::MeshVisible, "false"}}), error);
    EXPECT_EQ(error, "");
    EXPECT_TRUE(points.ends_with("</geometry>\n"));
  }
}

TEST(Surf3dTest, ShowsItsPropertiesWhenFilled) {
  const std::string wire =
      pointSet("hide", "hide", threePoints.list(3)) + material() + "</geometry>\n";
  expectPropertyEffects<Surf3d>(
      {ofType("Triangles"), threePoints.content()},
      {
          {Word::Type, "Quads", {{"", wire}}},
          {Word::PointsVisible, "true", {{"point=\"hide\"", "point=\"show\""}}},
          {Word::MeshVisible,
           "true",
           {{" edge=\"hide\"", " edge=\"show\""},
            {"<neighbours num=\"0\"/>\n", std::string("<neighbours num=\"0\"/>\n") + blackEdges}}},
          {Word::Filled, "false", {{"", wire}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"}}},
          {Word::FillColor, "#010203", {{"<color>255 0 0</color>", "<color>1 2 3</color>"}}},
          {Word::FillColor,
           "#ff000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::FillColorType,
           "Dichromatic",
           {{"color=\"hide\" point", "color=\"show\" point"},
            {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
            {"</points>\n", "</points>\n" + colors(3, {"255 255 0", "255 128 0", "255 0 0"})},
            {"<neighbours num=\"0\"/>\n", "<neighbours num=\"0\"/>\n" + colors(1, {"255 128 0"})}}},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

TEST(Surf3dTest, ShowsItsPropertiesAsAWire) {
  expectPropertyEffects<Surf3d>(
      {ofType("Triangles", wireOnly), threePoints.content()},
      {
          {Word::Type,
           "TriangleStrip",
           {{"<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n", "<l>1 2</l>\n<l>2 0</l>\n"}}},
          {Word::PointsVisible, "true", {{"point=\"hide\"", "point=\"show\""}}},
          {Word::MeshVisible,
           "false",
           {{std::string(plainLineSet) +
                 "<lines num=\"3\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>\n</lines>\n</lineSet>\n",
             ""}}},
          {Word::Filled,
           "true",
           {{"", pointSet("hide", "hide", threePoints.list(3)) +
                     edited(plainFaceSet, {{"edge=\"hide\"", "edge=\"show\""}}) +
                     "<faces num=\"1\">\n<f>0 1 2</f>\n" + endOfFaces +
                     "<neighbours num=\"0\"/>\n" + blackEdges + "</faceSet>\n" + material() +
                     "</geometry>\n"}}},
          {Word::PointSize, "4", {{"<thickness>3.54331<", "<thickness>7.08661<"}}},
          {Word::LineColor,
           "#010203",
           {{"<color>0 0 0</color>\n</points>", "<color>1 2 3</color>\n</points>"}}},
          {Word::LineColor,
           "#00000080",
           {{"<transparency visible=\"hide\">0<", "<transparency visible=\"show\">0.498039<"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{"color=\"hide\" point", "color=\"show\" point"},
            {"color=\"hide\" colorFromPoints=\"hide\"", "color=\"show\" colorFromPoints=\"show\""},
            {"</points>\n", "</points>\n" + colors(3, {"0 0 255", "0 0 128", "0 0 0"})},
            {"</lines>\n", "</lines>\n" + colors(3, {"0 0 191", "0 0 0", "0 0 0"}, "")}}},
          {Word::Shading, "Smooth", {{"<material>", "<material shading=\"gouraud\">"}}},
      });
}

}  // namespace vantry::javaview
