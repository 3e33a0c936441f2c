#include "vantry/base/running_number.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <sstream>
#include <string>

#include "samples.h"
#include "vantry/base/output_sink.h"

namespace {

using vantry::base::numberRoom;
using vantry::base::RunningNumber;

std::string textOf(const RunningNumber& number) {
  char room[numberRoom];
  return {room, number.write(room)};
}

TEST(RunningNumber, BeginsAtAnyNumber) {
  for (const std::int64_t value :
       {std::int64_t{0}, std::int64_t{7}, std::int64_t{-1}, std::int64_t{-1000},
        std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
    EXPECT_EQ(textOf(RunningNumber(value)), std::to_string(value));
  }
}

TEST(RunningNumber, CountsUp) {
  RunningNumber number(-1100);
  for (int value = -1100; value <= 101'100; ++value, ++number) {
    ASSERT_EQ(textOf(number), std::to_string(value));
  }
}

TEST(RunningNumber, CountsOverEachPowerOfTen) {
  std::int64_t power = 1;
  for (int digits = 1; digits <= 18; ++digits) {
    power *= 10;
    for (const std::int64_t first : {power - 12, -power - 12}) {
      RunningNumber number(first);
      for (std::int64_t value = first; value < first + 24; ++value, ++number) {
        ASSERT_EQ(textOf(number), std::to_string(value));
      }
    }
  }
}

TEST(RunningNumber, CountsUpFromRandomNumbers) {
  std::mt19937_64 random(5);
  for (long i = samples(20'000); i > 0; --i) {
    const auto first = static_cast<std::int64_t>(random() >> (random() % 63 + 1));
    RunningNumber number(first);
    for (std::int64_t value = first; value < first + 11; ++value, ++number) {
      ASSERT_EQ(textOf(number), std::to_string(value));
    }
  }
}

TEST(RunningNumber, GoesIntoASink) {
  std::ostringstream stream;
  vantry::base::OutputSink sink(stream);
  std::string expected;
  RunningNumber number(0);
  for (int value = 0; value < 50'000; ++value, ++number) {  // several buffers full
    sink << number << ' ';
    expected += std::to_string(value) + ' ';
  }
  sink.flush();
  EXPECT_EQ(stream.str(), expected);
}

}  // namespace
