#include "vantry/plot/framework/element_with_children.h"

#include <algorithm>

namespace vantry::plot {

bool isContentOf(const PlotElement& parent, dom::NewChildren children) {
  const ChildRules& rules = childRulesOf(parent);
  for (const dom::Node& child : children) {
    if (!rules.isContent(child.nodeName())) return false;
  }
  return true;
}

bool ElementWithChildren::isContentChild(const dom::Node& node) const {
  return childRulesOf(*this).isContent(node.nodeName());
}

bool ElementWithChildren::refuseContent(const dom::Node& child) const {
  return refuse(RefusalKind::foreignChild, child.nodeName());
}

bool ElementWithChildren::canReplaceChildren(dom::Node*, unsigned,
                                             dom::NewChildren newChildren) const {
  for (const dom::Node& child : newChildren) {
    if (!isContentChild(child)) return refuseContent(child);
  }
  return true;
}

std::uint32_t ElementWithOptions::maskWithout(const dom::Node* first, unsigned count) const {
  std::uint32_t mask = optionMask_;
  for (; first && count > 0; first = first->nextSibling(), --count) {
    mask &= ~childRulesOf(*this).optionBit(first->nodeName());
  }
  return mask;
}

bool ElementWithOptions::canReplaceChildren(dom::Node* first, unsigned count,
                                            dom::NewChildren newChildren) const {
  const ChildRules& rules = childRulesOf(*this);
  std::uint32_t mask = maskWithout(first, count);
  if (newChildren.isMovedWithin(*this)) mask &= ~rules.optionBit(newChildren.first()->nodeName());
  for (const dom::Node& child : newChildren) {
    const std::uint32_t bit = rules.optionBit(child.nodeName());
    if (bit == 0) {
      if (!isContentChild(child)) return refuseContent(child);
      continue;
    }
    if (mask & bit) return refuse(RefusalKind::optionTwice, child.nodeName());
    mask |= bit;
  }
  if (const std::uint32_t illegal = mask & ~rules.allowedOptions()) {
    return refuse(RefusalKind::illegalOption, rules.optionIn(illegal));
  }
  if (const std::uint32_t missing = rules.requiredOptions() & ~mask) {
    return refuse(RefusalKind::optionMissing, rules.optionIn(missing));
  }
  return true;
}

void ElementWithOptions::doReplaceChildren(dom::Node* first, unsigned count,
                                           dom::Node* newChildren) {
  const ChildRules& rules = childRulesOf(*this);
  std::vector<dom::Node*> added;
  for (dom::Node* child = newChildren; child; child = child->nextSibling()) {
    if (rules.optionBit(child->nodeName()) != 0) added.push_back(child);
  }
  if (!added.empty()) {
    if (!optionChildren_) optionChildren_ = std::make_unique<std::vector<dom::Node*>>();
    optionChildren_->reserve(optionChildren_->size() + added.size());
  }

  // Nothing below fails.
  const dom::Node* removed = optionChildren_ ? first : nullptr;
  for (unsigned i = 0; removed && i < count; ++i, removed = removed->nextSibling()) {
    std::erase(*optionChildren_, removed);
  }
  optionMask_ = maskWithout(first, count);
  for (dom::Node* child : added) {
    optionMask_ |= rules.optionBit(child->nodeName());
    optionChildren_->push_back(child);
  }
  ElementWithChildren::doReplaceChildren(first, count, newChildren);
}

dom::Node* ElementWithOptions::firstChildByName(Token name) const {
  if (childRulesOf(*this).optionBit(name) == 0) return ElementWithChildren::firstChildByName(name);
  if (!optionChildren_) return nullptr;
  const auto found = std::find_if(optionChildren_->begin(), optionChildren_->end(),
                                  [name](dom::Node* child) { return child->nodeName() == name; });
  return found != optionChildren_->end() ? *found : nullptr;
}

bool ElementWithOptions::hasOption(Token name) const {
  return (optionMask_ & childRulesOf(*this).optionBit(name)) != 0;
}

}  // namespace vantry::plot
