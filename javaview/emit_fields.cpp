#include "vantry/javaview/emit_fields.h"

#include <algorithm>
#include <cmath>

#include "vantry/javaview/arrow_tip.h"
#include "vantry/javaview/point_colors.h"

namespace vantry::javaview {

using namespace plot;

namespace {

// What a field in the plane and one in space do each in its own way.

/// The product of mesh numbers, or 0 if it is above `limit`. It never overflows.
std::size_t nodeCount(std::initializer_list<std::int32_t> meshes, std::size_t limit) {
  std::size_t count = 1;
  for (const std::int32_t mesh : meshes) {
    if (mesh < 1 || count > limit / static_cast<std::size_t>(mesh)) return 0;
    count *= static_cast<std::size_t>(mesh);
  }
  return count;
}

std::size_t nodeCount(const Field2d& field) {
  return nodeCount({field.xMesh(), field.yMesh()}, field.points.size());
}

std::size_t nodeCount(const Field3d& field) {
  return nodeCount({field.xMesh(), field.yMesh(), field.zMesh()}, field.points.size());
}

// Coordinates are summed up, not multiplied, which shows in their last digits.

void appendNodes(std::vector<P2>& nodes, const Field2d& field) {
  P2 node = field.anchor();
  for (std::int32_t y = 0; y < field.yMesh(); ++y) {
    node.x = field.anchor().x;
    for (std::int32_t x = 0; x < field.xMesh(); ++x) {
      nodes.push_back(node);
      node.x += field.delta().x;
    }
    node.y += field.delta().y;
  }
}

void appendNodes(std::vector<P3>& nodes, const Field3d& field) {
  P3 node = field.anchor();
  for (std::int32_t z = 0; z < field.zMesh(); ++z) {
    node.y = field.anchor().y;
    for (std::int32_t y = 0; y < field.yMesh(); ++y) {
      node.x = field.anchor().x;
      for (std::int32_t x = 0; x < field.xMesh(); ++x) {
        nodes.push_back(node);
        node.x += field.delta().x;
      }
      node.y += field.delta().y;
    }
    node.z += field.delta().z;
  }
}

double smallestStep(const P2& delta) { return std::min(std::fabs(delta.x), std::fabs(delta.y)); }

double smallestStep(const P3& delta) {
  return std::min({std::fabs(delta.x), std::fabs(delta.y), std::fabs(delta.z)});
}

bool hasArrowHeads(const Field2d& field) { return hasTip(field); }

/// A field in space has no properties of tips: the visibility of its points decides instead.
bool hasArrowHeads(const Field3d& field) { return field.pointsVisible(); }

ValueRange rangeOfSteps(double anchor, double delta, std::int32_t mesh) {
  const double end = mesh * delta + anchor;
  return end < anchor ? ValueRange{end, anchor} : ValueRange{anchor, end};
}

template <class Field>
void emitField(GeometryOutput& out, const Field& field) {
  using Point = PointOf<Field>;
  const std::size_t count = nodeCount(field);
  if (count == 0) return;

  std::vector<Point> nodes;
  nodes.reserve(count);
  appendNodes(nodes, field);
  const std::span vectors(field.points.data(), count);
  PointColors<Point> colors(out, nodes, field.colors, lineColorScale(field, colorRange(field)));

  out.beginGeometry();
  out << "<pointSet dim=\"" << dimensionOf(field.delta()) << "\" point=\"hide\">\n";
  out.writePoints(nodes, black, noThickness);
  out << "</pointSet>\n<vectorField material=\"show\"";
  out.writeShowAttribute("color", colors.isColored());
  out.writeShowAttribute("arrow", hasArrowHeads(field));
  out << ">\n";
  out.writeVectors(vectors, field.lineColor(), 0.4 * smallestStep(field.delta()),
                   field.lineWidth());
  if (colors.isColored()) colors.writeColors();
  out << "</vectorField>\n";
  out.writeMaterial(field.lineColor().alpha(), false);
  out.endGeometry();
}

}  // namespace

ValueRange colorRange(const Field3d& field) {
  return rangeOfSteps(field.anchor().z, field.delta().z, field.zMesh());
}

ValueRange colorRange(const Field2d& field) {
  return rangeOfSteps(field.anchor().y, field.delta().y, field.yMesh());
}

void emitField3d(GeometryOutput& out, const Field3d& field) { emitField(out, field); }

void emitField2d(GeometryOutput& out, const Field2d& field) { emitField(out, field); }

}  // namespace vantry::javaview
