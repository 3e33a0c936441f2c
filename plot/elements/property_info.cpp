#include "vantry/plot/elements/property_info.h"

#include "vantry/plot/framework/content_element.h"

namespace vantry::plot {

namespace {

class ObjTypePropertyListMgr final : public PropertyListMgr {
  void fill() override { mandatory<TokenTrait>(Word::Type, {}, 1, &ObjType::type); }
};
constinit ObjTypePropertyListMgr objTypePropertyList;

class PropCatPropertyListMgr final : public PropertyListMgr {
  void fill() override { mandatory<StringTrait>(Word::Name, {}, 1, &PropCat::name); }
};
constinit PropCatPropertyListMgr propCatPropertyList;

class PropInfoPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = PropInfo;
    // clang-format off
    optional<StringTrait>     (Word::Name,   {},     1, &E::name);
    mandatory<TokenTrait>     (Word::Dom,    {},     2, &E::dom);
    optional<TokenTrait>      (Word::Opt,    {},     4, &E::opt);
    optional<TokenTrait>      (Word::Type,   {},     8, &E::type);
    optional<StringTrait>     (Word::Enum,   {},    16, &E::enumWords);
    optional<StringTrait>     (Word::Info,   {},    64, &E::info);
    optional<BoolTrait>       (Word::Recalc, false, 32, &E::recalc);
    // clang-format on
  }
};
constinit PropInfoPropertyListMgr propInfoPropertyList;

class PropPropertyListMgr final : public PropertyListMgr {
  void fill() override {
    using E = Prop;
    // clang-format off
    mandatory<TokenTrait>  (Word::Opt, {}, 1, &E::opt);
    mandatory<StringTrait> (Word::Val, {}, 2, &E::val);
    // clang-format on
  }
};
constinit PropPropertyListMgr propPropertyList;

}  // namespace

PropertyListMgr& ObjType::propertyList() { return objTypePropertyList; }
PropertyListMgr& PropCat::propertyList() { return propCatPropertyList; }
PropertyListMgr& PropInfo::propertyList() { return propInfoPropertyList; }
PropertyListMgr& Prop::propertyList() { return propPropertyList; }

ObjType::ObjType(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

PropCat::PropCat(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

PropInfo::PropInfo(dom::Document* document) : ElementOf(document) {
  propertyList().initialise(*this);
}

Prop::Prop(dom::Document* document) : ElementOf(document) { propertyList().initialise(*this); }

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
