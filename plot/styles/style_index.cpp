#include "vantry/plot/styles/style_index.h"

#include <new>

#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/styles/style_path.h"

namespace vantry::plot {

namespace {

void takeOffPath(const dom::Node& node) {
  const PlotElement* element = PlotElement::from(&node);
  const StyleIndex* index = element ? element->styleIndex() : nullptr;
  if (index) index->leavePath();
}

}  // namespace

const StyleIndex::StylesByType& StyleIndex::stylesByType(const PlotElement& container) const {
  if (isOutdated_) {
    byType_.clear();
    addStyles(container.firstChild());
    isOutdated_ = false;
  }
  return byType_;
}

StyleIndex::Change StyleIndex::beforeReplace(const dom::Node* first, unsigned count,
                                             const dom::Node* newChildren) {
  Change change;
  for (const dom::Node* child = first; child && count > 0; child = child->nextSibling()) {
    takeOffPath(*child);
    if (asObjStyle(*child)) change.isInside = true;
    --count;
  }
  for (const dom::Node* child = newChildren; child; child = child->nextSibling()) {
    takeOffPath(*child);
    if (!asObjStyle(*child)) continue;
    if (first) change.isInside = true;
    if (!change.appended) change.appended = child;
  }
  return change;
}

void StyleIndex::afterReplace(const Change& change) noexcept {
  if (!change.isInside && !change.appended) return;
  if (change.isInside || isOutdated_) {
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

void StyleIndex::typeChanged() const noexcept {
  if (byType_.empty()) return;  // none of the children counts as a style
  isOutdated_ = true;
  leavePath();
}

void StyleIndex::addStyles(const dom::Node* node) const {
  for (; node; node = node->nextSibling()) {
    const ObjStyle* style = asObjStyle(*node);
    if (!style) continue;
    byType_[style->localType()].push_back(style);
    if (path_) path_->append(level_, *style);
  }
}

void StyleIndex::leavePath() const noexcept {
  if (path_) path_->cutAt(level_);
}

}  // namespace vantry::plot
