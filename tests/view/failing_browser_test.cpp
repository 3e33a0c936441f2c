// The command picture, with browsers that fail. They are scripts, which say what a browser would.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include "../zrd_command.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// Behind the reason why a browser cannot draw.
const std::string browserWayOut =
    " (run it by hand to see why, or let the variable VANTRY_BROWSER name another Chromium or "
    "Chrome)\n";

const std::string beginning = "zrd: ./browser cannot draw the plot: ";

class FailingBrowser : public ZrdCommandTest {
 protected:
  FailingBrowser() : ZrdCommandTest("picture") {
    write("plot.zrd", "<Canvas><Scene2d><CoordinateSystem2d/></Scene2d></Canvas>");
    fs::create_directory(folder_.path() / "tmp");
    setEnvironment("TMPDIR", folder_.path() / "tmp");
    setEnvironment("VANTRY_BROWSER", "./browser");
  }

  /// Makes the browser run this script.
  void makeBrowser(const std::string& script) const {
    write("browser", "#!/bin/bash\n" + script);
    fs::permissions(folder_.path() / "browser", fs::perms::owner_all);
  }

  /// Makes the browser answer each call as one that works would, but for those that the cases of
  /// the script name, such as '*captureScreenshot*) answer 5 ;;'.
  void makeAnsweringBrowser(const std::string& cases) const {
    makeBrowser(R"(
answer() { printf '{"id":%s,"result":%s}\0' "$id" "$1" >&4; }
while IFS= read -r -d '' message <&3; do
  id=${message#*'"id":'} id=${id%%,*}
  case $message in
    )" + cases + R"(
    *createTarget*) answer '{"targetId":"a"}' ;;
    *attachToTarget*) answer '{"sessionId":"b"}' ;;
    *dataset*) answer '{"result":{"value":"ready"}}' ;;
    *querySelector*) answer '{"result":{"value":true}}' ;;
    *captureScreenshot*) answer '{"data":"iVBORw0KGgpJRU5ErkJggg=="}' ;;
    *) answer '{}' ;;
  esac
done
)");
  }

  /// No picture appears, and nothing is left.
  std::string failure() const {
    const std::string error = errorOf({"plot.zrd", "-o", "a.png"}, 3);
    EXPECT_FALSE(exists("a.png"));
    EXPECT_TRUE(fs::is_empty(folder_.path() / "tmp"));
    return error;
  }
};

TEST_F(FailingBrowser, WouldDrawIfItDidNotFail) {
  makeAnsweringBrowser("");
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "a.png"}, 0), "");
  EXPECT_EQ(read("a.png"), "\x89PNG\r\n\x1a\nIEND\xae\x42\x60\x82");
}

TEST_F(FailingBrowser, IsNotStartedForAPictureThatCannotBeWritten) {
  makeBrowser("touch started");
  fs::create_directory(folder_.path() / "folder");
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "missing/a.png"}, 2),
            "zrd: missing/a.png cannot be written: there is no folder missing\n");
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "folder"}, 2),
            "zrd: folder cannot be written: Is a directory\n");
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "/dev/full"}, 2),
            "zrd: /dev/full cannot be written: it is not a regular file\n");
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "plot.zrd/a.png"}, 2),
            "zrd: plot.zrd/a.png cannot be written: Not a directory\n");
  EXPECT_EQ(files(), "browser folder plot.zrd tmp");
}

TEST_F(FailingBrowser, EndsAtOnce) {
  makeBrowser("exit 0");
  EXPECT_EQ(failure(), beginning + "it has ended" + browserWayOut);
}

TEST_F(FailingBrowser, EndsWhileItDraws) {
  makeAnsweringBrowser("*Page.navigate*) exit 1 ;;");
  EXPECT_EQ(failure(), beginning + "it has ended" + browserWayOut);
}

TEST_F(FailingBrowser, HasToBeEndedByForce) {
  makeBrowser("trap '' TERM; exec 3<&- 4>&-; exec sleep 1000");
  EXPECT_EQ(failure(), beginning + "it has ended" + browserWayOut);
}

TEST_F(FailingBrowser, EndsWithTheProgram) {
  makeAnsweringBrowser("*Page.navigate*) touch started ;;");
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const Started started = start("out", {"picture", "plot.zrd", "-o", "a.png"});
    while (!exists("started") && !hasEnded(started)) std::this_thread::sleep_for(1ms);
    kill(started.process, signal);
    EXPECT_EQ(outcomeOf(started).signal, signal);
    EXPECT_TRUE(fs::is_empty(folder_.path() / "tmp"));
    EXPECT_EQ(files(), "browser out plot.zrd started tmp");
    fs::remove(folder_.path() / "started");
  }
}

// As from a terminal, where a signal goes to both.
TEST_F(FailingBrowser, IsEndedByTheSignalThatEndsTheProgram) {
  makeAnsweringBrowser("*Page.navigate*) kill -INT $PPID; exit ;;");
  const Outcome outcome = command({"plot.zrd", "-o", "a.png"});
  EXPECT_EQ(outcome.signal, SIGINT);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(fs::is_empty(folder_.path() / "tmp"));
}

TEST_F(FailingBrowser, IsNotStartedIfASignalComesWhileThePlotIsRead) {
  makeBrowser("touch started");
  const fs::path pipe = folder_.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const Started started = start("out", {"picture", "pipe", "-o", "a.png"});
  int writing = -1;  // until the program reads
  while (writing < 0 && !hasEnded(started)) writing = open(pipe.c_str(), O_WRONLY | O_NONBLOCK);
  kill(started.process, SIGINT);
  EXPECT_EQ(outcomeOf(started).signal, SIGINT);
  close(writing);
  EXPECT_TRUE(fs::is_empty(folder_.path() / "tmp"));
  EXPECT_EQ(files(), "browser out pipe plot.zrd tmp");
}

TEST_F(FailingBrowser, MayEndWithASignalAfterThePicture) {
  makeAnsweringBrowser("*Page.navigate*) trap 'kill -INT $PPID' EXIT; answer '{}' ;;");
  EXPECT_EQ(command({"plot.zrd", "-o", "a.png"}).signal, SIGINT);
  EXPECT_TRUE(fs::is_empty(folder_.path() / "tmp"));
  EXPECT_FALSE(exists("a.png"));
}

TEST_F(FailingBrowser, RefusesACall) {
  makeAnsweringBrowser(R"(*createTarget*) printf '{"id":1,"error":{"message":"no"}}\0' >&4 ;;)");
  EXPECT_EQ(failure(), beginning + "Target.createTarget: no" + browserWayOut);
}

TEST_F(FailingBrowser, MakesNoSense) {
  for (const std::string answer :
       {"5", "{}", R"({"targetId":5})", R"({}}\0{"method":5,"x":{})", R"({}}\0{"id":"1","x":{})",
        R"({}}\0{"method":"Log.entryAdded","params":{})"}) {
    makeBrowser("printf '{\"id\":1,\"result\":" + answer +
                "}\\0' >&4; read -r -d '' <&3; read -N 1 <&3");
    EXPECT_EQ(failure(), beginning + "what it answers makes no sense" + browserWayOut) << answer;
  }
}

TEST_F(FailingBrowser, CannotReadThePage) {
  makeAnsweringBrowser(R"(*Page.navigate*) answer '{"errorText":"net::ERR_ACCESS_DENIED"}' ;;)");
  const std::string error = failure();
  EXPECT_TRUE(error.starts_with("zrd: ./browser cannot read " + (folder_.path() / "tmp/").string()))
      << error;
  EXPECT_TRUE(
      error.ends_with("/plot.html: net::ERR_ACCESS_DENIED (let the variable TMPDIR name a "
                      "folder that it may read)\n"))
      << error;
}

TEST_F(FailingBrowser, HasNoWebGL) {
  makeAnsweringBrowser(R"(*querySelector*) answer '{"result":{"value":false}}' ;;)");
  EXPECT_EQ(failure(), beginning + "it has no WebGL 2" + browserWayOut);
}

TEST_F(FailingBrowser, ShowsASentenceInPlaceOfThePlot) {
  makeAnsweringBrowser(R"(
    *canvas*) answer '{"result":{"value":false}}' ;;
    *.message*) answer '{"result":{"value":"The plot is torn."}}' ;;)");
  EXPECT_EQ(failure(), beginning + "The plot is torn." + browserWayOut);
}

TEST_F(FailingBrowser, SendsNoPicture) {
  // Nothing, "hello", and the beginning of a PNG alone.
  for (const std::string data : {"", "aGVsbG8=", "iVBORw0KGgo="}) {
    makeAnsweringBrowser("*captureScreenshot*) answer '{\"data\":\"" + data + "\"}' ;;");
    EXPECT_EQ(failure(), beginning + "its picture is no PNG" + browserWayOut) << data;
  }
  makeAnsweringBrowser("*captureScreenshot*) answer '{}' ;;");
  EXPECT_EQ(failure(), beginning + "what it answers makes no sense" + browserWayOut);
}

TEST_F(FailingBrowser, ComplainsOfThePage) {
  makeAnsweringBrowser(
      R"(*Page.navigate*) printf '{"method":"Runtime.exceptionThrown","params":{"exceptionDetails":{"exception":{"description":"no program"}}}}\0' >&4 ;;)");
  EXPECT_EQ(failure(), beginning + "no program" + browserWayOut);
}

}  // namespace
