#include "vantry/reader/data_parsing.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "vantry/base/scan.h"
#include "vantry/plot/elements/field2d.h"
#include "vantry/plot/elements/field3d.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/pts2d.h"
#include "vantry/plot/elements/pts3d.h"
#include "vantry/plot/elements/surf3d.h"
#include "vantry/plot/values/value_parsers.h"

namespace vantry::reader {

using namespace plot;

namespace {

constexpr const char* separators = " \t\n\r";

struct WordCounts {
  std::size_t numbers = 0;
  std::size_t colors = 0;
};

WordCounts countWords(const char* text) {
  WordCounts counts;
  for (;;) {
    text += std::strspn(text, separators);
    if (*text == '\0') return counts;
    ++(*text == '#' ? counts.colors : counts.numbers);
    text += std::strcspn(text, separators);
  }
}

bool hasPlainPoints(const P3List& list) {
  return list.normals.empty() && list.colors.empty() && list.secondColors.empty();
}

// The short cut for a point that is three short numbers, as most are.
bool scanPlainPoint(const char* text, P3& point) {
  std::array<double, 3> numbers;
  if (!base::scanOnlyShortDecimals(text, numbers)) return false;
  point = {numbers[0], numbers[1], numbers[2]};
  return true;
}

// A mesh says how many points it has. Room is made in that direction, but never for more than a few
// times the points that have come.
void makeRoom(P3List& list) {
  constexpr std::size_t largestGrowth = 4;
  std::vector<P3>& points = list.points;
  if (points.size() < points.capacity()) return;
  const auto* mesh = elementCast<Mesh3d>(&list);
  if (!mesh) return;
  const auto countOf = [](std::int32_t n) { return static_cast<std::size_t>(std::max(n, 0)); };
  points.reserve(
      std::min(countOf(mesh->uMesh()) * countOf(mesh->vMesh()), points.size() * largestGrowth));
}

bool isFormOf(const P3List& list, const WordCounts& words) {
  const std::size_t colorLists =
      (list.colors.empty() ? 0u : 1u) + (list.secondColors.empty() ? 0u : 1u);
  return (words.numbers == 6) == !list.normals.empty() && words.colors == colorLists;
}

}  // namespace

const P2List* pointsInPlane(const PlotElement* element) {
  return elementCast<P2List, Poly2d, Field2d, Pts2d>(element);
}

const P3List* pointsInSpace(const PlotElement* element) {
  return elementCast<P3List, Mesh3d, Poly3d, Pts3d, Lines3d, Field3d, Surf3d>(element);
}

P2List* pointsInPlane(PlotElement* element) {
  return const_cast<P2List*>(pointsInPlane(static_cast<const PlotElement*>(element)));
}

P3List* pointsInSpace(PlotElement* element) {
  return const_cast<P3List*>(pointsInSpace(static_cast<const PlotElement*>(element)));
}

PointError appendPoint(P2List& list, const char* text) {
  std::array<double, 2> numbers;
  const auto wrongNumbers = [text] {
    return countWords(text).numbers < 2 ? PointError::wrongCount : PointError::badNumber;
  };
  if (!std::strchr(text, '#')) {
    if (!list.colors.empty()) return PointError::unlikeOthers;
    if (base::scanDoubles(text, numbers) != 2) return wrongNumbers();
    list.points.push_back({numbers[0], numbers[1]});
    return PointError::none;
  }
  if (!list.points.empty() && list.colors.empty()) return PointError::unlikeOthers;
  std::array<base::ScannedWord, 1> word;
  RGBA color;
  const int items = base::scanPoint(text, numbers, word);
  if (items < 2) return wrongNumbers();
  if (items != 3 || !ColorParser::parse(color, word[0].data())) return PointError::badColor;
  list.points.push_back({numbers[0], numbers[1]});
  list.colors.push_back(color);
  return PointError::none;
}

PointError appendPoint(P3List& list, const char* text) {
  P3 point;
  if (hasPlainPoints(list) && scanPlainPoint(text, point)) {
    makeRoom(list);
    list.points.push_back(point);
    return PointError::none;
  }
  const WordCounts words = countWords(text);
  if (words.colors > 2) return PointError::wrongCount;
  if (words.numbers != 3 && words.numbers != 6) return PointError::wrongCount;
  if (!list.points.empty() && !isFormOf(list, words)) return PointError::unlikeOthers;

  std::array<double, 6> numbers;
  std::array<base::ScannedWord, 2> colorWords;
  const int items = base::scanPoint(text, std::span(numbers).first(words.numbers),
                                    std::span(colorWords).first(words.colors));
  if (items < static_cast<int>(words.numbers)) return PointError::badNumber;
  if (items < static_cast<int>(words.numbers + words.colors)) return PointError::badColor;
  std::array<RGBA, 2> colors;
  for (std::size_t i = 0; i < words.colors; ++i) {
    if (!ColorParser::parse(colors[i], colorWords[i].data())) return PointError::badColor;
  }

  list.points.push_back({numbers[0], numbers[1], numbers[2]});
  if (words.numbers == 6) list.normals.push_back({numbers[3], numbers[4], numbers[5]});
  if (words.colors > 0) list.colors.push_back(colors[0]);
  if (words.colors > 1) list.secondColors.push_back(colors[1]);
  return PointError::none;
}

bool appendCell(ColorArray2d& array, const char* word) {
  RGBA color;
  if (!ColorParser::parse(color, word)) return false;
  array.colors.push_back(color);
  return true;
}

bool appendCell(DensityArray2d& array, const char* word) {
  double value = nan;
  if (!base::scanDouble(word, value)) return false;
  array.values.push_back(value);
  return true;
}

namespace {

template <class Array>
bool hasFewerThanCells(const Array& array, std::size_t size) {
  const std::int64_t cells = std::int64_t{array.xMesh()} * array.yMesh();
  return static_cast<std::int64_t>(size) < cells;
}

}  // namespace

bool isShort(const ColorArray2d& array) { return hasFewerThanCells(array, array.colors.size()); }

bool isShort(const DensityArray2d& array) { return hasFewerThanCells(array, array.values.size()); }

}  // namespace vantry::reader
