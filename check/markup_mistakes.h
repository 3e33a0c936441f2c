// What is wrong where the XML parser cannot go on, as people see it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantry::check {

struct MarkupMistake {
  std::string reason;             ///< a sentence
  std::vector<std::string> help;  ///< further sentences
  std::size_t place;              ///< the byte at which it is to be shown
};

/// The mistake for which a token of the document is invalid at `offset`, with an element open
/// before it or none. Nothing where that is not clear.
std::optional<MarkupMistake> mistakeInToken(std::string_view document, std::size_t offset,
                                            bool isInElement);

/// The mistake for which the token that begins at `offset` does not end.
std::optional<MarkupMistake> mistakeInUnclosedToken(std::string_view document, std::size_t offset);

/// The CDATA section that does not end, or the entity at `offset` that it is in.
std::optional<MarkupMistake> mistakeInUnclosedCdata(std::string_view document, std::size_t offset);

/// Text before or behind all elements.
MarkupMistake textOutside(std::size_t offset);

}  // namespace vantry::check
