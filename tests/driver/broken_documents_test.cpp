// Examples with something missing or something too much.

#include <filesystem>
#include <regex>
#include <string>

#include "documents.h"
#include "program.h"

namespace {

const std::filesystem::path source = VANTRY_SOURCE_DIR;

class BrokenDocument : public ProgramTest {
 protected:
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
  void expectNoSceneAt(const char* example, std::size_t step, Change change) const {
    const std::string document = contentOf(source / "examples" / example);
    const std::size_t end = document.find("</Canvas>");
    for (std::size_t at = document.find("<Canvas") + 1; at < end; at += step) {
      SCOPED_TRACE(testing::Message() << example << " at byte " << at);
      expectNoScene(change(document, at));
    }
  }
};

std::string cutOff(std::string document, std::size_t at) { return document.erase(at); }

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

TEST_F(BrokenDocument, CutOffAtAnyByte) {
  expectNoSceneAt("surface_smallest.zrd", 1, cutOff);
  expectNoSceneAt("surface.zrd", 61, cutOff);
}

TEST_F(BrokenDocument, StrayCharacterAtAnyByte) {
  expectNoSceneAt("surface_smallest.zrd", 1, withStrayCharacter);
}

TEST_F(BrokenDocument, StrayNulByte) { expectNoSceneAt("surface_smallest.zrd", 7, withStrayNul); }

TEST_F(BrokenDocument, CutOffBehindTheRootElementIsWhole) {
  const std::string document = contentOf(source / "examples/surface_smallest.zrd");
  write("in.zrd", document.substr(0, document.find("</Canvas>") + 9));
  EXPECT_EQ(run({"in.zrd"}).status, 0);
}

TEST_F(BrokenDocument, UnknownElementsAndAttributesAreSkipped) {
  const std::string document = contentOf(source / "examples/surface_smallest.zrd");
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
