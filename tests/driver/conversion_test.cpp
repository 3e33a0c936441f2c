// A run from the input to the output: the files, the order of the checks, the warnings, the errors.

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "../locale_guard.h"
#include "documents.h"
#include "program.h"

namespace {

const std::string noInput = "Error: Can not open input file. (exiting)\n";
const std::string noOutput = "Error: Can not open output file. (exiting)\n";
const std::string badText = "Ubase::BadUnicodeString";
const std::string wayOut = " (zrd check FILE explains it)";
const std::string badTextAnnounced = "vantry: bad data: incomplete Unicode string" + wayOut;
const std::string displayNotAnimated = "Warning: Only JVX files can be animated, '-f' ignored.\n";

class Conversion : public ProgramTest {
 protected:
  Conversion() {
    write("static.zrd", staticDocument);
    write("animated.zrd", animatedDocument);
  }

  /// The run ends by an exception that nobody catches. Nothing is written. All that is said is one
  /// line of the program, and the last words of the language.
  void expectAbnormalEnd(const std::vector<std::string>& arguments, const std::string& announcement,
                         const std::string& exception) const {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.signal, SIGABRT);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with(
        announcement + "\nterminate called after throwing an instance of '" + exception + "'\n"))
        << outcome.err;
    for (const char* word : {"Error:", "Warning:", "Sanitizer"}) {
      EXPECT_EQ(countOf(word, outcome.err), 0U) << outcome.err;
    }
  }
};

/// What the program says of bad data at a place.
std::string badDataIn(std::size_t line, std::size_t column, const std::string& reason) {
  return "vantry: bad data in line " + std::to_string(line) + ", column " + std::to_string(column) +
         ": " + reason + wayOut;
}

/// A document that is broken from its 11th byte on, filled up to a length.
std::string brokenDocument(std::size_t length) {
  std::string document = "<Canvas></Scene>";
  document.resize(length, ' ');
  return document;
}

/// A document with this in the one coordinate system of a plane scene.
std::string inPlane(const std::string& content) {
  return "<Canvas><Scene2d><CoordinateSystem2d>" + content +
         "</CoordinateSystem2d></Scene2d></Canvas>";
}

/// A document with this in the one image of a plane object.
std::string inImage(const std::string& content) {
  return inPlane("<Obj2d Type=\"Curve2d\"><Img2d>" + content + "</Img2d></Obj2d>");
}

/// The date of an output, as if it were that of Greenwich.
std::time_t dateOf(const std::string& output) {
  const std::string_view begin = "<meta date=\"";
  std::istringstream text(output.substr(output.find(begin) + begin.size()));
  std::tm date{};
  text >> std::get_time(&date, "%a %b %d %H:%M:%S %Y\"/>");
  EXPECT_TRUE(text) << output;
  return timegm(&date);
}

}  // namespace

TEST_F(Conversion, WritesToStandardOutput) {
  const Outcome outcome = run({"static.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(undated(outcome.out), emptyJvx);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Conversion, WritesToTheNamedFile) {
  write("out.jvx", "what was there before, and is longer than nothing");
  const Outcome outcome = run({"-o", "out.jvx", "static.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(undated(read("out.jvx")), emptyJvx);
}

TEST_F(Conversion, DisplayModeWritesADisplayDocument) {
  const Outcome outcome = run({"-d", "static.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(outcome.out.find("<!DOCTYPE jv-disp SYSTEM"), std::string::npos);
  EXPECT_EQ(outcome.out.find("jvx-model"), std::string::npos);
}

TEST_F(Conversion, MissingInput) {
  const Outcome outcome = run({"none.zrd", "-o", "out.jvx"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, noInput);
  EXPECT_FALSE(exists("out.jvx"));
}

TEST_F(Conversion, OutputThatCannotBeOpened) {
  for (const char* name : {"none/out.jvx", ".", ""}) {
    const Outcome outcome = run({"static.zrd", "-o", name});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, noOutput);
  }
}

TEST_F(Conversion, MissingInputIsReportedBeforeAMissingOutputName) {
  EXPECT_EQ(run({"-f", "5", "none.zrd"}).err, noInput);
  const Outcome outcome = run({"-f", "5", "animated.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "Error: No output file name given. (exiting)\n");
  EXPECT_EQ(outcome.out, "");
}

TEST_F(Conversion, MissingOutputNameIsReportedBeforeAnyParsing) {
  write("broken.zrd", brokenDocument(100));
  EXPECT_EQ(run({"-f", "5", "broken.zrd"}).err, "Error: No output file name given. (exiting)\n");
}

TEST_F(Conversion, DisplayModeIgnoresFrames) {
  const Outcome outcome = run({"-d", "-f", "5", "animated.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, displayNotAnimated);
  EXPECT_NE(outcome.out.find("<!DOCTYPE jv-disp SYSTEM"), std::string::npos);

  EXPECT_EQ(run({"-d", "-f", "5", "-o", "out.jvd", "animated.zrd"}).status, 0);
  EXPECT_NE(read("out.jvd").find("<!DOCTYPE jv-disp SYSTEM"), std::string::npos);
}

TEST_F(Conversion, WarningOfIgnoredFramesComesBeforeTheInputError) {
  const Outcome outcome = run({"-d", "-f", "5", "none.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, displayNotAnimated + noInput);
}

TEST_F(Conversion, FramesWithoutTimeRangeGiveTheOneNamedFile) {
  const Outcome outcome = run({"-f", "5", "-o", "out.jvx", "static.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, notAnimated);
  EXPECT_EQ(undated(read("out.jvx")), emptyJvx);
  EXPECT_FALSE(exists("out.1.jvx"));
}

TEST_F(Conversion, FramesWithoutTimeRangeNeedAFileThatCanBeOpened) {
  const Outcome outcome = run({"-f", "5", "-o", "none/out.jvx", "static.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, notAnimated + noOutput);
}

TEST_F(Conversion, AnimationWritesNumberedFilesOnly) {
  write("out.1.jvx", "from an earlier run");
  const Outcome outcome = run({"-f", "2", "-o", "out.jvx", "animated.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
  for (const char* name : {"out.1.jvx", "out.2.jvx", "out.3.jvx"}) {
    EXPECT_EQ(undated(read(name)), emptyJvx);
  }
  EXPECT_EQ(files(), "animated.zrd out.1.jvx out.2.jvx out.3.jvx static.zrd");
}

TEST_F(Conversion, AnimationFileThatCannotBeOpened) {
  std::filesystem::create_directory(folder_.path() / "out.2.jvx");
  const Outcome outcome = run({"-f", "2", "-o", "out.jvx", "animated.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, noOutput);
  EXPECT_EQ(undated(read("out.1.jvx")), emptyJvx);
  EXPECT_FALSE(exists("out.3.jvx"));
}

TEST_F(Conversion, TimeOnAStillDocumentIsWarnedOf) {
  const Outcome outcome = run({"-t", "1", "static.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "Warning: not an animation\n");
  EXPECT_EQ(undated(outcome.out), emptyJvx);
  EXPECT_EQ(run({"-t", "nan", "static.zrd"}).err, "");
  EXPECT_EQ(run({"-d", "-t", "1", "static.zrd"}).err, "Warning: not an animation\n");
}

TEST_F(Conversion, FileThatIsInputAndOutputIsEmptiedFirst) {
  const Outcome outcome = run({"static.zrd", "-o", "static.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "Warning: parser error '3' [line 1 column 0]\n" + noScene);
}

TEST_F(Conversion, ParserErrorNamesItsPlace) {
  write("broken.zrd", "<Canvas>\n<Scene3d>\n   </Scene2d></Canvas>\n");
  const Outcome outcome = run({"broken.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "Warning: parser error '7' [line 3 column 5]\n" + noScene);
  EXPECT_EQ(undated(outcome.out), jvxHeader);
}

TEST_F(Conversion, EveryBlockAfterAParserErrorRepeatsTheWarning) {
  const struct {
    std::size_t length;
    std::size_t blocks;
  } cases[] = {{511, 1}, {512, 2}, {513, 2}, {1023, 2}, {1024, 3}, {51200, 101}, {51201, 101}};
  for (const auto& [length, blocks] : cases) {
    write("broken.zrd", brokenDocument(length));
    const Outcome outcome = run({"broken.zrd"});
    EXPECT_EQ(outcome.status, 2);
    const std::string first = "Warning: parser error '7' [line 1 column 10]\n";
    EXPECT_EQ(outcome.err.substr(0, first.size()), first);
    EXPECT_EQ(countOf("Warning: parser error '7'", outcome.err), blocks) << length << " bytes";
    EXPECT_EQ(outcome.err.substr(outcome.err.size() - noScene.size()), noScene);
    EXPECT_EQ(undated(outcome.out), jvxHeader);
  }
}

TEST_F(Conversion, WholeBlocksEndWithAnEmptyOne) {
  for (const std::size_t length : {512u, 1024u, 65536u, 65537u}) {
    std::string document = staticDocument;
    document.resize(length, '\n');
    write("long.zrd", document);
    const Outcome outcome = run({"long.zrd"});
    EXPECT_EQ(outcome.status, 0) << length << " bytes";
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(undated(outcome.out), emptyJvx);
  }
}

TEST_F(Conversion, NothingOfADocumentWithAnErrorIsExported) {
  write("broken.zrd", staticDocument + "<");
  const Outcome outcome = run({"broken.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(undated(outcome.out), jvxHeader);
}

TEST_F(Conversion, AnimationBeyondAllMeasureEndsBeforeItsFirstFile) {
  for (const char* end : {"inf", "nan", "1e9", "1000000"}) {
    write("long.zrd", "<Canvas><TimeRange TimeBegin='0' TimeEnd='" + std::string(end) +
                          "'/><Scene3d><CoordinateSystem3d/></Scene3d></Canvas>");
    const Outcome outcome = run({"-f", "1", "-o", "out.jvx", "long.zrd"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "Error: time range too large (exiting)\n");
    EXPECT_EQ(files(), "animated.zrd long.zrd static.zrd");
    EXPECT_EQ(run({"-t", "5", "long.zrd"}).status, 0) << "one frame of it is none of these";
  }
}

TEST_F(Conversion, DocumentWithErrorIsNotAnimated) {
  write("broken.zrd", animatedDocument + "<");
  const Outcome outcome = run({"-f", "5", "-o", "out.jvx", "broken.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.err.find(notAnimated + noScene), std::string::npos);
  EXPECT_TRUE(exists("out.jvx"));
}

TEST_F(Conversion, FailedExportLeavesATruncatedFileWithoutWhatWasBuffered) {
  write("broken.zrd", brokenDocument(20));
  write("out.jvx", "what was there before");
  const Outcome outcome = run({"broken.zrd", "-o", "out.jvx"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(read("out.jvx"), "");
}

TEST_F(Conversion, DisplayDocumentWithoutSceneIsAnErrorToo) {
  write("broken.zrd", brokenDocument(20));
  const Outcome outcome = run({"-d", "broken.zrd"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "Warning: parser error '7' [line 1 column 10]\n" + noScene);
}

// The place is that of the tag at which the data are found to be bad.
TEST_F(Conversion, BadDataEndsTheProcessAbnormally) {
  const struct {
    const char* name;
    std::string document;
    const char* place;
    const char* reason;
  } rows[] = {
      {"outermost element other than Canvas", "<Scene3d/>", "<Scene3d",
       "HIERARCHY_REQUEST_ERR: element 'Scene3d'"},
      {"outermost point", "<P3>1 2 3</P3>", "</P3>", "INVALID_ACCESS_ERR: element 'P3'"},
      {"mandatory Type missing", inPlane("<Obj2d/>"), "<Obj2d",
       "INVALID_ACCESS_ERR: element 'Obj2d' needs attribute 'Type'"},
      {"mandatory Type empty", inPlane("<Obj2d Type=''/>"), "<Obj2d",
       "SYNTAX_ERR: element 'Obj2d', attribute 'Type', value ''"},
      {"mandatory Opt missing", inPlane("<Obj2d Type='F'><Expr>x</Expr></Obj2d>"), "<Expr",
       "HIERARCHY_REQUEST_ERR: element 'Expr' needs attribute 'Opt'"},
      {"child that is refused", "<Canvas><Line2d From='0 0' To='1 1'/></Canvas>", "<Line2d",
       "HIERARCHY_REQUEST_ERR: element 'Line2d' in 'Canvas'"},
      {"expression beyond a matrix",
       inPlane("<Transform2d Type='T'><Matrix2d><IExpr/><IExpr/><IExpr/><IExpr/><IExpr/></Matrix2d>"
               "</Transform2d>"),
       "<IExpr/></Matrix2d>", "HIERARCHY_REQUEST_ERR: element 'IExpr' in 'Matrix2d'"},
      {"element behind a nested Canvas", "<Canvas><Canvas/><Scene3d/></Canvas>", "<Scene3d",
       "HIERARCHY_REQUEST_ERR: element 'Scene3d'"},
      {"attribute of other elements", "<Canvas UMesh='2'/>", "<Canvas",
       "INVALID_ACCESS_ERR: element 'Canvas', attribute 'UMesh', value '2'"},
      {"text of an integer", inImage("<ColorArray2d XMesh='two' YMesh='1'/>"), "<ColorArray2d",
       "SYNTAX_ERR: element 'ColorArray2d', attribute 'XMesh', value 'two'"},
      {"text of a length", "<Canvas Width='wide'/>", "<Canvas",
       "SYNTAX_ERR: element 'Canvas', attribute 'Width', value 'wide'"},
      {"text of a point", inImage("<Line2d From='0' To='1 1'/>"), "<Line2d",
       "SYNTAX_ERR: element 'Line2d', attribute 'From', value '0'"},
      {"text of a colour", inImage("<Line2d From='0 0' To='1 1' LineColor='red'/>"), "<Line2d",
       "SYNTAX_ERR: element 'Line2d', attribute 'LineColor', value 'red'"},
      {"text of a truth value", inPlane("<Obj2d Type='F' Visible='perhaps'/>"), "<Obj2d",
       "SYNTAX_ERR: element 'Obj2d', attribute 'Visible', value 'perhaps'"},
      {"point with too few numbers", corruptedDocument, "</P3>",
       "INVALID_ACCESS_ERR: element 'P3', data '1 2'"},
      {"point with no numbers", inImage("<Pts2d><P2/></Pts2d>"), "</Pts2d>",
       "INVALID_ACCESS_ERR: element 'P2', data ''"},
      {"point where none belongs", inImage("<P2>1 2</P2>"), "</P2>",
       "INVALID_ACCESS_ERR: element 'P2' in 'Img2d'"},
      {"plain point behind a coloured", inImage("<Pts2d><P2>1 2 #ff0000</P2><P2>1 2</P2></Pts2d>"),
       "</P2></Pts2d>", "INVALID_ACCESS_ERR: element 'P2' in 'Pts2d'"},
      {"colour with too few digits", inImage("<Pts2d><P2>1 2 #ff00</P2></Pts2d>"), "</P2>",
       "INVALID_ACCESS_ERR: element 'P2', data '1 2 #ff00'"},
      {"word that is no number",
       inImage("<DensityArray2d XMesh='1' YMesh='1'>abc</DensityArray2d>"), "</DensityArray2d>",
       "INVALID_ACCESS_ERR: element 'DensityArray2d', data 'abc'"},
      {"values missing", inImage("<DensityArray2d XMesh='2' YMesh='2'>1 2 3</DensityArray2d>"),
       "</DensityArray2d>", "INVALID_ACCESS_ERR: element 'DensityArray2d', values missing"},
      {"colours missing", inImage("<ColorArray2d XMesh='2' YMesh='1'>#ff0000</ColorArray2d>"),
       "</ColorArray2d>", "INVALID_ACCESS_ERR: element 'ColorArray2d', colors missing"},
  };
  for (const auto& [name, document, place, reason] : rows) {
    SCOPED_TRACE(name);
    const std::string announcement = badDataIn(1, document.find(place), reason);
    write("in.zrd", document);
    expectAbnormalEnd({"in.zrd"}, announcement, "Arbor::DomException");
    write("out.jvx", "what was there before");
    expectAbnormalEnd({"in.zrd", "-o", "out.jvx"}, announcement, "Arbor::DomException");
    EXPECT_EQ(read("out.jvx"), "");
  }
}

TEST_F(Conversion, BadDataHaveAPlaceInALongDocument) {
  write("in.zrd", "<Canvas>\n\n" + std::string(100'000, '\n') + "   <Scene2d/><Scene2d Foo='\n'\n" +
                      " Layout='\n" + std::string(1000, 'x') + "'/>\n<Bar></Foo></Canvas>\n");
  expectAbnormalEnd({"in.zrd"},
                    badDataIn(100'003, 13,
                              "INVALID_ACCESS_ERR: element 'Scene2d', attribute "
                              "'Layout', value ' " +
                                  std::string(59, 'x') + "...'"),
                    "Arbor::DomException");
}

TEST_F(Conversion, ExceptionSaysWhatTheAnnouncementSays) {
  write("in.zrd", "<Canvas Width='wide'/>");
  EXPECT_EQ(run({"in.zrd"}).err,
            "vantry: bad data in line 1, column 0: SYNTAX_ERR: element 'Canvas', attribute "
            "'Width', value 'wide'" +
                wayOut +
                "\n"
                "terminate called after throwing an instance of 'Arbor::DomException'\n"
                "  what():  SYNTAX_ERR: element 'Canvas', attribute 'Width', value 'wide'\n");
}

TEST_F(Conversion, TextThatTheLocaleCannotReadEndsTheProcessAbnormally) {
  write("text.zrd", textDocument);
  setEnvironment("LC_ALL", "C.UTF-8");
  const Outcome readable = run({"text.zrd"});
  EXPECT_EQ(readable.status, 0);
  EXPECT_NE(readable.out.find("\xc3\xa9"), std::string::npos);

  setEnvironment("LC_ALL", "C");
  expectAbnormalEnd({"text.zrd"}, badTextAnnounced, badText);
}

// A locale of single bytes divides a character of more bytes, also one that its set has. Where the
// machine lacks this one, naming it is naming none, which ends in the same way.
TEST_F(Conversion, TextBeyondAsciiEndsTheProcessUnderALocaleOfSingleBytesToo) {
  constexpr const char* singleBytes = "de_DE.ISO-8859-1";
  if (const LocaleGuard guard(LC_CTYPE); !std::setlocale(LC_CTYPE, singleBytes)) {
    EXPECT_STRNE(std::getenv("LC_ALL"), singleBytes) << "these tests should run under it";
  }
  setEnvironment("LC_ALL", singleBytes);
  for (const char* text : {"\xc3\xa9", "\xce\xb2", "a\xe2\x82\xac"}) {
    write("text.zrd", inImage("<Text2d Position='1 2'>" + std::string(text) + "</Text2d>"));
    expectAbnormalEnd({"text.zrd"}, badTextAnnounced, badText);
  }
  write("text.zrd", inImage("<Text2d Position='1 2'>a &lt; b</Text2d>"));
  const Outcome outcome = run({"text.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(countOf("<p name=\"a &lt; b\">1 2</p>\n", outcome.out), 1U);
}

// Where the machine has the locale, its decimal mark is a comma; elsewhere naming it changes
// nothing.
TEST_F(Conversion, DecimalMarkOfTheLocaleIsNotUsed) {
  write("text.zrd", textDocument);
  setEnvironment("LC_ALL", "C.UTF-8");
  const std::string expected = run({"text.zrd"}).out;
  for (const std::string point : {">0.5 2.25</p>\n", ">1.5 -0.75</p>\n"}) {
    EXPECT_NE(expected.find(point), std::string::npos) << expected;
  }
  setEnvironment("LC_ALL", "");
  setEnvironment("LC_CTYPE", "C.UTF-8");
  setEnvironment("LC_NUMERIC", "de_DE.UTF-8");
  EXPECT_EQ(undated(run({"text.zrd"}).out), undated(expected));
}

TEST_F(Conversion, DateIsThatOfTheTimeZone) {
  constexpr std::time_t hour = 60 * 60;
  const struct {
    const char* timeZone;
    std::time_t offset;
  } rows[] = {{"UTC0", 0}, {"XYZ-9", 9 * hour}, {"XYZ+3:30", -3 * hour - hour / 2}};
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"static.zrd"}, {"-d", "static.zrd"}}) {
    for (const auto& [timeZone, offset] : rows) {
      setEnvironment("TZ", timeZone);
      const std::time_t before = std::time(nullptr) + offset;
      const std::time_t date = dateOf(run(arguments).out);
      EXPECT_LE(before, date) << timeZone;
      EXPECT_LE(date, std::time(nullptr) + offset) << timeZone;
    }
  }
}
