#include "zrd/convert/output_names.h"

#include <sys/stat.h>

#include <stdexcept>

namespace vantry::zrd {

namespace fs = std::filesystem;

OutputNames::OutputNames(const std::vector<FoundPlot>& inputs) {
  for (const FoundPlot& input : inputs) {
    struct stat file {};
    if (stat(input.name.c_str(), &file) == 0)
      inputs_.try_emplace({file.st_dev, file.st_ino}, input.name);
  }
}

void OutputNames::take(const fs::path& output, const fs::path& input) {
  struct stat file {};
  if (stat(output.c_str(), &file) == 0) {
    const auto found = inputs_.find({file.st_dev, file.st_ino});
    if (found != inputs_.end()) {
      throw std::runtime_error(output.string() + " would replace the input " + found->second +
                               "; --output-dir or --name puts it elsewhere");
    }
  }
  const std::lock_guard lock(mutex_);
  const auto [taken, isNew] = taken_.try_emplace(wholeName(output), input);
  if (!isNew && taken->second != input) {
    throw std::runtime_error(output.string() + " is the output of " + taken->second.string());
  }
}

/// The name by which two ways to one file are seen to be one. It need not exist.
fs::path OutputNames::wholeName(const fs::path& name) {
  const auto [folder, isNew] = folders_.try_emplace(name.parent_path());
  if (isNew) folder->second = fs::weakly_canonical(fs::absolute(name.parent_path() / "."));
  return folder->second / name.filename();
}

}  // namespace vantry::zrd
