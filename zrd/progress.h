// What long work shows of itself.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace vantry::zrd {

/// How many letters a line has on the terminal behind standard error; 80 if there is none.
std::size_t columnsOfTerminal();

/// One line on standard error that says what is being done, if that is a terminal. It goes when the
/// work ends.
class Progress {
 public:
  Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { hide(); }

  /// Shows the line that is made, but not more often than can be read. It is cut to the width of
  /// the terminal; control characters, which names of files may hold, are escaped.
  void show(const std::function<std::string()>& makeLine);

  /// Takes the line away, before something else is written; the next one is shown at once.
  void hide();

 private:
  using Clock = std::chrono::steady_clock;

  const bool isTerminal_;
  bool isShown_ = false;
  Clock::time_point next_;  // when the line may be written again
};

}  // namespace vantry::zrd
