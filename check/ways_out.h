// Ways out of a name that an element does not have: what it has in its place, and where the name
// belongs. Each is a sentence, and empty where there is nothing to say.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vantry/check/model_facts.h"

namespace vantry::check {

/// What may be inside of an element; if that is much, where it is listed.
std::string contentInWords(const ClassFacts& facts);

/// What an element has of attributes; if they are many, where they are listed.
std::string attributesInWords(const ClassFacts& facts);

/// What of an element's content takes a child of that name, by itself or one level further down.
std::string wayInto(const ClassFacts& parent, Token name);

/// Where an element may be.
std::string parentsInWords(Token element);

/// The name in the other dimension, "Obj3d" for "Obj2d" and "P3" for "P2", if a parent takes that.
std::string inOtherDimension(const ClassFacts& parent, std::string name);

/// A value of an attribute that must be given.
std::string exampleOf(const ClassFacts& element, Token attribute);

/// What there is in place of an attribute that an element does not have, and none of whose own has
/// a name near to it.
std::vector<std::string> helpForAttribute(const ClassFacts& facts, std::string_view name);

}  // namespace vantry::check
