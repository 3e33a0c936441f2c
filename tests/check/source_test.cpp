#include "vantry/check/source.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vantry::check::Place;
using vantry::check::Source;
using vantry::check::Span;

std::string placeIn(const Source& source, Span span) {
  const Place place = source.placeOf(span);
  return std::to_string(place.line) + ':' + std::to_string(place.column) + '-' +
         std::to_string(place.endColumn);
}

TEST(Source, CountsCharactersOfLines) {
  const Source source("ab\n\xC3\xA4\xE2\x84\x9Dx\r\nlast");
  EXPECT_EQ(placeIn(source, {0, 2}), "1:1-3");
  EXPECT_EQ(placeIn(source, {8, 1}), "2:3-4");
  EXPECT_EQ(placeIn(source, {11, 4}), "3:1-5");
  EXPECT_EQ(placeIn(source, {3, 2}), "2:1-2") << "also back";
  EXPECT_EQ(source.placeOf({11, 4}).offset, 11u);
}

TEST(Source, CountsBackToo) {
  const Source source("\xC3\xA4yz\nd\n\xC3\xA4yz");
  EXPECT_EQ(placeIn(source, {10, 1}), "3:3-4");
  EXPECT_EQ(placeIn(source, {9, 1}), "3:2-3");
  EXPECT_EQ(placeIn(source, {7, 2}), "3:1-2");
  EXPECT_EQ(placeIn(source, {5, 1}), "2:1-2");
  EXPECT_EQ(placeIn(source, {3, 1}), "1:3-4");
  EXPECT_EQ(placeIn(source, {0, 2}), "1:1-2");
  EXPECT_EQ(placeIn(source, {9, 1}), "3:2-3");
}

// Characters of two bytes, from an odd one on, so that some lie across any block.
TEST(Source, CountsInLongLinesToo) {
  std::string text = "line\n<";
  for (int i = 0; i < 5000; ++i) text += "\xC3\xA4";
  text += "\nlast";
  const Source source(text);
  EXPECT_EQ(placeIn(source, {6 + 2 * 4999, 2}), "2:5001-5002");
  EXPECT_EQ(placeIn(source, {6 + 2 * 511, 2}), "2:513-514");
  EXPECT_EQ(placeIn(source, {6, 2 * 5000 + 5}), "2:2-5002");
  EXPECT_EQ(placeIn(source, {text.size() - 4, 4}), "3:1-5");
  const std::string blocks(4096, 'x');
  EXPECT_EQ(placeIn(Source(blocks), {4096, 1}), "1:4097-4097");
}

TEST(Source, KnowsAllEndsOfLines) {
  const Source source("a\rb\r\nc\n\rd");
  EXPECT_EQ(placeIn(source, {0, 9}), "1:1-2");
  EXPECT_EQ(placeIn(source, {2, 1}), "2:1-2");
  EXPECT_EQ(placeIn(source, {5, 1}), "3:1-2");
  EXPECT_EQ(placeIn(source, {7, 1}), "4:1-1") << "an empty line";
  EXPECT_EQ(placeIn(source, {8, 1}), "5:1-2");
  EXPECT_EQ(placeIn(Source("a\r"), {2, 0}), "2:1-1");
}

TEST(Source, CountsNoByteOrderMark) {
  const Source source("\xEF\xBB\xBF<a>\n<b>");
  EXPECT_EQ(placeIn(source, {source.offsetOf(3), 3}), "1:1-4");
  EXPECT_EQ(placeIn(source, {source.offsetOf(7), 3}), "2:1-4");
}

// The tag of b in the second line, behind a letter that takes two units.
TEST(Source, CountsCharactersOfUtf16) {
  using namespace std::string_view_literals;
  const auto document =
      "\xFE\xFF"
      "\0<\0a\0>\0\n\xD8\x35\xDD\x38\0<\0b\0 \0x\0=\0'\0y\0'\0>"sv;
  const Source source(document);
  const std::size_t tag = source.offsetOf(14);
  EXPECT_EQ(source.textOf(source.nameIn(tag)), "b");
  EXPECT_EQ(placeIn(source, source.nameIn(tag)), "2:3-4");
  EXPECT_EQ(placeIn(source, source.valueIn(tag, "x").value()), "2:8-9");
}

TEST(Source, APlaceEndsWithItsFirstLineAndWithTheText) {
  const Source source("abc\ndef");
  EXPECT_EQ(placeIn(source, {1, 5}), "1:2-4");
  EXPECT_EQ(placeIn(source, {7, 3}), "2:4-4");
  EXPECT_EQ(placeIn(source, {100, 3}), "2:4-4");
  EXPECT_EQ(placeIn(Source(""), {0, 1}), "1:1-1");
}

TEST(Source, FindsTheAttributesOfATag) {
  const std::string text = "<my:Obj2d my:Type = 'a>b' Name=\"x='y'\"\n Empty=''/><Name/>";
  const Source source(text);
  EXPECT_EQ(source.textOf(source.nameIn(0)), "my:Obj2d");
  EXPECT_EQ(source.textOf(source.valueIn(0, "Type").value()), "a>b");
  EXPECT_EQ(source.textOf(source.attributeIn(0, "Type").value()), "my:Type");
  EXPECT_EQ(source.textOf(source.valueIn(0, "Name").value()), "x='y'");
  EXPECT_EQ(source.textOf(source.valueIn(0, "Empty").value()), "");
  EXPECT_FALSE(source.valueIn(0, "Other").has_value());
  EXPECT_FALSE(source.valueIn(3, "Type").has_value()) << "there is no tag";
  EXPECT_EQ(source.nameIn(3).size, 0u);
}

TEST(Source, HasAnAnswerForTagsThatAreCutOff) {
  for (const std::string text : {"<", "<a", "<a b", "<a b=", "<a b='", "<a b='c", "<a b='c' d"}) {
    const Source source(text);
    EXPECT_LE(source.nameIn(0).size, 1u) << text;
    EXPECT_FALSE(source.valueIn(0, "x").has_value()) << text;
    EXPECT_FALSE(source.valueIn(text.size(), "x").has_value()) << text;
  }
}

TEST(Source, HasNoTextBehindItsEnd) {
  const Source source("abc");
  EXPECT_EQ(source.textOf({1, 5}), "bc");
  EXPECT_EQ(source.textOf({3, 1}), "");
  EXPECT_EQ(source.textOf({100, 1}), "");
}

TEST(Source, FindsTheEndOfATag) {
  const std::string text = "<a b='>' c=\"'>\"> > <d/>text";
  const Source source(text);
  EXPECT_EQ(source.textOf({source.behindTag(0), 6}), " > <d/");
  EXPECT_EQ(source.textOf({source.behindTag(19), 4}), "text");
  EXPECT_EQ(source.behindTag(3), 3u) << "there is no tag";
}

TEST(Source, FindsTheContentOfAnElement) {
  const std::string text = "<P2 a='>'>\n 1 2 </P2><P2></P2><P2> </P2>";
  const Source source(text);
  EXPECT_EQ(source.textOf(source.contentOf(0, 16)), "1 2");
  EXPECT_EQ(source.contentOf(21, 25).begin, 25u);
  EXPECT_EQ(source.contentOf(21, 25).size, 0u);
  EXPECT_EQ(source.textOf(source.contentOf(30, 35)), " ");
  EXPECT_EQ(source.contentOf(12, 16).begin, 12u) << "there is no tag";
}

TEST(Source, FindsContentBetweenComments) {
  const std::string text = "<P2><!-- 0 -->1 <?a b?> 2<!-- > --> </P2>";
  const Source source(text);
  EXPECT_EQ(source.textOf(source.contentOf(0, 36)), "1 <?a b?> 2");
}

TEST(Source, PutsBlanksInPlaceOfMarkup) {
  const Source source("1<!--2-->3<a b='>4'>5</a><![CDATA[<6>]]>7<?8?>9<!--");
  EXPECT_EQ(source.charactersOf({0, 100}), "1        3          5             <6>   7     9    ");
  EXPECT_EQ(source.charactersOf({9, 2}), "3 ");
}

TEST(Source, FindsReferences) {
  const Source source("a&b;c&#65;&");
  EXPECT_EQ(source.textOf(source.referenceAt(1)), "&b;");
  EXPECT_EQ(source.textOf(source.referenceAt(5)), "&#65;");
  EXPECT_EQ(source.referenceAt(4).size, 0u);
  EXPECT_EQ(source.referenceAt(10).size, 0u);
  EXPECT_EQ(source.referenceAt(100).size, 0u);
}

TEST(Source, FindsWholeWords) {
  const Source source("<a>12 2 212</a> 2");
  EXPECT_EQ(source.findWord({0, 100}, "2")->begin, 6u);
  EXPECT_EQ(source.findWord({7, 100}, "2")->begin, 16u);
  EXPECT_FALSE(source.findWord({0, 100}, "21").has_value());
  EXPECT_FALSE(source.findWord({7, 9}, "2").has_value());
  EXPECT_EQ(Source("<!-- 2 --> 2").findWord({0, 100}, "2")->begin, 11u);
}

}  // namespace
