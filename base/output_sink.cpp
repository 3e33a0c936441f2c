#include "vantry/base/output_sink.h"

#include <ostream>

namespace vantry::base {

OutputSink::OutputSink(std::ostream* stream)
    : stream_(stream),
      buffer_(std::make_unique_for_overwrite<char[]>(bufferSize)),
      at_(buffer_.get()),
      end_(at_ + bufferSize) {}

OutputSink::~OutputSink() {
  try {
    flush();
  } catch (...) {
    // The state of the stream shows it.
  }
}

void OutputSink::attach(std::ostream& stream) {
  flush();
  stream_ = &stream;
}

void OutputSink::flush() {
  char* const begin = buffer_.get();
  const auto used = at_ - begin;
  at_ = begin;
  if (stream_ && used > 0) stream_->write(begin, used);
}

OutputSink& OutputSink::writeLarge(const char* data, std::size_t size) {
  flush();
  if (size > bufferSize) {
    if (stream_) stream_->write(data, static_cast<std::streamsize>(size));
    return *this;
  }
  return write(data, size);
}

}  // namespace vantry::base
