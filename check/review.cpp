#include "vantry/check/review.h"

#include <langinfo.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>

#include "vantry/base/text_errors.h"
#include "vantry/base/word_table.h"
#include "vantry/check/names.h"
#include "vantry/check/values.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/text2d.h"
#include "vantry/plot/elements/text3d.h"
#include "vantry/plot/elements/transform.h"

namespace vantry::check {

namespace Word = base::Word;
using plot::elementCast;
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

/// Points at the first of the numbers that is not finite; at the element if all are.
void Review::addAtInfinite(const Finding& finding, const PlotElement& element, Names numbers,
                           std::vector<std::string> help) {
  const auto* infinite = std::ranges::find_if(numbers, [&](Token name) {
    return !std::isfinite(plot::propertyValue<double>(element, name));
  });
  if (infinite == numbers.end()) return add(finding, element, std::move(help));
  addAtValue(finding, element, *infinite, std::move(help));
}

// It is the end that is pointed at.
void Review::addReversed(const PlotElement& element, Token attribute, Token begin, Token end,
                         const std::string& effect) {
  addAtValue(
      {.kind = Kind::reversedRange, .subject = end.str(), .element = begin.str(), .detail = effect},
      element, attribute,
      {std::string("the smaller number is that of ") + begin.str(),
       element.findProperty(end) ? defaultsInWords(element, {begin, end}) : ""});
}

/// What stands in for those of the attributes that the document does not have, as a sentence. It is
/// the same for all of them.
std::string Review::defaultsInWords(const PlotElement& element, Names names) const {
  std::vector<Token> missing;
  const std::size_t tag = origins_.tagOf(element);
  std::ranges::copy_if(names, std::back_inserter(missing),
                       [&](Token name) { return !source_.valueIn(tag, name.str()); });
  if (missing.empty()) return {};
  const std::string value = defaultText(*element.findProperty(missing.front()));
  return listOf(missing) + (missing.size() == 1 ? " is " : " are ") + value + " where not given";
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

constexpr auto firstScene = firstOf<plot::SceneBase, plot::Scene2d, plot::Scene3d>;
constexpr auto firstSystem =
    firstOf<plot::CoordinateSystemBase, plot::CoordinateSystem2d, plot::CoordinateSystem3d>;

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
        *second, {"put it into a document of its own", "zrd view shows all scenes of a document"});
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
        *second, {"put what it holds into the first one"});
  }
  for (const PlotElement* part :
       {&canvas, static_cast<const PlotElement*>(scene), static_cast<const PlotElement*>(system)}) {
    reviewLeftOut(*part);
  }
  reviewBounds(*system);
  if (!is2d_) {
    reviewCameras(*system);
    reviewLights(*scene, *system);
  }
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
  if (object.visible()) reviewLeftOut(object);
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

namespace {

// clang-format off
constexpr struct {
  Token element;
  std::string_view way;  // to what does reach the files, as a sentence
} leftOutElements[] = {
    {Word::Header,       helpForTexts},
    {Word::Footer,       helpForTexts},
    {Word::Title,        helpForTexts},
    {Word::View2d,       "what a display shows is the viewing box"},
    {Word::View3d,       "an object of the type Camera with a Camera in it says from where to look"},
    {Word::ClippingBox,  "what a display shows is the viewing box"},
    {Word::AxesOriginX,  "JavaView chooses where axes cross, and Axes=\"Boxed\" puts them around the plot"},
    {Word::AxesOriginY,  "JavaView chooses where axes cross, and Axes=\"Boxed\" puts them around the plot"},
    {Word::AxesOriginZ,  "JavaView chooses where axes cross, and Axes=\"Boxed\" puts them around the plot"},
    {Word::XTicksAnchor, "XTicksDistance says how far the tick marks are apart"},
    {Word::YTicksAnchor, "YTicksDistance says how far the tick marks are apart"},
    {Word::ZTicksAnchor, "ZTicksDistance says how far the tick marks are apart"},
    {Word::XTicksAt,     "XTicksDistance says how far the tick marks are apart"},
    {Word::YTicksAt,     "YTicksDistance says how far the tick marks are apart"},
    {Word::ZTicksAt,     "ZTicksDistance says how far the tick marks are apart"},
    {Word::Plane,        "it can be drawn as a Mesh3d with UMesh=\"2\" and VMesh=\"2\""},
};
// clang-format on

constexpr auto leftOutNumbers =
    base::rowNumbers(leftOutElements, [](const auto& row) { return row.element; });

}  // namespace

void Review::reviewLeftOut(const PlotElement& parent) {
  for (const dom::Node* child = parent.firstChild(); child; child = child->nextSibling()) {
    reportLeftOut(*child);
  }
}

/// Reports an element that shows something in a plot and reaches no file; false for any other.
bool Review::reportLeftOut(const dom::Node& element) {
  const std::size_t number = leftOutNumbers[element.nodeName()];
  if (number == 0) return false;
  add({.kind = Kind::leftOut,
       .subject = element.nodeName().str(),
       .detail = "it has no place in the files"},
      element, {std::string(leftOutElements[number - 1].way)});
  return true;
}

namespace {

bool isHidden(const dom::Node& node) {
  const auto* object = elementCast<plot::ObjectBase, plot::Obj2d, plot::Obj3d>(&node);
  const auto* group = elementCast<plot::GroupBase, plot::Group2d, plot::Group3d>(&node);
  return (object && !object->visible()) || (group && !group->visible());
}

bool hasForeignFont(const PlotElement& element) {
  if (!isElementOf<plot::Text2d, plot::Text3d>(element)) return false;
  const auto font = plot::propertyValue<plot::FontStyle>(element, Word::TextFont);
  return !isNativeText(font.family.c_str());
}

bool hasForeignText(const PlotElement& element) {
  const Token name = element.tagName();
  const bool isWritten = isElementOf<plot::Text2d, plot::Text3d>(element) ||
                         plot::isOneOf(name, Word::XAxisTitle, Word::YAxisTitle, Word::ZAxisTitle);
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (isWritten && child->nodeValue() && !isNativeText(child->nodeValue())) return true;
  }
  return false;
}

/// The first text that is written, and that the locale does not have; null if that is not known.
const PlotElement* firstForeignText(const PlotElement& canvas) {
  const plot::SceneBase* scene = firstScene(canvas.firstChild());
  const PlotElement* first = nullptr;
  dom::walkSubtree<const dom::Node>(*firstSystem(scene->firstChild()), [&](const dom::Node& node) {
    const PlotElement* element = PlotElement::from(&node);
    const bool isFirst =
        element && !first && (hasForeignText(*element) || hasForeignFont(*element));
    if (isFirst) first = element;
    return !first && !isHidden(node);
  });
  return first;
}

}  // namespace

// Not all texts are written, and nobody but the writers knows for sure which.
void Review::tryToWriteTexts() {
  try {
    std::ostream nowhere(nullptr);
    javaview::JVXWriter(&document_).write(nowhere, plot::nan);
    javaview::JVDWriter(&document_).write(nowhere, plot::nan);
  } catch (const base::BadUnicodeString&) {
    const PlotElement& canvas = *document_.documentElement();
    const PlotElement* text = firstForeignText(canvas);
    addNotWritable(text ? *text : canvas);
  }
}

// A font may come from a style.
void Review::addNotWritable(const PlotElement& text) {
  const Finding finding = {.kind = Kind::textNotWritable};
  if (!hasForeignFont(text) || hasForeignText(text)) return add(finding, text, {helpForLocale});
  const PlotElement* style = text.styleParent(Word::TextFont);
  const bool isOwn = text.hasAttribute(Word::TextFont) || !style;
  addAtValue(finding, isOwn ? text : *style, Word::TextFont, {helpForLocale});
}

}  // namespace vantry::check
