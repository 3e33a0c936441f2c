// Expressions of the algebra system, which a drawing carries along as texts.
#pragma once

#include "vantry/dom/dom_exception.h"
#include "vantry/plot/framework/text_element.h"
#include "vantry/plot/framework/with_properties.h"

namespace vantry::plot {

using base::WordId;

/// A text with one attribute, the property of the class, which counts as set from the beginning.
/// Any other name is reported and throws DomException InvalidAccess.
template <class Self, class Base>
class WithAttribute : public WithProperties<Self, Base>, public MemberValues {
 public:
  using WithProperties<Self, Base>::WithProperties;

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
class Expr : public ElementOf<Expr, WithAttribute<Expr, TextElement>> {
 public:
  static constexpr Token tag = Word::Expr;

  explicit Expr(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<Token> option;  ///< its name; null until it is set

  void setAttributeFromString(Token name, const char* text) override;
  bool beginCommand(CmdWriter& writer) const override;
};

/// The base of texts in lists or at fixed places.
class SeqExprElement : public TextElement {
 public:
  using TextElement::TextElement;

  /// The bare text: commas are written by the lists around it.
  bool beginCommand(CmdWriter& writer) const override;

 protected:
  SeqExprElement(const SeqExprElement&) = default;
};

/// An item of a list of expressions.
using IExpr = ElementNamed<WordId::IExpr, SeqExprElement>;

/// An expression with its value, NaN where that is not known.
class VExpr : public ElementOf<VExpr, WithAttribute<VExpr, SeqExprElement>> {
 public:
  static constexpr Token tag = Word::VExpr;

  explicit VExpr(ElementDocument* document);

  static const PropertyList& propertyList();

  Resolved<double> value;

  void setAttributeFromString(Token name, const char* text) override;
  std::ostream& writeAttributes(std::ostream& out) const override;
};

/// The base of single expressions that are named by their element.
class NamedExprElement : public TextElement {
 public:
  using TextElement::TextElement;

  bool beginCommand(CmdWriter& writer) const override;

 protected:
  NamedExprElement(const NamedExprElement&) = default;
};

using ParameterName = ElementNamed<WordId::ParameterName, NamedExprElement>;
using TitlePositionX = ElementNamed<WordId::TitlePositionX, NamedExprElement>;
using TitlePositionY = ElementNamed<WordId::TitlePositionY, NamedExprElement>;
using TitlePositionZ = ElementNamed<WordId::TitlePositionZ, NamedExprElement>;

/// The base of single expressions with a value that are named by their element.
class NamedVExprElement : public VExpr {
 public:
  using VExpr::VExpr;

  bool beginCommand(CmdWriter& writer) const override;

 protected:
  NamedVExprElement(const NamedVExprElement&) = default;
};

using AxesOriginX = ElementNamed<WordId::AxesOriginX, NamedVExprElement>;
using AxesOriginY = ElementNamed<WordId::AxesOriginY, NamedVExprElement>;
using AxesOriginZ = ElementNamed<WordId::AxesOriginZ, NamedVExprElement>;
using ParameterBegin = ElementNamed<WordId::ParameterBegin, NamedVExprElement>;
using ParameterEnd = ElementNamed<WordId::ParameterEnd, NamedVExprElement>;
using XTicksAnchor = ElementNamed<WordId::XTicksAnchor, NamedVExprElement>;
using YTicksAnchor = ElementNamed<WordId::YTicksAnchor, NamedVExprElement>;
using ZTicksAnchor = ElementNamed<WordId::ZTicksAnchor, NamedVExprElement>;
using XTicksDistance = ElementNamed<WordId::XTicksDistance, NamedVExprElement>;
using YTicksDistance = ElementNamed<WordId::YTicksDistance, NamedVExprElement>;
using ZTicksDistance = ElementNamed<WordId::ZTicksDistance, NamedVExprElement>;

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

using ViewingBoxXMin = ElementNamed<WordId::ViewingBoxXMin, ViewingBoxPart<1>>;
using ViewingBoxXMax = ElementNamed<WordId::ViewingBoxXMax, ViewingBoxPart<2>>;
using ViewingBoxYMin = ElementNamed<WordId::ViewingBoxYMin, ViewingBoxPart<4>>;
using ViewingBoxYMax = ElementNamed<WordId::ViewingBoxYMax, ViewingBoxPart<8>>;
using ViewingBoxZMin = ElementNamed<WordId::ViewingBoxZMin, ViewingBoxPart<16>>;
using ViewingBoxZMax = ElementNamed<WordId::ViewingBoxZMax, ViewingBoxPart<32>>;

}  // namespace vantry::plot
