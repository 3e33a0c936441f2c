// The basic types of properties: how each is held, read and written.
#pragma once

#include "vantry/base/vocabulary.h"
#include "vantry/plot/framework/value_type.h"
#include "vantry/plot/values/format_limits.h"
#include "vantry/plot/values/value_parsers.h"
#include "vantry/plot/values/value_printers.h"
#include "vantry/plot/values/variants.h"

namespace vantry::plot {

/// The aspects of a type of property, from which TypedValue is made. Each type also has a word for
/// the kind of field in which a host may edit it, `editor`. A named type derives from one of the
/// types below and may add a rule, as static members:
///   isValid(value)    false refuses a value,
///   normalize(value)  changes a value when it is stored,
///   allowed           the words of an enumeration, in their order; a host can ask for them, and
///                     they are never enforced: any word is accepted and kept,
///   hiddenInXml, hiddenInCommand   the property is left out of that form,
///   whyNoText(value)  a reason to refuse a value, which no text gives; null for any other,
///   whyNotWritten(value)   a reason not to write one that some text gives; null for any other.
template <class VariantKind_, class Value_, class Parser_, class PutXml_, class PutCmd_,
          class Default_ = Value_>
struct PropertyType {
  using VariantKind = VariantKind_;
  using Value = Value_;
  using Default = Default_;  // one of DefaultValue
  using Parser = Parser_;
  using PutXml = PutXml_;
  using PutCmd = PutCmd_;
};

struct BoolType : PropertyType<base::BoolVariant, bool, BoolParser, BoolPutXml, BoolPutCmd> {
  static constexpr base::Token editor = base::Word::Bool;
};

struct LongType : PropertyType<base::LongVariant, std::int32_t, LongParser,
                               GenericPutXml<std::int32_t>, GenericPutCmd<std::int32_t>> {
  static constexpr base::Token editor = base::Word::Int;
};

struct DoubleType : PropertyType<base::DoubleVariant, double, DoubleParser, GenericPutXml<double>,
                                 GenericPutCmd<double>> {
  static constexpr base::Token editor = base::Word::Float;
};

/// A length in millimetres.
struct SizeType
    : PropertyType<base::DoubleVariant, double, DoubleParser, GenericPutXml<double>, SizePutCmd> {
};  // its named types have their editors

struct TokenType
    : PropertyType<base::TokenVariant, base::Token, TokenParser, TokenPutXml, TokenPutCmd> {
  static constexpr base::Token editor = base::Word::Token;
  static const char* whyNoText(base::Token word) { return plot::whyNoText(word); }
  static const char* whyNotWritten(base::Token word) { return plot::whyNotWritten(word); }
};

/// Bytes that are kept as they came.
struct Utf8StringType : PropertyType<base::FixedStringVariant, base::FixedString, Utf8StringParser,
                                     StringPutXml, StringPutCmd, NoText> {
  static constexpr base::Token editor = base::Word::String;
};

/// Text for people, in the native encoding.
struct StringType : PropertyType<base::FixedStringVariant, base::FixedString, MStringParser,
                                 MStringPutXml, MStringPutCmd, NoText> {
  static constexpr base::Token editor = base::Word::String;
  static const char* whyNoText(const base::FixedString& text) { return plot::whyNoText(text); }
};

struct RGBAType : PropertyType<RGBAVariant, RGBA, ColorParser, GenericPutXml<RGBA>, RGBAPutCmd> {
  static constexpr base::Token editor = base::Word::Color;
};

struct P2Type : PropertyType<P2Variant, P2, P2Parser, GenericPutXml<P2>, P2PutCmd> {
  static constexpr base::Token editor = base::Word::P2;
};

struct P3Type : PropertyType<P3Variant, P3, P3Parser, GenericPutXml<P3>, P3PutCmd> {
  static constexpr base::Token editor = base::Word::P3;
};

struct FontStyleType : PropertyType<FontStyleVariant, FontStyle, FontStyleParser,
                                    GenericPutXml<FontStyle>, FontStylePutCmd, StandardFont> {
  static constexpr base::Token editor = base::Word::Font;
  static const char* whyNoText(const FontStyle& font) { return plot::whyNoText(font); }
};

}  // namespace vantry::plot
