#include "vantry/base/escape_writers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <sstream>
#include <string>

#include "../locale_guard.h"
#include "vantry/base/text_errors.h"

namespace {

using namespace vantry::base;

// What a writer writes, which must be the same on a stream and on a sink; both are given back.
template <class Text>
std::string written(std::ostream& (*toStream)(std::ostream&, const Text*),
                    OutputSink& (*toSink)(OutputSink&, const Text*), const Text* text) {
  std::ostringstream stream;
  EXPECT_EQ(&toStream(stream, text), &stream);
  std::ostringstream behindSink;
  OutputSink sink(behindSink);
  EXPECT_EQ(&toSink(sink, text), &sink);
  sink.flush();
  EXPECT_EQ(stream.str(), behindSink.str());
  return stream.str();
}

// What is in stream and sink after the writer has refused the text.
template <class Text>
std::string writtenBeforeRefusal(std::ostream& (*toStream)(std::ostream&, const Text*),
                                 OutputSink& (*toSink)(OutputSink&, const Text*),
                                 const Text* text) {
  std::ostringstream stream;
  EXPECT_THROW(toStream(stream, text), BadUnicodeString);
  std::ostringstream behindSink;
  OutputSink sink(behindSink);
  EXPECT_THROW(toSink(sink, text), BadUnicodeString);
  sink.flush();
  EXPECT_EQ(stream.str(), behindSink.str());
  return stream.str();
}

std::string escapedUtf8(const char* text) {
  return written<char>(writeEscapedUtf8, writeEscapedUtf8, text);
}
std::string escapedUtf16(const char16_t* text) {
  return written<char16_t>(writeEscapedUtf16, writeEscapedUtf16, text);
}
std::string escapedLocaleText(const char* text) {
  return written<char>(writeEscapedLocaleText, writeEscapedLocaleText, text);
}
std::string localeText(const char* text) {
  return written<char>(writeLocaleText, writeLocaleText, text);
}
std::string quotedText(const char* text) {
  return written<char>(writeQuotedText, writeQuotedText, text);
}

constexpr const char* eAcute = "\xC3\xA9";
constexpr const char* gClef = "\xF0\x9D\x84\x9E";

// Escaping in a locale that the native encoding agrees with.
class EscapeWriters : public testing::Test {
 protected:
  EscapeWriters() : guard_(LC_CTYPE) { std::setlocale(LC_CTYPE, "C.UTF-8"); }

 private:
  LocaleGuard guard_;
};

TEST_F(EscapeWriters, WriteNothingForNullAndEmptyText) {
  EXPECT_EQ(escapedUtf8(nullptr), "");
  EXPECT_EQ(escapedUtf16(nullptr), "");
  EXPECT_EQ(escapedLocaleText(nullptr), "");
  EXPECT_EQ(localeText(nullptr), "");
  EXPECT_EQ(quotedText(nullptr), "");
  EXPECT_EQ(escapedUtf8(""), "");
  EXPECT_EQ(escapedUtf16(u""), "");
  EXPECT_EQ(escapedLocaleText(""), "");
  EXPECT_EQ(localeText(""), "");
  EXPECT_EQ(quotedText(""), "");
}

TEST_F(EscapeWriters, EscapeTheFiveCharactersOfXml) {
  const std::string escaped = "&quot;&amp;&apos;&lt;&gt;";
  EXPECT_EQ(escapedUtf8("\"&'<>"), escaped);
  EXPECT_EQ(escapedUtf16(u"\"&'<>"), escaped);
  EXPECT_EQ(escapedLocaleText("\"&'<>"), escaped);
  EXPECT_EQ(escapedUtf8("a<b"), "a&lt;b");
  EXPECT_EQ(escapedUtf8("it's"), "it&apos;s");
  EXPECT_EQ(escapedUtf8("&amp;"), "&amp;amp;");
}

TEST_F(EscapeWriters, PassAllOtherCharacters) {
  const std::string ascii = "\x01\b\t\n\r\x1F !#$%()*+,-./09:;=?@AZ[\\]^_`az{|}~\x7F";
  EXPECT_EQ(escapedUtf8(ascii.c_str()), ascii);
  EXPECT_EQ(escapedUtf16(std::u16string(ascii.begin(), ascii.end()).c_str()), ascii);
  EXPECT_EQ(escapedLocaleText(ascii.c_str()), ascii);
  EXPECT_EQ(localeText(ascii.c_str()), ascii);
}

TEST_F(EscapeWriters, PassUtf8Unchecked) {
  EXPECT_EQ(escapedUtf8("\xC3\xA9<\xFF\xC3"), "\xC3\xA9&lt;\xFF\xC3");
}

TEST_F(EscapeWriters, ConvertUtf16) {
  EXPECT_EQ(escapedUtf16(u"\u00E9<\u20AC"), "\xC3\xA9&lt;\xE2\x82\xAC");
  EXPECT_EQ(escapedUtf16(u"\U0001D11E&"), std::string(gClef) + "&amp;");
}

TEST_F(EscapeWriters, PassSurrogatesWithoutTheirPartners) {
  const char16_t highAtTheEnd[] = {u'a', 0xD834, 0};
  const char16_t highBeforeAnother[] = {0xD834, u'<', 0};
  const char16_t low[] = {0xDD1E, u'>', 0};
  EXPECT_EQ(escapedUtf16(highAtTheEnd), "a\xED\xA0\xB4");
  EXPECT_EQ(escapedUtf16(highBeforeAnother), "\xED\xA0\xB4&lt;");
  EXPECT_EQ(escapedUtf16(low), "\xED\xB4\x9E&gt;");
}

TEST_F(EscapeWriters, PassCharactersOfTheLocale) {
  const std::string text = std::string("\xE2\x82\xAC ") + eAcute + " " + gClef;
  EXPECT_EQ(escapedLocaleText(eAcute), eAcute);
  EXPECT_EQ(escapedLocaleText(text.c_str()), text);
  EXPECT_EQ(localeText(text.c_str()), text);
  EXPECT_EQ(localeText("<\"&'>"), "<\"&'>");
}

TEST_F(EscapeWriters, RefuseATextThatEndsWithinACharacter) {
  const char* text = "a<b\xC3";
  EXPECT_EQ(writtenBeforeRefusal<char>(writeEscapedLocaleText, writeEscapedLocaleText, text),
            "a&lt;b");
  EXPECT_EQ(writtenBeforeRefusal<char>(writeLocaleText, writeLocaleText, text), "a<b");
  EXPECT_EQ(writtenBeforeRefusal<char>(writeQuotedText, writeQuotedText, text), "a<b");
}

TEST_F(EscapeWriters, RefuseBytesThatAreNoCharacter) {
  for (const char* bad : {"\x80", "\xFF", "\xC3(", "\xED\xA0\x80", "\xC0\x80"}) {
    const std::string text = std::string("x") + bad;
    EXPECT_EQ(
        writtenBeforeRefusal<char>(writeEscapedLocaleText, writeEscapedLocaleText, text.c_str()),
        "x");
  }
  EXPECT_EQ(escapedLocaleText(eAcute), eAcute);  // nothing stays behind
}

// The C library takes this for a character, but the conversion does not.
TEST_F(EscapeWriters, RefuseWhatIsBeyondUnicode) {
  EXPECT_EQ(writtenBeforeRefusal<char>(writeEscapedLocaleText, writeEscapedLocaleText,
                                       "x\xF5\x80\x80\x80"),
            "x");
}

TEST_F(EscapeWriters, QuoteWithBackslashes) {
  EXPECT_EQ(quotedText("\b\t\n\r\"\\"), "\\b\\t\\n\\r\\\"\\\\");
  EXPECT_EQ(quotedText("a 'b' <c> \x01\f"), "a 'b' <c> \x01\f");
  EXPECT_EQ(quotedText("\"\xC3\xA9\"\xE2\x82\xAC"), "\\\"\xC3\xA9\\\"\xE2\x82\xAC");
}

// A locale of single bytes divides a character of the native encoding, whose parts cannot be
// converted. In the POSIX locale the C library refuses them already.
TEST_F(EscapeWriters, RefuseNativeTextInALocaleOfSingleBytes) {
  for (const char* name : {"C", "de_DE", "de_DE.ISO-8859-1", "en_US.ISO-8859-1"}) {
    if (!std::setlocale(LC_CTYPE, name)) {
      EXPECT_STRNE(std::getenv("LC_ALL"), name) << "these tests should run under it";
      continue;
    }
    EXPECT_EQ(escapedLocaleText("a<b"), "a&lt;b") << name;
    EXPECT_EQ(
        writtenBeforeRefusal<char>(writeEscapedLocaleText, writeEscapedLocaleText, "a\xC3\xA9"),
        "a")
        << name;
    EXPECT_EQ(writtenBeforeRefusal<char>(writeLocaleText, writeLocaleText, "a\xE9"), "a") << name;
  }
}

}  // namespace
