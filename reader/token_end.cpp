#include "vantry/reader/token_end.h"

#include <algorithm>
#include <cstddef>

namespace vantry::reader {

namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view quotes = "\"'";

/// What may be behind a name, the semicolon of a reference among them.
constexpr std::string_view delimiters = " \t\r\n<>[]()|,*+?;%\"'";

constexpr auto none = std::string_view::npos;

}  // namespace

TokenEnd::TokenEnd(std::string_view begin) {
  std::size_t prefix = 1;  // which may be what else would be an end
  if (begin.starts_with("<!--")) {
    kind_ = Kind::upToMark;
    mark_ = "-->";
    prefix = 4;
  } else if (begin.starts_with("<?")) {
    kind_ = Kind::upToMark;
    mark_ = "?>";
    prefix = 2;
  } else if (begin.starts_with("<!")) {
    prefix = 2;
  } else if (begin.starts_with('<')) {
    kind_ = Kind::tag;
  } else if (begin.find_first_of(quotes) == 0) {
    kind_ = Kind::literal;
    quote_ = begin.front();
  } else if (begin.find_first_of(blanks) == 0) {
    kind_ = Kind::blanks;
  }
  isIn(begin.substr(std::min(prefix, begin.size())));
}

bool TokenEnd::isIn(std::string_view bytes) {
  if (isFound_) return false;
  isFound_ = find(bytes);
  return isFound_;
}

bool TokenEnd::find(std::string_view bytes) {
  switch (kind_) {
    case Kind::tag:
      return findEndOfTag(bytes);
    case Kind::literal:
      return findEndOfLiteral(bytes);
    case Kind::name:
      return bytes.find_first_of(delimiters) != none;
    case Kind::blanks:
      return bytes.find_first_not_of(blanks) != none;
    case Kind::upToMark:
      return findMark(bytes);
  }
  return false;
}

bool TokenEnd::findEndOfTag(std::string_view bytes) {
  for (const char c : bytes) {
    if (quote_ == '\0') {
      if (c == '>') return true;
      if (quotes.find(c) != none) quote_ = c;
    } else if (c == quote_) {
      quote_ = '\0';
    }
  }
  return false;
}

bool TokenEnd::findEndOfLiteral(std::string_view bytes) {
  if (isClosed_) return !bytes.empty();
  const std::size_t end = bytes.find(quote_);
  isClosed_ = end != none;
  return isClosed_ && end + 1 < bytes.size();
}

bool TokenEnd::findMark(std::string_view bytes) {
  tail_ += bytes;
  if (tail_.find(mark_) != none) return true;
  tail_.erase(0, tail_.size() - std::min(tail_.size(), mark_.size() - 1));
  return false;
}

}  // namespace vantry::reader
