// What is wrong within the tags of a document, as people see it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "vantry/check/markup_mistakes.h"

namespace vantry::check {

/// The part of a tag before a place.
struct TagPart {
  std::size_t begin;
  std::size_t lastQuote;  ///< the one that opened a value; none if it is no place
  bool isInValue;
};

/// The tag that begins at a place, if it has no end before another.
std::optional<TagPart> tagFrom(std::string_view document, std::size_t begin, std::size_t end);

/// The tag that is open at a place, if there is one.
std::optional<TagPart> openTagAt(std::string_view document, std::size_t offset);

/// A quote that has no other.
MarkupMistake missingQuote(std::size_t quote);

/// The mistake for which the tag that is open at `offset` cannot go on there.
std::optional<MarkupMistake> mistakeInTag(std::string_view document, std::size_t offset);

/// The attribute that is the second of its name in a tag, and begins at `offset`; or the tag that
/// begins there, if the names differ in their prefixes.
std::optional<MarkupMistake> mistakeInSecondAttribute(std::string_view document,
                                                      std::size_t offset);

/// The name with a prefix that no tag declares up to the tag that begins at `tag`, in that tag.
std::optional<MarkupMistake> mistakeInPrefix(std::string_view document, std::size_t tag);

}  // namespace vantry::check
