#include "vantry/javaview/emit_solids.h"

#include <cmath>

#include "vantry/javaview/label.h"
#include "vantry/javaview/vector3d.h"

namespace vantry::javaview {

using namespace plot;

void emitBox(GeometryOutput& out, const Box& box) {
  if (!box.filled() && !box.linesVisible()) return;
  const P3 corners[] = {
      {box.xMin(), box.yMin(), box.zMin()}, {box.xMax(), box.yMin(), box.zMin()},
      {box.xMax(), box.yMin(), box.zMax()}, {box.xMin(), box.yMin(), box.zMax()},
      {box.xMin(), box.yMax(), box.zMin()}, {box.xMax(), box.yMax(), box.zMin()},
      {box.xMax(), box.yMax(), box.zMax()}, {box.xMin(), box.yMax(), box.zMax()},
  };
  out.beginGeometry();
  out << "<pointSet dim=\"3\" point=\"hide\">\n";
  out.writePoints(corners, box.lineColor(), noThickness);
  out << "</pointSet>\n<faceSet";
  out.writeShowAttribute("face", box.filled());
  out.writeShowAttribute("edge", box.linesVisible());
  out << ">\n<faces num=\"6\">\n"
         "<f>0 1 2 3</f>\n"
         "<f>7 6 5 4</f>\n"
         "<f>0 4 5 1</f>\n"
         "<f>2 6 7 3</f>\n"
         "<f>1 5 6 2</f>\n"
         "<f>0 3 7 4</f>\n";
  out.writeThicknessAndColor(box.fillColor(), noThickness);
  out << "</faces>\n<neighbours num=\"6\">\n"
         "<nb>4 3 5 2</nb>\n"
         "<nb>4 2 5 3</nb>\n"
         "<nb>1 4 0 5</nb>\n"
         "<nb>1 5 0 4</nb>\n"
         "<nb>1 3 0 2</nb>\n"
         "<nb>3 1 2 0</nb>\n"
         "</neighbours>\n";
  if (box.linesVisible()) out.writeEdges(box.lineColor(), box.lineWidth());
  out << "</faceSet>\n";
  out.writeMaterial(box.fillColor().alpha(), false);
  out.endGeometry();
}

namespace {

/// An ellipsoid around the y axis. The points of the poles and of the seam are repeated, and no
/// face has a neighbour across the seam.
void writeEllipsoid(GeometryOutput& out, const P3& center, const P3& semiAxes, RGBA color,
                    bool smooth) {
  constexpr int faces = 28;  // along each circle of latitude, and from pole to pole
  constexpr int points = faces + 1;

  out.beginGeometry();
  out << "<pointSet dim=\"3\" point=\"hide\">\n<points num=\"" << points * points << "\">\n";
  double latitude = std::asin(1.0);
  const double latitudeStep = (std::asin(1.0) - std::asin(-1.0)) / 28.0;
  constexpr double longitudeStep = 0.2243994752564138;  // a full turn by `faces`
  for (int row = 0; row < points; ++row, latitude -= latitudeStep) {
    const double s = std::sin(latitude);
    const double c = std::sqrt(1 - s * s);
    double longitude = 0;
    for (int column = 0; column < points; ++column, longitude += longitudeStep) {
      out.writePoint(P3{std::cos(longitude) * semiAxes.x * c + center.x,  //
                        semiAxes.y * s + center.y,
                        std::sin(longitude) * semiAxes.z * c + center.z});
    }
  }
  out << "</points>\n</pointSet>\n<faceSet edge=\"hide\"";
  out.writeShowAttribute("colorSmooth", smooth);
  out << ">\n<faces num=\"" << faces * faces << "\">\n";
  out.writeGridFaces(points, points);
  out.writeThicknessAndColor(color, noThickness);
  out << "</faces>\n<neighbours num=\"" << faces * faces << "\">\n";
  out.writeGridNeighbours(points, points);
  out << "</neighbours>\n</faceSet>\n";
  out.writeMaterial(color.alpha(), smooth);
  out.endGeometry();
}

}  // namespace

void emitSphere(GeometryOutput& out, const Sphere& sphere) {
  const double radius = sphere.radius();
  writeEllipsoid(out, sphere.center(), {radius, radius, radius}, sphere.fillColor(),
                 sphere.shading() == Word::Smooth);
}

void emitEllipsoid(GeometryOutput& out, const Ellipsoid& ellipsoid) {
  writeEllipsoid(out, ellipsoid.center(),
                 {ellipsoid.semiAxisX(), ellipsoid.semiAxisY(), ellipsoid.semiAxisZ()},
                 ellipsoid.fillColor(), ellipsoid.shading() == Word::Smooth);
}

namespace {

constexpr int ringPoints = GeometryOutput::circlePoints;

/// A circle in space.
struct Ring {
  P3 center;
  P3 normal;
  double radius;
};

using Rings = std::span<const Ring>;

/// Begins a geometry with the points of the rings.
void writeRingPoints(GeometryOutput& out, Rings rings) {
  out.beginGeometry();
  out << "<pointSet dim=\"3\" point=\"hide\">\n<points num=\"" << rings.size() * ringPoints
      << "\">\n";
  for (const Ring& ring : rings) out.writeCirclePoints(ring.center, ring.normal, ring.radius);
  out << "</points>\n</pointSet>\n";
}

/// The geometry of the rings as lines.
void writeRims(GeometryOutput& out, Rings rings, RGBA color, double width) {
  writeRingPoints(out, rings);
  out << "<lineSet>\n<lines num=\"" << rings.size() << "\">\n";
  int first = 0;
  for (std::size_t i = 0; i < rings.size(); ++i, first += ringPoints) {
    out.writeClosedLine(first, first + ringPoints - 1);
  }
  out.writeThicknessAndColor(color, width);
  out << "</lines>\n</lineSet>\n";
  out.writeMaterial(color.alpha(), false);
  out.endGeometry();
}

/// The faces between two rings, as a band that is closed in itself.
void writeMantle(GeometryOutput& out, RGBA color) {
  constexpr int last = ringPoints - 1;
  out << "<faceSet face=\"show\" edge=\"hide\">\n<faces num=\"" << ringPoints << "\">\n";
  for (int i = 0; i < last; ++i) {
    out << "<f>" << i << ' ' << i + 1 << ' ' << i + ringPoints + 1 << ' ' << i + ringPoints
        << "</f>\n";
  }
  out << "<f>" << last << " 0 " << ringPoints << ' ' << last + ringPoints << "</f>\n";
  out.writeThicknessAndColor(color, noThickness);
  out << "</faces>\n<neighbours num=\"" << ringPoints << "\">\n<nb>1 -1 " << last << " -1</nb>\n";
  for (int i = 1; i < last; ++i) out << "<nb>" << i + 1 << " -1 " << i - 1 << " -1</nb>\n";
  out << "<nb>0 -1 " << last - 1 << " -1</nb>\n</neighbours>\n</faceSet>\n";
}

/// The direction of the axis of a cone: that of y if the cone has no height.
P3 axisOf(const Cone& cone) {
  const P3 axis = cone.top() - cone.base();
  return isVanishing(length(axis)) ? P3{0, 1, 0} : axis;
}

}  // namespace

void emitCircle3d(GeometryOutput& out, const Circle3d& circle) {
  const Ring ring[] = {{circle.center(), circle.normal(), circle.radius()}};
  if (circle.linesVisible()) writeRims(out, ring, circle.lineColor(), circle.lineWidth());
  if (circle.filled()) {
    writeRingPoints(out, ring);
    out << "<faceSet face=\"show\" edge=\"hide\">\n";
    out.writeSingleFace(ringPoints - 1, circle.fillColor());
    out << "</faceSet>\n";
    out.writeMaterial(circle.fillColor().alpha(), false);
    out.endGeometry();
  }
}

void emitCone(GeometryOutput& out, const Cone& cone) {
  const P3 axis = axisOf(cone);
  const Ring rings[] = {{cone.top(), axis, cone.topRadius()},
                        {cone.base(), axis, cone.baseRadius()}};
  if (cone.linesVisible()) writeRims(out, rings, cone.lineColor(), cone.lineWidth());
  if (cone.filled()) {
    writeRingPoints(out, rings);
    writeMantle(out, cone.fillColor());
    out.writeMaterial(cone.fillColor().alpha(), true);  // smooth, whatever its shading
    out.endGeometry();
  }
}

void emitText3d(GeometryOutput& out, const Text3d& text) { writeLabel(out, text); }

}  // namespace vantry::javaview
