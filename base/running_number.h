// Integers that follow each other, as text.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "vantry/base/format_number.h"

namespace vantry::base {

/// An integer that grows by one from text to text. It is counted up as text, and printed anew only
/// where more than the last digit changes.
class RunningNumber {
 public:
  explicit RunningNumber(std::int64_t value) : value_(value) { print(); }

  RunningNumber& operator++() {
    ++value_;
    char& last = text_[size_ - 1];
    if (value_ > 0 && last != '9') {
      ++last;
    } else {
      print();
    }
    return *this;
  }

  /// Writes the number as formatInteger() does, into as much room.
  char* write(char* out) const {
    std::memcpy(out, text_.data(), text_.size());
    return out + size_;
  }

 private:
  void print() {
    size_ = static_cast<std::size_t>(formatInteger(text_.data(), value_) - text_.data());
  }

  std::int64_t value_;
  std::size_t size_;
  std::array<char, numberRoom> text_{};
};

}  // namespace vantry::base
