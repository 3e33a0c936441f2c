// The list of what is found, while it grows.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "vantry/check/kinds.h"
#include "vantry/check/source.h"

namespace vantry::check {

class Findings {
 public:
  explicit Findings(const Source& source) : source_(source) {}

  /// What is found too often of one kind is left out.
  void add(const Finding& finding, Span where, std::vector<std::string> help = {});
  /// Whether a kind was found too often, so that there is no need to look for help.
  bool isFull(Kind kind) const;

  bool has(Kind kind) const { return counts_.contains(kind); }
  bool hasErrors() const { return hasErrors_; }

  /// All findings in the order of their places. Leaves none behind.
  std::vector<Diagnostic> take();

 private:
  const Source& source_;
  std::vector<Diagnostic> diagnostics_;
  std::map<Kind, std::size_t> counts_;  // of those that were kept
  bool hasErrors_ = false;
};

}  // namespace vantry::check
