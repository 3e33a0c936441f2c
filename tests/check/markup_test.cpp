#include "vantry/check/markup.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using vantry::check::Markup;
using vantry::check::namesIn;
using vantry::check::nextMarkup;

using Strings = std::vector<std::string>;

/// All markup of a document; what is not closed has a "~" behind it.
Strings markupOf(std::string_view document) {
  Strings all;
  for (auto markup = nextMarkup(document, 0); markup;
       markup = nextMarkup(document, markup->end())) {
    all.push_back(std::string(markup->text) + (markup->isClosed ? "" : "~"));
  }
  return all;
}

Strings namesOf(std::string_view document) {
  const auto names = namesIn(nextMarkup(document, 0).value());
  return {names.begin(), names.end()};
}

TEST(Markup, EndsWhereNothingOfItIsOpen) {
  EXPECT_EQ(markupOf("a <b c='>' d=\"'>\"> it's </b> > "), (Strings{"<b c='>' d=\"'>\">", "</b>"}));
  EXPECT_EQ(markupOf("<!-- <a> -- > --><?b <c> ?><![CDATA[<d>]]]>"),
            (Strings{"<!-- <a> -- > -->", "<?b <c> ?>", "<![CDATA[<d>]]]>"}));
  EXPECT_EQ(markupOf("<!DOCTYPE a [<!-- ' --><!ENTITY b '<c>'> ]><a/>"),
            (Strings{"<!DOCTYPE a [~", "<!-- ' -->", "<!ENTITY b '<c>'>", "<a/>"}));
}

TEST(Markup, GoesToTheEndIfItIsNotClosed) {
  EXPECT_EQ(markupOf("<a b='<c/>"), Strings{"<a b='<c/>~"});
  EXPECT_EQ(markupOf("<a"), Strings{"<a~"});
  EXPECT_EQ(markupOf("<"), Strings{"<~"});
  EXPECT_EQ(markupOf("<!-->"), Strings{"<!-->~"});
  EXPECT_EQ(markupOf("a"), Strings{});
}

TEST(Markup, HasNamesOutsideOfValues) {
  EXPECT_EQ(namesOf("<a:b c='d e' f:g = \"h\"/>"), (Strings{"a:b", "c", "f:g"}));
  EXPECT_EQ(namesOf("<!ATTLIST a b CDATA 'c'>"), (Strings{"ATTLIST", "a", "b", "CDATA"}));
  EXPECT_EQ(namesOf("<!-- a -->"), Strings{});
  EXPECT_EQ(namesOf("<?a b='c'?>"), Strings{});
}

}  // namespace
