#include "vantry/reader/recent_names.h"

#include <gtest/gtest.h>

namespace vantry::reader {

namespace {

std::uint32_t idOf(RecentNames& names, const char* name) {
  const NameCodes* codes = names.find(name);
  return codes ? codes->nameId : 0;
}

TEST(RecentNames, KnowNothingAtFirst) {
  RecentNames names;
  EXPECT_EQ(names.find("a"), nullptr);
}

TEST(RecentNames, KnowTheFourThatWereAddedLast) {
  RecentNames names;
  EXPECT_EQ(names.add("a", {1, 10})->nameId, 10U);
  EXPECT_EQ(names.find("a")->namespaceId, 1U);
  names.add("ab", {0, 20});
  names.add("b", {0, 30});
  names.add("c", {0, 40});
  EXPECT_EQ(idOf(names, "a"), 10U);
  EXPECT_EQ(idOf(names, "ab"), 20U);
  EXPECT_EQ(idOf(names, "b"), 30U);
  EXPECT_EQ(idOf(names, "c"), 40U);

  names.add("d", {0, 50});
  EXPECT_EQ(names.find("a"), nullptr) << "the oldest";
  EXPECT_EQ(idOf(names, "ab"), 20U);
  EXPECT_EQ(idOf(names, "d"), 50U);
  EXPECT_EQ(idOf(names, "d"), 50U) << "the same once more";
  names.add("a", {0, 60});
  EXPECT_EQ(names.find("ab"), nullptr);
  EXPECT_EQ(idOf(names, "a"), 60U);
}

TEST(RecentNames, TellNamespacesApart) {
  RecentNames names;
  const int one = 1;
  const int two = 2;
  names.add("a", {0, 10}, &one);
  names.add("a", {0, 20}, &two);
  EXPECT_EQ(names.find("a"), nullptr);
  EXPECT_EQ(names.find("a", &one)->nameId, 10U);
  EXPECT_EQ(names.find("a", &two)->nameId, 20U);
}

}  // namespace

}  // namespace vantry::reader
