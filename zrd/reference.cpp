#include "zrd/reference.h"

#include <ostream>
#include <string>
#include <vector>

#include "vantry/plot/metadata/descriptions.h"

namespace vantry::zrd {

namespace {

using check::ChildFacts;
using check::ClassFacts;
using check::Property;
using check::Token;
namespace Word = base::Word;

std::string nameOf(Token name) { return name.str(); }

/// The link to the page of an element; points have none.
std::string linkTo(Token element) {
  const std::string name = element.str();
  const bool isPoint = element == Word::P2 || element == Word::P3;
  return isPoint ? '`' + name + '`' : "[`" + name + "`](" + name + ".md)";
}

template <class Names, class Show>
std::string listOf(const Names& names, Show show) {
  std::string list;
  for (const auto& name : names) list += (list.empty() ? "" : ", ") + show(name);
  return list;
}

/// What the element contains beside elements, as a sentence.
std::string contentInWords(const ClassFacts& element) {
  if (!element.holdsText) return {};
  const bool isArray = element.name == Word::ColorArray2d || element.name == Word::DensityArray2d;
  if (!isArray) return "It contains a text.";
  return element.name == Word::ColorArray2d ? "It contains a list of colours."
                                            : "It contains a list of numbers.";
}

/// What holds where an attribute is missing.
std::string absenceInWords(const ClassFacts& element, const Property& property) {
  if (element.needs(property.name())) return "must be given";
  const std::string text = check::defaultText(property);
  return (property.isInherited() ? "of the styles, or else " : "") +
         (text.empty() ? std::string("nothing") : text);
}

std::vector<Token> once(const ClassFacts& element, bool isSingle) {
  std::vector<Token> names;
  for (const ChildFacts& child : element.children) {
    if (child.isSingle == isSingle) names.push_back(child.name);
  }
  return names;
}

}  // namespace

void writeReference(std::ostream& out, const ClassFacts& element) {
  const std::string content = contentInWords(element);
  out << nameOf(element.name) << '\n' << "  " << plot::elementDescription(element.name) << '\n';
  if (!content.empty()) out << "  " << content << '\n';
  const auto writeNames = [&out](const char* what, const std::vector<Token>& names) {
    if (!names.empty()) out << '\n' << what << "\n  " << listOf(names, nameOf) << '\n';
  };
  writeNames("Is in", element.parents);
  writeNames("May hold, as often as wanted", once(element, false));
  writeNames("May hold once each", once(element, true));
  if (element.properties.empty()) return;
  out << "\nAttributes\n";
  for (const Property* property : element.properties) {
    out << "  " << nameOf(property->name()) << ": " << check::typeInWords(*property) << '\n'
        << "      " << plot::propertyDescription(element.name, property->name()) << '\n'
        << "      Without it: " << absenceInWords(element, *property) << '\n';
  }
}

void writeReferencePage(std::ostream& out, const ClassFacts& element) {
  const std::string content = contentInWords(element);
  out << "# " << nameOf(element.name) << "\n\n" << plot::elementDescription(element.name);
  if (!content.empty()) out << ' ' << content;
  out << '\n';
  const auto writeNames = [&out](const char* what, const std::vector<Token>& names) {
    if (!names.empty()) out << "\n**" << what << ":** " << listOf(names, linkTo) << '\n';
  };
  writeNames("Is in", element.parents);
  writeNames("May hold, as often as wanted", once(element, false));
  writeNames("May hold once each", once(element, true));
  if (!element.properties.empty()) {
    out << "\n| Attribute | Is | Without it | Meaning |\n|---|---|---|---|\n";
    for (const Property* property : element.properties) {
      out << "| `" << nameOf(property->name()) << "` | " << check::typeInWords(*property) << " | "
          << absenceInWords(element, *property) << " | "
          << plot::propertyDescription(element.name, property->name()) << " |\n";
    }
  }
  out << "\n[All elements](README.md)\n";
}

void writeReferenceList(std::ostream& out) {
  for (const ClassFacts* element : check::documentClasses()) {
    out << nameOf(element->name) << ": " << plot::elementDescription(element->name) << '\n';
  }
}

void writeReferenceIndex(std::ostream& out) {
  out << "# The elements\n\n"
         "What each element may hold: its attributes with their types and defaults, and other\n"
         "elements. How they work together is described in [the manual](../format.md). These "
         "pages\n"
         "are written by `zrd reference --markdown`.\n\n"
         "| Element | Is |\n|---|---|\n";
  for (const ClassFacts* element : check::documentClasses()) {
    out << "| " << linkTo(element->name) << " | " << plot::elementDescription(element->name)
        << " |\n";
  }
}

}  // namespace vantry::zrd
