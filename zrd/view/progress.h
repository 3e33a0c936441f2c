// What long work shows of itself.
#pragma once

#include <chrono>
#include <string>

namespace vantry::zrd {

/// One line on standard error that says what is being done, if that is a terminal. It goes when the
/// work ends.
class Progress {
 public:
  Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  void show(const std::string& work);

 private:
  using Clock = std::chrono::steady_clock;

  const bool isTerminal_;
  bool isShown_ = false;
  Clock::time_point next_;  // when the line may be written again
};

}  // namespace vantry::zrd
