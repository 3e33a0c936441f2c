// Files that appear whole or not at all.
#pragma once

#include <atomic>
#include <csignal>
#include <filesystem>
#include <ostream>
#include <streambuf>
#include <string>
#include <thread>

namespace vantry::zrd {

/// A file that is written under a temporary name in its folder, and moved to its own name by
/// appear(). Until then a file of that name stays as it was. The name of a link is that of its
/// target; what is no regular file, as a device, is refused. Failures are thrown as
/// std::runtime_error with the name and the reason.
class OutputFile {
 public:
  /// Opens the temporary file.
  explicit OutputFile(std::filesystem::path name);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  /// Removes the temporary file unless it has been moved.
  ~OutputFile();

  /// Where to write; has no buffer of its own.
  std::ostream& stream() { return stream_; }

  /// To be called when all is written. Waits until it is on the disk.
  void close();

  /// Moves the closed file to its name. What was there is replaced and leaves its permissions.
  void appear();

 private:
  /// Hands everything on to the system, and keeps the reason when that is not possible.
  class Descriptor : public std::streambuf {
   public:
    int number = -1;
    int failure = 0;  ///< errno of the first failed call

   private:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* data, std::streamsize size) override;
  };

  [[noreturn]] void fail(int reason) const;

  std::filesystem::path name_;
  std::string temporary_;
  Descriptor descriptor_;
  std::ostream stream_{&descriptor_};
};

/// While this lives, a signal that ends the process first has all temporary files removed. Must be
/// made before any other thread, by the main one.
class CleanInterruption {
 public:
  CleanInterruption();
  CleanInterruption(const CleanInterruption&) = delete;
  CleanInterruption& operator=(const CleanInterruption&) = delete;
  ~CleanInterruption();

 private:
  void wait() const;

  sigset_t signals_;  // all other threads keep them out
  std::atomic<bool> isOver_ = false;
  std::thread watch_;
};

}  // namespace vantry::zrd
