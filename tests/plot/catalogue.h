// What each element class is to have as properties, written out.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace vantry::plot::test {

enum Kind { optional, inherited, mandatory };
enum Place { inList, inMember };
enum ValueType { boolean, integer, real, word, text, color, p2, p3, font };

struct ExpectedProperty {
  const char* name;
  Kind kind;
  ValueType type;
  const char* defaultText;  ///< "none" for a null token or text, "standard" for the standard font
  Place place;
  const char* rule;  ///< the named type, or ""
};

/// The lists of properties by name.
extern const std::map<std::string, std::vector<ExpectedProperty>> expectedLists;

/// The lists of each element class, in the order in which they are searched. A class that is not
/// here has no lists.
extern const std::map<std::string, std::vector<std::string>> listsOfClass;

/// The words of each enumeration, in their order.
extern const std::map<std::string, std::vector<std::string>> expectedWords;

/// The names of all element classes.
extern const std::vector<std::string> expectedElements;

/// The properties of a class by name: in a list that comes first a property hides one of the same
/// name in a later list.
std::map<std::string, ExpectedProperty> expectedProperties(const std::string& elementClass);

}  // namespace vantry::plot::test
