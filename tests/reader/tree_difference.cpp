#include "tree_difference.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/framework/point_list.h"

namespace {

using namespace vantry;
using namespace vantry::plot;

std::string textOf(const PlotElement& element) {
  std::string text;
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    if (child->asText() && child->nodeValue()) text += child->nodeValue();
  }
  return text;
}

bool isBlank(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c <= ' '; });
}

bool isNeverWritten(const PlotElement& element) {
  return isOneOf(element.tagName(), Word::Matrix2d, Word::Matrix3d, Word::ColorFunc,
                 Word::TextOrientation) &&
         isBlank(textOf(*PlotElement::from(element.firstChild())));
}

std::vector<const PlotElement*> elementsOf(const PlotElement& parent) {
  std::vector<const PlotElement*> elements;
  for (const dom::Node* child = parent.firstChild(); child; child = child->nextSibling()) {
    const PlotElement* element = PlotElement::from(child);
    if (element && !isNeverWritten(*element)) elements.push_back(element);
  }
  return elements;
}

template <class T>
bool isSame(const std::vector<T>& a, const std::vector<T>& b) {
  return a.size() == b.size() &&
         (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

/// Compares lists of elements of the class `List`; elements of other classes have none.
template <class List, class... Lists>
bool hasSame(const PlotElement& a, const PlotElement& b, Lists List::*... lists) {
  const auto* listsOfA = dynamic_cast<const List*>(&a);
  const auto* listsOfB = dynamic_cast<const List*>(&b);
  return !listsOfA || (isSame(listsOfA->*lists, listsOfB->*lists) && ...);
}

bool hasSameData(const PlotElement& a, const PlotElement& b) {
  return hasSame(a, b, &P2List::points, &P2List::colors) &&
         hasSame(a, b, &P3List::points, &P3List::normals, &P3List::colors, &P3List::secondColors) &&
         hasSame(a, b, &ColorArray2d::colors) && hasSame(a, b, &DensityArray2d::values);
}

bool hasSameAttribute(const PlotElement& a, const PlotElement& b, Token name) {
  if (a.hasAttribute(name) != b.hasAttribute(name)) return false;
  return !a.hasAttribute(name) || a.getAttribute(name) == b.getAttribute(name);
}

}  // namespace

std::string differenceOf(const PlotElement& a, const PlotElement& b) {
  const std::string place = std::string("/") + a.tagName().str();
  if (a.tagName() != b.tagName()) return place + " became " + b.tagName().str();
  for (const Token name : base::wordTokens) {
    if (name != Word::Id && !hasSameAttribute(a, b, name)) return place + "@" + name.str();
  }
  if (textOf(a) != textOf(b)) return place + ": '" + textOf(a) + "' became '" + textOf(b) + "'";
  if (!hasSameData(a, b)) return place + ": data";

  const std::vector<const PlotElement*> childrenOfA = elementsOf(a);
  const std::vector<const PlotElement*> childrenOfB = elementsOf(b);
  if (childrenOfA.size() != childrenOfB.size()) {
    return place + ": " + std::to_string(childrenOfA.size()) + " elements became " +
           std::to_string(childrenOfB.size());
  }
  for (std::size_t i = 0; i < childrenOfA.size(); ++i) {
    const std::string difference = differenceOf(*childrenOfA[i], *childrenOfB[i]);
    if (!difference.empty()) return place + "[" + std::to_string(i) + "]" + difference;
  }
  return "";
}
