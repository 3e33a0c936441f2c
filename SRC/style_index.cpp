#include "SRC/style_index.h"

#include <new>

#include "SRC/obj_style.h"
#include "SRC/style_path.h"

namespace PlotDom {

namespace {

bool isStyle(const Arbor::Node& node) { return node.nodeName() == Word::ObjStyle; }

const StyleIndex* indexOf(const Arbor::Node& node) {
  const PlotElement* element = PlotElement::from(&node);
  return element ? element->styleIndex() : nullptr;
}

}  // namespace

const PlotElement* StyleIndex::containerAround(const Arbor::Node& node) {
  const Arbor::Node* ancestor = node.parent();
  while (ancestor && !indexOf(*ancestor)) ancestor = ancestor->parent();
  return PlotElement::from(ancestor);
}

const StyleIndex::StylesByType& StyleIndex::stylesByType(const PlotElement& container) const {
  if (isOutdated_) {
    byType_.clear();
    addStyles(container.firstChild());
    isOutdated_ = false;
  }
  return byType_;
}

StyleIndex::Change StyleIndex::beforeReplace(const Arbor::Node* first, unsigned count,
                                             const Arbor::Node* newChildren) {
  const auto leavePath = [](const Arbor::Node& child) {
    if (const StyleIndex* index = indexOf(child)) index->leavePath();
  };
  Change change;
  for (const Arbor::Node* child = first; child && count > 0; child = child->nextSibling()) {
    leavePath(*child);
    if (isStyle(*child)) change.isMixed = true;
    --count;
  }
  for (const Arbor::Node* child = newChildren; child; child = child->nextSibling()) {
    leavePath(*child);
    if (!isStyle(*child)) continue;
    if (first) change.isMixed = true;
    if (!change.appended) change.appended = child;
  }
  return change;
}

void StyleIndex::afterReplace(const Change& change) noexcept {
  if (!change.isMixed && !change.appended) return;
  if (change.isMixed || isOutdated_) {
    isOutdated_ = true;
    leavePath();
    return;
  }
  try {
    addStyles(change.appended);
  } catch (const std::bad_alloc&) {
    // The children are changed already. The next search tries again.
    isOutdated_ = true;
    leavePath();
  }
}

void StyleIndex::typeChanged() const {
  if (byType_.empty()) return;  // none of the children counts as a style
  isOutdated_ = true;
  leavePath();
}

void StyleIndex::addStyles(const Arbor::Node* node) const {
  for (; node; node = node->nextSibling()) {
    if (!isStyle(*node)) continue;
    const auto* style = static_cast<const ObjStyle*>(node);
    byType_[style->localType()].push_back(style);
    if (path_) path_->append(level_, *style);
  }
}

void StyleIndex::leavePath() const {
  if (path_) path_->cutAt(level_);
}

}  // namespace PlotDom
