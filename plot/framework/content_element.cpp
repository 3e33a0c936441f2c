#include "vantry/plot/framework/content_element.h"

#include <algorithm>

namespace vantry::plot {

bool ContentPlotElement::isContentChild(const dom::Node& node) const {
  return isContentName(node.nodeName());
}

bool ContentPlotElement::refuseContent(const dom::Node& child) const {
  return refuse(RefusalKind::foreignChild, child.nodeName());
}

bool ContentPlotElement::canReplaceChildren(dom::Node*, unsigned,
                                            dom::NewChildren newChildren) const {
  for (const dom::Node& child : newChildren) {
    if (!isContentChild(child)) return refuseContent(child);
  }
  return true;
}

std::uint32_t OptionedPlotElement::maskWithout(const dom::Node* first, unsigned count) const {
  std::uint32_t mask = optionMask_;
  for (; first && count > 0; first = first->nextSibling(), --count) {
    mask &= ~optionBit(first->nodeName());
  }
  return mask;
}

bool OptionedPlotElement::canReplaceChildren(dom::Node* first, unsigned count,
                                             dom::NewChildren newChildren) const {
  std::uint32_t mask = maskWithout(first, count);
  if (newChildren.isMovedWithin(*this)) mask &= ~optionBit(newChildren.first()->nodeName());
  for (const dom::Node& child : newChildren) {
    const std::uint32_t bit = optionBit(child.nodeName());
    if (bit == 0) {
      if (!isContentChild(child)) return refuseContent(child);
      continue;
    }
    if (mask & bit) return refuse(RefusalKind::optionTwice, child.nodeName());
    mask |= bit;
  }
  if (mask & ~allowedOptions()) return refuse(RefusalKind::illegalOption);
  if (requiredOptions() & ~mask) return refuse(RefusalKind::optionMissing);
  return true;
}

void OptionedPlotElement::doReplaceChildren(dom::Node* first, unsigned count,
                                            dom::Node* newChildren) {
  std::vector<dom::Node*> added;
  for (dom::Node* child = newChildren; child; child = child->nextSibling()) {
    if (optionBit(child->nodeName()) != 0) added.push_back(child);
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
    optionMask_ |= optionBit(child->nodeName());
    optionChildren_->push_back(child);
  }
  ContentPlotElement::doReplaceChildren(first, count, newChildren);
}

dom::Node* OptionedPlotElement::firstChildByName(Token name) const {
  const std::uint32_t bit = optionBit(name);
  if (bit == 0) return ContentPlotElement::firstChildByName(name);
  if (!optionChildren_) return nullptr;
  const auto found = std::find_if(optionChildren_->begin(), optionChildren_->end(),
                                  [name](dom::Node* child) { return child->nodeName() == name; });
  return found != optionChildren_->end() ? *found : nullptr;
}

}  // namespace vantry::plot
