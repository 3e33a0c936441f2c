// JVX and JVD files.
#pragma once

#include <filesystem>
#include <fstream>
#include <optional>

namespace vantry::zrd {

/// Whether a file is taken for a JVX file, which its name says.
bool isModelName(const std::filesystem::path& name);

/// The JVD file that belongs to a JVX file if it is there.
std::filesystem::path displayName(std::filesystem::path model);

/// A JVX file and the JVD file of the same name beside it, if there is one, both ready to be read.
class ModelFile {
 public:
  /// Throws Failure if one of the files cannot be read or is something else, and BadDocument if it
  /// is not well formed.
  explicit ModelFile(const std::filesystem::path& name);

  std::istream& model() { return model_; }

  /// Null without a JVD file.
  std::istream* display() { return display_ ? &*display_ : nullptr; }

 private:
  std::ifstream model_;
  std::optional<std::ifstream> display_;
};

}  // namespace vantry::zrd
