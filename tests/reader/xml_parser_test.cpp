#include "reader/xml_parser.h"

#include <dlfcn.h>
#include <expat.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "recording_handler.h"

namespace {

bool refuseToCreate = false;

/// The events of a document that is passed as one block.
std::string eventsOf(std::string_view document, bool namespaces = true) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, namespaces, nullptr);
  EXPECT_TRUE(parser.parse(document.data(), static_cast<int>(document.size()), true));
  EXPECT_FALSE(handler.isSkipping());
  return handler.log;
}

bool parseWhole(Xml::Parser& parser, std::string_view document) {
  return parser.parse(document.data(), static_cast<int>(document.size()), true);
}

}  // namespace

// Found before expat's own, which it calls unless a test wants the creation to fail.
extern "C" XML_Parser XML_ParserCreateNS(const XML_Char* encoding, XML_Char separator) {
  static const auto create =
      reinterpret_cast<decltype(&XML_ParserCreateNS)>(dlsym(RTLD_NEXT, "XML_ParserCreateNS"));
  return refuseToCreate ? nullptr : create(encoding, separator);
}

TEST(XmlParser, TellsElementsAndAttributesInOrder) {
  EXPECT_EQ(eventsOf("<a x='1' y='2'><b/><c z=''></c></a>"), "<a x=1 y=2><b></b><c z=></c></a>");
}

TEST(XmlParser, NameWithoutNamespaceHasNone) { EXPECT_EQ(eventsOf("<a/>"), "<a></a>"); }

TEST(XmlParser, SplitsNamespaceAndLocalName) {
  EXPECT_EQ(eventsOf("<a xmlns='urn:one' xmlns:p='urn:two' x='1' p:y='2'><p:b/></a>"),
            "<{urn:one}a x=1 {urn:two}y=2><{urn:two}b></{urn:two}b></{urn:one}a>");
}

TEST(XmlParser, TellsNamespacesApartThatBeginAlike) {
  EXPECT_EQ(
      eventsOf("<p:a xmlns:p='urn:a' xmlns:q='urn:ab' p:x='1' q:x='2'><q:b/><p:c/></p:a>"),
      "<{urn:a}a {urn:a}x=1 {urn:ab}x=2><{urn:ab}b></{urn:ab}b><{urn:a}c></{urn:a}c></{urn:a}a>");
}

TEST(XmlParser, ElementWithoutNamespaceWithinOneThatHasIt) {
  EXPECT_EQ(eventsOf("<a xmlns='urn:one'><b xmlns=''/></a>"), "<{urn:one}a><b></b></{urn:one}a>");
}

TEST(XmlParser, WithoutNamespaceProcessingNamesStayWhole) {
  EXPECT_EQ(eventsOf("<p:a xmlns:p='urn:one' p:x='1'/>", false),
            "<p:a xmlns:p=urn:one p:x=1></p:a>");
}

TEST(XmlParser, RefusedElementIsSkippedWithAllInside) {
  EXPECT_EQ(eventsOf("<a><X u='1'>text<b><text>t</text><X/></b></X><c/></a>"), "<a>?X;<c></c></a>");
}

TEST(XmlParser, RefusedRootSkipsTheDocument) { EXPECT_EQ(eventsOf("<X><a/></X>"), "?X;"); }

TEST(XmlParser, RefusedAttributeIsLeftOut) {
  EXPECT_EQ(eventsOf("<a x='1' Y='2' z='3'/>"), "?Y;<a x=1 z=3></a>");
}

TEST(XmlParser, AttributesDoNotOutliveTheirElement) {
  EXPECT_EQ(eventsOf("<a x='1' y='2'><b z='3'/></a>"), "<a x=1 y=2><b z=3></b></a>");
}

TEST(XmlParser, CdataIsTextAndCommentsAreNothing) {
  EXPECT_EQ(eventsOf("<!DOCTYPE text><text>a<!-- c --><?p i?><![CDATA[<b>]]>&lt;</text>"),
            "<text>'a<b><'</text>");
}

TEST(XmlParser, ValuesAndTextAreUtf8WhateverTheDocumentUses) {
  EXPECT_EQ(eventsOf("<?xml version='1.0' encoding='ISO-8859-1'?><text x='\xe9'>\xe9</text>"),
            "<text x=\xc3\xa9>'\xc3\xa9'</text>");
}

TEST(XmlParser, GivenEncodingOverrulesTheDeclaredOne) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, true, "ISO-8859-1");
  EXPECT_TRUE(parseWhole(parser, "<?xml version='1.0' encoding='UTF-8'?><text>\xe9</text>"));
  EXPECT_EQ(handler.log, "<text>'\xc3\xa9'</text>");
}

TEST(XmlParser, EveryBlockSizeGivesTheSameEvents) {
  const std::string document =
      "<a xmlns='urn:one' x='&lt;1'><text>one two\r\nthree</text><X><b>no</b></X><b "
      "y='\xc3\xa9'/></a>";
  const std::string whole = eventsOf(document);
  EXPECT_EQ(whole,
            "<{urn:one}a x=<1><{urn:one}text>'one two\nthree'</{urn:one}text>?X;"
            "<{urn:one}b y=\xc3\xa9></{urn:one}b></{urn:one}a>");
  for (std::size_t blockSize = 1; blockSize <= document.size(); ++blockSize) {
    RecordingHandler handler;
    Xml::Parser parser(&handler, true, nullptr);
    EXPECT_TRUE(parseInBlocks(parser, document, blockSize));
    EXPECT_EQ(handler.log, whole) << "blocks of " << blockSize;
  }
}

TEST(XmlParser, EmptyFinalBlockEndsADocument) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, true, nullptr);
  EXPECT_TRUE(parser.parse("<a></a>", 7, false));
  EXPECT_TRUE(parser.parse("", 0, true));
  EXPECT_EQ(parser.errorCode(), XML_ERROR_NONE);
}

TEST(XmlParser, EmptyFinalBlockFindsTheDocumentCutOff) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, true, nullptr);
  EXPECT_TRUE(parser.parse("<a>", 3, false));
  EXPECT_FALSE(parser.parse("", 0, true));
  EXPECT_EQ(parser.errorCode(), XML_ERROR_NO_ELEMENTS);
  EXPECT_EQ(handler.log, "<a>failed;");
}

TEST(XmlParser, EmptyDocumentFails) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, true, nullptr);
  EXPECT_FALSE(parser.parse("", 0, true));
  EXPECT_EQ(parser.errorCode(), XML_ERROR_NO_ELEMENTS);
  EXPECT_EQ(handler.log, "failed;");
}

TEST(XmlParser, ErrorTellsItsPlace) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, true, nullptr);
  EXPECT_FALSE(parseWhole(parser, "<a>\n  <b></c>\n</a>"));
  EXPECT_EQ(parser.errorCode(), XML_ERROR_TAG_MISMATCH);
  EXPECT_EQ(parser.lineNumber(), 2);
  EXPECT_EQ(parser.columnNumber(), 7);
  EXPECT_EQ(handler.log, "<a><b>failed;");
}

TEST(XmlParser, StandsAtTheStartBeforeAnyBlock) {
  RecordingHandler handler;
  const Xml::Parser parser(&handler, true, nullptr);
  EXPECT_EQ(parser.errorCode(), XML_ERROR_NONE);
  EXPECT_EQ(parser.lineNumber(), 1);
  EXPECT_EQ(parser.columnNumber(), 0);
}

TEST(XmlParser, EveryBlockAfterAnErrorFailsAgain) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, true, nullptr);
  EXPECT_FALSE(parser.parse("<a></b>", 7, false));
  EXPECT_FALSE(parser.parse("<c></c>", 7, false));
  EXPECT_FALSE(parser.parse("", 0, true));
  EXPECT_EQ(handler.log, "<a>failed;failed;failed;");
  EXPECT_EQ(parser.lineNumber(), 1);
}

TEST(XmlParser, UnknownEncodingFails) {
  RecordingHandler handler;
  Xml::Parser parser(&handler, true, nullptr);
  EXPECT_FALSE(parseWhole(parser, "<?xml version='1.0' encoding='x-none'?><a/>"));
  EXPECT_EQ(parser.errorCode(), XML_ERROR_UNKNOWN_ENCODING);
  EXPECT_EQ(handler.log, "failed;");
}

TEST(XmlParser, WithoutExpatEveryBlockFails) {
  RecordingHandler handler;
  refuseToCreate = true;
  Xml::Parser parser(&handler, true, nullptr);
  refuseToCreate = false;
  EXPECT_FALSE(parser.parse("<a/>", 4, false));
  EXPECT_FALSE(parser.parse("", 0, true));
  EXPECT_EQ(handler.log, "failed;failed;");
  EXPECT_EQ(parser.errorCode(), -1);
  EXPECT_EQ(parser.lineNumber(), 0);
  EXPECT_EQ(parser.columnNumber(), 0);
}

TEST(XmlParser, WithoutHandlerOnlyTheResultTells) {
  Xml::Parser good(nullptr, true, nullptr);
  EXPECT_TRUE(parseWhole(good, "<a><b x='1'>text</b></a>"));
  Xml::Parser bad(nullptr, true, nullptr);
  EXPECT_FALSE(parseWhole(bad, "<a>"));
}

namespace {

enum class ThrowAt { start, end, text, elementName, attributeName };

/// Throws once, at the given place, and logs what comes before and after.
class ThrowingHandler : public RecordingHandler {
 public:
  explicit ThrowingHandler(ThrowAt place) : place_(place) {}

  void startElement(std::uint32_t namespaceId, std::uint32_t elementId,
                    const Xml::AttributeList& attributes) override {
    throwAt(ThrowAt::start, !attributes.empty());
    RecordingHandler::startElement(namespaceId, elementId, attributes);
  }
  void endElement(std::uint32_t namespaceId, std::uint32_t elementId) override {
    throwAt(ThrowAt::end, true);
    RecordingHandler::endElement(namespaceId, elementId);
  }
  void characters(const char* data, std::size_t length) override {
    throwAt(ThrowAt::text, true);
    RecordingHandler::characters(data, length);
  }
  bool lookupElement(const char* namespaceUri, const char* localName, std::uint32_t& namespaceId,
                     std::uint32_t& elementId) override {
    throwAt(ThrowAt::elementName, localName == std::string("b"));
    return RecordingHandler::lookupElement(namespaceUri, localName, namespaceId, elementId);
  }
  bool lookupAttribute(const char* namespaceUri, const char* localName, std::uint32_t& namespaceId,
                       std::uint32_t& attributeId) override {
    throwAt(ThrowAt::attributeName, true);
    return RecordingHandler::lookupAttribute(namespaceUri, localName, namespaceId, attributeId);
  }

 private:
  void throwAt(ThrowAt place, bool condition) {
    if (place == place_ && condition) throw std::runtime_error("from the handler");
  }

  ThrowAt place_;
};

class XmlParserThrows : public testing::TestWithParam<ThrowAt> {};

}  // namespace

TEST(XmlParser, AHandlerMayBeginToSkipByItself) {
  class SkippingHandler : public RecordingHandler {
   public:
    void startElement(std::uint32_t namespaceId, std::uint32_t elementId,
                      const Xml::AttributeList& attributes) override {
      RecordingHandler::startElement(namespaceId, elementId, attributes);
      if (!attributes.empty()) enterSkipped();
    }
  };
  SkippingHandler handler;
  Xml::Parser parser(&handler, true, nullptr);
  parseWhole(parser, "<a><b x='1'><c/></b><d/></a>");
  EXPECT_EQ(handler.log, "<a><b x=1><d></d></a>");
}

TEST_P(XmlParserThrows, ExceptionOfTheHandlerLeavesParse) {
  ThrowingHandler handler(GetParam());
  Xml::Parser parser(&handler, true, nullptr);
  try {
    parseWhole(parser, "<a><b x='1'>t</b><c/></a></oops>");
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "from the handler");
  }
  const std::string before =
      GetParam() == ThrowAt::text || GetParam() == ThrowAt::end ? "<a><b x=1>" : "<a>";
  EXPECT_EQ(handler.log, before) << "no event and no parseFailed() after the exception";

  EXPECT_THROW(parser.parse("", 0, true), std::runtime_error);
  EXPECT_EQ(handler.log, before);
}

INSTANTIATE_TEST_SUITE_P(EveryCall, XmlParserThrows,
                         testing::Values(ThrowAt::start, ThrowAt::end, ThrowAt::text,
                                         ThrowAt::elementName, ThrowAt::attributeName));

TEST(XmlParser, ExceptionReachesTheCallerThroughAPieceThatExpatConverts) {
  ThrowingHandler handler(ThrowAt::text);
  Xml::Parser parser(&handler, true, "ISO-8859-1");
  const std::string document = "<text>" + std::string(5000, '\xe9') + "</text>";
  EXPECT_THROW(parseWhole(parser, document), std::runtime_error);
  EXPECT_EQ(handler.log, "<text>");
}

TEST(XmlParser, NestingHasNoLimitOfItsOwn) {
  std::string document;
  for (int i = 0; i < 20000; ++i) document += i % 2 ? "<a>" : "<X>";
  for (int i = 20000; i-- > 0;) document += i % 2 ? "</a>" : "</X>";
  EXPECT_EQ(eventsOf(document), "?X;");
}
