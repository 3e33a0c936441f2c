#include "driver/input.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "driver/reporting.h"

namespace vantry::driver {

namespace {

/// Reads up to `size` bytes; 0 is the end of the file.
std::size_t readSome(int descriptor, char* target, std::size_t size) {
  for (;;) {
    const ssize_t count = read(descriptor, target, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno == EISDIR) return 0;
    if (errno != EINTR) error("Can not read input file.");
  }
}

}  // namespace

Input::Input(const char* name)
    : descriptor_(open(name, O_RDONLY | O_CLOEXEC)),
      buffer_(std::make_unique_for_overwrite<std::array<char, bufferSize>>()) {
  if (descriptor_ < 0) error("Can not open input file.");
}

Input::~Input() { close(descriptor_); }

std::span<const char> Input::nextBlock() {
  if (rest_.empty()) fill();
  const auto block = rest_.first(std::min(rest_.size(), blockSize));
  rest_ = rest_.subspan(block.size());
  return block;
}

// A pipe gives what it has, so one call is not always enough.
void Input::fill() {
  std::size_t size = 0;
  while (size < bufferSize) {
    const std::size_t count = readSome(descriptor_, buffer_->data() + size, bufferSize - size);
    if (count == 0) break;
    size += count;
  }
  rest_ = std::span<const char>(*buffer_).first(size);
}

}  // namespace vantry::driver
