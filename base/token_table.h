// The index behind Token.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

namespace vantry::base {

/// An index of interned texts. The process has one, see instance(), for all that are no words of
/// the vocabulary. Safe for any number of threads.
class TokenTable {
 public:
  /// Never destroyed, as the destructors of static objects may still use tokens.
  static TokenTable& instance();

  TokenTable() = default;
  TokenTable(const TokenTable&) = delete;
  TokenTable& operator=(const TokenTable&) = delete;
  ~TokenTable();

  /// The interned text that equals `text`; enters `text` itself, or a copy of it, if there is none.
  /// Throws std::bad_alloc and leaves the index as it was.
  const char* intern(const char* text, bool copy);

  /// The interned text that equals `text`, or null.
  const char* find(const char* text);

  std::int32_t count() const;
  /// The number of texts for which there is room; it doubles when they are more.
  std::int32_t capacity() const;

  /// Guards the whole table. Recursive, so that an operation may call another.
  std::recursive_mutex& mutex() { return mutex_; }

 private:
  const char* findUnlocked(const char* text) const;
  std::size_t slotOf(const char* text) const;
  void reserveOne();

  mutable std::recursive_mutex mutex_;
  std::vector<const char*> slots_;  // hashed, with open addressing; at most half of them are taken
  std::int32_t count_ = 0;
  std::vector<char*> owned_;
};

}  // namespace vantry::base
