// What is wrong before the outermost element of a document, as people see it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "vantry/check/markup_mistakes.h"

namespace vantry::check {

/// The mistake in the document type, or in another declaration before the outermost element, for
/// which the XML parser cannot go on at `offset`. Nothing for any other place.
std::optional<MarkupMistake> mistakeInProlog(std::string_view document, std::size_t offset);

}  // namespace vantry::check
