#include "vantry/javaview/frame_times.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace vantry::javaview {
namespace {

using Times = std::vector<double>;

TEST(FrameTimes, GoInStepsAndEndAtTheEnd) {
  EXPECT_EQ(frameTimes(0, 2, 2, 100), (Times{0, 0.5, 1, 1.5, 2}));
  EXPECT_EQ(frameTimes(-1, 0.25, 1, 100), (Times{-1, 0, 0.25}));
  EXPECT_EQ(frameTimes(3, 3.5, 1, 100), (Times{3, 3.5}));
}

TEST(FrameTimes, AreOneWhereNoTimePasses) {
  EXPECT_EQ(frameTimes(1, 1, 25, 100), Times{1});
  EXPECT_EQ(frameTimes(2, 1, 25, 100), Times{2});
}

TEST(FrameTimes, DoNotComeCloserToTheEndThanRounding) {
  const Times tenths = frameTimes(0, 1, 10, 100);
  ASSERT_EQ(tenths.size(), 11U) << "ten steps of a tenth come to a little less than 1";
  EXPECT_EQ(tenths.back(), 1);
}

TEST(FrameTimes, SkipStepsThatRoundingLoses) {
  const double begin = 1e17;
  const double next = std::nextafter(begin, 2e17);
  EXPECT_EQ(frameTimes(begin, next, 1, 100), (Times{begin, next}));
}

TEST(FrameTimes, AreNoneIfTheyAreTooMany) {
  EXPECT_EQ(frameTimes(0, 4, 1, 5).size(), 5U);
  EXPECT_EQ(frameTimes(0, 4, 1, 4), Times{});
  EXPECT_EQ(frameTimes(0, 4.5, 1, 5), Times{});
}

TEST(FrameTimes, AreNoneIfTheyHaveNoEnd) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double largest = std::numeric_limits<double>::max();
  for (const auto& [begin, end] :
       {std::pair(0.0, inf), std::pair(-inf, 0.0), std::pair(inf, inf), std::pair(nan, 1.0),
        std::pair(0.0, nan), std::pair(-largest, largest)}) {
    EXPECT_EQ(frameTimes(begin, end, 1, 100), Times{}) << begin << " to " << end;
  }
}

}  // namespace
}  // namespace vantry::javaview
