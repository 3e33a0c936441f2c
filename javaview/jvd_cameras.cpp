#include "vantry/javaview/jvd_cameras.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "vantry/javaview/vector3d.h"
#include "vantry/plot/elements/camera.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/object.h"

namespace vantry::javaview {

using namespace plot;

namespace {

constexpr double epsilon = std::numeric_limits<double>::epsilon();

/// The part of `p` in the plane normal to `v`, whose squared length is `squaredLength`.
P3 projectAlong(const P3& v, double squaredLength, const P3& p) {
  const double xx = v.y * v.y + v.z * v.z;
  const double yy = v.x * v.x + v.z * v.z;
  const double zz = v.x * v.x + v.y * v.y;
  const double xy = -v.x * v.y;
  const double xz = -v.x * v.z;
  const double yz = -v.y * v.z;
  return {(xx * p.x + xy * p.y + xz * p.z) / squaredLength,
          (xy * p.x + yy * p.y + yz * p.z) / squaredLength,
          (xz * p.x + yz * p.y + zz * p.z) / squaredLength};
}

/// Whether the turn from `a` to `b` is against the camera's roll: the sign of the first component
/// of the cross product that is not small.
bool isTurnedBack(const P3& a, const P3& b) {
  double w = a.z * b.y - a.y * b.z;
  if (std::abs(w) < epsilon) w = a.z * b.x - a.x * b.z;
  if (std::abs(w) < epsilon) w = a.y * b.x - a.x * b.y;
  return w > epsilon;
}

/// The up vector of a display is the z axis. A camera with another one is rolled by the angle
/// between the two, as the camera sees them.
void writeRoll(DisplayOutput& out, const Camera& camera) {
  constexpr const char* upsideDown = "<roll>180</roll>\n";
  const P3& up = camera.upVector();
  if (std::abs(up.x) <= epsilon && std::abs(up.y) <= epsilon) {
    if (up.z < 0) out << upsideDown;
    return;
  }
  const P3 view = camera.focalPoint() - camera.position();
  const double squaredLength = dot(view, view);
  if (squaredLength <= epsilon) return;

  const P3 a = projectAlong(view, squaredLength, up);
  const P3 b = projectAlong(view, squaredLength, {0, 0, 1});
  const double lengths = length(a) * length(b);
  if (lengths <= epsilon) return;
  const double cosine = dot(a, b) / lengths;
  if (!(cosine + epsilon < 1)) return;
  if (!(cosine - epsilon > -1)) {
    out << upsideDown;
    return;
  }
  const double angle = std::acos(cosine) * 57.29577951;
  out << "<roll>" << (isTurnedBack(a, b) ? -angle : angle) << "</roll>\n";
}

/// A parallel view looks from outside of the viewing box, from a place that does not depend on
/// where the focal point is.
P3 parallelPosition(const P3& d, double span) {
  const double distance = length(d);
  return 1.5 * span * (distance >= epsilon ? d / distance : P3{});
}

void writeView(DisplayOutput& out, const Camera& camera, double span) {
  const P3& focalPoint = camera.focalPoint();
  const P3 d = camera.position() - focalPoint;
  const bool isParallel = camera.orthogonalProjection();
  const double fieldOfView = isParallel ? 0 : 2 * std::tan(camera.viewingAngle() / 2);

  out.writePosition(isParallel ? parallelPosition(d, span) : focalPoint + fieldOfView * d);
  out.writeInterest(focalPoint);
  out << "<fieldOfView>" << fieldOfView << "</fieldOfView>\n";
}

/// Writes the first camera of the object's image that can be used: a parallel view needs to know
/// the size of the viewing box. False if there is none.
bool writeCamera(DisplayOutput& out, const Obj3d& object, const JavaViewWriter& writer,
                 double span) {
  for (const dom::Node* child = writer.requireTimed<Img3d>(object, "no Img3d").firstChild(); child;
       child = child->nextSibling()) {
    const auto* camera = elementCast<Camera>(child);
    if (!camera || (camera->orthogonalProjection() && std::isnan(span))) continue;

    out << "<cameras select=\"Perspective\">\n"
        << "<camera projection=\"Perspective\">\n";
    writeView(out, *camera, span);
    writeRoll(out, *camera);
    out << "</camera>\n</cameras>\n";
    return true;
  }
  return false;
}

void writeDefaultCamera(DisplayOutput& out, const Bounds& bounds) {
  // One and the same number brings the camera nearer and is its field of view.
  constexpr double factor = 0.17497732705184801;
  const P3 position = mapToBox(bounds, {-9.3, -14.6, 5.9});
  const P3 interest = mapToBox(bounds, {0, 0, 0});

  out << "<cameras select=\"Perspective\">\n"
      << "<camera projection=\"Perspective\">\n";
  out.writePosition(interest + factor * (position - interest));
  out.writeInterest(interest);
  out << "<fieldOfView>" << factor << "</fieldOfView>\n"
      << "</camera>\n</cameras>\n";
}

}  // namespace

void writeCameras3d(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem,
                    const Bounds& bounds, const JavaViewWriter& writer) {
  for (const dom::Node* child = coordinateSystem.firstChild(); child;
       child = child->nextSibling()) {
    const auto* object = elementCast<Obj3d>(child);
    if (!object || object->type() != Word::Camera) continue;
    if (writeCamera(out, *object, writer, bounds.span)) return;
  }
  if (bounds.isKnown3d()) writeDefaultCamera(out, bounds);
}

void writeCamera2d(DisplayOutput& out, const Bounds& bounds, double ratio) {
  out << "<cameras select=\"X-Y\">\n";
  if (bounds.isKnown2d()) {
    const double size = std::max(bounds.x.size() * ratio, bounds.y.size());
    const P3 center{(bounds.x.min + bounds.x.max) / 2, (bounds.y.min + bounds.y.max) / 2, 0};

    out << "<camera projection=\"X-Y\" sceneRatio=\"show\">\n";
    out.writePosition({center.x, center.y, 1.2 * size});
    out.writeInterest(center);
    out << "<fieldOfView>0</fieldOfView>\n</camera>\n";
  }
  out << "</cameras>\n";
}

}  // namespace vantry::javaview
