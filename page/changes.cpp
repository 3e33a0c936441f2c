#include "vantry/page/changes.h"

#include <algorithm>
#include <cmath>

#include "vantry/dom/tree_walk.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/tr.h"
#include "vantry/plot/elements/transform.h"

namespace vantry::page {

using namespace plot;

namespace {

void addTime(std::vector<double>& times, double time) {
  if (!std::isnan(time)) times.push_back(time);
}

}  // namespace

Changes::Changes(const CoordinateSystemBase& system, bool (*isMeant)(const dom::Node&)) {
  dom::walkSubtree(static_cast<const dom::Node&>(system), [&](const dom::Node& node) {
    const auto* object = elementCast<ObjectBase, Obj2d, Obj3d>(&node);
    if (object && isMeant(node)) addTimesOf(*object);
    if (isElementOf<Transform2d, Transform3d>(node) && isMeant(node)) addFramesOf(node);
    return !object;
  });
  std::ranges::sort(from_);
  std::ranges::sort(after_);
}

void Changes::addTimesOf(const ObjectBase& object) {
  if (!object.visible()) return;
  if (!object.visibleBeforeBegin()) addTime(from_, object.timeBegin());
  if (!object.visibleAfterEnd()) addTime(after_, object.timeEnd());
  addFramesOf(object);
}

void Changes::addFramesOf(const dom::Node& parent) {
  for (const dom::Node* child = parent.firstChild(); child; child = child->nextSibling()) {
    if (const auto* image = elementCast<ImgBase, Img2d, Img3d>(child)) {
      addTime(from_, image->frameTime());
    } else if (const auto* map = elementCast<TrBase, Tr2d, Tr3d>(child)) {
      addTime(from_, map->frameTime());
    }
  }
}

Changes::State Changes::at(double time) const {
  return {std::ranges::upper_bound(from_, time) - from_.begin(),
          std::ranges::lower_bound(after_, time) - after_.begin()};
}

}  // namespace vantry::page
