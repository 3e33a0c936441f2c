// What the values of properties are: how each type is held, read and written.
#pragma once

#include "vantry/base/vocabulary.h"
#include "vantry/plot/values/format_limits.h"
#include "vantry/plot/values/value_parsers.h"
#include "vantry/plot/values/value_printers.h"
#include "vantry/plot/values/variants.h"

namespace vantry::plot {

/// The five aspects of a type of value. Each type also has a word for the kind of field in which a
/// host may edit it, `editor`. A named type derives from one of the traits below and may add a
/// rule, as static members that the properties look for:
///   isValid(value)    false refuses a value,
///   normalize(value)  changes a value when it is stored,
///   allowed           the words of an enumeration, in their order; they are told to a host and
///                     never enforced: any word is accepted and kept,
///   hiddenInXml, hiddenInCommand   the property is left out of that form,
///   whyNoText(value)  a reason to refuse a value, which no text gives; null for any other,
///   whyNotWritten(value)   a reason not to write one that some text gives; null for any other.
template <class VariantKind_, class Value_, class Parser_, class PutXml_, class PutCmd_>
struct PropertyValueTrait {
  using VariantKind = VariantKind_;
  using Value = Value_;
  using Parser = Parser_;
  using PutXml = PutXml_;
  using PutCmd = PutCmd_;
};

struct BoolTrait : PropertyValueTrait<base::BoolVariant, bool, BoolParser, BoolPutXml, BoolPutCmd> {
  static constexpr base::Token editor = base::Word::Bool;
};

struct LongTrait : PropertyValueTrait<base::LongVariant, std::int32_t, LongParser,
                                      GenericPutXml<std::int32_t>, GenericPutCmd<std::int32_t>> {
  static constexpr base::Token editor = base::Word::Int;
};

struct DoubleTrait : PropertyValueTrait<base::DoubleVariant, double, DoubleParser,
                                        GenericPutXml<double>, GenericPutCmd<double>> {
  static constexpr base::Token editor = base::Word::Float;
};

/// A length in millimetres.
struct SizeTrait : PropertyValueTrait<base::DoubleVariant, double, DoubleParser,
                                      GenericPutXml<double>, SizePutCmd> {
};  // its named types tell their editors

struct TokenTrait
    : PropertyValueTrait<base::TokenVariant, base::Token, TokenParser, TokenPutXml, TokenPutCmd> {
  static constexpr base::Token editor = base::Word::Token;
  static const char* whyNoText(base::Token word) { return plot::whyNoText(word); }
  static const char* whyNotWritten(base::Token word) { return plot::whyNotWritten(word); }
};

/// Bytes that are kept as they came.
struct Utf8StringTrait : PropertyValueTrait<base::FixedStringVariant, base::FixedString,
                                            Utf8StringParser, StringPutXml, StringPutCmd> {
  static constexpr base::Token editor = base::Word::String;
};

/// Text for people, in the native encoding.
struct StringTrait : PropertyValueTrait<base::FixedStringVariant, base::FixedString, MStringParser,
                                        MStringPutXml, MStringPutCmd> {
  static constexpr base::Token editor = base::Word::String;
  static const char* whyNoText(const base::FixedString& text) { return plot::whyNoText(text); }
};

struct RGBATrait
    : PropertyValueTrait<RGBAVariant, RGBA, ColorParser, GenericPutXml<RGBA>, RGBAPutCmd> {
  static constexpr base::Token editor = base::Word::Color;
};

struct P2Trait : PropertyValueTrait<P2Variant, P2, P2Parser, GenericPutXml<P2>, P2PutCmd> {
  static constexpr base::Token editor = base::Word::P2;
};

struct P3Trait : PropertyValueTrait<P3Variant, P3, P3Parser, GenericPutXml<P3>, P3PutCmd> {
  static constexpr base::Token editor = base::Word::P3;
};

struct FontStyleTrait : PropertyValueTrait<FontStyleVariant, FontStyle, FontStyleParser,
                                           GenericPutXml<FontStyle>, FontStylePutCmd> {
  static constexpr base::Token editor = base::Word::Font;
  static const char* whyNoText(const FontStyle& font) { return plot::whyNoText(font); }
};

}  // namespace vantry::plot
