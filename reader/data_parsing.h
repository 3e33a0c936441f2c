// The data in the text of elements: points, and lists of colours or numbers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/framework/point_list.h"

namespace vantry::reader {

/// Why a point does not become part of a list.
enum class PointError : std::uint8_t {
  none,
  misplaced,     ///< the element around it takes no points of this dimension
  unlikeOthers,  ///< it has a normal or a colour and the points before it have none, or reversed
  wrongCount,    ///< too few or too many numbers or colours
  badNumber,     ///< a word that is no number
  badColor,      ///< a colour that is not #RRGGBB or #RRGGBBAA
};

/// The list that an element keeps points in; null for any other element, and for null.
plot::P2List* pointsInPlane(plot::PlotElement* element);
plot::P3List* pointsInSpace(plot::PlotElement* element);
const plot::P2List* pointsInPlane(const plot::PlotElement* element);
const plot::P3List* pointsInSpace(const plot::PlotElement* element);

/// Appends the point that a text describes, with its normal and colours. A text that is refused
/// leaves the list as it was.
PointError appendPoint(plot::P2List& list, const char* text);
PointError appendPoint(plot::P3List& list, const char* text);

/// Appends the colour or number that a word describes. False for any other word.
bool appendCell(plot::ColorArray2d& array, const char* word);
bool appendCell(plot::DensityArray2d& array, const char* word);

/// Whether an array has fewer entries than cells.
bool isShort(const plot::ColorArray2d& array);
bool isShort(const plot::DensityArray2d& array);

/// Calls `take` with each word that ends in a text that comes in pieces. `begun` holds the
/// beginning of a word from one piece to the next.
template <class Take>
void splitWords(std::string& begun, const char* data, std::size_t length, Take take) {
  const auto isSeparator = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  const char* const end = data + length;
  while (data != end) {
    const char* const wordEnd = std::find_if(data, end, isSeparator);
    begun.append(data, wordEnd);
    if (wordEnd == end) return;
    if (!begun.empty()) take(begun.c_str());
    begun.clear();
    data = wordEnd + 1;
  }
}

}  // namespace vantry::reader
