#include "SRC/style_path.h"

#include <algorithm>
#include <utility>

#include "SRC/obj_style.h"
#include "SRC/style_index.h"

namespace PlotDom {

namespace {

// Adds the style unless those before it have all of its attributes.
void addUnlessHidden(StylePath::Styles& styles, const ObjStyle* style) {
  const bool isHidden = std::ranges::all_of(style->attributes(), [&styles](const auto& attribute) {
    return std::ranges::any_of(
        styles, [&](const ObjStyle* before) { return before->hasAttribute(attribute.first); });
  });
  if (!isHidden) styles.push_back(style);
}

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
  cutAt(level + 1);
  const Token type = style.localType();
  Scopes& scopes = scopesByType_[type];
  const bool isFirst = scopes.empty() || scopes.back().level != level;
  if (isFirst) {
    levels_[level].types.push_back(type);
    scopes.push_back(makeScope(level, {&style}, scopes));
    return;
  }
  Scope& scope = scopes.back();
  const auto ownEnd = scope.styles.begin() + static_cast<std::ptrdiff_t>(scope.ownCount);
  Styles own(scope.styles.begin(), ownEnd);
  addUnlessHidden(own, &style);
  if (own.size() == scope.ownCount) return;
  scope = makeScope(level, std::move(own), std::span(scopes).first(scopes.size() - 1));
}

void StylePath::cutAt(std::size_t level) noexcept {
  while (levels_.size() > level) {
    const Level& last = levels_.back();
    for (const Token type : last.types) {
      Scopes& scopes = scopesByType_.find(type)->second;
      if (!scopes.empty() && scopes.back().level == levels_.size() - 1) scopes.pop_back();
    }
    last.index->path_ = nullptr;
    levels_.pop_back();
  }
}

// Sees to it that the container is on the path, and tells its level.
std::size_t StylePath::enter(const PlotElement& container) {
  std::vector<const PlotElement*> missing;
  const PlotElement* known = &container;
  while (known && !known->styleIndex()->path_) {
    missing.push_back(known);
    known = StyleIndex::containerAround(*known);
  }
  if (missing.empty()) return container.styleIndex()->level_;
  cutAt(known ? known->styleIndex()->level_ + 1 : 0);
  for (; !missing.empty(); missing.pop_back()) push(*missing.back());
  return levels_.size() - 1;
}

void StylePath::push(const PlotElement& container) {
  const StyleIndex* index = container.styleIndex();
  const StyleIndex::StylesByType& stylesByType = index->stylesByType(container);
  const std::size_t level = levels_.size();
  levels_.push_back({index, {}});
  index->path_ = this;
  index->level_ = level;
  try {
    for (const auto& [type, styles] : stylesByType) {
      Styles own;
      for (const ObjStyle* style : styles) addUnlessHidden(own, style);
      Scopes& scopes = scopesByType_[type];
      levels_.back().types.push_back(type);
      scopes.push_back(makeScope(level, std::move(own), scopes));
    }
  } catch (...) {
    cutAt(level);
    throw;
  }
}

StylePath::Scope StylePath::makeScope(std::size_t level, Styles own, std::span<const Scope> outer) {
  const std::size_t ownCount = own.size();
  if (!outer.empty()) {
    for (const ObjStyle* style : outer.back().styles) addUnlessHidden(own, style);
  }
  return {level, std::move(own), ownCount};
}

}  // namespace PlotDom
