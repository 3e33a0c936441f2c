#include "vantry/base/percent_escapes.h"

#include <gtest/gtest.h>

namespace {

using vantry::base::percentEscaped;

TEST(PercentEscaped, LeavesPlainCharactersAsTheyAre) {
  EXPECT_EQ(percentEscaped("/plots/A-z_0.9~.zrd"), "/plots/A-z_0.9~.zrd");
  EXPECT_EQ(percentEscaped(""), "");
}

TEST(PercentEscaped, EscapesAllOtherBytes) {
  EXPECT_EQ(percentEscaped("two words"), "two%20words");
  EXPECT_EQ(percentEscaped("50%?#:\n"), "50%25%3F%23%3A%0A");
  EXPECT_EQ(percentEscaped("\xC3\xA4\xFF"), "%C3%A4%FF");
}

}  // namespace
