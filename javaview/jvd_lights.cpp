#include "vantry/javaview/jvd_lights.h"

#include <algorithm>

#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/lights.h"
#include "vantry/plot/elements/object.h"

namespace vantry::javaview {

using namespace plot;

namespace {

/// What a class of light is called. The same word names the class and the type of its objects.
struct LightKind {
  Token tag;
  const char* type;
};

constexpr LightKind lightKinds[] = {
    {Word::AmbientLight, "ambient"},
    {Word::PointLight, "point"},
    {Word::DistantLight, "direction"},
    {Word::SpotLight, "spot"},
};

const LightKind* lightKind(Token tag) {
  const auto* kind = std::ranges::find(lightKinds, tag, &LightKind::tag);
  return kind == std::end(lightKinds) ? nullptr : kind;
}

/// A light of the fixed rig. Its place is in units of half the viewing box, from the center.
struct RigLight {
  P3 position;
  double intensity;
};

constexpr RigLight rig[] = {
    {{5, 6, -8}, 0.4},   {{-5, -6, 8}, 0.5}, {{-5, 6, -8}, 0.1},
    {{5, -6, 8}, 0.125}, {{5, -6, -8}, 0.1}, {{-5, 6, 8}, 0.125},
};

void openLights(DisplayOutput& out) {
  out << "<lights lightingModel=\"Light\">\n"
      << "<ambient><color>255 255 255</color></ambient>\n";
}

void writeColorAndIntensity(DisplayOutput& out, RGBA color, double intensity) {
  out.writeColor(color);
  out << "<intensity>" << intensity << "</intensity>\n";
}

/// Opens the block at the first light.
void writeLight(DisplayOutput& out, const Obj3d& object, const JavaViewWriter& writer,
                bool& started) {
  const auto* light = firstOf<AmbientLight, AmbientLight, PointLight, DistantLight, SpotLight>(
      writer.requireTimed<Img3d>(object, "no Img3d").firstChild());
  if (!light) return;
  if (!started) openLights(out);
  started = true;

  const auto* placed = elementCast<PointLight, PointLight, DistantLight, SpotLight>(light);
  const auto* aimed = elementCast<DistantLight, DistantLight, SpotLight>(light);
  out << "<light type=\"" << lightKind(light->tagName())->type << "\">\n";
  if (placed) out.writePosition(placed->position());
  if (aimed) out.writeInterest(aimed->target());
  writeColorAndIntensity(out, light->lightColor(), light->lightIntensity());
  out << "</light>\n";
}

}  // namespace

void writeExplicitLights(DisplayOutput& out, const CoordinateSystemBase& coordinateSystem,
                         const JavaViewWriter& writer) {
  bool started = false;
  for (const dom::Node* child = coordinateSystem.firstChild(); child;
       child = child->nextSibling()) {
    const auto* object = elementCast<Obj3d>(child);
    if (!object || !lightKind(object->type()) || !object->visible()) continue;
    writeLight(out, *object, writer, started);
  }
  if (started) out << "</lights>\n";
}

void writeDefaultLights(DisplayOutput& out, const Bounds& bounds) {
  if (!bounds.isKnown3d()) return;
  openLights(out);
  out << "<light type=\"ambient\">\n";
  writeColorAndIntensity(out, white, 0.125);
  out << "</light>\n";

  const P3 center = mapToBox(bounds, {0, 0, 0});
  for (const RigLight& light : rig) {
    out << "<light type=\"point\">\n";
    out.writePosition(mapToBox(bounds, light.position));
    out.writeInterest(center);
    writeColorAndIntensity(out, white, light.intensity);
    out << "<exponent>50</exponent>\n</light>\n";
  }
  out << "</lights>\n";
}

void writeBackground(DisplayOutput& out, const SceneBase& scene) {
  out << "<background>\n";
  out.writeColor(scene.backgroundColor());
  out << "</background>\n";
}

}  // namespace vantry::javaview
