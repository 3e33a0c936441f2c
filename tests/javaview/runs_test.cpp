// Which object the geometries of a model belong to.

#include <gtest/gtest.h>

#include <filesystem>

#include "../locale_guard.h"
#include "conversion.h"

namespace vantry::javaview {

using namespace plot;

namespace {

/// Geometries of one primitive, which follow each other in the model.
struct GeometryRun {
  std::string object;
  std::string primitive;
  std::int64_t count;

  bool operator==(const GeometryRun&) const = default;
};
using Runs = std::vector<GeometryRun>;

void PrintTo(const GeometryRun& run, std::ostream* out) {
  *out << run.count << " of " << run.primitive << " in " << run.object;
}

std::string nameOf(const ObjectBase& object) {
  const Variant name = object.getPropertyValue(Word::Name);
  const char* text = name.as<base::FixedStringVariant>()->get().c_str();
  return text ? text : "";
}

/// A writer that keeps the runs.
class RunsWriter : public WarningsWriter<JVXWriter> {
 public:
  using WarningsWriter::WarningsWriter;
  void geometriesWritten(const ObjectBase& object, const PlotElement& primitive,
                         std::int64_t count) override {
    runs.push_back({nameOf(object), primitive.tagName().str(), count});
  }
  Runs runs;
};

Runs runsOf(const std::string& source, std::size_t scene = 0) {
  const ReadDocument document(source);
  RunsWriter writer(document.get(), scene);
  std::ostringstream out;
  writer.write(out, nan);
  return writer.runs;
}

}  // namespace

TEST(RunsTest, FollowTheObjectsAndPrimitivesInTheOrderOfTheModel) {
  const std::string point = "<Pts3d><P3>1 2 3</P3></Pts3d>";
  const std::string cone = "<Cone TopRadius=\"1\" BaseRadius=\"2\"/>";
  const auto object = [](const std::string& name, const std::string& primitives) {
    return "<Obj3d Type=\"Cone\" Name=\"" + name + "\"><Img3d>" + primitives + "</Img3d></Obj3d>";
  };
  EXPECT_EQ(runsOf("<Canvas><Scene3d><CoordinateSystem3d>" + object("first", point + cone) +
                   "<Group3d>" + object("second", cone) + "</Group3d>" + object("third", point) +
                   "</CoordinateSystem3d></Scene3d></Canvas>"),
            (Runs{{"first", "Pts3d", 1},
                  {"first", "Cone", 2},
                  {"second", "Cone", 2},
                  {"third", "Pts3d", 1}}));
}

TEST(RunsTest, LeaveOutWhatIsNotWritten) {
  EXPECT_EQ(runsOf("<Canvas><Scene2d><CoordinateSystem2d>"
                   "<Obj2d Type=\"PointList2d\" Name=\"hidden\" Visible=\"false\">"
                   "<Img2d><Pt2d/></Img2d></Obj2d>"
                   "<Obj2d Type=\"PointList2d\" Name=\"shown\"><Img2d><Pts2d "
                   "PointsVisible=\"false\"><P2>1 2</P2></Pts2d><Pt2d/></Img2d></Obj2d>"
                   "</CoordinateSystem2d></Scene2d></Canvas>"),
            (Runs{{"shown", "Pt2d", 1}}));
}

TEST(RunsTest, BelongToTheChosenScene) {
  const auto scene = [](const std::string& name) {
    return "<Scene2d><CoordinateSystem2d><Obj2d Type=\"Point2d\" Name=\"" + name +
           "\"><Img2d><Pt2d/></Img2d></Obj2d></CoordinateSystem2d></Scene2d>";
  };
  const std::string canvas = "<Canvas>" + scene("left") + scene("right") + "</Canvas>";
  EXPECT_EQ(runsOf(canvas, 0), (Runs{{"left", "Pt2d", 1}}));
  EXPECT_EQ(runsOf(canvas, 1), (Runs{{"right", "Pt2d", 1}}));
}

TEST(RunsTest, AccountForAllGeometriesOfTheExamples) {
  const LocaleGuard guard(LC_CTYPE, "C.UTF-8");  // some have letters beyond ASCII
  int models = 0;
  for (const auto& entry : std::filesystem::directory_iterator(VANTRY_SOURCE_DIR "/examples")) {
    if (entry.path().extension() != ".zrd") continue;
    SCOPED_TRACE(entry.path().filename().string());
    const ReadDocument document(fileContent(entry.path()));
    RunsWriter writer(document.get(), 0);
    std::ostringstream out;
    writer.write(out, nan);
    std::size_t geometries = 0;
    for (const GeometryRun& run : writer.runs) geometries += static_cast<std::size_t>(run.count);
    EXPECT_EQ(geometries, countOf("<geometry>", out.str()));
    EXPECT_EQ(withoutHeader(out.str()), JvxConversion(document.get()).body());
    ++models;
  }
  EXPECT_GT(models, 40);
}

}  // namespace vantry::javaview
