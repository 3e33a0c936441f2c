#include "vantry/javaview/jvd_axes.h"

#include <algorithm>
#include <limits>
#include <span>

#include "vantry/plot/elements/expr.h"

namespace vantry::javaview {

using namespace plot;

namespace {

using Grids = unsigned;  // a bit for each axis that has a grid

/// Where a coordinate system keeps what belongs to one axis.
struct Axis {
  Grids grid;
  AxisRange Bounds::*range;
  Token visible;
  Token gridVisible;
  Token subgridVisible;
  Token ticksVisible;
  Token ticksLabelsVisible;
  Token ticksBetween;
  Token ticksDistance;
  Token title;
};

constexpr Axis allAxes[] = {
    {1, &Bounds::x, Word::XAxisVisible, Word::XGridVisible, Word::XSubgridVisible,
     Word::XTicksVisible, Word::XTicksLabelsVisible, Word::XTicksBetween, Word::XTicksDistance,
     Word::XAxisTitle},
    {2, &Bounds::y, Word::YAxisVisible, Word::YGridVisible, Word::YSubgridVisible,
     Word::YTicksVisible, Word::YTicksLabelsVisible, Word::YTicksBetween, Word::YTicksDistance,
     Word::YAxisTitle},
    {4, &Bounds::z, Word::ZAxisVisible, Word::ZGridVisible, Word::ZSubgridVisible,
     Word::ZTicksVisible, Word::ZTicksLabelsVisible, Word::ZTicksBetween, Word::ZTicksDistance,
     Word::ZAxisTitle},
};

using Axes = std::span<const Axis>;

Axes axesOf(bool is2d) { return Axes(allAxes).first(is2d ? 2 : 3); }

bool isSet(const CoordinateSystemBase& coordinateSystem, Token property) {
  return propertyValue<bool>(coordinateSystem, property);
}

Grids visibleGrids(const CoordinateSystemBase& coordinateSystem, Axes axes) {
  Grids grids = 0;
  for (const Axis& axis : axes) {
    if (isSet(coordinateSystem, axis.gridVisible) || isSet(coordinateSystem, axis.subgridVisible)) {
      grids |= axis.grid;
    }
  }
  return grids;
}

bool isAnyVisible(const CoordinateSystemBase& coordinateSystem, Axes axes) {
  return std::ranges::any_of(
      axes, [&](const Axis& axis) { return isSet(coordinateSystem, axis.visible); });
}

bool areAllVisible(const CoordinateSystemBase& coordinateSystem, Axes axes) {
  return std::ranges::all_of(
      axes, [&](const Axis& axis) { return isSet(coordinateSystem, axis.visible); });
}

bool isStrictlyInside(const AxisRange& range, double value) {
  return range.min < value && range.max > value;
}

/// Which planes of the box have hash lines: XY, XZ and YZ, on either side of the box.
void writeLongHash(DisplayOutput& out, Grids grids) {
  constexpr Grids planes[] = {1 | 2, 1 | 4, 2 | 4, 1 | 2, 1 | 4, 2 | 4};
  out << " longHash=\"";
  for (const Grids plane : planes) out << ((grids & plane) != 0 ? 't' : 'f');
  out << '"';
}

void writeRulerTitle(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem,
                     Token titleName) {
  const dom::Node* title = coordinateSystem.firstChildByName(titleName);
  if (!title) return;
  bool hasText = false;
  for (const dom::Node* child = title->firstChild(); child; child = child->nextSibling()) {
    const char* text = child->nodeValue();
    if (!text) continue;
    if (!hasText) out << " label=\"show\" name=\"";
    hasText = true;
    out.writeEscapedLocaleText(text);
  }
  if (hasText) out << '"';
}

void writeMinMax(DisplayOutput& out, const AxisRange& range) {
  if (!range.isKnown()) return;
  out << "<minValue>" << range.min << "</minValue>\n"
      << "<maxValue>" << range.max << "</maxValue>\n";
}

/// `between` is the number of minor ticks between two major ones.
void writeTickUnits(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem,
                    Token distanceName, std::int32_t between) {
  if (between < 0) return;
  const auto* child = elementCast<VExpr, XTicksDistance, YTicksDistance, ZTicksDistance>(
      coordinateSystem.firstChildByName(distanceName));
  if (!child) return;
  const double distance = child->value();
  if (!(distance > std::numeric_limits<double>::epsilon())) return;
  out << "<minorUnit>" << distance / (1.0 + between) << "</minorUnit>\n"
      << "<majorUnit>" << distance << "</majorUnit>\n";
}

void writeAxesLine(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem) {
  out.writeColor(coordinateSystem.axesLineColor());
  out.writeThickness(coordinateSystem.axesLineWidth());
}

void writeRuler(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem, const Axis& axis,
                const Bounds& bounds, bool hasGrid) {
  const bool numbers = isSet(coordinateSystem, axis.ticksLabelsVisible);
  const bool ticks = numbers || isSet(coordinateSystem, axis.ticksVisible);

  out << "<ruler";
  out.writeShowAttribute("visible", hasGrid || isSet(coordinateSystem, axis.visible));
  writeRulerTitle(out, coordinateSystem, axis.title);
  out.writeShowAttribute("numbers", numbers);
  out.writeShowAttribute("ticksMajor", ticks);
  out.writeShowAttribute("ticksMinor", ticks);
  out << ">\n";
  writeMinMax(out, bounds.*axis.range);
  writeTickUnits(out, coordinateSystem, axis.ticksDistance,
                 propertyValue<std::int32_t>(coordinateSystem, axis.ticksBetween));
  writeAxesLine(out, coordinateSystem);
  out << "</ruler>\n";
}

}  // namespace

bool writeAxes(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem, bool is2d,
               const Bounds& bounds, bool isAnimated) {
  const Axes axes = axesOf(is2d);
  const Grids grids = visibleGrids(coordinateSystem, axes);
  const bool hasGrid = grids != 0;
  const Token form = coordinateSystem.axes();
  const bool isFramed = form == Word::Boxed || form == Word::Frame;
  const bool isHidden = !hasGrid && (form == Word::None || !isAnyVisible(coordinateSystem, axes));

  out << "<axes autoHashing=\"show\"";
  out.writeShowAttribute("autoBounds", !isAnimated);
  out.writeShowAttribute("visible", !isHidden);
  out << (is2d ? " dim=\"2\" span=\"xy\"" : " dim=\"3\"") << " type=\"";
  if (hasGrid) {
    out << "corner\"";
    writeLongHash(out, grids);
  } else if (isFramed) {
    out << (is2d ? "corner\"" : "bndbox\"");
  } else {
    out << "center\"";
  }
  out << ">\n";
  for (const Axis& axis : axes) {
    writeRuler(out, coordinateSystem, axis, bounds, (grids & axis.grid) != 0);
  }
  if (is2d) out << "<ruler visible=\"hide\" name=\"z\" label=\"hide\" hashsUp=\"show\"/>\n";
  out << "</axes>\n";

  // Axes that cross inside of the box need no more room. In 2d z is unknown, and so never inside.
  const bool isCentred = !hasGrid && !isFramed;
  return !(isCentred && isStrictlyInside(bounds.x, 0) && isStrictlyInside(bounds.y, 0) &&
           isStrictlyInside(bounds.z, 0));
}

void writeBoundingBox(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem, bool is2d) {
  out << "<bndbox";
  out.writeShowAttribute("visible", coordinateSystem.axes() == Word::Boxed &&
                                        areAllVisible(coordinateSystem, axesOf(is2d)));
  out << ">\n";
  writeAxesLine(out, coordinateSystem);
  out << "</bndbox>\n";
}

}  // namespace vantry::javaview
