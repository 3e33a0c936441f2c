#include "vantry/javaview/emit_plane.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "vantry/javaview/arrow_tip.h"
#include "vantry/javaview/curve.h"
#include "vantry/javaview/export_error.h"
#include "vantry/javaview/label.h"
#include "vantry/javaview/point_set.h"
#include "vantry/javaview/two_point_line.h"

namespace vantry::javaview {

using namespace plot;

void emitPts2d(GeometryOutput& out, const Pts2d& points) {
  if (!points.pointsVisible()) return;
  writePointSet<P2>(out, points.points, points.pointColor(), points.pointSize());
}

void emitPt2d(GeometryOutput& out, const Pt2d& point) {
  writePointSet<P2>(out, {&point.position(), 1}, point.pointColor(), point.pointSize());
}

namespace {

/// Ends a geometry whose points, up to `last`, are the corners of its one face. The format has no
/// patterns: a hatched fill is lighter instead.
template <class Filled>
void finishFill(GeometryOutput& out, const Filled& filled, std::int64_t last) {
  const RGBA color = filled.fillColor();
  out << "</pointSet>\n<faceSet edge=\"hide\">\n";
  out.writeSingleFace(last, filled.fillPattern() == Word::Solid ? color : lightenColor(color));
  out << "</faceSet>\n";
  out.writeMaterial(color.alpha(), false);
  out.endGeometry();
}

void writeFill(GeometryOutput& out, const Poly2d& polygon) {
  out.beginGeometry();
  out << "<pointSet dim=\"2\" point=\"hide\">\n";
  out.writePoints(polygon.points, polygon.lineColor(), polygon.pointSize());
  finishFill(out, polygon, std::ssize(polygon.points) - 1);
}

/// The material belongs to the lines: points alone have none.
void writeOutline(GeometryOutput& out, const Poly2d& polygon) {
  PointColors colors = curveColors(out, polygon);

  beginGeometryWithPoints(out, polygon, polygon.points, polygon.pointsVisible(), colors);
  if (polygon.linesVisible() && curveLineCount(polygon, polygon.closed()) > 0) {
    out << "<lineSet";
    out.writeShowAttribute("color", colors.isColored());
    out.writeShowAttribute("colorFromPoints", colors.isColored());
    out << ">\n";
    writeCurveLines(out, polygon, polygon.closed(), colors);
    out << "</lineSet>\n";
    out.writeMaterial(polygon.lineColor().alpha(), false);
  }
  out.endGeometry();
}

}  // namespace

void emitPoly2d(GeometryOutput& out, const Poly2d& polygon) {
  if (polygon.filled() && polygon.points.size() >= 3) writeFill(out, polygon);
  if (polygon.linesVisible() || polygon.pointsVisible()) writeOutline(out, polygon);
}

void emitLine2d(GeometryOutput& out, const Line2d& line) {
  writeTwoPointLine(out, line.from(), line.to(), line.lineColor(), line.lineWidth());
}

void emitArrow2d(GeometryOutput& out, const Arrow2d& arrow) {
  writeTwoPointLine(out, arrow.from(), arrow.to(), arrow.lineColor(), arrow.lineWidth(),
                    hasTip(arrow));
}

namespace {

constexpr double fullTurn = 6.283185307179586;
constexpr double arcStep = 0.06283185307179587;  // a full turn by 100
constexpr double mostArcPoints = 1e7;

double spanOf(const Arc2d& arc) { return arc.endAngle() - arc.startAngle(); }

bool isFull(const Arc2d& arc) { return std::fabs(spanOf(arc) - fullTurn) <= 0x1p-52; }

/// Whether the steps from angle to angle would never end, or not soon. Where angles are so large
/// that a step is lost in them, the angle would stay as it is.
bool isEndless(const Arc2d& arc) {
  const double start = arc.startAngle();
  const double end = arc.endAngle();
  const double last = std::nextafter(end, start);  // the largest angle from which a step is made
  const bool isStepLost = start < end && (start + arcStep == start || last + arcStep == last);
  const double points = std::trunc(spanOf(arc) / arcStep) + 3;
  return std::isinf(spanOf(arc)) || points > mostArcPoints || isStepLost;
}

/// Without the fraction; 0 for a NaN, and no less than 64 bits can hold.
std::int64_t truncated(double value) {
  constexpr double least = -0x1p63;
  return std::isnan(value) ? 0 : static_cast<std::int64_t>(std::max(value, least));
}

/// The index of the last point, computed from the span. The steps may end one point earlier or
/// later, and for a span that goes backwards the index is negative; both are so on purpose.
std::int64_t lastIndex(const Arc2d& arc) {
  return isFull(arc) ? 99 : truncated(spanOf(arc) / arcStep) + 2;
}

P2 pointAt(const Arc2d& arc, double angle) {
  const P2& center = arc.center();
  return {std::cos(angle) * arc.semiAxisX() + center.x,
          std::sin(angle) * arc.semiAxisY() + center.y};
}

/// Begins a geometry with the points of an arc. All but a full ellipse have the centre in front and
/// the exact end behind.
void beginArc(GeometryOutput& out, const Arc2d& arc) {
  out.beginGeometry();
  out << "<pointSet dim=\"2\" point=\"hide\">\n";
  out << "<points num=\"" << lastIndex(arc) + 1 << "\">\n";
  if (!isFull(arc)) out.writePoint(arc.center());
  for (double angle = arc.startAngle(); angle < arc.endAngle(); angle += arcStep) {
    out.writePoint(pointAt(arc, angle));
  }
  if (!isFull(arc)) out.writePoint(pointAt(arc, arc.endAngle()));
  out << "</points>\n";
}

void writeFill(GeometryOutput& out, const Arc2d& arc) {
  beginArc(out, arc);
  finishFill(out, arc, lastIndex(arc));
}

/// A closed line goes through the centre; an open one leaves it out.
void writeLine(GeometryOutput& out, const Arc2d& arc) {
  beginArc(out, arc);
  out << "</pointSet>\n<lineSet>\n<lines num=\"1\">\n";
  if (isFull(arc) || arc.closed()) {
    out.writeClosedLine(0, lastIndex(arc));
  } else {
    out << "<l>";
    out.writeIndices(1, lastIndex(arc));
    out << "</l>\n";
  }
  out.writeThicknessAndColor(arc.lineColor(), arc.lineWidth());
  out << "</lines>\n</lineSet>\n";
  out.writeMaterial(arc.lineColor().alpha(), false);
  out.endGeometry();
}

}  // namespace

void emitArc2d(GeometryOutput& out, const Arc2d& arc) {
  if (!arc.filled() && !arc.linesVisible()) return;
  if (isEndless(arc)) throw JavaViewExportError("angle range too large in Arc2d");
  if (arc.filled()) writeFill(out, arc);
  if (arc.linesVisible()) writeLine(out, arc);
}

void emitText2d(GeometryOutput& out, const Text2d& text) { writeLabel(out, text); }

void emitVerticalAsymptote(GeometryOutput& out, const VerticalAsymptote& asymptote) {
  if (!asymptote.verticalAsymptotesVisible()) return;
  const auto [min, max] = out.heightRange;
  if (std::isnan(min) || std::isnan(max)) return;
  const double beyond = std::fabs(max - min) * 0.1;
  const double x = asymptote.position();
  writeTwoPointLine(out, P2{x, min - beyond}, P2{x, max + beyond},
                    asymptote.verticalAsymptotesColor(), asymptote.verticalAsymptotesWidth());
}

}  // namespace vantry::javaview
