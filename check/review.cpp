#include "vantry/check/review.h"

#include <langinfo.h>

#include <cmath>
#include <ostream>
#include <string>
#include <string_view>

#include "vantry/base/text_errors.h"
#include "vantry/check/values.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/time_range.h"
#include "vantry/plot/elements/tr.h"
#include "vantry/plot/elements/transform.h"

namespace vantry::check {

namespace Word = base::Word;
using plot::elementCast;
using plot::firstChildOf;
using plot::firstOf;
using plot::isElementOf;

void Review::add(const Finding& finding, const dom::Node& element, std::vector<std::string> help) {
  findings_.add(finding, source_.nameIn(origins_.tagOf(element)), std::move(help));
}

void Review::addAtValue(const Finding& finding, const dom::Node& element, Token attribute,
                        std::vector<std::string> help) {
  const std::size_t tag = origins_.tagOf(element);
  findings_.add(finding, source_.valueIn(tag, attribute.str()).value_or(source_.nameIn(tag)),
                std::move(help));
}

void Review::run() {
  const PlotElement* canvas = document_.documentElement();
  if (!canvas) return;
  reviewTimeRange(*canvas);
  reviewTexts(*canvas);
  reviewStyles(*canvas);
  reviewScenes(*canvas);
  // What a locale without Unicode can write is known by trying alone.
  const bool isUnicode = std::string_view(nl_langinfo(CODESET)) == "UTF-8";
  const bool isDoubtful = !isUnicode || findings_.has(Kind::textNotInLocale);
  if (isDoubtful && !findings_.hasErrors()) tryToWriteTexts();
}

void Review::reviewTimeRange(const PlotElement& canvas) {
  const auto* range = firstChildOf<plot::TimeRange>(canvas);
  hasTimeRange_ = range != nullptr;
  if (range && !std::isfinite(range->timeEnd() - range->timeBegin())) {
    add({.kind = Kind::endlessTimeRange}, *range,
        {"write numbers for TimeBegin and TimeEnd that are not so far apart"});
  }
}

void Review::reviewTexts(const PlotElement& canvas) {
  dom::walkSubtree<const dom::Node>(canvas, [this](const dom::Node& node) {
    const bool isText = node.nodeType() == dom::Node::TextNode;
    if (isText && node.nodeValue() && !isNativeText(node.nodeValue())) {
      add({.kind = Kind::textNotInLocale}, *node.parent(), {helpForLocale});
    }
    return true;
  });
}

namespace {

/// An element as it is written, as a part of a sentence.
std::string tagsOf(Token element) {
  const std::string name = element.str();
  return '<' + name + ">...</" + name + '>';
}

constexpr auto firstScene = firstOf<plot::SceneBase, plot::Scene2d, plot::Scene3d>;
constexpr auto firstSystem =
    firstOf<plot::CoordinateSystemBase, plot::CoordinateSystem2d, plot::CoordinateSystem3d>;

template <class Min, class Max>
std::optional<Interval> boundsOf(const plot::CoordinateSystemBase& system) {
  const auto* min = firstChildOf<Min>(system);
  const auto* max = firstChildOf<Max>(system);
  if (!min || !max || !(max->value() > min->value())) return std::nullopt;
  return Interval{min->value(), max->value()};
}

}  // namespace

void Review::reviewScenes(const PlotElement& canvas) {
  const plot::SceneBase* scene = firstScene(canvas.firstChild());
  if (!scene) {
    const bool isRead = origins_.tags.contains(&canvas);
    if (isRead && !origins_.isDamaged(canvas)) {
      add({.kind = Kind::noScene}, canvas,
          {"put <Scene2d><CoordinateSystem2d>...</CoordinateSystem2d></Scene2d> into it, or the "
           "same with 3d"});
    }
    return;
  }
  if (const auto* second = firstScene(scene->nextSibling())) {
    add({.kind = Kind::leftOut,
         .subject = second->tagName().str(),
         .detail = "the first scene of a document is converted"},
        *second);
  }
  is2d_ = isElementOf<plot::Scene2d>(*scene);
  const auto* system = firstSystem(scene->firstChild());
  if (!system) {
    const Token name = is2d_ ? Word::CoordinateSystem2d : Word::CoordinateSystem3d;
    if (origins_.isDamaged(*scene)) return;
    add({.kind = Kind::noCoordinateSystem,
         .subject = name.str(),
         .element = scene->tagName().str()},
        *scene, {"put " + tagsOf(name) + " into it, around its objects"});
    return;
  }
  if (const auto* second = firstSystem(system->nextSibling())) {
    add({.kind = Kind::leftOut,
         .subject = second->tagName().str(),
         .detail = "the first coordinate system of a scene is converted"},
        *second);
  }
  box_ = {boundsOf<plot::ViewingBoxXMin, plot::ViewingBoxXMax>(*system),
          boundsOf<plot::ViewingBoxYMin, plot::ViewingBoxYMax>(*system),
          boundsOf<plot::ViewingBoxZMin, plot::ViewingBoxZMax>(*system)};
  reviewCoordinateSystem(*system);
}

// What is hidden is not converted, but for an object, which may be shown at another time.
void Review::reviewCoordinateSystem(const plot::CoordinateSystemBase& system) {
  int transforms = 0;
  const auto enter = [&](const dom::Node& node) {
    if (const auto* object = elementCast<plot::ObjectBase, plot::Obj2d, plot::Obj3d>(&node)) {
      reviewObject(*object, transforms > 0);
      return false;
    }
    if (const auto* group = elementCast<plot::GroupBase, plot::Group2d, plot::Group3d>(&node)) {
      return group->visible();
    }
    const bool isPlane = isElementOf<plot::Transform2d>(node);
    if (isPlane || isElementOf<plot::Transform3d>(node)) {
      reviewTransform(static_cast<const PlotElement&>(node), isPlane ? Word::Tr2d : Word::Tr3d);
      ++transforms;
      return true;
    }
    return &node == &system;
  };
  const auto leave = [&](const dom::Node& node) {
    if (isElementOf<plot::Transform2d, plot::Transform3d>(node)) --transforms;
  };
  dom::walkSubtree<const dom::Node>(system, enter, leave);
}

void Review::reviewTransform(const PlotElement& transform, Token frame) {
  if (!transform.firstChildByName(frame) && !origins_.isDamaged(transform)) {
    const bool isPlane = frame == Word::Tr2d;
    add({.kind = Kind::noMap, .subject = frame.str(), .element = transform.tagName().str()},
        transform,
        {isPlane ? "put for example <Tr2d Shift=\"2 0\"/> into it"
                 : "put for example <Tr3d Shift=\"2 0 0\"/> into it"});
  }
  reviewAnimation(transform, frame);
}

// A display needs the image of each camera.
void Review::reviewObject(const plot::ObjectBase& object, bool isTransformed) {
  const Token image = isElementOf<plot::Obj2d>(object) ? Word::Img2d : Word::Img3d;
  const bool isNeeded = object.visible() || object.localType() == Word::Camera;
  if (!object.firstChildByName(image)) {
    if (origins_.isDamaged(object)) return;
    add({.kind = isNeeded ? Kind::noImage : Kind::noImageInHidden,
         .subject = image.str(),
         .element = object.tagName().str()},
        object, {"put what is to be drawn into it as " + tagsOf(image)});
    return;
  }
  reviewImages(object, image);
  reviewAnimation(object, image);
  if (!isTransformed) reviewExtent(object, image);
}

void Review::reviewImages(const plot::ObjectBase& object, Token image) {
  for (const dom::Node* frame = object.firstChild(); frame; frame = frame->nextSibling()) {
    if (frame->nodeName() != image) continue;
    for (const dom::Node* child = frame->firstChild(); child; child = child->nextSibling()) {
      if (const auto* primitive = PlotElement::from(child)) reviewPrimitive(*primitive, object);
    }
  }
}

void Review::reviewAnimation(const PlotElement& element, Token frame) {
  if (hasTimeRange_) return;
  int frames = 0;
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (child->nodeName() == frame) ++frames;
  }
  bool isAnimated = frames > 1;
  for (const Token bound : {Word::ParameterBegin, Word::ParameterEnd}) {
    isAnimated = isAnimated || element.firstChildByName(bound);
  }
  for (const Token time :
       {Word::TimeBegin, Word::TimeEnd, Word::VisibleBeforeBegin, Word::VisibleAfterEnd}) {
    isAnimated = isAnimated || element.hasAttribute(time);
  }
  if (isAnimated) {
    add({.kind = Kind::noTimeRange, .element = element.tagName().str()}, element,
        {"put <TimeRange TimeBegin=\"0\" TimeEnd=\"4\"/> into the Canvas"});
  }
}

// Not all texts are written, and nobody but the writers knows which.
void Review::tryToWriteTexts() {
  try {
    std::ostream nowhere(nullptr);
    javaview::JVXWriter(&document_).write(nowhere, plot::nan);
    javaview::JVDWriter(&document_).write(nowhere, plot::nan);
  } catch (const base::BadUnicodeString&) {
    add({.kind = Kind::textNotWritable}, *document_.documentElement(), {helpForLocale});
  }
}

}  // namespace vantry::check
