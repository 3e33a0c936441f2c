// Which files a conversion may write.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "zrd/plot_search.h"

namespace vantry::zrd {

/// Keeps an output from being written over an input, or over the output of another document. All
/// threads may use it.
class OutputNames {
 public:
  explicit OutputNames(const std::vector<FoundPlot>& inputs);

  /// Takes an output name for a document. Throws std::runtime_error with the reason if that is an
  /// input, by whatever name, or has been taken for another document.
  void take(const std::filesystem::path& output, const std::filesystem::path& input);

 private:
  std::filesystem::path wholeName(const std::filesystem::path& name);

  using File = std::pair<dev_t, ino_t>;
  std::map<File, std::string> inputs_;
  std::mutex mutex_;
  std::map<std::filesystem::path, std::filesystem::path> folders_;  // and their whole names
  std::map<std::filesystem::path, std::filesystem::path> taken_;    // and for which document
};

}  // namespace vantry::zrd
