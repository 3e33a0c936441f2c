#include "zrd/progress.h"

#include <unistd.h>

#include <iostream>

namespace vantry::zrd {

namespace {

constexpr std::chrono::milliseconds pause(100);
constexpr const char* emptyLine = "\r\033[K";

}  // namespace

Progress::Progress() : isTerminal_(isatty(STDERR_FILENO) == 1) {}

void Progress::show(const std::function<std::string()>& makeLine) {
  if (!isTerminal_ || (isShown_ && Clock::now() < next_)) return;
  std::cerr << emptyLine << makeLine() << std::flush;
  isShown_ = true;
  next_ = Clock::now() + pause;
}

void Progress::hide() {
  if (isShown_) std::cerr << emptyLine << std::flush;
  isShown_ = false;
}

}  // namespace vantry::zrd
