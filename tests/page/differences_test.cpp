#include "vantry/page/differences.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace vantry::page {

namespace {

std::string encoded(std::string_view text) {
  DifferenceEncoder encoder;
  std::string out;
  encoder.encode(text, out);
  encoder.finish(out);
  return out;
}

TEST(DifferencesTest, AreTakenWithinColumns) {
  EXPECT_EQ(encoded("<f>501 502 -7</f>\n<f>503 502</f>\n<f>502 9 3</f>\n"),
            "<f>501 502 -7</f>\n<f>2 0</f>\n<f>-1 -493 10</f>\n");
}

TEST(DifferencesTest, CountAllWordsAsColumns) {
  EXPECT_EQ(encoded("5 1.5 7\n6 7 8\n2 x 9"), "5 1.5 7\n1 7 1\n-4 x 1");
}

TEST(DifferencesTest, StartAgainAfterSixteenColumns) {
  EXPECT_EQ(encoded("1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 19 18 3"),
            "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 18 16 0");
}

TEST(DifferencesTest, AreOnlyTakenOfIntegersInTheirOnlyForm) {
  for (const char* word : {"007", "-0", "00", "-", "--1", "+1", "1.5", "1e3", "1234567890",
                           "-1234567890", "12345678901", "1,", "a1", "\"1\"", "1\r", "\xc3\xa4"}) {
    const std::string text = "4 " + std::string(word) + " 5\n4 " + word + " 5\n";
    EXPECT_EQ(encoded(text), "4 " + std::string(word) + " 5\n0 " + word + " 0\n");
  }
}

TEST(DifferencesTest, WrapAround) {
  EXPECT_EQ(encoded("999999999 -999999999 0 1\n-999999999 999999999 0 -999999999\n"),
            "999999999 -999999999 0 1\n1 -1 0 999999999\n");
}

TEST(DifferencesTest, TakeTheTextInPieces) {
  const std::string_view text = "<f>501 502</f>\n<f>502 1234567890123 505</f>  <g/>\n\n<>7";
  for (std::size_t first = 0; first <= text.size(); ++first) {
    for (std::size_t second = first; second <= text.size(); ++second) {
      DifferenceEncoder encoder;
      std::string out;
      encoder.encode(text.substr(0, first), out);
      encoder.encode(text.substr(first, second - first), out);
      encoder.encode(text.substr(second), out);
      encoder.finish(out);
      EXPECT_EQ(out, "<f>501 502</f>\n<f>1 1234567890123 505</f>  <g/>\n\n<>7");
    }
  }
}

}  // namespace

}  // namespace vantry::page
