// zrd schema: what it accepts and what not, as other programs read it, beside what zrd check finds.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "../check/made_document.h"
#include "../zrd_command.h"
#include "vantry/check/check.h"

namespace {

namespace fs = std::filesystem;
using vantry::check::Diagnostic;
using vantry::check::Severity;
using Strings = std::vector<std::string>;

constexpr const char* formatNamespace = "http://www.example.org/xml/Corvane";

/// What a schema can see.
constexpr std::string_view codesOfTheSchema[] = {
    "unknown-element", "unknown-attribute", "misplaced-element", "foreign-attribute",
    "unknown-word",    "wrong-root",        "second-canvas",     "misplaced-point"};

bool isForTheSchema(const Diagnostic& found) {
  return std::ranges::find(codesOfTheSchema, found.code) != std::end(codesOfTheSchema);
}

class Schema : public ZrdCommandTest {
 protected:
  Schema() : ZrdCommandTest("schema") {
    write("zrd.rng", outputOf({}));
    for (const char* folder : {"examples", "docs/examples", "tests/check/cases"}) {
      for (const auto& entry : fs::directory_iterator(fs::path(VANTRY_SOURCE_DIR) / folder)) {
        if (entry.path().extension() != ".zrd") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        add({std::istreambuf_iterator<char>(in), {}});
      }
    }
    const auto examples = documents_;
    for (const auto& [name, example] : examples) {
      if (example.text.size() > 20'000) continue;
      for (unsigned seed = 0; seed < 8; ++seed) add(DocumentMaker(seed).withMistake(example.text));
    }
  }

  void addMadeDocuments(unsigned count, int mostAttributes) {
    for (unsigned seed = 0; seed < count; ++seed) {
      DocumentMaker maker(seed, mostAttributes);
      const std::string document = maker.make();
      add(document);
      add(maker.withMistake(document));
    }
  }

  /// Validators end at what is not well formed, fetch the types of documents, and know one
  /// namespace of many.
  void add(const std::string& document) {
    const auto found = vantry::check::check(document);
    const bool isWellFormed = std::ranges::none_of(
        found, [](const Diagnostic& one) { return one.code == "not-well-formed"; });
    const bool isOfAnotherHost =
        document.find("xmlns=") != document.npos && document.find(formatNamespace) == document.npos;
    const bool hasType = document.find("<!DOCTYPE") != document.npos;
    if (!isWellFormed || isOfAnotherHost || hasType) return;
    const std::string name = std::to_string(documents_.size()) + ".zrd";
    write(name, document);
    documents_[name] = {document, found};
  }

  /// Runs the validator on all documents; those that it names in a line with `complaint` are
  /// refused.
  void expectAgreement(const std::string& validator, const Strings& options,
                       const std::string& complaint) {
    setProgram(validator);
    std::set<std::string> refused;
    for (auto next = documents_.begin(); next != documents_.end();) {
      Strings arguments = options;
      for (int i = 0; i < 500 && next != documents_.end(); ++i, ++next) {
        arguments.push_back(next->first);
      }
      const Outcome outcome = run(arguments);
      std::istringstream lines(outcome.out + outcome.err);
      for (std::string line; std::getline(lines, line);) {
        const std::size_t end = line.find(".zrd");
        if (end == line.npos || line.find(complaint) == line.npos) continue;
        const std::size_t begin = line.find_last_of("/ ", end) + 1;
        refused.insert(line.substr(begin, end + 4 - begin));
      }
    }
    int accepted = 0;
    for (const auto& [name, document] : documents_) {
      const bool isRefused = refused.contains(name);
      const bool hasErrors = std::ranges::any_of(
          document.found, [](const Diagnostic& one) { return one.severity == Severity::error; });
      if (!hasErrors) {
        EXPECT_FALSE(isRefused) << document.text;
        ++accepted;
      }
      if (std::ranges::any_of(document.found, isForTheSchema)) {
        EXPECT_TRUE(isRefused) << document.text;
      }
    }
    EXPECT_GT(accepted, 100);
  }

 private:
  struct Document {
    std::string text;
    std::vector<Diagnostic> found;
  };
  std::map<std::string, Document> documents_;
};

// Each optional attribute that is there doubles what xmllint has to go through, so it gets
// documents with few of them.
#ifdef XMLLINT
TEST_F(Schema, AgreesWithTheCheckInXmllint) {
  addMadeDocuments(500, 2);
  expectAgreement(XMLLINT, {"--noout", "--relaxng", "zrd.rng"}, "fails to validate");
}
#endif

#ifdef JING
TEST_F(Schema, AgreesWithTheCheckInJing) {
  addMadeDocuments(1500, 100);
  expectAgreement(JING, {"zrd.rng"}, "error:");
}
#endif

}  // namespace
