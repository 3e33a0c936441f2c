#include "vantry/plot/styles/style_path.h"

#include <algorithm>
#include <utility>

#include "vantry/base/word_table.h"
#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/styles/style_index.h"

namespace vantry::plot {

namespace {

/// Keeps a style only if it sets an attribute that no earlier one sets.
class StyleSieve {
 public:
  void add(std::span<const ObjStyle* const> styles) {
    for (const ObjStyle* style : styles) {
      if (hasNewAttribute(*style)) passed_.push_back(style);
    }
  }

  StylePath::Styles& passed() { return passed_; }

 private:
  bool hasNewAttribute(const ObjStyle& style) {
    bool isNew = false;
    for (const auto& [name, value] : style.attributes()) {
      // The table has one place for all names that are no words.
      if (std::exchange(seen_[name], true) && base::wordOf(name) != WordId::none) continue;
      isNew = true;
    }
    return isNew;
  }

  StylePath::Styles passed_;
  base::WordTable<bool> seen_;
};

}  // namespace

std::span<const ObjStyle* const> StylePath::stylesIn(const PlotElement& container, Token type) {
  const std::size_t level = enter(container);
  const auto found = scopesByType_.find(type);
  if (found == scopesByType_.end()) return {};
  const Scopes& scopes = found->second;
  const auto behind = std::ranges::upper_bound(scopes, level, {}, &Scope::level);
  if (behind == scopes.begin()) return {};
  return std::prev(behind)->styles;
}

void StylePath::append(std::size_t level, const ObjStyle& style) {
  cutAt(level + 1);  // what holds further in was made of the styles that change here
  const Token type = style.localType();
  Scopes& scopes = scopesByType_[type];
  if (scopes.empty() || scopes.back().level != level) {
    levels_[level].types.push_back(type);
    const ObjStyle* const own[] = {&style};
    scopes.push_back(makeScope(level, own, scopes));
    return;
  }
  Scope& last = scopes.back();
  Styles own(last.styles.begin(), last.styles.begin() + static_cast<std::ptrdiff_t>(last.ownCount));
  own.push_back(&style);
  last = makeScope(level, own, std::span(scopes).first(scopes.size() - 1));
}

void StylePath::cutAt(std::size_t level) noexcept {
  while (levels_.size() > level) {
    const Level& last = levels_.back();
    for (const Token type : last.types) {
      const auto found = scopesByType_.find(type);
      Scopes& scopes = found->second;
      if (!scopes.empty() && scopes.back().level == levels_.size() - 1) scopes.pop_back();
      if (scopes.empty()) scopesByType_.erase(found);
    }
    last.index->path_ = nullptr;
    levels_.pop_back();
  }
}

// Puts the container on the path if it is not there. Returns its level.
std::size_t StylePath::enter(const PlotElement& container) {
  std::vector<const PlotElement*> missing;
  const StyleIndex* index = container.styleIndex();
  for (const PlotElement* next = &container; index && index->path_ != this;) {
    missing.push_back(next);
    next = PlotElement::from(next->parent());
    index = next ? next->styleIndex() : nullptr;
  }
  if (missing.empty()) return index->level_;
  cutAt(index ? index->level_ + 1 : 0);
  for (; !missing.empty(); missing.pop_back()) push(*missing.back());
  return levels_.size() - 1;
}

void StylePath::push(const PlotElement& container) {
  const StyleIndex* index = container.styleIndex();
  const StyleIndex::StylesByType& stylesByType = index->stylesByType(container);
  const std::size_t level = levels_.size();
  index->leavePath();  // of another document, should it have come into this tree unchecked
  levels_.push_back({&container, index, {}});
  index->path_ = this;
  index->level_ = level;
  try {
    for (const auto& [type, styles] : stylesByType) {
      Scopes& scopes = scopesByType_[type];
      levels_.back().types.push_back(type);
      scopes.push_back(makeScope(level, styles, scopes));
    }
  } catch (...) {
    cutAt(level);
    throw;
  }
}

StylePath::Scope StylePath::makeScope(std::size_t level, std::span<const ObjStyle* const> own,
                                      std::span<const Scope> outer) {
  StyleSieve sieve;
  sieve.add(own);
  const std::size_t ownCount = sieve.passed().size();
  if (!outer.empty()) sieve.add(outer.back().styles);
  return {level, std::move(sieve.passed()), ownCount};
}

}  // namespace vantry::plot
