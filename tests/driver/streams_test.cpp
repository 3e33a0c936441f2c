// What a run reads from and writes to: inputs that end early, and streams that are closed or full.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "documents.h"
#include "program.h"

namespace {

class Streams : public ProgramTest {
 protected:
  Streams() {
    write("static.zrd", staticDocument);
    write("animated.zrd", animatedDocument);
  }

  void expectNoScene(const std::vector<std::string>& arguments,
                     const std::string& parserError) const {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "Warning: parser error " + parserError + "\n" + noScene);
    EXPECT_EQ(undated(outcome.out), jvxHeader);
  }

  /// Runs the program with a pipe that nobody reads as its standard output.
  Outcome runIntoBrokenPipe(const std::vector<std::string>& arguments) const {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) < 0) throw std::system_error(errno, std::generic_category());
    close(ends[0]);
    const Outcome outcome = runInto("/proc/self/fd/" + std::to_string(ends[1]), arguments);
    close(ends[1]);
    return outcome;
  }
};

/// A named pipe, and a process that opens it, writes a text and is gone.
class Fifo {
 public:
  Fifo(const std::filesystem::path& name, std::string_view text) {
    if (mkfifo(name.c_str(), 0600) < 0 || (writer_ = fork()) < 0) {
      throw std::system_error(errno, std::generic_category(), name);
    }
    if (writer_ > 0) return;
    const int end = open(name.c_str(), O_WRONLY);
    _exit(::write(end, text.data(), text.size()) < 0);
  }
  Fifo(const Fifo&) = delete;
  Fifo& operator=(const Fifo&) = delete;
  ~Fifo() {
    kill(writer_, SIGKILL);  // it still waits if nobody has opened the pipe
    waitpid(writer_, nullptr, 0);
  }

 private:
  pid_t writer_;
};

/// What happens to a signal while this lives, and in the runs that start meanwhile.
class SignalGuard {
 public:
  SignalGuard(int signal, void (*action)(int))
      : signal_(signal), before_(std::signal(signal, action)) {}
  SignalGuard(const SignalGuard&) = delete;
  SignalGuard& operator=(const SignalGuard&) = delete;
  ~SignalGuard() { std::signal(signal_, before_); }

 private:
  int signal_;
  void (*before_)(int);
};

/// The runs that write to standard output.
const std::vector<std::vector<std::string>> toStandardOutput = {
    {"static.zrd"}, {"-d", "static.zrd"}, {"-v"}};

}  // namespace

// ---- Input ----

TEST_F(Streams, EmptyInput) {
  write("empty.zrd", "");
  expectNoScene({"empty.zrd"}, "'3' [line 1 column 0]");
}

TEST_F(Streams, FolderIsEmpty) { expectNoScene({"."}, "'3' [line 1 column 0]"); }

TEST_F(Streams, InputThatCannotBeRead) {
  const Outcome outcome = run({"/proc/self/mem", "-o", "out.jvx"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, notRead);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(read("out.jvx"), "");
}

TEST_F(Streams, InputThatCannotBeReadToItsEnd) {
  write("long.zrd", staticDocument + std::string(200'000, '\n'));
  EXPECT_EQ(run({"long.zrd"}).status, 0);
  for (const char* size : {"0", "1", "512", "100000", "200000"}) {
    setFailing("FAIL_READ_AFTER", size);
    const Outcome outcome = run({"long.zrd"});
    EXPECT_EQ(outcome.status, 2) << size;
    EXPECT_EQ(outcome.err, notRead) << size;
    EXPECT_EQ(outcome.out, "") << size;
  }
}

// What was read is a document with an error in it, which is warned of before the reading fails.
TEST_F(Streams, InputThatCannotBeReadBehindAnError) {
  write("broken.zrd", "<Canvas></Scene>" + std::string(200'000, '\n'));
  setFailing("FAIL_READ_AFTER", "65536");
  const Outcome outcome = run({"broken.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(countOf("Warning: parser error '7'", outcome.err), 128U);
  EXPECT_TRUE(outcome.err.ends_with(notRead)) << outcome.err;
}

TEST_F(Streams, PipeThatIsClosedAtOnceIsEmpty) {
  const Fifo fifo(folder_.path() / "in.zrd", "");
  expectNoScene({"in.zrd"}, "'3' [line 1 column 0]");
}

TEST_F(Streams, PipeThatIsClosedBetweenTags) {
  const Fifo fifo(folder_.path() / "in.zrd", "<Canvas>\n<Scene3d>\n  ");
  expectNoScene({"in.zrd"}, "'3' [line 3 column 2]");
}

TEST_F(Streams, PipeThatIsClosedWithinATag) {
  const Fifo fifo(folder_.path() / "in.zrd", "<Canvas>\n<Scene3d>\n  <Coordinate");
  expectNoScene({"in.zrd"}, "'5' [line 3 column 2]");
}

TEST_F(Streams, PipeThatIsClosedBehindManyBlocks) {
  const Fifo fifo(folder_.path() / "in.zrd", "<Canvas>\n" + std::string(50'000, '\n'));
  expectNoScene({"in.zrd"}, "'3' [line 50002 column 0]");
}

TEST_F(Streams, PipeThatGivesTheWholeDocument) {
  const Fifo fifo(folder_.path() / "in.zrd", staticDocument);
  const Outcome outcome = run({"in.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(undated(outcome.out), emptyJvx);
}

// ---- Output ----

TEST_F(Streams, FullDiskIsNoSuccess) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"static.zrd", "-o", "/dev/full"},
        {"-d", "static.zrd", "-o", "/dev/full"}}) {
    const Outcome file = run(arguments);
    EXPECT_EQ(file.status, 2);
    EXPECT_EQ(file.err, notWritten);
  }
  for (const std::vector<std::string>& arguments : toStandardOutput) {
    const Outcome standardOutput = runInto("/dev/full", arguments);
    EXPECT_EQ(standardOutput.status, 2);
    EXPECT_EQ(standardOutput.err, notWritten);
  }
}

TEST_F(Streams, FullDiskUnderAnAnimationIsNoSuccess) {
  std::filesystem::create_symlink("/dev/full", folder_.path() / "out.2.jvx");
  const Outcome outcome = run({"-f", "2", "-o", "out.jvx", "animated.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, notWritten);
  EXPECT_EQ(undated(read("out.1.jvx")), emptyJvx);
  EXPECT_FALSE(exists("out.3.jvx"));
}

TEST_F(Streams, ClosedStandardOutputIsNoSuccess) {
  setClosed({STDOUT_FILENO});
  for (const std::vector<std::string>& arguments : toStandardOutput) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, notWritten);
  }
}

TEST_F(Streams, StandardOutputThatCannotBeClosedIsNoSuccess) {
  for (const std::vector<std::string>& arguments : toStandardOutput) {
    EXPECT_EQ(run(arguments).status, 0);
  }
  setFailing("FAIL_CLOSE", "1");
  for (const std::vector<std::string>& arguments : toStandardOutput) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, notWritten);
  }
  EXPECT_EQ(run({"static.zrd", "-o", "out.jvx"}).status, 0);
}

TEST_F(Streams, ClosedStandardOutputIsNotMissedWhereNothingGoesToIt) {
  setClosed({STDOUT_FILENO});
  EXPECT_EQ(run({"static.zrd", "-o", "out.jvx"}).status, 0);
  EXPECT_EQ(undated(read("out.jvx")), emptyJvx);
  EXPECT_EQ(run({"-f", "1", "-o", "out.jvx", "animated.zrd"}).status, 0);
  EXPECT_EQ(undated(read("out.2.jvx")), emptyJvx);
}

// The input and the output get the numbers of the streams that are missing, were those not taken.
TEST_F(Streams, ClosedStandardStreamsAreNotMixedUpWithFiles) {
  const std::string warning = "Warning: not an animation\n";
  const struct {
    std::set<int> closed;
    std::string err;
  } rows[] = {{{STDIN_FILENO}, warning},
              {{STDOUT_FILENO}, warning},
              {{STDERR_FILENO}, ""},
              {{STDIN_FILENO, STDOUT_FILENO}, warning},
              {{STDIN_FILENO, STDERR_FILENO}, ""},
              {{STDOUT_FILENO, STDERR_FILENO}, ""},
              {{STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}, ""}};
  for (const auto& [closed, err] : rows) {
    SCOPED_TRACE(testing::PrintToString(closed));
    setClosed(closed);
    const Outcome outcome = run({"-t", "1", "static.zrd", "-o", "out.jvx"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, err);
    EXPECT_EQ(undated(read("out.jvx")), emptyJvx);
    std::filesystem::remove(folder_.path() / "out.jvx");
  }
}

TEST_F(Streams, PipeWithoutReaderIsNoSuccess) {
  const SignalGuard ignored(SIGPIPE, SIG_IGN);
  for (const std::vector<std::string>& arguments : toStandardOutput) {
    const Outcome outcome = runIntoBrokenPipe(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, notWritten);
  }
}

TEST_F(Streams, PipeWithoutReaderEndsTheProcessByItsSignal) {
  const SignalGuard deadly(SIGPIPE, SIG_DFL);
  for (const std::vector<std::string>& arguments : toStandardOutput) {
    const Outcome outcome = runIntoBrokenPipe(arguments);
    EXPECT_EQ(outcome.signal, SIGPIPE);
    EXPECT_EQ(outcome.err, "");
  }
}
