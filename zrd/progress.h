// What long work shows of itself.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace vantry::zrd {

/// One line on standard error that says what is being done, if that is a terminal. It goes when the
/// work ends.
class Progress {
 public:
  Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { hide(); }

  /// Shows the line that is made, but not more often than can be read.
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
