// A place for the files of a test.
#pragma once

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

/// A new and empty folder, which goes with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    // mkdtemp() puts a name that is not taken in the place of the six letters.
    std::string name = std::filesystem::temp_directory_path() / "vantry-test-";
    name.append(6, 'X');
    if (!mkdtemp(name.data())) throw std::system_error(errno, std::generic_category(), name);
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};
