#include "vantry/plot/elements/property_info.h"

#include "vantry/plot/framework/element_with_children.h"

namespace vantry::plot {

namespace {

// clang-format off
constexpr PropertyListOf objTypeProperties{
    mandatory<TokenType, &ObjType::type> (Word::Type, {}),
};

constexpr PropertyListOf propCatProperties{
    mandatory<StringType, &PropCat::name> (Word::Name, {}),
};

constexpr PropertyListOf propInfoProperties{
    optional<StringType, &PropInfo::name>      (Word::Name,   {}),
    mandatory<TokenType, &PropInfo::dom>       (Word::Dom,    {}),
    optional<TokenType,  &PropInfo::opt>       (Word::Opt,    {}),
    optional<TokenType,  &PropInfo::type>      (Word::Type,   {}),
    optional<StringType, &PropInfo::enumWords> (Word::Enum,   {}),
    optional<StringType, &PropInfo::info>      (Word::Info,   {}),
    optional<BoolType,   &PropInfo::recalc>    (Word::Recalc, false),
};

constexpr PropertyListOf propProperties{
    mandatory<TokenType,  &Prop::opt> (Word::Opt, {}),
    mandatory<StringType, &Prop::val> (Word::Val, {}),
};
// clang-format on

}  // namespace

const PropertyList& ObjType::propertyList() { return objTypeProperties; }
const PropertyList& PropCat::propertyList() { return propCatProperties; }
const PropertyList& PropInfo::propertyList() { return propInfoProperties; }
const PropertyList& Prop::propertyList() { return propProperties; }

ObjType::ObjType(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

PropCat::PropCat(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

PropInfo::PropInfo(ElementDocument* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

Prop::Prop(ElementDocument* document) : ElementOf(document) { propertyList().initialise(*this); }

bool ObjType::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return isContentOf(*this, newChildren);
}

bool PropCat::canBeWritten() const {
  if (!name().c_str() || *name().c_str() == '\0') {
    return refuse(RefusalKind::categoryWithoutName);
  }
  return ElementOf::canBeWritten();
}

bool PropCat::canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const {
  return isContentOf(*this, newChildren);
}

}  // namespace vantry::plot
