// What is wrong with the styles of a document.

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "vantry/check/names.h"
#include "vantry/check/review.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::check {

namespace Word = base::Word;
using namespace plot;

namespace {

/// Where elements are among all of the document, as numbers in its order.
using Position = int;

/// A part of the document: an element with all that is in it.
struct Part {
  Position begin;
  Position end;  // behind the last element in it
};

constexpr Token classesWithStyles[] = {Word::Obj2d, Word::Obj3d, Word::Transform2d,
                                       Word::Transform3d};

/// What of a document takes values of styles, by type and class.
class Takers {
 public:
  explicit Takers(const PlotElement& canvas) {
    Position position = 0;
    const auto enter = [&](const dom::Node& node) {
      parts_[&node] = {position, position};
      if (const Token type = typeOf(node)) add(type, node.nodeName(), position);
      ++position;
      return node.nodeType() == dom::Node::ElementNode;
    };
    const auto leave = [&](const dom::Node& node) { parts_[&node].end = position; };
    dom::walkSubtree<const dom::Node>(canvas, enter, leave);
  }

  Part partOf(const dom::Node& node) const { return parts_.at(&node); }

  /// The classes of that type that are in a part of the document.
  std::vector<Token> classesIn(Token type, Part part) const {
    std::vector<Token> classes;
    for (const Token name : classesWithStyles) {
      if (firstIn(type, name, part) < part.end) classes.push_back(name);
    }
    return classes;
  }

  /// The first of that type in the part; its end if there is none.
  Position firstIn(Token type, Part part) const {
    Position first = part.end;
    for (const Token name : classesIn(type, part)) {
      first = std::min(first, firstIn(type, name, part));
    }
    return first;
  }

  /// The nearest of the types; empty if there is none, or if there are too many to look at.
  std::string_view nearestType(Token type) const {
    constexpr std::size_t most = 100;
    if (types_.size() > most) return {};
    return nearestName(type.str(), std::vector(types_.begin(), types_.end()));
  }

 private:
  static Token typeOf(const dom::Node& node) {
    if (const auto* object = elementCast<ObjectBase, Obj2d, Obj3d>(&node)) {
      return object->localType();
    }
    const auto* transform = elementCast<TransformBase, Transform2d, Transform3d>(&node);
    return transform ? transform->type() : Token();
  }

  void add(Token type, Token name, Position position) {
    types_.insert(type);
    positions_[{type, name}].push_back(position);
    if (type != Word::Default) positions_[{Word::Default, name}].push_back(position);
  }

  Position firstIn(Token type, Token name, Part part) const {
    const auto found = positions_.find({type, name});
    if (found == positions_.end()) return part.end;
    const auto first = std::ranges::lower_bound(found->second, part.begin);
    return first == found->second.end() ? part.end : std::min(*first, part.end);
  }

  std::map<const dom::Node*, Part> parts_;
  std::map<std::pair<Token, Token>, std::vector<Position>> positions_;
  std::set<Token> types_;
};

bool isTakenBy(const std::vector<Token>& classes, Token property) {
  return std::ranges::any_of(classes,
                             [=](Token name) { return factsOf(name)->property(property); });
}

/// The classes that take a value of styles, as a sentence.
std::string takersInWords(Token property) {
  std::vector<Token> takers;
  std::ranges::copy_if(classesWithStyles, std::back_inserter(takers),
                       [=](Token name) { return factsOf(name)->property(property); });
  return takers.empty() ? "" : std::string(property.str()) + " is for " + listOf(takers);
}

bool isStyle(const dom::Node& node) { return isElementOf<ObjStyle>(node); }

bool hasStyles(const PlotElement& canvas) {
  bool found = false;
  dom::walkSubtree<const dom::Node>(canvas, [&](const dom::Node& node) {
    found = found || isStyle(node);
    return !found;
  });
  return found;
}

/// A style of a canvas, what takes it, and the scenes with and without that.
struct SceneStyle {
  Token style;
  Token taker;
  Token scene;
  Token otherScene;
};

constexpr SceneStyle sceneStyles[] = {
    {Word::Scene2dStyle, Word::Scene2d, Word::Scene2d, Word::Scene3d},
    {Word::Scene3dStyle, Word::Scene3d, Word::Scene3d, Word::Scene2d},
    {Word::CoordinateSystem2dStyle, Word::CoordinateSystem2d, Word::Scene2d, Word::Scene3d},
    {Word::CoordinateSystem3dStyle, Word::CoordinateSystem3d, Word::Scene3d, Word::Scene2d},
};

}  // namespace

// In a scene there are such styles of its own dimension alone.
void Review::reviewSceneStyles(const PlotElement& canvas) {
  if (origins_.isDamaged(canvas)) return;
  for (const auto& [name, taker, scene, otherScene] : sceneStyles) {
    const dom::Node* style = canvas.firstChildByName(name);
    if (!style || canvas.firstChildByName(scene) || !canvas.firstChildByName(otherScene)) continue;
    add({.kind = Kind::styleWithoutObject, .subject = taker.str()}, *style,
        {std::string("what is drawn is in a ") + otherScene.str()});
  }
}

void Review::reviewStyles(const PlotElement& canvas) {
  reviewSceneStyles(canvas);
  if (!hasStyles(canvas)) return;
  const Takers takers(canvas);
  dom::walkSubtree<const dom::Node>(canvas, [&](const dom::Node& node) {
    const auto* style = elementCast<ObjStyle>(&node);
    if (!style || !style->parent() || !style->localType()) return true;
    const Token type = style->localType();
    const Part part = takers.partOf(*style->parent());
    const std::vector<Token> classes = takers.classesIn(type, part);
    if (classes.empty()) {
      if (type == Word::Default) return true;
      addAtValue({.kind = Kind::styleWithoutObject,
                  .subject = std::string("object of the type ") + type.str()},
                 *style, Word::Type, {question(takers.nearestType(type))});
      return true;
    }
    if (takers.firstIn(type, part) < takers.partOf(*style).begin) {
      add({.kind = Kind::lateStyle}, *style, {"put it before the objects"});
    }
    for (const auto& [name, value] : style->attributes()) {
      if (isOneOf(name, Word::Type, Word::Id) || isTakenBy(classes, name)) continue;
      addAtValue({.kind = Kind::unusedStyleValue, .subject = name.str()}, *style, name,
                 {takersInWords(name), "this style is for " + listOf(classes)});
    }
    return true;
  });
}

}  // namespace vantry::check
