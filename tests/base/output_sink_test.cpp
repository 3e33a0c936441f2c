#include "vantry/base/output_sink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using vantry::base::OutputSink;

template <class... Values>
std::string throughSink(const Values&... values) {
  std::ostringstream stream;
  OutputSink sink(stream);
  (sink << ... << values);
  sink.flush();
  return stream.str();
}

template <class... Values>
std::string throughStream(const Values&... values) {
  std::ostringstream stream;
  (stream << ... << values);
  return stream.str();
}

TEST(OutputSink, WritesTextAsItStands) {
  EXPECT_EQ(throughSink("<p>", 'x', std::string("&"), std::string_view("\0y", 2), "</p>\n"),
            std::string("<p>x&\0y</p>\n", 12));
}

TEST(OutputSink, WritesNothingForNullAndEmptyText) {
  EXPECT_EQ(throughSink(static_cast<const char*>(nullptr), "", std::string_view()), "");
}

TEST(OutputSink, StopsAtTheNulOfABuffer) {
  char buffer[12] = "abc";
  EXPECT_EQ(throughSink(buffer), "abc");
}

TEST(OutputSink, WritesDoublesAsAStreamDoes) {
  EXPECT_EQ(throughSink(0.0, ' ', -0.0, ' ', 1.0, ' ', 0.1, ' ', -2.5), "0 -0 1 0.1 -2.5");
  EXPECT_EQ(throughSink(123456.0, ' ', 1234567.0, ' ', 1e-4, ' ', 1e-5),
            "123456 1.23457e+06 0.0001 1e-05");
  EXPECT_EQ(throughSink(999999.5, ' ', 99999.96, ' ', 1e100), "1e+06 100000 1e+100");
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_EQ(throughSink(nan, ' ', std::copysign(nan, -1.0), ' ', inf, ' ', -inf),
            "nan -nan inf -inf");
}

TEST(OutputSink, WritesIntegersAsAStreamDoes) {
  EXPECT_EQ(throughSink(0, ' ', -1, ' ', 42u, ' ', std::size_t{7}, ' ', 1000000L),
            "0 -1 42 7 1000000");
  EXPECT_EQ(
      throughSink(std::numeric_limits<long>::min(), ' ', std::numeric_limits<unsigned long>::max()),
      "-9223372036854775808 18446744073709551615");
}

TEST(OutputSink, WritesTextOfAnyLengthInItsOrder) {
  std::string expected;
  std::ostringstream stream;
  OutputSink sink(stream);
  for (int i = 0; i < 300; ++i) {
    const std::string text(static_cast<std::size_t>(i * 997 % 150'000),
                           static_cast<char>('a' + i % 26));
    sink << text << i << ' ' << i * 0.5 << '\n';
    expected += text + throughStream(i, ' ', i * 0.5, '\n');
  }
  sink.flush();
  EXPECT_EQ(stream.str(), expected);
}

TEST(OutputSink, KeepsSmallTextUntilItIsFlushed) {
  std::ostringstream stream;
  OutputSink sink(stream);
  sink << "abc";
  EXPECT_EQ(stream.str(), "");
  sink.flush();
  EXPECT_EQ(stream.str(), "abc");
  sink.flush();
  EXPECT_EQ(stream.str(), "abc");
}

TEST(OutputSink, FillsItsBufferToTheLastByte) {
  for (std::size_t length = 65'530; length < 65'545; ++length) {
    std::ostringstream stream;
    OutputSink sink(stream);
    std::string expected;
    for (std::size_t i = 0; i < length; ++i) {
      const char c = static_cast<char>('a' + i % 26);
      sink.put(c);
      expected += c;
    }
    sink << "tail" << 1.5;
    sink.flush();
    EXPECT_EQ(stream.str(), expected + "tail1.5");
  }
}

TEST(OutputSink, HandsOnWhatIsLeftAtItsEnd) {
  std::ostringstream stream;
  { OutputSink(stream) << "left"; }
  EXPECT_EQ(stream.str(), "left");
}

TEST(OutputSink, EndsQuietlyIfItsStreamThrows) {
  struct FullDisk : std::streambuf {
  } full;
  std::ostream stream(&full);
  stream.exceptions(std::ios::badbit);
  EXPECT_NO_THROW({ OutputSink(stream) << "lost"; });
  EXPECT_TRUE(stream.bad());
  OutputSink sink(stream);
  sink << "text";
  EXPECT_THROW(sink.flush(), std::ios_base::failure);
}

TEST(OutputSink, GoesOnWithAnotherStream) {
  std::ostringstream first;
  std::ostringstream second;
  OutputSink sink;
  sink.attach(first);
  sink << "one";
  sink.attach(second);
  sink << "two";
  sink.flush();
  EXPECT_EQ(first.str(), "one");
  EXPECT_EQ(second.str(), "two");
}

TEST(OutputSink, DropsTextWithoutAStream) {
  OutputSink sink;
  sink << "dropped" << std::string(100'000, 'x');
  std::ostringstream stream;
  sink.attach(stream);
  sink.flush();
  EXPECT_EQ(stream.str(), "");
}

TEST(OutputSink, LeavesTheStateOfTheStreamToBeSeen) {
  struct FullDisk : std::streambuf {
  } full;
  std::ostream stream(&full);
  OutputSink sink(stream);
  sink << "text";
  EXPECT_TRUE(stream.good());
  sink.flush();
  EXPECT_TRUE(stream.bad());
}

}  // namespace
