#include "vantry/check/report.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "vantry/check/check.h"

namespace {

using namespace vantry::check;
using Json = nlohmann::json;

const std::string document = "<Canvas>\n\t<Scene2D \xC3\xA4='1'/>\n</Canvas>";

TEST(TextReport, ColorsTheWeightAndTheMark) {
  std::ostringstream out;
  const Diagnostic diagnostic = {
      "some-code", Severity::warning, {2, 3, 10, 11}, "a sentence", {"help"}};
  writeText(out, {"a.zrd", {diagnostic}}, document, true);
  EXPECT_EQ(out.str(),
            "\x1b[1ma.zrd:2:3: \x1b[1;35mwarning: \x1b[0m\x1b[1ma sentence\x1b[0m [some-code]\n"
            " 2 |  <Scene2D \xC3\xA4='1'/>\n"
            "   |   \x1b[1;32m^~~~~~~\x1b[0m\n"
            "   = help\n");
}

TEST(TextReport, ShowsThePartOfALongLineThatIsMeant) {
  const std::string line = "<Canvas>" + std::string(300, ' ') + "<Scene/></Canvas>";
  std::ostringstream out;
  writeText(out, {"a", {{"code", Severity::error, {1, 310, 315, 309}, "s", {}}}}, line, false);
  EXPECT_EQ(out.str(), "a:1:310: error: s [code]\n 1 | ..." + std::string(99, ' ') +
                           "<Scene/></Canvas>\n   | " + std::string(103, ' ') + "^~~~~\n");
}

// Bytes that go on with a character of UTF-8, and here are characters of another encoding.
TEST(TextReport, ShowsAPartOfALongLineInAnyEncoding) {
  const std::string line(10'000, '\xBF');
  std::ostringstream out;
  writeText(out, {"a", {{"code", Severity::error, {1, 1, 2, 5000}, "s", {}}}}, line, false);
  EXPECT_EQ(out.str(), "a:1:1: error: s [code]\n 1 | ..." + std::string(800, '?') + "...\n   | " +
                           std::string(403, ' ') + "^\n");
}

TEST(TextReport, ShowsNoControlCharacters) {
  std::ostringstream out;
  writeText(out, {"a", {{"code", Severity::error, {1, 1, 1, 0}, "s", {}}}}, "\x1b[2J\x9bx\x7f",
            false);
  EXPECT_EQ(out.str(), "a:1:1: error: s [code]\n 1 | ?[2J?x?\n   | ^\n");
}

TEST(JsonReport, IsAnObjectForEachDiagnostic) {
  std::ostringstream out;
  writeJsonLines(out, {"dir/a \"b\".zrd", check(document)});
  const std::string text = out.str();
  EXPECT_EQ(text.substr(0, text.find('\n')),
            R"({"file":"dir/a \"b\".zrd","line":2,"column":3,"endColumn":10,"severity":"error",)"
            R"("code":"unknown-element","message":"there is no element Scene2D",)"
            R"("help":["did you mean Scene2d?"]})");
}

TEST(JsonReport, ReplacesBytesThatAreNoCharacters) {
  std::ostringstream out;
  writeJsonLines(out, {"a\xFF", {{"code", Severity::error, {}, "\xC3", {}}}});
  EXPECT_EQ(Json::parse(out.str())["message"], "\xEF\xBF\xBD");
}

TEST(SarifReport, HoldsRulesAndResults) {
  const FileReport reports[] = {{"two words.zrd", check(document)}, {"b.zrd", {}}};
  std::ostringstream out;
  writeSarif(out, reports, "1.5");
  const Json log = Json::parse(out.str());
  EXPECT_EQ(log["$schema"], "https://json.schemastore.org/sarif-2.1.0.json");
  EXPECT_EQ(log["version"], "2.1.0");
  const Json& run = log["runs"].at(0);
  EXPECT_EQ(run["tool"]["driver"]["name"], "zrd check");
  EXPECT_EQ(run["tool"]["driver"]["rules"].size(), codes().size());
  EXPECT_EQ(run["columnKind"], "unicodeCodePoints");
  const Json& result = run["results"].at(0);
  EXPECT_EQ(result["ruleId"], "unknown-element");
  EXPECT_EQ(run["tool"]["driver"]["rules"].at(result["ruleIndex"].get<std::size_t>())["id"],
            "unknown-element");
  EXPECT_EQ(result["level"], "error");
  EXPECT_EQ(result["message"]["text"], "there is no element Scene2D\ndid you mean Scene2d?");
  const Json& location = result["locations"].at(0)["physicalLocation"];
  EXPECT_EQ(location["artifactLocation"]["uri"], "two%20words.zrd");
  EXPECT_EQ(location["region"], (Json{{"startLine", 2}, {"startColumn", 3}, {"endColumn", 10}}));
}

}  // namespace
