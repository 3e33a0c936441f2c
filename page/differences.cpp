#include "vantry/page/differences.h"

#include <charconv>
#include <optional>

namespace vantry::page {

namespace {

constexpr std::string_view separators = "\n <>";

// Integers have at most nine digits. Differences wrap around, so that they have no more.
constexpr std::size_t mostDigits = 9;
constexpr std::size_t longestInteger = mostDigits + 1;
constexpr std::int32_t bound = 1'000'000'000;
constexpr std::int32_t modulus = 2 * (bound - 1) + 1;

/// The integer that is written here in its only form.
std::optional<std::int32_t> integerIn(std::string_view word) {
  const std::string_view digits = word.substr(word.starts_with('-') ? 1 : 0);
  if (digits.empty() || digits.size() > mostDigits) return std::nullopt;
  if (digits.front() == '0' && word != "0") return std::nullopt;
  const char* const end = word.data() + word.size();
  std::int32_t value = 0;
  if (std::from_chars(word.data(), end, value).ptr != end) return std::nullopt;
  return value;
}

void appendInteger(std::string& out, std::int32_t value) {
  std::array<char, longestInteger> text;
  out.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
}

std::int32_t wrapped(std::int32_t difference) {
  if (difference >= bound) return difference - modulus;
  if (difference <= -bound) return difference + modulus;
  return difference;
}

}  // namespace

void DifferenceEncoder::encode(std::string_view piece, std::string& out) {
  while (!piece.empty()) {
    const std::string_view part = piece.substr(0, piece.find_first_of(separators));
    if (wordIsLong_) {
      out += part;
    } else {
      word_ += part;
    }
    if (word_.size() > longestInteger) {
      out += word_;
      word_.clear();
      wordIsLong_ = true;
    }
    if (part.size() == piece.size()) return;
    endWord(out);
    const char separator = piece[part.size()];
    if (separator == '\n') column_ = 0;
    out += separator;
    piece.remove_prefix(part.size() + 1);
  }
}

void DifferenceEncoder::endWord(std::string& out) {
  if (word_.empty() && !wordIsLong_) return;
  const std::optional<std::int32_t> value = integerIn(word_);
  std::int32_t& before = before_[column_++ % before_.size()];
  if (value) {
    appendInteger(out, wrapped(*value - before));
    before = *value;
  } else {
    out += word_;
  }
  word_.clear();
  wordIsLong_ = false;
}

}  // namespace vantry::page
