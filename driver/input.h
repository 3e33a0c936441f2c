// Where the document comes from.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>

namespace vantry::driver {

/// The file that is converted. What cannot be opened or read ends the program.
class Input {
 public:
  /// A block of the input, and the parser's: the number of its warnings depends on it.
  static constexpr std::size_t blockSize = 512;

  explicit Input(const char* name);
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  ~Input();

  /// The next block, which lives until the next call. The last one, and no other, is shorter than
  /// blockSize, and may be empty. A directory is an empty file.
  std::span<const char> nextBlock();

 private:
  /// The input is read from the system in pieces of this size.
  static constexpr std::size_t bufferSize = 128 * blockSize;

  void fill();

  int descriptor_;
  std::unique_ptr<std::array<char, bufferSize>> buffer_;
  std::span<const char> rest_;  // of what is in the buffer
};

}  // namespace vantry::driver
