// Converts the documents of cases/ and compares with the expected texts beside them:
//   NAME.jvx       the geometries of NAME.zrd
//   NAME@TIME.jvx  the geometries at that time
//   NAME.jvd       the displays
//   NAME@TIME.jvd  the displays at that time
// Headers are left out; they have tests of their own. A new case is a new document, which begins
// with a comment that says what it shows. Where the environment variable VANTRY_UPDATE_CASES is
// set, a text that differs is reported and then written anew: see scripts/update-cases.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>

#include "../locale_guard.h"
#include "conversion.h"
#include "vantry/javaview/jvd_writer.h"

namespace vantry::javaview {

using namespace plot;

namespace {

namespace fs = std::filesystem;

const fs::path folder = VANTRY_SOURCE_DIR "/tests/javaview/cases";

/// The name of an expected text, in its parts.
struct CaseName {
  explicit CaseName(const std::string& fileName) {
    static const std::regex form(R"(([a-z0-9_]+)(?:@([^@]+))?\.(jvx|jvd))");
    std::smatch parts;
    if (!std::regex_match(fileName, parts, form)) return;
    document = folder / (parts[1].str() + ".zrd");
    if (parts[2].matched) time = std::stod(parts[2]);
    isDisplay = parts[3] == "jvd";
  }
  fs::path document;
  double time = nan;
  bool isDisplay = false;
};

/// The names of all expected texts; for a document that has none, that of its geometries.
std::vector<std::string> caseNames() {
  std::vector<std::string> names;
  std::vector<fs::path> documents;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".zrd") {
      documents.push_back(entry.path());
    } else {
      names.push_back(entry.path().filename());
    }
  }
  for (const fs::path& document : documents) {
    if (std::ranges::any_of(
            names, [&](const std::string& name) { return CaseName(name).document == document; })) {
      continue;
    }
    names.push_back(document.stem().string() + ".jvx");
  }
  std::ranges::sort(names);
  return names;
}

/// What is written for the document, from the end of the header up to the end of the root element.
template <class Writer>
std::string convertedBy(const std::string& source, double time) {
  const Conversion<Writer> conversion(source, time);
  EXPECT_EQ(conversion.error, "");
  EXPECT_EQ(conversion.warnings, std::vector<std::string>());
  const std::string body = conversion.body();
  return body.substr(0, body.rfind("</"));
}

class Case : public testing::TestWithParam<std::string> {};

}  // namespace

TEST_P(Case, IsWrittenAsExpected) {
  const LocaleGuard utf8(LC_CTYPE, "C.UTF-8");
  const CaseName name(GetParam());
  ASSERT_TRUE(fs::exists(name.document)) << "no document for " << GetParam();
  const std::string source = fileContent(name.document);
  EXPECT_TRUE(source.starts_with("<!-- ")) << "a document says first what it shows";

  const std::string text = name.isDisplay ? convertedBy<JVDWriter>(source, name.time)
                                          : convertedBy<JVXWriter>(source, name.time);
  const std::string expected = fileContent(folder / GetParam());
  EXPECT_EQ(expected, text);
  if (text != expected && std::getenv("VANTRY_UPDATE_CASES")) {
    std::ofstream(folder / GetParam(), std::ios::binary) << text;
  }
}

INSTANTIATE_TEST_SUITE_P(All, Case, testing::ValuesIn(caseNames()), [](const auto& test) {
  return std::regex_replace(test.param, std::regex("[^A-Za-z0-9]"), "_");
});

}  // namespace vantry::javaview
