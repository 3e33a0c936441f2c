// The properties of each kind, for values in members and for values in attribute lists.
#pragma once

#include <ostream>
#include <utility>

#include "vantry/dom/dom_exception.h"
#include "vantry/plot/framework/element.h"
#include "vantry/plot/framework/property.h"
#include "vantry/plot/framework/property_traits.h"
#include "vantry/plot/framework/stored.h"

namespace vantry::plot {

/// What depends on the type of the value alone.
template <class Trait>
class TypedProperty : public Property {
 public:
  using Value = typename Trait::Value;
  using VariantKind = typename Trait::VariantKind;

  TypedProperty(base::Token name, Value defaultValue)
      : Property(name), defaultValue_(std::move(defaultValue)) {}

  bool isInCommand() const final { return hasCommandForm; }

  base::Variant defaultVariant() const final { return VariantKind(defaultValue_); }

  void setFromString(PlotElement& element, const char* text) const final {
    Value value{};
    if (!Trait::Parser::parse(value, text)) {
      element.refuse(RefusalKind::illegalText, name(), text);
      throw dom::DomException(dom::DomException::Syntax);
    }
    element.setAttribute(name(), VariantKind(value));
  }

  bool accepts(const PlotElement& element, const base::Variant& value) const final {
    const auto typed = value.template as<VariantKind>();
    if (const char* reason = typed ? whyNoText(typed->get()) : nullptr) {
      return element.refuse(RefusalKind::unsuitableValue, name(), reason);
    }
    if (typed && isValid(typed->get())) return true;
    return element.refuse(RefusalKind::illegalValue, name());
  }

  bool canBeWritten(const PlotElement& element, const base::Variant& value) const final {
    const auto typed = value.template as<VariantKind>();
    const char* reason = typed ? whyNotWritten(typed->get()) : nullptr;
    return !reason || element.refuse(RefusalKind::unwritableValue, name(), reason);
  }

  void putXml(std::ostream& out, const base::Variant& value) const final {
    if (const auto typed = value.template as<VariantKind>()) writeXml(out, typed->get());
  }

  void putCmd(CmdWriter& writer, const base::Variant& value) const final {
    const auto typed = value.template as<VariantKind>();
    if (typed) writeCmd(writer, typed->get(), name());
  }

  void putCmdQualified(CmdWriter& writer, base::Token className,
                       const base::Variant& value) const final {
    const auto typed = value.template as<VariantKind>();
    if (typed) writeCmd(writer, typed->get(), className, name());
  }

  base::Variant normalized(const base::Variant& value) const final {
    const auto typed = value.template as<VariantKind>();
    return typed ? base::Variant(VariantKind(normalize(typed->get()))) : value;
  }

  std::span<const base::Token> allowedWords() const final {
    if constexpr (requires { Trait::allowed; }) {
      return Trait::allowed;
    } else {
      return {};
    }
  }

  base::Token editorWord() const final { return Trait::editor; }

 protected:
  const Value& defaultValue() const { return defaultValue_; }

  static bool isValid(const Value& value) {
    if constexpr (requires { Trait::isValid(value); }) {
      return Trait::isValid(value);
    } else {
      return true;
    }
  }

  static const char* whyNoText(const Value& value) {
    if constexpr (requires { Trait::whyNoText(value); }) {
      return Trait::whyNoText(value);
    } else {
      return nullptr;
    }
  }

  static const char* whyNotWritten(const Value& value) {
    const char* reason = whyNoText(value);
    if constexpr (requires { Trait::whyNotWritten(value); }) {
      if (!reason) reason = Trait::whyNotWritten(value);
    }
    return reason;
  }

  static Value normalize(Value value) {
    if constexpr (requires { Trait::normalize(value); }) Trait::normalize(value);
    return value;
  }

  void writeXml(std::ostream& out, const Value& value) const {
    if constexpr (!requires { Trait::hiddenInXml; }) {
      out << ' ' << name().str() << "=\"";
      Trait::PutXml::put(out, value);
      out << '"';
    }
  }

  /// `names` are what stands before the value: the name, or the names of the class and property.
  template <class... Names>
  void writeCmd(CmdWriter& writer, const Value& value, Names... names) const {
    if (!hasCommandForm) return;
    writer.beginAssignment(names...);
    Trait::PutCmd::put(writer, value);
    writer.endItem();
  }

 private:
  static constexpr bool hasCommandForm = !requires { Trait::hiddenInCommand; };

  Value defaultValue_;
};

/// A property whose value lies in a member of `Element`, with a bit in its MemberValues.
template <class Element, class Trait>
class PropertyImpl : public TypedProperty<Trait> {
 public:
  using Base = TypedProperty<Trait>;
  using typename Base::Value;
  using typename Base::VariantKind;
  using Member = Stored<Value> Element::*;

  PropertyImpl(base::Token propertyName, Value defaultValue, std::uint32_t bit, Member member)
      : Base(propertyName, std::move(defaultValue)), bit_(bit), member_(member) {}

  using Base::name;

  void initialise(PlotElement& element) const override { value(element) = this->defaultValue(); }

  bool inheritFrom(PlotElement& element, const StyleChain& chain) const final {
    if (!this->isInherited() || isSet(element)) return false;
    const base::Variant* inherited = nullptr;
    for (const PlotElement* style : chain) {
      inherited = style->findAttribute(name());
      if (inherited) break;
    }
    resolve(element, inherited);
    notifyPropertyChange(element, name());
    return true;
  }

  void dropIfInherited(PlotElement& element, const PlotElement& source) const final {
    if (!isSet(element) || element.styleParent(name()) != &source) return;
    const base::Variant inherited = source.getPropertyValue(name());
    const auto typed = inherited.template as<VariantKind>();
    if (typed && value(element) == typed->get()) element.removeAttribute(name());
  }

  void putXmlMember(std::ostream& out, const PlotElement& element) const final {
    this->writeXml(out, value(element));
  }

  void putCmdMember(CmdWriter& writer, const PlotElement& element) const final {
    this->writeCmd(writer, value(element), name());
  }

  bool isSet(const PlotElement& element) const final { return (cast(element).setBits & bit_) != 0; }

  bool getIfSet(const PlotElement& element, base::Variant& out) const final {
    if (!isSet(element)) return false;
    out = getValue(element);
    return true;
  }

  base::Variant getValue(const PlotElement& element) const final {
    return VariantKind(value(element));
  }

  void setValue(PlotElement& element, const base::Variant& newValue) const final {
    const PlotElement* parent = this->isMandatory() ? nullptr : element.styleParent(name());
    if (parent && parent->getPropertyValue(name()) == newValue) {
      element.removeAttribute(name());
    } else {
      element.setAttribute(name(), newValue);
    }
  }

  void store(PlotElement& element, const base::Variant& newValue) const final {
    const auto typed = newValue.template as<VariantKind>();
    if (!typed) return;
    value(element) = this->normalize(typed->get());
    cast(element).setBits |= bit_;
  }

  void clear(PlotElement& element) const final {
    const PlotElement* source = element.styleParent(name());
    const base::Variant inherited = source ? source->getPropertyValue(name()) : base::Variant();
    cast(element).setBits &= ~bit_;
    resolve(element, &inherited);
  }

  bool parentChanged(PlotElement& element, PlotElement& source) const final {
    if (&element == &source) {
      notifyPropertyChange(element, name());
      return true;
    }
    StyleChain chain;
    element.collectEffectiveStyles(chain);
    return inheritFrom(element, chain);
  }

 protected:
  void setBit(PlotElement& element) const { cast(element).setBits |= bit_; }

 private:
  static const Element& cast(const PlotElement& element) {
    return static_cast<const Element&>(element);
  }
  static Element& cast(PlotElement& element) { return static_cast<Element&>(element); }

  const Value& value(const PlotElement& element) const { return (cast(element).*member_).value_; }
  Value& value(PlotElement& element) const { return (cast(element).*member_).value_; }

  void resolve(PlotElement& element, const base::Variant* inherited) const {
    const auto typed = inherited ? inherited->template as<VariantKind>() : nullptr;
    value(element) = typed ? typed->get() : this->defaultValue();
  }

  std::uint32_t bit_;
  Member member_;
};

/// A property whose value lies in the attribute list of an AttributeListElement, which does all
/// that the member forms do here.
template <class Trait>
class ListPropertyImpl : public TypedProperty<Trait> {
 public:
  using TypedProperty<Trait>::TypedProperty;

  void initialise(PlotElement&) const final {}
  bool inheritFrom(PlotElement&, const StyleChain&) const final { return false; }
  void dropIfInherited(PlotElement&, const PlotElement&) const final {}
  void putXmlMember(std::ostream&, const PlotElement&) const final {}
  void putCmdMember(CmdWriter&, const PlotElement&) const final {}
  bool isSet(const PlotElement&) const final { return false; }
  bool getIfSet(const PlotElement&, base::Variant&) const final { return false; }
  base::Variant getValue(const PlotElement&) const final { return {}; }
  void setValue(PlotElement&, const base::Variant&) const final {}
  void store(PlotElement&, const base::Variant&) const final {}
  void clear(PlotElement&) const final {}
  bool parentChanged(PlotElement&, PlotElement&) const final { return false; }
};

/// May be missing; the default stands in for it.
template <class Form>
class Optional : public Form {
 public:
  using Form::Form;
  bool isInherited() const final { return false; }
  bool isMandatory() const final { return false; }
  bool isRemovable(const PlotElement&) const final { return true; }
};

/// May be missing; then the styles are asked, and the default stands in where none has it.
template <class Form>
class Inherited : public Form {
 public:
  using Form::Form;
  bool isInherited() const final { return true; }
  bool isMandatory() const final { return false; }
  bool isRemovable(const PlotElement&) const final { return true; }
};

/// Is there from the beginning, or must be given, and is never removed.
template <class Form>
class Mandatory : public Form {
 public:
  using Form::Form;
  bool isInherited() const final { return false; }
  bool isMandatory() const final { return true; }
  bool isRemovable(const PlotElement&) const final { return false; }
};

template <class Element, class Trait>
using OptionalPropertyImpl = Optional<PropertyImpl<Element, Trait>>;

/// The member holds what the constructor wrote until the element is attached to its document.
template <class Element, class Trait>
class InheritedPropertyImpl final : public Inherited<PropertyImpl<Element, Trait>> {
 public:
  using Inherited<PropertyImpl<Element, Trait>>::Inherited;
  void initialise(PlotElement&) const override {}
};

/// Counts as set from the constructor on.
template <class Element, class Trait>
class MandatoryPropertyImpl final : public Mandatory<PropertyImpl<Element, Trait>> {
 public:
  using Mandatory<PropertyImpl<Element, Trait>>::Mandatory;
  void initialise(PlotElement& element) const override {
    PropertyImpl<Element, Trait>::initialise(element);
    this->setBit(element);
  }
};

template <class Trait>
using OptionalListPropertyImpl = Optional<ListPropertyImpl<Trait>>;
template <class Trait>
using InheritedListPropertyImpl = Inherited<ListPropertyImpl<Trait>>;
template <class Trait>
using MandatoryListPropertyImpl = Mandatory<ListPropertyImpl<Trait>>;

}  // namespace vantry::plot
