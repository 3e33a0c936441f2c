// What is wrong with the entities that a document refers to, as people see it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "vantry/check/markup_mistakes.h"

namespace vantry::check {

/// The entity that is declared nowhere, although the reference that begins at `offset` leads to it,
/// or one in a value of the tag that begins there. Nothing where that is not clear. There is no
/// help with it.
std::optional<MarkupMistake> mistakeInUndefinedEntity(std::string_view document,
                                                      std::size_t offset);

/// The entity that contains itself, likewise.
std::optional<MarkupMistake> mistakeInRecursiveEntity(std::string_view document,
                                                      std::size_t offset);

}  // namespace vantry::check
