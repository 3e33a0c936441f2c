// What the command line of a conversion asks for.
#pragma once

#include <ctime>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace vantry::zrd {

enum class OutputKind { jvx, jvd };

inline const char* extensionOf(OutputKind kind) { return kind == OutputKind::jvx ? "jvx" : "jvd"; }

struct ConvertSettings {
  std::vector<OutputKind> kinds{OutputKind::jvx};  ///< what each document becomes
  std::filesystem::path outputFolder;              ///< empty: the folder of the document
  std::string pattern = "{name}.{ext}";            ///< of the outputs' names
  unsigned jobs = 0;                               ///< how many documents at once
  int frames = 0;                                  ///< to a unit of time; 0: no animation
  double time = std::numeric_limits<double>::quiet_NaN();
  bool ifChanged = false;           ///< outputs newer than document and program stay
  bool keepGoing = false;           ///< a failure does not keep the rest from being tried
  std::optional<std::time_t> date;  ///< for the headers, in place of now
};

}  // namespace vantry::zrd
