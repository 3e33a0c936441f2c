#include "vantry/reader/simple_data_handler.h"

#include <algorithm>
#include <cassert>

namespace vantry::reader {

void SimpleDataHandler::characters(const char* data, std::size_t length) {
  if (collecting_) appendText(data, length);
}

void SimpleDataHandler::finishElement(std::uint32_t namespaceId, std::uint32_t elementId) {
  finishing_ = true;
  endElement(namespaceId, elementId);
  finishing_ = false;
  collecting_ = false;
  text_.clear();
}

void SimpleDataHandler::appendText(const char* data, std::size_t length) {
  text_.append(data, length);
}

void SimpleDataHandler::appendTextWithoutReturns(const char* data, std::size_t length) {
  const std::size_t start = text_.size();
  text_.append(data, length);
  if (const std::size_t first = text_.find('\r', start); first != std::string::npos) {
    text_.erase(std::remove(text_.begin() + static_cast<std::ptrdiff_t>(first), text_.end(), '\r'),
                text_.end());
  }
}

void SimpleDataHandler::trimText() {
  assert(finishing_);
  const auto isTrimmed = [](char c) { return c >= 1 && c <= 32; };
  while (!text_.empty() && isTrimmed(text_.back())) text_.pop_back();
}

}  // namespace vantry::reader
