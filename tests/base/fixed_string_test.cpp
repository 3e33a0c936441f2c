#include "base/fixed_string.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

namespace {

using Ubase::FixedString;
using Ubase::FixedStringBase;

TEST(FixedString, IsNullByDefault) {
  EXPECT_EQ(FixedString().c_str(), nullptr);
  EXPECT_EQ(FixedString(nullptr).c_str(), nullptr);
  EXPECT_EQ(FixedString().useCount(), 0);
  EXPECT_EQ(sizeof(FixedString), sizeof(void*));
}

TEST(FixedString, CopiesTheTextThatItIsMadeFrom) {
  char buffer[] = "text";
  const FixedString string(buffer);
  buffer[0] = 'x';
  EXPECT_STREQ(string.c_str(), "text");
  EXPECT_EQ(string.useCount(), 1);
}

TEST(FixedString, SharesItsTextWithItsCopies) {
  const FixedString first("text");
  {
    const FixedString second = first;
    FixedString third;
    third = second;
    EXPECT_EQ(first.c_str(), second.c_str());
    EXPECT_EQ(first.c_str(), third.c_str());
    EXPECT_EQ(first.useCount(), 3);
  }
  EXPECT_EQ(first.useCount(), 1);
}

TEST(FixedString, GivesUpItsTextByAssignment) {
  const FixedString first("first");
  FixedString string = first;
  string = "second";
  EXPECT_STREQ(string.c_str(), "second");
  EXPECT_EQ(string.useCount(), 1);
  EXPECT_STREQ(first.c_str(), "first");
  EXPECT_EQ(first.useCount(), 1);
  string = nullptr;
  EXPECT_EQ(string.c_str(), nullptr);
}

TEST(FixedString, IsAssignedToItself) {
  FixedString string("text");
  const FixedString& same = string;
  string = same;
  EXPECT_STREQ(string.c_str(), "text");
  EXPECT_EQ(string.useCount(), 1);
  string = string.c_str();
  EXPECT_STREQ(string.c_str(), "text");
}

TEST(FixedString, MovesItsText) {
  FixedString source("text");
  const FixedString target = std::move(source);
  EXPECT_STREQ(target.c_str(), "text");
  EXPECT_EQ(target.useCount(), 1);
}

TEST(FixedString, IsComparedByItsText) {
  EXPECT_EQ(FixedString("abc"), FixedString("abc"));
  EXPECT_NE(FixedString("abc"), FixedString("abd"));
  EXPECT_NE(FixedString("abc"), FixedString("ab"));
  EXPECT_TRUE(FixedString("ab") < FixedString("abc"));
  EXPECT_TRUE(FixedString("abc") < FixedString("abd"));
  EXPECT_FALSE(FixedString("abc") < FixedString("abc"));
  EXPECT_TRUE(FixedString("") < FixedString("a"));
}

TEST(FixedString, IsOrderedAsStrcmpOrders) {
  const std::string texts[] = {"", "a", "z", "\x7F", "\x80", "\xC3\xA9", "\xFF", "a\xFF", "az"};
  for (const std::string& a : texts) {
    for (const std::string& b : texts) {
      EXPECT_EQ(FixedString(a.c_str()) < FixedString(b.c_str()),
                std::strcmp(a.c_str(), b.c_str()) < 0);
    }
  }
}

TEST(FixedString, TellsNullFromEmpty) {
  EXPECT_EQ(FixedString(), FixedString());
  EXPECT_EQ(FixedString(""), FixedString(""));
  EXPECT_NE(FixedString(), FixedString(""));
  EXPECT_FALSE(FixedString() < FixedString());
}

TEST(FixedString, HoldsWideTextToo) {
  const FixedStringBase<char16_t> string(u"\u20AC");
  EXPECT_EQ(string, FixedStringBase<char16_t>(u"\u20AC"));
  EXPECT_TRUE(FixedStringBase<char16_t>(u"a") < string);
}

}  // namespace
