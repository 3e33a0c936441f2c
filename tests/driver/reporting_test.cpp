#include "driver/reporting.h"

#include <gtest/gtest.h>

namespace {

std::string warningOf(int code, int line, int column) {
  testing::internal::CaptureStderr();
  vantry::driver::parserWarning(code, line, column);
  return testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(Reporting, ParserWarningNamesErrorAndPlace) {
  EXPECT_EQ(warningOf(7, 3, 5), "Warning: parser error '7' [line 3 column 5]\n");
}

TEST(Reporting, ParserWarningWithoutAParser) {
  EXPECT_EQ(warningOf(-1, 0, 0), "Warning: parser error '-1' [line 0 column 0]\n");
}
