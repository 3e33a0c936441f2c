#include "vantry/page/scene_text.h"

#include <nlohmann/json.hpp>

#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/emitters.h"
#include "vantry/javaview/jvd_bounds.h"
#include "vantry/page/axes_text.h"
#include "vantry/page/color_scale.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/string_elements.h"

namespace vantry::page {

using namespace plot;

bool hasGeometry(const ObjectBase& object) {
  for (const dom::Node* child = object.firstChild(); child; child = child->nextSibling()) {
    if (!isElementOf<Img2d, Img3d>(*child)) continue;
    for (const dom::Node* part = child->firstChild(); part; part = part->nextSibling()) {
      if (javaview::emitterFor(*part)) return true;
    }
  }
  return false;
}

std::vector<const ObjectBase*> objectsOf(const CoordinateSystemBase& system) {
  std::vector<const ObjectBase*> objects;
  dom::walkSubtree(static_cast<const dom::Node&>(system), [&](const dom::Node& node) {
    if (const auto* object = elementCast<ObjectBase, Obj2d, Obj3d>(&node)) {
      if (object->visible() && hasGeometry(*object)) objects.push_back(object);
      return false;
    }
    const auto* group = elementCast<GroupBase, Group2d, Group3d>(&node);
    return !group || group->visible();
  });
  return objects;
}

namespace {

/// A display has a place for one colour.
void putBackground(Json& text, const SceneBase& scene) {
  if (scene.backgroundTransparent() || scene.backgroundStyle() == Word::Flat) return;
  text["background"] = {
      {"style", wordText(scene.backgroundStyle())},
      {"colors", {colorText(scene.backgroundColor()), colorText(scene.backgroundColor2())}}};
}

Json boxText(const SceneBase& scene, const CoordinateSystemBase& system, bool is2d) {
  Json text = {{"scaling", wordText(javaview::scalingOf(system))}};
  if (!is2d) {
    const P3 sides = javaview::boxSides3d(scene);
    text["sides"] = {sides.x, sides.y, sides.z};
  } else if (const auto sides = javaview::boxSides2d(system)) {
    text["sides"] = {sides->x, sides->y};
  }
  return text;
}

Json legendText(const SceneBase& scene) {
  return {{"visible", scene.legendVisible()},
          {"placement", wordText(scene.legendPlacement())},
          {"align", wordText(scene.legendAlignment())},
          {"font", fontText(scene.legendFont())}};
}

/// The first of the texts by which people know the object.
std::string nameOf(const ObjectBase& object) {
  for (const std::string& text :
       {ownName(object), childText(object, Word::Title), childText(object, Word::LegendText)}) {
    if (!text.empty()) return text;
  }
  return utf8(object.localType().str());
}

/// The colour that a primitive shows most of: null if it has none.
Token mainColor(const PlotElement& primitive) {
  const bool isFilled =
      !primitive.hasProperty(Word::Filled) || propertyValue<bool>(primitive, Word::Filled);
  if (isFilled && primitive.hasProperty(Word::FillColor)) return Word::FillColor;
  for (const Token color : {Word::LineColor, Word::PointColor}) {
    if (primitive.hasProperty(color)) return color;
  }
  return {};
}

/// The colour of an object in the legend: that of its first primitive, unless it names another one.
RGBA colorOf(const ObjectBase& object) {
  RGBA color;
  if (object.legendColor(color)) return color;
  const auto* image = firstOf<ImgBase, Img2d, Img3d>(object.firstChild());
  for (const dom::Node* child = image ? image->firstChild() : nullptr; child;
       child = child->nextSibling()) {
    const PlotElement* primitive = PlotElement::from(child);
    const Token name = primitive ? mainColor(*primitive) : Token();
    if (name) return propertyValue<RGBA>(*primitive, name);
  }
  return object.lineColor();
}

Json objectText(const ObjectBase& object, const javaview::Bounds& bounds) {
  Json text = {{"name", nameOf(object)}};
  if (!object.legendEntry()) return text;
  if (const std::string legend = childText(object, Word::LegendText); !legend.empty()) {
    text["legend"] = legend;
    text["color"] = colorText(colorOf(object));
  }
  if (const auto scale = colorScaleOf(object, bounds)) {
    text["scale"] = {{"min", scale->min}, {"max", scale->max}, {"colors", scale->colors}};
  }
  return text;
}

}  // namespace

Json sceneText(const javaview::ExportedScene& exported, std::span<const ObjectBase* const> objects,
               const std::string& name) {
  const auto& [scene, system, is2d] = exported;
  const javaview::Bounds bounds = javaview::computeBounds(system, is2d);
  const std::string ownName = page::ownName(scene);
  Json text = {{"name", ownName.empty() ? name : ownName},
               {"axes", axesText(system, is2d)},
               {"box", boxText(scene, system, is2d)},
               {"legend", legendText(scene)},
               {"objects", Json::array()}};
  putLine(text, scene, Word::Header, scene.headerFont(), scene.headerAlignment());
  putLine(text, scene, Word::Footer, scene.footerFont(), scene.footerAlignment());
  if (!is2d) putBackground(text, scene);
  for (const ObjectBase* object : objects) {
    text["objects"].push_back(objectText(*object, bounds));
  }
  return text;
}

}  // namespace vantry::page
