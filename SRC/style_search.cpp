#include "SRC/style_search.h"

#include "SRC/obj_style.h"

namespace PlotDom {

namespace {

// Calls `use` with every style of the type `key` around `start`, from the inside out, until it
// returns true.
template <class Use>
void forEachStyle(const Arbor::Node& start, Token key, Use use) {
  for (const Arbor::Node* node = start.parent(); node; node = node->parent()) {
    const PlotElement* container = PlotElement::from(node);
    const ObjStyles* styles = container ? container->objStyles() : nullptr;
    if (!styles) continue;
    for (const ObjStyle* style : *styles) {
      if (style->localType() == key && use(*style)) return;
    }
  }
}

}  // namespace

const ObjStyle* asObjStyle(const Arbor::Node& node) { return static_cast<const ObjStyle*>(&node); }

const PlotElement* findObjStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = nullptr;
  forEachStyle(start, key, [&](const ObjStyle& style) {
    if (!style.hasAttribute(name)) return false;
    found = &style;
    return true;
  });
  return found;
}

void collectObjStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  forEachStyle(start, key, [&](const ObjStyle& style) {
    chain.push_back(&style);
    return false;
  });
}

const PlotElement* findTypedStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = findObjStyle(start, key, name);
  return found ? found : findObjStyle(start, Word::Default, name);
}

void collectTypedStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  collectObjStyles(start, key, chain);
  collectObjStyles(start, Word::Default, chain);
}

}  // namespace PlotDom
