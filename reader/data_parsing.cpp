// The data that stands in the text of elements: points, and lists of colours or numbers.

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
#include "vantry/reader/zrd_parser_handler.h"

namespace vantry::reader {

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

void ZrdParserHandler::endP2() {
  auto* list = elementCast<P2List, Poly2d, Field2d, Pts2d>(current_.get());
  if (!list) illegal("P2");
  parseP2(*list);
}

void ZrdParserHandler::endP3() {
  auto* list = elementCast<P3List, Mesh3d, Poly3d, Pts3d, Lines3d, Field3d, Surf3d>(current_.get());
  if (!list) illegal("P3");
  parseP3(*list);
}

// A colour after plain points, and a plain point after coloured ones, are called illegal; in space
// the same is called corrupted.
void ZrdParserHandler::parseP2(P2List& list) {
  std::array<double, 2> numbers;
  if (!std::strchr(text(), '#')) {
    if (!list.colors.empty()) illegal("P2");
    if (base::scanDoubles(text(), numbers) != 2) corrupted("P2", text());
    list.points.push_back({numbers[0], numbers[1]});
    return;
  }
  if (!list.points.empty() && list.colors.empty()) illegal("P2");
  std::array<base::ScannedWord, 1> word;
  RGBA color;
  if (base::scanPoint(text(), numbers, word) != 3 || !ColorParser::parse(color, word[0].data())) {
    corrupted("P2", text());
  }
  list.points.push_back({numbers[0], numbers[1]});
  list.colors.push_back(color);
}

void ZrdParserHandler::parseP3(P3List& list) {
  P3 point;
  if (hasPlainPoints(list) && scanPlainPoint(text(), point)) {
    makeRoom(list);
    list.points.push_back(point);
    return;
  }
  const WordCounts words = countWords(text());
  if (words.colors > 2) corrupted("P3", text());
  if (words.numbers != 3 && words.numbers != 6) corrupted("P3", text());
  if (!list.points.empty() && !isFormOf(list, words)) corrupted("P3", text());

  std::array<double, 6> numbers;
  std::array<base::ScannedWord, 2> colorWords;
  const int items = base::scanPoint(text(), std::span(numbers).first(words.numbers),
                                    std::span(colorWords).first(words.colors));
  if (items != static_cast<int>(words.numbers + words.colors)) corrupted("P3", text());
  std::array<RGBA, 2> colors;
  for (std::size_t i = 0; i < words.colors; ++i) {
    if (!ColorParser::parse(colors[i], colorWords[i].data())) corrupted("P3", text());
  }

  list.points.push_back({numbers[0], numbers[1], numbers[2]});
  if (words.numbers == 6) list.normals.push_back({numbers[3], numbers[4], numbers[5]});
  if (words.colors > 0) list.colors.push_back(colors[0]);
  if (words.colors > 1) list.secondColors.push_back(colors[1]);
}

void ZrdParserHandler::flushColor(ColorArray2d& array) {
  RGBA color;
  if (!ColorParser::parse(color, wordBuffer_.c_str())) {
    corrupted("ColorArray2d", wordBuffer_.c_str());
  }
  array.colors.push_back(color);
}

void ZrdParserHandler::flushValue(DensityArray2d& array) {
  double value = nan;
  if (!base::scanDouble(wordBuffer_.c_str(), value)) {
    corrupted("DensityArray2d", wordBuffer_.c_str());
  }
  array.values.push_back(value);
}

void ZrdParserHandler::flushWord() {
  if (wordBuffer_.empty()) return;
  if (auto* colors = elementCast<ColorArray2d>(current_.get())) flushColor(*colors);
  if (auto* values = elementCast<DensityArray2d>(current_.get())) flushValue(*values);
  wordBuffer_.clear();
}

// A word may span any number of calls.
void ZrdParserHandler::appendWords(const char* data, std::size_t length) {
  const auto isSeparator = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  const char* const end = data + length;
  while (data != end) {
    const char* const wordEnd = std::find_if(data, end, isSeparator);
    wordBuffer_.append(data, wordEnd);
    if (wordEnd == end) return;
    flushWord();
    data = wordEnd + 1;
  }
}

namespace {

template <class Array>
bool isShort(const Array& array, std::size_t size) {
  const std::int64_t cells = std::int64_t{array.xMesh()} * array.yMesh();
  return static_cast<std::int64_t>(size) < cells;
}

}  // namespace

void ZrdParserHandler::endArray() {
  appendText(" ", 1);
  const char* tag = current_->tagName().str();
  const auto* colors = elementCast<ColorArray2d>(current_.get());
  if (colors && isShort(*colors, colors->colors.size())) incomplete(tag, "colors missing");
  const auto* values = elementCast<DensityArray2d>(current_.get());
  if (values && isShort(*values, values->values.size())) incomplete(tag, "values missing");
}

}  // namespace vantry::reader
