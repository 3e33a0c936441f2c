// What is wrong with the primitives of an object.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>

#include "vantry/check/review.h"
#include "vantry/check/values.h"
#include "vantry/javaview/emit_plane.h"
#include "vantry/javaview/export_error.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/plot/elements/camera.h"
#include "vantry/plot/elements/clipping_box.h"
#include "vantry/plot/elements/field2d.h"
#include "vantry/plot/elements/field3d.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/lights.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/plane.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/surf3d.h"
#include "vantry/reader/data_parsing.h"

namespace vantry::check {

namespace Word = base::Word;
using namespace plot;
using reader::pointsInPlane;
using reader::pointsInSpace;

void Review::reviewPrimitive(const PlotElement& primitive, const ObjectBase& object) {
  reviewDrawing(primitive, object);
  if (!origins_.isDamaged(primitive)) reviewCounts(primitive);
  reviewColors(primitive);
}

namespace {

/// Whether a primitive is drawn as what its object is, and not for its own sake.
bool isCameraOrLight(const PlotElement& primitive) {
  return isElementOf<Camera, AmbientLight, PointLight, DistantLight, SpotLight>(primitive);
}

bool isLeftOut(const PlotElement& primitive) {
  return isElementOf<plot::Plane, plot::ClippingBox>(primitive);
}

}  // namespace

void Review::reviewDrawing(const PlotElement& primitive, const ObjectBase& object) {
  const std::string name = primitive.tagName().str();
  if (isCameraOrLight(primitive) && object.localType() != primitive.tagName()) {
    add({.kind = Kind::imageNotDrawn, .subject = name, .detail = object.localType().str()},
        primitive, {"give the object the type " + name});
  } else if (isLeftOut(primitive)) {
    add({.kind = Kind::leftOut, .subject = name, .detail = "it has no place in the files"},
        primitive);
  } else if (const auto* polygon = elementCast<Poly3d>(&primitive);
             polygon && polygon->filled() && polygon->points.size() > 3) {
    add({.kind = Kind::leftOut, .subject = name, .detail = "in space only a triangle is filled"},
        primitive, {"with Filled=\"0\" and LinesVisible=\"1\" it is a curve"});
  }
}

namespace {

/// The points that a mesh needs: its columns and rows.
struct Grid {
  explicit Grid(const Mesh3d& mesh)
      : columns((std::int64_t{mesh.uMesh()} - 1) * (std::int64_t{mesh.uSubmesh()} + 1) + 1),
        rows((std::int64_t{mesh.vMesh()} - 1) * (std::int64_t{mesh.vSubmesh()} + 1) + 1) {}

  // Their product may be too large for any integer.
  bool needsMoreThan(std::int64_t points) const { return rows > points / columns; }
  std::string inWords() const { return counted(rows, "row") + " of " + counted(columns, "point"); }

  std::int64_t columns;
  std::int64_t rows;
};

/// How many cells a grid has, and at most one more than `limit`.
std::int64_t cellsUpTo(std::int64_t limit, std::initializer_list<std::int32_t> sides) {
  std::int64_t cells = 1;
  for (const std::int32_t side : sides) cells = cells > limit / side ? limit + 1 : cells * side;
  return cells;
}

/// The points that one face takes, and how many belong to none.
struct Faces {
  std::int64_t least;
  std::int64_t unused;
};

Faces facesOf(const Surf3d& surface) {
  const auto points = std::ssize(surface.points);
  if (surface.type() == Word::Triangles) return {3, points % 3};
  if (surface.type() == Word::Quads) return {4, points % 4};
  if (surface.type() == Word::QuadStrip) return {4, points % 2};
  return {3, 0};
}

}  // namespace

void Review::reviewCounts(const PlotElement& primitive) {
  if (const auto* mesh = elementCast<Mesh3d>(&primitive)) reviewMesh(*mesh);
  if (const auto* surface = elementCast<Surf3d>(&primitive)) reviewSurface(*surface);
  if (const auto* arc = elementCast<Arc2d>(&primitive)) reviewArc(*arc);
  if (const auto* lines = elementCast<Lines3d>(&primitive);
      lines && lines->type() == Word::Lines && lines->points.size() % 2 == 1) {
    add({.kind = Kind::oddPoints, .detail = counted(std::ssize(lines->points), "point")}, *lines,
        {"with Type=\"LineStrip\" each point is joined with the next"});
  }
  if (const auto* plane = elementCast<Field2d>(&primitive)) {
    reviewField(*plane, std::ssize(plane->points), {plane->xMesh(), plane->yMesh()});
  }
  if (const auto* space = elementCast<Field3d>(&primitive)) {
    reviewField(*space, std::ssize(space->points),
                {space->xMesh(), space->yMesh(), space->zMesh()});
  }
}

void Review::reviewMesh(const Mesh3d& mesh) {
  const Grid grid(mesh);
  const auto points = std::ssize(mesh.points);
  const bool isShort = grid.needsMoreThan(points);
  if (!isShort && points == grid.columns * grid.rows) return;
  add({.kind = isShort ? Kind::tooFewPoints : Kind::extraPoints,
       .element = mesh.tagName().str(),
       .detail = counted(points, "point") + " for " + grid.inWords()},
      mesh,
      {"a row has (UMesh-1)*(USubmesh+1)+1 points, and there are (VMesh-1)*(VSubmesh+1)+1 rows"});
}

void Review::reviewSurface(const Surf3d& surface) {
  const Property& type = *surface.findProperty(Word::Type);
  if (std::ranges::find(type.allowedWords(), surface.type()) == type.allowedWords().end()) {
    return add({.kind = Kind::missingSurfaceType}, surface, {"Type is " + typeInWords(type)});
  }
  const auto points = std::ssize(surface.points);
  const Faces faces = facesOf(surface);
  const std::string count = counted(points, "point");
  if (points > 0 && points < faces.least) {
    add({.kind = Kind::tooFewPoints,
         .element = surface.tagName().str(),
         .detail = count + " for a face of " + counted(faces.least, "point")},
        surface, {"write the points of a first face, or leave the Surf3d out"});
  } else if (faces.unused > 0) {
    add({.kind = Kind::extraPoints,
         .element = surface.tagName().str(),
         .detail =
             count + " as " + surface.type().str() + " leave " + std::to_string(faces.unused)},
        surface);
  }
}

// A field with too few vectors is left out without a word.
void Review::reviewField(const PlotElement& field, std::int64_t vectors,
                         std::initializer_list<std::int32_t> sides) {
  const std::int64_t places = cellsUpTo(vectors, sides);
  if (vectors == places) return;
  std::string grid;
  for (const std::int32_t side : sides) grid += (grid.empty() ? "" : " by ") + std::to_string(side);
  const std::string detail = counted(vectors, "vector") + " for " + grid + " places";
  const std::string name = field.tagName().str();
  if (vectors < places) {
    add({.kind = Kind::leftOut, .subject = name, .detail = detail}, field);
  } else {
    add({.kind = Kind::extraPoints, .element = name, .detail = detail}, field);
  }
}

// No arc with small angles is endless. What is written of any other goes nowhere.
void Review::reviewArc(const Arc2d& arc) {
  constexpr double small = 1e5;
  if (std::abs(arc.startAngle()) < small && std::abs(arc.endAngle()) < small) return;
  javaview::GeometryOutput nowhere;
  try {
    javaview::emitArc2d(nowhere, arc);
  } catch (const javaview::JavaViewExportError&) {
    add({.kind = Kind::endlessArc}, arc, {"a full turn is 6.283185, as angles are in radians"});
  }
}

namespace {

/// The property that says how a primitive with a list of points is coloured; null where nothing
/// does.
Token colorTypeOf(const PlotElement& primitive) {
  if (!pointsInPlane(&primitive) && !pointsInSpace(&primitive)) return {};
  const bool hasFill =
      primitive.findProperty(Word::FillColorType) && propertyValue<bool>(primitive, Word::Filled);
  if (hasFill) return Word::FillColorType;
  return primitive.findProperty(Word::LineColorType) ? Word::LineColorType : Token();
}

bool hasPointColors(const PlotElement& primitive) {
  const P2List* inPlane = pointsInPlane(&primitive);
  return inPlane ? !inPlane->colors.empty() : !pointsInSpace(&primitive)->colors.empty();
}

bool hasPoints(const PlotElement& primitive) {
  const P2List* inPlane = pointsInPlane(&primitive);
  return inPlane ? !inPlane->points.empty() : !pointsInSpace(&primitive)->points.empty();
}

}  // namespace

// The colours of a field follow its own grid, and need no box.
void Review::reviewColors(const PlotElement& primitive) {
  const Token property = colorTypeOf(primitive);
  if (!property || !hasPoints(primitive) || origins_.isDamaged(primitive)) return;
  const Token type = propertyValue<Token>(primitive, property);
  const bool isByHeight = isOneOf(type, Word::Monochrome, Word::Dichromatic, Word::Rainbow);
  const Finding finding = {.kind = isByHeight ? Kind::colorsWithoutRange : Kind::noPointColors,
                           .subject = property.str(),
                           .element = primitive.tagName().str(),
                           .detail = type.str()};
  if (type == Word::Functional && !hasPointColors(primitive)) {
    add(finding, primitive, {"put a colour behind the numbers of each point"});
  } else if (isByHeight && !box_[is2d_ ? 1 : 2] && !isElementOf<Field2d, Field3d>(primitive)) {
    const std::string axis = is2d_ ? "Y" : "Z";
    add(finding, primitive,
        {"give the coordinate system a ViewingBox" + axis + "Min and a ViewingBox" + axis + "Max"});
  }
}

namespace {

/// The box around points.
class Extent {
 public:
  void add(const P2& p) { add(std::array{p.x, p.y}); }
  void add(const P3& p) { add(std::array{p.x, p.y, p.z}); }

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

/// Adds the points of a primitive. False for one that is not where its points are.
bool addPoints(const PlotElement& primitive, Extent& extent) {
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

}  // namespace

// An object that has anything but lists of points in it is not judged, nor is one that moves.
void Review::reviewExtent(const ObjectBase& object, Token image) {
  Extent extent;
  for (const dom::Node* frame = object.firstChild(); frame; frame = frame->nextSibling()) {
    if (frame->nodeName() != image) continue;
    for (const dom::Node* child = frame->firstChild(); child; child = child->nextSibling()) {
      const PlotElement* primitive = PlotElement::from(child);
      if (!primitive || !addPoints(*primitive, extent)) return;
    }
  }
  if (extent.isEmpty()) return;
  for (std::size_t i = 0; i < box_.size(); ++i) {
    const Interval& axis = extent.axis(i);
    if (!box_[i] || !(axis.max < box_[i]->min || axis.min > box_[i]->max)) continue;
    std::ostringstream detail;
    detail << "xyz"[i] << " is from " << axis.min << " to " << axis.max << ", and the box is from "
           << box_[i]->min << " to " << box_[i]->max;
    return add({.kind = Kind::outsideViewingBox,
                .element = object.tagName().str(),
                .detail = detail.str()},
               object);
  }
}

}  // namespace vantry::check
