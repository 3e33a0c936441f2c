#include "vantry/check/markup.h"

#include <algorithm>
#include <iterator>

#include "vantry/check/characters.h"

namespace vantry::check {

namespace {

/// What has neither names nor values in it.
constexpr struct Verbatim {
  std::string_view beginning;
  std::string_view ending;
} verbatims[] = {
    {"<!--", "-->"},
    {"<?", "?>"},
    {"<![CDATA[", "]]>"},
};

/// The kind that a text begins with; null for a tag or a declaration.
const Verbatim* findVerbatim(std::string_view text) {
  const auto* found = std::ranges::find_if(
      verbatims, [=](const Verbatim& kind) { return text.starts_with(kind.beginning); });
  return found == std::end(verbatims) ? nullptr : found;
}

/// The place behind the value that begins at a quote; the end of the text if it is not closed.
std::size_t behindValue(std::string_view text, std::size_t quote) {
  return std::min(text.find(text[quote], quote + 1), text.size() - 1) + 1;
}

}  // namespace

std::optional<Markup> nextMarkup(std::string_view document, std::size_t from) {
  const std::size_t begin = document.find('<', from);
  if (begin == document.npos) return {};
  const std::string_view rest = document.substr(begin);
  if (const Verbatim* const kind = findVerbatim(rest)) {
    const std::size_t ending = rest.find(kind->ending, kind->beginning.size());
    if (ending == rest.npos) return Markup{begin, rest, false};
    return Markup{begin, rest.substr(0, ending + kind->ending.size()), true};
  }
  std::size_t at = 1;
  while (at < rest.size() && rest[at] != '<' && rest[at] != '>') {
    at = isQuote(rest[at]) ? behindValue(rest, at) : at + 1;
  }
  const bool isClosed = at < rest.size() && rest[at] == '>';
  return Markup{begin, rest.substr(0, isClosed ? at + 1 : at), isClosed};
}

std::vector<std::string_view> namesIn(const Markup& markup) {
  const std::string_view text = markup.text;
  std::vector<std::string_view> names;
  std::size_t at = findVerbatim(text) ? text.size() : 0;
  while (at < text.size()) {
    if (isQuote(text[at])) {
      at = behindValue(text, at);
      continue;
    }
    const std::string_view name = nameAt(text, at);
    if (!name.empty()) names.push_back(name);
    at += std::max<std::size_t>(name.size(), 1);
  }
  return names;
}

}  // namespace vantry::check
