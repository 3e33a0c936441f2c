// Reading numbers and words out of text, with exactly the meaning of the C library's sscanf.
//
// A plain decimal number is read directly, and always with a point as its decimal mark; every other
// text is left to sscanf itself. Nothing here throws, and an item that is not there leaves its
// target as it was. Text behind the items is ignored.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace vantry::base {

/// A word of at most 10 characters with its NUL.
using ScannedWord = std::array<char, 11>;

/// Scans as many numbers as `numbers` holds, as " %lf %lf ... " does. Gives the number of items
/// that were read.
int scanDoubles(const char* text, std::span<double> numbers);

/// Whether the text is exactly `numbers.size()` short decimal numbers with blanks, tabs, newlines
/// or returns between them, which it reads then. The short cut for the bulk of the data: false says
/// nothing about what scanDoubles() would make of the text.
bool scanOnlyShortDecimals(const char* text, std::span<double> numbers);

/// Scans numbers and, behind them, words that begin with "#", as " %lf ... #%10s ... " does. A word
/// is stored without its "#". Gives the number of items that were read.
int scanPoint(const char* text, std::span<double> numbers, std::span<ScannedWord> words);

/// Scans one number, as " %lf " and "%lf" do.
bool scanDouble(const char* text, double& number);

/// Scans one integer, as " %ld " and "%ld" do. A number beyond 32 bits becomes the nearest bound.
bool scanLong(const char* text, std::int32_t& number);

/// Scans one integer, as "%d" does. Of a number beyond an int the lower bits are taken, and those
/// of the nearest bound if it is beyond a long too.
bool scanInt(const char* text, int& number);

/// Scans the first word of the text, cut at 10 characters, as " %10s " does.
bool scanWord(const char* text, ScannedWord& word);

}  // namespace vantry::base
