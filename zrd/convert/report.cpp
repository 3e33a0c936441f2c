#include "zrd/convert/report.h"

#include <algorithm>
#include <iostream>

#include "vantry/check/report.h"
#include "zrd/commands.h"

namespace vantry::zrd {

void ConvertReport::begin(std::size_t documents) {
  const std::lock_guard lock(mutex_);
  documents_ += documents;
  showProgress();
}

void ConvertReport::warn(const std::string& line) {
  const std::lock_guard lock(mutex_);
  say(line);
}

void ConvertReport::fail(const std::string& line) {
  const std::lock_guard lock(mutex_);
  ++failed_;
  say(line);
  showProgress();
}

void ConvertReport::failBad(const std::string& line) {
  fail(line);
  const std::lock_guard lock(mutex_);
  hasBad_ = true;
}

void ConvertReport::converted() {
  const std::lock_guard lock(mutex_);
  ++converted_;
  showProgress();
}

void ConvertReport::unchanged() {
  const std::lock_guard lock(mutex_);
  ++unchanged_;
  showProgress();
}

void ConvertReport::summarise() {
  const std::lock_guard lock(mutex_);
  progress_.hide();
  std::string line = std::to_string(converted_) + " converted";
  const std::size_t left = documents_ - std::min(documents_, converted_ + unchanged_ + failed_);
  const auto add = [&line](std::size_t count, const char* what) {
    if (count > 0) line += ", " + std::to_string(count) + what;
  };
  add(unchanged_, " unchanged");
  add(failed_, " failed");
  add(left, " not tried");
  if (hasBad_) line += wayOut;
  std::cerr << line << '\n' << std::flush;
}

std::size_t ConvertReport::failures() const {
  const std::lock_guard lock(mutex_);
  return failed_;
}

void ConvertReport::say(const std::string& line) {
  progress_.hide();
  std::cerr << check::printable(line) << '\n' << std::flush;
}

void ConvertReport::showProgress() {
  if (documents_ > 0) progress_.show([this] { return bar(); });
}

// "[=====     ] 5/10, 1 failed"
std::string ConvertReport::bar() const {
  const std::size_t done = std::min(documents_, converted_ + unchanged_ + failed_);
  std::string count = " " + std::to_string(done) + '/' + std::to_string(documents_);
  if (failed_ > 0) count += ", " + std::to_string(failed_) + " failed";
  const std::size_t columns = columnsOfTerminal();
  const std::size_t room = columns - std::min(columns, count.size() + 3);
  const std::size_t width = std::min<std::size_t>(room, 50);
  std::string bar(width * done / documents_, '=');
  bar.resize(width, ' ');
  return '[' + bar + ']' + count;
}

}  // namespace vantry::zrd
