// Where the parts of markup begin and end, in documents that may be broken.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace vantry::check {

/// A tag, a declaration, a comment, an instruction or a CDATA section.
struct Markup {
  std::size_t begin;
  std::string_view text;  ///< from its < on
  bool isClosed;

  std::size_t end() const { return begin + text.size(); }
};

/// The first markup that begins at `from` or later, where no other may be open. One without an end
/// goes to the end of the document, but a tag or a declaration at most to the next < that is in
/// none of its values: there the declarations within a document type begin.
std::optional<Markup> nextMarkup(std::string_view document, std::size_t from);

/// The names in a tag or a declaration: its own, and those of attributes. Other markup has none.
std::vector<std::string_view> namesIn(const Markup& markup);

}  // namespace vantry::check
