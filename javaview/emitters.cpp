#include "vantry/javaview/emitters.h"

#include "vantry/base/word_table.h"
#include "vantry/javaview/emit_fields.h"
#include "vantry/javaview/emit_lines3d.h"
#include "vantry/javaview/emit_plane.h"
#include "vantry/javaview/emit_rasters.h"
#include "vantry/javaview/emit_solids.h"
#include "vantry/javaview/emit_surfaces.h"

namespace vantry::javaview {

using namespace plot;

namespace {

struct Row {
  const dom::NodeClass* nodeClass;
  Emitter emit;
};

template <class Primitive, void (*emit)(GeometryOutput&, const Primitive&)>
constexpr Row row() {
  return {&elementClass<Primitive>, [](GeometryOutput& out, const dom::Node& primitive) {
            emit(out, static_cast<const Primitive&>(primitive));
          }};
}

constexpr Row rows[] = {
    row<Mesh3d, emitMesh3d>(),
    row<Poly3d, emitPoly3d>(),
    row<Pts3d, emitPts3d>(),
    row<Lines3d, emitLines3d>(),
    row<Surf3d, emitSurf3d>(),
    row<Field3d, emitField3d>(),
    row<Line3d, emitLine3d>(),
    row<Arrow3d, emitArrow3d>(),
    row<Box, emitBox>(),
    row<Circle3d, emitCircle3d>(),
    row<Cone, emitCone>(),
    row<Sphere, emitSphere>(),
    row<Ellipsoid, emitEllipsoid>(),
    row<Text3d, emitText3d>(),
    row<Poly2d, emitPoly2d>(),
    row<Field2d, emitField2d>(),
    row<Arc2d, emitArc2d>(),
    row<Pt2d, emitPt2d>(),
    row<Line2d, emitLine2d>(),
    row<Arrow2d, emitArrow2d>(),
    row<ColorArray2d, emitColorArray2d>(),
    row<DensityArray2d, emitDensityArray2d>(),
    row<Pts2d, emitPts2d>(),
    row<Text2d, emitText2d>(),
    row<VerticalAsymptote, emitVerticalAsymptote>(),
};

constexpr auto numbers = base::rowNumbers(rows, [](const Row& row) { return row.nodeClass->name; });

}  // namespace

Emitter emitterFor(const dom::Node& node) {
  const dom::NodeClass* nodeClass = node.nodeClass();
  const std::size_t number = nodeClass ? numbers[nodeClass->name] : 0;
  if (number == 0 || rows[number - 1].nodeClass != nodeClass) return nullptr;
  return rows[number - 1].emit;
}

}  // namespace vantry::javaview
