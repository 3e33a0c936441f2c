// What the model says of its element classes, asked of elements that were made for it.
#pragma once

#include <locale>
#include <span>
#include <string>
#include <vector>

#include "vantry/plot/framework/element.h"

namespace vantry::check {

using base::Token;
using plot::PlotElement;
using plot::Property;

/// An element that an element may hold.
struct ChildFacts {
  Token name;
  bool isSingle;  ///< there may be one of it
};

/// A class of elements. P2 and P3 are classes here as well: of points, with neither attributes nor
/// children.
struct ClassFacts {
  Token name;
  std::vector<const Property*> properties;  ///< in the order of their names
  std::vector<Token> required;              ///< the attributes that must be given
  std::vector<ChildFacts> children;         ///< in the order of their names
  std::vector<Token> parents;               ///< in the order of their names
  bool holdsText = false;                   ///< characters in it are part of the document

  bool takes(Token child) const;
  bool needs(Token attribute) const;
  const Property* property(Token name) const;
  std::vector<Token> childNames() const;
  std::vector<Token> propertyNames() const;
};

/// The class with that name; null for any other name.
const ClassFacts* factsOf(Token element);

/// The classes that a document may hold: Canvas, and each class that another of them takes. A class
/// comes before those that it alone takes.
std::span<const ClassFacts* const> documentClasses();

/// The names of these classes.
std::span<const Token> elementNames();

/// What the values of a property are, as in "a colour as #RRGGBB or #RRGGBBAA".
std::string typeInWords(const Property& property);

/// What the values of a property are written like.
enum class ValueKind {
  yesOrNo,
  wholeNumber,
  number,
  color,
  planePoint,
  spacePoint,
  word,
  font,
  text
};
ValueKind valueKind(const Property& property);

/// The default of a property, as in a document; empty where it has none that can be written.
std::string defaultText(const Property& property);

/// How a document writes a value of the property, with numbers as the locale has them; empty where
/// it is never written.
std::string textOf(const Property& property, const base::Variant& value,
                   const std::locale& numbers = std::locale::classic());

}  // namespace vantry::check
