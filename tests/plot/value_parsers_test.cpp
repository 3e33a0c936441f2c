#include "vantry/plot/values/value_parsers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "vantry/base/token_table.h"
#include "vantry/base/vocabulary.h"

namespace vantry::plot::test {
namespace {

using namespace vantry;
using namespace vantry::plot;
using base::FixedString;
using base::Token;
namespace Word = base::Word;

/// What a parser makes of a text.
template <class Parser, class Value>
struct Parse {
  Value value{};
  bool isAccepted = false;
  explicit Parse(const std::string& text) : isAccepted(Parser::parse(value, text.c_str())) {}
};

using Long = Parse<LongParser, std::int32_t>;
using Double = Parse<DoubleParser, double>;
using Bool = Parse<BoolParser, bool>;
using Word_ = Parse<TokenParser, Token>;
using Color = Parse<ColorParser, RGBA>;
using Point2 = Parse<P2Parser, P2>;
using Point3 = Parse<P3Parser, P3>;
using Utf8 = Parse<Utf8StringParser, FixedString>;
using MString = Parse<MStringParser, FixedString>;
using Font = Parse<FontStyleParser, FontStyle>;

TEST(LongParser, TakesANumberAndIgnoresTheRest) {
  const std::pair<const char*, std::int32_t> accepted[] = {
      {"12", 12},
      {" 12abc", 12},
      {"-7", -7},
      {"+5", 5},
      {"\t\n 3 4", 3},
      {"1.9", 1},
      {"007", 7},
      {"-0", 0},
      {"0x10", 0},
      {"2147483647", 2147483647},
      {"-2147483648", -2147483647 - 1},
  };
  for (const auto& [text, value] : accepted) {
    const Long parse(text);
    EXPECT_TRUE(parse.isAccepted) << text;
    EXPECT_EQ(parse.value, value) << text;
  }
  for (const char* text : {"", " ", "abc", "-", "+", ".5", "#1", "e3"}) {
    EXPECT_FALSE(Long(text).isAccepted) << text;
  }
}

TEST(LongParser, SaturatesAt32Bits) {
  EXPECT_EQ(Long("2147483648").value, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Long("-2147483649").value, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Long("99999999999999999999999").value, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Long("-99999999999999999999999").value, std::numeric_limits<std::int32_t>::min());
}

TEST(DoubleParser, TakesANumberAndIgnoresTheRest) {
  const std::pair<const char*, double> accepted[] = {
      {"1.5", 1.5},
      {"1.5 x", 1.5},
      {" -2.25e2", -225},
      {".5", 0.5},
      {"5.", 5},
      {"1e3abc", 1000},
      {"0x10", 16},
      {"12,5", 12},
      {"inf", std::numeric_limits<double>::infinity()},
      {"-infinity", -std::numeric_limits<double>::infinity()},
  };
  for (const auto& [text, value] : accepted) {
    const Double parse(text);
    EXPECT_TRUE(parse.isAccepted) << text;
    EXPECT_EQ(parse.value, value) << text;
  }
  EXPECT_TRUE(std::isnan(Double("nan").value));
  EXPECT_TRUE(Double("NaN").isAccepted);
  for (const char* text : {"", " ", "x1", "e5", "-", "."}) {
    EXPECT_FALSE(Double(text).isAccepted) << text;
  }
}

TEST(BoolParser, KnowsFourWords) {
  for (const char* text : {"1", "true", " true", "\ntrue false", "1 x"}) {
    const Bool parse(text);
    EXPECT_TRUE(parse.isAccepted && parse.value) << text;
  }
  for (const char* text : {"0", "false", "  false  "}) {
    const Bool parse(text);
    EXPECT_TRUE(parse.isAccepted && !parse.value) << text;
  }
  for (const char* text :
       {"", " ", "TRUE", "True", "yes", "2", "10", "truest", "falsefalsefalse", "true1234567"}) {
    EXPECT_FALSE(Bool(text).isAccepted) << text;
  }
}

TEST(TokenParser, TakesTheFirstWord) {
  EXPECT_EQ(Word_("  Flat  ").value, Word::Flat);
  EXPECT_EQ(Word_("Flat Smooth").value, Word::Flat);
  EXPECT_EQ(Word_("\t\n\rSmooth\r").value, Word::Smooth);
  EXPECT_EQ(Word_("Wobbly").value, Token("Wobbly", true));
  EXPECT_STREQ(Word_("\vFlat\v").value.str(), "\vFlat\v") << "only four characters separate";
  for (const char* text : {"", " ", " \t\n\r"}) EXPECT_FALSE(Word_(text).isAccepted);
}

TEST(ColorParser, TakesPairsOfDigits) {
  const std::pair<const char*, std::uint32_t> accepted[] = {
      {"#FF8000", 0xFFFF8000},        {"#ff800080", 0x80FF8000},   {"FF8000", 0xFFFF8000},
      {" \t\r\n#010203", 0xFF010203}, {"#01020300", 0x00010203},   {"#010203 #040506", 0xFF010203},
      {"#010203zz", 0xFF010203},      {"#0102030405", 0x04010203}, {"aAbBcC", 0xFFAABBCC},
      {"#000000ff", 0xFF000000},
  };
  for (const auto& [text, word] : accepted) {
    const Color parse(text);
    EXPECT_TRUE(parse.isAccepted) << text;
    EXPECT_EQ(parse.value.word(), word) << text;
  }
  for (const char* text : {"", " ", "#", " #", "#FF80", "#FF800", "#FF80000", "##ff8000",
                           "# ff8000", "#fg8000", "red", "#f 8000"}) {
    EXPECT_FALSE(Color(text).isAccepted) << text;
  }
}

TEST(P2Parser, TakesTwoNumbers) {
  EXPECT_EQ(Point2("1 2").value, (P2{1, 2}));
  EXPECT_EQ(Point2("\n-1.5\t2e1 3 x").value, (P2{-1.5, 20}));
  for (const char* text : {"", "1", "1,2", "1 x", "x 1 2"}) {
    EXPECT_FALSE(Point2(text).isAccepted) << text;
  }
}

TEST(P3Parser, TakesThreeNumbers) {
  EXPECT_EQ(Point3("1 2 3").value, (P3{1, 2, 3}));
  EXPECT_EQ(Point3(" 1 2\n3 4").value, (P3{1, 2, 3}));
  for (const char* text : {"", "1 2", "1 2 x"}) EXPECT_FALSE(Point3(text).isAccepted) << text;
}

TEST(StringParsers, TakeAnyText) {
  for (const char* text : {"", " ", "a <b> & 'c' \"d\"", "gr\xC3\xBC\xC3\x9F", "a\nb"}) {
    EXPECT_TRUE(Utf8(text).isAccepted);
    EXPECT_STREQ(Utf8(text).value.c_str(), text);
    EXPECT_TRUE(MString(text).isAccepted);
    EXPECT_STREQ(MString(text).value.c_str(), text) << "the native encoding is UTF-8";
  }
}

TEST(FontStyleParser, FamilyAndSizeAreEnough) {
  const Font font("Times 12");
  ASSERT_TRUE(font.isAccepted);
  EXPECT_STREQ(font.value.family.c_str(), "Times");
  EXPECT_EQ(font.value.size, 12);
  EXPECT_FALSE(font.value.italic);
  EXPECT_FALSE(font.value.bold);
  EXPECT_EQ(font.value.color, black);
  EXPECT_EQ(font.value.alignment, Word::Left);
}

TEST(FontStyleParser, WordsComeInAnyOrder) {
  for (const char* text :
       {"'My Font' 14 Bold Italic #ff0000 Center", "  'My Font'\tCenter\n#ff0000 Italic Bold 14",
        "'My Font'14 Bold Italic #ff0000 Center",  // right behind the quote
        "'My Font' 12 14 Bold Bold Italic Left Center #000000 #ff0000"}) {
    const Font font(text);
    ASSERT_TRUE(font.isAccepted) << text;
    EXPECT_STREQ(font.value.family.c_str(), "My Font");
    EXPECT_EQ(font.value.size, 14);
    EXPECT_TRUE(font.value.italic);
    EXPECT_TRUE(font.value.bold);
    EXPECT_EQ(font.value.color, red);
    EXPECT_EQ(font.value.alignment, Word::Center);
  }
}

TEST(FontStyleParser, GenericFamilies) {
  EXPECT_STREQ(Font("serif 9").value.family.c_str(), "Times");
  EXPECT_STREQ(Font("'sans-serif' 14").value.family.c_str(), "Helvetica");
  EXPECT_STREQ(Font("monospace 9").value.family.c_str(), "Courier");
  EXPECT_STREQ(Font("Sans-Serif 9").value.family.c_str(), "Sans-Serif");
  EXPECT_STREQ(Font("'' 9").value.family.c_str(), "");
  EXPECT_STREQ(Font("f\xC3\xBC 9").value.family.c_str(), "f\xC3\xBC") << "no blank in it";
}

TEST(FontStyleParser, Sizes) {
  EXPECT_EQ(Font("Times 1").value.size, 1);
  EXPECT_EQ(Font("Times 12pt").value.size, 12) << "what follows the digits is ignored";
  EXPECT_EQ(Font("Times 99999999999").value.size, std::numeric_limits<std::int32_t>::max());
}

TEST(FontStyleParser, Refusals) {
  for (const char* text : {
           "",
           " ",
           "Times",  // the family would be the end of the text
           "'Times'",
           "'Times",              // no closing quote
           "Times 0",             // no size
           "Times -5",            // begins with no digit
           "Times Bold",          // no size at all
           "Times 12 ",           // a blank behind the last word
           "'Times' ",            //
           "Times 12 Underline",  // not a word of the format
           "Times 12 bold",       //
           "Times 12 Top",        // a token, but no alignment
           "Times 12 #ff80",      // no colour
           "Times 12 #",
           "Times 12 1x 0",
       }) {
    EXPECT_FALSE(Font(text).isAccepted) << text;
  }
}

TEST(FontStyleParser, AnUnknownWordDoesNotBecomeAToken) {
  const auto before = base::TokenTable::instance().count();
  EXPECT_FALSE(Font("Times 12 NeverHeardOfThisWord").isAccepted);
  EXPECT_EQ(base::TokenTable::instance().count(), before);
  EXPECT_FALSE(Token::find("NeverHeardOfThisWord"));
}

TEST(FontStyle, StandardOne) {
  const FontStyle& font = FontStyle::standard();
  EXPECT_EQ(&font, &FontStyle::standard());
  EXPECT_STREQ(font.family.c_str(), "Times");
  EXPECT_EQ(font.size, 11);
  EXPECT_FALSE(font.italic);
  EXPECT_EQ(font.color.word(), 0xFF000000U);
  EXPECT_FALSE(font.bold);
  EXPECT_EQ(font.alignment, Word::Left);
}

TEST(FontStyle, EqualityTakesAllFields) {
  const FontStyle plain = FontStyle::standard();
  EXPECT_EQ(plain, FontStyle(plain));
  FontStyle sameText = plain;
  sameText.family = "Times";
  EXPECT_EQ(plain, sameText) << "the text counts, not the copy of it";
  const auto differs = [&plain](auto change) {
    FontStyle other = plain;
    change(other);
    return !(plain == other) && (plain < other) != (other < plain);
  };
  EXPECT_TRUE(differs([](FontStyle& font) { font.family = "Courier"; }));
  EXPECT_TRUE(differs([](FontStyle& font) { font.size = 12; }));
  EXPECT_TRUE(differs([](FontStyle& font) { font.italic = true; }));
  EXPECT_TRUE(differs([](FontStyle& font) { font.bold = true; }));
  EXPECT_TRUE(differs([](FontStyle& font) { font.color = red; }));
  EXPECT_TRUE(differs([](FontStyle& font) { font.alignment = Word::Right; }));
}

TEST(FontStyle, Order) {
  // Each is below the next, although all fields behind the deciding one say the opposite.
  const Token low = std::min(Token(Word::Left), Token(Word::Right));
  const Token high = std::max(Token(Word::Left), Token(Word::Right));
  const FontStyle fonts[] = {
      {"Arial", 99, true, white, true, high}, {"Times", 8, true, white, true, high},
      {"Times", 9, false, white, true, high}, {"Times", 9, true, white, false, high},
      {"Times", 9, true, black, true, high},  {"Times", 9, true, red, true, low},
      {"Times", 9, true, red, true, high},
  };
  for (const FontStyle& a : fonts) {
    for (const FontStyle& b : fonts) {
      EXPECT_EQ(a < b, &a < &b) << (&a - fonts) << " " << (&b - fonts);
    }
  }
}

TEST(RGBA, Channels) {
  EXPECT_EQ(RGBA().word(), 0xFF000000U);
  EXPECT_EQ(black.word(), 0xFF000000U);
  const RGBA color(1, 2, 3, 4);
  EXPECT_EQ(color.word(), 0x04010203U);
  EXPECT_EQ(color.red(), 1);
  EXPECT_EQ(color.green(), 2);
  EXPECT_EQ(color.blue(), 3);
  EXPECT_EQ(color.alpha(), 4);
  EXPECT_EQ(RGBA(1, 2, 3).alpha(), 255);
}

}  // namespace
}  // namespace vantry::plot::test
