#include "zrd/reference.h"

#include <algorithm>
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

/// What the element contains besides elements, as a sentence.
std::string contentInWords(const ClassFacts& element) {
  if (!element.holdsText) return {};
  const bool isArray = element.name == Word::ColorArray2d || element.name == Word::DensityArray2d;
  if (!isArray) return "It contains a text.";
  return element.name == Word::ColorArray2d ? "It contains a list of colours."
                                            : "It contains a list of numbers.";
}

/// What holds where an attribute is missing.
std::string absenceInWords(const ClassFacts& element, const Property& property) {
  if (element.needs(property.name())) return "none; must be given";
  const std::string text = check::defaultText(property);
  return (property.isInherited() ? "from a style, or else " : "") +
         (text.empty() ? std::string("none") : text);
}

std::vector<Token> once(const ClassFacts& element, bool isSingle) {
  std::vector<Token> names;
  for (const ChildFacts& child : element.children) {
    if (child.isSingle == isSingle) names.push_back(child.name);
  }
  return names;
}

std::vector<const ClassFacts*> classesByName() {
  const auto classes = check::documentClasses();
  std::vector<const ClassFacts*> sorted(classes.begin(), classes.end());
  std::ranges::sort(sorted, {}, [](const ClassFacts* element) { return nameOf(element->name); });
  return sorted;
}

}  // namespace

void writeReference(std::ostream& out, const ClassFacts& element) {
  const std::string content = contentInWords(element);
  out << nameOf(element.name) << '\n' << "  " << plot::elementDescription(element.name) << '\n';
  if (!content.empty()) out << "  " << content << '\n';
  const auto writeNames = [&out](const char* what, const std::vector<Token>& names) {
    if (!names.empty()) out << '\n' << what << "\n  " << listOf(names, nameOf) << '\n';
  };
  writeNames("May be in", element.parents);
  writeNames("May contain any number of", once(element, false));
  writeNames("May contain at most one each of", once(element, true));
  if (element.properties.empty()) return;
  out << "\nAttributes\n";
  for (const Property* property : element.properties) {
    out << "  " << nameOf(property->name()) << ": " << check::typeInWords(*property) << '\n'
        << "      " << plot::propertyDescription(element.name, property->name()) << '\n'
        << "      Default: " << absenceInWords(element, *property) << '\n';
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
  writeNames("May be in", element.parents);
  writeNames("May contain any number of", once(element, false));
  writeNames("May contain at most one each of", once(element, true));
  if (!element.properties.empty()) {
    out << "\n| Attribute | Value | Default | Meaning |\n|---|---|---|---|\n";
    for (const Property* property : element.properties) {
      out << "| `" << nameOf(property->name()) << "` | " << check::typeInWords(*property) << " | "
          << absenceInWords(element, *property) << " | "
          << plot::propertyDescription(element.name, property->name()) << " |\n";
    }
  }
  out << "\n[All elements](README.md)\n";
}

void writeReferenceList(std::ostream& out) {
  for (const ClassFacts* element : classesByName()) {
    out << nameOf(element->name) << ": " << plot::elementDescription(element->name) << '\n';
  }
}

void writeReferenceIndex(std::ostream& out) {
  out << "# The elements\n\n"
         "Each page lists the attributes of an element, with their types and defaults, and the\n"
         "elements that it may contain. [The manual](../format.md) describes how they work\n"
         "together. `zrd reference --markdown` writes these pages.\n\n"
         "| Element | Is |\n|---|---|\n";
  for (const ClassFacts* element : classesByName()) {
    out << "| " << linkTo(element->name) << " | " << plot::elementDescription(element->name)
        << " |\n";
  }
}

}  // namespace vantry::zrd
