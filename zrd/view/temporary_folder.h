// A place for files that are needed for a while.
#pragma once

#include <string>

namespace vantry::zrd {

/// A new folder in the one that the environment variable TMPDIR names, or else in /tmp. Only this
/// user can look into it. The destructor removes it with all that is in it, unless it is kept.
/// Throws Failure if it cannot be made.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  /// Begins with a slash.
  const std::string& path() const { return path_; }

  void keep() { isKept_ = true; }

 private:
  std::string path_;
  bool isKept_ = false;
};

}  // namespace vantry::zrd
