#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "vantry/base/percent_escapes.h"
#include "vantry/check/check.h"
#include "vantry/check/report.h"

namespace vantry::check {

namespace {

using Json = nlohmann::ordered_json;

const char* nameOf(Severity severity) { return severity == Severity::error ? "error" : "warning"; }

/// Bytes that are no UTF-8 become the character for that.
std::string textOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json ruleOf(const CodeInfo& info) {
  return {{"id", info.code},
          {"shortDescription", {{"text", info.summary}}},
          {"defaultConfiguration", {{"level", nameOf(info.severity)}}}};
}

Json messageOf(const Diagnostic& diagnostic) {
  std::string text = diagnostic.sentence;
  for (const std::string& help : diagnostic.help) text += "\n" + help;
  return {{"text", text}};
}

Json locationOf(const std::string& fileName, const Place& place) {
  const Json region = {
      {"startLine", place.line}, {"startColumn", place.column}, {"endColumn", place.endColumn}};
  const Json file = {{"uri", base::percentEscaped(fileName)}};
  return {{"physicalLocation", {{"artifactLocation", file}, {"region", region}}}};
}

Json resultOf(const std::string& fileName, const Diagnostic& diagnostic) {
  const auto rule = std::ranges::find(codes(), diagnostic.code, &CodeInfo::code);
  return {{"ruleId", diagnostic.code},
          {"ruleIndex", rule - codes().begin()},
          {"level", nameOf(diagnostic.severity)},
          {"message", messageOf(diagnostic)},
          {"locations", Json::array({locationOf(fileName, diagnostic.place)})}};
}

}  // namespace

void writeJsonLines(std::ostream& out, const FileReport& report) {
  for (const Diagnostic& diagnostic : report.diagnostics) {
    const Json line = {{"file", report.name},
                       {"line", diagnostic.place.line},
                       {"column", diagnostic.place.column},
                       {"endColumn", diagnostic.place.endColumn},
                       {"severity", nameOf(diagnostic.severity)},
                       {"code", diagnostic.code},
                       {"message", diagnostic.sentence},
                       {"help", diagnostic.help}};
    out << textOf(line) << '\n';
  }
}

void writeSarif(std::ostream& out, std::span<const FileReport> reports, std::string_view version) {
  Json rules = Json::array();
  for (const CodeInfo& info : codes()) rules.push_back(ruleOf(info));
  Json results = Json::array();
  for (const FileReport& report : reports) {
    for (const Diagnostic& diagnostic : report.diagnostics) {
      results.push_back(resultOf(report.name, diagnostic));
    }
  }
  const Json driver = {{"name", "zrd check"}, {"version", version}, {"rules", std::move(rules)}};
  const Json run = {{"tool", {{"driver", driver}}},
                    {"columnKind", "unicodeCodePoints"},
                    {"results", std::move(results)}};
  const Json log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                    {"version", "2.1.0"},
                    {"runs", Json::array({run})}};
  out << textOf(log) << '\n';
}

}  // namespace vantry::check
