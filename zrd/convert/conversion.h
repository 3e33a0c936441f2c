// The conversion of one document among many.
#pragma once

#include <filesystem>
#include <vector>

#include "zrd/convert/output_names.h"
#include "zrd/convert/report.h"
#include "zrd/convert/settings.h"
#include "zrd/plot_search.h"

namespace vantry::zrd {

/// A file that a document becomes. With frames, the name from which theirs are made.
struct PlannedOutput {
  OutputKind kind;
  std::filesystem::path name;
};

struct PlannedConversion {
  std::filesystem::path input;
  std::vector<PlannedOutput> outputs;
};

/// What the inputs become. Those whose outputs may not be written are reported and left out.
std::vector<PlannedConversion> planConversions(const std::vector<FoundPlot>& inputs,
                                               const ConvertSettings& settings, OutputNames& names,
                                               ConvertReport& report);

/// Converts documents, on any number of threads.
class Converter {
 public:
  Converter(const ConvertSettings& settings, OutputNames& names, ConvertReport& report);

  /// Converts one document and reports how it ended. Returns false if it failed; then there is no
  /// output that was not there before.
  bool convert(const PlannedConversion& plan) const;

 private:
  bool convertChanged(const PlannedConversion& plan) const;
  bool isCurrent(const std::filesystem::path& input, const std::filesystem::path& output) const;

  const ConvertSettings& settings_;
  OutputNames& names_;
  ConvertReport& report_;
  std::filesystem::file_time_type programTime_;
};

}  // namespace vantry::zrd
