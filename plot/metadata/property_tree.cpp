#include "vantry/plot/metadata/property_tree.h"

#include <span>
#include <string>
#include <string_view>

#include "vantry/plot/document.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/metadata/property_categories.h"

namespace vantry::plot {

using base::Ref;

namespace {

constexpr Token objectTypes2d[] = {Word::Circle2d,     Word::Curve2d,         Word::Ellipse2d,
                                   Word::Function2d,   Word::Hatch,           Word::Implicit2d,
                                   Word::Polygon2d,    Word::PrimitiveList2d, Word::Rectangle,
                                   Word::VectorField2d};

constexpr Token objectTypes3d[] = {Word::Curve3d,      Word::Function3d,      Word::Implicit3d,
                                   Word::Polygon3d,    Word::PrimitiveList3d, Word::Surface,
                                   Word::VectorField3d};

constexpr Token transformTypes2d[] = {Word::Rotate2d, Word::Scale2d, Word::Translate2d};

constexpr Token transformTypes3d[] = {Word::Rotate3d, Word::Scale3d, Word::Translate3d};

/// The types that are not element classes as well, by the class that has them.
struct TypesOfClass {
  Token elementClass;
  std::span<const Token> types;
};

constexpr TypesOfClass typesOfClasses[] = {
    {Word::Obj2d, objectTypes2d},
    {Word::Obj3d, objectTypes3d},
    {Word::Transform2d, transformTypes2d},
    {Word::Transform3d, transformTypes3d},
};

/// The texts of the tree are permanent, as all threads read them.
Variant textForAllThreads(const char* text) {
  return base::FixedStringVariant(base::FixedString::permanent(text));
}

template <class T>
Ref<T> make(PlotDocument& tree) {
  return Ref<T>::cast(tree.createElement(T::tag));
}

Ref<PropInfo> describe(const Property& property, Recalculation recalculation, PlotDocument& tree) {
  Ref<PropInfo> info = make<PropInfo>(tree);
  info->setAttribute(Word::Dom, base::TokenVariant(property.name()));
  if (property.isInCommand()) {
    info->setAttribute(Word::Opt, base::TokenVariant(property.name()));
  }
  info->setAttribute(Word::Type, base::TokenVariant(property.editorWord()));
  info->setAttribute(Word::Recalc, base::BoolVariant(recalculation == Recalculation::needed));

  std::string words;
  for (const Token word : property.allowedWords()) {
    if (!words.empty()) words += ' ';
    words += word.str();
  }
  if (!words.empty()) {
    info->setAttribute(Word::Enum, textForAllThreads(words.c_str()));
  }
  return info;
}

/// Puts the properties of `element` that the row names at the end of `category`.
void addProperties(PropCat& category, const CategoryRow& row, const PlotElement& element,
                   PlotDocument& tree) {
  for (const Token name : row.properties) {
    if (const Property* property = element.findProperty(name)) {
      category.appendChild(describe(*property, row.recalculation, tree).get());
    }
  }
}

/// The same for the properties that no row names.
void addOtherProperties(PropCat& definition, const PlotElement& element, PlotDocument& tree) {
  for (const Token name : base::wordTokens) {
    const Property* property = element.findProperty(name);
    if (property && isOnlyInTheDefinition(name)) {
      definition.appendChild(describe(*property, Recalculation::needless, tree).get());
    }
  }
}

Ref<ObjType> describeClass(Token type, Token elementClass, PlotDocument& tree) {
  const Ref<PlotElement> element(tree.createElement(elementClass));
  Ref<ObjType> description = make<ObjType>(tree);
  description->setAttribute(Word::Type, base::TokenVariant(type));

  Ref<PropCat> category;
  std::string_view nameOfCategory;
  for (const CategoryRow& row : propertyCategories()) {
    if (nameOfCategory != row.category) {
      nameOfCategory = row.category;
      category = make<PropCat>(tree);
    }
    addProperties(*category, row, *element, tree);
    if (&row == &definitionRow()) addOtherProperties(*category, *element, tree);
    if (category->firstChild() && !category->parent()) {
      category->setAttribute(Word::Name, textForAllThreads(row.category));
      description->appendChild(category.get());
    }
  }
  return description;
}

/// A document of its own, with a description of each class and type below its canvas.
Ref<PlotDocument> buildTree() {
  Ref<PlotDocument> tree = new PlotDocument;
  const Ref<PlotElement> root(tree->createElement(Word::Canvas));
  for (const Token name : elementNames()) {
    root->appendChild(describeClass(name, name, *tree).get());
  }
  for (const TypesOfClass& group : typesOfClasses) {
    for (const Token type : group.types) {
      root->appendChild(describeClass(type, group.elementClass, *tree).get());
    }
  }
  tree->appendChild(root.get());
  return tree;
}

// Never destroyed, as the destructors of static objects may still ask for it.
const PlotDocument& propertyTree() {
  static const auto& tree = *new Ref<PlotDocument>(buildTree());
  return *tree;
}

}  // namespace

const ObjType* propertyInfo(Token name) {
  const dom::Node* child = propertyTree().documentElement()->firstChild();
  for (; child; child = child->nextSibling()) {
    const auto* description = elementCast<ObjType>(child);
    if (description && description->type() == name) return description;
  }
  return nullptr;
}

}  // namespace vantry::plot
