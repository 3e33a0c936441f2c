// What is wrong with what is to be seen of an object.

#include <algorithm>
#include <array>
#include <limits>
#include <sstream>

#include "vantry/check/names.h"
#include "vantry/check/review.h"
#include "vantry/check/values.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/plot/elements/arrow2d.h"
#include "vantry/plot/elements/arrow3d.h"
#include "vantry/plot/elements/box.h"
#include "vantry/plot/elements/camera.h"
#include "vantry/plot/elements/circle3d.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/cone.h"
#include "vantry/plot/elements/ellipsoid.h"
#include "vantry/plot/elements/field2d.h"
#include "vantry/plot/elements/field3d.h"
#include "vantry/plot/elements/line2d.h"
#include "vantry/plot/elements/line3d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/pt2d.h"
#include "vantry/plot/elements/sphere.h"
#include "vantry/plot/elements/text2d.h"
#include "vantry/plot/elements/text3d.h"
#include "vantry/plot/elements/vertical_asymptote.h"
#include "vantry/reader/data_parsing.h"

namespace vantry::check {

namespace Word = base::Word;
using namespace plot;
using reader::pointsInPlane;
using reader::pointsInSpace;

namespace {

/// A part of a primitive: it is drawn where its property says so, or always, if there are enough
/// points, in a colour that may be transparent.
struct Part {
  Token element;
  Token visible;
  Token color;
  std::ptrdiff_t leastPoints = 0;
};

// clang-format off
constexpr Part parts[] = {
    {Word::Poly2d,            Word::LinesVisible,  Word::LineColor, 2},
    {Word::Poly2d,            Word::Filled,        Word::FillColor, 3},
    {Word::Poly2d,            Word::PointsVisible, Word::LineColor, 1},
    {Word::Poly3d,            Word::LinesVisible,  Word::LineColor, 2},
    {Word::Poly3d,            Word::Filled,        Word::FillColor, 3},
    {Word::Poly3d,            Word::PointsVisible, Word::LineColor, 1},
    {Word::Lines3d,           {},                  Word::LineColor, 2},
    {Word::Lines3d,           Word::PointsVisible, Word::LineColor, 1},
    {Word::Mesh3d,            Word::Filled,        Word::FillColor},
    {Word::Mesh3d,            Word::ULinesVisible, Word::LineColor},
    {Word::Mesh3d,            Word::VLinesVisible, Word::LineColor},
    {Word::Mesh3d,            Word::PointsVisible, Word::LineColor},
    {Word::Surf3d,            Word::Filled,        Word::FillColor, 3},
    {Word::Surf3d,            Word::MeshVisible,   Word::LineColor, 3},
    {Word::Surf3d,            Word::PointsVisible, Word::LineColor, 1},
    {Word::Pts2d,             Word::PointsVisible, Word::PointColor, 1},
    {Word::Pts3d,             Word::PointsVisible, Word::PointColor, 1},
    {Word::Pt2d,              {},                  Word::PointColor},
    {Word::Line2d,            {},                  Word::LineColor},
    {Word::Line3d,            {},                  Word::LineColor},
    {Word::Arrow2d,           {},                  Word::LineColor},
    {Word::Arrow3d,           {},                  Word::LineColor},
    {Word::Field2d,           {},                  Word::LineColor},
    {Word::Field3d,           {},                  Word::LineColor},
    {Word::Arc2d,             Word::LinesVisible,  Word::LineColor},
    {Word::Arc2d,             Word::Filled,        Word::FillColor},
    {Word::Circle3d,          Word::LinesVisible,  Word::LineColor},
    {Word::Circle3d,          Word::Filled,        Word::FillColor},
    {Word::Box,               Word::LinesVisible,  Word::LineColor},
    {Word::Box,               Word::Filled,        Word::FillColor},
    {Word::Cone,              Word::LinesVisible,  Word::LineColor},
    {Word::Cone,              Word::Filled,        Word::FillColor},
    {Word::Sphere,            {},                  Word::FillColor},
    {Word::Ellipsoid,         {},                  Word::FillColor},
    {Word::DensityArray2d,    Word::LinesVisible,  Word::LineColor},
    {Word::DensityArray2d,    {},                  Word::FillColor},
};
// clang-format on

/// The property that says whether a part is drawn. A mesh may have its own ones for the lines along
/// x and y.
Token switchOf(const Part& part, const PlotElement& primitive) {
  const auto* mesh = elementCast<Mesh3d>(&primitive);
  if (!mesh || !mesh->useXYLinesVisible()) return part.visible;
  if (part.visible == Word::ULinesVisible) return Word::XLinesVisible;
  return part.visible == Word::VLinesVisible ? Word::YLinesVisible : part.visible;
}

std::ptrdiff_t pointCountOf(const PlotElement& primitive) {
  if (const P2List* list = pointsInPlane(&primitive)) return std::ssize(list->points);
  if (const P3List* list = pointsInSpace(&primitive)) return std::ssize(list->points);
  return std::numeric_limits<std::ptrdiff_t>::max();
}

/// Whether there are points enough for a part. The lines of a filled mesh are those of its faces.
bool isPossible(const Part& part, const PlotElement& primitive) {
  const auto* mesh = elementCast<Mesh3d>(&primitive);
  if (!mesh || part.visible == Word::PointsVisible) {
    return pointCountOf(primitive) >= part.leastPoints;
  }
  const bool hasRows = mesh->uMesh() > 1;
  const bool hasColumns = mesh->vMesh() > 1;
  return mesh->filled() ? hasRows && hasColumns : hasRows || hasColumns;
}

/// What is there of the parts of a primitive, up to the first one that is to be seen.
struct Sight {
  explicit Sight(const PlotElement& primitive);

  bool isSomething = false;     // to be seen, as far as it is known
  bool isTransparent = false;   // a part is drawn
  bool isWanted = false;        // a part is to be drawn
  std::vector<Token> switches;  // that hide a part
};

Sight::Sight(const PlotElement& primitive) {
  bool isKnown = false;
  for (const Part& part : parts) {
    if (part.element != primitive.tagName()) continue;
    isKnown = true;
    const Token visible = switchOf(part, primitive);
    if (visible && !propertyValue<bool>(primitive, visible)) {
      switches.push_back(visible);
      continue;
    }
    isWanted = true;
    if (!isPossible(part, primitive)) continue;
    isTransparent = propertyValue<RGBA>(primitive, part.color).alpha() == 0;
    isSomething = !isTransparent;
    if (isSomething) return;
  }
  isSomething = !isKnown;
}

}  // namespace

// Cameras and lights are drawn as what their object is, and not for their own sake. In a hidden
// object nothing is missed.
void Review::reviewDrawing(const PlotElement& primitive, const ObjectBase& object, bool isWhole) {
  const std::string name = primitive.tagName().str();
  const Token type = object.localType();
  const bool isForeignCamera = isElementOf<Camera>(primitive) && type != Word::Camera;
  if (isForeignCamera || (isLight(primitive) && !isLightType(type))) {
    add({.kind = Kind::imageNotDrawn, .subject = name, .detail = type.str()}, primitive,
        {"give the object the type " + name});
  } else if (!object.visible()) {
    return;
  } else if (const auto* polygon = elementCast<Poly3d>(&primitive);
             polygon && polygon->filled() && polygon->points.size() > 3) {
    add({.kind = Kind::leftOut, .subject = name, .detail = "in space only a triangle is filled"},
        primitive, {"with Filled=\"0\" and LinesVisible=\"1\" it is a curve"});
  } else if (!reportLeftOut(primitive) && isWhole) {
    reviewSight(primitive);
  }
}

namespace {

bool hasText(const PlotElement& element) {
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (child->nodeValue() && *child->nodeValue() != '\0') return true;
  }
  return false;
}

}  // namespace

// An asymptote that is hidden is hidden on purpose, as its property is for that alone.
void Review::reviewSight(const PlotElement& primitive) {
  const auto report = [&](const std::string& detail, const std::string& help) {
    add({.kind = Kind::nothingDrawn, .element = primitive.tagName().str(), .detail = detail},
        primitive, {help});
  };
  if (isElementOf<Text2d, Text3d>(primitive) && !hasText(primitive)) {
    return report("it has no text", "the text is between its tags: " + tagsOf(primitive.tagName()));
  }
  const auto* asymptote = elementCast<VerticalAsymptote>(&primitive);
  if (asymptote && asymptote->verticalAsymptotesVisible() && !box_[1]) {
    return report("it ends at the viewing box, whose height is not known",
                  "give the coordinate system a ViewingBoxYMin and a ViewingBoxYMax");
  }
  const Sight sight(primitive);
  if (sight.isSomething) return;
  const std::ptrdiff_t points = pointCountOf(primitive);
  if (sight.isTransparent) {
    report("its colour is transparent", helpForOpacity);
  } else if (points == 0) {
    report("it has no points", pointsInPlane(&primitive)
                                   ? "put points into it, such as <P2>0 0</P2>"
                                   : "put points into it, such as <P3>0 0 0</P3>");
  } else if (sight.isWanted && isElementOf<Mesh3d>(primitive)) {
    report("it is no more than a row of points",
           "a row has lines, which Filled=\"0\" shows, but no faces");
  } else if (sight.isWanted) {
    report("it has " + counted(points, "point"), "a line takes two points, and an area three");
  } else {
    report(listOf(sight.switches) + (sight.switches.size() == 1 ? " is 0" : " are 0"),
           std::string("write for example ") + sight.switches.front().str() + "=\"1\"");
  }
}

namespace {

/// The box around points.
class Extent {
 public:
  void add(const P2& p) { add(std::array{p.x, p.y}); }
  void add(const P3& p) { add(std::array{p.x, p.y, p.z}); }

  /// Adds a box around a point, with the distances of its faces from it.
  void addAround(const P2& p, const P2& d) {
    add(P2{p.x - d.x, p.y - d.y});
    add(P2{p.x + d.x, p.y + d.y});
  }
  void addAround(const P3& p, const P3& d) {
    add(P3{p.x - d.x, p.y - d.y, p.z - d.z});
    add(P3{p.x + d.x, p.y + d.y, p.z + d.z});
  }
  void addBall(const P3& center, double radius) { addAround(center, {radius, radius, radius}); }

  bool isEmpty() const { return !(axes_[0].min <= axes_[0].max); }
  const Interval& axis(std::size_t index) const { return axes_[index]; }

 private:
  template <std::size_t size>
  void add(const std::array<double, size>& coordinates) {
    for (std::size_t i = 0; i < size; ++i) {
      axes_[i].min = std::min(axes_[i].min, coordinates[i]);
      axes_[i].max = std::max(axes_[i].max, coordinates[i]);
    }
  }

  static constexpr double infinity = std::numeric_limits<double>::infinity();
  static constexpr Interval nothing{infinity, -infinity};
  std::array<Interval, 3> axes_ = {nothing, nothing, nothing};
};

/// Adds the points of a list. False for any other primitive, and for a field, which is not where
/// its points are.
bool addPoints(Extent& extent, const PlotElement& primitive) {
  if (isElementOf<Field2d, Field3d>(primitive)) return false;
  if (const P2List* list = pointsInPlane(&primitive)) {
    for (const P2& point : list->points) extent.add(point);
    return true;
  }
  if (const P3List* list = pointsInSpace(&primitive)) {
    for (const P3& point : list->points) extent.add(point);
    return true;
  }
  return false;
}

/// Adds both ends of a line or an arrow.
template <class Line>
bool addLine(Extent& extent, const PlotElement& primitive) {
  const auto* line = elementCast<Line>(&primitive);
  if (!line) return false;
  extent.add(line->from());
  extent.add(line->to());
  return true;
}

/// Adds any other primitive in the plane, or at least what is around it. False for a text, which
/// may reach into the box from outside, and for an asymptote, which is as high as that.
bool addInPlane(Extent& extent, const PlotElement& primitive) {
  if (const auto* point = elementCast<Pt2d>(&primitive)) {
    extent.add(point->position());
  } else if (const auto* arc = elementCast<Arc2d>(&primitive)) {
    extent.addAround(arc->center(), {arc->semiAxisX(), arc->semiAxisY()});
  } else if (const auto* raster = elementCast<Raster2d, ColorArray2d, DensityArray2d>(&primitive)) {
    extent.add(P2{raster->xMin(), raster->yMin()});
    extent.add(P2{raster->xMax(), raster->yMax()});
  } else {
    return addLine<Line2d>(extent, primitive) || addLine<Arrow2d>(extent, primitive);
  }
  return true;
}

/// The same in space; false for texts, and for what is not drawn for its own sake.
bool addInSpace(Extent& extent, const PlotElement& primitive) {
  if (const auto* box = elementCast<Box>(&primitive)) {
    extent.add(P3{box->xMin(), box->yMin(), box->zMin()});
    extent.add(P3{box->xMax(), box->yMax(), box->zMax()});
  } else if (const auto* sphere = elementCast<Sphere>(&primitive)) {
    extent.addBall(sphere->center(), sphere->radius());
  } else if (const auto* ellipsoid = elementCast<Ellipsoid>(&primitive)) {
    extent.addAround(ellipsoid->center(),
                     {ellipsoid->semiAxisX(), ellipsoid->semiAxisY(), ellipsoid->semiAxisZ()});
  } else if (const auto* circle = elementCast<Circle3d>(&primitive)) {
    extent.addBall(circle->center(), circle->radius());
  } else if (const auto* cone = elementCast<Cone>(&primitive)) {
    extent.addBall(cone->base(), cone->baseRadius());
    extent.addBall(cone->top(), cone->topRadius());
  } else {
    return addLine<Line3d>(extent, primitive) || addLine<Arrow3d>(extent, primitive);
  }
  return true;
}

}  // namespace

// An object of which a part is not known to be outside is not judged, nor is one that moves.
void Review::reviewExtent(const ObjectBase& object, Token image) {
  if (std::ranges::none_of(box_, [](const auto& axis) { return axis.has_value(); })) return;
  Extent extent;
  for (const dom::Node* frame = object.firstChild(); frame; frame = frame->nextSibling()) {
    if (frame->nodeName() != image) continue;
    for (const dom::Node* child = frame->firstChild(); child; child = child->nextSibling()) {
      const PlotElement* primitive = PlotElement::from(child);
      const bool isAdded =
          primitive && (addPoints(extent, *primitive) || addInPlane(extent, *primitive) ||
                        addInSpace(extent, *primitive));
      if (!isAdded) return;
    }
  }
  if (extent.isEmpty()) return;
  for (std::size_t i = 0; i < box_.size(); ++i) {
    const Interval& axis = extent.axis(i);
    if (!box_[i] || !(axis.max < box_[i]->min || axis.min > box_[i]->max)) continue;
    const bool isBelow = axis.max < box_[i]->min;
    std::ostringstream detail;
    detail << "xyz"[i] << " is ";
    if (axis.min == axis.max) {
      detail << axis.min;
    } else {
      detail << "from " << axis.min << " to " << axis.max;
    }
    detail << ", and the box is from " << box_[i]->min << " to " << box_[i]->max;
    return add({.kind = Kind::outsideViewingBox,
                .element = object.tagName().str(),
                .detail = detail.str()},
               object,
               {std::string("make the box reach it with a ") +
                (isBelow ? "smaller ViewingBox" : "larger ViewingBox") + "XYZ"[i] +
                (isBelow ? "Min" : "Max")});
  }
}

}  // namespace vantry::check
