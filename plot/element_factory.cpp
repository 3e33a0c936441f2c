#include "vantry/plot/element_factory.h"

#include <array>
#include <cstdint>

#include "vantry/base/word_table.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/elements.h"

namespace vantry::plot {

namespace {

struct FactoryRow {
  const dom::NodeClass& nodeClass;
  base::Ref<PlotElement> (*make)(PlotDocument& document);
};

template <class Element, WordId name>
constexpr FactoryRow classOf() {
  static_assert(Element::tag == base::tokenOf(name), "the class has the name of its element");
  return {elementClass<Element>,
          [](PlotDocument& document) -> base::Ref<PlotElement> { return new Element(&document); }};
}

constexpr std::array elementClasses = {
#define WORD_AS(name, text)
#define ELEMENT(name) classOf<name, WordId::name>(),
#include "vantry/base/vocabulary.def"
};

// The place of each class in the list, from 1, by its name; 0 for a word that is no class.
constexpr auto classNumbers =
    base::rowNumbers(elementClasses, [](const FactoryRow& row) { return row.nodeClass.name; });

// The class with that name, or null.
const FactoryRow* findClass(Token name) {
  const std::size_t number = classNumbers[name];
  return number > 0 ? &elementClasses[number - 1] : nullptr;
}

}  // namespace

base::Ref<PlotElement> makeElement(Token name, PlotDocument& document) {
  const FactoryRow* found = findClass(name);
  return found ? found->make(document) : nullptr;
}

bool isOfItsClass(const dom::Element& element) {
  const FactoryRow* found = findClass(element.tagName());
  return found && element.nodeClass() == &found->nodeClass;
}

std::vector<Token> elementNames() {
  std::vector<Token> names;
  names.reserve(elementClasses.size());
  for (const FactoryRow& row : elementClasses) names.push_back(row.nodeClass.name);
  return names;
}

}  // namespace vantry::plot
