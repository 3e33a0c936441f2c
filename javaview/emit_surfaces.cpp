#include "vantry/javaview/emit_surfaces.h"

#include "vantry/javaview/block_colors.h"
#include "vantry/javaview/export_error.h"
#include "vantry/javaview/face_iterator.h"

namespace vantry::javaview {

using namespace plot;

namespace {

// A point has up to two colours. The first one is that of the lines and the second one that of the
// fill; a single one is for the fill, unless HasLineColors says otherwise.

template <class Surface>
PointColors<P3> surfaceLineColors(GeometryOutput& out, const Surface& surface,
                                  std::span<const P3> points) {
  std::span<const RGBA> list;
  if (surface.hasLineColors() || !surface.secondColors.empty()) list = surface.colors;
  return lineColors(out, surface, points, list);
}

template <class Surface>
PointColors<P3> surfaceFillColors(GeometryOutput& out, const Surface& surface,
                                  std::span<const P3> points) {
  std::span<const RGBA> list = surface.secondColors;
  if (list.empty() && !surface.hasLineColors()) list = surface.colors;
  return fillColors(out, surface, points, list);
}

/// The points of a mesh: a grid of parameter lines, each step of which may be refined.
struct Grid {
  explicit Grid(const Mesh3d& mesh);

  std::int64_t faceCount() const { return (columns - 1) * (rows - 1); }
  std::int64_t lineCount() const { return (columns - 1) * vMesh + (rows - 1) * uMesh; }
  bool isRefined() const { return faceCount() > 0 && (uStep > 1 || vStep > 1); }

  std::int64_t uMesh;
  std::int64_t vMesh;
  std::int64_t uStep;  // from a parameter line to the next, in columns
  std::int64_t vStep;  // the same in rows
  std::int64_t columns;
  std::int64_t rows;
  std::span<const P3> points;  // without those that are too many
};

Grid::Grid(const Mesh3d& mesh)
    : uMesh(mesh.uMesh()),
      vMesh(mesh.vMesh()),
      uStep(std::int64_t{mesh.uSubmesh()} + 1),
      vStep(std::int64_t{mesh.vSubmesh()} + 1),
      columns((uMesh - 1) * uStep + 1),
      rows((vMesh - 1) * vStep + 1) {
  // The product may be too large for any integer, so it is computed once it is known to be small.
  const auto available = static_cast<std::int64_t>(mesh.points.size());
  if (rows > available / columns) throw JavaViewExportError("not enough points in Mesh3d");
  points = std::span(mesh.points).first(static_cast<std::size_t>(rows * columns));
}

bool areLinesVisible(const Mesh3d& mesh) {
  return mesh.useXYLinesVisible() ? mesh.xLinesVisible() || mesh.yLinesVisible()
                                  : mesh.uLinesVisible() || mesh.vLinesVisible();
}

/// Calls `visit(index)` for each point where two parameter lines cross.
template <class Visit>
void forEachCrossing(const Grid& grid, Visit visit) {
  for (std::int64_t row = 0; row < grid.rows; row += grid.vStep) {
    for (std::int64_t column = 0; column < grid.columns; column += grid.uStep) {
      visit(row * grid.columns + column);
    }
  }
}

/// The points of a refined mesh, in a geometry of their own: only those of the parameter lines are
/// visible.
void writeCrossings(GeometryOutput& out, const Mesh3d& mesh, const Grid& grid) {
  PointColors<P3> colors = surfaceLineColors(out, mesh, grid.points);
  const std::int64_t count = grid.uMesh * grid.vMesh;

  out.beginGeometry();
  out << "<pointSet dim=\"3\" pointOutline=\"hide\"";
  out.writeShowAttribute("color", colors.isColored());
  out << ">\n<points num=\"" << count << "\">\n";
  forEachCrossing(
      grid, [&](std::int64_t i) { out.writePoint(grid.points[static_cast<std::size_t>(i)]); });
  out.writeThicknessAndColor(mesh.lineColor(), 0.5 * mesh.pointSize());
  out << "</points>\n";
  if (colors.isColored()) {
    out << "<colors num=\"" << count << "\">\n";
    forEachCrossing(grid, [&](std::int64_t i) { colors.writeColor(i); });
    out << "</colors>\n";
  }
  out << "</pointSet>\n";
  out.writeMaterial(mesh.lineColor().alpha(), false);
  out.endGeometry();
}

void writeFaceColors(GeometryOutput& out, const Grid& grid, PointColors<P3>& colors) {
  out << "<colors num=\"" << grid.faceCount() << "\">\n";
  for (std::int64_t row = 0; row + 1 < grid.rows; ++row) {
    for (std::int64_t column = 0; column + 1 < grid.columns; ++column) {
      const std::int64_t a = row * grid.columns + column;
      colors.writeMeanColor(a, a + 1, a + grid.columns + 1, a + grid.columns);
    }
  }
  out << "</colors>\n";
}

void writeFilledMesh(GeometryOutput& out, const Mesh3d& mesh, const Grid& grid, bool showPoints) {
  PointColors<P3> colors = surfaceFillColors(out, mesh, grid.points);
  const bool isSmooth = mesh.shading() == Word::Smooth;

  beginGeometryWithPoints(out, mesh, grid.points, showPoints, colors);
  if (grid.faceCount() > 0) {
    out << "<faceSet face=\"show\"";
    out.writeShowAttribute("edge", areLinesVisible(mesh));
    out.writeShowAttribute("color", colors.isColored());
    out.writeShowAttribute("colorFromPoints", colors.isColored());
    out.writeShowAttribute("colorSmooth", colors.isColored() && isSmooth);
    out << ">\n<faces num=\"" << grid.faceCount() << "\">\n";
    out.writeGridFaces(grid.columns, grid.rows);
    out.writeThicknessAndColor(mesh.fillColor(), noThickness);
    out << "</faces>\n<neighbours num=\"" << grid.faceCount() << "\">\n";
    out.writeGridNeighbours(grid.columns, grid.rows);
    out << "</neighbours>\n";
    out.writeEdges(mesh.lineColor(), mesh.lineWidth());
    if (colors.isColored()) writeFaceColors(out, grid, colors);
    out << "</faceSet>\n";
  }
  out.writeMaterial(mesh.fillColor().alpha(), isSmooth);
  out.endGeometry();
}

void writeParameterLines(GeometryOutput& out, const Grid& grid) {
  for (std::int64_t row = 0; row < grid.rows; row += grid.vStep) {
    for (std::int64_t column = 1; column < grid.columns; ++column) {
      const std::int64_t c = row * grid.columns + column;
      out.writeLine(c - 1, c);
    }
  }
  for (std::int64_t row = 1; row < grid.rows; ++row) {
    for (std::int64_t column = 0; column < grid.columns; column += grid.uStep) {
      const std::int64_t c = row * grid.columns + column;
      out.writeLine(c - grid.columns, c);
    }
  }
}

/// The colours do not go along with the lines, on purpose: each loop takes one step more than there
/// are lines, and the second one counts as if rows were columns.
void writeParameterLineColors(GeometryOutput& out, const Grid& grid, PointColors<P3>& colors) {
  out << "<colors num=\"" << grid.lineCount() << "\">\n";
  for (std::int64_t row = 0; row < grid.rows; row += grid.vStep) {
    for (std::int64_t column = 0; column < grid.columns; ++column) {
      const std::int64_t c = row * grid.columns + column;
      colors.writeMeanColor(c, c + 1);
    }
  }
  for (std::int64_t column = 0; column < grid.columns; column += grid.uStep) {
    for (std::int64_t row = 0; row < grid.rows; ++row) {
      const std::int64_t c = column * grid.rows + row;
      colors.writeMeanColor(c, c + grid.rows);
    }
  }
  out << "</colors>\n";
}

void writeWireMesh(GeometryOutput& out, const Mesh3d& mesh, const Grid& grid, bool showPoints) {
  PointColors<P3> colors = surfaceLineColors(out, mesh, grid.points);
  const bool isSmooth = mesh.shading() == Word::Smooth;

  beginGeometryWithPoints(out, mesh, grid.points, showPoints, colors);
  if (areLinesVisible(mesh) && grid.lineCount() > 0) {
    beginLineSet3d(out, colors.isColored(), isSmooth);
    out << "<lines num=\"" << grid.lineCount() << "\">\n";
    writeParameterLines(out, grid);
    out.writeThicknessAndColor(mesh.lineColor(), mesh.lineWidth());
    out << "</lines>\n";
    if (colors.isColored()) writeParameterLineColors(out, grid, colors);
    out << "</lineSet>\n";
  }
  out.writeMaterial(mesh.lineColor().alpha(), isSmooth);
  out.endGeometry();
}

}  // namespace

void emitMesh3d(GeometryOutput& out, const Mesh3d& mesh) {
  const Grid grid(mesh);
  bool showPoints = mesh.pointsVisible();
  if (showPoints && grid.isRefined()) {
    writeCrossings(out, mesh, grid);
    if (!mesh.filled() && !areLinesVisible(mesh)) return;
    showPoints = false;
  }
  if (mesh.filled()) {
    writeFilledMesh(out, mesh, grid, showPoints);
  } else {
    writeWireMesh(out, mesh, grid, showPoints);
  }
}

namespace {

/// The numbers of a triangle or quadrilateral in an element.
void writeCorners(GeometryOutput& out, std::string_view begin, const FaceIndices& numbers,
                  bool hasFour, std::string_view end) {
  out << begin << numbers[0] << ' ' << numbers[1] << ' ' << numbers[2];
  if (hasFour) out << ' ' << numbers[3];
  out << end;
}

void writeFaces(GeometryOutput& out, const FaceIterator& faces) {
  FaceIndices vertices;
  for (std::int64_t face = 0; face < faces.faceCount(); ++face) {
    faces.faceVertices(face, vertices);
    writeCorners(out, "<f>", vertices, faces.hasFourVertices(), "</f>\n");
  }
}

void writeNeighbours(GeometryOutput& out, const FaceIterator& faces) {
  if (!faces.hasNeighbours()) {
    out << "<neighbours num=\"0\"/>\n";
    return;
  }
  out << "<neighbours num=\"" << faces.faceCount() << "\">\n";
  FaceIndices neighbours;
  for (std::int64_t face = 0; face < faces.faceCount(); ++face) {
    faces.faceNeighbours(face, neighbours);
    writeCorners(out, "<nb>", neighbours, faces.hasFourVertices(), "</nb>\n");
  }
  out << "</neighbours>\n";
}

void writeFaceColors(GeometryOutput& out, const FaceIterator& faces, PointColors<P3>& colors) {
  out << "<colors num=\"" << faces.faceCount() << "\">\n";
  FaceIndices v;
  for (std::int64_t face = 0; face < faces.faceCount(); ++face) {
    faces.faceVertices(face, v);
    if (faces.hasFourVertices()) {
      colors.writeMeanColor(v[0], v[1], v[2], v[3]);
    } else {
      colors.writeMeanColor(v[0], v[1], v[2]);
    }
  }
  out << "</colors>\n";
}

void writeFilledSurface(GeometryOutput& out, const Surf3d& surface) {
  PointColors<P3> colors = surfaceFillColors(out, surface, surface.points);
  const bool isSmooth = surface.shading() == Word::Smooth;

  beginGeometryWithPoints(out, surface, surface.points, surface.pointsVisible(), colors);
  const auto faces = makeFaceIterator(surface.type(), surface.points.size());
  if (faces->faceCount() > 0) {
    out << "<faceSet face=\"show\"";
    out.writeShowAttribute("edge", surface.meshVisible());
    out.writeShowAttribute("color", colors.isColored());
    out.writeShowAttribute("colorFromPoints", colors.isColored());
    out.writeShowAttribute("colorEdge", colors.isColored() && surface.meshVisible());
    out.writeShowAttribute("colorSmooth", colors.isColored() && isSmooth);
    out << ">\n<faces num=\"" << faces->faceCount() << "\">\n";
    writeFaces(out, *faces);
    out.writeThicknessAndColor(surface.fillColor(), noThickness);
    out << "</faces>\n";
    writeNeighbours(out, *faces);
    if (surface.meshVisible()) out.writeEdges(surface.lineColor(), surface.lineWidth());
    if (colors.isColored()) writeFaceColors(out, *faces, colors);
    out << "</faceSet>\n";
  }
  out.writeMaterial(surface.fillColor().alpha(), isSmooth);
  out.endGeometry();
}

void writeEdgeLines(GeometryOutput& out, const FaceIterator& faces) {
  FaceIndices ends;
  for (std::int64_t face = 0; face < faces.faceCount(); ++face) {
    const auto count = 2 * static_cast<std::size_t>(faces.faceEdges(face, ends));
    for (std::size_t i = 0; i < count; i += 2) out.writeLine(ends[i], ends[i + 1]);
  }
}

/// The colours are those of the same few points at the beginning for every face, on purpose, and
/// the element ends without a newline.
void writeEdgeColors(GeometryOutput& out, const FaceIterator& faces, PointColors<P3>& colors) {
  out << "<colors num=\"" << faces.edgeCount() << "\">\n";
  FaceIndices ends;
  for (std::int64_t face = 0; face < faces.faceCount(); ++face) {
    const std::int64_t count = 2 * faces.faceEdges(face, ends);
    for (std::int64_t i = 0; i < count; i += 2) colors.writeMeanColor(i, i + 1);
  }
  out << "</colors>";
}

void writeWireSurface(GeometryOutput& out, const Surf3d& surface) {
  PointColors<P3> colors = surface.meshVisible() || surface.pointsVisible()
                               ? surfaceLineColors(out, surface, surface.points)
                               : lineColors(out, surface, surface.points, {});
  const bool isSmooth = surface.shading() == Word::Smooth;

  beginGeometryWithPoints(out, surface, surface.points, surface.pointsVisible(), colors);
  if (surface.meshVisible()) {
    const auto faces = makeFaceIterator(surface.type(), surface.points.size());
    if (faces->edgeCount() > 0) {
      beginLineSet3d(out, colors.isColored(), isSmooth);
      out << "<lines num=\"" << faces->edgeCount() << "\">\n";
      writeEdgeLines(out, *faces);
      // Unlike all others, these lines have neither thickness nor colour.
      out << "</lines>\n";
      if (colors.isColored()) writeEdgeColors(out, *faces, colors);
      out << "</lineSet>\n";
    }
  }
  out.writeMaterial(surface.lineColor().alpha(), isSmooth);
  out.endGeometry();
}

}  // namespace

void emitSurf3d(GeometryOutput& out, const Surf3d& surface) {
  if (surface.filled()) {
    writeFilledSurface(out, surface);
  } else {
    writeWireSurface(out, surface);
  }
}

}  // namespace vantry::javaview
