// zrd check: the command line, the statuses, and what goes where.

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "../driver/documents.h"
#include "../driver/program.h"

namespace {

using Strings = std::vector<std::string>;

const std::string clean = "<Canvas><Scene2d><CoordinateSystem2d/></Scene2d></Canvas>\n";
const std::string wrong = "<Canvas><Scene2D/></Canvas>\n";
const std::string odd =
    "<Canvas><Scene2d><CoordinateSystem2d/></Scene2d><Scene3d/><Scene3d/></Canvas>\n";

const std::string wrongShown =
    "wrong.zrd:1:10: error: there is no element Scene2D [unknown-element]\n"
    " 1 | <Canvas><Scene2D/></Canvas>\n"
    "   |          ^~~~~~~\n"
    "   = did you mean Scene2d?\n";

class CheckCommand : public ProgramTest {
 protected:
  CheckCommand() {
    setProgram(ZRD_PROGRAM);
    setEnvironment("LC_ALL", "C.UTF-8");
    write("clean.zrd", clean);
    write("wrong.zrd", wrong);
    write("odd.zrd", odd);
  }

  Outcome check(Strings arguments) const {
    arguments.insert(arguments.begin(), "check");
    return run(arguments);
  }
};

TEST_F(CheckCommand, SucceedsWithoutErrors) {
  const Outcome outcome = check({"clean.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "no errors and no warnings\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CheckCommand, FailsWithErrors) {
  const Outcome outcome = check({"clean.zrd", "wrong.zrd"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, wrongShown + "1 error and no warnings\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CheckCommand, CountsWarningsIfItIsStrict) {
  EXPECT_EQ(check({"odd.zrd"}).status, 0);
  EXPECT_EQ(check({"--strict", "odd.zrd"}).status, 1);
  EXPECT_EQ(check({"--strict", "clean.zrd"}).status, 0);
}

TEST_F(CheckCommand, GoesOnAfterAFileThatCannotBeRead) {
  const Outcome outcome = check({"none.zrd", "wrong.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, wrongShown + "1 error and no warnings; 1 file could not be read\n");
  EXPECT_EQ(outcome.err, "zrd: none.zrd: cannot be opened: No such file or directory\n");
}

TEST_F(CheckCommand, FindsNothingInFilesThatCannotBeRead) {
  const Outcome outcome = check({"none.zrd", "nothing.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "2 files could not be read\n");
}

TEST_F(CheckCommand, ChecksThePlotsOfAFolder) {
  std::filesystem::create_directories(folder_.path() / "plots/more");
  write("plots/more/a.zrd", wrong);
  write("plots/b.zrd", clean);
  write("plots/c.txt", wrong);
  const Outcome outcome = check({"plots", "clean.zrd"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.out.starts_with("plots/more/a.zrd:1:10: error: ")) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("\n1 error and no warnings\n")) << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CheckCommand, FailsIfItCannotWrite) {
  for (const char* format : {"text", "json", "sarif"}) {
    const Outcome outcome = runInto("/dev/full", {"check", "--format", format, "wrong.zrd"});
    EXPECT_EQ(outcome.status, 2) << format;
    EXPECT_EQ(outcome.err, "zrd: standard output cannot be written\n") << format;
  }
}

TEST_F(CheckCommand, ShowsNoMoreThanItMay) {
  write("wrong2.zrd", "<Canvas><A/><B/><C/></Canvas>");
  const Outcome outcome = check({"--max", "2", "wrong.zrd", "wrong2.zrd"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.out.ends_with("\n4 errors and no warnings, of which 2 are shown\n"))
      << outcome.out;
  EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 9) << outcome.out;
}

TEST_F(CheckCommand, SaysIfOneIsShown) {
  const Outcome outcome = check({"--max", "1", "wrong.zrd", "wrong.zrd"});
  EXPECT_TRUE(outcome.out.ends_with("\n2 errors and no warnings, of which 1 is shown\n"))
      << outcome.out;
}

TEST_F(CheckCommand, SaysIfThereMayBeMoreThanItCounts) {
  std::string elements;
  for (int i = 0; i < 9'999; ++i) elements += "<A/>";
  write("many.zrd", "<Canvas>" + elements + "</Canvas>");
  write("too-many.zrd", "<Canvas>" + elements + "<A/><A/></Canvas>");
  EXPECT_TRUE(check({"--max", "1", "many.zrd"})
                  .out.ends_with("\n9999 errors and no warnings, of which 1 is shown\n"));
  EXPECT_TRUE(check({"--max", "1", "too-many.zrd"})
                  .out.ends_with("\nat least 10000 errors and no warnings, of which 1 is shown\n"));
}

TEST_F(CheckCommand, FailsForAFolderWithoutPlots) {
  std::filesystem::create_directory(folder_.path() / "empty");
  const Outcome outcome = check({"empty"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "1 file could not be read\n");
  EXPECT_EQ(outcome.err, "zrd: no plot documents (*.zrd) in empty\n");
}

TEST_F(CheckCommand, WritesJsonLines) {
  const Outcome outcome = check({"--format", "json", "clean.zrd", "wrong.zrd"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            R"({"file":"wrong.zrd","line":1,"column":10,"endColumn":17,"severity":"error",)"
            R"("code":"unknown-element","message":"there is no element Scene2D",)"
            R"("help":["did you mean Scene2d?"]})"
            "\n");
}

TEST_F(CheckCommand, WritesOneSarifLogForAllFiles) {
  const Outcome outcome = check({"--format", "sarif", "wrong.zrd", "wrong.zrd"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.out.starts_with(
      R"({"$schema":"https://json.schemastore.org/sarif-2.1.0.json","version":"2.1.0","runs":[)"));
  EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 1);
}

TEST_F(CheckCommand, HasColorsIfAsked) {
  EXPECT_EQ(check({"wrong.zrd"}).out.find('\x1b'), std::string::npos);
  EXPECT_NE(check({"--color", "always", "wrong.zrd"}).out.find("\x1b[1;31merror"),
            std::string::npos);
  EXPECT_EQ(check({"--color", "never", "wrong.zrd"}).out, check({"wrong.zrd"}).out);
}

TEST_F(CheckCommand, RefusesAWrongCommandLine) {
  for (const Strings& arguments : {Strings{}, Strings{"--format", "xml", "clean.zrd"},
                                   Strings{"--max", "0", "clean.zrd"}, Strings{"--colour", "x"}}) {
    EXPECT_EQ(check(arguments).status, 1);
  }
}

}  // namespace
