#include "vantry/base/token_table.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "vantry/base/salted_hash.h"

namespace vantry::base {

namespace {

constexpr std::size_t firstCapacity = 256;

}  // namespace

TokenTable& TokenTable::instance() {
  static TokenTable& table = *new TokenTable;
  return table;
}

TokenTable::~TokenTable() {
  for (char* text : owned_) std::free(text);
}

const char* TokenTable::intern(const char* text, bool copy) {
  const std::lock_guard lock(mutex_);
  if (const char* present = findUnlocked(text)) return present;
  reserveOne();
  if (copy) {
    owned_.push_back(nullptr);  // first of all, so that the copy has an owner at once
    text = owned_.back() = strdup(text);
    if (!text) throw std::bad_alloc();
  }
  slots_[slotOf(text)] = text;
  ++count_;
  return text;
}

const char* TokenTable::find(const char* text) {
  const std::lock_guard lock(mutex_);
  return findUnlocked(text);
}

std::int32_t TokenTable::count() const {
  const std::lock_guard lock(mutex_);
  return count_;
}

std::int32_t TokenTable::capacity() const {
  const std::lock_guard lock(mutex_);
  return static_cast<std::int32_t>(slots_.size() / 2);
}

const char* TokenTable::findUnlocked(const char* text) const {
  return slots_.empty() ? nullptr : slots_[slotOf(text)];
}

// The slot of the text, or the free one that it would get.
std::size_t TokenTable::slotOf(const char* text) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = saltedHash(text) & mask;
  while (slots_[slot] && std::strcmp(slots_[slot], text) != 0) slot = (slot + 1) & mask;
  return slot;
}

void TokenTable::reserveOne() {
  if (count_ < capacity()) return;
  std::vector<const char*> former(std::max(slots_.size() * 2, firstCapacity * 2));
  slots_.swap(former);
  for (const char* text : former) {
    if (text) slots_[slotOf(text)] = text;
  }
}

}  // namespace vantry::base
