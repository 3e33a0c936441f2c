// A value of any property type, small enough to be passed and stored without knowing the type.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "vantry/base/fixed_string.h"
#include "vantry/base/token.h"

namespace vantry::base {

/// The two words in which a variant keeps its value, as bytes: any object of their size can live in
/// them. Unused bits are zero. A copy of the bytes is a copy of the value only if that is trivially
/// copyable.
struct VariantValue {
  alignas(8) std::array<unsigned char, 8> bytes{};

  std::array<std::uint32_t, 2> words() const {
    return std::bit_cast<std::array<std::uint32_t, 2>>(bytes);
  }

  /// The value as a trivially copyable `T` of at most eight bytes.
  template <class T>
  T as() const {
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(bytes));
    T value;
    std::memcpy(static_cast<void*>(&value), bytes.data(), sizeof(T));
    return value;
  }
  template <class T>
  void set(const T& value) {
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(bytes));
    bytes = {};
    std::memcpy(bytes.data(), &value, sizeof(T));
  }
};

/// What a kind of value needs beyond copying and comparing its two words. Each function may be
/// null.
struct VariantType {
  void (*destroy)(VariantValue& value) = nullptr;
  void (*copy)(VariantValue& to, const VariantValue& from) = nullptr;
  bool (*equal)(const VariantValue& a, const VariantValue& b) = nullptr;
  bool (*less)(const VariantValue& a, const VariantValue& b) = nullptr;
  /// Makes the value anew in `to`, without an exception, and ends it in `from`.
  void (*move)(VariantValue& to, VariantValue& from) = nullptr;
};

/// The value of a variant that was asked for a certain kind: used like a pointer to that `Kind`,
/// and null if the variant is of another one. It lives no longer than the variant's value.
template <class Kind>
class Typed {
 public:
  Typed(std::nullptr_t) {}

  explicit operator bool() const { return value_ != nullptr; }
  const Typed* operator->() const { return this; }
  /// What get() of the kind gives.
  decltype(auto) get() const { return Kind::read(*value_); }

  friend bool operator==(Typed value, std::nullptr_t) { return !value; }

 private:
  friend class Variant;

  explicit Typed(const VariantValue* value) : value_(value) {}

  const VariantValue* value_ = nullptr;
};

/// A tagged value. Two variants are of one kind exactly if they have the same descriptor; the
/// default-constructed variant is the empty kind. Doubles are compared bit by bit, so that NaN
/// equals NaN and +0 differs from -0.
class Variant {
 public:
  Variant() = default;
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept { take(other); }
  Variant& operator=(const Variant& other);
  Variant& operator=(Variant&& other) noexcept {
    if (this == &other) return *this;
    destroy();
    take(other);
    return *this;
  }
  ~Variant() { destroy(); }

  const VariantType* type() const { return type_; }
  bool isEmpty() const { return type_ == nullptr; }

  /// This variant as a `Kind`, or null if it is of another kind.
  template <class Kind>
  Typed<Kind> as() const {
    return Typed<Kind>(type_ == Kind::descriptor() ? &value_ : nullptr);
  }

  friend bool operator==(const Variant& a, const Variant& b);
  friend bool operator<(const Variant& a, const Variant& b);

 protected:
  Variant(const VariantType* type, const VariantValue& value) : type_(type), value_(value) {}
  const VariantValue& value() const { return value_; }
  VariantValue& mutableValue() { return value_; }

 private:
  void destroy() noexcept {
    if (type_ && type_->destroy) type_->destroy(value_);
  }

  // Gives this variant, which holds no value, that of `other`, which is empty then.
  void take(Variant& other) noexcept {
    type_ = std::exchange(other.type_, nullptr);
    if (type_ && type_->move) {
      type_->move(value_, other.value_);
    } else {
      value_ = std::exchange(other.value_, {});
    }
  }

  const VariantType* type_ = nullptr;
  VariantValue value_;
};

/// A kind whose value lies in the two words themselves. `Kind` is the deriving class.
template <class Kind, class T>
class PlainVariant : public Variant {
 public:
  using Value = T;
  PlainVariant(T value) : Variant(Kind::descriptor(), pack(value)) {}
  T get() const { return read(value()); }

  static T read(const VariantValue& value) { return value.template as<T>(); }

  static const VariantType* descriptor() {
    static constexpr VariantType type;
    return &type;
  }

 private:
  static VariantValue pack(T value) {
    VariantValue packed;
    packed.set(value);
    return packed;
  }
};

/// A kind whose value is a `T` on the heap, copied deeply, compared with == and <.
template <class Kind, class T>
class HeapVariant : public Variant {
 public:
  using Value = T;
  HeapVariant(const T& value) : Variant(descriptor(), pack(new T(value))) {}
  const T& get() const { return read(value()); }

  static const T& read(const VariantValue& value) { return *pointer(value); }

  static const VariantType* descriptor() {
    static constexpr VariantType type{
        [](VariantValue& value) { delete pointer(value); },
        [](VariantValue& to, const VariantValue& from) { to.set(new T(*pointer(from))); },
        [](const VariantValue& a, const VariantValue& b) {
          return pointer(a) == pointer(b) || *pointer(a) == *pointer(b);
        },
        [](const VariantValue& a, const VariantValue& b) {
          return pointer(a) != pointer(b) && *pointer(a) < *pointer(b);
        }};
    return &type;
  }

 private:
  static T* pointer(const VariantValue& value) { return value.as<T*>(); }
  static VariantValue pack(T* value) {
    VariantValue packed;
    packed.set(value);
    return packed;
  }
};

class BoolVariant : public PlainVariant<BoolVariant, bool> {
  using PlainVariant::PlainVariant;
};
class LongVariant : public PlainVariant<LongVariant, std::int32_t> {
  using PlainVariant::PlainVariant;
};
class DoubleVariant : public PlainVariant<DoubleVariant, double> {
  using PlainVariant::PlainVariant;
};

/// Ordered by address, as tokens are.
class TokenVariant : public PlainVariant<TokenVariant, Token> {
 public:
  using PlainVariant::PlainVariant;
  static const VariantType* descriptor();
};

/// Shares its text with the string it was made from and with its own copies.
class FixedStringVariant : public Variant {
 public:
  using Value = FixedString;
  FixedStringVariant(const FixedString& value);
  const FixedString& get() const { return read(value()); }
  static const FixedString& read(const VariantValue& value);
  static const VariantType* descriptor();
};

}  // namespace vantry::base
