// Immutable, shared text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

namespace vantry::base {

/// A reference-counted, NUL-terminated text that never changes in place. A copy shares the text,
/// and all that share one are for one thread at a time, unless the text is permanent. The
/// default-constructed string is the null string, which is not the empty one.
template <class Char>
class FixedStringBase {
 public:
  FixedStringBase() = default;

  /// Copies `text`; null gives the null string. Throws std::bad_alloc.
  FixedStringBase(const Char* text) : block_(text ? makeBlock(text, 1) : nullptr) {}

  /// A copy of `text`, which is not null, that lives as long as the process. As its copies are not
  /// counted, any thread may make and drop some. For what all documents share. Throws
  /// std::bad_alloc.
  static FixedStringBase permanent(const Char* text) {
    FixedStringBase string;
    string.block_ = makeBlock(text, permanentCount);
    return string;
  }

  FixedStringBase(const FixedStringBase& other) : block_(other.block_) {
    if (isCounted()) ++count();
  }
  FixedStringBase(FixedStringBase&& other) noexcept
      : block_(std::exchange(other.block_, nullptr)) {}
  ~FixedStringBase() {
    if (isCounted() && --count() == 0) freeBlock(block_);
  }
  FixedStringBase& operator=(FixedStringBase other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }

  /// The text, null for the null string.
  const Char* c_str() const {
    return block_ ? std::launder(reinterpret_cast<const Char*>(block_ + sizeof(Count))) : nullptr;
  }

  /// How many strings share the text, 0 for the null string and for a permanent text.
  std::int32_t useCount() const { return isCounted() ? count() : 0; }

  /// One and the same text, or two texts that are alike. A null string equals no other text.
  friend bool operator==(const FixedStringBase& a, const FixedStringBase& b) {
    if (a.block_ == b.block_) return true;
    return a.block_ && b.block_ && compare(a.c_str(), b.c_str()) == 0;
  }
  friend bool operator<(const FixedStringBase& a, const FixedStringBase& b) {
    if (a.block_ == b.block_ || !b.block_) return false;
    return !a.block_ || compare(a.c_str(), b.c_str()) < 0;
  }

 private:
  using Count = std::int32_t;
  using Traits = std::char_traits<Char>;

  static constexpr Count permanentCount = 0;

  static int compare(const Char* a, const Char* b) {
    while (*a != Char() && Traits::eq(*a, *b)) ++a, ++b;
    return Traits::lt(*b, *a) - Traits::lt(*a, *b);
  }

  // A block is a count with the text behind it.
  static std::byte* makeBlock(const Char* text, Count count) {
    static_assert(std::is_trivially_copyable_v<Char> && alignof(Char) <= alignof(Count));
    const std::size_t bytes = (Traits::length(text) + 1) * sizeof(Char);
    auto* const block = static_cast<std::byte*>(std::malloc(sizeof(Count) + bytes));
    if (!block) throw std::bad_alloc();
    new (block) Count(count);
    std::memcpy(block + sizeof(Count), text, bytes);
    return block;
  }

  // Not inlined, since g++ 12 would not see that the count decides, and warn of a use after free.
  [[gnu::noinline]] static void freeBlock(std::byte* block) { std::free(block); }

  Count& count() const { return *std::launder(reinterpret_cast<Count*>(block_)); }
  bool isCounted() const { return block_ && count() != permanentCount; }

  std::byte* block_ = nullptr;
};

using FixedString = FixedStringBase<char>;

}  // namespace vantry::base
