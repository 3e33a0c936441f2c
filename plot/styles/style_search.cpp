#include "vantry/plot/styles/style_search.h"

#include <algorithm>

#include "vantry/plot/framework/element_document.h"
#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/styles/style_index.h"
#include "vantry/plot/styles/style_path.h"

namespace vantry::plot {

namespace {

// Whether `use` returns true for a style of that type in `node` itself.
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

// Calls `use` with each style of that type around `start`, until it returns true. Returns whether
// it did.
template <class Use>
bool forEachStyle(const dom::Node& start, Token type, Use use) {
  const dom::Node* around = start.parent();
  while (around && !anyStyleIn(*around, type, use)) around = around->parent();
  return around != nullptr;
}

// The same, without those that nearer ones hide. Where a container is in another one, what is known
// of all of them is used.
template <class Use>
bool forEachEffectiveStyle(const dom::Node& start, Token type, Use use) {
  const dom::Node* around = start.parent();
  while (around) {
    const PlotElement* element = PlotElement::from(around);
    if (element && element->styleIndex() && element->plotDocument()) {
      StylePath& path = element->plotDocument()->stylePath();
      if (std::ranges::any_of(path.stylesIn(*element, type), use)) return true;
      if (isAllOfItsDocument(path.outermost())) return false;
      around = path.outermost().parent();
    } else {
      if (anyStyleIn(*around, type, use)) return true;
      around = around->parent();
    }
  }
  return false;
}

}  // namespace

bool visitObjStyles(const dom::Node& start, Token type, StyleVisitor& visitor) {
  if (!type) return false;  // no style is for those who have no type
  const auto use = [&visitor](const ObjStyle* style) { return visitor.visit(*style); };
  return visitor.wanted() == Styles::all ? forEachStyle(start, type, use)
                                         : forEachEffectiveStyle(start, type, use);
}

bool visitTypedStyles(const dom::Node& start, Token type, StyleVisitor& visitor) {
  return visitObjStyles(start, type, visitor) || visitObjStyles(start, Word::Default, visitor);
}

}  // namespace vantry::plot
