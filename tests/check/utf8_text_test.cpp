#include "vantry/check/utf8_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace std::string_view_literals;
using vantry::check::Utf8Text;

std::string textOf(std::string_view document) { return std::string(Utf8Text(document).text()); }

TEST(Utf8Text, IsTheDocumentItselfWithoutAMark) {
  EXPECT_EQ(textOf("<a>\xC3\xA4</a>"), "<a>\xC3\xA4</a>");
  EXPECT_EQ(textOf("\xEF\xBB\xBF<a/>"), "<a/>");
  EXPECT_EQ(textOf("<a>\xFF</a>"), "<a>\xFF</a>");
  EXPECT_EQ(textOf(""), "");
  EXPECT_EQ(textOf("\0"sv), "\0"sv);
  const Utf8Text marked("\xEF\xBB\xBF<a/>");
  EXPECT_EQ(marked.offsetOf(0), 0u);
  EXPECT_EQ(marked.offsetOf(3), 0u);
  EXPECT_EQ(marked.offsetOf(5), 2u);
}

// A, a-umlaut, the sign of the euro, and a letter beyond the first 65536.
TEST(Utf8Text, ConvertsUtf16InEitherOrderOfBytes) {
  const std::string text = "A\xC3\xA4\xE2\x82\xAC\xF0\x9D\x94\xB8";
  for (const std::string_view document : {"\xFF\xFE"
                                          "A\0\xE4\0\xAC\x20\x35\xD8\x38\xDD"sv,
                                          "\xFE\xFF"
                                          "\0A\0\xE4\x20\xAC\xD8\x35\xDD\x38"sv}) {
    const Utf8Text utf8(document);
    EXPECT_EQ(utf8.text(), text);
    EXPECT_EQ(utf8.offsetOf(0), 0u);
    EXPECT_EQ(utf8.offsetOf(2), 0u) << "A";
    EXPECT_EQ(utf8.offsetOf(3), 0u) << "within A";
    EXPECT_EQ(utf8.offsetOf(4), 1u);
    EXPECT_EQ(utf8.offsetOf(6), 3u);
    EXPECT_EQ(utf8.offsetOf(8), 6u);
    EXPECT_EQ(utf8.offsetOf(10), 6u) << "within the last letter";
    EXPECT_EQ(utf8.offsetOf(12), 10u);
    EXPECT_EQ(utf8.offsetOf(100), 10u);
  }
}

TEST(Utf8Text, KnowsUtf16WithoutAMarkByItsZeros) {
  EXPECT_EQ(textOf("<\0a\0"sv), "<a");
  EXPECT_EQ(textOf("\0<\0a"sv), "<a");
}

TEST(Utf8Text, ReplacesWhatIsNoCharacterOfUtf16) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(textOf("\xFE\xFF\xD8\x35\0A"sv), replacement + "A") << "one half";
  EXPECT_EQ(textOf("\xFE\xFF\xDD\x38\0A"sv), replacement + "A") << "the other half";
  EXPECT_EQ(textOf("\xFE\xFF\0A\xD8\x35"sv), "A" + replacement) << "a half at the end";
  EXPECT_EQ(textOf("\xFE\xFF\0A\0"sv), "A" + replacement) << "a byte at the end";
  EXPECT_EQ(Utf8Text("\xFE\xFF\0A\0"sv).offsetOf(4), 1u);
}

TEST(Utf8Text, ConvertsLatin1IfItIsNamed) {
  const std::string_view document = "<?xml version='1.0' encoding='iso-8859-1'?><a>\xE4\x80</a>";
  const Utf8Text utf8(document);
  EXPECT_EQ(utf8.text(), "<?xml version='1.0' encoding='iso-8859-1'?><a>\xC3\xA4\xC2\x80</a>");
  EXPECT_EQ(utf8.offsetOf(document.find('\xE4')), document.find('\xE4'));
  EXPECT_EQ(utf8.offsetOf(document.size() - 4), document.size() - 2) << "the end tag";
}

TEST(Utf8Text, FindsPlacesInLongDocumentsToo) {
  std::string document = "\xFE\xFF";
  document.append("\0<", 2);
  for (int i = 0; i < 2000; ++i) document += "\xD8\x35\xDD\x38";
  const Utf8Text utf8(document);
  EXPECT_EQ(utf8.text().size(), 1u + 4 * 2000);
  for (const std::size_t letter : {0u, 1u, 255u, 256u, 257u, 1999u, 1998u, 3u, 2u, 1u, 700u}) {
    EXPECT_EQ(utf8.offsetOf(4 + 4 * letter), 1 + 4 * letter) << letter;
    EXPECT_EQ(utf8.offsetOf(6 + 4 * letter), 1 + 4 * letter) << letter;
  }
}

TEST(NamedEncoding, IsThatOfTheDeclaration) {
  using vantry::check::namedEncoding;
  EXPECT_EQ(namedEncoding("<?xml version='1.0' encoding='UTF-8'?>"), "UTF-8");
  EXPECT_EQ(namedEncoding("<?xml version=\"1.0\" encoding = \"a'b\"?>"), "a'b");
  EXPECT_EQ(namedEncoding("<?xml version='1.0'?><a encoding='b'/>"), "");
  EXPECT_EQ(namedEncoding("<?xml encoding"), "");
  EXPECT_EQ(namedEncoding("<a/>"), "");
}

TEST(SizeOfCharacter, IsNoneForWhatXmlDoesNotHave) {
  using vantry::check::sizeOfCharacter;
  EXPECT_EQ(sizeOfCharacter("ab"), 1u);
  EXPECT_EQ(sizeOfCharacter("\xC3\xA4x"), 2u);
  EXPECT_EQ(sizeOfCharacter("\xF0\x9D\x94\xB8x"), 4u);
  EXPECT_EQ(sizeOfCharacter("\xC3"), 0u);
  EXPECT_EQ(sizeOfCharacter("\xEF\xBF\xBF"), 0u);
  EXPECT_EQ(sizeOfCharacter("\x01"), 0u);
  EXPECT_EQ(sizeOfCharacter(""), 0u);
}

}  // namespace
