#include "SRC/property_list_mgr.h"

#include <algorithm>
#include <cassert>
#include <mutex>

namespace PlotDom {

namespace {

// One lock for all lists, recursive because the building of one may ask another.
std::recursive_mutex& buildingMutex() {
  static std::recursive_mutex mutex;
  return mutex;
}

}  // namespace

void PropertyListMgr::ensureBuilt() {
  if (state_.load(std::memory_order_acquire) == State::complete) return;
  const std::lock_guard lock(buildingMutex());
  if (state_ == State::complete) return;
  state_ = State::inProgress;
  entries_.clear();  // a table that failed half-way is begun anew
  byWord_ = {};
  inherited_.clear();
  notInherited_.clear();
  fill();
  for (const auto& [name, property] : entries_) {
    (property->isInherited() ? inherited_ : notInherited_).push_back(property.get());
  }
  state_.store(State::complete, std::memory_order_release);
}

void PropertyListMgr::add(std::unique_ptr<const Property> property) {
  const Ubase::Token name = property->name();
  const auto place = std::find_if(entries_.begin(), entries_.end(),
                                  [name](const auto& entry) { return name < entry.first; });
  assert(Ubase::wordOf(name) != Ubase::WordId::none);
  byWord_[name] = property.get();
  entries_.emplace(place, name, std::move(property));
}

const Property* PropertyListMgr::find(Ubase::Token name) {
  ensureBuilt();
  return byWord_[name];
}

const std::vector<std::pair<Ubase::Token, std::unique_ptr<const Property>>>&
PropertyListMgr::entries() {
  ensureBuilt();
  return entries_;
}

void PropertyListMgr::initialise(PlotElement& element) {
  ensureBuilt();
  for (const Property* property : notInherited_) property->initialise(element);
}

void PropertyListMgr::inheritAll(PlotElement& element) {
  ensureBuilt();
  if (inherited_.empty()) return;
  StyleChain chain;
  chain.reserve(8);  // more than most elements have
  element.collectEffectiveStyles(chain);
  for (const Property* property : inherited_) property->inheritFrom(element, chain);
}

void PropertyListMgr::dropAllInherited(PlotElement& element) {
  for (const auto& [name, property] : entries()) {
    if (!property->isRemovable(element)) continue;
    const PlotElement* parent = element.styleParent(name);
    if (parent) property->dropIfInherited(element, *parent);
  }
}

void PropertyListMgr::putXml(std::ostream& out, const PlotElement& element) {
  for (const auto& [name, property] : entries()) {
    if (element.hasAttribute(name)) property->putXmlMember(out, element);
  }
}

void PropertyListMgr::putCmd(CmdWriter& writer, const PlotElement& element) {
  for (const auto& [name, property] : entries()) {
    if (element.hasAttribute(name)) property->putCmdMember(writer, element);
  }
}

}  // namespace PlotDom
