#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "../temporary_folder.h"
#include "conversion.h"

namespace vantry::javaview {

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

/// A folder of its own for the files of an animation.
class Folder : public TemporaryFolder {
 public:
  std::string operator/(const std::string& name) const { return path() / name; }

  /// The files, in the order of their names; those below folders are not counted.
  Strings files() const {
    Strings names;
    for (const auto& entry : fs::directory_iterator(path())) {
      if (!entry.is_directory()) names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  std::string read(const std::string& name) const { return fileContent(path() / name); }

  void write(const std::string& name, const std::string& content) const {
    std::ofstream(path() / name) << content;
  }
};

/// A writer that keeps what it is asked, and writes the time in place of a document.
class Listener : public JVXWriter {
 public:
  using JVXWriter::JVXWriter;

  void write(std::ostream& stream, double time) override {
    times.push_back(time);
    stream << time;
  }

  bool confirmOverwrite(const char* fileName, bool& overwriteAll) override {
    asked.push_back(fs::path(fileName).filename());
    return agrees && JVXWriter::confirmOverwrite(fileName, overwriteAll);
  }

  bool agrees = true;
  std::vector<double> times;
  Strings asked;
};

std::string documentWith(const std::string& begin, const std::string& end,
                         const std::string& content = "") {
  return "<Canvas><TimeRange TimeBegin=\"" + begin + "\" TimeEnd=\"" + end +
         "\"/><Scene3d><CoordinateSystem3d>" + content + "</CoordinateSystem3d></Scene3d></Canvas>";
}

std::vector<double> timesOf(const std::string& begin, const std::string& end, int frames) {
  const Folder folder;
  const ReadDocument document(documentWith(begin, end));
  Listener writer(document.get());
  writer.writeAnimation(frames, (folder / "film").c_str());
  EXPECT_EQ(folder.files().size(), writer.times.size());
  return writer.times;
}

Strings filesOf(const Folder& folder, const std::string& fileName) {
  const ReadDocument document(documentWith("0", "1"));
  Listener(document.get()).writeAnimation(1, (folder / fileName).c_str());
  return folder.files();
}

std::string errorOf(JVXWriter& writer, const std::string& fileName) {
  try {
    writer.writeAnimation(1, fileName.c_str());
  } catch (const JavaViewExportError& error) {
    return error.what();
  }
  return "";
}

}  // namespace

TEST(AnimationTest, NumbersFilesBeforeTheLastDot) {
  EXPECT_EQ(filesOf(Folder(), "movie.jvx"), (Strings{"movie.1.jvx", "movie.2.jvx"}));
  EXPECT_EQ(filesOf(Folder(), "a.movie.jvx"), (Strings{"a.movie.1.jvx", "a.movie.2.jvx"}));
  EXPECT_EQ(filesOf(Folder(), ".jvx"), (Strings{".1.jvx", ".2.jvx"}));
  EXPECT_EQ(filesOf(Folder(), "movie."), (Strings{"movie.1.", "movie.2."}));
}

TEST(AnimationTest, NumbersFilesWithoutDotAtTheEnd) {
  EXPECT_EQ(filesOf(Folder(), "movie"), (Strings{"movie.1", "movie.2"}));
}

// The last dot may be that of a folder. That is deliberate.
TEST(AnimationTest, LooksForTheDotInTheWholeName) {
  const Folder folder;
  fs::create_directory(folder / "a.b");
  fs::create_directory(folder / "a.1.b");
  fs::create_directory(folder / "a.2.b");
  EXPECT_EQ(filesOf(folder, "a.b/film"), Strings());
  EXPECT_EQ(folder.read("a.1.b/film"), "0");
  EXPECT_EQ(folder.read("a.2.b/film"), "1");
}

TEST(AnimationTest, EndsAtTheEndOfTheRange) {
  EXPECT_EQ(timesOf("0", "1", 3), (std::vector<double>{0, 1. / 3, 2. / 3, 1}));
  EXPECT_EQ(timesOf("0", "1", 2), (std::vector<double>{0, 0.5, 1}));
  EXPECT_EQ(timesOf("2", "3.5", 1), (std::vector<double>{2, 3, 3.5}));
  EXPECT_EQ(timesOf("0", "0.1", 1), (std::vector<double>{0, 0.1}));
  EXPECT_EQ(timesOf("0", "10", 1), (std::vector<double>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

// A tenth summed up a hundred times stays below 10, which makes one file more than a count would.
TEST(AnimationTest, SumsTimesUpStepByStep) {
  const std::vector<double> times = timesOf("0", "10", 10);
  ASSERT_EQ(times.size(), 102U);
  EXPECT_LT(times[100], 10);
  EXPECT_EQ(times[101], 10);
}

// Where the next time would be the same, there is nothing between it and the end.
TEST(AnimationTest, EndsWhereTheStepIsTooSmallForTheTimes) {
  EXPECT_EQ(timesOf("1e17", "2e17", 1), (std::vector<double>{1e17, 2e17}));
  EXPECT_EQ(timesOf("9007199254740991", "9007199254740996", 1),
            (std::vector<double>{9007199254740991, 9007199254740992, 9007199254740996}));
}

TEST(AnimationTest, WritesOneFileForARangeWithoutLength) {
  EXPECT_EQ(timesOf("3", "3", 25), std::vector<double>{3});
  EXPECT_EQ(timesOf("3", "1", 25), std::vector<double>{3});
  EXPECT_EQ(timesOf("0", "1e-16", 25), std::vector<double>{0});
}

TEST(AnimationTest, RefusesARangeThatIsNotFinite) {
  const Folder folder;
  for (const auto& [begin, end] :
       {std::pair("0", "inf"), std::pair("-inf", "0"), std::pair("-inf", "inf"),
        std::pair("inf", "inf"), std::pair("0", "-inf"), std::pair("0", "nan"),
        std::pair("nan", "0")}) {
    const ReadDocument document(documentWith(begin, end));
    JVXWriter writer(document.get());
    EXPECT_EQ(errorOf(writer, folder / "film"), "time range too large") << begin << " to " << end;
  }
  EXPECT_EQ(folder.files(), Strings());
}

// A file that may not be replaced ends the animation before a million files are written.
TEST(AnimationTest, RefusesARangeOfMoreThanAMillionFrames) {
  const struct {
    const char* begin;
    const char* end;
    const char* error;
  } rows[] = {{"0", "999999", ""},
              {"0", "999999.5", "time range too large"},
              {"0", "1000000", "time range too large"},
              {"0", "1e9", "time range too large"},
              {"-1e308", "1e308", "time range too large"},
              {"1e9", "0", ""}};
  for (const auto& [begin, end, error] : rows) {
    const Folder folder;
    folder.write("film.1", "precious");
    const ReadDocument document(documentWith(begin, end));
    Listener writer(document.get());
    writer.agrees = false;
    EXPECT_EQ(errorOf(writer, folder / "film"), error) << begin << " to " << end;
    EXPECT_EQ(writer.asked.size(), *error ? 0U : 1U);
    EXPECT_EQ(folder.files(), Strings{"film.1"});
    EXPECT_EQ(folder.read("film.1"), "precious");
  }
}

TEST(AnimationTest, ReplacesFilesAndAsksOnce) {
  const Folder folder;
  folder.write("film", "as it was");
  folder.write("film.2", "a long text of an earlier run");
  folder.write("film.3", "another one");
  const ReadDocument document(documentWith("0", "2"));
  Listener writer(document.get());
  writer.writeAnimation(1, (folder / "film").c_str());
  EXPECT_EQ(folder.files(), (Strings{"film", "film.1", "film.2", "film.3"}));
  EXPECT_EQ(folder.read("film.2"), "1");
  EXPECT_EQ(folder.read("film.3"), "2");
  EXPECT_EQ(folder.read("film"), "as it was");
  EXPECT_EQ(writer.asked, Strings{"film.2"});
}

TEST(AnimationTest, EndsQuietlyWhenAFileMayNotBeReplaced) {
  const Folder folder;
  folder.write("film.2", "precious");
  const ReadDocument document(documentWith("0", "2"));
  Listener writer(document.get());
  writer.agrees = false;
  writer.writeAnimation(1, (folder / "film").c_str());
  EXPECT_EQ(folder.files(), (Strings{"film.1", "film.2"}));
  EXPECT_EQ(folder.read("film.2"), "precious");
}

TEST(AnimationTest, AgreesToReplaceAllFiles) {
  JVXWriter writer(nullptr);
  bool overwriteAll = false;
  EXPECT_TRUE(writer.confirmOverwrite("film.1", overwriteAll));
  EXPECT_TRUE(overwriteAll);
}

TEST(AnimationTest, NeedsATimeRange) {
  const Folder folder;
  const ReadDocument document("<Canvas><Scene3d></Scene3d></Canvas>");
  JVXWriter writer(document.get());
  EXPECT_EQ(errorOf(writer, folder / "film"), "not an animation");
  EXPECT_EQ(folder.files(), Strings());
  JVXWriter without(nullptr);
  EXPECT_EQ(errorOf(without, folder / "film"), "not an animation");
}

TEST(AnimationTest, NeedsFilesThatCanBeOpened) {
  const Folder folder;
  const ReadDocument document(documentWith("0", "2"));
  JVXWriter writer(document.get());
  EXPECT_EQ(errorOf(writer, folder / "missing/film"), "Can not open output file.");
}

TEST(AnimationTest, NoticesAFileThatTakesNothing) {
  const Folder folder;
  fs::create_symlink("/dev/full", folder / "film.2");
  const ReadDocument document(documentWith("0", "2"));
  JVXWriter writer(document.get());
  EXPECT_EQ(errorOf(writer, folder / "film"), "Can not write output file.");
  EXPECT_EQ(folder.files(), (Strings{"film.1", "film.2"}));
}

TEST(AnimationTest, LeavesFilesUpToAnError) {
  const Folder folder;
  const ReadDocument document(documentWith(
      "0", "2", "<Obj3d Type=\"Box\" TimeBegin=\"1\" VisibleBeforeBegin=\"false\"></Obj3d>"));
  JVXWriter writer(document.get());
  EXPECT_EQ(errorOf(writer, folder / "film.jvx"), "no Img3d");
  EXPECT_EQ(folder.files(), (Strings{"film.1.jvx", "film.2.jvx"}));
  EXPECT_EQ(withoutHeader(folder.read("film.1.jvx")),
            "<geometries>\n</geometries>\n</jvx-model>\n");
  EXPECT_EQ(withoutHeader(folder.read("film.2.jvx")), "<geometries>\n");
}

TEST(AnimationTest, WritesWholeDocuments) {
  const Folder folder;
  const ReadDocument document(
      documentWith("0", "1",
                   "<Obj3d Type=\"Box\" TimeBegin=\"0\" TimeEnd=\"1\">"
                   "<ParameterBegin Val=\"0\"/><ParameterEnd Val=\"1\"/>"
                   "<Img3d Param=\"0\"><Pts3d><P3>1 0 0</P3></Pts3d></Img3d>"
                   "<Img3d Param=\"1\"><Pts3d><P3>2 0 0</P3></Pts3d></Img3d></Obj3d>"));
  JVXWriter(document.get()).writeAnimation(1, (folder / "film.jvx").c_str());
  for (const auto& [name, point] : {std::pair("film.1.jvx", "<p>1 0 0</p>\n"),  //
                                    std::pair("film.2.jvx", "<p>2 0 0</p>\n")}) {
    const std::string text = folder.read(name);
    EXPECT_TRUE(text.starts_with("<?xml version=\"1.0\"")) << name;
    EXPECT_TRUE(text.ends_with("</geometries>\n</jvx-model>\n")) << name;
    EXPECT_NE(text.find(point), std::string::npos) << name;
  }
}

TEST(AnimationTest, WarnsOncePerFrame) {
  const Folder folder;
  const ReadDocument document(
      "<Canvas><TimeRange TimeBegin=\"0\" TimeEnd=\"1\"/>"
      "<Scene3d><CoordinateSystem3d></CoordinateSystem3d></Scene3d><Scene2d></Scene2d></Canvas>");
  WarningsWriter<JVXWriter> writer(document.get());
  writer.writeAnimation(1, (folder / "film").c_str());
  EXPECT_EQ(writer.warnings, (Strings{"more than one scene", "more than one scene"}));
}

}  // namespace vantry::javaview
