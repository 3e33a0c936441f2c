#include "vantry/plot/framework/property_list_mgr.h"

#include <algorithm>
#include <cassert>
#include <mutex>

namespace vantry::plot {

namespace {

// One lock for all lists, recursive because the building of one may ask another.
std::recursive_mutex& buildingMutex() {
  static std::recursive_mutex mutex;
  return mutex;
}

}  // namespace

const PropertyListMgr::Table& PropertyListMgr::build() {
  const std::lock_guard lock(buildingMutex());
  if (const Table* built = built_.load(std::memory_order_relaxed)) return *built;
  auto table = std::make_unique<Table>();  // one that fails half-way is begun anew
  underWay_ = table.get();
  fill();
  for (const auto& [name, property] : table->entries) {
    (property->isInherited() ? table->inherited : table->notInherited).push_back(property.get());
  }
  built_.store(table.get(), std::memory_order_release);
  return *table.release();
}

void PropertyListMgr::add(std::unique_ptr<const Property> property) {
  Entries& entries = underWay_->entries;
  const base::Token name = property->name();
  const auto place = std::find_if(entries.begin(), entries.end(),
                                  [name](const auto& entry) { return name < entry.first; });
  assert(base::wordOf(name) != base::WordId::none);
  underWay_->byWord[name] = property.get();
  entries.emplace(place, name, std::move(property));
}

void PropertyListMgr::initialise(PlotElement& element) {
  for (const Property* property : table().notInherited) property->initialise(element);
}

void PropertyListMgr::inheritAll(PlotElement& element) {
  const std::vector<const Property*>& inherited = table().inherited;
  if (inherited.empty()) return;
  StyleChain chain;
  chain.reserve(8);  // more than most elements have
  element.collectEffectiveStyles(chain);
  for (const Property* property : inherited) property->inheritFrom(element, chain);
}

void PropertyListMgr::dropAllInherited(PlotElement& element) {
  for (const auto& [name, property] : entries()) {
    if (!property->isRemovable(element)) continue;
    const PlotElement* parent = element.styleParent(name);
    if (parent) property->dropIfInherited(element, *parent);
  }
}

bool PropertyListMgr::canBeWritten(const PlotElement& element) {
  return std::ranges::all_of(entries(), [&element](const auto& entry) {
    const auto& [name, property] = entry;
    base::Variant value;
    const bool isThere = element.hasAttribute(name) && property->getIfSet(element, value);
    return !isThere || property->canBeWritten(element, value);
  });
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

}  // namespace vantry::plot
