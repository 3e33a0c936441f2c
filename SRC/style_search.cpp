#include "SRC/style_search.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>

#include "SRC/obj_style.h"
#include "dom/document.h"

namespace PlotDom {

namespace {

// Rises whenever something happens by which a container may get other styles around it. What was
// remembered before is not used any more.
std::atomic<std::uint64_t> currentStamp = 1;

const StyleIndex* indexOf(const Arbor::Node& node) {
  const PlotElement* element = PlotElement::from(&node);
  return element ? element->styleIndex() : nullptr;
}

bool isStyle(const Arbor::Node& node) { return node.nodeName() == Word::ObjStyle; }

}  // namespace

StyleIndex::~StyleIndex() {
  if (state_ != State::none) ++currentStamp;
}

StyleIndex::Change StyleIndex::beforeReplace(const Arbor::Node* first, unsigned count,
                                             const Arbor::Node* newChildren) {
  // A container that comes or goes takes with it what it remembers of the containers around it. In
  // reading, where it comes without children, it is enough that it forgets.
  const auto move = [](const Arbor::Node& child) {
    const StyleIndex* moved = indexOf(child);
    if (!moved) return;
    moved->stamp_ = 0;
    if (child.firstChild()) ++currentStamp;
  };
  Change change;
  for (const Arbor::Node* child = first; child && count > 0; child = child->nextSibling()) {
    move(*child);
    if (isStyle(*child)) change.isMixed = true;
    --count;
  }
  for (const Arbor::Node* child = newChildren; child; child = child->nextSibling()) {
    move(*child);
    if (!isStyle(*child)) continue;
    if (first) change.isMixed = true;
    if (!change.appended) change.appended = child;
  }
  return change;
}

void StyleIndex::afterReplace(const Change& change) noexcept {
  if (!change.isMixed && !change.appended) return;
  if (state_ == State::none && isPassed_) ++currentStamp;
  const bool isSorted = state_ != State::outdated && !change.isMixed;
  state_ = State::outdated;
  if (!isSorted) return;
  try {
    addStyles(change.appended, byType_);
    state_ = State::sorted;
  } catch (const std::bad_alloc&) {
    // The children are changed already. The next search tries again.
  }
}

void StyleIndex::typeChanged() const {
  if (state_ == State::sorted) state_ = State::outdated;
}

void StyleIndex::addStyles(const Arbor::Node* node, StylesByType& byType) {
  for (; node; node = node->nextSibling()) {
    if (!isStyle(*node)) continue;
    const auto* style = static_cast<const ObjStyle*>(node);
    byType[style->localType()].push_back(style);
  }
}

std::span<const ObjStyle* const> StyleIndex::stylesOf(const Arbor::Node& container,
                                                      Token type) const {
  if (state_ == State::outdated) {
    StylesByType byType;
    addStyles(container.firstChild(), byType);
    byType_ = std::move(byType);
    state_ = State::sorted;
  }
  const auto found = byType_.find(type);
  if (found == byType_.end()) return {};
  return found->second;
}

const PlotElement* StyleIndex::nearestStyled(const Arbor::Node* node) {
  const std::uint64_t stamp = currentStamp;
  const PlotElement* found = nullptr;
  const Arbor::Node* end = node;
  for (; end; end = end->parent()) {
    const StyleIndex* index = indexOf(*end);
    if (!index) continue;
    if (index->state_ != State::none) {
      found = PlotElement::from(end);
      break;
    }
    if (index->stamp_ == stamp) {
      found = index->outer_;
      break;
    }
  }
  bool isPassed = false;
  for (; node != end; node = node->parent()) {
    const StyleIndex* index = indexOf(*node);
    if (!index) continue;
    index->outer_ = found;
    index->stamp_ = stamp;
    index->isPassed_ |= isPassed;
    isPassed = true;
  }
  if (end) indexOf(*end)->isPassed_ |= isPassed;
  return found;
}

namespace {

// The top of the tree that `node` is in.
const Arbor::Node& rootOf(const Arbor::Node& node) {
  if (node.isInDocument()) return *node.ownerDocument();
  const Arbor::Node* root = &node;
  while (root->parent()) root = root->parent();
  return *root;
}

// Calls `use` with each container of styles around `start`, from the inside out, until it returns
// true. A document or fragment at the top is one as well, though it has no index.
template <class Use>
void forEachContainer(const Arbor::Node& start, Use use) {
  const PlotElement* container = StyleIndex::nearestStyled(start.parent());
  for (; container; container = StyleIndex::nearestStyled(container->parent())) {
    if (use(*container)) return;
  }
  const Arbor::Node& root = rootOf(start);
  if (!root.asElement()) use(root);
}

// Calls `use` with each style of that type in `container` until it returns true. The result says
// whether it did.
template <class Use>
bool forEachStyle(const Arbor::Node& container, Token type, Use use) {
  if (const StyleIndex* index = indexOf(container)) {
    return std::ranges::any_of(index->stylesOf(container, type), use);
  }
  for (const Arbor::Node* child = container.firstChild(); child; child = child->nextSibling()) {
    if (!isStyle(*child)) continue;
    const auto* style = static_cast<const ObjStyle*>(child);
    if (style->localType() == type && use(style)) return true;
  }
  return false;
}

void collect(const Arbor::Node& container, Token type, StyleChain& chain) {
  forEachStyle(container, type, [&chain](const ObjStyle* style) {
    chain.push_back(style);
    return false;
  });
}

}  // namespace

const PlotElement* findObjStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = nullptr;
  if (!key) return found;  // no style is for those who have no type
  forEachContainer(start, [&](const Arbor::Node& container) {
    return forEachStyle(container, key, [&](const ObjStyle* style) {
      if (style->hasAttribute(name)) found = style;
      return found != nullptr;
    });
  });
  return found;
}

void collectObjStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  if (!key) return;
  forEachContainer(start, [&](const Arbor::Node& container) {
    collect(container, key, chain);
    return false;
  });
}

const PlotElement* findTypedStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = findObjStyle(start, key, name);
  return found ? found : findObjStyle(start, Word::Default, name);
}

void collectTypedStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  StyleChain defaults;
  forEachContainer(start, [&](const Arbor::Node& container) {
    if (key) collect(container, key, chain);
    collect(container, Word::Default, defaults);
    return false;
  });
  chain.insert(chain.end(), defaults.begin(), defaults.end());
}

}  // namespace PlotDom
