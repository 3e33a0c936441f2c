// Interned strings. Names and keywords of the format are compared as one machine word.
#pragma once

#include <atomic>
#include <functional>

namespace vantry::base {

/// The address of the one interned copy of a text, or null. A plain value: copying costs a word,
/// and an interned text lives as long as the process. Any thread may make tokens at any time, also
/// before and after main().
class Token {
 public:
  /// The null token.
  constexpr Token() = default;

  /// Interns `text`; null gives the null token. With `copy` false `text` must have static lifetime;
  /// with `copy` true it may be temporary. Throws std::bad_alloc.
  Token(const char* text, bool copy);

  /// The token of `text` if that was interned before, otherwise the null token. Adds nothing.
  static Token find(const char* text);

  /// Interns each text of a null-terminated array; a null array does nothing.
  static void internAll(const char* const* texts, bool copy);

  /// The text, null for the null token.
  constexpr const char* str() const { return str_; }

  constexpr explicit operator bool() const { return str_ != nullptr; }
  friend constexpr bool operator==(Token a, Token b) { return a.str_ == b.str_; }

  /// The order of the addresses: fit for a sorted table, and in general no order of the texts.
  friend bool operator<(Token a, Token b) { return std::less<>()(a.str_, b.str_); }

  /// A token of the vocabulary, from the array that is the interned copy of its text. Only
  /// vocabulary.h calls this: the token table knows no other text by its own address.
  static constexpr Token ofVocabulary(const char* text) { return Token(text); }

 private:
  friend class StaticToken;

  constexpr explicit Token(const char* interned) : str_(interned) {}

  const char* str_ = nullptr;
};

/// A token that is no word of the vocabulary, as a constant that any static initialiser may use:
/// the text is interned when the token is first asked for.
class StaticToken {
 public:
  /// `text` must have static lifetime.
  constexpr explicit StaticToken(const char* text) : text_(text) {}
  StaticToken(const StaticToken&) = delete;
  StaticToken& operator=(const StaticToken&) = delete;

  operator Token() const {
    const char* interned = interned_.load(std::memory_order_acquire);
    return interned ? Token(interned) : intern();
  }

 private:
  Token intern() const;

  const char* text_;
  mutable std::atomic<const char*> interned_ = nullptr;
};

}  // namespace vantry::base
