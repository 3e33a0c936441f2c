// What the conversion of text can raise.
#pragma once

#include <stdexcept>

namespace vantry::base {

/// A text ends within a character, or holds bytes that are no character.
class BadUnicodeString : public std::runtime_error {
 public:
  BadUnicodeString() : std::runtime_error("incomplete Unicode string") {}
};

/// The target of a conversion is full.
class BadBufferLength : public std::runtime_error {
 public:
  BadBufferLength() : std::runtime_error("buffer too small") {}
};

/// No conversion exists between the native encoding and Unicode.
class BadLocale : public std::runtime_error {
 public:
  BadLocale() : std::runtime_error("current locale is not supported") {}
};

}  // namespace vantry::base
