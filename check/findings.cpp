#include "vantry/check/findings.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "vantry/check/check.h"

namespace vantry::check {

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
  std::ranges::stable_sort(diagnostics_, {}, [](const Diagnostic& diagnostic) {
    return std::tuple(diagnostic.place.line, diagnostic.place.column);
  });
  return std::exchange(diagnostics_, {});
}

}  // namespace vantry::check
