#include "zrd/view/progress.h"

#include <unistd.h>

#include <iostream>

namespace vantry::zrd {

namespace {

constexpr std::chrono::milliseconds pause(100);
constexpr const char* emptyLine = "\r\033[K";

}  // namespace

Progress::Progress() : isTerminal_(isatty(STDERR_FILENO) == 1), next_(Clock::now()) {}

Progress::~Progress() {
  if (isShown_) std::cerr << emptyLine << std::flush;
}

void Progress::show(const std::string& work) {
  if (!isTerminal_ || Clock::now() < next_) return;
  std::cerr << emptyLine << work << std::flush;
  isShown_ = true;
  next_ = Clock::now() + pause;
}

}  // namespace vantry::zrd
