// What is wrong with the viewing box, the cameras and the lights of a coordinate system.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "vantry/check/review.h"
#include "vantry/plot/elements/camera.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/lights.h"

namespace vantry::check {

namespace Word = base::Word;
using namespace plot;

namespace {

/// Where a coordinate system keeps what belongs to one axis.
struct Axis {
  char name;
  Token min;
  Token max;
  Token ticksDistance;
};

constexpr Axis axes[] = {
    {'x', Word::ViewingBoxXMin, Word::ViewingBoxXMax, Word::XTicksDistance},
    {'y', Word::ViewingBoxYMin, Word::ViewingBoxYMax, Word::YTicksDistance},
    {'z', Word::ViewingBoxZMin, Word::ViewingBoxZMax, Word::ZTicksDistance},
};

/// The element of that name with its number, which all that have one call Val; null if there is
/// none.
const VExpr* numberIn(const PlotElement& parent, Token name) {
  return static_cast<const VExpr*>(PlotElement::from(parent.firstChildByName(name)));
}

/// A number above another (with side 1) or below it (with side -1); 1 where that is not known. To a
/// large number, 1 more would make no difference.
std::string exampleBeside(const VExpr* other, int side) {
  double number = 1;
  if (other && std::isfinite(other->value())) {
    const double size = std::abs(other->value());
    number = other->value() + side * (size < 1e15 ? 1 : size);
  }
  std::array<char, 32> text;
  return {text.data(), std::to_chars(text.begin(), text.end(), number).ptr};
}

/// An element with its number, as it is written.
std::string tagOf(Token name, const std::string& number) {
  return std::string("<") + name.str() + " Val=\"" + number + "\"/>";
}

}  // namespace

// A bound without the other, and a range that is empty or upside down, count as not given.
void Review::reviewBounds(const CoordinateSystemBase& system) {
  for (std::size_t i = 0; i < std::size(axes); ++i) {
    const Axis& axis = axes[i];
    reviewNumbers(system, axis.min, axis.max);
    reviewNumber(system, axis.ticksDistance);
    const VExpr* min = numberIn(system, axis.min);
    const VExpr* max = numberIn(system, axis.max);
    if (!min || !max || std::isnan(min->value()) || std::isnan(max->value())) continue;
    if (max->value() > min->value()) {
      box_[i] = {min->value(), max->value()};
      continue;
    }
    addReversed(*max, Word::Val, axis.min, axis.max,
                std::string("the viewing box is not known along ") + axis.name);
  }
}

/// Looks at the two ends of a range, neither of which means anything without the other.
void Review::reviewNumbers(const PlotElement& parent, Token begin, Token end) {
  reviewNumber(parent, begin, end, -1);
  reviewNumber(parent, end, begin, 1);
}

/// Looks at a number that an element may hold as a child: whether it is there, and its partner too,
/// if it has one. `side` is 1 for a number that is above its partner, and -1 for one below.
void Review::reviewNumber(const PlotElement& parent, Token name, Token partner, int side) {
  const VExpr* element = numberIn(parent, name);
  if (!element) return;
  const VExpr* other = partner ? numberIn(parent, partner) : nullptr;
  const std::string itself = std::string("this ") + name.str();
  Finding finding = {.kind = Kind::missingNumber, .detail = itself + " has no effect without a "};
  if (std::isnan(element->value())) {
    if (origins_.isDamaged(*element)) return;
    const std::string help = "write for example " + tagOf(name, exampleBeside(other, side));
    if (source_.valueIn(origins_.tagOf(*element), Word::Val.str())) {
      finding.detail = "the Val of " + itself + " is no finite number";
      return addAtValue(finding, *element, Word::Val, {help});
    }
    finding.detail += "Val";
    add(finding, *element, {help, "what is between its tags is an expression, and not looked at"});
  } else if (partner && !other && !origins_.isDamaged(parent)) {
    finding.detail += partner.str();
    add(finding, *element,
        {"put for example " + tagOf(partner, exampleBeside(element, -side)) + " beside it"});
  }
}

// The first camera that can be used is that of the display, even if its object is hidden.
void Review::reviewCameras(const CoordinateSystemBase& system) {
  const ObjectBase* used = nullptr;
  for (const dom::Node* child = system.firstChild(); child; child = child->nextSibling()) {
    const auto* object = elementCast<Obj3d>(child);
    if (!object || object->localType() != Word::Camera) continue;
    if (!used) {
      if (reviewCamera(*object)) used = object;
    } else if (object->visible()) {
      const int line = source_.placeOf({origins_.tagOf(*used), 0}).line;
      add({.kind = Kind::leftOut,
           .subject = object->tagName().str(),
           .detail = "a scene is seen by its first camera"},
          *object, {"that camera is in line " + std::to_string(line)});
    }
  }
}

/// Whether one of the cameras in the object's images can be used.
bool Review::reviewCamera(const ObjectBase& object) {
  const bool isBoxKnown =
      std::ranges::any_of(box_, [](const auto& axis) { return axis.has_value(); });
  bool isUsed = false;
  for (const dom::Node* image = object.firstChild(); image; image = image->nextSibling()) {
    if (!isElementOf<Img3d>(*image)) continue;
    const Camera* first = nullptr;
    for (const dom::Node* child = image->firstChild(); child; child = child->nextSibling()) {
      const auto* camera = elementCast<Camera>(child);
      if (!camera) continue;
      Finding finding = {.kind = Kind::leftOut, .subject = camera->tagName().str()};
      if (first) {
        finding.detail = "the first camera of an image is used";
        add(finding, *camera, {"put it before the other one to have it used"});
      } else if (camera->orthogonalProjection() && !isBoxKnown) {
        finding.detail = "its parallel projection needs a viewing box";
        add(finding, *camera,
            {"give the coordinate system a ViewingBoxXMin and a ViewingBoxXMax, and the same along "
             "the other axes"});
      } else {
        first = camera;
      }
    }
    isUsed = isUsed || first;
  }
  return isUsed;
}

bool isLight(const dom::Node& node) {
  return isElementOf<AmbientLight, PointLight, DistantLight, SpotLight>(node);
}

bool isLightType(Token type) {
  return isOneOf(type, Word::AmbientLight, Word::PointLight, Word::DistantLight, Word::SpotLight);
}

// Without light, none is missed.
void Review::reviewLights(const SceneBase& scene, const CoordinateSystemBase& system) {
  const Token lighting = scene.lighting();
  if (lighting == Word::None) return;
  for (const dom::Node* child = system.firstChild(); child; child = child->nextSibling()) {
    const auto* object = elementCast<Obj3d>(child);
    if (!object || !isLightType(object->localType()) || !object->visible()) continue;
    if (lighting != Word::Explicit) {
      add({.kind = Kind::leftOut,
           .subject = object->tagName().str(),
           .detail = std::string("Lighting is ") + lighting.str()},
          *object, {"give the Scene3d Lighting=\"Explicit\""});
      continue;
    }
    for (const dom::Node* image = object->firstChild(); image; image = image->nextSibling()) {
      int lights = 0;
      for (const dom::Node* node = image->firstChild(); node; node = node->nextSibling()) {
        if (!isLight(*node) || ++lights == 1) continue;
        add({.kind = Kind::leftOut,
             .subject = node->nodeName().str(),
             .detail = "the first light of an image is used"},
            *node, {"give it an object of its own"});
      }
    }
  }
}

}  // namespace vantry::check
