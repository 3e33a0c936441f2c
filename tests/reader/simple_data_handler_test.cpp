#include "vantry/reader/simple_data_handler.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "vantry/reader/xml_parser.h"

namespace {

/// Collects the text of every element but those named "plain", keeps the pieces, and shows at each
/// end what there is.
class Collector : public vantry::reader::SimpleDataHandler {
 public:
  std::vector<std::string> pieces;
  std::vector<std::string> texts;
  bool trims = false;
  bool dropsReturns = false;

  void startElement(std::uint32_t, std::uint32_t elementId,
                    const vantry::reader::AttributeList&) override {
    if (elementId != 0) collectText();
  }

  void endElement(std::uint32_t, std::uint32_t) override {
    if (trims) trimText();
    texts.emplace_back(text());
  }

  bool lookupElement(std::string_view, const char* localName, std::uint32_t&,
                     std::uint32_t& elementId) override {
    elementId = localName == std::string("plain") ? 0 : 1;
    return localName != std::string("unknown");
  }

  bool lookupAttribute(std::string_view, const char*, std::uint32_t&, std::uint32_t&) override {
    return false;
  }

  void appendText(const char* data, std::size_t length) override {
    pieces.emplace_back(data, length);
    if (dropsReturns) {
      appendTextWithoutReturns(data, length);
    } else {
      SimpleDataHandler::appendText(data, length);
    }
  }

  void parse(const std::vector<std::string>& blocks) {
    vantry::reader::Parser parser(this, true, nullptr);
    for (const std::string& block : blocks) {
      ASSERT_TRUE(parser.parse(block.data(), static_cast<int>(block.size()), false));
    }
    ASSERT_TRUE(parser.parse("", 0, true));
  }

  /// One element with this very text, which no document need be able to hold.
  void feed(const std::string& text) {
    startElement(0, 1, {});
    characters(text.data(), text.size());
    finishElement(0, 1);
  }
};

using Texts = std::vector<std::string>;

}  // namespace

TEST(SimpleDataHandler, CollectsTheTextOfAnElement) {
  Collector collector;
  collector.parse({"<a>one</a>"});
  EXPECT_EQ(collector.texts, Texts{"one"});
}

TEST(SimpleDataHandler, TextCutAcrossBlocksIsJoined) {
  Collector collector;
  collector.parse({"<a>one", "two</a>"});
  EXPECT_EQ(collector.pieces, (Texts{"one", "two"}));
  EXPECT_EQ(collector.texts, Texts{"onetwo"});
}

TEST(SimpleDataHandler, ElementWithoutTextHasTheEmptyString) {
  Collector collector;
  collector.parse({"<plain><a></a><a/></plain>"});
  EXPECT_EQ(collector.texts, (Texts{"", "", ""}));
}

TEST(SimpleDataHandler, TextIsDroppedUnlessAskedFor) {
  Collector collector;
  collector.parse({"<plain>one<a>two</a>three</plain>"});
  EXPECT_EQ(collector.pieces, Texts{"two"});
  EXPECT_EQ(collector.texts, (Texts{"two", ""}));
}

TEST(SimpleDataHandler, EachElementStartsAfresh) {
  Collector collector;
  collector.parse({"<plain><a>long text</a><a>x</a></plain>"});
  EXPECT_EQ(collector.texts, (Texts{"long text", "x", ""}));
}

TEST(SimpleDataHandler, CollectionDoesNotNest) {
  Collector collector;
  collector.parse({"<a>outer<a>inner</a>rest</a>"});
  EXPECT_EQ(collector.pieces, (Texts{"outer", "inner"}));
  EXPECT_EQ(collector.texts, (Texts{"outerinner", ""}));
}

TEST(SimpleDataHandler, ChildThatIsNotCollectedEndsTheCollectionToo) {
  Collector collector;
  collector.parse({"<a>outer<plain/>rest</a>"});
  EXPECT_EQ(collector.texts, (Texts{"outer", ""}));
}

TEST(SimpleDataHandler, SkippedSubtreeGivesNoText) {
  Collector collector;
  collector.parse({"<a>one<unknown>two<a>three</a></unknown>four</a>"});
  EXPECT_EQ(collector.pieces, (Texts{"one", "four"}));
  EXPECT_EQ(collector.texts, Texts{"onefour"});
}

TEST(SimpleDataHandler, TrimRemovesTrailingBlanksOnly) {
  Collector collector;
  collector.trims = true;
  collector.parse({"<plain><a>  x y \t\n&#13; </a><a>\xc3\xa0 </a><a>x&#160;</a></plain>"});
  EXPECT_EQ(collector.texts, (Texts{"  x y", "\xc3\xa0", "x\xc2\xa0", ""}));
}

TEST(SimpleDataHandler, TrimOfBlanksAloneLeavesTheEmptyString) {
  Collector collector;
  collector.trims = true;
  collector.parse({"<a> \n \t\n</a>"});
  EXPECT_EQ(collector.texts, Texts{""});
}

TEST(SimpleDataHandler, TrimRemovesTheBytesFrom1To32) {
  Collector collector;
  collector.trims = true;
  std::string trimmed;
  for (char byte = 1; byte <= 32; ++byte) trimmed += byte;
  collector.feed("a!" + trimmed);
  collector.feed("a\x7f" + trimmed);
  EXPECT_EQ(collector.texts, (Texts{"a!", "a\x7f"}));
}

TEST(SimpleDataHandler, NulStopsTheTrim) {
  Collector collector;
  collector.trims = true;
  collector.feed(std::string("a \0 ", 4));
  EXPECT_EQ(collector.texts, Texts{"a "});
}

TEST(SimpleDataHandler, AppendingWithoutReturnsDropsThemAnywhere) {
  Collector collector;
  collector.dropsReturns = true;
  collector.parse({"<a>&#13;one&#13;&#13;\n", "two&#13;</a>"});
  EXPECT_EQ(collector.texts, Texts{"one\ntwo"});
}

TEST(SimpleDataHandler, AppendingKeepsReturns) {
  Collector collector;
  collector.parse({"<a>one&#13;\n</a>"});
  EXPECT_EQ(collector.texts, Texts{"one\r\n"});
}
