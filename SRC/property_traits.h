// What the values of properties are: how each type is held, read and written.
#pragma once

#include "SRC/plot_variants.h"
#include "SRC/value_parsers.h"
#include "SRC/value_printers.h"

namespace PlotDom {

/// The five aspects of a type of value. A named type derives from one of the traits below and may
/// add a rule, as static members that the properties look for:
///   isValid(value)    false refuses a value,
///   normalize(value)  changes a value when it is stored,
///   allowed           the words of an enumeration, in their order; they are told to a host and
///                     never enforced: any word is accepted and kept,
///   hiddenInXml, hiddenInCommand   the property is left out of that form.
template <class VariantKind_, class Value_, class Parser_, class PutXml_, class PutCmd_>
struct PropertyValueTrait {
  using VariantKind = VariantKind_;
  using Value = Value_;
  using Parser = Parser_;
  using PutXml = PutXml_;
  using PutCmd = PutCmd_;
};

struct BoolTrait
    : PropertyValueTrait<Ubase::BoolVariant, bool, BoolParser, BoolPutXml, BoolPutCmd> {};

struct LongTrait : PropertyValueTrait<Ubase::LongVariant, std::int32_t, LongParser,
                                      GenericPutXml<std::int32_t>, GenericPutCmd<std::int32_t>> {};

struct DoubleTrait : PropertyValueTrait<Ubase::DoubleVariant, double, DoubleParser,
                                        GenericPutXml<double>, GenericPutCmd<double>> {};

/// A length in millimetres.
struct SizeTrait : PropertyValueTrait<Ubase::DoubleVariant, double, DoubleParser,
                                      GenericPutXml<double>, SizePutCmd> {};

struct TokenTrait
    : PropertyValueTrait<Ubase::TokenVariant, Ubase::Token, TokenParser, TokenPutXml, TokenPutCmd> {
};

/// Bytes that are kept as they came.
struct Utf8StringTrait : PropertyValueTrait<Ubase::FixedStringVariant, Ubase::FixedString,
                                            Utf8StringParser, StringPutXml, StringPutCmd> {};

/// Text for people, in the native encoding.
struct StringTrait : PropertyValueTrait<Ubase::FixedStringVariant, Ubase::FixedString,
                                        MStringParser, MStringPutXml, MStringPutCmd> {};

struct RGBATrait
    : PropertyValueTrait<RGBAVariant, RGBA, ColorParser, GenericPutXml<RGBA>, RGBAPutCmd> {};

struct P2Trait : PropertyValueTrait<P2Variant, P2, P2Parser, GenericPutXml<P2>, P2PutCmd> {};

struct P3Trait : PropertyValueTrait<P3Variant, P3, P3Parser, GenericPutXml<P3>, P3PutCmd> {};

struct FontStyleTrait : PropertyValueTrait<FontStyleVariant, FontStyle, FontStyleParser,
                                           GenericPutXml<FontStyle>, FontStylePutCmd> {};

}  // namespace PlotDom
