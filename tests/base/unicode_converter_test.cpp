#include "vantry/base/unicode_converter.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <clocale>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#include "../locale_guard.h"

namespace {

using namespace vantry::base;

constexpr std::ptrdiff_t untilNul = -1;

// Converts by measuring first, as a caller does that needs the text.
template <class Target, class Source, class Convert>
std::basic_string<Target> converted(std::basic_string_view<Source> source, Convert convert) {
  const std::ptrdiff_t length = std::ssize(source);
  std::basic_string<Target> target(convert(source.data(), length, nullptr, std::size_t{0}),
                                   Target());
  EXPECT_EQ(convert(source.data(), length, target.data(), target.size()), target.size());
  return target;
}

std::u16string toUtf16(std::string_view source) { return converted<char16_t>(source, utf8ToUtf16); }
std::string toUtf8(std::u16string_view source) { return converted<char>(source, utf16ToUtf8); }

std::string bytes(std::initializer_list<int> values) {
  std::string result;
  for (const int value : values) result += static_cast<char>(value);
  return result;
}

// ---- Between the forms of Unicode ----

TEST(Utf8ToUtf16, ConvertsCharactersOfAllLengths) {
  EXPECT_EQ(toUtf16("aZ~"), u"aZ~");
  EXPECT_EQ(toUtf16(bytes({0xC3, 0xA9})), u"\u00E9");
  EXPECT_EQ(toUtf16(bytes({0xE2, 0x82, 0xAC})), u"\u20AC");
  EXPECT_EQ(toUtf16(bytes({0xEF, 0xBF, 0xBF})), u"\uFFFF");
  EXPECT_EQ(toUtf16(bytes({0xF0, 0x90, 0x80, 0x80})), u"\U00010000");
  EXPECT_EQ(toUtf16(bytes({0xF0, 0x9D, 0x84, 0x9E})), u"\U0001D11E");
  EXPECT_EQ(toUtf16(bytes({0xF4, 0x8F, 0xBF, 0xBF})), u"\U0010FFFF");
}

TEST(Utf8ToUtf16, ReplacesWhatUtf16CannotHold) {
  EXPECT_EQ(toUtf16(bytes({0xF4, 0x90, 0x80, 0x80})), u"\uFFFD");
  EXPECT_EQ(toUtf16(bytes({0xF8, 0x88, 0x80, 0x80, 0x80})), u"\uFFFD");
  EXPECT_EQ(toUtf16(bytes({0xFD, 0xBF, 0xBF, 0xBF, 0xBF, 0xBF})), u"\uFFFD");
}

TEST(Utf8ToUtf16, RefusesATextThatEndsWithinACharacter) {
  const std::string characters[] = {
      bytes({0xC3, 0xA9}), bytes({0xE2, 0x82, 0xAC}), bytes({0xF0, 0x9D, 0x84, 0x9E}),
      bytes({0xF8, 0x88, 0x80, 0x80, 0x80}), bytes({0xFC, 0x84, 0x80, 0x80, 0x80, 0x80})};
  std::array<char16_t, 12> target;
  for (const std::string& character : characters) {
    for (std::ptrdiff_t length = 1; length < std::ssize(character); ++length) {
      EXPECT_THROW(utf8ToUtf16(character.data(), length, target.data(), target.size()),
                   BadUnicodeString);
      EXPECT_THROW(utf8ToUtf16(character.data(), length, nullptr, 0), BadUnicodeString);
    }
  }
}

TEST(Utf8ToUtf16, RefusesATargetThatHoldsHalfAPair) {
  const std::string clef = bytes({0xF0, 0x9D, 0x84, 0x9E});
  std::array<char16_t, 2> target{};
  EXPECT_THROW(utf8ToUtf16(clef.data(), 4, target.data(), 1), BadBufferLength);
  EXPECT_EQ(utf8ToUtf16(clef.data(), 4, target.data(), 2), 2u);
}

TEST(Utf16ToUtf8, ConvertsCharactersOfAllLengths) {
  EXPECT_EQ(toUtf8(u"aZ~\u007F"), "aZ~\x7F");
  EXPECT_EQ(toUtf8(u"\u0080"), bytes({0xC2, 0x80}));
  EXPECT_EQ(toUtf8(u"\u07FF"), bytes({0xDF, 0xBF}));
  EXPECT_EQ(toUtf8(u"\u0800"), bytes({0xE0, 0xA0, 0x80}));
  EXPECT_EQ(toUtf8(u"\uFFFF"), bytes({0xEF, 0xBF, 0xBF}));
  EXPECT_EQ(toUtf8(u"\U00010000"), bytes({0xF0, 0x90, 0x80, 0x80}));
  EXPECT_EQ(toUtf8(u"\U0010FFFF"), bytes({0xF4, 0x8F, 0xBF, 0xBF}));
}

TEST(Utf16ToUtf8, PassesASurrogateWithoutItsPartner) {
  const std::u16string high(1, 0xD834);
  const std::u16string low(1, 0xDD1E);
  const std::string highBytes = bytes({0xED, 0xA0, 0xB4});
  const std::string lowBytes = bytes({0xED, 0xB4, 0x9E});
  EXPECT_EQ(toUtf8(high), highBytes);
  EXPECT_EQ(toUtf8(low), lowBytes);
  EXPECT_EQ(toUtf8(high + u"x"), highBytes + "x");
  EXPECT_EQ(toUtf8(low + high), lowBytes + highBytes);
  EXPECT_EQ(toUtf8(high + high + low), highBytes + bytes({0xF0, 0x9D, 0x84, 0x9E}));
}

TEST(Utf16ToUtf8, RefusesATargetThatIsTooSmall) {
  std::array<char, 4> target{};
  EXPECT_THROW(utf16ToUtf8(u"\U0001D11E", 2, target.data(), 3), BadBufferLength);
  EXPECT_THROW(utf16ToUtf8(u"ab", 2, target.data(), 1), BadBufferLength);
  EXPECT_EQ(utf16ToUtf8(u"\U0001D11E", 2, target.data(), 4), 4u);
}

// ---- The rules of all conversions ----

TEST(Conversion, WritesNoNulWithAnExplicitLength) {
  std::array<char, 3> target{'x', 'x', 'x'};
  EXPECT_EQ(utf16ToUtf8(u"ab", 2, target.data(), 2), 2u);
  EXPECT_EQ(target, (std::array{'a', 'b', 'x'}));
  EXPECT_EQ(UnicodeConverter::instance().utf8ToNativeText("cd", 2, target.data(), 2), 2u);
  EXPECT_EQ(target, (std::array{'c', 'd', 'x'}));
}

TEST(Conversion, WritesANulBehindATextThatHasOne) {
  std::array<char, 3> target{'x', 'x', 'x'};
  EXPECT_EQ(utf16ToUtf8(u"ab", untilNul, target.data(), 3), 2u);
  EXPECT_STREQ(target.data(), "ab");
  EXPECT_EQ(UnicodeConverter::instance().nativeTextToUtf8("", untilNul, target.data(), 1), 0u);
  EXPECT_STREQ(target.data(), "");
}

TEST(Conversion, RefusesATargetWithoutRoomForTheNul) {
  const UnicodeConverter& converter = UnicodeConverter::instance();
  std::array<char, 4> narrow{};
  std::array<char16_t, 4> wide{};
  EXPECT_THROW(utf16ToUtf8(u"ab", untilNul, narrow.data(), 2), BadBufferLength);
  EXPECT_THROW(utf8ToUtf16("ab", untilNul, wide.data(), 2), BadBufferLength);
  EXPECT_THROW(converter.utf8ToNativeText("ab", untilNul, narrow.data(), 2), BadBufferLength);
  EXPECT_THROW(converter.nativeTextToUtf8("ab", untilNul, narrow.data(), 2), BadBufferLength);
  EXPECT_THROW(converter.nativeTextToUtf16("ab", untilNul, wide.data(), 2), BadBufferLength);
  EXPECT_THROW(converter.utf16ToNativeText(u"ab", untilNul, narrow.data(), 2), BadBufferLength);
}

TEST(Conversion, ConvertsNulsWithinAnExplicitLength) {
  EXPECT_EQ(toUtf8(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Conversion, MeasuresTextOfAnyLength) {
  for (const std::size_t length : {0u, 1u, 255u, 256u, 257u, 511u, 512u, 513u, 100'000u}) {
    EXPECT_EQ(toUtf8(std::u16string(length, u'\u20AC')).size(), 3 * length);
    EXPECT_EQ(toUtf16(std::string(length, 'x')).size(), length);
  }
}

// ---- Native text ----

TEST(UnicodeConverter, HasUtf8AsItsNativeEncoding) {
  EXPECT_TRUE(UnicodeConverter::instance().nativeIsUtf8());
  EXPECT_EQ(&UnicodeConverter::instance(), &UnicodeConverter::instance());
}

TEST(UnicodeConverter, ConvertsForAllThreadsAtOnce) {
  const std::string text = "\xE2\x82\xAC \xF0\x9D\x84\x9E";
  const std::u16string wide = u"\u20AC \U0001D11E";
  std::atomic<int> failures = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      const UnicodeConverter& converter = UnicodeConverter::instance();
      for (int k = 0; k < 5000; ++k) {
        std::array<char16_t, 4> units{};
        const std::size_t count =
            converter.nativeTextToUtf16(text.data(), std::ssize(text), units.data(), units.size());
        if (std::u16string_view(units.data(), count) != wide) ++failures;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
}

TEST(NativeCharacterLength, FollowsTheLocale) {
  const LocaleGuard locale(LC_CTYPE, "C.UTF-8");
  EXPECT_EQ(nativeCharacterLength(""), 0);
  EXPECT_EQ(nativeCharacterLength("ab"), 1);
  EXPECT_EQ(nativeCharacterLength("\xC3\xA9t"), 2);
  EXPECT_EQ(nativeCharacterLength("\xF0\x9D\x84\x9E"), 4);
}

TEST(NativeCharacterLength, IsBelowZeroForWhatIsNoCharacter) {
  const LocaleGuard locale(LC_CTYPE, "C.UTF-8");
  EXPECT_EQ(nativeCharacterLength("\xFF"), -1);
  EXPECT_EQ(nativeCharacterLength("\xC3"), -1);
  EXPECT_EQ(nativeCharacterLength("\xC3\xA9"), 2) << "a failure leaves nothing behind";
}

TEST(UnicodeConverter, CopiesBetweenUtf8AndANativeEncodingThatIsTheSame) {
  const UnicodeConverter& converter = UnicodeConverter::instance();
  const std::string text = "caf\xC3\xA9 \xFF";  // not even checked
  std::array<char, 7> target{};
  EXPECT_EQ(converter.utf8ToNativeText(text.data(), untilNul, nullptr, 0), 7u);
  EXPECT_EQ(converter.utf8ToNativeText(text.data(), 7, target.data(), 7), 7u);
  EXPECT_EQ(std::string(target.data(), 7), text);
  EXPECT_EQ(converter.nativeTextToUtf8(text.data(), 7, nullptr, 0), 7u);
  EXPECT_EQ(converter.nativeTextToUtf8(text.data(), 7, target.data(), 7), 7u);
  EXPECT_EQ(std::string(target.data(), 7), text);
  EXPECT_THROW(converter.utf8ToNativeText(text.data(), 7, target.data(), 6), BadBufferLength);
}

// One native encoding with each way of conversion: direct, and by way of the other Unicode form.
struct NativeCase {
  const char* name;
  const char* encoding;
  UnicodeConverter::OpenConversion open;
};

bool isEither(const char* to, const char* from, const char* name) {
  return std::string_view(to) == name || std::string_view(from) == name;
}

const iconv_t notOpen = reinterpret_cast<iconv_t>(-1);

iconv_t openWithoutUtf8(const char* to, const char* from) {
  const bool isRefused = std::string_view(to) != "UTF-16" && std::string_view(from) != "UTF-16";
  return isRefused ? notOpen : iconv_open(to, from);
}

iconv_t openWithoutUtf16(const char* to, const char* from) {
  return isEither(to, from, "UTF-16") ? notOpen : iconv_open(to, from);
}

class NativeText : public testing::TestWithParam<NativeCase> {
 protected:
  NativeText() : converter(GetParam().encoding, GetParam().open) {}

  std::string fromUtf8(std::string_view text) const {
    return converted<char>(
        text, [this](auto... arguments) { return converter.utf8ToNativeText(arguments...); });
  }
  std::string fromUtf16(std::u16string_view text) const {
    return converted<char>(
        text, [this](auto... arguments) { return converter.utf16ToNativeText(arguments...); });
  }
  std::string intoUtf8(std::string_view text) const {
    return converted<char>(
        text, [this](auto... arguments) { return converter.nativeTextToUtf8(arguments...); });
  }
  std::u16string intoUtf16(std::string_view text) const {
    return converted<char16_t>(
        text, [this](auto... arguments) { return converter.nativeTextToUtf16(arguments...); });
  }

  UnicodeConverter converter;
};

TEST_P(NativeText, ConvertsToAndFromUnicode) {
  const bool isLatin = std::string_view(GetParam().encoding) == "ISO-8859-1";
  const std::string native = isLatin ? "na\xEFve \xE9t\xE9" : "na\xC3\xAFve \xC3\xA9t\xC3\xA9";
  const std::string utf8 = "na\xC3\xAFve \xC3\xA9t\xC3\xA9";
  const std::u16string utf16 = u"na\u00EFve \u00E9t\u00E9";
  for (int i = 0; i < 2; ++i) {  // the first time is no other than the second
    EXPECT_EQ(fromUtf8(utf8), native);
    EXPECT_EQ(fromUtf16(utf16), native);
    EXPECT_EQ(intoUtf8(native), utf8);
    EXPECT_EQ(intoUtf16(native), utf16);
  }
}

TEST_P(NativeText, MeasuresAnEmptyTextAsNothing) {
  EXPECT_EQ(converter.utf8ToNativeText("", untilNul, nullptr, 0), 0u);
  EXPECT_EQ(converter.nativeTextToUtf8("", untilNul, nullptr, 0), 0u);
  EXPECT_EQ(converter.nativeTextToUtf16("", untilNul, nullptr, 0), 0u);
  EXPECT_EQ(converter.utf16ToNativeText(u"", untilNul, nullptr, 0), 0u);
}

TEST_P(NativeText, ConvertsLongText) {
  for (const std::size_t length : {256u, 512u, 513u, 10'000u}) {
    const std::string text(length, 'x');
    EXPECT_EQ(fromUtf8(text), text);
    EXPECT_EQ(fromUtf16(std::u16string(length, u'x')), text);
    EXPECT_EQ(intoUtf8(text), text);
    EXPECT_EQ(intoUtf16(text), std::u16string(length, u'x'));
  }
}

TEST_P(NativeText, NeedsAllOfItsRoom) {
  std::array<char, 4> narrow{};
  std::array<char16_t, 4> wide{};
  EXPECT_EQ(converter.nativeTextToUtf16("abc", 3, wide.data(), 3), 3u);
  EXPECT_THROW(converter.nativeTextToUtf16("abc", 3, wide.data(), 2), BadBufferLength);
  EXPECT_EQ(converter.utf16ToNativeText(u"abc", 3, narrow.data(), 3), 3u);
  EXPECT_THROW(converter.utf16ToNativeText(u"abc", 3, narrow.data(), 2), BadBufferLength);
  EXPECT_EQ(converter.utf8ToNativeText("abc", untilNul, narrow.data(), 4), 3u);
  EXPECT_STREQ(narrow.data(), "abc");
  EXPECT_THROW(converter.nativeTextToUtf8("abc", 3, narrow.data(), 2), BadBufferLength);
}

TEST_P(NativeText, StaysUsableAfterAFailure) {
  std::array<char, 4> narrow{};
  std::array<char16_t, 4> wide{};
  const char16_t ideograph[] = u"\u4E2D";
  if (std::string_view(GetParam().encoding) == "ISO-8859-1") {
    EXPECT_THROW(converter.utf16ToNativeText(ideograph, 1, narrow.data(), 4), BadUnicodeString);
    EXPECT_THROW(converter.utf8ToNativeText("\xE4\xB8\xAD", 3, nullptr, 0), BadUnicodeString);
  } else {
    EXPECT_THROW(converter.nativeTextToUtf16("\xC3", 1, wide.data(), 4), BadUnicodeString);
    EXPECT_THROW(converter.nativeTextToUtf16("\xC3(", 2, nullptr, 0), BadUnicodeString);
  }
  EXPECT_THROW(converter.nativeTextToUtf16("abcd", 4, wide.data(), 1), BadBufferLength);
  EXPECT_EQ(intoUtf16("ok"), u"ok");
  EXPECT_EQ(fromUtf16(u"ok"), "ok");
  EXPECT_EQ(fromUtf8("ok"), "ok");
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, NativeText,
    testing::Values(NativeCase{"Utf8", "UTF-8", iconv_open},
                    NativeCase{"Utf8ByWayOfUtf16", "UTF-8", openWithoutUtf8},
                    NativeCase{"Utf8ByWayOfUtf8", "UTF-8", openWithoutUtf16},
                    NativeCase{"Latin", "ISO-8859-1", iconv_open},
                    NativeCase{"LatinByWayOfUtf16", "ISO-8859-1", openWithoutUtf8},
                    NativeCase{"LatinByWayOfUtf8", "ISO-8859-1", openWithoutUtf16}),
    [](const auto& test) { return std::string(test.param.name); });

// ---- What cannot be converted ----

TEST(UnicodeConverter, OpensAllFourDirectionsInTheirOrder) {
  static std::vector<std::string> calls;
  calls.clear();
  const UnicodeConverter converter("ISO-8859-1", [](const char* to, const char* from) {
    calls.push_back(std::string(from) + " to " + to);
    return iconv_open(to, from);
  });
  EXPECT_FALSE(converter.nativeIsUtf8());
  EXPECT_EQ(calls, (std::vector<std::string>{"ISO-8859-1 to UTF-8", "ISO-8859-1 to UTF-16",
                                             "UTF-8 to ISO-8859-1", "UTF-16 to ISO-8859-1"}));
}

TEST(UnicodeConverter, HasNoWayToUtf16WithoutAnyDirection) {
  const UnicodeConverter converter("UTF-8", [](const char*, const char*) { return notOpen; });
  std::array<char, 4> narrow{};
  std::array<char16_t, 4> wide{};
  EXPECT_THROW(converter.nativeTextToUtf16("a", 1, wide.data(), 4), BadLocale);
  EXPECT_THROW(converter.utf16ToNativeText(u"a", 1, narrow.data(), 4), BadLocale);
  EXPECT_EQ(converter.nativeTextToUtf8("a", 1, narrow.data(), 4), 1u);
  EXPECT_EQ(converter.utf8ToNativeText("a", 1, narrow.data(), 4), 1u);
}

// A pair counts only as a whole.
TEST(UnicodeConverter, NeedsBothDirectionsOfAPair) {
  const UnicodeConverter converter("UTF-8", [](const char* to, const char* from) {
    return std::string_view(from) == "UTF-16" ? notOpen : iconv_open(to, from);
  });
  std::array<char16_t, 4> wide{};
  EXPECT_EQ(converter.nativeTextToUtf16("a", 1, wide.data(), 4), 1u);
  EXPECT_EQ(wide[0], u'a');
}

TEST(UnicodeConverterDeathTest, EndsTheProcessWithoutAnyConversion) {
  const char* message =
      "^The current locale does not support conversion to Unicode\\.\n"
      "Please choose another locale\\.\n$";
  EXPECT_EXIT(UnicodeConverter("no such encoding"), testing::ExitedWithCode(1), message);
  EXPECT_EXIT(UnicodeConverter(nullptr), testing::ExitedWithCode(1), message);
}

TEST(NativeCodeset, BeginsBehindThePoint) {
  const LocaleGuard guard(LC_CTYPE);
  std::setlocale(LC_CTYPE, "C");
  EXPECT_STREQ(nativeCodeset(), "4-1968");  // of "ANSI_X3.4-1968"
  std::setlocale(LC_CTYPE, "C.UTF-8");
  EXPECT_STREQ(nativeCodeset(), "UTF-8");
}

TEST(TextErrors, SayWhatIsWrong) {
  EXPECT_STREQ(BadUnicodeString().what(), "incomplete Unicode string");
  EXPECT_STREQ(BadBufferLength().what(), "buffer too small");
  EXPECT_STREQ(BadLocale().what(), "current locale is not supported");
  static_assert(std::is_base_of_v<std::runtime_error, BadUnicodeString>);
  static_assert(std::is_base_of_v<std::runtime_error, BadBufferLength>);
  static_assert(std::is_base_of_v<std::runtime_error, BadLocale>);
}

}  // namespace
