#include "base/token_table.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "base/vocabulary.h"

namespace Ubase {

namespace {

constexpr std::int32_t firstCapacity = 256;

}  // namespace

TokenTable& TokenTable::instance() {
  static TokenTable table;
  static const bool hasVocabulary = [] {
    for (int id = 1; id <= wordCount; ++id) table.intern(tokenById(id).str(), false);
    return true;
  }();
  (void)hasVocabulary;
  return table;
}

TokenTable::~TokenTable() {
  for (char* text : owned_) std::free(text);
  std::free(entries_);
}

const char* TokenTable::intern(const char* text, bool copy) {
  const std::lock_guard lock(mutex_);
  const Position position = search(text);
  if (position.found) return entries_[position.index];
  if (!copy) {
    insert(position.index, text);
    return text;
  }
  owned_.push_back(nullptr);  // first of all, so that the copy has an owner at once
  owned_.back() = strdup(text);
  if (!owned_.back()) throw std::bad_alloc();
  insert(position.index, owned_.back());
  return owned_.back();
}

const char* TokenTable::find(const char* text) {
  const std::lock_guard lock(mutex_);
  const Position position = search(text);
  return position.found ? entries_[position.index] : nullptr;
}

TokenTable::Position TokenTable::search(const char* text) const {
  std::int32_t first = 0;
  std::int32_t last = count_;
  while (first < last) {
    const std::int32_t middle = first + (last - first) / 2;
    const int order = std::strcmp(entries_[middle], text);
    if (order == 0) return {middle, true};
    if (order < 0) {
      first = middle + 1;
    } else {
      last = middle;
    }
  }
  return {first, false};
}

void TokenTable::insert(std::int32_t index, const char* text) {
  if (count_ == capacity_) {
    const std::int32_t wanted = capacity_ ? capacity_ * 2 : firstCapacity;
    void* grown = std::realloc(entries_, sizeof(const char*) * static_cast<std::size_t>(wanted));
    if (!grown) throw std::bad_alloc();
    entries_ = static_cast<const char**>(grown);
    capacity_ = wanted;
  }
  const auto moved = static_cast<std::size_t>(count_ - index);
  std::memmove(entries_ + index + 1, entries_ + index, moved * sizeof(const char*));
  entries_[index] = text;
  ++count_;
}

}  // namespace Ubase
