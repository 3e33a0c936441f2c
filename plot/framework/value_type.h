// What the value of a property is, wherever it is kept.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>
#include <variant>

#include "vantry/base/token.h"
#include "vantry/base/variant.h"
#include "vantry/plot/values/font_style.h"
#include "vantry/plot/values/point.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::plot {

class CmdWriter;

/// The defaults of texts and fonts, which are no constants.
struct NoText {};
struct StandardFont {};
inline constexpr StandardFont standardFont;

/// What stands in for a missing value.
using DefaultValue =
    std::variant<bool, std::int32_t, double, base::Token, RGBA, P2, P3, NoText, StandardFont>;

/// A type of values: how they are read, checked, held and printed. There is one object of each
/// type. A `member` is the address of a Resolved with a value of the type.
class ValueType {
 public:
  ValueType(const ValueType&) = delete;
  ValueType& operator=(const ValueType&) = delete;

  /// The words of an enumeration, in their order; empty for any other type. They are never
  /// enforced: a document with another word loads, and the writers treat that word as they treat
  /// every one that they do not test for.
  std::span<const base::Token> allowedWords() const { return allowedWords_; }
  /// The word for the kind of field in which a host may edit a value.
  base::Token editorWord() const { return editorWord_; }
  /// Whether a property of the type is an option of a command.
  bool isInCommand() const { return isInCommand_; }

  /// Whether a variant is of the kind in which the type has its values.
  virtual bool isOfKind(const base::Variant& value) const = 0;
  virtual base::Variant valueOf(const DefaultValue& defaultValue) const = 0;

  /// Parses a text of the input format. False if it is not one of the type.
  virtual bool parse(const char* text, base::Variant& out) const = 0;

  /// Whether an attribute may have the value. `reason` is null, or why no text gives the value.
  virtual bool accepts(const base::Variant& value, const char*& reason) const = 0;
  /// Why the format cannot hold the value; null if it can.
  virtual const char* whyNotWritten(const base::Variant& value) const = 0;
  /// The value as it is stored, after the rule of the type has been applied.
  virtual base::Variant normalized(const base::Variant& value) const = 0;

  /// Writes ` name="value"`, unless the type is hidden in that form.
  virtual void putXml(std::ostream& out, base::Token name, const base::Variant& value) const = 0;
  /// Writes the value, which is of the kind of the type, in the command form.
  virtual void putCmd(CmdWriter& writer, const base::Variant& value) const = 0;

  virtual base::Variant read(const void* member) const = 0;
  /// Writes a value, after the rule of the type or as it is. False for one of another kind, which
  /// changes nothing.
  virtual bool store(void* member, const base::Variant& value) const = 0;
  virtual bool assign(void* member, const base::Variant& value) const = 0;
  virtual void reset(void* member, const DefaultValue& defaultValue) const = 0;
  /// Whether the member has that value.
  virtual bool holds(const void* member, const base::Variant& value) const = 0;

 protected:
  constexpr ValueType(std::span<const base::Token> allowedWords, base::Token editorWord,
                      bool isInCommand)
      : allowedWords_(allowedWords), editorWord_(editorWord), isInCommand_(isInCommand) {}
  ~ValueType() = default;

 private:
  std::span<const base::Token> allowedWords_;
  base::Token editorWord_;
  bool isInCommand_;
};

}  // namespace vantry::plot
