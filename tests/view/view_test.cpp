// The command view, as a process.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "../zrd_command.h"

namespace {

namespace fs = std::filesystem;

const std::string plot =
    "<Canvas><Scene2d><CoordinateSystem2d><Obj2d Type=\"a\"><Img2d><Pt2d/></Img2d></Obj2d>"
    "</CoordinateSystem2d></Scene2d></Canvas>\n";

const std::string model = "<jvx-model><geometries></geometries></jvx-model>\n";

class ViewTest : public ZrdCommandTest {
 protected:
  ViewTest() : ZrdCommandTest("view") {}

  /// A browser that copies what it is given to `seen`, and ends with `status`.
  std::string makeBrowser(int status = 0) const {
    const fs::path script = folder_.path() / "browser";
    write("browser",
          "#!/bin/sh\neval cat '\"$'$#'\"' > seen\nexit " + std::to_string(status) + "\n");
    fs::permissions(script, fs::perms::owner_all);
    return script;
  }
};

bool isPage(const std::string& text) {
  return text.starts_with("<!doctype html>") && text.ends_with("</html>\n") &&
         text.find("<!--DATA-->") == std::string::npos &&
         text.find(R"(<script type="application/json" data-name="page">{"title":)") != text.npos;
}

TEST_F(ViewTest, WritesAPage) {
  write("plot.zrd", plot);
  const Outcome outcome = command({"plot.zrd", "-o", "plot.html"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_TRUE(isPage(read("plot.html")));
  EXPECT_NE(read("plot.html").find(R"("title":"plot.zrd")"), std::string::npos);
  EXPECT_EQ(files(), "plot.html plot.zrd");
}

TEST_F(ViewTest, WritesAPageToStandardOutput) {
  write("plot.zrd", plot);
  const Outcome outcome = command({"plot.zrd", "-o", "-"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(isPage(outcome.out));
}

TEST_F(ViewTest, ReadsStandardInput) {
  write("plot.zrd", plot);
  setWrapper({"/bin/sh", "-c", R"("$0" "$@" < plot.zrd)"});
  const Outcome outcome = command({"-", "-o", "-"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(isPage(outcome.out));
}

TEST_F(ViewTest, ShowsSeveralPlots) {
  write("a.zrd", plot);
  write("b.jvx", model);
  EXPECT_EQ(command({"a.zrd", "b.jvx", "-o", "plots.html"}).status, 0);
  EXPECT_NE(read("plots.html").find(R"("title":"a.zrd, b.jvx")"), std::string::npos);
}

TEST_F(ViewTest, FindsTheDisplayBesideAModel) {
  write("a.jvx", model);
  EXPECT_EQ(command({"a.jvx", "-o", "alone.html"}).status, 0);
  EXPECT_EQ(read("alone.html").find(R"("display":)"), std::string::npos);
  write("a.jvd", "<jv-disp></jv-disp>");
  EXPECT_EQ(command({"a.jvx", "-o", "both.html"}).status, 0);
  EXPECT_NE(read("both.html").find(R"("display":)"), std::string::npos);
}

TEST_F(ViewTest, KnowsModelsByTheirNames) {
  write("A.JVX", model);
  write("A.JVD", "<jv-disp></jv-disp>");
  EXPECT_EQ(command({"A.JVX", "-o", "page.html"}).status, 0);
  EXPECT_NE(read("page.html").find(R"("display":)"), std::string::npos);
  write("a.xml", model);
  EXPECT_EQ(errorOf({"a.xml", "-o", "page.html"}, 2),
            "zrd: a.xml:1:1: this is no plot document: its outermost element is jvx-model, not "
            "Canvas; zrd view shows JVX files, with names in .jvx" +
                wayOut);
}

TEST_F(ViewTest, OpensTheBrowserOfTheUser) {
  write("plot.zrd", plot);
  setEnvironment("TMPDIR", folder_.path());
  setEnvironment("BROWSER", makeBrowser());
  EXPECT_EQ(errorOf({"plot.zrd"}, 0), "");
  EXPECT_TRUE(isPage(read("seen")));
}

TEST_F(ViewTest, KeepsAFolderOnlyForAPage) {
  write("bad.zrd", "<Canvas>");
  fs::create_directory(folder_.path() / "tmp");
  setEnvironment("TMPDIR", folder_.path() / "tmp");
  setEnvironment("BROWSER", "true");
  errorOf({"bad.zrd"}, 2);
  EXPECT_TRUE(fs::is_empty(folder_.path() / "tmp"));
  write("plot.zrd", plot);
  EXPECT_EQ(errorOf({"plot.zrd"}, 0), "");
  EXPECT_FALSE(fs::is_empty(folder_.path() / "tmp"));
}

TEST_F(ViewTest, GivesTheBrowserAWholeName) {
  write("plot.zrd", plot);
  fs::create_directory(folder_.path() / "tmp");
  setEnvironment("TMPDIR", "tmp");
  setEnvironment("BROWSER", "echo");
  const Outcome outcome = command({"plot.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with((folder_.path() / "tmp/zrd-").string())) << outcome.out;
}

TEST_F(ViewTest, SaysThatThereIsNoPlaceForThePage) {
  write("plot.zrd", plot);
  setEnvironment("TMPDIR", "/none");
  EXPECT_EQ(
      errorOf({"plot.zrd"}, 2),
      "zrd: no temporary folder can be made in /none: No such file or directory (the variable "
      "TMPDIR can name another one)\n");
}

TEST_F(ViewTest, TriesTheBrowsersInTurn) {
  write("plot.zrd", plot);
  setEnvironment("TMPDIR", folder_.path());
  setEnvironment("BROWSER", "./nothing:false:" + makeBrowser() + " --new %s");
  EXPECT_EQ(errorOf({"plot.zrd"}, 0), "");
  EXPECT_TRUE(isPage(read("seen")));
}

TEST_F(ViewTest, SaysWhereThePageIsIfThereIsNoBrowser) {
  write("plot.zrd", plot);
  setEnvironment("TMPDIR", folder_.path());
  for (const std::string& browser : {std::string("./nothing"), makeBrowser(1)}) {
    setEnvironment("BROWSER", browser);
    const std::string error = errorOf({"plot.zrd"}, 3);
    const std::string beginning =
        "zrd: no browser could be opened: let the variable BROWSER name another one, or open ";
    ASSERT_TRUE(error.starts_with(beginning)) << error;
    const std::string page = error.substr(beginning.size(), error.size() - beginning.size() - 1);
    EXPECT_TRUE(isPage(contentOf(page))) << page;
  }
}

TEST_F(ViewTest, NamesThePackageThatOpensBrowsers) {
  write("plot.zrd", plot);
  setEnvironment("TMPDIR", folder_.path());
  setEnvironment("BROWSER", "");
  setEnvironment("PATH", "/none");
  const std::string error = errorOf({"plot.zrd"}, 3);
  EXPECT_TRUE(
      error.starts_with("zrd: no browser could be opened: install the Debian package "
                        "xdg-utils, let the variable BROWSER name a browser, or open /"))
      << error;
}

TEST_F(ViewTest, NamesThePlaceOfBadData) {
  write("bad.zrd", "<Canvas>\n<Scene2d Left=\"x\"/></Canvas>");
  EXPECT_EQ(
      errorOf({"bad.zrd", "-o", "page.html"}, 2),
      "zrd: bad.zrd:2:1: SYNTAX_ERR: element 'Scene2d', attribute 'Left', value 'x'" + wayOut);
  write("cut.zrd", "<Canvas>\n<Scene2d>");
  EXPECT_EQ(errorOf({"cut.zrd", "-o", "page.html"}, 2),
            "zrd: cut.zrd:2:10: not well-formed XML" + wayOut);
  write("cut.jvx", "<jvx-model>\n <p>");
  EXPECT_EQ(errorOf({"cut.jvx", "-o", "page.html"}, 2),
            "zrd: cut.jvx:2:5: not well-formed XML" + wayOut);
  write("other.jvx", "<html/>");
  EXPECT_EQ(errorOf({"other.jvx", "-o", "page.html"}, 2),
            "zrd: other.jvx: this is no JVX file: its outermost element is html, not jvx-model\n");
  write("good.jvx", model);
  write("good.jvd", "<html/>");
  EXPECT_EQ(errorOf({"good.jvx", "-o", "page.html"}, 2),
            "zrd: good.jvd: this is no JVD file: its outermost element is html, not jv-disp\n");
  write("object.zrd",
        "<Canvas><Scene2d><CoordinateSystem2d>\n"
        "  <Obj2d Type=\"a\"/></CoordinateSystem2d></Scene2d></Canvas>");
  EXPECT_EQ(errorOf({"object.zrd", "-o", "page.html"}, 2),
            "zrd: object.zrd:2:4: this Obj2d has no Img2d, so there is nothing to show" + wayOut);
  EXPECT_EQ(errorOf({"none.zrd", "-o", "page.html"}, 2),
            "zrd: none.zrd: cannot be opened: No such file or directory\n");
  EXPECT_FALSE(exists("page.html"));
}

TEST_F(ViewTest, NamesNoPlaceInWhatCannotBeReadAgain) {
  write("object.zrd",
        "<Canvas><Scene2d><CoordinateSystem2d><Obj2d Type=\"a\"/></CoordinateSystem2d></Scene2d>"
        "</Canvas>");
  setWrapper({"/bin/sh", "-c", R"("$0" "$@" < object.zrd)"});
  EXPECT_EQ(errorOf({"-", "-o", "page.html"}, 2), "zrd: -: no Img2d" + wayOut);
  setWrapper({"/bin/sh", "-c", R"(cat object.zrd | "$0" "$@")"});
  EXPECT_EQ(errorOf({"/dev/stdin", "-o", "page.html"}, 2), "zrd: /dev/stdin: no Img2d" + wayOut);
}

TEST_F(ViewTest, NamesThePlotThatCannotBeShown) {
  write("good.zrd", plot);
  write("empty.zrd", "<Canvas/>");
  EXPECT_EQ(errorOf({"good.zrd", "empty.zrd", "-o", "page.html"}, 2),
            "zrd: empty.zrd:1:2: the document has no Scene2d or Scene3d" + wayOut);
  write("page.zrd", "<html/>");
  EXPECT_EQ(errorOf({"good.zrd", "page.zrd", "-o", "page.html"}, 2),
            "zrd: page.zrd:1:1: this is no plot document: its outermost element is html, "
            "not Canvas" +
                wayOut);
}

TEST_F(ViewTest, SaysHowToShowAnAnimationThatIsTooLong) {
  write("plot.zrd",
        "<Canvas><TimeRange TimeBegin=\"0\" TimeEnd=\"50000\"/>"
        "<Scene2d><CoordinateSystem2d/></Scene2d></Canvas>");
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "page.html", "--frames", "3"}, 2),
            "zrd: --frames 3 makes more than 100000 frames: choose fewer, or show one time with "
            "--time\n");
}

TEST_F(ViewTest, SaysWhichLocaleHasTheLettersOfAPlot) {
  write("plot.zrd",
        "<Canvas><Header>\u00e4</Header><Scene2d><CoordinateSystem2d/></Scene2d></Canvas>");
  setEnvironment("LC_ALL", "C");
  EXPECT_EQ(
      errorOf({"plot.zrd", "-o", "page.html"}, 2),
      "zrd: plot.zrd: a text has letters that are not in the character set of the locale: run "
      "zrd in a locale with UTF-8, such as LC_ALL=C.UTF-8\n");
}

TEST_F(ViewTest, WarnsOfWhatIsNotShown) {
  write("plot.zrd",
        "<Canvas><Scene2d><CoordinateSystem2d>\n <Obj2D/></CoordinateSystem2d></Scene2d></Canvas>");
  const Outcome outcome = command({"plot.zrd", "-o", "page.html"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "zrd: plot.zrd:2:2: warning: the unknown element Obj2D is left out" + wayOut);
  EXPECT_TRUE(isPage(read("page.html")));
}

TEST_F(ViewTest, LeavesThePageThatWasThereIfItFails) {
  write("page.html", "old");
  // This fails in the middle of the second text.
  write("bad.zrd",
        "<Canvas><Scene2d><CoordinateSystem2d/></Scene2d><Scene2d><CoordinateSystem2d>"
        "<Obj2d Type=\"a\"/></CoordinateSystem2d></Scene2d></Canvas>");
  EXPECT_EQ(errorOf({"bad.zrd", "-o", "page.html"}, 2), "zrd: bad.zrd: no Img2d" + wayOut);
  EXPECT_EQ(read("page.html"), "old");
  EXPECT_EQ(files(), "bad.zrd page.html");
}

TEST_F(ViewTest, ReplacesNoPlot) {
  write("plot.zrd", plot);
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "./plot.zrd"}, 1),
            "zrd: ./plot.zrd: is the plot itself, which it would replace\n");
  EXPECT_EQ(read("plot.zrd"), plot);
  write("a.jvx", model);
  write("a.jvd", "<jv-disp></jv-disp>");
  EXPECT_EQ(errorOf({"plot.zrd", "./a.jvx", "-o", "a.jvd"}, 1),
            "zrd: a.jvd: is the display of ./a.jvx, which it would replace\n");
  EXPECT_EQ(read("a.jvd"), "<jv-disp></jv-disp>");
}

TEST_F(ViewTest, SaysWhyADisplayCannotBeRead) {
  write("a.jvx", model);
  fs::create_symlink("a.jvd", folder_.path() / "a.jvd");
  EXPECT_EQ(errorOf({"a.jvx", "-o", "a.html"}, 2),
            "zrd: a.jvd: cannot be opened: Too many levels of symbolic links\n");
}

TEST_F(ViewTest, RefusesAModelThatCannotBeReadTwice) {
  write("a.jvx", model);
  setWrapper({"/bin/sh", "-c", R"(mkfifo pipe.jvx; cat a.jvx > pipe.jvx & "$0" "$@")"});
  EXPECT_EQ(errorOf({"pipe.jvx", "-o", "a.html"}, 2),
            "zrd: pipe.jvx: cannot be read twice: it is not a regular file\n");
}

TEST_F(ViewTest, SaysThatAPageCannotBeWritten) {
  write("plot.zrd", plot);
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "plot.zrd/page.html"}, 2),
            "zrd: plot.zrd/page.html cannot be written: Not a directory\n");
  EXPECT_EQ(errorOf({"plot.zrd", "-o", "missing/page.html"}, 2),
            "zrd: missing/page.html cannot be written: there is no folder missing\n");
  EXPECT_EQ(files(), "plot.zrd");
}

// script(1) runs a command on a terminal of its own and copies what comes to standard output.
class ViewOnATerminal : public ViewTest {
 protected:
  ViewOnATerminal() { setProgram("/usr/bin/script"); }

  std::string shown(const std::string& columns, const std::string& arguments) const {
    const Outcome outcome = run({"-qec",
                                 "stty columns " + columns + "; " + ZRD_PROGRAM + " view -o - " +
                                     arguments + " > page.html",
                                 "/dev/null"});
    EXPECT_EQ(outcome.status, 0);
    return outcome.out;
  }
};

TEST_F(ViewOnATerminal, SaysWhatItReads) {
  write("plot.zrd", plot);
  EXPECT_EQ(shown("80", "plot.zrd"), "\r\033[Kreading plot.zrd\r\033[K");
}

TEST_F(ViewOnATerminal, EscapesNames) {
  write("a\nb\033[31m.zrd", plot);
  EXPECT_EQ(shown("80", "a*.zrd"), "\r\033[Kreading a\\x0Ab\\x1B[31m.zrd\r\033[K");
}

TEST_F(ViewOnATerminal, CutsLinesAtItsEdge) {
  write("123456789\u00e4\u00e4\u00e4.zrd", plot);
  EXPECT_EQ(shown("30", "1*.zrd"), "\r\033[Kreading 123456789\u00e4\u00e4\u00e4.zrd\r\033[K");
  // The last letter has two bytes.
  EXPECT_EQ(shown("23", "1*.zrd"), "\r\033[Kreading 123456789\u00e4...\r\033[K");
  EXPECT_EQ(shown("22", "1*.zrd"), "\r\033[Kreading 123456789...\r\033[K");
  EXPECT_EQ(shown("3", "1*.zrd"), "\r\033[K...\r\033[K");
}

TEST_F(ViewTest, TakesTheFramesAndTheTime) {
  write("moving.zrd",
        "<Canvas><TimeRange TimeBegin=\"0\" TimeEnd=\"1\"/>"
        "<Scene2d><CoordinateSystem2d/></Scene2d></Canvas>");
  EXPECT_NE(
      command({"moving.zrd", "-o", "-", "--frames", "2"}).out.find(R"("times":[0.0,0.5,1.0])"),
      std::string::npos);
  EXPECT_EQ(command({"moving.zrd", "-o", "-", "--time", "1"}).out.find(R"("times":)"),
            std::string::npos);
}

}  // namespace
