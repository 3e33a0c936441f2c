#include "vantry/reader/in_quotes.h"

#include <algorithm>

namespace vantry::reader {

namespace {

constexpr std::size_t longest = 60;

bool isControl(char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }

/// How much of the text is shown: no character is cut in two.
std::size_t shownSize(std::string_view text) {
  const auto isWithinCharacter = [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
  };
  if (text.size() <= longest) return text.size();
  std::size_t size = longest;
  while (size > 0 && isWithinCharacter(text[size])) --size;
  return size;
}

}  // namespace

std::string inQuotes(std::string_view text) {
  const std::size_t size = shownSize(text);
  std::string shown(text.substr(0, size));
  std::replace_if(shown.begin(), shown.end(), isControl, ' ');
  return "'" + shown + (size < text.size() ? "...'" : "'");
}

}  // namespace vantry::reader
