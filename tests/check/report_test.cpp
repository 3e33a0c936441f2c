#include "vantry/check/report.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "../locale_guard.h"
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

// A character of two columns, one of none, and marks of as many columns as what they are below.
TEST(TextReport, PutsTheMarkBelowWideCharactersToo) {
  const LocaleGuard locale(LC_CTYPE, "C.UTF-8");
  const std::string line =
      "\xE4\xB8\xAD"
      "a\xCC\x81"
      "<\xE4\xB8\xAD\xE4\xB8\xAD>";
  std::ostringstream out;
  writeText(out, {"a", {{"code", Severity::error, {1, 5, 7, 7}, "s", {}}}}, line, false);
  EXPECT_EQ(out.str(), "a:1:5: error: s [code]\n 1 | " + line + "\n   |     ^~~~\n");
}

std::string findingsIn(const std::string& bytes) {
  std::ostringstream out;
  writeText(out, {"a.zrd", check(bytes)}, bytes, false);
  return out.str();
}

TEST(TextReport, ShowsADocumentInUtf16AsUtf8) {
  const std::string text = "<Canvas>\r<Scene2D/></Canvas>";
  std::string bytes = "\xFF\xFE";
  for (const char c : text) bytes.append({c, '\0'});
  EXPECT_EQ(findingsIn(bytes),
            "a.zrd:2:2: error: there is no element Scene2D [unknown-element]\n"
            " 2 | <Scene2D/></Canvas>\n"
            "   |  ^~~~~~~\n"
            "   = did you mean Scene2d?\n");
}

TEST(TextReport, ShowsLatin1AsUtf8) {
  const std::string bytes =
      "<?xml version='1.0' encoding='ISO-8859-1'?>\n<Canvas><!-- \xE4 --><Scene2D/></Canvas>";
  EXPECT_EQ(findingsIn(bytes),
            "a.zrd:2:20: error: there is no element Scene2D [unknown-element]\n"
            " 2 | <Canvas><!-- \xC3\xA4 --><Scene2D/></Canvas>\n"
            "   |                    ^~~~~~~\n"
            "   = did you mean Scene2d?\n");
}

TEST(TextReport, TakesAByteOrderMarkForNoCharacter) {
  const std::string bytes = "\xEF\xBB\xBF<Canvas><Scene2D/></Canvas>";
  EXPECT_EQ(findingsIn(bytes),
            "a.zrd:1:10: error: there is no element Scene2D [unknown-element]\n"
            " 1 | <Canvas><Scene2D/></Canvas>\n"
            "   |          ^~~~~~~\n"
            "   = did you mean Scene2d?\n");
}

// Control characters that are no single byte, and one that turns the text behind it around.
TEST(TextReport, ShowsNoCharacterThatSteersATerminal) {
  std::ostringstream out;
  writeText(out, {"a", {{"code", Severity::error, {1, 1, 1, 0}, "s\xC2\x9B", {"h\xC2\x85"}}}},
            "\xC2\x9B"
            "2J\xE2\x80\xAEx",
            false);
  EXPECT_EQ(out.str(), "a:1:1: error: s\\xC2\\x9B [code]\n 1 | ?2J?x\n   | ^\n   = h\\xC2\\x85\n");
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

TEST(JsonReport, SaysWhatItDoesNotHold) {
  std::ostringstream out;
  writeJsonLines(out, {.name = "a", .omitted = 3, .mayHaveMore = true});
  writeJsonLines(out, {.name = "b", .failure = "why"});
  writeJsonLines(out, {.name = "c"});
  EXPECT_EQ(out.str(),
            "{\"file\":\"a\",\"omitted\":3,\"mayHaveMore\":true}\n"
            "{\"file\":\"b\",\"failure\":\"why\"}\n");
}

TEST(SarifReport, NotifiesOfWhatItDoesNotHold) {
  const FileReport reports[] = {{.name = "a", .omitted = 1, .mayHaveMore = true}, {.name = "b"}};
  std::ostringstream out;
  writeSarif(out, reports, "1.5");
  const Json invocation = Json::parse(out.str())["runs"].at(0)["invocations"].at(0);
  EXPECT_EQ(invocation["executionSuccessful"], true) << "both were read";
  const Json& notifications = invocation["toolExecutionNotifications"];
  ASSERT_EQ(notifications.size(), 2u);
  EXPECT_EQ(notifications[0]["message"]["text"], "1 finding is left out");
  EXPECT_EQ(notifications[1]["message"]["text"],
            "there may be more to find: of one kind the first 10000 are kept");
  EXPECT_EQ(notifications[1]["level"], "note");
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
