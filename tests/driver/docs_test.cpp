// What the documentation shows is what is built and run: code, documents, output and links.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "documents.h"
#include "program.h"

namespace {

namespace fs = std::filesystem;

const fs::path source = VANTRY_SOURCE_DIR;
const fs::path docs = source / "docs";

/// A line without the blanks before it.
std::string withoutIndent(const std::string& line) {
  return line.substr(std::min(line.find_first_not_of(' '), line.size()));
}

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The fenced blocks of a page that are in the language.
std::vector<std::string> blocksOf(const fs::path& page, const std::string& language) {
  std::vector<std::string> blocks;
  bool isInBlock = false;
  bool isWanted = false;
  for (const std::string& line : linesOf(contentOf(page))) {
    if (line.starts_with("```")) {
      isInBlock = !isInBlock;
      isWanted = isInBlock && line == "```" + language;
      if (isWanted) blocks.emplace_back();
    } else if (isWanted) {
      blocks.back() += line + "\n";
    }
  }
  return blocks;
}

/// The documents of the manual.
std::vector<std::string> exampleNames() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(docs / "examples")) {
    names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The pages for people.
std::vector<fs::path> pages() {
  std::vector<fs::path> pages;
  for (const fs::path& folder : {source, docs}) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() == ".md") pages.push_back(entry.path());
    }
  }
  return pages;
}

/// The targets of the headings of a page: in small letters, with a hyphen for each blank, and
/// without punctuation.
std::set<std::string> anchorsOf(const fs::path& page) {
  std::set<std::string> anchors;
  for (const std::string& line : linesOf(contentOf(page))) {
    const std::size_t begin = line.find_first_not_of('#');
    if (begin == 0 || begin == std::string::npos || line[begin] != ' ') continue;
    std::string anchor = "#";
    for (const char letter : line.substr(begin + 1)) {
      const auto byte = static_cast<unsigned char>(letter);
      if (letter == ' ') {
        anchor += '-';
      } else if (std::isalnum(byte) || letter == '-' || letter == '_') {
        anchor += static_cast<char>(std::tolower(byte));
      }
    }
    anchors.insert(anchor);
  }
  return anchors;
}

/// The names of all tests, as "Suite", "Suite.Test" and "folder.Suite.Test", and of those that
/// CMake knows by a name of their own.
std::set<std::string> testNames() {
  static const std::regex definition(R"(^TEST(_F|_P)?\((\w+), (\w+)\))");
  static const std::regex command(R"(add_test\(NAME ([\w.]+))");
  std::set<std::string> names;
  std::smatch match;
  for (const auto& entry : fs::recursive_directory_iterator(source / "tests")) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string folder = *fs::relative(entry.path(), source / "tests").begin();
    for (const std::string& line : linesOf(contentOf(entry.path()))) {
      if (!std::regex_search(line, match, definition)) continue;
      const std::string name = match.str(2) + '.' + match.str(3);
      names.insert({match.str(2), name, folder + '.' + name});
    }
  }
  for (const std::string& line : linesOf(contentOf(source / "tests/CMakeLists.txt"))) {
    if (std::regex_search(line, match, command)) names.insert(match.str(1));
  }
  return names;
}

}  // namespace

TEST(Documentation, NamesTestsThatExist) {
  static const std::regex named(R"(`([\w.]+)`)");
  const std::set<std::string> tests = testNames();
  const std::string page = contentOf(docs / "model.md");
  unsigned found = 0;
  for (const std::string& line : linesOf(page.substr(page.find("## What can be relied on")))) {
    if (!line.starts_with("| ")) continue;
    for (std::sregex_iterator name(line.begin(), line.end(), named), end; name != end; ++name) {
      EXPECT_TRUE(tests.contains(name->str(1))) << name->str(1);
      ++found;
    }
  }
  EXPECT_GT(found, 30U);
}

TEST(Documentation, ShowsTheCodeOfTheExample) {
  std::set<std::string> example;
  for (const std::string& line : linesOf(contentOf(source / "examples/host/host.cpp"))) {
    example.insert(withoutIndent(line));
  }
  std::size_t count = 0;
  for (const std::string& block : blocksOf(docs / "model.md", "cpp")) {
    for (const std::string& line : linesOf(block)) {
      const std::string code = withoutIndent(line);
      if (code == "// ...") continue;
      EXPECT_TRUE(example.contains(code)) << code;
      ++count;
    }
  }
  EXPECT_GT(count, 50U);
}

TEST(Documentation, ShowsEachDocumentOfTheManualOnce) {
  std::vector<std::string> shown;
  for (const std::string& block : blocksOf(docs / "format.md", "xml")) {
    static const std::regex firstLine(R"(<!-- (\w+\.zrd): .+ -->)");
    std::smatch parts;
    const std::string line = linesOf(block).at(0);
    ASSERT_TRUE(std::regex_match(line, parts, firstLine)) << line;
    EXPECT_EQ(block, contentOf(docs / "examples" / parts[1].str()));
    shown.push_back(parts[1]);
  }
  std::sort(shown.begin(), shown.end());
  EXPECT_EQ(shown, exampleNames());
  EXPECT_GT(shown.size(), 30U);
}

class DocumentOfTheManual : public ProgramTest, public testing::WithParamInterface<std::string> {
 protected:
  DocumentOfTheManual() { setEnvironment("LC_ALL", "C.UTF-8"); }

  /// What the document is converted to.
  std::string outputOf(std::vector<std::string> arguments) const {
    arguments.push_back(docs / "examples" / GetParam());
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }
};

TEST_P(DocumentOfTheManual, HasGeometry) {
  const std::string output = outputOf({});
  EXPECT_NE(output.find("<geometry>\n<pointSet"), std::string::npos) << output;
  EXPECT_GT(countOf("</p>\n", output), 0U) << output;
  EXPECT_TRUE(output.ends_with("</jvx-model>\n")) << output;
}

TEST_P(DocumentOfTheManual, HasADisplay) {
  EXPECT_TRUE(outputOf({"-d"}).ends_with("</jv-disp>\n"));
}

INSTANTIATE_TEST_SUITE_P(All, DocumentOfTheManual, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return fs::path(test.param).stem().string(); });

class DocumentationOfOutput : public ProgramTest {
 protected:
  DocumentationOfOutput() { setEnvironment("LC_ALL", "C.UTF-8"); }
};

TEST_F(DocumentationOfOutput, ShowsPiecesOfWhatTheDocumentsOfTheManualBecome) {
  std::string outputs;
  for (const std::string& name : exampleNames()) {
    const std::string document = docs / "examples" / name;
    outputs += undated(run({document}).out) + undated(run({"-d", document}).out);
  }
  const std::vector<std::string> pieces = blocksOf(docs / "javaview.md", "xml");
  EXPECT_GT(pieces.size(), 5U);
  for (const std::string& piece : pieces) {
    EXPECT_NE(outputs.find(piece), std::string::npos) << piece;
  }
}

TEST(Documentation, LinksWithinTheRepositoryLeadSomewhere) {
  static const std::regex link(R"(\]\((?!\w+:)([^)#\s]*)(#[^)\s]*)?\))");
  std::size_t count = 0;
  for (const fs::path& page : pages()) {
    const std::string text = contentOf(page);
    for (std::sregex_iterator found(text.begin(), text.end(), link), end; found != end; ++found) {
      const fs::path target = (*found)[1].length() ? page.parent_path() / (*found)[1].str() : page;
      EXPECT_TRUE(fs::exists(target)) << page << ": " << (*found)[0];
      if ((*found)[2].matched) {
        EXPECT_TRUE(anchorsOf(target).contains((*found)[2])) << page << ": " << (*found)[0];
      }
      ++count;
    }
  }
  EXPECT_GT(count, 20U);
}
