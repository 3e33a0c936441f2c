#include "vantry/plot/styles/style_search.h"

#include <algorithm>

#include "vantry/plot/framework/element_document.h"
#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/styles/style_index.h"
#include "vantry/plot/styles/style_path.h"

namespace vantry::plot {

namespace {

// Whether `use` gives true for a style of that type in `node` itself.
template <class Use>
bool anyStyleIn(const dom::Node& node, Token type, Use use) {
  const PlotElement* element = PlotElement::from(&node);
  if (const StyleIndex* index = element ? element->styleIndex() : nullptr) {
    const auto& stylesByType = index->stylesByType(*element);
    const auto styles = stylesByType.find(type);
    return styles != stylesByType.end() && std::ranges::any_of(styles->second, use);
  }
  for (const dom::Node* child = node.firstChild(); child; child = child->nextSibling()) {
    const ObjStyle* style = asObjStyle(*child);
    if (style && style->localType() == type && use(style)) return true;
  }
  return false;
}

// Whether the element is all that its document holds, so that there are no styles around it.
bool isAllOfItsDocument(const dom::Node& element) {
  return element.parent() == element.ownerDocument() && !element.previousSibling() &&
         !element.nextSibling();
}

// Calls `use` with each style of that type around `start`, until it returns true.
template <class Use>
void forEachStyle(const dom::Node& start, Token type, Use use) {
  if (!type) return;  // no style is for those who have no type
  const dom::Node* around = start.parent();
  while (around && !anyStyleIn(*around, type, use)) around = around->parent();
}

// The same, without those that nearer ones hide. Where containers stand in containers, what is
// known of all of them is used.
template <class Use>
void forEachEffectiveStyle(const dom::Node& start, Token type, Use use) {
  if (!type) return;
  const dom::Node* around = start.parent();
  while (around) {
    const PlotElement* element = PlotElement::from(around);
    if (element && element->styleIndex() && element->plotDocument()) {
      StylePath& path = element->plotDocument()->stylePath();
      if (std::ranges::any_of(path.stylesIn(*element, type), use)) return;
      if (isAllOfItsDocument(path.outermost())) return;
      around = path.outermost().parent();
    } else {
      if (anyStyleIn(*around, type, use)) return;
      around = around->parent();
    }
  }
}

// What takes each style that it is called with into the chain.
auto addTo(StyleChain& chain) {
  return [&chain](const ObjStyle* style) {
    chain.push_back(style);
    return false;
  };
}

}  // namespace

const PlotElement* findObjStyle(const dom::Node& start, Token key, Token name) {
  const PlotElement* found = nullptr;
  forEachEffectiveStyle(start, key, [&](const ObjStyle* style) {
    if (style->hasAttribute(name)) found = style;
    return found != nullptr;
  });
  return found;
}

void collectObjStyles(const dom::Node& start, Token key, StyleChain& chain) {
  forEachStyle(start, key, addTo(chain));
}

const PlotElement* findTypedStyle(const dom::Node& start, Token key, Token name) {
  const PlotElement* found = findObjStyle(start, key, name);
  return found ? found : findObjStyle(start, Word::Default, name);
}

void collectTypedStyles(const dom::Node& start, Token key, StyleChain& chain) {
  collectObjStyles(start, key, chain);
  collectObjStyles(start, Word::Default, chain);
}

void collectEffectiveTypedStyles(const dom::Node& start, Token key, StyleChain& chain) {
  for (const Token type : {key, Word::Default}) {
    forEachEffectiveStyle(start, type, addTo(chain));
  }
}

}  // namespace vantry::plot
