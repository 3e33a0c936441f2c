#include "vantry/base/variant.h"

#include <functional>
#include <new>
#include <utility>

namespace vantry::base {

Variant::Variant(const Variant& other) {
  if (other.type_ && other.type_->copy) {
    other.type_->copy(value_, other.value_);
  } else {
    value_ = other.value_;
  }
  type_ = other.type_;
}

Variant& Variant::operator=(const Variant& other) {
  if (this != &other) *this = Variant(other);
  return *this;
}

bool operator==(const Variant& a, const Variant& b) {
  if (a.type_ != b.type_) return false;
  if (a.type_ && a.type_->equal) return a.type_->equal(a.value_, b.value_);
  return a.value_.words() == b.value_.words();
}

bool operator<(const Variant& a, const Variant& b) {
  if (a.type_ != b.type_) return std::less<>()(a.type_, b.type_);
  if (a.type_ && a.type_->less) return a.type_->less(a.value_, b.value_);
  return a.value_.words() < b.value_.words();
}

const VariantType* TokenVariant::descriptor() {
  static constexpr VariantType type{
      nullptr, nullptr, nullptr,
      [](const VariantValue& a, const VariantValue& b) { return a.as<Token>() < b.as<Token>(); }};
  return &type;
}

namespace {

// A fixed string is one pointer and lives in the two words themselves.
static_assert(sizeof(FixedString) <= sizeof(VariantValue));
static_assert(alignof(FixedString) <= alignof(VariantValue));

FixedString& string(VariantValue& value) {
  return *std::launder(reinterpret_cast<FixedString*>(value.bytes.data()));
}
const FixedString& string(const VariantValue& value) {
  return *std::launder(reinterpret_cast<const FixedString*>(value.bytes.data()));
}

}  // namespace

const VariantType* FixedStringVariant::descriptor() {
  static constexpr VariantType type{
      [](VariantValue& value) { string(value).~FixedStringBase(); },
      [](VariantValue& to, const VariantValue& from) {
        new (to.bytes.data()) FixedString(string(from));
      },
      [](const VariantValue& a, const VariantValue& b) { return string(a) == string(b); },
      [](const VariantValue& a, const VariantValue& b) { return string(a) < string(b); },
      [](VariantValue& to, VariantValue& from) {
        new (to.bytes.data()) FixedString(std::move(string(from)));
        string(from).~FixedStringBase();
      }};
  return &type;
}

FixedStringVariant::FixedStringVariant(const FixedString& value) : Variant(descriptor(), {}) {
  new (mutableValue().bytes.data()) FixedString(value);
}

const FixedString& FixedStringVariant::read(const VariantValue& value) { return string(value); }

}  // namespace vantry::base
