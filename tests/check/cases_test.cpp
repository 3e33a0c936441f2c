// The documents in cases/: what is found in NAME.zrd is in NAME.txt, as the check shows it. A
// document that a code is called after has it among its findings; the one with ".near" behind its
// name is nearly the same, and has not.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "../locale_guard.h"
#include "vantry/check/check.h"
#include "vantry/check/report.h"

namespace {

namespace fs = std::filesystem;
using vantry::check::CodeInfo;
using vantry::check::Diagnostic;

const fs::path folder = fs::path(VANTRY_SOURCE_DIR) / "tests" / "check" / "cases";

std::string contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> caseNames() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".zrd") names.push_back(entry.path().stem().string());
  }
  std::ranges::sort(names);
  return names;
}

/// What the locale cannot hold is found in one of ASCII.
const char* localeOf(const std::string& name) {
  return name.starts_with("text-not-") ? "C" : "C.UTF-8";
}

std::set<std::string_view> codesIn(const std::string& name) {
  const LocaleGuard locale(LC_CTYPE, localeOf(name));
  std::set<std::string_view> codes;
  for (const Diagnostic& found : vantry::check::check(contentOf(folder / (name + ".zrd")))) {
    codes.insert(found.code);
  }
  return codes;
}

class Case : public testing::TestWithParam<std::string> {};

TEST_P(Case, IsReportedAsWritten) {
  const LocaleGuard locale(LC_CTYPE, localeOf(GetParam()));
  const std::string name = GetParam() + ".zrd";
  const std::string document = contentOf(folder / name);
  std::ostringstream out;
  vantry::check::writeText(out, {name, vantry::check::check(document)}, document, false);
  EXPECT_EQ(out.str(), contentOf(folder / (GetParam() + ".txt")));
}

TEST_P(Case, HasAWayOutOfEachError) {
  const LocaleGuard locale(LC_CTYPE, localeOf(GetParam()));
  for (const Diagnostic& found : vantry::check::check(contentOf(folder / (GetParam() + ".zrd")))) {
    const bool isWarning = found.severity == vantry::check::Severity::warning;
    EXPECT_TRUE(isWarning || !found.help.empty()) << found.code << ": " << found.sentence;
  }
}

INSTANTIATE_TEST_SUITE_P(, Case, testing::ValuesIn(caseNames()), [](const auto& parameter) {
  std::string name = parameter.param;
  std::ranges::replace_if(
      name, [](char c) { return c == '-' || c == '.'; }, '_');
  return name;
});

class Code : public testing::TestWithParam<CodeInfo> {};

TEST_P(Code, IsFoundInItsCaseAndNotNearby) {
  const std::string name(GetParam().code);
  EXPECT_TRUE(codesIn(name).contains(name));
  EXPECT_FALSE(codesIn(name + ".near").contains(name));
}

TEST_P(Code, IsAWordInKebabCase) {
  const std::string_view code = GetParam().code;
  EXPECT_EQ(code.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), code.npos);
  EXPECT_TRUE(GetParam().summary.ends_with('.')) << GetParam().summary;
}

INSTANTIATE_TEST_SUITE_P(, Code,
                         testing::ValuesIn(vantry::check::codes().begin(),
                                           vantry::check::codes().end()),
                         [](const auto& parameter) {
                           std::string name(parameter.param.code);
                           std::ranges::replace(name, '-', '_');
                           return name;
                         });

TEST(Codes, AreDifferent) {
  std::set<std::string_view> codes;
  for (const CodeInfo& info : vantry::check::codes()) {
    EXPECT_TRUE(codes.insert(info.code).second) << info.code;
  }
}

TEST(Codes, AreInTheManualAndNoOthers) {
  const std::string manual = contentOf(fs::path(VANTRY_SOURCE_DIR) / "docs" / "checking.md");
  std::size_t rows = 0;
  for (std::size_t at = manual.find("\n| `"); at != manual.npos;
       at = manual.find("\n| `", at + 1)) {
    ++rows;
  }
  EXPECT_EQ(rows, vantry::check::codes().size());
  for (const CodeInfo& info : vantry::check::codes()) {
    const std::string row =
        "| `" + std::string(info.code) + "` | " + std::string(info.summary) + " |\n";
    EXPECT_NE(manual.find(row), manual.npos) << row;
  }
}

// What is right is not complained about.
TEST(Examples, HaveNoErrors) {
  const LocaleGuard guard(LC_CTYPE, "C.UTF-8");  // some have letters beyond ASCII
  for (const char* name : {"examples", "docs/examples"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(VANTRY_SOURCE_DIR) / name)) {
      const bool isPlot = entry.path().extension() == ".zrd";
      if (!isPlot || entry.path().filename() == "skipped.zrd") continue;  // shows what is skipped
      for (const Diagnostic& found : vantry::check::check(contentOf(entry.path()))) {
        EXPECT_NE(found.severity, vantry::check::Severity::error)
            << entry.path() << ':' << found.place.line << ": " << found.sentence;
      }
    }
  }
}

}  // namespace
