// The command line of zrd: what is refused, in which words, and where help is.

#include <unistd.h>

#include <string>
#include <vector>

#include "../driver/program.h"

namespace {

using Strings = std::vector<std::string>;

class CommandLine : public ProgramTest {
 protected:
  CommandLine() {
    setProgram(ZRD_PROGRAM);
    setEnvironment("LC_ALL", "C.UTF-8");
    write("a.zrd", "<Canvas/>");
  }

  /// The line is refused for a reason, with help of `command`, or of the program.
  void expectRefused(const Strings& arguments, const std::string& reason,
                     const std::string& command = "") const {
    const Outcome outcome = run(arguments);
    const std::string help = "zrd " + (command.empty() ? "" : command + ' ') + "--help";
    EXPECT_EQ(outcome.status, 1) << testing::PrintToString(arguments);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "zrd: " + reason + " (see " + help + ")\n");
    EXPECT_EQ(files(), "a.zrd");
  }
};

TEST_F(CommandLine, NamesTheCommandThatIsMeant) {
  expectRefused({"chek"}, "there is no command chek; did you mean check?");
  expectRefused({"Show", "a.zrd"}, "there is no command Show; did you mean show?");
  expectRefused({"frobnicate"}, "there is no command frobnicate");
  expectRefused({"a.zrd"}, "there is no command a.zrd");
  expectRefused({}, "a command is missing");
}

TEST_F(CommandLine, NamesTheOptionThatIsMeant) {
  expectRefused({"--verison"}, "there is no option --verison; did you mean --version?");
  expectRefused({"show", "--jason", "a.zrd"}, "there is no option --jason; did you mean --json?",
                "show");
  expectRefused({"convert", "--job=3", "a.zrd"}, "there is no option --job; did you mean --jobs?",
                "convert");
  expectRefused({"view", "--colour", "a.zrd"}, "there is no option --colour", "view");
  expectRefused({"view", "-x", "a.zrd"}, "there is no option -x", "view");
}

TEST_F(CommandLine, SaysWhatIsMissingOrTooMuch) {
  expectRefused({"show"}, "FILE is missing", "show");
  expectRefused({"view"}, "PLOT is missing", "view");
  expectRefused({"convert"}, "PLOT is missing", "convert");
  expectRefused({"picture", "a.zrd"}, "--output is missing", "picture");
  expectRefused({"show", "a.zrd", "b.zrd"}, "b.zrd is one argument too many", "show");
  expectRefused({"schema", "a.zrd"}, "a.zrd is one argument too many", "schema");
  expectRefused({"view", "a.zrd", "--time"}, "--time needs a value", "view");
  expectRefused({"view", "a.zrd", "--time", "1", "--time", "2"}, "--time can be given only once",
                "view");
  expectRefused({"show", "a.zrd", "--json=3"}, "--json takes no value", "show");
  expectRefused({"show", "a.zrd", "--json=x"}, "--json takes no value", "show");
  expectRefused({"format", "-i", "-o", "b.zrd", "a.zrd"}, "-i and -o cannot be given together",
                "format");
  expectRefused({"format", "-i", "-"}, "-i: standard input cannot be written to", "format");
}

TEST_F(CommandLine, ReadsStandardInputOnce) {
  expectRefused({"view", "-", "a.zrd", "-"}, "PLOT: standard input can be read only once", "view");
}

TEST_F(CommandLine, SaysWhereAWordWouldBeRight) {
  expectRefused({"picture", "a.zrd", "a.png"},
                "a.png is one argument too many; did you mean --output a.png?", "picture");
  expectRefused({"picture", "a.zrd", "b.zrd", "-o", "a.png"}, "b.zrd is one argument too many",
                "picture");
  expectRefused({"--json", "show", "a.zrd"}, "--json has to be behind the command: show --json",
                "show");
  expectRefused({"-o", "a.html", "view", "a.zrd"}, "-o has to be behind the command: view -o",
                "view");
  expectRefused({"--jason", "show", "a.zrd"}, "there is no option --jason; did you mean --json?",
                "show");
}

TEST_F(CommandLine, RefusesEmptyNames) {
  const std::string reason = ": a name cannot be empty";
  for (const std::string command : {"check", "show", "command", "format"}) {
    expectRefused({command, ""}, "FILE" + reason, command);
  }
  for (const std::string command : {"convert", "view"}) {
    expectRefused({command, "a.zrd", ""}, "PLOT" + reason, command);
  }
  expectRefused({"picture", "-o", "", "a.zrd"}, "--output" + reason, "picture");
  expectRefused({"view", "-o", "", "a.zrd"}, "--output" + reason, "view");
  expectRefused({"convert", "--output-dir", "", "a.zrd"}, "--output-dir" + reason, "convert");
  expectRefused({"convert", "--files-from", ""}, "--files-from" + reason, "convert");
  expectRefused({"show", "--element", "", "a.zrd"}, "--element" + reason, "show");
}

TEST_F(CommandLine, TakesATimeOrFrames) {
  for (const std::string command : {"convert", "view"}) {
    expectRefused({command, "--frames", "5", "--time", "2", "a.zrd"},
                  "--time and --frames cannot be given together", command);
  }
}

TEST_F(CommandLine, NamesWhatConvertHasInPlaceOfAnOutput) {
  const std::string reason =
      "-o: use --output-dir for the folder of the outputs and --name for their names, or "
      "vantry -o for a single file";
  for (const Strings& arguments :
       {Strings{"-o", "a.jvx", "a.zrd"}, Strings{"a.zrd", "-oa.jvx"}, Strings{"a.zrd", "-o"},
        Strings{"--output=a.jvx", "a.zrd"}, Strings{"a.zrd", "--output", "a.jvx"}}) {
    Strings line = {"convert"};
    line.insert(line.end(), arguments.begin(), arguments.end());
    expectRefused(line, reason, "convert");
  }
}

TEST_F(CommandLine, SaysWhatAWholeNumberIs) {
  for (const std::string number :
       {"0", "-1", "1001", "99999999999999999999", "2.5", "2x", "many"}) {
    expectRefused({"convert", "--jobs", number, "a.zrd"},
                  "--jobs: \"" + number + "\" is not a whole number from 1 to 1000", "convert");
  }
  for (const std::string command : {"convert", "view"}) {
    expectRefused({command, "--frames", "0", "a.zrd"},
                  "--frames: \"0\" is not a whole number from 1 to 1000000", command);
  }
  expectRefused({"check", "--max", "0", "a.zrd"},
                "--max: \"0\" is not a whole number from 1 to 1000000", "check");
  expectRefused({"show", "--depth", "-1", "a.zrd"},
                "--depth: \"-1\" is not a whole number from 0 to 1000000", "show");
}

TEST_F(CommandLine, SaysWhatATimeIs) {
  for (const std::string time : {"nan", "inf", "-inf", "1e999", "soon", "1s", "1,5"}) {
    for (const std::string command : {"convert", "view", "picture"}) {
      expectRefused({command, "--time", time, "a.zrd"},
                    "--time: \"" + time + "\" is not a finite number", command);
    }
  }
}

TEST_F(CommandLine, SaysWhatASizeIs) {
  for (const std::string size :
       {"x", "1200", "0x9", "9x-1", "10x10x10", "10x10 ", "1e2x9", "16385x9", "9x16385", "9X9"}) {
    expectRefused(
        {"picture", "-o", "a.png", "--size", size, "a.zrd"},
        "--size: \"" + size + "\" is not a size such as 1200x900, with sides from 1 to 16384",
        "picture");
  }
  for (const std::string scale : {"0", "0.09", "10.1", "nan", "twice"}) {
    expectRefused({"picture", "-o", "a.png", "--scale", scale, "a.zrd"},
                  "--scale: \"" + scale + "\" is not a number from 0.1 to 10", "picture");
  }
  expectRefused({"picture", "-o", "a.png", "--size", "9x8193", "--scale", "2", "a.zrd"},
                "--scale: the picture would be too large; its sides can have at most 16384 pixels",
                "picture");
  expectRefused({"picture", "-o", "a.png", "--size", "900x9", "--scale", "0.1", "a.zrd"},
                "--scale: the picture would be too small; its sides need at least 1 pixel",
                "picture");
}

TEST_F(CommandLine, ListsTheWordsThatThereAre) {
  expectRefused({"convert", "--to", "pdf", "a.zrd"}, "--to: \"pdf\" is not jvx, jvd or both",
                "convert");
  expectRefused({"check", "--format", "xml", "a.zrd"},
                "--format: \"xml\" is not text, json or sarif", "check");
  expectRefused({"check", "--color", "2", "a.zrd"}, "--color: \"2\" is not auto, always or never",
                "check");
}

TEST_F(CommandLine, SaysInOneLineWhatIsWrong) {
  const Outcome outcome = run({"show", "two\nlines\x1b[7m.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "zrd: two\\x0Alines\\x1B[7m.zrd: cannot be opened: No such file or directory\n");
}

TEST_F(CommandLine, NoticesThatStandardOutputIsFull) {
  for (const Strings& arguments :
       {Strings{"show", "a.zrd"}, Strings{"show", "--json", "a.zrd"}, Strings{"format", "a.zrd"},
        Strings{"command", "a.zrd"}, Strings{"schema"}, Strings{"reference"},
        Strings{"reference", "--markdown"}, Strings{"reference", "--element", "Canvas"},
        Strings{"--help"}, Strings{"show", "--help"}, Strings{"--version"}}) {
    const Outcome outcome = runInto("/dev/full", arguments);
    EXPECT_EQ(outcome.status, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(outcome.err, "zrd: standard output cannot be written\n");
  }
}

TEST_F(CommandLine, WritesNoFileInThePlaceOfAStreamThatIsClosed) {
  setEnvironment("SOURCE_DATE_EPOCH", "0");
  write("a.zrd", "<Canvas><Scene2d><CoordinateSystem2d/></Scene2d><Torus/></Canvas>");
  ASSERT_EQ(run({"convert", "a.zrd"}).status, 0);
  const std::string expected = read("a.jvx");
  setClosed({STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO});
  EXPECT_EQ(run({"convert", "a.zrd"}).status, 0);
  EXPECT_EQ(read("a.jvx"), expected);
  EXPECT_EQ(run({"show", "a.zrd"}).status, 2);
}

TEST_F(CommandLine, ShowsTheVersion) {
  const Outcome outcome = run({"--version"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with("zrd 1.")) << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

}  // namespace
