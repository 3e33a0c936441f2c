#include "SRC/style_search.h"

#include <atomic>
#include <utility>

#include "SRC/obj_style.h"

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
  if (styles_) ++currentStamp;
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

void StyleIndex::afterReplace(const Change& change) {
  if (!change.isMixed && !change.appended) return;
  if (!styles_) styles_ = std::make_unique<Styles>();
  if (change.isMixed) styles_->isOutdated = true;
  if (!styles_->isOutdated) addStyles(change.appended, styles_->byType);
  ++currentStamp;
}

void StyleIndex::typeChanged() const {
  if (styles_) styles_->isOutdated = true;
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
  if (!styles_) return {};
  if (styles_->isOutdated) {
    StylesByType byType;
    addStyles(container.firstChild(), byType);
    styles_->byType = std::move(byType);
    styles_->isOutdated = false;
  }
  const auto found = styles_->byType.find(type);
  if (found == styles_->byType.end()) return {};
  return found->second;
}

const PlotElement* StyleIndex::nearestStyled(const Arbor::Node* node) {
  const std::uint64_t stamp = currentStamp;
  const PlotElement* found = nullptr;
  const Arbor::Node* end = node;
  for (; end; end = end->parent()) {
    const StyleIndex* index = indexOf(*end);
    if (!index) continue;
    if (index->styles_) {
      found = PlotElement::from(end);
      break;
    }
    if (index->stamp_ == stamp) {
      found = index->outer_;
      break;
    }
  }
  for (; node != end; node = node->parent()) {
    if (const StyleIndex* index = indexOf(*node)) {
      index->outer_ = found;
      index->stamp_ = stamp;
    }
  }
  return found;
}

namespace {

// Calls `use` with each container of styles around `start`, from the inside out, until it returns
// true.
template <class Use>
void forEachContainer(const Arbor::Node& start, Use use) {
  const PlotElement* container = StyleIndex::nearestStyled(start.parent());
  while (container && !use(*container)) {
    container = StyleIndex::nearestStyled(container->parent());
  }
}

std::span<const ObjStyle* const> stylesIn(const PlotElement& container, Token type) {
  return container.styleIndex()->stylesOf(container, type);
}

void append(std::span<const ObjStyle* const> styles, StyleChain& chain) {
  chain.insert(chain.end(), styles.begin(), styles.end());
}

}  // namespace

const PlotElement* findObjStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = nullptr;
  if (!key) return found;  // no style is for those who have no type
  forEachContainer(start, [&](const PlotElement& container) {
    for (const ObjStyle* style : stylesIn(container, key)) {
      if (!style->hasAttribute(name)) continue;
      found = style;
      break;
    }
    return found != nullptr;
  });
  return found;
}

void collectObjStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  if (!key) return;
  forEachContainer(start, [&](const PlotElement& container) {
    append(stylesIn(container, key), chain);
    return false;
  });
}

const PlotElement* findTypedStyle(const Arbor::Node& start, Token key, Token name) {
  const PlotElement* found = findObjStyle(start, key, name);
  return found ? found : findObjStyle(start, Word::Default, name);
}

void collectTypedStyles(const Arbor::Node& start, Token key, StyleChain& chain) {
  StyleChain defaults;
  forEachContainer(start, [&](const PlotElement& container) {
    if (key) append(stylesIn(container, key), chain);
    append(stylesIn(container, Word::Default), defaults);
    return false;
  });
  chain.insert(chain.end(), defaults.begin(), defaults.end());
}

}  // namespace PlotDom
