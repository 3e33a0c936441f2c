// Expressions of the algebra system, which a drawing carries along as texts.
#pragma once

#include "vantry/dom/dom_exception.h"
#include "vantry/plot/framework/text_content.h"
#include "vantry/plot/framework/with_members.h"

namespace vantry::plot {

using base::WordId;

/// A text with one attribute, the property of the class, which counts as set from the beginning.
/// Any other name is reported and throws DomException InvalidAccess.
template <class Self, class Base>
class WithAttribute : public WithMembers<Self, Base>, public MemberValues {
 public:
  using WithMembers<Self, Base>::WithMembers;

  Variant getAttribute(Token name) const override {
    requireAttribute(name);
    return Base::getAttribute(name);
  }
  bool canSetAttribute(Token name, const Variant& value) const override {
    const Property* property = this->findProperty(name);
    return property && property->hasKindOf(value) && property->accepts(*this, value);
  }
  void doSetAttribute(Token name, const Variant& value) override {
    requireAttribute(name);
    Base::doSetAttribute(name, value);
  }
  bool canBeWritten() const override {
    return Self::propertyList().canBeWritten(*this) && Base::canBeWritten();
  }
  /// Nobody inherits the attribute, and its observers see it change as an attribute.
  bool parentPropertyChanged(PlotElement&, Token) override { return false; }

 protected:
  WithAttribute(const WithAttribute&) = default;

  void requireAttribute(Token name) const {
    if (this->findProperty(name)) return;
    this->refuse(RefusalKind::foreignAttribute, name);
    throw dom::DomException(dom::DomException::InvalidAccess);
  }
};

/// An expression that is the value of an option.
class Expr : public ElementOf<Expr, WithAttribute<Expr, PCDataElement>> {
 public:
  static constexpr Token tag = Word::Expr;

  explicit Expr(dom::Document* document);

  static const PropertyList& propertyList();

  Resolved<Token> option;  ///< its name; null until it is set

  void setAttributeFromString(Token name, const char* text) override;
  bool beginCommand(CmdWriter& writer) const override;
};

/// The base of texts that stand in lists or at fixed places.
class SeqExprElement : public PCDataElement {
 public:
  using PCDataElement::PCDataElement;

  /// The bare text: commas are written by the lists around it.
  bool beginCommand(CmdWriter& writer) const override;

 protected:
  SeqExprElement(const SeqExprElement&) = default;
};

/// An item of a list of expressions.
using IExpr = NameOnly<WordId::IExpr, SeqExprElement>;

/// An expression with its value, NaN where that is not known.
class VExpr : public ElementOf<VExpr, WithAttribute<VExpr, SeqExprElement>> {
 public:
  static constexpr Token tag = Word::VExpr;

  explicit VExpr(dom::Document* document);

  static const PropertyList& propertyList();

  Resolved<double> value;

  void setAttributeFromString(Token name, const char* text) override;
  std::ostream& writeAttributes(std::ostream& out) const override;
};

/// The base of single expressions that are named by their element.
class NamedExprElement : public PCDataElement {
 public:
  using PCDataElement::PCDataElement;

  bool beginCommand(CmdWriter& writer) const override;

 protected:
  NamedExprElement(const NamedExprElement&) = default;
};

using ParameterName = NameOnly<WordId::ParameterName, NamedExprElement>;
using TitlePositionX = NameOnly<WordId::TitlePositionX, NamedExprElement>;
using TitlePositionY = NameOnly<WordId::TitlePositionY, NamedExprElement>;
using TitlePositionZ = NameOnly<WordId::TitlePositionZ, NamedExprElement>;

/// The base of single expressions with a value that are named by their element.
class NamedVExprElement : public VExpr {
 public:
  using VExpr::VExpr;

  bool beginCommand(CmdWriter& writer) const override;

 protected:
  NamedVExprElement(const NamedVExprElement&) = default;
};

using AxesOriginX = NameOnly<WordId::AxesOriginX, NamedVExprElement>;
using AxesOriginY = NameOnly<WordId::AxesOriginY, NamedVExprElement>;
using AxesOriginZ = NameOnly<WordId::AxesOriginZ, NamedVExprElement>;
using ParameterBegin = NameOnly<WordId::ParameterBegin, NamedVExprElement>;
using ParameterEnd = NameOnly<WordId::ParameterEnd, NamedVExprElement>;
using XTicksAnchor = NameOnly<WordId::XTicksAnchor, NamedVExprElement>;
using YTicksAnchor = NameOnly<WordId::YTicksAnchor, NamedVExprElement>;
using ZTicksAnchor = NameOnly<WordId::ZTicksAnchor, NamedVExprElement>;
using XTicksDistance = NameOnly<WordId::XTicksDistance, NamedVExprElement>;
using YTicksDistance = NameOnly<WordId::YTicksDistance, NamedVExprElement>;
using ZTicksDistance = NameOnly<WordId::ZTicksDistance, NamedVExprElement>;

/// A bound of the viewing box.
class ViewingBoxExprElement : public NamedVExprElement {
 public:
  using NamedVExprElement::NamedVExprElement;

  /// The bit of the bound in the `AutoViewingBox` of a coordinate system.
  virtual std::int32_t viewingBoxBit() const = 0;

  /// Nothing for a bound that the algebra system computes by itself.
  bool beginCommand(CmdWriter& writer) const override;

 protected:
  ViewingBoxExprElement(const ViewingBoxExprElement&) = default;
};

template <std::int32_t bit>
class ViewingBoxPart : public ViewingBoxExprElement {
 public:
  using ViewingBoxExprElement::ViewingBoxExprElement;
  std::int32_t viewingBoxBit() const override { return bit; }

 protected:
  ViewingBoxPart(const ViewingBoxPart&) = default;
};

using ViewingBoxXMin = NameOnly<WordId::ViewingBoxXMin, ViewingBoxPart<1>>;
using ViewingBoxXMax = NameOnly<WordId::ViewingBoxXMax, ViewingBoxPart<2>>;
using ViewingBoxYMin = NameOnly<WordId::ViewingBoxYMin, ViewingBoxPart<4>>;
using ViewingBoxYMax = NameOnly<WordId::ViewingBoxYMax, ViewingBoxPart<8>>;
using ViewingBoxZMin = NameOnly<WordId::ViewingBoxZMin, ViewingBoxPart<16>>;
using ViewingBoxZMax = NameOnly<WordId::ViewingBoxZMax, ViewingBoxPart<32>>;

}  // namespace vantry::plot
