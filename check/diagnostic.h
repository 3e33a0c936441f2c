// What is found wrong with a document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantry::check {

enum class Severity : std::uint8_t {
  warning,  ///< it can be converted, but is hardly meant
  error,    ///< it means nothing, or cannot be converted
};

/// A part of one line, in characters (code points, so that a tab is one), all counted from 1.
struct Place {
  int line = 1;
  int column = 1;
  int endColumn = 1;       ///< behind the last character
  std::size_t offset = 0;  ///< where it begins, in bytes of the text in UTF-8 without a mark
};

struct Diagnostic {
  std::string_view code;  ///< a stable word such as "unknown-element"
  Severity severity = Severity::error;
  Place place;
  std::string sentence;           ///< without a full stop
  std::vector<std::string> help;  ///< further sentences: what is allowed, and a way out
};

}  // namespace vantry::check
