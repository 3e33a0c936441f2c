// Names in sentences, and those that are close to a misspelt one.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vantry/base/token.h"

namespace vantry::check {

/// The nearest of the names, which differs in few enough letters to be meant; empty if there is
/// none. The case of letters counts least.
std::string_view nearestName(std::string_view name, std::span<const base::Token> names);

/// "did you mean Mesh3d?" for a name that was found, and nothing where none was.
std::string question(std::string_view nearest);

/// An element as it is written, as in "<Obj2d>...</Obj2d>".
std::string tagsOf(base::Token element);

/// The words in a sentence: "A, B and C".
std::string listOf(std::span<const std::string_view> words, std::string_view last = "and");
std::string listOf(std::span<const base::Token> names, std::string_view last = "and");

}  // namespace vantry::check
