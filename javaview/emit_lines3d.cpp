#include "vantry/javaview/emit_lines3d.h"

#include "vantry/javaview/arrow_tip.h"
#include "vantry/javaview/curve.h"
#include "vantry/javaview/point_set.h"
#include "vantry/javaview/two_point_line.h"

namespace vantry::javaview {

using namespace plot;

void emitPts3d(GeometryOutput& out, const Pts3d& points) {
  if (!points.pointsVisible()) return;
  writePointSet<P3>(out, points.points, points.pointColor(), points.pointSize());
}

namespace {

/// One line for each two points. A last point without a partner begins a line all the same.
void writePairs(GeometryOutput& out, const Lines3d& lines, PointColors<P3>& colors) {
  const auto points = std::ssize(lines.points);
  out << "<lines num=\"" << points / 2 << "\">\n";
  for (std::int64_t i = 0; i < points; i += 2) out.writeLine(i, i + 1);
  out.writeThicknessAndColor(lines.lineColor(), lines.lineWidth());
  out << "</lines>\n";
  if (colors.isColored()) {
    out << "<colors num=\"" << points / 2 << "\">\n";
    for (std::int64_t i = 0; i < points; i += 2) colors.writeMeanColor(i, i + 1);
    out << "</colors>\n";
  }
}

}  // namespace

void emitLines3d(GeometryOutput& out, const Lines3d& lines) {
  const bool inPairs = lines.type() == Word::Lines;
  const bool closed = lines.type() == Word::LineLoop;
  const auto lineCount = inPairs ? std::ssize(lines.points) / 2 : curveLineCount(lines, closed);
  PointColors colors = curveColors(out, lines);

  beginGeometryWithPoints(out, lines, lines.points, lines.pointsVisible(), colors);
  if (lineCount > 0) {
    beginLineSet3d(out, colors.isColored(), true);
    if (inPairs) {
      writePairs(out, lines, colors);
    } else {
      writeCurveLines(out, lines, closed, colors);
    }
    out << "</lineSet>\n";
  }
  out.writeMaterial(lines.lineColor().alpha(), false);
  out.endGeometry();
}

namespace {

bool isSmooth(const Poly3d& polygon) { return polygon.shading() == Word::Smooth; }

/// The point set does not say that it shows colours, even if it holds some.
void writeTriangle(GeometryOutput& out, const Poly3d& polygon) {
  PointColors colors = curveColors(out, polygon);
  out.beginGeometry();
  out << "<pointSet dim=\"3\" pointOutline=\"hide\"";
  out.writeShowAttribute("point", polygon.pointsVisible());
  out << ">\n";
  out.writePoints(polygon.points, polygon.lineColor(), polygon.pointSize());
  if (colors.isColored()) colors.writeColors();
  out << "</pointSet>\n<faceSet";
  out.writeShowAttribute("edge", polygon.linesVisible());
  out << ">\n";
  out.writeSingleFace(2, polygon.fillColor());
  if (polygon.linesVisible()) out.writeEdges(polygon.lineColor(), polygon.lineWidth());
  out << "</faceSet>\n";
  out.writeMaterial(polygon.fillColor().alpha(), isSmooth(polygon));
  out.endGeometry();
}

/// The material belongs to the lines: points alone have none.
void writeOutline(GeometryOutput& out, const Poly3d& polygon) {
  if (!polygon.linesVisible() && !polygon.pointsVisible()) return;
  PointColors colors = curveColors(out, polygon);

  beginGeometryWithPoints(out, polygon, polygon.points, polygon.pointsVisible(), colors);
  if (polygon.linesVisible() && curveLineCount(polygon, polygon.closed()) > 0) {
    beginLineSet3d(out, colors.isColored(), isSmooth(polygon));
    writeCurveLines(out, polygon, polygon.closed(), colors);
    out << "</lineSet>\n";
    out.writeMaterial(polygon.lineColor().alpha(), isSmooth(polygon));
  }
  out.endGeometry();
}

}  // namespace

void emitPoly3d(GeometryOutput& out, const Poly3d& polygon) {
  if (!polygon.filled() || polygon.points.size() < 3) {
    writeOutline(out, polygon);
  } else if (polygon.points.size() == 3) {
    writeTriangle(out, polygon);
  }
}

void emitLine3d(GeometryOutput& out, const Line3d& line) {
  writeTwoPointLine(out, line.from(), line.to(), line.lineColor(), line.lineWidth());
}

void emitArrow3d(GeometryOutput& out, const Arrow3d& arrow) {
  writeTwoPointLine(out, arrow.from(), arrow.to(), arrow.lineColor(), arrow.lineWidth(),
                    hasTip(arrow));
}

}  // namespace vantry::javaview
