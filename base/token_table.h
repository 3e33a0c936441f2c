// The sorted index behind Token.
#pragma once

#include <cstdint>
#include <mutex>
#include <vector>

namespace Ubase {

/// An index of interned texts, sorted by strcmp. The process has one, see instance(); it begins
/// with the vocabulary. Safe for any number of threads.
class TokenTable {
 public:
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

  std::int32_t count() const { return count_; }
  std::int32_t capacity() const { return capacity_; }

  /// Guards the whole table. Recursive, so that an operation may call another.
  std::recursive_mutex& mutex() { return mutex_; }

 private:
  struct Position {
    std::int32_t index;
    bool found;
  };
  Position search(const char* text) const;
  void insert(std::int32_t index, const char* text);

  std::recursive_mutex mutex_;
  const char** entries_ = nullptr;
  std::int32_t capacity_ = 0;
  std::int32_t count_ = 0;
  std::vector<char*> owned_;
};

}  // namespace Ubase
