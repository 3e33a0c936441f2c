// The properties of an element class.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <iosfwd>
#include <span>
#include <utility>

#include "vantry/base/word_table.h"
#include "vantry/plot/framework/property.h"
#include "vantry/plot/framework/property_types.h"
#include "vantry/plot/framework/typed_value.h"

namespace vantry::plot {

/// The properties of a class: in the order in which they are shown, in that of their names, and by
/// name. A list is a constant, see PropertyListOf.
class PropertyList {
 public:
  PropertyList(const PropertyList&) = delete;
  PropertyList& operator=(const PropertyList&) = delete;

  /// The property of that name, or null.
  const Property* find(base::Token name) const {
    const std::size_t number = numbers_[name];
    return number > 0 ? &rows_[number - 1] : nullptr;
  }

  /// All properties, in the order in which they are shown.
  std::span<const Property> properties() const { return {rows_, size_}; }

  /// How many bits the members of the list and of those of the bases take.
  constexpr std::size_t bitCount() const { return firstBit_ + size_; }

  /// Gives the members of a new element their first values.
  void initialise(PlotElement& element) const;

  /// Resolves each inherited member that is not set, through the element's style chain.
  void inheritAll(PlotElement& element) const;

  /// Removes each local value that the element would inherit anyway and can do without.
  void dropAllInherited(PlotElement& element) const;

  /// Whether the attributes that the element has can be written.
  bool canBeWritten(const PlotElement& element) const;

  /// Writes the attributes that the element has, in the order of their names.
  void putXml(std::ostream& out, const PlotElement& element) const;
  void putCmd(CmdWriter& writer, const PlotElement& element) const;

 protected:
  using Number = std::uint8_t;

  constexpr PropertyList(const Property* rows, const Number* byName, std::size_t size,
                         std::size_t firstBit)
      : rows_(rows), byName_(byName), size_(size), firstBit_(firstBit) {}
  ~PropertyList() = default;

  base::WordTable<Number> numbers_;  // of the rows, from 1
  bool hasInherited_ = false;

 private:
  const Property& inNameOrder(std::size_t i) const { return rows_[byName_[i]]; }

  const Property* rows_;
  const Number* byName_;
  std::size_t size_;
  std::size_t firstBit_;
};

/// A list of `size` properties, made of a row for each, by mandatory(), optional() and inherited().
/// The names are words of the vocabulary that are attributes. To be defined as a constant:
///
///     constexpr PropertyListOf properties{
///         mandatory<P2Type,   &E::center>  (Word::Center,   {0, 0}),
///         inherited<SizeType, &E::lineWidth>(Word::LineWidth, 0.5),
///     };
template <std::size_t size>
class PropertyListOf final : public PropertyList {
 public:
  template <std::same_as<Property>... Rows>
  constexpr PropertyListOf(const Rows&... rows) : PropertyListOf(0, rows...) {}

  /// The list of a class whose base has the properties in `base` as well.
  template <std::same_as<Property>... Rows>
  constexpr PropertyListOf(const PropertyList& base, const Rows&... rows)
      : PropertyListOf(base.bitCount(), rows...) {}

  /// A list that begins with the rows of several classes.
  template <std::size_t shared, std::same_as<Property>... Rows>
  constexpr PropertyListOf(const std::array<Property, shared>& first, const Rows&... rows)
      : PropertyListOf(std::make_index_sequence<shared>(), first, rows...) {}

 private:
  template <std::size_t... numbers, class First, class... Rows>
  constexpr PropertyListOf(std::index_sequence<numbers...>, const First& first, const Rows&... rows)
      : PropertyListOf(0, first[numbers]..., rows...) {}

  template <std::same_as<Property>... Rows>
  constexpr PropertyListOf(std::size_t firstBit, const Rows&... rows)
      : PropertyList(rows_, byName_, size, firstBit), rows_{rows...} {
    for (std::size_t i = 0; i < size; ++i) {
      Property& row = rows_[i];
      numbers_[row.name_] = static_cast<Number>(i + 1);
      hasInherited_ = hasInherited_ || row.kind_ == Property::Kind::inherited;
      if (row.locate_) row.bit_ = bit(firstBit + i);
      std::size_t place = i;  // among those before it
      for (; place > 0 && row.name_ < rows_[byName_[place - 1]].name_; --place) {
        byName_[place] = byName_[place - 1];
      }
      byName_[place] = static_cast<Number>(i);
    }
  }

  static constexpr std::uint32_t bit(std::size_t number) {
    return number < 32 ? std::uint32_t{1} << number : throw "more members than bits";
  }

  Property rows_[size];
  Number byName_[size] = {};
};

template <class... Rows>
PropertyListOf(const Property&, const Rows&...) -> PropertyListOf<1 + sizeof...(Rows)>;
template <class... Rows>
PropertyListOf(const PropertyList&, const Rows&...) -> PropertyListOf<sizeof...(Rows)>;
template <std::size_t shared, class... Rows>
PropertyListOf(const std::array<Property, shared>&, const Rows&...)
    -> PropertyListOf<shared + sizeof...(Rows)>;

/// Where a member of a class is in its elements.
template <auto member>
struct MemberOf;

template <class Element, class Value_, Resolved<Value_> Element::*member>
struct MemberOf<member> {
  using Value = Value_;
  static MemberPlace placeIn(PlotElement& element) {
    Element& owner = static_cast<Element&>(element);
    return {&(owner.*member), &owner};
  }
};

template <class Type, auto member>
consteval Property makeProperty(Property::Kind kind, base::Token name,
                                typename Type::Default defaultValue) {
  const base::WordId word = base::wordOf(name);
  if (!base::isAttributeWord(word)) throw "no ATTRIBUTE in base/vocabulary.def";
  Property::Locator locate = nullptr;
  if constexpr (member != nullptr) {
    static_assert(std::same_as<typename MemberOf<member>::Value, typename Type::Value>);
    locate = &MemberOf<member>::placeIn;
  }
  return Property(kind, word, typedValue<Type>,
                  DefaultValue(std::in_place_type<typename Type::Default>, defaultValue), locate);
}

// The rows of a list, see Property::Kind. The value is in the member, or without one in the list of
// attributes of the element.

template <class Type, auto member = nullptr>
consteval Property optional(base::Token name, typename Type::Default defaultValue) {
  return makeProperty<Type, member>(Property::Kind::optional, name, defaultValue);
}
template <class Type, auto member = nullptr>
consteval Property inherited(base::Token name, typename Type::Default defaultValue) {
  return makeProperty<Type, member>(Property::Kind::inherited, name, defaultValue);
}
template <class Type, auto member = nullptr>
consteval Property mandatory(base::Token name, typename Type::Default defaultValue) {
  return makeProperty<Type, member>(Property::Kind::mandatory, name, defaultValue);
}

/// The property of that name in the first of the lists that has it, or null.
template <class... Lists>
const Property* findIn(base::Token name, const Lists&... lists) {
  const Property* found = nullptr;
  (void)((found = lists.find(name)) || ...);
  return found;
}

}  // namespace vantry::plot
