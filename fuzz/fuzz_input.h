// What the fuzz targets share.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>

/// The entry point of a fuzz target: does with the bytes what it is there for, and always gives 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Takes decisions from the bytes of an input, and zeros behind its end.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

  bool isEmpty() const { return at_ == end_; }

  template <class Number>
  Number take() {
    static_assert(std::is_trivially_copyable_v<Number>);
    Number number{};
    const std::size_t size = std::min(sizeof number, static_cast<std::size_t>(end_ - at_));
    std::memcpy(static_cast<void*>(&number), at_, size);
    at_ += size;
    return number;
  }

  /// A number below `bound`, which is above 0.
  std::size_t below(std::size_t bound) { return take<std::uint16_t>() % bound; }

  /// The rest as text, up to its first NUL.
  std::string rest() {
    const std::string text(reinterpret_cast<const char*>(at_),
                           static_cast<std::size_t>(end_ - at_));
    at_ = end_;
    return text.c_str();
  }

  /// Up to 15 bytes as text.
  std::string shortText() {
    std::string text;
    for (std::size_t length = below(16); length > 0 && !isEmpty(); --length) {
      const char c = take<char>();
      text += c == '\0' ? ' ' : c;
    }
    return text;
  }

 private:
  const std::uint8_t* at_;
  const std::uint8_t* end_;
};
