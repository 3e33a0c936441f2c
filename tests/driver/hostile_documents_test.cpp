// Documents that try to exhaust the program, and the lack of what it needs.

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "documents.h"
#include "program.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

const std::filesystem::path source = VANTRY_SOURCE_DIR;

constexpr std::uint64_t megabyte = 1024 * 1024;

const std::string documentBegin =
    "<Canvas xmlns=\"http://plots.example/xml/Corvane\"><Scene2d><CoordinateSystem2d>";
const std::string animationBegin =
    "<Canvas xmlns=\"http://plots.example/xml/Corvane\"><TimeRange TimeBegin=\"0\" TimeEnd=\"1\"/>"
    "<Scene2d><CoordinateSystem2d>";
const std::string documentEnd = "</CoordinateSystem2d></Scene2d></Canvas>";
const std::string lineObject =
    "<Obj2d Type=\"Line2d\"><Img2d><Line2d From=\"0 0\" To=\"3 4\"/></Img2d></Obj2d>";
const std::string lineOutput = "<p>0 0</p>\n<p>3 4</p>\n";

/// An object with that text at (1, 2).
std::string textObject(const std::string& text) {
  return "<Obj2d Type=\"Text2d\"><Img2d><Text2d Position=\"1 2\">" + text +
         "</Text2d></Img2d></Obj2d>";
}

std::string repeated(const std::string& text, std::size_t count) {
  std::string all;
  all.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

/// `count` texts, in each of which every "#" is its number.
std::string numbered(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) {
    for (const char c : text) c == '#' ? all += std::to_string(i) : all += c;
  }
  return all;
}

class HostileDocument : public ProgramTest {
 protected:
  // All of these take a second at most. Were one to cost the square of its size, it would take
  // many minutes, and is killed.
  HostileDocument() {
    setLimit(RLIMIT_CPU, 100);
    setLimit(RLIMIT_STACK, 8 * megabyte);
    if (!isSanitized) setLimit(RLIMIT_AS, 600 * megabyte);
  }

  Outcome convert(const std::string& document, const std::string& mode = "") const {
    write("in.zrd", document);
    return mode.empty() ? run({"in.zrd"}) : run({mode, "in.zrd"});
  }

  /// The document holds the line once, and both kinds of output are written without a complaint.
  void expectTheLine(const std::string& document) const {
    const Outcome model = convert(document);
    EXPECT_EQ(model.status, 0);
    EXPECT_EQ(model.err, "");
    EXPECT_EQ(countOf(lineOutput, model.out), 1U);
    EXPECT_EQ(countOf("<geometry>", model.out), 1U);

    const Outcome display = convert(document, "-d");
    EXPECT_EQ(display.status, 0);
    EXPECT_EQ(display.err, "");
    EXPECT_EQ(countOf("</jv-disp>", display.out), 1U);
  }

  void expectAbnormalEnd(const std::string& document) const {
    const Outcome outcome = convert(document);
    EXPECT_EQ(outcome.signal, SIGABRT);
    EXPECT_EQ(outcome.err.find("Error:"), std::string::npos);
    EXPECT_EQ(outcome.err.find("Sanitizer"), std::string::npos);
    EXPECT_EQ(outcome.out, "");
  }

  void expectParserError(const std::string& document, const std::string& number) const {
    const Outcome outcome = convert(document);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.err.starts_with("Warning: parser error '" + number + "' [")) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with("Error: no scene (exiting)\n")) << outcome.err;
    EXPECT_EQ(undated(outcome.out), jvxHeader);
  }
};

class Shortage : public ProgramTest {};

/// UTF-16 of a text of ASCII, in this order of bytes, with a byte-order mark.
std::string utf16(const std::string& text, bool bigEndian) {
  std::string wide = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : text) {
    wide += bigEndian ? '\0' : c;
    wide += bigEndian ? c : '\0';
  }
  return wide;
}

}  // namespace

// ---- Size ----

TEST_F(HostileDocument, NestedGroups) {
  expectTheLine(documentBegin + repeated("<Group2d>", 100'000) + lineObject +
                repeated("</Group2d>", 100'000) + documentEnd);
}

TEST_F(HostileDocument, NestedTransforms) {
  expectTheLine(documentBegin + repeated("<Transform2d Type=\"Translate2d\"><Tr2d/>", 50'000) +
                lineObject + repeated("</Transform2d>", 50'000) + documentEnd);
}

TEST_F(HostileDocument, NestedUnknownElements) {
  expectTheLine(documentBegin + repeated("<Unknown>", 300'000) + repeated("</Unknown>", 300'000) +
                lineObject + documentEnd);
}

TEST_F(HostileDocument, Siblings) {
  expectTheLine(documentBegin + repeated("<Group2d/>", 1'000'000) + lineObject + documentEnd);
}

TEST_F(HostileDocument, OptionsThatAreReplacedBehindManySiblings) {
  expectTheLine(documentBegin + lineObject + repeated("<Group2d/>", 50'000) +
                repeated("<XAxisTitle>x</XAxisTitle><YAxisTitle>y</YAxisTitle>", 25'000) +
                documentEnd);
}

TEST_F(HostileDocument, TicksWithTitles) {
  expectTheLine(documentBegin + lineObject + "<XTicksAt>" +
                repeated("<TickPos><VExpr>1</VExpr><Title>t</Title></TickPos>", 100'000) +
                "</XTicksAt>" + documentEnd);
}

TEST_F(HostileDocument, StylesThatDiffer) {
  expectTheLine(documentBegin + numbered("<ObjStyle Type=\"K#\" LineWidth=\"1#\"/>", 20'000) +
                lineObject + documentEnd);
}

TEST_F(HostileDocument, StylesForEachOfManyObjects) {
  const std::string document =
      documentBegin + numbered("<ObjStyle Type=\"K#\" LineWidth=\"2\"/>", 50'000) +
      numbered("<Obj2d Type=\"K#\"><Img2d><Line2d From=\"0 0\" To=\"3 4\"/></Img2d></Obj2d>",
               50'000) +
      documentEnd;
  const Outcome outcome = convert(document);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf(lineOutput, outcome.out), 50'000U);
}

TEST_F(HostileDocument, StylesInEachOfManyGroupsThatAreDeepDown) {
  const std::string document =
      documentBegin + repeated("<Group2d>", 100'000) +
      repeated("<Group2d><ObjStyle Type=\"Line2d\"/>" + lineObject + "</Group2d>", 50'000) +
      repeated("</Group2d>", 100'000) + documentEnd;
  const Outcome outcome = convert(document);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf(lineOutput, outcome.out), 50'000U);
}

TEST_F(HostileDocument, StylesInEachOfNestedGroups) {
  const std::string group = "<Group2d><ObjStyle Type=\"Line2d\" LineWidth=\"1\"/>" + lineObject;
  const Outcome outcome = convert(documentBegin + repeated(group, 50'000) +
                                  repeated("</Group2d>", 50'000) + documentEnd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf(lineOutput, outcome.out), 50'000U);
}

TEST_F(HostileDocument, StylesBehindGroupsThatAreDeepDown) {
  const std::string group = "<Group2d><Group2d>" + lineObject +
                            "</Group2d><ObjStyle Type=\"Line2d\"/>" + lineObject + "</Group2d>";
  const Outcome outcome =
      convert(documentBegin + repeated("<Group2d>", 50'000) + repeated(group, 25'000) +
              repeated("</Group2d>", 50'000) + documentEnd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf(lineOutput, outcome.out), 50'000U);
}

TEST_F(HostileDocument, TypesThatDiffer) {
  expectTheLine(documentBegin + numbered("<Group2d><ObjStyle Type=\"K#\"/></Group2d>", 200'000) +
                lineObject + documentEnd);
}

TEST_F(HostileDocument, UnknownAttributes) {
  expectTheLine(documentBegin + "<Group2d " + numbered(" a#='1'", 100'000) + "/>" + lineObject +
                documentEnd);
}

TEST_F(HostileDocument, NamespacesThatDiffer) {
  expectTheLine(documentBegin + numbered("<x#:Foo xmlns:x#='urn:#'/>", 100'000) + lineObject +
                documentEnd);
}

TEST_F(HostileDocument, AttributeOfFiftyMegabytes) {
  expectTheLine(documentBegin + "<Group2d Name=\"" + std::string(50 * megabyte, 'x') + "\"/>" +
                lineObject + documentEnd);
}

TEST_F(HostileDocument, UnknownAttributeOfFiftyMegabytes) {
  expectTheLine(documentBegin + "<Group2d Unknown=\"" + std::string(50 * megabyte, 'x') + "\"/>" +
                lineObject + documentEnd);
}

TEST_F(HostileDocument, TextOfFiftyMegabytes) {
  const std::string text(50 * megabyte, 'y');
  const Outcome outcome = convert(documentBegin + textObject(text) + documentEnd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const std::string point = "<p name=\"" + text + "\">1 2</p>\n";
  EXPECT_TRUE(outcome.out.find(point) != std::string::npos);
}

TEST_F(HostileDocument, TextThatNobodyTakes) {
  expectTheLine(documentBegin + std::string(50 * megabyte, 'y') + lineObject + documentEnd);
}

TEST_F(HostileDocument, CommentOfFiftyMegabytes) {
  expectTheLine(documentBegin + "<!--" + std::string(50 * megabyte, 'c') + "-->" + lineObject +
                documentEnd);
}

TEST_F(HostileDocument, PointBehindThirtyMegabytesOfBlanks) {
  const Outcome outcome = convert(
      "<Canvas xmlns=\"http://plots.example/xml/Corvane\"><Scene3d><CoordinateSystem3d>"
      "<Obj3d Type=\"PointList3d\"><Img3d><Pts3d><P3>" +
      std::string(30 * megabyte, ' ') +
      "1 2 3</P3></Pts3d></Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf("<p>1 2 3</p>\n", outcome.out), 1U);
}

// The number of warnings is that of the blocks from the one on that shows the error, however the
// parser looks for it, and so are their places.
TEST_F(HostileDocument, ErrorInALongTokenIsWarnedOfFromItsBlockOn) {
  const std::string behindAComment = "-->" + repeated("<b/>", 200) + "</b>";
  const struct {
    const char* before;
    const char* error;  // its last character shows it
    const char* number;
  } rows[] = {{"<Canvas>\n<Group2d Name='", "<", "4"},
              {"<Canvas>\n<Group2d Name='", "' Name=''>", "8"},
              {"<Canvas>\n<!-- ", "--x", "4"},
              {"<Canvas>\n<!-- it's ", behindAComment.c_str(), "7"},
              {"<Canvas>\n</Canva", ">", "7"}};
  for (const auto& [before, error, number] : rows) {
    for (const std::size_t length : {20u, 2'000u, 15'000u, 16'500u, 60'000u, 300'000u}) {
      SCOPED_TRACE(testing::Message() << before << " " << length << " " << error);
      const std::string start = before + std::string(length, 's') + error;
      const std::string document = start + std::string(100'000, ' ');
      const std::size_t blocks = document.size() / 512 + 1 - (start.size() - 1) / 512;
      const Outcome outcome = convert(document);
      const std::string warning = "Warning: parser error '" + std::string(number) + "' [line ";
      EXPECT_TRUE(outcome.err.starts_with(warning + "2 column ")) << outcome.err.substr(0, 80);
      EXPECT_EQ(countOf(warning, outcome.err), blocks);
      EXPECT_EQ(countOf("Warning", outcome.err), blocks);
      EXPECT_EQ(outcome.status, 2);

      setFailing("READ_TOKENS_AGAIN", "1");
      EXPECT_EQ(outcome.err, convert(document).err);
      setEnvironment("LD_PRELOAD", "");
    }
  }
}

// ---- Sizes that are not true ----

TEST_F(HostileDocument, MeshOfNearlyAllPointsThatThereCanBe) {
  const Outcome outcome = convert(
      "<Canvas xmlns=\"http://plots.example/xml/Corvane\"><Scene3d><CoordinateSystem3d>"
      "<Obj3d Type=\"Surface\"><Img3d><Mesh3d UMesh=\"2147483647\" VMesh=\"2147483647\""
      " USubmesh=\"2147483647\" VSubmesh=\"2147483647\"><P3>1 2 3</P3><P3>1 2 3</P3></Mesh3d>"
      "</Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "Error: not enough points in Mesh3d (exiting)\n");
}

TEST_F(HostileDocument, RastersOfMoreCellsThanCanBeCounted) {
  for (const char* mesh : {"65536", "2147483647", "99999999999999999999"}) {
    for (const char* raster : {"DensityArray2d", "ColorArray2d"}) {
      SCOPED_TRACE(std::string(raster) + " " + mesh);
      const std::string tag = raster;
      expectAbnormalEnd(documentBegin + "<Obj2d Type=\"Density\"><Img2d><" + tag + " XMesh=\"" +
                        mesh + "\" YMesh=\"" + mesh +
                        "\" XMin=\"0\" XMax=\"1\" YMin=\"0\" YMax=\"1\">" + "1 #000000</" + tag +
                        "></Img2d></Obj2d>" + documentEnd);
    }
  }
}

// ---- Entities ----

TEST_F(HostileDocument, EntitiesExpandInTexts) {
  const Outcome outcome =
      convert("<!DOCTYPE Canvas [<!ENTITY two '&one; and &one;'><!ENTITY one 'lemon'>]>" +
              documentBegin + textObject("&two;") + documentEnd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf("<p name=\"lemon and lemon\">1 2</p>\n", outcome.out), 1U);
}

TEST_F(HostileDocument, EntitiesThatExpandWithoutMeasureAreRefused) {
  std::string entities = "<!ENTITY e0 'aaaaaaaaaa'>";
  for (int i = 1; i < 10; ++i) {
    entities += "<!ENTITY e" + std::to_string(i) + " '" +
                repeated("&e" + std::to_string(i - 1) + ";", 10) + "'>";
  }
  expectParserError("<!DOCTYPE Canvas [" + entities + "]>" + documentBegin +
                        "<XAxisTitle>&e9;</XAxisTitle>" + documentEnd,
                    "43");
}

TEST_F(HostileDocument, EntityThatHoldsItself) {
  expectParserError("<!DOCTYPE Canvas [<!ENTITY e '&e;'>]>" + documentBegin +
                        "<XAxisTitle>&e;</XAxisTitle>" + documentEnd,
                    "12");
}

TEST_F(HostileDocument, EntitiesOfOtherFilesAreNotRead) {
  write("secret.txt", "secret");
  const Outcome outcome = convert("<!DOCTYPE Canvas [<!ENTITY e SYSTEM 'secret.txt'>]>" +
                                  documentBegin + textObject("&e;") + documentEnd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf("secret", outcome.out), 0U);
}

TEST_F(HostileDocument, EntitiesMakeTenTimesTheDocumentAtMost) {
  const auto document = [](std::size_t size) {
    return "<!DOCTYPE Canvas [<!ENTITY e '" + std::string(size, 'e') + "'>]>" + documentBegin +
           lineObject + repeated("&e;", 100'000) + documentEnd;
  };
  expectTheLine(document(26));
  expectParserError(document(28), "43");
  EXPECT_EQ(convert("<!DOCTYPE Canvas [<!ENTITY e '" + std::string(10'000, 'e') + "'>]>" +
                    documentBegin + lineObject + repeated("&e;", 100) + documentEnd)
                .status,
            0)
      << "a megabyte of them is always taken";
}

TEST_F(HostileDocument, DefaultAttributesMakeTenTimesTheDocumentAtMost) {
  const auto document = [](std::size_t size, int count) {
    return "<!DOCTYPE Canvas [<!ATTLIST Group2d Name CDATA '" + std::string(size, 'x') + "'>]>" +
           documentBegin + lineObject + repeated("<Group2d/>", static_cast<std::size_t>(count)) +
           documentEnd;
  };
  expectTheLine(document(10'000, 100));
  expectTheLine(document(84, 50'000));
  expectParserError(document(88, 50'000), "43");
  expectParserError(document(333'000, 33'000), "43");
}

// ---- Encodings ----

TEST_F(HostileDocument, ByteOrderMarkIsNoText) {
  expectTheLine("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + documentBegin +
                lineObject + documentEnd);
}

TEST_F(HostileDocument, Utf16) {
  expectTheLine(utf16("<?xml version=\"1.0\"?>" + documentBegin + lineObject + documentEnd, true));
  expectTheLine(utf16(
      "<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + documentBegin + lineObject + documentEnd,
      false));
}

TEST_F(HostileDocument, Latin1) {
  setEnvironment("LC_ALL", "C.UTF-8");
  const Outcome outcome = convert("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" +
                                  documentBegin + textObject("\xE9") + documentEnd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(countOf("<p name=\"\xC3\xA9\">1 2</p>\n", outcome.out), 1U);
}

TEST_F(HostileDocument, UnknownEncoding) {
  expectParserError(
      "<?xml version=\"1.0\" encoding=\"KOI8-Z\"?>" + documentBegin + lineObject + documentEnd,
      "18");
}

TEST_F(HostileDocument, BytesThatAreNoUtf8) {
  expectParserError(documentBegin + "\xC3\x28" + lineObject + documentEnd, "4");
}

TEST_F(HostileDocument, Utf16CutInTheMiddleOfACharacter) {
  const std::string whole = utf16(documentBegin + lineObject + documentEnd, true);
  const Outcome outcome = convert(whole.substr(0, whole.size() - 1));
  EXPECT_EQ(outcome.status, 2);
}

// ---- Shortage ----

TEST_F(Shortage, FileThatCannotGrowIsNoSuccess) {
  write("small.zrd", contentOf(source / "examples/surface.zrd"));
  write("large.zrd", documentBegin + repeated(lineObject, 2'000) + documentEnd);
  for (const std::vector<std::string>& input :
       {std::vector<std::string>{"small.zrd"}, {"large.zrd"}, {"-d", "small.zrd"}}) {
    std::vector<std::string> intoFile = input;
    intoFile.insert(intoFile.end(), {"-o", "out"});
    setLimit(RLIMIT_FSIZE, RLIM_INFINITY);
    const std::string whole = undated(run(input).out);
    const std::size_t size = run(input).out.size();
    for (const std::size_t limit : {std::size_t{0}, std::size_t{1}, size / 2, size - 1}) {
      SCOPED_TRACE(testing::Message() << testing::PrintToString(input) << " up to " << limit);
      setLimit(RLIMIT_FSIZE, limit);
      for (const std::vector<std::string>& arguments : {input, intoFile}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, notWritten);
        EXPECT_LE(outcome.out.size(), limit);
      }
      EXPECT_LE(read("out").size(), limit);
    }
    setLimit(RLIMIT_FSIZE, size);
    EXPECT_EQ(run(intoFile).status, 0);
    EXPECT_EQ(undated(read("out")), whole);
  }
}

TEST_F(Shortage, FrameThatCannotGrowIsNoSuccess) {
  write("in.zrd", animationBegin + lineObject +
                      "<Obj2d Type=\"Line2d\" TimeBegin=\"1\" VisibleBeforeBegin=\"0\"><Img2d>" +
                      repeated("<Line2d From=\"0 0\" To=\"3 4\"/>", 10) + "</Img2d></Obj2d>" +
                      documentEnd);
  const std::vector<std::string> arguments = {"-f", "2", "-o", "out.jvx", "in.zrd"};
  EXPECT_EQ(run(arguments).status, 0);
  const std::string first = read("out.1.jvx");
  EXPECT_EQ(read("out.2.jvx").size(), first.size());
  EXPECT_GT(read("out.3.jvx").size(), first.size());
  for (const char* name : {"out.1.jvx", "out.2.jvx"}) {
    EXPECT_EQ(countOf(lineOutput, read(name)), 1U);
    std::filesystem::remove(folder_.path() / name);
  }

  setLimit(RLIMIT_FSIZE, first.size());
  const Outcome outcome = run(arguments);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, notWritten);
  EXPECT_EQ(undated(read("out.1.jvx")), undated(first));
  EXPECT_EQ(undated(read("out.2.jvx")), undated(first));
  EXPECT_LE(read("out.3.jvx").size(), first.size());
}

// Nothing that depends on the document, nor any large buffer, lies on the stack.
TEST_F(Shortage, SmallStackIsEnough) {
  constexpr std::uint64_t kilobyte = 1024;
  setLimit(RLIMIT_STACK, (isSanitized ? 512 : 128) * kilobyte);
  setEnvironment("LC_ALL", "C.UTF-8");
  for (const auto& entry : std::filesystem::directory_iterator(source / "examples")) {
    if (entry.path().extension() != ".zrd") continue;
    for (const std::vector<std::string>& mode : {std::vector<std::string>{}, {"-d"}}) {
      std::vector<std::string> arguments = mode;
      arguments.push_back(entry.path());
      const Outcome outcome = run(arguments);
      EXPECT_EQ(outcome.status, 0) << entry.path();
      EXPECT_EQ(outcome.err, "") << entry.path();
    }
  }
  write("deep.zrd", documentBegin + repeated("<Group2d>", 100'000) + lineObject +
                        repeated("</Group2d>", 100'000) + documentEnd);
  EXPECT_EQ(run({"deep.zrd"}).status, 0);
  write("bad.zrd", "<Canvas Width='wide'/>");
  EXPECT_EQ(run({"bad.zrd"}).signal, SIGABRT);
}

// Under the address sanitizer, which keeps terabytes of addresses, nothing can be limited.
TEST_F(Shortage, FailingAllocationIsNoSuccess) {
  if (isSanitized) return;
  write("in.zrd", animationBegin + repeated(lineObject, 20'000) + documentEnd);
  const std::vector<std::string> names = {"out", "out.1", "out.2"};
  const auto everythingWritten = [&](const Outcome& outcome) {
    std::string all = undated(outcome.out);
    for (const std::string& name : names) all += exists(name) ? undated(read(name)) : "";
    return all;
  };
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"in.zrd"},
                                                    {"in.zrd", "-o", "out"},
                                                    {"-d", "in.zrd"},
                                                    {"-f", "1", "in.zrd", "-o", "out"}}) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    const auto runAnew = [&](std::uint64_t limit) {
      for (const std::string& name : names) std::filesystem::remove(folder_.path() / name);
      setLimit(RLIMIT_AS, limit);
      return run(arguments);
    };
    const std::string whole = everythingWritten(runAnew(RLIM_INFINITY));
    bool hasFailed = false;
    bool hasSucceeded = false;
    for (std::uint64_t limit = 8; limit <= 64; limit += 4) {
      const Outcome outcome = runAnew(limit * megabyte);
      if (outcome.status == 0) {
        EXPECT_EQ(everythingWritten(outcome), whole) << limit;
        hasSucceeded = true;
      } else {
        // A status of 127 is the dynamic loader's.
        EXPECT_TRUE(outcome.status == 2 || outcome.status == 127 || outcome.signal == SIGABRT)
            << limit << ": status " << outcome.status << ", signal " << outcome.signal;
        hasFailed = true;
      }
    }
    EXPECT_TRUE(hasFailed && hasSucceeded);
  }
}
