#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

#include "vantry/base/percent_escapes.h"
#include "vantry/check/check.h"
#include "vantry/check/report.h"
#include "vantry/check/values.h"

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

Json locationOf(const std::string& fileName) {
  return {{"physicalLocation", {{"artifactLocation", {{"uri", base::percentEscaped(fileName)}}}}}};
}

Json locationOf(const std::string& fileName, const Place& place) {
  Json location = locationOf(fileName);
  location["physicalLocation"]["region"] = {
      {"startLine", place.line}, {"startColumn", place.column}, {"endColumn", place.endColumn}};
  return location;
}

Json resultOf(const std::string& fileName, const Diagnostic& diagnostic) {
  const auto rule = std::ranges::find(codes(), diagnostic.code, &CodeInfo::code);
  return {{"ruleId", diagnostic.code},
          {"ruleIndex", rule - codes().begin()},
          {"level", nameOf(diagnostic.severity)},
          {"message", messageOf(diagnostic)},
          {"locations", Json::array({locationOf(fileName, diagnostic.place)})}};
}

Json notificationOf(const std::string& fileName, const char* level, const std::string& text) {
  return {{"level", level},
          {"message", {{"text", text}}},
          {"locations", Json::array({locationOf(fileName)})}};
}

/// What there is to say about a file besides what was found in it.
Json notificationsOf(const FileReport& report) {
  Json notifications = Json::array();
  if (!report.failure.empty()) {
    notifications.push_back(notificationOf(report.name, "error", report.failure));
  }
  if (report.omitted > 0) {
    const std::string count = counted(static_cast<std::int64_t>(report.omitted), "finding");
    const std::string text = count + (report.omitted == 1 ? " is" : " are") + " left out";
    notifications.push_back(notificationOf(report.name, "note", text));
  }
  if (report.mayHaveMore) {
    const std::string most = std::to_string(mostOfAKind);
    notifications.push_back(
        notificationOf(report.name, "note",
                       "there may be more to find: of one kind the first " + most + " are kept"));
  }
  return notifications;
}

/// How the check of all files went.
Json invocationOf(std::span<const FileReport> reports) {
  Json notifications = Json::array();
  for (const FileReport& report : reports) {
    for (Json& notification : notificationsOf(report)) {
      notifications.push_back(std::move(notification));
    }
  }
  const bool isSuccessful = std::ranges::all_of(reports, &std::string::empty, &FileReport::failure);
  return {{"executionSuccessful", isSuccessful},
          {"toolExecutionNotifications", std::move(notifications)}};
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
  if (report.omitted > 0 || report.mayHaveMore) {
    const Json line = {
        {"file", report.name}, {"omitted", report.omitted}, {"mayHaveMore", report.mayHaveMore}};
    out << textOf(line) << '\n';
  }
  if (!report.failure.empty()) {
    out << textOf({{"file", report.name}, {"failure", report.failure}}) << '\n';
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
                    {"invocations", Json::array({invocationOf(reports)})},
                    {"columnKind", "unicodeCodePoints"},
                    {"results", std::move(results)}};
  const Json log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                    {"version", "2.1.0"},
                    {"runs", Json::array({run})}};
  out << textOf(log) << '\n';
}

}  // namespace vantry::check
