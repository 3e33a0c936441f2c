// The values of attributes: what is odd about one that was taken, and help for one that was not.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vantry/check/findings.h"
#include "vantry/check/model_facts.h"

namespace vantry::check {

/// Looks at a value that a property has taken: `stored` came of `text`. False for a word that means
/// nothing.
bool reviewValue(const Property& property, const base::Variant& stored, const std::string& text,
                 Span where, Findings& findings);

/// Whether the locale has all characters of a text.
bool isNativeText(const char* text);
/// What helps if it has not.
inline constexpr const char* helpForLocale =
    "run the program in a locale with UTF-8, such as C.UTF-8";

/// Where the words in a plot come from.
inline constexpr const char* helpForTexts = "a text in the plot is a Text2d or Text3d";
/// How opaque a colour is.
inline constexpr const char* helpForOpacity =
    "the last two of the eight digits of a colour say how opaque it is, from 00 to FF";

/// What a value of the property is instead of `text`.
std::vector<std::string> helpForValue(const Property& property, const std::string& text);

/// The hexadecimal form of a colour that was given by its name, with or without a "#", as a
/// sentence; empty for any other text.
std::string helpForColorName(const std::string& text);

/// How numbers are written, as a sentence, for a text that has a comma; empty for any other.
std::string helpForCommas(std::string_view numbers);

/// The first word of a point's text that is not a number from its first letter to its last, and is
/// none of its colours; empty where there is none.
std::string_view firstBadNumber(std::string_view point);
/// The first word that is to be a colour, as it begins with "#", and is none; empty where there is
/// none.
std::string_view firstBadColor(std::string_view point);

/// The first of the numbers that a text begins with which is not finite, of at most so many; empty
/// where there is none.
std::string_view firstNotFinite(std::string_view text, int most);

/// Whether the numbers in a point's text are written with plain characters alone, and are no more
/// than `most`. Its colours are not looked at.
bool hasPlainNumbers(std::string_view point, int most);

/// The part of a point's text that is not looked at: what follows a number within its word, or what
/// follows the first `most` numbers. Empty where there is none.
std::string_view unusedPartOfPoint(std::string_view point, int most);

/// How many words of a point's text are none of its colours.
std::int64_t countNumbers(std::string_view point);

/// How many numbers and colours a point's text has, as in "2 numbers and 1 colour".
std::string countsInWords(std::string_view point);

/// A number of things, as in "1 row" and "2 rows".
std::string counted(std::int64_t count, const std::string& thing);

/// A text of a document within a sentence: on one line, and cut if it is long.
std::string shortened(std::string_view text);

}  // namespace vantry::check
