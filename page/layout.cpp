#include "vantry/page/layout.h"

#include <algorithm>
#include <cmath>

namespace vantry::page {

using namespace plot;

namespace {

struct Grid {
  std::size_t rows;
  std::size_t columns;
};

std::size_t neededFor(std::size_t count, std::size_t perLine) {
  return (count + perLine - 1) / perLine;
}

/// Nothing that is asked for makes more rows or columns than there are scenes.
Grid gridOf(const Canvas& canvas, std::size_t count) {
  const Token layout = canvas.layout();
  if (layout == Word::Horizontal) return {1, count};
  if (layout == Word::Vertical) return {count, 1};
  const auto asked = [count](std::int32_t number) {
    return std::min(static_cast<std::size_t>(number), count);
  };
  std::size_t columns = asked(canvas.columns());
  const std::size_t rows = asked(canvas.rows());
  if (columns == 0 && rows > 0) columns = neededFor(count, rows);
  if (columns == 0) {
    columns = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
  }
  return {neededFor(count, columns), columns};
}

std::vector<Place> placesInGrid(const Canvas& canvas, std::size_t count) {
  const Grid grid = gridOf(canvas, count);
  const auto columns = static_cast<double>(grid.columns);
  const auto rows = static_cast<double>(grid.rows);
  const double horizontal = canvas.spacing() / canvas.width();
  const double vertical = canvas.spacing() / canvas.height();
  const double left = canvas.leftMargin() / canvas.width();
  const double top = canvas.topMargin() / canvas.height();
  const double right = canvas.rightMargin() / canvas.width();
  const double bottom = canvas.bottomMargin() / canvas.height();
  const double width = (1 - left - right - (columns - 1) * horizontal) / columns;
  const double height = (1 - top - bottom - (rows - 1) * vertical) / rows;

  std::vector<Place> places;
  places.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = i / grid.columns;
    const std::size_t column = i % grid.columns;
    places.push_back({left + static_cast<double>(column) * (width + horizontal),
                      top + static_cast<double>(row) * (height + vertical), width, height});
  }
  return places;
}

/// Scenes say their size in millimetres, and their lower left corner in those or in parts of the
/// canvas.
Place ownPlace(const Canvas& canvas, const SceneBase& scene) {
  const bool isRelative = canvas.layout() == Word::Relative;
  const double left = scene.left() / (isRelative ? 1 : canvas.width());
  const double bottom = scene.bottom() / (isRelative ? 1 : canvas.height());
  const double width = scene.width() / canvas.width();
  const double height = scene.height() / canvas.height();
  return {left, 1 - bottom - height, width, height};
}

}  // namespace

std::vector<Place> placesOf(const Canvas& canvas, std::span<const SceneBase* const> scenes) {
  if (!isOneOf(canvas.layout(), Word::Absolute, Word::Relative)) {
    return placesInGrid(canvas, scenes.size());
  }
  std::vector<Place> places;
  places.reserve(scenes.size());
  for (const SceneBase* scene : scenes) places.push_back(ownPlace(canvas, *scene));
  return places;
}

}  // namespace vantry::page
