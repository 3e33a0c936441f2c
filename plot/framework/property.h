// One property of one element class, which all elements of the class share.
#pragma once

#include <cassert>
#include <iosfwd>
#include <span>
#include <vector>

#include "vantry/base/vocabulary.h"
#include "vantry/plot/framework/resolved.h"
#include "vantry/plot/framework/value_type.h"

namespace vantry::plot {

class PlotElement;

/// The elements from which an element inherits, the nearest first.
using StyleChain = std::vector<const PlotElement*>;

/// Where an element keeps the value of a property: a Resolved, and the bits of what was set.
struct MemberPlace {
  void* member;
  MemberValues* values;
};

/// Describes a property: its name, its type, its default, and what happens where it is missing. The
/// value itself is in a member of the element, or in the list of an AttributeListElement.
class Property {
 public:
  enum class Kind : std::uint8_t {
    optional,   ///< may be missing; the default stands in for it
    inherited,  ///< may be missing; then the styles are asked, and last the default
    mandatory   ///< is there from the beginning, or must be given, and is never removed
  };
  using Locator = MemberPlace (*)(PlotElement& element);

  /// A row of a PropertyListOf, by the functions there. Without a locator the value is in a list.
  constexpr Property(Kind kind, base::WordId name, const ValueType& type, DefaultValue defaultValue,
                     Locator locate)
      : type_(&type), locate_(locate), name_(name), kind_(kind), defaultValue_(defaultValue) {}

  base::Token name() const { return base::tokenOf(name_); }

  /// Whether a missing value is taken from the styles.
  constexpr bool isInherited() const { return kind_ == Kind::inherited; }
  /// Whether there must be a value.
  constexpr bool isMandatory() const { return kind_ == Kind::mandatory; }
  /// Whether the property is an option of a command. putCmd() and putCmdQualified() write nothing
  /// for one that is not.
  bool isInCommand() const { return type_->isInCommand(); }
  /// What stands in for a missing value.
  base::Variant defaultVariant() const { return type_->valueOf(defaultValue_); }

  std::span<const base::Token> allowedWords() const { return type_->allowedWords(); }
  base::Token editorWord() const { return type_->editorWord(); }

  /// Parses `text` and sets the attribute of `element`. A text that does not parse is reported and
  /// throws DomException Syntax; the element is unchanged then.
  void setFromString(PlotElement& element, const char* text) const;

  /// Whether a value is of the kind that the property has.
  bool hasKindOf(const base::Variant& value) const { return type_->isOfKind(value); }

  /// Whether the attribute may become `value`; a refusal is reported through the element.
  bool accepts(const PlotElement& element, const base::Variant& value) const;

  /// Whether the attribute can be written with `value`; what cannot be is reported through the
  /// element.
  bool canBeWritten(const PlotElement& element, const base::Variant& value) const;

  /// `value` as it is stored, after the rule of the type has been applied.
  base::Variant normalized(const base::Variant& value) const { return type_->normalized(value); }

  /// Writes ` name="value"`.
  void putXml(std::ostream& out, const base::Variant& value) const {
    type_->putXml(out, name(), value);
  }
  /// Writes the item `name=value`.
  void putCmd(CmdWriter& writer, const base::Variant& value) const;
  /// Writes the item `plot::className::name=value`.
  void putCmdQualified(CmdWriter& writer, base::Token className, const base::Variant& value) const;

  // The value in the member of an element. All but isSet() and getIfSet() are for properties that
  // have one.

  /// Gives the member of a new element its first value and, if mandatory, its bit. Not for one that
  /// is inherited: it has no value before the element is attached.
  void initialise(PlotElement& element) const;

  /// Whether the element has a value of its own.
  bool isSet(const PlotElement& element) const;
  bool getIfSet(const PlotElement& element, base::Variant& out) const;

  /// The resolved value.
  base::Variant getValue(const PlotElement& element) const;

  /// Sets the attribute, or removes it if `value` is what the style parent has and it may go.
  void setValue(PlotElement& element, const base::Variant& value) const;

  /// Writes the member and sets its bit, unchecked.
  void store(PlotElement& element, const base::Variant& value) const;

  /// Clears the bit and gives the member the inherited value, or else the default.
  void clear(PlotElement& element) const;

  /// Fills an inherited member that is not set from the first element of `chain` that has the
  /// attribute, or else with the default, and notifies the observers. False if the member is set.
  bool inheritFrom(PlotElement& element, const StyleChain& chain) const;

  /// Removes a local value that is the same as that of `source`, the style parent.
  void dropIfInherited(PlotElement& element, const PlotElement& source) const;

  /// Reacts to a change of the property in `source`: resolves the member anew, or, in the source
  /// itself, notifies the observers. The result is whether the change goes on down.
  bool parentChanged(PlotElement& element, PlotElement& source) const;

 private:
  template <std::size_t>
  friend class PropertyListOf;

  MemberPlace placeIn(const PlotElement& element) const {
    assert(locate_);
    return locate_(const_cast<PlotElement&>(element));  // which is only read then
  }
  bool isSetIn(const MemberPlace& place) const { return (place.values->setBits & bit_) != 0; }
  void resolve(void* member, const base::Variant* inherited) const;

  const ValueType* type_;
  Locator locate_;
  base::WordId name_;
  std::uint32_t bit_ = 0;  // of the member; the list gives it
  Kind kind_;
  DefaultValue defaultValue_;
};

/// Notifies the observers that the property `name` of `element` has another value now.
void notifyPropertyChange(PlotElement& element, base::Token name);

}  // namespace vantry::plot
