// What is wrong with the primitives of an object.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <iterator>
#include <span>

#include "vantry/check/names.h"
#include "vantry/check/review.h"
#include "vantry/check/values.h"
#include "vantry/javaview/emit_plane.h"
#include "vantry/javaview/export_error.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/plot/elements/field2d.h"
#include "vantry/plot/elements/field3d.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/surf3d.h"
#include "vantry/reader/data_parsing.h"

namespace vantry::check {

namespace Word = base::Word;
using namespace plot;
using reader::pointsInPlane;
using reader::pointsInSpace;

void Review::reviewPrimitive(const PlotElement& primitive, const ObjectBase& object) {
  const bool isWhole = !origins_.isDamaged(primitive) && reviewCounts(primitive, object);
  reviewDrawing(primitive, object, isWhole);
  reviewColors(primitive);
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

/// How the points of a surface become faces.
struct Faces {
  Token type;
  std::int64_t least;    // points of the first face
  std::int64_t further;  // points of each other one
  std::string_view words;
};

// clang-format off
constexpr Faces faces[] = {
    {Word::Triangles,     3, 3, "each face has three points of its own"},
    {Word::TriangleStrip, 3, 1, "the first face has three points, and each point behind them makes another one"},
    {Word::TriangleFan,   3, 1, "the first face has three points, and each point behind them makes another one"},
    {Word::Quads,         4, 4, "each face has four points of its own"},
    {Word::QuadStrip,     4, 2, "the first face has four points, and each two behind them make another one"},
};
// clang-format on

}  // namespace

/// False for a primitive that has too few points to be anything.
bool Review::reviewCounts(const PlotElement& primitive, const ObjectBase& object) {
  if (const auto* mesh = elementCast<Mesh3d>(&primitive)) return reviewMesh(*mesh);
  if (const auto* surface = elementCast<Surf3d>(&primitive)) return reviewSurface(*surface);
  if (const auto* arc = elementCast<Arc2d>(&primitive)) reviewArc(*arc);
  if (const auto* box = elementCast<Box>(&primitive)) reviewBox(*box);
  if (const auto* array = elementCast<DensityArray2d>(&primitive)) reviewCells(*array);
  if (const auto* lines = elementCast<Lines3d>(&primitive);
      lines && lines->type() == Word::Lines && lines->points.size() % 2 == 1) {
    add({.kind = Kind::oddPoints, .detail = counted(std::ssize(lines->points), "point")}, *lines,
        {"with Type=\"LineStrip\" each point is joined with the next"});
  }
  if (const auto* plane = elementCast<Field2d>(&primitive)) {
    reviewField(*plane, std::ssize(plane->points), {Word::XMesh, Word::YMesh}, object.visible());
  }
  if (const auto* space = elementCast<Field3d>(&primitive)) {
    reviewField(*space, std::ssize(space->points), {Word::XMesh, Word::YMesh, Word::ZMesh},
                object.visible());
  }
  return true;
}

bool Review::reviewMesh(const Mesh3d& mesh) {
  const Grid grid(mesh);
  const auto points = std::ssize(mesh.points);
  const bool isShort = grid.needsMoreThan(points);
  if (!isShort && points == grid.columns * grid.rows) return true;
  add({.kind = isShort ? Kind::tooFewPoints : Kind::extraPoints,
       .element = mesh.tagName().str(),
       .detail = counted(points, "point") + " for " + grid.inWords()},
      mesh,
      {"a row has (UMesh-1)*(USubmesh+1)+1 points, and there are (VMesh-1)*(VSubmesh+1)+1 rows",
       defaultsInWords(mesh, {Word::UMesh, Word::VMesh})});
  return !isShort;
}

bool Review::reviewSurface(const Surf3d& surface) {
  const auto* row = std::ranges::find(faces, surface.type(), &Faces::type);
  if (row == std::end(faces)) {
    add({.kind = Kind::missingSurfaceType}, surface,
        {"Type is " + typeInWords(*surface.findProperty(Word::Type))});
    return true;
  }
  const auto points = std::ssize(surface.points);
  const std::string name = surface.tagName().str();
  const std::string count = counted(points, "point");
  const std::string help = std::string("with Type=\"") + row->type.str() + "\" ";
  const bool isShort = points > 0 && points < row->least;
  if (isShort) {
    add({.kind = Kind::tooFewPoints,
         .element = name,
         .detail = count + " for a face of " + counted(row->least, "point")},
        surface, {help + std::string(row->words)});
  } else if (const std::int64_t unused = (points - row->least) % row->further;
             points > 0 && unused > 0) {
    add({.kind = Kind::extraPoints,
         .element = name,
         .detail = count + " as " + surface.type().str() + " leave " + std::to_string(unused)},
        surface, {help + std::string(row->words)});
  }
  return !isShort;
}

// A field with too few vectors is left out without a word, which does not matter in a hidden
// object. The product of its sides may be too large for any integer.
void Review::reviewField(const PlotElement& field, std::int64_t vectors, Names sides,
                         bool isVisible) {
  std::int64_t places = 1;
  std::string names;
  std::string grid;
  for (const Token name : sides) {
    const std::int64_t side = propertyValue<std::int32_t>(field, name);
    places = places > vectors / side ? vectors + 1 : places * side;
    const char* by = grid.empty() ? "" : " by ";
    names += std::string(by) + name.str();
    grid += by + std::to_string(side);
  }
  const bool isShort = vectors < places;
  if (vectors == places || (isShort && !isVisible)) return;
  const std::string name = field.tagName().str();
  add({.kind = isShort ? Kind::leftOut : Kind::extraPoints,
       .subject = name,
       .element = name,
       .detail = counted(vectors, "vector") + " for " + grid + " places"},
      field,
      {"a field has a vector for each of " + names + " places", defaultsInWords(field, sides)});
}

namespace {

/// Whether the steps along an arc would never end. No arc with small angles is like that; what is
/// written of any other goes nowhere.
bool isEndless(const Arc2d& arc) {
  constexpr double small = 1e5;
  if (std::abs(arc.startAngle()) < small && std::abs(arc.endAngle()) < small) return false;
  javaview::GeometryOutput nowhere;
  try {
    javaview::emitArc2d(nowhere, arc);
    return false;
  } catch (const javaview::JavaViewExportError&) {
    return true;
  }
}

}  // namespace

void Review::reviewArc(const Arc2d& arc) {
  if (isEndless(arc)) {
    addAtInfinite({.kind = Kind::endlessArc}, arc, {Word::StartAngle, Word::EndAngle},
                  {"a full turn is 6.283185, as angles are in radians"});
  } else if (arc.endAngle() < arc.startAngle()) {
    addReversed(arc, Word::EndAngle, Word::StartAngle, Word::EndAngle,
                "nothing of this Arc2d is drawn");
  }
}

namespace {

struct BoxSide {
  char axis;
  Token min;
  Token max;
};

constexpr BoxSide boxSides[] = {
    {'x', Word::XMin, Word::XMax}, {'y', Word::YMin, Word::YMax}, {'z', Word::ZMin, Word::ZMax}};

}  // namespace

// A box may be flat or upside down on purpose, but hardly with a bound that stands in for a missing
// one. The first side is enough.
void Review::reviewBox(const Box& box) {
  for (const auto& [axis, minName, maxName] : boxSides) {
    const double min = propertyValue<double>(box, minName);
    const double max = propertyValue<double>(box, maxName);
    const double standIn =
        box.findProperty(minName)->defaultVariant().as<base::DoubleVariant>()->get();
    if (!(max <= min) || (min != standIn && max != standIn)) continue;
    const std::string effect = max < min ? "this Box is upside down" : "this Box is flat";
    return addReversed(box, maxName, minName, maxName, effect + " along " + axis);
  }
}

// Where all numbers are the same, their colour is FillColor.
void Review::reviewCells(const DensityArray2d& array) {
  const Token type = array.fillColorType();
  if (isOneOf(type, Word::Monochrome, Word::Dichromatic, Word::Rainbow)) return;
  const std::int64_t wanted = std::int64_t{array.xMesh()} * array.yMesh();
  const auto count = std::min(wanted, std::int64_t{std::ssize(array.values)});
  const auto cells = std::span(array.values).first(static_cast<std::size_t>(count));
  if (std::ranges::adjacent_find(cells, std::not_equal_to()) == cells.end()) return;
  addAtValue({.kind = Kind::blackCells,
              .subject = Word::FillColorType.str(),
              .element = array.tagName().str(),
              .detail = type.str()},
             array, Word::FillColorType,
             {"with FillColorType=\"Dichromatic\" they have colours from FillColor to FillColor2"});
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

}  // namespace vantry::check
