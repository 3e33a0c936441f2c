// zrd check: the command line, the statuses, and what goes where.

#include <sys/resource.h>

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
  write("again.zrd", wrong);
  const Outcome outcome = check({"--max", "1", "wrong.zrd", "again.zrd"});
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
  EXPECT_EQ(outcome.out, "no plots in 1 folder\n");
  EXPECT_EQ(outcome.err, "zrd: no plots (*.zrd) in empty\n");
  EXPECT_EQ(check({"empty", "none.zrd", "clean.zrd"}).out,
            "no errors and no warnings; 1 file could not be read; no plots in 1 folder\n");
}

TEST_F(CheckCommand, ChecksEachFileOnce) {
  std::filesystem::create_directory(folder_.path() / "plots");
  write("plots/a.zrd", wrong);
  const std::string absolute = (folder_.path() / "plots/a.zrd").string();
  const Outcome outcome =
      check({"plots", "plots/a.zrd", "./plots/../plots/a.zrd", absolute, "plots"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.out.starts_with("plots/a.zrd:1:10: error: ")) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("\n1 error and no warnings\n")) << outcome.out;
  EXPECT_EQ(check({"none.zrd", "./none.zrd"}).out, "1 file could not be read\n");
}

TEST_F(CheckCommand, GoesOnIfTheCurrentFolderIsGone) {
  const std::string file = (folder_.path() / "wrong.zrd").string();
  std::filesystem::create_directory(folder_.path() / "gone");
  setWrapper({"/bin/sh", "-c", "cd gone && rmdir ../gone && exec \"$@\"", "sh"});
  const Outcome outcome = check({"--format", "json", "a.zrd", "./a.zrd", file});
  EXPECT_EQ(outcome.status, 2);
  const std::string finding = R"({"file":")" + file + R"(","line":1,"column":10,)";
  const std::string failure =
      R"({"file":"a.zrd","failure":"cannot be opened: No such file or directory"})"
      "\n";
  EXPECT_TRUE(outcome.out.starts_with(failure + finding)) << outcome.out;
  EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 2) << outcome.out;
}

TEST_F(CheckCommand, CountsAFolderThatItCannotSearch) {
  constexpr int files = 16;  // of which a search has one for each folder that it is in
  std::filesystem::path deep = folder_.path() / "deep";
  for (int i = 0; i < 2 * files; ++i) deep /= "d";
  std::filesystem::create_directories(deep);
  setLimit(RLIMIT_NOFILE, files);
  const Outcome outcome = check({"deep"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "1 folder could not be searched to the end\n");
  EXPECT_EQ(outcome.err, "zrd: deep: cannot be searched: Too many open files\n");
}

// What a file is called cannot look like a finding, or steer the terminal.
TEST_F(CheckCommand, WritesControlCharactersOfNamesInPlainOnes) {
  write("a\nb\x1b[2J\xC2\x9B\xFF\xC3\xA4.zrd", wrong);
  const Outcome outcome = check({"a\nb\x1b[2J\xC2\x9B\xFF\xC3\xA4.zrd", "none\n.zrd"});
  EXPECT_EQ(outcome.status, 2);
  const std::string rest = wrongShown.substr(wrongShown.find(':'));
  EXPECT_EQ(outcome.out, "a\\x0Ab\\x1B[2J\\xC2\\x9B\\xFF\xC3\xA4.zrd" + rest +
                             "1 error and no warnings; 1 file could not be read\n");
  EXPECT_EQ(outcome.err, "zrd: none\\x0A.zrd: cannot be opened: No such file or directory\n");
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

// Programs may not read what is on standard error, and have no last line.
TEST_F(CheckCommand, WritesAJsonLineAboutWhatIsNotThere) {
  std::filesystem::create_directory(folder_.path() / "empty");
  write("two.zrd", "<Canvas><A/><B/></Canvas>");
  const Outcome outcome =
      check({"--format", "json", "--max", "1", "none.zrd", "empty", "wrong.zrd", "two.zrd"});
  EXPECT_EQ(outcome.status, 2);
  const std::string finding = check({"--format", "json", "wrong.zrd"}).out;
  EXPECT_EQ(outcome.out,
            R"({"file":"none.zrd","failure":"cannot be opened: No such file or directory"})"
            "\n"
            R"({"file":"empty","failure":"no plots (*.zrd) in empty"})"
            "\n" +
                finding +
                R"({"file":"two.zrd","omitted":2,"mayHaveMore":false})"
                "\n");
}

TEST_F(CheckCommand, SaysInTheSarifLogWhatIsNotThere) {
  write("two.zrd", "<Canvas><A/><B/></Canvas>");
  const Outcome outcome =
      check({"--format", "sarif", "--max", "1", "none.zrd", "wrong.zrd", "two.zrd"});
  EXPECT_EQ(outcome.status, 2);
  const std::string place = R"("locations":[{"physicalLocation":{"artifactLocation":{"uri":)";
  const std::string invocations =
      R"("invocations":[{"executionSuccessful":false,"toolExecutionNotifications":[)"
      R"({"level":"error","message":{"text":"cannot be opened: No such file or directory"},)" +
      place + R"("none.zrd"}}}]},{"level":"note","message":{"text":"2 findings are left out"},)" +
      place + R"("two.zrd"}}}]}]}])";
  EXPECT_NE(outcome.out.find(invocations), std::string::npos) << outcome.out;
}

TEST_F(CheckCommand, WritesOneSarifLogForAllFiles) {
  const Outcome outcome = check({"--format", "sarif", "wrong.zrd", "clean.zrd"});
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
  const auto expectRefused = [this](const Strings& arguments, const std::string& reason) {
    const Outcome outcome = check(arguments);
    EXPECT_EQ(outcome.status, 1) << reason;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "zrd: " + reason + " (see zrd check --help)\n");
  };
  expectRefused({}, "FILE is missing");
  expectRefused({"--format", "xml", "clean.zrd"}, "--format: \"xml\" is not text, json or sarif");
  expectRefused({"--max", "0", "clean.zrd"},
                "--max: \"0\" is not a whole number from 1 to 1000000");
  expectRefused({"--colour", "never", "clean.zrd"},
                "there is no option --colour; did you mean --color?");
  expectRefused({"--strict=1", "clean.zrd"}, "--strict takes no value");
}

}  // namespace
