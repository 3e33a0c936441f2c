// The error that ends an export.
#pragma once

#include <exception>

namespace vantry::javaview {

/// The document, or the file to write to, does not allow the export. The message is for users.
class JavaViewExportError : public std::exception {
 public:
  /// `message` must have static lifetime.
  explicit JavaViewExportError(const char* message) : message_(message) {}

  const char* what() const noexcept override { return message_; }

 private:
  const char* message_;
};

}  // namespace vantry::javaview
