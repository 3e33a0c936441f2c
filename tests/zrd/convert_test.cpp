// zrd convert: many documents, to the bytes of vantry.

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "../driver/documents.h"
#include "../zrd_command.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Strings = std::vector<std::string>;

const fs::path examples = fs::path(VANTRY_SOURCE_DIR) / "examples";

const std::string brokenDocument = "<Canvas>\n  <Scene2d></Canvas>\n";
const std::string brokenLine = "broken.zrd:2:14: not well-formed XML\n";

/// The way out for an output that would replace an input.
const std::string elsewhere = "; --output-dir or --name puts it elsewhere\n";

class Convert : public ZrdCommandTest {
 protected:
  Convert() : ZrdCommandTest("convert") {}

  /// Succeeds and says nothing but the summary.
  void expectConverted(const Strings& arguments, const std::string& summary) const {
    const Outcome outcome = command(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, summary + '\n');
  }

  /// What vantry writes; the arguments are those before the output.
  std::string byVantry(Strings arguments) {
    setProgram(VANTRY_PROGRAM);
    arguments.insert(arguments.end(), {"-o", "by_vantry"});
    EXPECT_EQ(run(arguments).status, 0);
    setProgram(ZRD_PROGRAM);
    const std::string text = read("by_vantry");
    fs::remove(folder_.path() / "by_vantry");
    return undated(text);
  }

  void makeFolder(const std::string& name) const { fs::create_directories(folder_.path() / name); }

  /// Makes a file as old as that many hours before now.
  void age(const std::string& name, int hours) const {
    fs::last_write_time(folder_.path() / name, fs::file_time_type::clock::now() - hours * 1h);
  }

  /// The permissions of a file.
  unsigned modeOf(const std::string& name) const {
    return static_cast<unsigned>(fs::status(folder_.path() / name).permissions());
  }

  bool hasTemporaryFile() const { return files().find(".zrd-") != std::string::npos; }
};

/// A document whose text cannot be written: it ends within a character.
const std::string unwritableDocument =
    "<Canvas xmlns=\"http://plots.example/xml/Corvane\"><Scene2d><CoordinateSystem2d>"
    "<Obj2d Type=\"Text2d\"><Img2d><Text2d Position=\"0 0\">\xe2\x82\xac</Text2d>"
    "</Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>\n";

}  // namespace

TEST_F(Convert, WritesTheBytesOfVantry) {
  expectConverted({"--to", "both", "--output-dir", "all", examples}, "49 converted");
  expectConverted({"--to", "both", "--time", "2.5", "--output-dir", "timed", "--jobs", "3",
                   examples / "camera_animated.zrd", examples / "surface_animated.zrd"},
                  "2 converted");
  std::size_t compared = 0;
  for (const auto& entry : fs::recursive_directory_iterator(examples)) {
    if (entry.path().extension() != ".zrd") continue;
    const fs::path name = entry.path().lexically_relative(examples);
    const std::string all = fs::path("all") / name.parent_path() / name.stem();
    EXPECT_EQ(undated(read(all + ".jvx")), byVantry({entry.path()})) << name;
    EXPECT_EQ(undated(read(all + ".jvd")), byVantry({"-d", entry.path()})) << name;
    compared += 2;
  }
  EXPECT_EQ(compared, 98U);
  for (const std::string name : {"camera_animated", "surface_animated"}) {
    const std::string input = examples / (name + ".zrd");
    EXPECT_EQ(undated(read("timed/" + name + ".jvx")), byVantry({"-t", "2.5", input}));
    EXPECT_EQ(undated(read("timed/" + name + ".jvd")), byVantry({"-d", "-t", "2.5", input}));
  }
}

TEST_F(Convert, WritesAnimationsAsVantryDoes) {
  const fs::path input = examples / "surface_animated.zrd";
  makeFolder("vantry");
  setProgram(VANTRY_PROGRAM);
  ASSERT_EQ(run({"-f", "2", "-o", "vantry/surface_animated.jvx", input}).status, 0);
  setProgram(ZRD_PROGRAM);
  expectConverted({"--frames", "2", "--output-dir", "zrd", input}, "1 converted");

  std::size_t frames = 0;
  for (const auto& entry : fs::directory_iterator(folder_.path() / "vantry")) {
    const std::string name = entry.path().filename();
    EXPECT_EQ(undated(read("zrd/" + name)), undated(read("vantry/" + name))) << name;
    ++frames;
  }
  EXPECT_GT(frames, 2U);
  const fs::directory_iterator written(folder_.path() / "zrd");
  EXPECT_EQ(static_cast<std::size_t>(std::distance(begin(written), end(written))), frames);
}

// The document itself is right, so that no check explains it.
TEST_F(Convert, RefusesMoreFramesThanAnAnimationMayHave) {
  write("movie.zrd",
        "<Canvas><TimeRange TimeBegin=\"0\" TimeEnd=\"1e6\"/>"
        "<Scene2d><CoordinateSystem2d/></Scene2d></Canvas>");
  const Outcome outcome = command({"--frames", "2", "movie.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "movie.zrd: --frames 2 makes more than 1000000 frames\n0 converted, 1 failed\n");
  EXPECT_EQ(files(), "movie.zrd");
}

TEST_F(Convert, AnAnimationWithoutATimeRangeIsOneFile) {
  write("plot.zrd", staticDocument);
  const Outcome outcome = command({"--frames", "5", "plot.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "plot.zrd: warning: no animation, --frames ignored\n1 converted\n");
  EXPECT_EQ(files(), "plot.jvx plot.zrd");
  EXPECT_EQ(undated(read("plot.jvx")), emptyJvx);
}

TEST_F(Convert, IgnoresIdsAsVantryDoes) {
  write("plot.zrd",
        "<Canvas id=\"1\" xmlns=\"http://plots.example/xml/Corvane\">"
        "<Scene3d id=\"1\"><CoordinateSystem3d id=\"x\"/></Scene3d></Canvas>\n");
  expectConverted({"plot.zrd"}, "1 converted");
  EXPECT_EQ(undated(read("plot.jvx")), byVantry({"plot.zrd"}));
}

TEST_F(Convert, WarnsOfWhatVantryWarnsOf) {
  write("plot.zrd",
        "<Canvas xmlns=\"http://plots.example/xml/Corvane\">"
        "<Scene3d><CoordinateSystem3d/></Scene3d><Scene3d/></Canvas>\n");
  const Outcome outcome = command({"--time", "1", "plot.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "plot.zrd: warning: not an animation\n"
            "plot.zrd: warning: more than one scene\n"
            "1 converted\n");
}

TEST_F(Convert, FoldersAreWalked) {
  makeFolder("plots/deep/er");
  write("plots/a.zrd", staticDocument);
  write("plots/notes.txt", "no plot");
  write("plots/deep/er/b.zrd", staticDocument);
  write("c.zrd", staticDocument);

  expectConverted({"plots", "c.zrd"}, "3 converted");
  EXPECT_TRUE(exists("plots/a.jvx") && exists("plots/deep/er/b.jvx") && exists("c.jvx"));
  EXPECT_FALSE(exists("plots/notes.jvx"));

  expectConverted({"--output-dir", "out/of/it", "plots", "c.zrd"}, "3 converted");
  EXPECT_TRUE(exists("out/of/it/a.jvx"));
  EXPECT_TRUE(exists("out/of/it/deep/er/b.jvx"));
  EXPECT_TRUE(exists("out/of/it/c.jvx"));
}

TEST_F(Convert, AFolderThatCannotBeMadeIsAFailure) {
  write("plot.zrd", staticDocument);
  EXPECT_EQ(errorOf({"--output-dir", "plot.zrd", "plot.zrd"}, 2),
            "plot.zrd: plot.zrd cannot be made: Not a directory\n0 converted, 1 failed\n");
  EXPECT_EQ(files(), "plot.zrd");
}

TEST_F(Convert, AFolderWithoutPlotsIsAFailure) {
  makeFolder("plots/empty.zrd");
  write("plots/plot.xml", staticDocument);
  write("a.zrd", staticDocument);
  EXPECT_EQ(errorOf({"plots"}, 2), "no plots (*.zrd) in plots\n0 converted, 1 failed\n");
  EXPECT_EQ(errorOf({"--keep-going", "a.zrd", "plots"}, 2),
            "no plots (*.zrd) in plots\n1 converted, 1 failed\n");
}

TEST_F(Convert, ADocumentThatComesTwiceIsConvertedOnce) {
  makeFolder("plots");
  write("plots/a.zrd", staticDocument);
  expectConverted({"plots", "plots/a.zrd", "./plots/../plots/a.zrd"}, "1 converted");
}

TEST_F(Convert, ListsNameDocuments) {
  makeFolder("plots");
  for (const char* name : {"a.zrd", "b c.zrd", "plots/d.zrd"}) write(name, staticDocument);
  write("lines", "a.zrd\n\nb c.zrd\nplots");
  expectConverted({"--files-from", "lines"}, "3 converted");
  EXPECT_EQ(files(), "a.jvx a.zrd b c.jvx b c.zrd lines plots");
  EXPECT_TRUE(exists("plots/d.jvx"));

  write("windows", "a.zrd\r\n\r\nb c.zrd\r\n");
  expectConverted({"--files-from", "windows"}, "2 converted");

  write("a\nb.zrd", staticDocument);
  write("zeros", std::string("a.zrd\0a\nb.zrd\0", 14));
  expectConverted({"--files-from", "zeros"}, "2 converted");
  EXPECT_TRUE(exists("a\nb.jvx"));
}

TEST_F(Convert, AListMayComeFromStandardInput) {
  write("a.zrd", staticDocument);
  write("-", staticDocument);
  write("list", "a.zrd\n-\n");
  setWrapper({"/bin/sh", "-c", "exec \"$@\" < list", "sh"});
  expectConverted({"-"}, "2 converted");
  expectConverted({"--files-from", "-"}, "2 converted");
  EXPECT_TRUE(exists("-.jvx"));
}

TEST_F(Convert, AListThatCannotBeReadIsAFailure) {
  EXPECT_EQ(command({"--files-from", "none"}).err,
            "none: cannot be opened: No such file or directory\n0 converted, 1 failed\n");
  EXPECT_EQ(command({"--files-from", "."}).err,
            ".: cannot be read: Is a directory\n0 converted, 1 failed\n");
}

// Nothing may be left to do, as behind "find -newer".
TEST_F(Convert, AListWithoutNamesIsNoFailure) {
  for (const char* list : {"", "\n", "\r\n"}) {
    write("list", list);
    const Outcome outcome = command({"--files-from", "list"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "list: warning: there is no name in the list\n0 converted\n");
  }
  setWrapper({"/bin/sh", "-c", "exec \"$@\" < list", "sh"});
  EXPECT_EQ(command({"-"}).err, "-: warning: there is no name in the list\n0 converted\n");
}

TEST_F(Convert, OutputsAreCalledByAPattern) {
  write("plot.zrd", staticDocument);
  expectConverted({"--to", "both", "--name", "{ext}/{name}-of-{name}.{ext}.xml", "plot.zrd"},
                  "1 converted");
  EXPECT_TRUE(exists("jvx/plot-of-plot.jvx.xml"));
  EXPECT_TRUE(exists("jvd/plot-of-plot.jvd.xml"));

  write("{name}{ext}.zrd", staticDocument);
  expectConverted({"{name}{ext}.zrd"}, "1 converted");
  EXPECT_TRUE(exists("{name}{ext}.jvx"));
}

TEST_F(Convert, WrongUsage) {
  write("plot.zrd", staticDocument);
  const std::string help = " (see zrd convert --help)\n";
  EXPECT_EQ(errorOf({"--frames", "5", "--to", "jvd", "plot.zrd"}, 1),
            "zrd: --frames: only JVX files can be animated" + help);
  EXPECT_EQ(errorOf({"--to", "both", "--name", "{name}", "plot.zrd"}, 1),
            "zrd: --name: two kinds of outputs need an {ext} in the pattern" + help);
  EXPECT_EQ(errorOf({"--name", "/{name}", "plot.zrd"}, 1),
            "zrd: --name: a pattern is relative to the folder of the outputs" + help);
  const std::string known =
      "; {name} stands for the name of the plot without its extension, {ext} for jvx or jvd" + help;
  EXPECT_EQ(errorOf({"--name", "", "plot.zrd"}, 1),
            "zrd: --name: a pattern cannot be empty" + known);
  EXPECT_EQ(errorOf({"--name", "{name}-{foo}.{ext}", "plot.zrd"}, 1),
            "zrd: --name: there is no {foo}" + known);
  EXPECT_EQ(errorOf({"--name", "{}", "plot.zrd"}, 1), "zrd: --name: there is no {}" + known);
  EXPECT_EQ(errorOf({"--name", "{name", "plot.zrd"}, 1),
            "zrd: --name: there is a { without a }" + known);
  EXPECT_EQ(errorOf({"--name", "{name}.ext}", "plot.zrd"}, 1),
            "zrd: --name: there is a } without a {" + known);
  EXPECT_EQ(errorOf({"--name", "{name}{{ext}", "plot.zrd"}, 1),
            "zrd: --name: there is no {{ext}" + known);
  EXPECT_EQ(files(), "plot.zrd");
}

TEST_F(Convert, AFailureIsALineWithPlaceAndReason) {
  write("broken.zrd", brokenDocument);
  write("corrupted.zrd", corruptedDocument);
  write("empty.zrd", "<Canvas xmlns=\"http://plots.example/xml/Corvane\"/>");
  write("good.zrd", staticDocument);
  makeFolder("folder.zrd");

  const Outcome outcome = command({"--keep-going", "--jobs", "1", "broken.zrd", "corrupted.zrd",
                                   "empty.zrd", "good.zrd", "none.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(countOf("\n", outcome.err), 5U) << outcome.err;
  EXPECT_TRUE(outcome.err.starts_with("none.zrd: cannot be opened: No such file or directory\n" +
                                      brokenLine + "corrupted.zrd:1:"))
      << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with("\nempty.zrd: no scene\n1 converted, 4 failed" + wayOut))
      << outcome.err;
  EXPECT_EQ(files(), "broken.zrd corrupted.zrd empty.zrd folder.zrd good.jvx good.zrd");
}

TEST_F(Convert, WhatEndsVantryCostsTheOthersNothing) {
  write("corrupted.zrd", corruptedDocument);
  write("text.zrd", unwritableDocument);
  setEnvironment("LC_ALL", "C");
  Strings arguments = {"--keep-going", "corrupted.zrd", "text.zrd"};
  for (int i = 0; i < 20; ++i) {
    arguments.push_back(std::to_string(i) + ".zrd");
    write(arguments.back(), staticDocument);
  }
  const Outcome outcome = command(arguments);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.signal, 0);
  EXPECT_EQ(countOf("corrupted.zrd:1:", outcome.err), 1U) << outcome.err;
  EXPECT_EQ(countOf("text.zrd", outcome.err), 1U) << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with("20 converted, 2 failed" + wayOut)) << outcome.err;
  EXPECT_FALSE(exists("corrupted.jvx") || exists("text.jvx"));
}

TEST_F(Convert, AFailureEndsTheRunWithoutKeepGoing) {
  for (const char* name : {"a.zrd", "c.zrd", "d.zrd"}) write(name, staticDocument);
  write("broken.zrd", brokenDocument);
  const Strings plots = {"--jobs", "1", "a.zrd", "broken.zrd", "c.zrd", "d.zrd"};
  const Outcome outcome = command(plots);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, brokenLine + "1 converted, 1 failed, 2 not tried" + wayOut);
  EXPECT_EQ(files(), "a.jvx a.zrd broken.zrd c.zrd d.zrd");
}

TEST_F(Convert, AFailureLeavesAnOldOutputAsItWas) {
  write("broken.zrd", brokenDocument);
  write("broken.jvx", "old");
  EXPECT_EQ(command({"broken.zrd"}).status, 2);
  EXPECT_EQ(read("broken.jvx"), "old");
}

TEST_F(Convert, AnOutputThatCannotBeWrittenWholeDoesNotAppear) {
  write("plot.zrd", staticDocument);
  write("plot.jvx", "old");
  setLimit(RLIMIT_FSIZE, 300);
  const Outcome outcome = command({"plot.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "plot.zrd: plot.jvx cannot be written: File too large\n0 converted, 1 failed\n");
  EXPECT_EQ(read("plot.jvx"), "old");
  EXPECT_EQ(files(), "plot.jvx plot.zrd");
}

TEST_F(Convert, AnOutputIsOnTheDiskBeforeItAppears) {
  write("plot.zrd", staticDocument);
  setFailing("FAIL_FSYNC", "1");
  const Outcome outcome = command({"plot.zrd"});
  EXPECT_EQ(outcome.err,
            "plot.zrd: plot.jvx cannot be written: Input/output error\n0 converted, 1 failed\n");
  EXPECT_EQ(files(), "plot.zrd");
}

TEST_F(Convert, TheOutputsOfADocumentAppearTogether) {
  write("plot.zrd", staticDocument);
  makeFolder("plot.jvd");
  const Outcome outcome = command({"--to", "both", "plot.zrd"});
  EXPECT_EQ(outcome.err,
            "plot.zrd: plot.jvd cannot be written: Is a directory\n0 converted, 1 failed\n");
  EXPECT_EQ(files(), "plot.jvd plot.zrd");
}

TEST_F(Convert, AnOutputKeepsThePermissionsOfWhatItReplaces) {
  write("old.zrd", staticDocument);
  write("new.zrd", staticDocument);
  write("old.jvx", "old");
  fs::permissions(folder_.path() / "old.jvx", fs::perms::owner_read | fs::perms::owner_write);
  const mode_t mask = umask(027);
  expectConverted({"old.zrd", "new.zrd"}, "2 converted");
  umask(mask);
  EXPECT_EQ(modeOf("old.jvx"), 0600U);
  EXPECT_EQ(modeOf("new.jvx"), 0640U);
}

TEST_F(Convert, AnOutputThatIsAnInputIsRefused) {
  write("a.zrd", staticDocument);
  write("b.jvx", staticDocument);
  EXPECT_EQ(command({"--name", "{name}.zrd", "a.zrd"}).err,
            "a.zrd: a.zrd would replace the input a.zrd" + elsewhere + "0 converted, 1 failed\n");
  EXPECT_EQ(command({"--keep-going", "b.jvx", "a.zrd"}).err,
            "b.jvx: b.jvx would replace the input b.jvx" + elsewhere + "1 converted, 1 failed\n");
  EXPECT_EQ(read("a.zrd"), staticDocument);
  EXPECT_EQ(read("b.jvx"), staticDocument);

  fs::remove(folder_.path() / "a.jvx");
  fs::create_hard_link(folder_.path() / "b.jvx", folder_.path() / "a.jvx");
  const Outcome outcome = command({"--keep-going", "--name", "{name}.jvx", "a.zrd", "b.jvx"});
  EXPECT_EQ(outcome.err, "a.zrd: a.jvx would replace the input b.jvx" + elsewhere +
                             "b.jvx: b.jvx would replace the input b.jvx" + elsewhere +
                             "0 converted, 2 failed\n");
}

TEST_F(Convert, AFrameThatIsAnInputIsRefused) {
  write("movie.zrd", animatedDocument);
  write("movie.2.jvx", staticDocument);
  const Outcome outcome = command({"--keep-going", "--frames", "2", "--name", "{name}.jvx",
                                   "--jobs", "1", "movie.zrd", "movie.2.jvx"});
  EXPECT_EQ(outcome.err, "movie.2.jvx: movie.2.jvx would replace the input movie.2.jvx" +
                             elsewhere +
                             "movie.zrd: movie.2.jvx would replace the input movie.2.jvx" +
                             elsewhere + "0 converted, 2 failed\n");
  EXPECT_EQ(files(), "movie.2.jvx movie.zrd");
}

TEST_F(Convert, TwoDocumentsDoNotWriteOneOutput) {
  makeFolder("a");
  makeFolder("b");
  write("a/plot.zrd", staticDocument);
  write("b/plot.zrd", staticDocument);
  EXPECT_EQ(command({"--keep-going", "--output-dir", "out", "a/plot.zrd", "b/plot.zrd"}).err,
            "b/plot.zrd: out/plot.jvx is the output of a/plot.zrd\n1 converted, 1 failed\n");
}

TEST_F(Convert, TwoDocumentsInAFolderDoNotWriteOneOutput) {
  for (const char* name : {"a.zrd", "b.zrd"}) write(name, staticDocument);
  EXPECT_EQ(errorOf({"--name", "plot.{ext}", "a.zrd", "b.zrd"}, 2),
            "b.zrd: plot.jvx is the output of a.zrd\n0 converted, 1 failed, 1 not tried\n");
  EXPECT_EQ(files(), "a.zrd b.zrd");
}

TEST_F(Convert, OutputsThatAreNewerThanPlotAndProgramMayStay) {
  write("plot.zrd", staticDocument);
  expectConverted({"--if-changed", "plot.zrd"}, "1 converted");
  write("plot.jvx", "newer");
  expectConverted({"--if-changed", "plot.zrd"}, "0 converted, 1 unchanged");
  EXPECT_EQ(read("plot.jvx"), "newer");

  expectConverted({"--if-changed", "--to", "both", "plot.zrd"}, "1 converted");
  EXPECT_EQ(read("plot.jvx"), "newer");
  EXPECT_TRUE(exists("plot.jvd"));

  expectConverted({"plot.zrd"}, "1 converted");
  EXPECT_NE(read("plot.jvx"), "newer");
}

TEST_F(Convert, OutputsThatAreOlderThanThePlotAreWritten) {
  write("plot.zrd", staticDocument);
  write("plot.jvx", "older");
  fs::last_write_time(folder_.path() / "plot.zrd", fs::file_time_type::clock::now() + 1h);
  expectConverted({"--if-changed", "plot.zrd"}, "1 converted");
  EXPECT_NE(read("plot.jvx"), "older");
}

TEST_F(Convert, OutputsThatAreOlderThanTheProgramAreWritten) {
  write("plot.zrd", staticDocument);
  write("plot.jvx", "older");
  const auto programTime = fs::last_write_time(ZRD_PROGRAM);
  fs::last_write_time(folder_.path() / "plot.zrd", programTime - 2h);
  fs::last_write_time(folder_.path() / "plot.jvx", programTime - 1h);
  expectConverted({"--if-changed", "plot.zrd"}, "1 converted");
  EXPECT_NE(read("plot.jvx"), "older");
}

TEST_F(Convert, TheFirstFrameShowsThatAllAreNew) {
  write("movie.zrd", animatedDocument);
  write("still.zrd", staticDocument);
  const Strings arguments = {"--if-changed", "--frames", "2", "movie.zrd"};
  expectConverted(arguments, "1 converted");
  EXPECT_EQ(files(), "movie.1.jvx movie.2.jvx movie.3.jvx movie.zrd still.zrd");
  EXPECT_LE(fs::last_write_time(folder_.path() / "movie.3.jvx"),
            fs::last_write_time(folder_.path() / "movie.1.jvx") + 1s);
  expectConverted(arguments, "0 converted, 1 unchanged");

  fs::remove(folder_.path() / "movie.1.jvx");
  expectConverted(arguments, "1 converted");

  EXPECT_EQ(command({"--frames", "2", "still.zrd"}).status, 0);
  expectConverted({"--if-changed", "--frames", "2", "still.zrd"}, "0 converted, 1 unchanged");
}

TEST_F(Convert, TheEnvironmentFixesTheDate) {
  write("plot.zrd", staticDocument);
  setEnvironment("TZ", "America/New_York");
  setEnvironment("SOURCE_DATE_EPOCH", "86399");
  expectConverted({"--to", "both", "plot.zrd"}, "1 converted");
  const std::string date = "<meta date=\"Thu Jan  1 23:59:59 1970\"/>\n";
  EXPECT_EQ(countOf(date, read("plot.jvx")), 1U);
  EXPECT_EQ(countOf(date, read("plot.jvd")), 1U);

  setProgram(VANTRY_PROGRAM);
  EXPECT_EQ(countOf(" 1970\"/>", run({"plot.zrd"}).out), 0U);
}

TEST_F(Convert, ADateThatIsNoneIsWrongUsage) {
  write("plot.zrd", staticDocument);
  for (const char* date : {"", "today", "-1", "12 ", "253402300800"}) {
    setEnvironment("SOURCE_DATE_EPOCH", date);
    const Outcome outcome = command({"plot.zrd"});
    EXPECT_EQ(outcome.status, 1) << date;
    EXPECT_EQ(outcome.err, "zrd: SOURCE_DATE_EPOCH is not a number of seconds since 1970\n");
  }
  setEnvironment("SOURCE_DATE_EPOCH", "253402300799");
  expectConverted({"plot.zrd"}, "1 converted");
  EXPECT_EQ(countOf("\"Fri Dec 31 23:59:59 9999\"", read("plot.jvx")), 1U);
}

TEST_F(Convert, ManyDocumentsOnManyThreads) {
  makeFolder("plots");
  for (int i = 0; i < 300; ++i) {
    write("plots/" + std::to_string(i) + ".zrd", i % 3 == 0 ? brokenDocument : staticDocument);
  }
  const Outcome outcome = command({"--keep-going", "--jobs", "8", "plots"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(countOf("not well-formed XML\n", outcome.err), 100U);
  EXPECT_TRUE(outcome.err.ends_with("200 converted, 100 failed" + wayOut));
  for (int i = 0; i < 300; ++i) {
    EXPECT_EQ(exists("plots/" + std::to_string(i) + ".jvx"), i % 3 != 0) << i;
  }
}

TEST_F(Convert, NoTemporaryFileIsLeftByAnInterruption) {
  write("movie.zrd", animatedDocument);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const Started started = start("out", {"convert", "--frames", "100000", "movie.zrd"});
    while (!hasTemporaryFile() && !hasEnded(started)) std::this_thread::sleep_for(1ms);
    kill(started.process, signal);
    EXPECT_EQ(outcomeOf(started).signal, signal);
    EXPECT_EQ(files(), "movie.zrd out");
  }
}

TEST_F(Convert, ASignalThatIsIgnoredStaysIgnored) {
  ASSERT_EQ(mkfifo((folder_.path() / "plot.zrd").c_str(), 0600), 0);
  setWrapper({"/bin/sh", "-c", "trap '' HUP; exec \"$@\"", "sh"});
  const Started started = start("out", {"convert", "plot.zrd"});
  {
    std::ofstream fifo(folder_.path() / "plot.zrd");  // waits until the program has opened it
    kill(started.process, SIGHUP);
    fifo << staticDocument;
  }
  EXPECT_EQ(outcomeOf(started).status, 0);
  EXPECT_EQ(undated(read("plot.jvx")), emptyJvx);
}

// script(1) runs a command on a terminal of its own and copies what comes to standard output.
TEST_F(Convert, ATerminalShowsTheProgress) {
  makeFolder("plots");
  for (int i = 0; i < 4; ++i) write("plots/" + std::to_string(i) + ".zrd", staticDocument);
  setProgram("/usr/bin/script");
  const Outcome outcome =
      run({"-qec", std::string("stty columns 20; ") + ZRD_PROGRAM + " convert plots", "/dev/null"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with("\r\033[K[             ] 0/4")) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("\r\033[K4 converted\r\n")) << outcome.out;
}
