// The texts of fonts: what of one is not looked at, and what is meant by one that is none.
#pragma once

#include <string>
#include <string_view>

namespace vantry::check {

/// The part of a font's text that follows its size or a colour within the same word; empty where
/// there is none.
std::string_view unusedPartOfFont(std::string_view text);

/// Whether the name of a family looks like another part of a font, or like more than one family.
bool isOddFamily(std::string_view family);

/// How a font is written that has a part which is not looked at, or that is none, as a sentence;
/// empty where that is not known.
std::string helpForFont(std::string_view text);

}  // namespace vantry::check
