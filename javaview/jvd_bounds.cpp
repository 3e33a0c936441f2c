#include "vantry/javaview/jvd_bounds.h"

#include <limits>
#include <utility>

#include "vantry/plot/document.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/hints.h"

namespace vantry::javaview {

using namespace plot;

namespace {

constexpr double defaultAspect = 0.6666666666666666;

template <class Min, class Max>
AxisRange rangeOf(const CoordinateSystemBase& coordinateSystem) {
  const Min* min = firstChildOf<Min>(coordinateSystem);
  const Max* max = firstChildOf<Max>(coordinateSystem);
  if (!min || !max) return {};
  const AxisRange range{min->value(), max->value()};
  return range.max <= range.min ? AxisRange{} : range;
}

double mapToRange(const AxisRange& range, double t) {
  return ((range.max - range.min) * t + range.max + range.min) * 0.5;
}

}  // namespace

Bounds computeBounds(const CoordinateSystemBase& coordinateSystem, bool is2d) {
  Bounds bounds;
  bounds.x = rangeOf<ViewingBoxXMin, ViewingBoxXMax>(coordinateSystem);
  bounds.y = rangeOf<ViewingBoxYMin, ViewingBoxYMax>(coordinateSystem);
  if (!is2d) bounds.z = rangeOf<ViewingBoxZMin, ViewingBoxZMax>(coordinateSystem);
  for (const AxisRange& range : {bounds.x, bounds.y, bounds.z}) {
    if (range.isKnown()) bounds.span = std::fmax(bounds.span, range.size());  // skips the first NaN
  }
  return bounds;
}

P3 mapToBox(const Bounds& bounds, const P3& point) {
  return {mapToRange(bounds.x, point.x), mapToRange(bounds.y, point.y),
          mapToRange(bounds.z, point.z)};
}

Token scalingOf(const CoordinateSystemBase& coordinateSystem) {
  const Token scaling = coordinateSystem.scaling();
  if (isOneOf(scaling, Word::Constrained, Word::Unconstrained)) return scaling;
  const Hints* hints = firstChildOf<Hints>(coordinateSystem);
  return hints ? hints->scaling() : Token(Word::Automatic);
}

bool isConstrained(const CoordinateSystemBase& coordinateSystem) {
  return scalingOf(coordinateSystem) == Word::Constrained;
}

std::optional<P2> boxSides2d(const CoordinateSystemBase& coordinateSystem) {
  const PlotElement* root = coordinateSystem.plotDocument()->documentElement();
  if (!root || !root->hasProperty(Word::Width) || !root->hasProperty(Word::Height)) return {};
  const P2 sides = {propertyValue<double>(*root, Word::Width),
                    propertyValue<double>(*root, Word::Height)};
  return sides.x > 0 && sides.y > 0 ? sides : P2{1, defaultAspect};
}

P3 boxSides3d(const SceneBase& scene) {
  constexpr double epsilon = std::numeric_limits<double>::epsilon();
  const P3 sides = {1, scene.yXRatio(), scene.zXRatio()};
  return sides.y > epsilon && sides.z > epsilon ? sides : P3{1, 1, defaultAspect};
}

double writeBoxRatio2d(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem,
                       const Bounds& bounds) {
  if (!bounds.isKnown2d()) return 1;
  const std::optional<P2> sides = boxSides2d(coordinateSystem);
  if (!sides) return 1;
  const double ratio = bounds.y.size() / bounds.x.size() * sides->x / sides->y;
  const bool constrained = isConstrained(coordinateSystem);

  out << "<boxRatio";
  out.writeShowAttribute("visible", !constrained);
  out << '>' << ratio << " 1 1</boxRatio>\n";
  return constrained ? 1 : ratio;
}

void writeBoxRatio3d(DisplayOutput& out, const SceneBase& scene,
                     const CoordinateSystemBase& coordinateSystem, const Bounds& bounds) {
  if (!bounds.isKnown3d()) return;
  const double dx = bounds.x.size();
  const P3 sides = boxSides3d(scene);

  out << "<boxRatio";
  out.writeShowAttribute("visible", !isConstrained(coordinateSystem));
  out << ">1 " << dx / bounds.y.size() * sides.y << ' ' << dx / bounds.z.size() * sides.z
      << "</boxRatio>\n";
}

void writeClipRange(DisplayOutput& out, const Bounds& bounds, bool extendClip) {
  if (!bounds.x.isKnown() && !bounds.y.isKnown() && !bounds.z.isKnown()) return;

  out << "<clipRange visible=\"show\" autoBounds=\"hide\">\n";
  for (const auto& [axis, range] :
       {std::pair('X', bounds.x), std::pair('Y', bounds.y), std::pair('Z', bounds.z)}) {
    if (!range.isKnown()) continue;
    const double margin = extendClip ? range.size() * 0.1 : 0;
    out << "<range type=\"" << axis << "\">" << range.min - margin << ' ' << range.max + margin
        << "</range>\n";
  }
  out << "</clipRange>\n";
}

}  // namespace vantry::javaview
