// One property of one element class, as an object that all elements of the class share.
#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "vantry/base/token.h"
#include "vantry/base/variant.h"

namespace vantry::plot {

class CmdWriter;
class PlotElement;

/// The elements from which an element inherits, the nearest first.
using StyleChain = std::vector<const PlotElement*>;

/// Describes a property: its name, type, default, validity and what happens where it is missing.
/// The values themselves lie in the elements, either in members (the member forms) or in the
/// attribute list of an AttributeListElement (the list forms).
class Property {
 public:
  explicit Property(base::Token name) : name_(name) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  virtual ~Property() = default;

  base::Token name() const { return name_; }

  /// Whether a missing value is taken from the styles.
  virtual bool isInherited() const = 0;
  /// Whether there must be a value.
  virtual bool isMandatory() const = 0;
  /// Whether the property is an option of a command. The three operations putCmd...() write nothing
  /// for one that is not.
  virtual bool isInCommand() const = 0;
  /// What stands in for a missing value.
  virtual base::Variant defaultVariant() const = 0;

  /// Parses `text` and sets the attribute of `element`. A text that does not parse is reported and
  /// throws DomException 12; the element is unchanged then.
  virtual void setFromString(PlotElement& element, const char* text) const = 0;

  /// Gives the member of a new element its first value and, if mandatory, its bit.
  virtual void initialise(PlotElement& element) const = 0;

  /// Fills a member that is not set from the first element of `chain` that has the attribute, or
  /// else with the default, and tells the observers. False if the member is set.
  virtual bool inheritFrom(PlotElement& element, const StyleChain& chain) const = 0;

  /// Removes a local value that is the same as that of `source`, the style parent.
  virtual void dropIfInherited(PlotElement& element, const PlotElement& source) const = 0;

  /// The operations below for the value in the member.
  virtual void putXmlMember(std::ostream& out, const PlotElement& element) const = 0;
  virtual void putCmdMember(CmdWriter& writer, const PlotElement& element) const = 0;

  /// Writes ` name="value"`.
  virtual void putXml(std::ostream& out, const base::Variant& value) const = 0;
  /// Writes the item `name=value`.
  virtual void putCmd(CmdWriter& writer, const base::Variant& value) const = 0;
  /// Writes the item `plot::className::name=value`.
  virtual void putCmdQualified(CmdWriter& writer, base::Token className,
                               const base::Variant& value) const = 0;

  /// Whether the element has a value of its own in the member.
  virtual bool isSet(const PlotElement& element) const = 0;
  virtual bool getIfSet(const PlotElement& element, base::Variant& out) const = 0;

  /// Whether the attribute may become `value`; a refusal is reported through the element.
  virtual bool accepts(const PlotElement& element, const base::Variant& value) const = 0;

  /// Whether the attribute can be written with `value`; what cannot be is reported through the
  /// element.
  virtual bool canBeWritten(const PlotElement& element, const base::Variant& value) const = 0;

  /// Whether the attribute may be removed.
  virtual bool isRemovable(const PlotElement& element) const = 0;

  /// The member, which holds the resolved value; empty for a list form.
  virtual base::Variant getValue(const PlotElement& element) const = 0;

  virtual bool isWritable(const PlotElement&) const { return true; }

  /// Sets the attribute, or removes it if `value` is what the style parent has and it may go.
  virtual void setValue(PlotElement& element, const base::Variant& value) const = 0;

  /// Writes the member and sets its bit, unchecked.
  virtual void store(PlotElement& element, const base::Variant& value) const = 0;

  /// Clears the bit and gives the member the inherited value, or else the default.
  virtual void clear(PlotElement& element) const = 0;

  /// Reacts to a change of the property in `source`: resolves the member anew, or, in the source
  /// itself, tells the observers. The result says whether the change goes on down.
  virtual bool parentChanged(PlotElement& element, PlotElement& source) const = 0;

  /// `value` as it is stored, after the rule of the type has been applied.
  virtual base::Variant normalized(const base::Variant& value) const = 0;

  /// The words of an enumerated property, in their order; empty for any other. They are never
  /// enforced: a document with another word loads, and the writers treat that word as they treat
  /// every one that they do not test for.
  virtual std::span<const base::Token> allowedWords() const = 0;

  /// The word for the kind of field in which a host may edit the property.
  virtual base::Token editorWord() const = 0;

 private:
  base::Token name_;
};

/// Counts as a change and notifies the observers: the property `name` of `element` has another
/// value now.
void notifyPropertyChange(PlotElement& element, base::Token name);

}  // namespace vantry::plot
