#include "vantry/base/fixed_string.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using vantry::base::FixedString;
using vantry::base::FixedStringBase;

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

TEST(FixedString, IsNotCountedIfItIsPermanent) {
  static const char* text = nullptr;  // so that a leak checker finds it in use
  {
    const FixedString permanent = FixedString::permanent("for ever");
    text = permanent.c_str();
    const FixedString copy = permanent;
    EXPECT_EQ(copy.c_str(), text);
    EXPECT_EQ(permanent.useCount(), 0);
    EXPECT_EQ(permanent, FixedString("for ever"));
  }
  EXPECT_STREQ(text, "for ever") << "it outlives its last copy";
}

// The thread sanitizer sees whether they touch anything in common.
TEST(FixedString, IsSharedByThreadsIfItIsPermanent) {
  static const FixedString permanent = FixedString::permanent("for all");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int k = 0; k < 1000; ++k) EXPECT_EQ(FixedString(permanent).c_str(), permanent.c_str());
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(FixedString, DistinguishesNullFromEmpty) {
  EXPECT_EQ(FixedString(), FixedString());
  EXPECT_EQ(FixedString(""), FixedString(""));
  EXPECT_NE(FixedString(), FixedString(""));
  EXPECT_FALSE(FixedString() < FixedString());
}

// Units of a text that is as long as the test says.
enum class Unit : char {};
std::size_t unitsInAText = 0;

}  // namespace

// Lets the address sanitizer answer a request for too much memory as the C library does.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

template <>
struct std::char_traits<Unit> {
  static std::size_t length(const Unit*) { return unitsInAText; }
  static bool eq(Unit a, Unit b) { return a == b; }
  static bool lt(Unit a, Unit b) { return a < b; }
};

namespace {

TEST(FixedString, KeepsItsTextWhenAnotherIsTooLongForTheMemory) {
  const Unit text[] = {Unit{'a'}, Unit{'b'}, Unit{}};
  unitsInAText = 2;
  FixedStringBase<Unit> string(text);
  const FixedStringBase<Unit> same = string;
  unitsInAText = std::numeric_limits<std::ptrdiff_t>::max();
  EXPECT_THROW(string = text, std::bad_alloc);
  EXPECT_THROW(const FixedStringBase<Unit> other(text), std::bad_alloc);
  EXPECT_EQ(string.c_str(), same.c_str());
  EXPECT_EQ(string.useCount(), 2);
  EXPECT_EQ(string.c_str()[1], Unit{'b'});
}

TEST(FixedString, HoldsWideTextToo) {
  const FixedStringBase<char16_t> string(u"\u20AC");
  EXPECT_EQ(string, FixedStringBase<char16_t>(u"\u20AC"));
  EXPECT_TRUE(FixedStringBase<char16_t>(u"a") < string);
}

}  // namespace
