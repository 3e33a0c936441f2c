#include "vantry/plot/values/value_printers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "vantry/base/text_errors.h"
#include "vantry/base/vocabulary.h"
#include "vantry/plot/values/value_parsers.h"
#include "vantry/plot/values/variants.h"

namespace vantry::plot::test {
namespace {

using namespace vantry;
using namespace vantry::plot;
using base::FixedString;
using base::Token;
namespace Word = base::Word;

template <class PutXml, class Value>
std::string xml(const Value& value) {
  std::ostringstream out;
  PutXml::put(out, value);
  return out.str();
}

template <class PutCmd, class Value>
std::string cmd(const Value& value, Token unit = Word::MM) {
  std::ostringstream out;
  CmdWriter writer(out, unit);
  PutCmd::put(writer, value);
  return out.str();
}

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(PutXml, Numbers) {
  using PutLong = GenericPutXml<std::int32_t>;
  using PutDouble = GenericPutXml<double>;
  EXPECT_EQ(xml<PutLong>(42), "42");
  EXPECT_EQ(xml<PutLong>(-7), "-7");
  EXPECT_EQ(xml<PutDouble>(0.1), "0.1");
  EXPECT_EQ(xml<PutDouble>(1234567.0), "1.23457e+06");
  EXPECT_EQ(xml<PutDouble>(-0.0), "-0");
  EXPECT_EQ(xml<PutDouble>(plot::nan), "nan");
  EXPECT_EQ(xml<PutDouble>(-infinity), "-inf");
}

TEST(PutXml, BoolsAndTokens) {
  EXPECT_EQ(xml<BoolPutXml>(true), "1");
  EXPECT_EQ(xml<BoolPutXml>(false), "0");
  EXPECT_EQ(xml<TokenPutXml>(Token(Word::Flat)), "Flat");
  EXPECT_EQ(xml<TokenPutXml>(Token("a<b", true)), "a<b") << "never escaped";
  EXPECT_EQ(xml<TokenPutXml>(Token()), "");
}

TEST(PutXml, Texts) {
  const FixedString text("<a href=\"x\">&'b'");
  const char* const escaped = "&lt;a href=&quot;x&quot;&gt;&amp;&apos;b&apos;";
  EXPECT_EQ(xml<StringPutXml>(text), escaped);
  EXPECT_EQ(xml<MStringPutXml>(text), escaped);
  EXPECT_EQ(xml<StringPutXml>(FixedString()), "");
  EXPECT_EQ(xml<MStringPutXml>(FixedString()), "");
}

TEST(PutXml, Colors) {
  using Put = GenericPutXml<RGBA>;
  EXPECT_EQ(xml<Put>(RGBA(0xFFFF8000)), "#ff8000");
  EXPECT_EQ(xml<Put>(RGBA(0x80FF8000)), "#ff800080");
  EXPECT_EQ(xml<Put>(RGBA(0x00010203)), "#01020300");
  EXPECT_EQ(xml<Put>(black), "#000000");
}

TEST(PutXml, Points) {
  EXPECT_EQ(xml<GenericPutXml<P2>>(P2{1.5, -2}), "1.5 -2");
  EXPECT_EQ(xml<GenericPutXml<P3>>(P3{0.125, 1e10, plot::nan}), "0.125 1e+10 nan");
}

TEST(PutXml, Fonts) {
  using Put = GenericPutXml<FontStyle>;
  EXPECT_EQ(xml<Put>(FontStyle::standard()), "'Times' 11 #000000 Left");
  EXPECT_EQ(xml<Put>(FontStyle{"My Font", 14, true, RGBA(0x80FF0000), true, Word::Center}),
            "'My Font' 14 Italic Bold #ff000080 Center");
  EXPECT_EQ(xml<Put>(FontStyle{"F", 9, true, black, false, Word::Right}),
            "'F' 9 Italic #000000 Right");
  EXPECT_EQ(xml<Put>(FontStyle{"F", 9, false, black, true, Word::Right}),
            "'F' 9 Bold #000000 Right");
  EXPECT_EQ(xml<Put>(FontStyle{{}, 9, false, black, false, Word::Left}), "'' 9 #000000 Left");
}

TEST(PutXml, WhatIsPrintedIsReadAgain) {
  for (const char* text : {"'sans-serif' 14", "serif 9 Bold", "'A B' 7 Italic #12345678 Right"}) {
    FontStyle font;
    ASSERT_TRUE(FontStyleParser::parse(font, text));
    FontStyle again;
    ASSERT_TRUE(FontStyleParser::parse(again, xml<GenericPutXml<FontStyle>>(font).c_str()));
    EXPECT_EQ(font, again);
  }
  FontStyle helvetica;
  FontStyleParser::parse(helvetica, "'sans-serif' 14");
  EXPECT_EQ(xml<GenericPutXml<FontStyle>>(helvetica), "'Helvetica' 14 #000000 Left");

  for (const RGBA color : {RGBA(0xFFFF8000), RGBA(0x80FF8000), RGBA(0x01000000), RGBA(0)}) {
    RGBA again;
    ASSERT_TRUE(ColorParser::parse(again, xml<GenericPutXml<RGBA>>(color).c_str()));
    EXPECT_EQ(color, again);
  }
}

TEST(PutCmd, NumbersAndSizes) {
  EXPECT_EQ(cmd<GenericPutCmd<std::int32_t>>(42), "42");
  EXPECT_EQ(cmd<GenericPutCmd<double>>(0.25, Word::In), "0.25");
  EXPECT_EQ(cmd<SizePutCmd>(25.4, Word::MM), "25.4");
  EXPECT_EQ(cmd<SizePutCmd>(25.4, Word::In), "1");
  EXPECT_EQ(cmd<SizePutCmd>(25.4, Word::Pt), "72");
  EXPECT_EQ(cmd<SizePutCmd>(25.4, Token("Elle", true)), "72") << "any other word means points";
}

TEST(PutCmd, Words) {
  EXPECT_EQ(cmd<BoolPutCmd>(true), "TRUE");
  EXPECT_EQ(cmd<BoolPutCmd>(false), "FALSE");
  EXPECT_EQ(cmd<TokenPutCmd>(Token(Word::Flat)), "Flat");
  EXPECT_EQ(cmd<UnitPutCmd>(Token(Word::MM)), "unit::mm");
  EXPECT_EQ(cmd<UnitPutCmd>(Token(Word::In)), "unit::inch");
  EXPECT_EQ(cmd<UnitPutCmd>(Token(Word::Pt)), "unit::pt");
  EXPECT_EQ(cmd<UnitPutCmd>(Token(Word::Flat)), "unit::pt");
}

TEST(PutCmd, Texts) {
  const FixedString text("a\b\t\n\r\"\\b <&'");
  EXPECT_EQ(cmd<StringPutCmd>(text), "\"a\b\t\n\r\"\\b <&'\"") << "as it is";
  EXPECT_EQ(cmd<MStringPutCmd>(text), R"("a\b\t\n\r\"\\b <&'")");
  EXPECT_EQ(cmd<MStringPutCmd>(FixedString("")), "\"\"");
  EXPECT_EQ(cmd<StringPutCmd>(FixedString()), "\"\"");
}

TEST(PutCmd, ColorsPointsAndFonts) {
  EXPECT_EQ(cmd<RGBAPutCmd>(white), "[1,1,1]");
  EXPECT_EQ(cmd<RGBAPutCmd>(RGBA(255, 51, 0, 102)), "[1,0.2,0,0.4]");
  EXPECT_EQ(cmd<RGBAPutCmd>(RGBA(0, 0, 0, 0)), "[0,0,0,0]");
  EXPECT_EQ(cmd<P2PutCmd>(P2{1, 2.5}), "[1,2.5]");
  EXPECT_EQ(cmd<P3PutCmd>(P3{1, 2.5, -3}), "[1,2.5,-3]");
  EXPECT_EQ(cmd<FontStylePutCmd>(FontStyle::standard()), "[\"Times\",11,[0,0,0],Left]");
  EXPECT_EQ(cmd<FontStylePutCmd>(FontStyle{"A B", 9, true, RGBA(255, 0, 0, 51), true, Word::Right}),
            "[\"A B\",9,Bold,Italic,[1,0,0,0.2],Right]");
}

TEST(CmdWriter, ItemsAreOnLinesOfTheirOwn) {
  std::ostringstream out;
  CmdWriter writer(out, Word::MM);
  writer.beginItem();
  out << "a(\n";
  writer.beginItem();
  out << "b";
  writer.endItem();
  writer.beginItem();
  out << "c";
  writer.endItem();
  out << ")";
  writer.endItem();
  writer.beginItem();
  out << "d";
  writer.endItem();
  EXPECT_EQ(out.str(),
            "  a(\n"
            "    b,\n"
            "    c),\n"
            "  d");
}

}  // namespace
}  // namespace vantry::plot::test
