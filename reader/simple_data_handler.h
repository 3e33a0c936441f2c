// A handler that collects the text of one element at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "vantry/reader/xml_handler.h"

namespace vantry::reader {

/// Collects the text of those elements for which a subclass asks in startElement(), and has it
/// ready in endElement(). Collection does not nest: the end of any element, a child's too, ends it
/// and drops what was gathered, so it is for elements without element children.
class SimpleDataHandler : public Handler {
 public:
  virtual ~SimpleDataHandler() = default;

  /// Passes the text to appendText() while collection is on, and drops it otherwise.
  void characters(const char* data, std::size_t length) override;

  /// Calls endElement(), then ends the collection.
  void finishElement(std::uint32_t namespaceId, std::uint32_t elementId) override;

 protected:
  /// Takes a piece of the collected text. This one adds it unchanged to text().
  virtual void appendText(const char* data, std::size_t length);

  /// Adds a piece to text() without its carriage returns.
  void appendTextWithoutReturns(const char* data, std::size_t length);

  /// Starts the collection. To be called inside startElement().
  void collectText() { collecting_ = true; }

  bool isCollecting() const { return collecting_; }

  /// The collected text, NUL-terminated. It is whole inside endElement(), and empty afterwards.
  const char* text() const { return text_.c_str(); }

  /// Removes the trailing bytes from 1 to 32. To be called inside endElement().
  void trimText();

 private:
  std::string text_;
  bool collecting_ = false;
  bool finishing_ = false;
};

}  // namespace vantry::reader
