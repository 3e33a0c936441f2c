// The types of values, made from what property_types.h says of each.
#pragma once

#include <ostream>

#include "vantry/plot/framework/resolved.h"
#include "vantry/plot/framework/value_type.h"

namespace vantry::plot {

template <class T>
const T& defaultOf(const T& value) {
  return value;
}
inline base::FixedString defaultOf(NoText) { return {}; }
inline const FontStyle& defaultOf(StandardFont) { return FontStyle::standard(); }

/// The type of values that `Type` describes, see PropertyType.
template <class Type>
class TypedValue final : public ValueType {
 public:
  using Value = typename Type::Value;
  using VariantKind = typename Type::VariantKind;

  constexpr TypedValue()
      : ValueType(
            allowed(), Type::editor, !requires { Type::hiddenInCommand; }) {}

  bool isOfKind(const base::Variant& value) const override {
    return static_cast<bool>(value.as<VariantKind>());
  }

  base::Variant valueOf(const DefaultValue& defaultValue) const override {
    return VariantKind(fallback(defaultValue));
  }

  bool parse(const char* text, base::Variant& out) const override {
    Value value{};
    if (!Type::Parser::parse(value, text)) return false;
    out = VariantKind(value);
    return true;
  }

  bool accepts(const base::Variant& value, const char*& reason) const override {
    const auto typed = value.as<VariantKind>();
    reason = typed ? whyNoText(typed->get()) : nullptr;
    return typed && !reason && isValid(typed->get());
  }

  const char* whyNotWritten(const base::Variant& value) const override {
    const auto typed = value.as<VariantKind>();
    const char* reason = typed ? whyNoText(typed->get()) : nullptr;
    if constexpr (requires { Type::whyNotWritten(typed->get()); }) {
      if (typed && !reason) reason = Type::whyNotWritten(typed->get());
    }
    return reason;
  }

  base::Variant normalized(const base::Variant& value) const override {
    const auto typed = value.as<VariantKind>();
    return typed ? base::Variant(VariantKind(normalize(typed->get()))) : value;
  }

  void putXml(std::ostream& out, base::Token name, const base::Variant& value) const override {
    if constexpr (!requires { Type::hiddenInXml; }) {
      const auto typed = value.as<VariantKind>();
      if (!typed) return;
      out << ' ' << name.str() << "=\"";
      Type::PutXml::put(out, typed->get());
      out << '"';
    }
  }

  void putCmd(CmdWriter& writer, const base::Variant& value) const override {
    Type::PutCmd::put(writer, value.as<VariantKind>()->get());
  }

  base::Variant read(const void* member) const override { return VariantKind(valueIn(member)); }

  bool store(void* member, const base::Variant& value) const override {
    const auto typed = value.as<VariantKind>();
    if (typed) valueIn(member) = normalize(typed->get());
    return static_cast<bool>(typed);
  }

  bool assign(void* member, const base::Variant& value) const override {
    const auto typed = value.as<VariantKind>();
    if (typed) valueIn(member) = typed->get();
    return static_cast<bool>(typed);
  }

  void reset(void* member, const DefaultValue& defaultValue) const override {
    valueIn(member) = fallback(defaultValue);
  }

  bool holds(const void* member, const base::Variant& value) const override {
    const auto typed = value.as<VariantKind>();
    return typed && valueIn(member) == typed->get();
  }

 private:
  static constexpr std::span<const base::Token> allowed() {
    if constexpr (requires { Type::allowed; }) {
      return Type::allowed;
    } else {
      return {};
    }
  }

  static decltype(auto) fallback(const DefaultValue& defaultValue) {
    return defaultOf(*std::get_if<typename Type::Default>(&defaultValue));
  }

  static const Value& valueIn(const void* member) {
    return static_cast<const Resolved<Value>*>(member)->value_;
  }
  static Value& valueIn(void* member) { return static_cast<Resolved<Value>*>(member)->value_; }

  static bool isValid(const Value& value) {
    if constexpr (requires { Type::isValid(value); }) {
      return Type::isValid(value);
    } else {
      return true;
    }
  }

  static const char* whyNoText(const Value& value) {
    if constexpr (requires { Type::whyNoText(value); }) {
      return Type::whyNoText(value);
    } else {
      return nullptr;
    }
  }

  static Value normalize(Value value) {
    if constexpr (requires { Type::normalize(value); }) Type::normalize(value);
    return value;
  }
};

template <class Type>
inline constexpr TypedValue<Type> typedValue;

}  // namespace vantry::plot
