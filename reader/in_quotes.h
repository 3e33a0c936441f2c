// Texts of a document within sentences.
#pragma once

#include <string>
#include <string_view>

namespace vantry::reader {

/// The text in quotation marks, fit for one line: a long one is cut, and a control character
/// becomes a blank.
std::string inQuotes(std::string_view text);

}  // namespace vantry::reader
