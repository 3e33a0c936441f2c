#include "random_drawing.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "vantry/plot/element_factory.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/framework/point_list.h"
#include "vantry/plot/values/variants.h"

using namespace vantry;
using namespace vantry::plot;
using vantry::base::Ref;

namespace {

/// The names of all properties of the element's class.
const std::vector<Token>& propertyNames(const PlotElement& element) {
  static std::map<Token, std::vector<Token>> namesOfClass;
  const auto [known, isNew] = namesOfClass.try_emplace(element.tagName());
  if (isNew) {
    std::copy_if(base::wordTokens.begin(), base::wordTokens.end(),
                 std::back_inserter(known->second),
                 [&](Token name) { return element.findProperty(name) != nullptr; });
  }
  return known->second;
}

}  // namespace

RandomDrawing::RandomDrawing(unsigned seed) : random_(seed) {
  const Ref<PlotElement> canvas = document_->createElement(Word::Canvas);
  setAttributes(*canvas);
  addChildren(*canvas);
  document_->appendChild(canvas.get());
}

double RandomDrawing::number() {
  static constexpr double special[] = {0, -0.0, 1, 1e-300, -1e300, 1.0 / 3, 123456789.125};
  if (oneIn(2)) return oneOf(special);
  return std::uniform_real_distribution(-100.0, 100.0)(random_);
}

RGBA RandomDrawing::color() {
  return {below(256), below(256), below(256), oneIn(2) ? 255 : below(256)};
}

std::string RandomDrawing::text() {
  static constexpr const char* pieces[] = {"x",  "12", "<", ">", "&", "\"", "'",    "]]>", "&lt;",
                                           "<!", "\\", "ä", "π", "ℝ", "😀",  " sin", "\n-", "\t-"};
  std::string text;
  while (!oneIn(5)) text += oneOf(pieces);
  return text + '.';
}

std::string RandomDrawing::line() {
  std::string line = text();
  const auto isControl = [](unsigned char c) { return c < ' '; };
  std::replace_if(line.begin(), line.end(), isControl, ' ');
  return line;
}

Token RandomDrawing::word() { return base::tokenById(1 + below(base::wordCount)); }

Variant RandomDrawing::value(const Variant& like) {
  static constexpr int integers[] = {-1, 0, 1, 2, 3, 4};
  if (like.as<base::BoolVariant>()) return base::BoolVariant(oneIn(2));
  if (like.as<base::LongVariant>()) return base::LongVariant(oneOf(integers));
  if (like.as<base::TokenVariant>()) return base::TokenVariant(word());
  if (like.as<base::FixedStringVariant>()) return base::FixedStringVariant(line().c_str());
  if (like.as<RGBAVariant>()) return RGBAVariant(color());
  if (like.as<P2Variant>()) return P2Variant({number(), number()});
  if (like.as<P3Variant>()) return P3Variant({number(), number(), number()});
  if (like.as<FontStyleVariant>()) {
    static constexpr const char* families[] = {"", "Times", "Käse & \"Brot\"", "two words"};
    static constexpr Token alignments[] = {Word::Left, Word::Center, Word::Right};
    return FontStyleVariant(
        {oneOf(families), 1 + below(40), oneIn(2), color(), oneIn(2), oneOf(alignments)});
  }
  return base::DoubleVariant(oneIn(8) ? plot::nan : number());
}

void RandomDrawing::setAttributes(PlotElement& element) {
  for (const Token name : propertyNames(element)) {
    const Property* property = element.findProperty(name);
    if (!property->isMandatory() && !oneIn(4)) continue;
    for (bool isSet = false; !isSet;) {
      const Variant chosen = value(property->defaultVariant());
      isSet = element.canSetAttribute(name, chosen);
      if (isSet) element.setAttribute(name, chosen);
    }
  }
}

void RandomDrawing::addText(PlotElement& element) {
  for (int i = below(3); i > 0; --i) {
    const Ref<dom::Node> node = document_->createTextNode(text().c_str());
    if (element.canReplaceChildren(nullptr, 0, node.get())) element.appendChild(node.get());
  }
}

void RandomDrawing::addData(PlotElement& element) {
  const auto colors = [this](std::size_t count) {
    std::vector<RGBA> list(count);
    std::generate(list.begin(), list.end(), [this] { return color(); });
    return list;
  };
  const auto cells = [](const auto& array) {
    return static_cast<std::size_t>(array.xMesh() * array.yMesh());
  };
  const auto count = static_cast<std::size_t>(below(5));
  if (auto* plane = dynamic_cast<P2List*>(&element)) {
    for (std::size_t i = 0; i < count; ++i) plane->points.push_back({number(), number()});
    if (oneIn(2)) plane->colors = colors(count);
  } else if (auto* space = dynamic_cast<P3List*>(&element)) {
    const bool hasNormals = oneIn(2);
    for (std::size_t i = 0; i < count; ++i) {
      space->points.push_back({number(), number(), number()});
      if (hasNormals) space->normals.push_back({number(), number(), number()});
    }
    const int colorLists = below(3);
    if (colorLists > 0) space->colors = colors(count);
    if (colorLists > 1) space->secondColors = colors(count);
  } else if (auto* raster = dynamic_cast<ColorArray2d*>(&element)) {
    raster->colors = colors(cells(*raster) + count);
  } else if (auto* densities = dynamic_cast<DensityArray2d*>(&element)) {
    densities->values.resize(cells(*densities) + count);
    std::generate(densities->values.begin(), densities->values.end(), [this] { return number(); });
  }
}

void RandomDrawing::addChildren(PlotElement& element) {
  addText(element);
  addData(element);
  if (dynamic_cast<PrimitiveBase*>(&element)) return;
  for (dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (PlotElement* made = PlotElement::from(child)) addText(*made);
  }
  std::vector<Token> names = elementNames();
  std::shuffle(names.begin(), names.end(), random_);
  for (const Token name : names) {
    while (elementsLeft_ > 0 && oneIn(2)) {
      const Ref<PlotElement> child = document_->createElement(name);
      setAttributes(*child);
      if (!element.canReplaceChildren(nullptr, 0, child.get())) break;
      --elementsLeft_;
      element.appendChild(child.get());
      addChildren(*child);
    }
  }
}
