// The common ground of the classes that read resolved properties by type.
#pragma once

#include <type_traits>

#include "vantry/plot/framework/element.h"
#include "vantry/plot/values/variants.h"

namespace vantry::plot {

/// Reads the properties of the element of which it is a part, be that an object or a style. A value
/// is always resolved: local, or inherited, or the default.
class StyleGetter {
 public:
  explicit StyleGetter(const PlotElement* element) : element_(element) {}
  StyleGetter(const StyleGetter&) = delete;  // a copy would read the element it was copied from
  StyleGetter& operator=(const StyleGetter&) = delete;

 protected:
  /// The value of a property of that type. Throws DomException InvalidAccess if the class has none
  /// of that name, or if it is mandatory and missing.
  template <class Value>
  Value value(Token name) const;

 private:
  const PlotElement* element_;
};

template <class Value>
struct VariantOf;
template <>
struct VariantOf<bool> : std::type_identity<base::BoolVariant> {};
template <>
struct VariantOf<std::int32_t> : std::type_identity<base::LongVariant> {};
template <>
struct VariantOf<double> : std::type_identity<base::DoubleVariant> {};
template <>
struct VariantOf<Token> : std::type_identity<base::TokenVariant> {};
template <>
struct VariantOf<RGBA> : std::type_identity<RGBAVariant> {};
template <>
struct VariantOf<FontStyle> : std::type_identity<FontStyleVariant> {};

/// The resolved value of a property, which the class must have with that type.
template <class Value>
Value propertyValue(const PlotElement& element, Token name) {
  return element.getPropertyValue(name).template as<typename VariantOf<Value>::type>()->get();
}

template <class Value>
Value StyleGetter::value(Token name) const {
  return propertyValue<Value>(*element_, name);
}

}  // namespace vantry::plot

/// The short form of a getter: a typed read of the property `Name`, as the operation `name()`.
#define PLOT_GETTER(Type, name, Name) \
  Type name() const { return value<Type>(::vantry::base::Word::Name); }
