// The way of all written text to its stream.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <memory>
#include <string_view>

#include "vantry/base/format_number.h"
#include "vantry/base/running_number.h"

namespace vantry::base {

/// Gathers text in a buffer of fixed size and hands it on to a stream, block by block. Numbers are
/// written as a stream with default settings writes them. Whether the stream took everything is
/// seen from its state after flush(). The stream must outlive the sink or the next attach().
class OutputSink {
 public:
  /// A sink without a stream: text is dropped until attach().
  OutputSink() : OutputSink(nullptr) {}
  explicit OutputSink(std::ostream& stream) : OutputSink(&stream) {}
  OutputSink(const OutputSink&) = delete;
  OutputSink& operator=(const OutputSink&) = delete;
  /// Hands on what is left. An exception of the stream ends here, as no destructor may throw.
  ~OutputSink();

  /// Hands on what is left and goes on with another stream.
  void attach(std::ostream& stream);

  /// Hands all text that was written so far on to the stream, which may keep it in a buffer of its
  /// own.
  void flush();

  OutputSink& put(char c) {
    if (at_ == end_) flush();
    *at_++ = c;
    return *this;
  }

  OutputSink& write(const char* data, std::size_t size) {
    if (size > room()) return writeLarge(data, size);
    at_ = std::copy_n(data, size, at_);
    return *this;
  }

  OutputSink& operator<<(char c) { return put(c); }
  OutputSink& operator<<(std::string_view text) { return write(text.data(), text.size()); }
  /// A null pointer writes nothing.
  OutputSink& operator<<(const char* text) { return text ? write(text, std::strlen(text)) : *this; }

  OutputSink& operator<<(double value) {
    reserveNumber();
    at_ = formatDouble(at_, value);
    return *this;
  }
  OutputSink& operator<<(int value) { return *this << std::int64_t{value}; }
  OutputSink& operator<<(unsigned value) { return *this << std::uint64_t{value}; }
  OutputSink& operator<<(std::int64_t value) {
    reserveNumber();
    at_ = formatInteger(at_, value);
    return *this;
  }
  OutputSink& operator<<(std::uint64_t value) {
    reserveNumber();
    at_ = formatInteger(at_, value);
    return *this;
  }
  OutputSink& operator<<(const RunningNumber& number) {
    reserveNumber();
    at_ = number.write(at_);
    return *this;
  }

 private:
  static constexpr std::size_t bufferSize = 64 * 1024;

  explicit OutputSink(std::ostream* stream);

  std::size_t room() const { return static_cast<std::size_t>(end_ - at_); }

  void reserveNumber() {
    if (room() < numberRoom) flush();
  }

  OutputSink& writeLarge(const char* data, std::size_t size);

  std::ostream* stream_;
  std::unique_ptr<char[]> buffer_;
  char* at_;
  char* end_;
};

}  // namespace vantry::base
