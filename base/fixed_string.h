// Immutable, shared text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <utility>

namespace Ubase {

/// A reference-counted, NUL-terminated text that never changes in place. A copy shares the text.
/// The default-constructed string is the null string, which is not the empty one.
template <class Char>
class FixedStringBase {
 public:
  FixedStringBase() = default;

  /// Copies `text`; null gives the null string. Throws std::bad_alloc.
  FixedStringBase(const Char* text) : block_(text ? makeBlock(text) : nullptr) {}

  FixedStringBase(const FixedStringBase& other) : block_(other.block_) {
    if (block_) ++block_->refCount;
  }
  FixedStringBase(FixedStringBase&& other) noexcept
      : block_(std::exchange(other.block_, nullptr)) {}
  ~FixedStringBase() {
    if (block_ && --block_->refCount < 1) freeBlock(block_);
  }
  FixedStringBase& operator=(FixedStringBase other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }

  /// The text, null for the null string.
  const Char* c_str() const { return block_ ? block_->text() : nullptr; }

  /// How many strings share the text, 0 for the null string.
  std::int32_t useCount() const { return block_ ? block_->refCount : 0; }

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
  struct Block {
    std::int32_t refCount;
    Char* text() { return reinterpret_cast<Char*>(this + 1); }
  };

  using Traits = std::char_traits<Char>;

  static int compare(const Char* a, const Char* b) {
    while (*a != Char() && Traits::eq(*a, *b)) ++a, ++b;
    return Traits::lt(*b, *a) - Traits::lt(*a, *b);
  }

  static Block* makeBlock(const Char* text) {
    const std::size_t bytes = (Traits::length(text) + 1) * sizeof(Char);
    void* memory = std::malloc(sizeof(Block) + bytes);
    if (!memory) throw std::bad_alloc();
    Block* block = new (memory) Block{1};
    std::memcpy(block->text(), text, bytes);
    return block;
  }

  // Not inlined, since g++ 12 would not see that the count decides, and warn of a use after free.
  [[gnu::noinline]] static void freeBlock(Block* block) { std::free(block); }

  Block* block_ = nullptr;
};

using FixedString = FixedStringBase<char>;

}  // namespace Ubase
