// A short memory for names that come again and again.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace vantry::reader {

/// What a handler calls a name.
struct NameCodes {
  std::uint32_t namespaceId = 0;
  std::uint32_t nameId = 0;
};

/// The few names that were added last, with their codes. Names are not empty.
class RecentNames {
 public:
  /// The codes of the name, or null if it is not among the last ones. `space` identifies
  /// the namespace; null is none, or one that is part of the name.
  const NameCodes* find(const char* name, const void* space = nullptr) {
    const auto isIt = [=](const Entry& entry) {
      const char* known = entry.name.c_str();
      return space == entry.space && *name == *known && std::strcmp(name, known) == 0;
    };
    if (!isIt(entries_[found_])) {
      const auto entry = std::ranges::find_if(entries_, isIt);
      if (entry == entries_.end()) return nullptr;
      found_ = static_cast<std::size_t>(entry - entries_.begin());
    }
    return &entries_[found_].codes;
  }

  /// Adds a name that is not among them, in the place of the oldest.
  const NameCodes* add(const char* name, NameCodes codes, const void* space = nullptr) {
    found_ = oldest_;
    oldest_ = (oldest_ + 1) % entries_.size();
    entries_[found_] = {name, space, codes};
    return &entries_[found_].codes;
  }

 private:
  struct Entry {
    std::string name;
    const void* space = nullptr;
    NameCodes codes;
  };

  std::array<Entry, 4> entries_;
  std::size_t found_ = 0;
  std::size_t oldest_ = 0;
};

}  // namespace vantry::reader
