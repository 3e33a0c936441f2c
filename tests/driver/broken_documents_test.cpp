// Examples with something missing or something too much.

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "documents.h"
#include "program.h"

namespace {

const std::filesystem::path source = VANTRY_SOURCE_DIR;

std::string example(const char* name) { return contentOf(source / "examples" / name); }

const std::string arrayDocument =
    "<Canvas><Scene2d><CoordinateSystem2d><Obj2d Type=\"Density\"><Img2d>"
    "<DensityArray2d XMesh=\"2\" YMesh=\"2\">1 2.5\n-3 4e1</DensityArray2d>"
    "</Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>\n";

/// How a document is converted, and what is said and written if nothing is left of it.
struct Mode {
  std::vector<std::string> arguments;
  std::string warning;
  std::string out;
  std::string files;
};

const Mode model = {{"in.zrd"}, "", jvxHeader, "in.zrd"};
const Mode display = {{"-d", "in.zrd"}, "", jvdHeader, "in.zrd"};
const Mode animation = {{"-f", "1", "-o", "out.jvx", "in.zrd"}, notAnimated, "", "in.zrd out.jvx"};

class BrokenDocument : public ProgramTest {
 protected:
  /// Cuts a document off at its begin and at every `step`th byte behind it that lies before the end
  /// of its root element. That is one error, which is found at the end of the input. Cut off
  /// directly behind the root element, the document is whole.
  void expectNoSceneWhenCutOff(const std::string& document, const Mode& mode,
                               std::size_t step = 1) const {
    static const std::regex place(R"('[356]' \[line \d+ column \d+\])");
    const std::size_t end = document.find("</Canvas>") + 9;
    for (std::size_t at = 0; at < end; at += step) {
      SCOPED_TRACE(testing::Message() << "cut off at byte " << at);
      write("in.zrd", document.substr(0, at));
      const Outcome outcome = run(mode.arguments);
      EXPECT_EQ(outcome.status, 2);
      EXPECT_EQ(std::regex_replace(outcome.err, place, "AT ITS PLACE"),
                "Warning: parser error AT ITS PLACE\n" + mode.warning + noScene);
      EXPECT_EQ(undated(outcome.out), mode.out);
      EXPECT_EQ(files(), mode.files);
      EXPECT_EQ(exists("out.jvx") ? read("out.jvx") : "", "");
    }
    write("in.zrd", document.substr(0, end));
    const Outcome outcome = run(mode.arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
  }

  /// The document is not well formed: that is warned of, and nothing of it is exported.
  void expectNoScene(const std::string& document) const {
    static const std::regex complaints(
        R"((Warning: parser error '\d+' \[line \d+ column \d+\]\n)+Error: no scene \(exiting\)\n)");
    write("in.zrd", document);
    const Outcome outcome = run({"in.zrd"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(std::regex_match(outcome.err, complaints)) << outcome.err;
    EXPECT_EQ(undated(outcome.out), jvxHeader);
  }

  /// Tries all that `change` makes of an example at every `step`th place inside its root element.
  template <class Change>
  void expectNoSceneAt(const char* name, std::size_t step, Change change) const {
    const std::string document = example(name);
    const std::size_t end = document.find("</Canvas>");
    for (std::size_t at = document.find("<Canvas") + 1; at < end; at += step) {
      SCOPED_TRACE(testing::Message() << name << " at byte " << at);
      expectNoScene(change(document, at));
    }
  }
};

std::string withStrayCharacter(std::string document, std::size_t at) {
  return document.insert(at, 1, '<');
}

std::string withStrayNul(std::string document, std::size_t at) {
  return document.insert(at, 1, '\0');
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

}  // namespace

TEST_F(BrokenDocument, SurfaceCutOff) {
  expectNoSceneWhenCutOff(example("surface_smallest.zrd"), model);
  expectNoSceneWhenCutOff(example("surface.zrd"), model, 23);
}

TEST_F(BrokenDocument, TextCutOff) {
  setEnvironment("LC_ALL", "C.UTF-8");
  expectNoSceneWhenCutOff(textDocument, model);
  expectNoSceneWhenCutOff(example("texts2d.zrd"), model, 7);
}

TEST_F(BrokenDocument, ArrayCutOff) {
  expectNoSceneWhenCutOff(arrayDocument, model);
  expectNoSceneWhenCutOff(example("color_array.zrd"), model, 7);
}

TEST_F(BrokenDocument, AnimationCutOff) { expectNoSceneWhenCutOff(animatedDocument, animation); }

TEST_F(BrokenDocument, AnimationOfKeyFramesCutOff) {
  expectNoSceneWhenCutOff(example("surface_animated.zrd"), animation, 11);
}

TEST_F(BrokenDocument, DisplayCutOff) {
  expectNoSceneWhenCutOff(animatedDocument, display);
  expectNoSceneWhenCutOff(example("camera_animated.zrd"), display, 11);
}

TEST_F(BrokenDocument, CutOffNamesItsPlace) {
  const struct {
    const char* document;
    const char* error;
  } rows[] = {
      {"", "'3' [line 1 column 0]"},
      {"<", "'5' [line 1 column 0]"},
      {"<?xml versi", "'5' [line 1 column 0]"},
      {"<?xml version=\"1.0\"?>\n", "'3' [line 2 column 0]"},
      {"<?xml version=\"1.0\"?>\n<!-- wave", "'5' [line 2 column 0]"},
      {"<Canvas", "'5' [line 1 column 0]"},
      {"<Canvas>\n", "'3' [line 2 column 0]"},
      {"<Canvas>\n <Scene3d Name=\"a", "'5' [line 2 column 1]"},
      {"<Canvas>\n <Scene3d>\n", "'3' [line 3 column 0]"},
      {"<Canvas>\n text", "'3' [line 2 column 5]"},
      {"<Canvas>\n &am", "'5' [line 2 column 1]"},
      {"<Canvas>\n \xC3", "'6' [line 2 column 1]"},
      {"<Canvas>\n</", "'5' [line 2 column 0]"},
      {"<Canvas>\n</Canvas", "'5' [line 2 column 0]"},
  };
  for (const auto& [document, error] : rows) {
    write("in.zrd", document);
    EXPECT_EQ(run({"in.zrd"}).err, std::string("Warning: parser error ") + error + "\n" + noScene);
  }
}

TEST_F(BrokenDocument, StrayCharacterAtAnyByte) {
  expectNoSceneAt("surface_smallest.zrd", 1, withStrayCharacter);
}

TEST_F(BrokenDocument, StrayNulByte) { expectNoSceneAt("surface_smallest.zrd", 7, withStrayNul); }

TEST_F(BrokenDocument, UnknownElementsAndAttributesAreSkipped) {
  const std::string document = example("surface_smallest.zrd");
  std::string extended = replaced(document, "</", "<Unknown Type='1'>no <P3>0</P3></Unknown></");
  extended = replaced(extended, "<P3>0 ", "<P3 Colour='red' LineColor='#123456'>0 ");
  extended = replaced(extended, "<Img3d>", "<Img3d xmlns:x='urn:x' x:Type='none'><x:Mesh3d/>");
  extended = replaced(extended, "<Canvas", "<Canvas Unknown='' Decimal='.'");
  ASSERT_NE(extended, document);
  write("in.zrd", extended);
  const Outcome outcome = run({"in.zrd"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(undated(outcome.out), contentOf(source / "tests/examples/surface_smallest.jvx"));
}
