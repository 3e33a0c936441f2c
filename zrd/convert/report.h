// What a conversion of many documents says while it runs.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>

#include "zrd/progress.h"

namespace vantry::zrd {

/// Failures, warnings, the progress and the summary, on standard error. All threads may use it.
class ConvertReport {
 public:
  /// How many documents there are to convert; from now on the progress is shown, on a terminal.
  void begin(std::size_t documents);

  /// A line about something that does not keep a document from being converted.
  void warn(const std::string& line);

  /// A line about what cannot be read or written.
  void fail(const std::string& line);

  /// A line about a document that is bad.
  void failBad(const std::string& line);

  // How a document of those that were announced ended, besides by a failure.
  void converted();
  void unchanged();

  /// Takes the progress away, and says what has become of all documents and what explains why some
  /// are bad.
  void summarise();

  std::size_t failures() const;

 private:
  void say(const std::string& line);
  void showProgress();
  std::string bar() const;

  mutable std::mutex mutex_;
  Progress progress_;
  std::size_t documents_ = 0;
  std::size_t converted_ = 0;
  std::size_t unchanged_ = 0;
  std::size_t failed_ = 0;
  bool hasBad_ = false;  // documents among those that failed
};

}  // namespace vantry::zrd
