#include "SRC/style_search.h"

#include <algorithm>
#include <span>

#include "SRC/obj_style.h"
#include "SRC/plot_document.h"
#include "SRC/style_index.h"
#include "SRC/style_path.h"

namespace PlotDom {

namespace {

// The document or the fragment that holds the tree of `node`. Null for a tree that is in neither.
const Arbor::Node* holderOf(const Arbor::Node& node) {
  if (node.isInDocument()) return node.ownerDocument();
  const Arbor::Node* root = &node;
  while (root->parent()) root = root->parent();
  return root->asElement() ? nullptr : root;
}

// Calls `use` with each style of that type that stands in a document or fragment itself, until it
// returns true.
template <class Use>
void forEachOutermostStyle(const Arbor::Node& start, Token type, Use use) {
  const Arbor::Node* holder = holderOf(start);
  if (!holder || holder == &start) return;
  for (const Arbor::Node* child = holder->firstChild(); child; child = child->nextSibling()) {
    if (child->nodeName() != ObjStyle::tag) continue;
    const auto* style = static_cast<const ObjStyle*>(child);
    if (style->localType() == type && use(style)) return;
  }
}

// Calls `use` with each style of that type around `start`, until it returns true.
template <class Use>
void forEachStyle(const Arbor::Node& start, Token type, Use use) {
  if (!type) return;  // no style is for those who have no type
  const PlotElement* container = StyleIndex::containerAround(start);
  for (; container; container = StyleIndex::containerAround(*container)) {
    const auto& stylesByType = container->styleIndex()->stylesByType(*container);
    const auto styles = stylesByType.find(type);
    if (styles != stylesByType.end() && std::ranges::any_of(styles->second, use)) return;
  }
  forEachOutermostStyle(start, type, use);
}

// The same, without those that nearer ones hide.
template <class Use>
void forEachEffectiveStyle(const Arbor::Node& start, Token type, Use use) {
  const PlotElement* container = StyleIndex::containerAround(start);
  if (!type || !container || !container->plotDocument()) return forEachStyle(start, type, use);
  StylePath& path = container->plotDocument()->stylePath();
  if (std::ranges::any_of(path.stylesIn(*container, type), use)) return;
  forEachOutermostStyle(start, type, use);
}

// What takes each style that it is called with into the chain.
auto addTo(StyleChain& chain) {
  return [&chain](const ObjStyle* style) {
    chain.push_back(style);
    return false;
  };
}

}  // namespace

const PlotElement* findObjStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = nullptr;
  forEachEffectiveStyle(start, key, [&](const ObjStyle* style) {
    if (style->hasAttribute(name)) found = style;
    return found != nullptr;
  });
  return found;
}

void collectObjStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  forEachStyle(start, key, addTo(chain));
}

const PlotElement* findTypedStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = findObjStyle(start, key, name);
  return found ? found : findObjStyle(start, Word::Default, name);
}

void collectTypedStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  collectObjStyles(start, key, chain);
  collectObjStyles(start, Word::Default, chain);
}

void collectEffectiveStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  for (const Token type : {key, Word::Default}) {
    forEachEffectiveStyle(start, type, addTo(chain));
  }
}

}  // namespace PlotDom
