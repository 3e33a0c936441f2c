#include "vantry/check/findings.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "vantry/check/check.h"

namespace vantry::check {

namespace {

/// An error that says of a value or text what a warning at the same place says of it, too.
constexpr struct {
  Kind error;
  Kind warning;
} sayingTheSame[] = {
    {Kind::endlessArc, Kind::notFinite},
    {Kind::endlessTimeRange, Kind::notFinite},
    {Kind::textNotWritable, Kind::textNotInLocale},
};

/// One mistake is one finding.
void dropRepetitions(std::vector<Diagnostic>& diagnostics) {
  std::set<std::pair<std::size_t, std::string_view>> said;
  for (const Diagnostic& found : diagnostics) {
    for (const auto& [error, warning] : sayingTheSame) {
      if (found.code == codeOf(error)) said.emplace(found.place.offset, codeOf(warning));
    }
  }
  std::erase_if(diagnostics, [&](const Diagnostic& found) {
    return said.contains({found.place.offset, found.code});
  });
}

}  // namespace

void Findings::add(const Finding& finding, Span where, std::vector<std::string> help) {
  if (isFull(finding.kind)) return;
  ++counts_[finding.kind];
  const Severity severity = severityOf(finding.kind);
  hasErrors_ = hasErrors_ || severity == Severity::error;
  std::erase(help, std::string());
  diagnostics_.push_back({codeOf(finding.kind), severity, source_.placeOf(where),
                          sentenceOf(finding), std::move(help)});
}

bool Findings::isFull(Kind kind) const {
  const auto count = counts_.find(kind);
  return count != counts_.end() && count->second == mostOfAKind;
}

std::vector<Diagnostic> Findings::take() {
  dropRepetitions(diagnostics_);
  std::ranges::stable_sort(diagnostics_, {}, [](const Diagnostic& diagnostic) {
    return std::tuple(diagnostic.place.line, diagnostic.place.column);
  });
  return std::exchange(diagnostics_, {});
}

}  // namespace vantry::check
