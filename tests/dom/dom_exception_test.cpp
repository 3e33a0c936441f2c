#include "vantry/dom/dom_exception.h"

#include <gtest/gtest.h>

namespace {

using vantry::dom::DomException;
using vantry::dom::RangeException;

TEST(DomExceptionTest, EveryCodeHasItsName) {
  const struct {
    int code;
    const char* name;
  } cases[] = {
      {1, "INDEX_SIZE_ERR"},
      {2, "DOMSTRING_SIZE_ERR"},
      {3, "HIERARCHY_REQUEST_ERR"},
      {4, "WRONG_DOCUMENT_ERR"},
      {5, "INVALID_CHARACTER_ERR"},
      {6, "NO_DATA_ALLOWED_ERR"},
      {7, "NO_MODIFICATION_ALLOWED_ERR"},
      {8, "NOT_FOUND_ERR"},
      {9, "NOT_SUPPORTED_ERR"},
      {10, "INUSE_ATTRIBUTE_ERR"},
      {11, "INVALID_STATE_ERR"},
      {12, "SYNTAX_ERR"},
      {13, "INVALID_MODIFICATION_ERR"},
      {14, "NAMESPACE_ERR"},
      {15, "INVALID_ACCESS_ERR"},
      {0, "<<invalid>>"},
      {16, "<<invalid>>"},
      {-1, "<<invalid>>"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(DomException(each.code).code(), each.code);
    EXPECT_STREQ(DomException(each.code).name(), each.name);
  }
}

TEST(RangeExceptionTest, EveryCodeHasItsName) {
  EXPECT_STREQ(RangeException(1).name(), "BAD_BOUNDARYPOINTS_ERR");
  EXPECT_STREQ(RangeException(2).name(), "INVALID_NODE_TYPE_ERR");
  EXPECT_STREQ(RangeException(0).name(), "<<invalid>>");
  EXPECT_STREQ(RangeException(3).name(), "<<invalid>>");
  EXPECT_EQ(RangeException(2).code(), 2);
}

TEST(DomExceptionTest, WhatIsTheNameAndWhatWasRefused) {
  EXPECT_STREQ(DomException(3).what(), "HIERARCHY_REQUEST_ERR");
  EXPECT_FALSE(DomException(3).saysWhatWasRefused());
  EXPECT_STREQ(RangeException(1).what(), "BAD_BOUNDARYPOINTS_ERR");

  const DomException withWords(12, "element 'Canvas'");
  EXPECT_STREQ(withWords.what(), "SYNTAX_ERR: element 'Canvas'");
  EXPECT_STREQ(withWords.name(), "SYNTAX_ERR");
  EXPECT_EQ(withWords.code(), 12);
  EXPECT_TRUE(withWords.saysWhatWasRefused());
}

}  // namespace
