// Long lists of integers made short before they are compressed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantry::page {

/// Writes each integer of a text as the difference to the one in the same column of the lines
/// before, as page/CONTRACT.md describes it: the indices in a mesh grow evenly, so that nearly all
/// of its lines become the same. The page gets the text back byte by byte, whatever it is.
class DifferenceEncoder {
 public:
  /// Appends to `out` the next piece of the text, but for a word at its end that may go on.
  void encode(std::string_view piece, std::string& out);

  /// Appends that word to `out`. Nothing may be encoded after it.
  void finish(std::string& out) { endWord(out); }

 private:
  void endWord(std::string& out);

  std::array<std::int32_t, 16> before_{};
  std::size_t column_ = 0;
  std::string word_;         // so far, unless it is too long for an integer
  bool wordIsLong_ = false;  // and written already
};

}  // namespace vantry::page
