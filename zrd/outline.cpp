#include "zrd/outline.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <unordered_map>

#include "vantry/dom/tree_walk.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/reader/data_parsing.h"
#include "zrd/commands.h"
#include "zrd/shortest_numbers.h"
#include "zrd/wrong_usage.h"

namespace vantry::zrd {

namespace {

using namespace plot;

/// The places of the elements of a document: each by its name, and by its number among those of
/// its name below its parent, as in "Obj2d[2]".
class Paths {
 public:
  explicit Paths(const PlotElement& root) {
    steps_[&root] = root.tagName().str();
    dom::walkSubtree<const dom::Node>(root, [this](const dom::Node& node) {
      std::map<Token, int> counts;
      for (const dom::Node* child = node.firstChild(); child; child = child->nextSibling()) {
        const Token name = child->nodeName();
        steps_[child] = std::string(name.str()) + '[' + std::to_string(++counts[name]) + ']';
      }
      return true;
    });
  }

  /// The place of an element below its parent.
  const std::string& stepTo(const dom::Node& element) const { return steps_.at(&element); }

  std::string of(const PlotElement& element) const {
    std::string path = steps_.at(&element);
    for (const PlotElement* parent = PlotElement::from(element.parent()); parent;
         parent = PlotElement::from(parent->parent())) {
      path.insert(0, steps_.at(parent) + '/');
    }
    return path;
  }

 private:
  std::unordered_map<const dom::Node*, std::string> steps_;
};

/// The style that gives the value of a property, however many elements it is passed on by.
const PlotElement* originOf(const PlotElement& element, Token name) {
  const PlotElement* origin = element.styleParent(name);
  while (origin && !origin->hasAttribute(name)) origin = origin->styleParent(name);
  return origin;
}

/// Whether an attribute that must be given has what stands in for it, which no document says.
bool isMissing(const Property& property, const std::string& text) {
  const auto words = property.allowedWords();
  return property.isMandatory() && !words.empty() &&
         std::ranges::none_of(words, [&text](Token word) { return word.str() == text; });
}

std::vector<ShownValue> valuesOf(const PlotElement& element, const Paths& paths, bool hasDefaults) {
  std::vector<ShownValue> values;
  for (const Property* property : check::factsOf(element.tagName())->properties) {
    const Token name = property->name();
    if (name == Word::Id) continue;  // is not read
    const bool isOwn = element.hasAttribute(name);
    const PlotElement* style = isOwn ? nullptr : originOf(element, name);
    if (!isOwn && !style && !hasDefaults) continue;
    const Origin origin = isOwn ? Origin::own : style ? Origin::style : Origin::byDefault;
    const Variant value = isOwn                     ? element.getAttribute(name)
                          : property->isMandatory() ? property->defaultVariant()
                                                    : element.getPropertyValue(name);
    const std::string text = check::textOf(*property, value, withShortestNumbers());
    if (isMissing(*property, text)) {
      values.push_back({name.str(), "", Origin::missing, ""});
    } else {
      values.push_back({name.str(), text, origin, style ? paths.of(*style) : ""});
    }
  }
  return values;
}

std::string textIn(const PlotElement& element) {
  std::string text;
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (child->asText() && child->nodeValue()) text += child->nodeValue();
  }
  return text;
}

template <class Values, class Number>
void addRange(ShownElement& shown, const char* name, const Values& values, Number number) {
  ShownRange range{name, INFINITY, -INFINITY};
  for (const auto& value : values) {
    range.min = std::min(range.min, number(value));
    range.max = std::max(range.max, number(value));
  }
  if (range.min <= range.max) shown.ranges.push_back(range);
}

void addData(ShownElement& shown, const PlotElement& element) {
  const auto describe = [&shown](std::size_t count, const std::string& things) {
    shown.count = count;
    shown.data = std::to_string(count) + ' ' + things;
  };
  if (const P2List* list = reader::pointsInPlane(&element)) {
    describe(list->points.size(), list->colors.empty() ? "points" : "points with colours");
    addRange(shown, "x", list->points, [](const P2& p) { return p.x; });
    addRange(shown, "y", list->points, [](const P2& p) { return p.y; });
  } else if (const P3List* space = reader::pointsInSpace(&element)) {
    const std::string with = space->normals.empty() ? "" : " with normals";
    const std::string also = with.empty() ? " with" : " and";
    const char* colors = space->secondColors.empty() ? " colours" : " two colours each";
    describe(space->points.size(), "points" + with + (space->colors.empty() ? "" : also + colors));
    addRange(shown, "x", space->points, [](const P3& p) { return p.x; });
    addRange(shown, "y", space->points, [](const P3& p) { return p.y; });
    addRange(shown, "z", space->points, [](const P3& p) { return p.z; });
  } else if (const auto* colors = elementCast<ColorArray2d>(&element)) {
    describe(colors->colors.size(), "colours");
  } else if (const auto* values = elementCast<DensityArray2d>(&element)) {
    describe(values->values.size(), "numbers");
    addRange(shown, "values", values->values, [](double value) { return value; });
  }
}

ShownElement shown(const PlotElement& element, unsigned depth, const Paths& paths,
                   bool hasDefaults) {
  ShownElement result = {.name = element.tagName().str(),
                         .path = paths.of(element),
                         .depth = depth,
                         .values = valuesOf(element, paths, hasDefaults),
                         .text = textIn(element),
                         .data = {},
                         .count = 0,
                         .ranges = {}};
  addData(result, element);
  return result;
}

const char* nameOf(Origin origin) {
  switch (origin) {
    case Origin::own:
      return "own";
    case Origin::style:
      return "style";
    case Origin::byDefault:
      return "default";
    case Origin::missing:
      return "missing";
  }
  return "";
}

/// The child at a step, as in "Scene2d[1]". Null if there is none.
const PlotElement* childAt(const PlotElement& element, const std::string& step,
                           const Paths& paths) {
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (paths.stepTo(*child) == step) return PlotElement::from(child);
  }
  return nullptr;
}

std::vector<Token> stepsBelow(const PlotElement& element, const Paths& paths) {
  std::vector<Token> steps;
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (PlotElement::from(child)) steps.emplace_back(paths.stepTo(*child).c_str(), true);
  }
  return steps;
}

[[noreturn]] void refuseStep(const std::string& step, const PlotElement& parent, const Paths& paths,
                             const std::string& source) {
  throw Failure(badDocument, source + ": there is no " + step + " in " + paths.of(parent) +
                                 question(step, stepsBelow(parent, paths)));
}

/// The element at a path, where the first child of a name needs no number. Throws Failure, which
/// begins with `source`, if there is none.
const PlotElement& elementAt(const std::string& path, const PlotElement& root, const Paths& paths,
                             const std::string& source) {
  std::istringstream steps(path);
  std::string step;
  std::getline(steps, step, '/');
  if (step != paths.stepTo(root)) {
    throw Failure(badDocument, source + ": a path begins with " + paths.stepTo(root));
  }
  const PlotElement* element = &root;
  while (std::getline(steps, step, '/')) {
    if (!step.ends_with(']')) step += "[1]";
    const PlotElement* child = childAt(*element, step, paths);
    if (!child) refuseStep(step, *element, paths, source);
    element = child;
  }
  return *element;
}

/// An element that is meant, around one that is visited.
struct Start {
  unsigned level;
  unsigned margin;  ///< the level of the outermost element that is shown around it
};

}  // namespace

Outline::Outline(const PlotFile& file, const OutlineSelection& selection) {
  const PlotElement* root = file.document().documentElement();
  const Paths paths(*root);
  const PlotElement& selected =
      selection.path.empty() ? *root : elementAt(selection.path, *root, paths, file.name());
  const auto isMeant = [&](const PlotElement& element) {
    return selection.element ? element.tagName() == selection.element->name : &element == &selected;
  };
  unsigned level = 0;  // below the selected element
  std::vector<Start> starts;
  const auto enter = [&](const dom::Node& node) {
    const PlotElement* element = PlotElement::from(&node);
    if (!element) return false;
    const bool isBelow = !starts.empty() && level - starts.back().level <= selection.depth;
    if (isMeant(*element)) starts.push_back({level, isBelow ? starts.back().margin : level});
    const bool isShown = isBelow || isMeant(*element);
    if (!isShown && !selection.element) return false;
    if (isShown) {
      const unsigned depth = level - starts.back().margin;
      elements_.push_back(shown(*element, depth, paths, selection.hasDefaults));
    }
    ++level;
    return true;
  };
  const auto leave = [&](const dom::Node&) {
    --level;
    if (!starts.empty() && starts.back().level == level) starts.pop_back();
  };
  dom::walkSubtree<const dom::Node>(selected, enter, leave);
  if (elements_.empty()) {
    throw Failure(badDocument, file.name() + ": there is no " + selection.element->name.str() +
                                   " in " + paths.of(selected));
  }
}

void Outline::writeText(std::ostream& out) const {
  const std::locale before = out.imbue(withShortestNumbers());
  for (const ShownElement& element : elements_) {
    const std::string indent(std::size_t{2} * element.depth, ' ');
    out << indent << (element.depth == 0 ? element.path : element.name);
    if (!element.text.empty()) out << " \"" << element.text << '"';
    if (!element.data.empty()) out << ": " << element.data;
    for (const ShownRange& range : element.ranges) {
      out << ", " << range.name << " from " << range.min << " to " << range.max;
    }
    out << '\n';
    for (const ShownValue& value : element.values) {
      out << indent << "  @" << value.name
          << (value.origin == Origin::missing ? " is missing" : " = " + value.text);
      if (value.origin == Origin::style) out << "  (style " << value.style << ')';
      if (value.origin == Origin::byDefault) out << "  (default)";
      out << '\n';
    }
  }
  out.imbue(before);
}

void Outline::writeJson(std::ostream& out) const {
  using Json = nlohmann::ordered_json;
  for (const ShownElement& element : elements_) {
    Json json = {{"element", element.name}, {"path", element.path}};
    json["attributes"] = Json::object();
    for (const ShownValue& value : element.values) {
      Json& attribute = json["attributes"][value.name];
      if (value.origin != Origin::missing) attribute["value"] = value.text;
      attribute["from"] = nameOf(value.origin);
      if (value.origin == Origin::style) attribute["style"] = value.style;
    }
    if (!element.text.empty()) json["text"] = element.text;
    if (!element.data.empty()) json["count"] = element.count;
    for (const ShownRange& range : element.ranges) {
      json["ranges"][range.name] = {range.min, range.max};
    }
    out << json.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
  }
}

}  // namespace vantry::zrd
