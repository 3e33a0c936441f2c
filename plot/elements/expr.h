// Expressions of the algebra system, which a drawing carries along as texts.
#pragma once

#include "vantry/plot/framework/property_impl.h"
#include "vantry/plot/framework/text_content.h"

namespace vantry::plot {

using base::WordId;

/// A text with one attribute, `name`, of the type `Trait`, which also tells the value that stands
/// for an absent one. The attribute counts as set from the beginning. Any other name is reported
/// and throws DomException 15.
template <class Base, WordId name, class Trait>
class WithAttribute : public Base {
 public:
  using Value = typename Trait::Value;
  static constexpr Token attributeName = base::tokenOf(name);

  using Base::Base;

  Variant getAttribute(Token key) const override {
    requireName(key);
    return typename Trait::VariantKind(attribute_);
  }
  bool hasAttribute(Token key) const override { return key == attributeName; }
  bool canSetAttribute(Token key, const Variant& value) const override {
    const auto typed = value.template as<typename Trait::VariantKind>();
    return key == attributeName && typed && findProperty(key)->accepts(*this, value);
  }
  bool canBeWritten() const override {
    const Property* property = findProperty(attributeName);
    return property->canBeWritten(*this, getAttribute(attributeName)) && Base::canBeWritten();
  }
  void doSetAttribute(Token key, const Variant& value) override {
    requireName(key);
    attribute_ = value.template as<typename Trait::VariantKind>()->get();
    this->noteChange();
  }
  Variant getPropertyValue(Token key) const override {
    this->requireProperty(key);
    return getAttribute(key);
  }
  void setPropertyValue(Token key, const Variant& value) override {
    this->requireProperty(key);
    this->setAttribute(key, value);
  }
  const Property* findProperty(Token key) const override {
    static const auto& property =
        *new MandatoryListPropertyImpl<Trait>(attributeName, Trait::absent);  // for ever
    return key == attributeName ? &property : nullptr;
  }

 protected:
  WithAttribute(const WithAttribute&) = default;

  const Value& attribute() const { return attribute_; }

  void requireName(Token key) const {
    if (key == attributeName) return;
    this->refuse(RefusalKind::foreignAttribute, key);
    throw dom::DomException(dom::DomException::InvalidAccess);
  }

 private:
  Value attribute_ = Trait::absent;
};

struct OptionTrait : TokenTrait {
  static constexpr Token absent{};
  static const char* whyNoText(Token option) { return whyNoOption(option); }
};

struct ExprValueTrait : DoubleTrait {
  static constexpr double absent = nan;
};

/// An expression that is the value of an option.
class Expr : public ElementOf<Expr, WithAttribute<PCDataElement, WordId::Opt, OptionTrait>> {
 public:
  static constexpr Token tag = Word::Expr;
  using ElementOf::ElementOf;

  /// The name of the option, null until it is set.
  Token option() const { return attribute(); }

  void setAttributeFromString(Token name, const char* text) override;
  std::ostream& writeAttributes(std::ostream& out) const override;
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
class VExpr : public ElementOf<VExpr, WithAttribute<SeqExprElement, WordId::Val, ExprValueTrait>> {
 public:
  static constexpr Token tag = Word::VExpr;
  using ElementOf::ElementOf;

  double value() const { return attribute(); }

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
