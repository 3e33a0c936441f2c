// The description of properties by elements: types of objects, categories, properties.
#pragma once

#include "vantry/plot/framework/leaf_element.h"

namespace vantry::plot {

/// A type of object, with the categories of its properties.
class ObjType : public ElementOf<ObjType, WithProperties<ObjType, PlotElement>>,
                public MemberValues {
 public:
  static constexpr Token tag = Word::ObjType;

  explicit ObjType(ElementDocument* document);
  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;

  static const PropertyList& propertyList();

  Resolved<Token> type;
};

/// A named category of properties.
class PropCat : public ElementOf<PropCat, WithProperties<PropCat, PlotElement>>,
                public MemberValues {
 public:
  static constexpr Token tag = Word::PropCat;

  explicit PropCat(ElementDocument* document);
  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;
  /// A category must have a name.
  bool canBeWritten() const override;

  static const PropertyList& propertyList();

  Resolved<base::FixedString> name;
};

/// One property: `dom` is its name, `opt` the option of the algebra system's commands that it is,
/// `type` the kind of field with which it is edited, `enumWords` the allowed words, and `recalc`
/// is whether a change makes a new calculation necessary. `name` and `info` have room for what
/// users see of the property, its name and an explanation.
class PropInfo : public ElementOf<PropInfo, WithProperties<PropInfo, LeafElement>> {
 public:
  static constexpr Token tag = Word::PropInfo;

  explicit PropInfo(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<base::FixedString> name;
  Resolved<Token> dom;
  Resolved<Token> opt;
  Resolved<Token> type;
  Resolved<base::FixedString> enumWords;
  Resolved<base::FixedString> info;
  Resolved<bool> recalc;
};

/// An option of the algebra system with its value.
class Prop : public ElementOf<Prop, WithProperties<Prop, LeafElement>> {
 public:
  static constexpr Token tag = Word::Prop;

  explicit Prop(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> opt;
  Resolved<base::FixedString> val;
};

}  // namespace vantry::plot
