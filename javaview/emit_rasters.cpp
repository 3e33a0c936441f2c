#include "vantry/javaview/emit_rasters.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "vantry/javaview/color_scale.h"
#include "vantry/javaview/export_error.h"

namespace vantry::javaview {

using namespace plot;

namespace {

/// The entries of the cells, without those that are too many.
template <class Raster, class Entry>
std::span<const Entry> cellsOf(const Raster& raster, const std::vector<Entry>& entries,
                               const char* complaint) {
  const std::int64_t cells = std::int64_t{raster.xMesh()} * raster.yMesh();
  if (std::ssize(entries) < cells) throw JavaViewExportError(complaint);
  return std::span(entries).first(static_cast<std::size_t>(cells));
}

/// All corners, row by row. Unlike other points they do not go through a transform.
template <class Raster>
void writeCorners(GeometryOutput& out, const Raster& raster) {
  const double dx = (raster.xMax() - raster.xMin()) / raster.xMesh();
  const double dy = (raster.yMax() - raster.yMin()) / raster.yMesh();
  for (std::int32_t i = 0; i <= raster.yMesh(); ++i) {
    const double y = i * dy + raster.yMin();
    for (std::int32_t j = 0; j <= raster.xMesh(); ++j) {
      out << "<p>" << j * dx + raster.xMin() << ' ' << y << "</p>\n";
    }
  }
}

/// A raster up to the colours of its cells.
template <class Raster>
void writeCells(GeometryOutput& out, const Raster& raster, std::size_t cells) {
  const std::int64_t columns = std::int64_t{raster.xMesh()} + 1;
  const std::int64_t rows = std::int64_t{raster.yMesh()} + 1;

  out.beginGeometry();
  out << "<pointSet dim=\"2\" color=\"hide\" point=\"hide\">\n<points>\n";
  writeCorners(out, raster);
  out << "</points>\n</pointSet>\n<faceSet face=\"show\" color=\"show\"";
  out.writeShowAttribute("edge", raster.linesVisible());
  out << ">\n<faces num=\"" << cells << "\">\n";
  out.writeGridFaces(columns, rows);
  out << "</faces>\n<neighbours num=\"" << cells << "\">\n";
  out.writeGridNeighbours(columns, rows, " </nb>\n");  // the blank is part of the format
  out << "</neighbours>\n";
  out.writeEdges(raster.lineColor(), raster.lineWidth());
  out << "<colors num=\"" << cells << "\">\n";
}

void finishCells(GeometryOutput& out, int alpha) {
  out << "</colors>\n</faceSet>\n";
  out.writeMaterial(alpha, false);
  out.endGeometry();
}

/// The range of at least one value, as a mesh has a cell. A NaN at the start is both bounds; any
/// other NaN is none.
ValueRange rangeOf(std::span<const double> values) {
  ValueRange range{values.front(), values.front()};
  for (const double value : values) {
    if (value < range.min) range.min = value;
    if (value > range.max) range.max = value;
  }
  return range;
}

}  // namespace

void emitColorArray2d(GeometryOutput& out, const ColorArray2d& raster) {
  const auto cells = cellsOf(raster, raster.colors, "not enough points in ColorArray2d");
  writeCells(out, raster, cells.size());
  for (const RGBA cell : cells) out.writeColorEntry(cell);
  finishCells(out, 255);
}

void emitDensityArray2d(GeometryOutput& out, const DensityArray2d& raster) {
  const auto cells = cellsOf(raster, raster.values, "not enough points in DensityArray2d");
  writeCells(out, raster, cells.size());
  // The bounds change places, so that the smallest density has the first colour.
  const ValueRange range = rangeOf(cells);
  const ColorScale scale = fillColorScale(raster, {range.max, range.min});
  for (const double cell : cells) out.writeColorEntry(scale.colorOf(cell));
  finishCells(out, raster.fillColor().alpha());
}

}  // namespace vantry::javaview
