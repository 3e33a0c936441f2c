// Each error that a document can raise in the XML parser, by a document that does.

#include "vantry/check/xml_errors.h"

#include <expat.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "vantry/check/check.h"
#include "vantry/reader/xml_handler.h"
#include "vantry/reader/xml_parser.h"

namespace {

using namespace std::string_literals;

struct Raising {
  XML_Error code;
  std::string document;
};

// Entities that contain each other ten times: a document of half a kilobyte that would be of
// gigabytes.
std::string entitiesOfEntities() {
  std::string declarations = "<!ENTITY e0 '0123456789'>";
  for (int i = 1; i < 9; ++i) {
    declarations += "<!ENTITY e" + std::to_string(i) + " '";
    for (int j = 0; j < 10; ++j) declarations += "&e" + std::to_string(i - 1) + ';';
    declarations += "'>";
  }
  return "<!DOCTYPE Canvas [" + declarations + "]><Canvas>&e8;</Canvas>";
}

// clang-format off
const std::vector<Raising> documents = {
    {XML_ERROR_SYNTAX,                       "x"},
    {XML_ERROR_NO_ELEMENTS,                  "<Canvas>"},
    {XML_ERROR_NO_ELEMENTS,                  ""},
    {XML_ERROR_INVALID_TOKEN,                "<Canvas><</Canvas>"},
    {XML_ERROR_UNCLOSED_TOKEN,               "<Canvas></Canvas"},
    {XML_ERROR_PARTIAL_CHAR,                 "<Canvas>\xC3"},
    {XML_ERROR_TAG_MISMATCH,                 "<Canvas></canvas>"},
    {XML_ERROR_DUPLICATE_ATTRIBUTE,          "<Canvas Width='1' Width='1'/>"},
    {XML_ERROR_JUNK_AFTER_DOC_ELEMENT,       "<Canvas/>x"},
    {XML_ERROR_PARAM_ENTITY_REF,             "<!DOCTYPE Canvas [<!ENTITY % e 'x'><!ELEMENT a (%e;)>]><Canvas/>"},
    {XML_ERROR_UNDEFINED_ENTITY,             "<Canvas>&deg;</Canvas>"},
    {XML_ERROR_RECURSIVE_ENTITY_REF,         "<!DOCTYPE Canvas [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><Canvas>&a;</Canvas>"},
    {XML_ERROR_ASYNC_ENTITY,                 "<!DOCTYPE Canvas [<!ENTITY e '</Canvas>'>]><Canvas>&e;"},
    {XML_ERROR_BAD_CHAR_REF,                 "<Canvas>&#0;</Canvas>"},
    {XML_ERROR_BINARY_ENTITY_REF,            "<!DOCTYPE Canvas [<!NOTATION n SYSTEM 'n'><!ENTITY e SYSTEM 'x' NDATA n>]><Canvas>&e;</Canvas>"},
    {XML_ERROR_ATTRIBUTE_EXTERNAL_ENTITY_REF, "<!DOCTYPE Canvas [<!ENTITY e SYSTEM 'x'>]><Canvas Width='&e;'/>"},
    {XML_ERROR_MISPLACED_XML_PI,             " <?xml version='1.0'?><Canvas/>"},
    {XML_ERROR_UNKNOWN_ENCODING,             "<?xml version='1.0' encoding='utf8x'?><Canvas/>"},
    {XML_ERROR_INCORRECT_ENCODING,           "<?xml version='1.0' encoding='UTF-16'?><Canvas/>"},
    {XML_ERROR_UNCLOSED_CDATA_SECTION,       "<Canvas><![CDATA[x</Canvas>"},
    {XML_ERROR_UNBOUND_PREFIX,               "<a:Canvas/>"},
    {XML_ERROR_UNDECLARING_PREFIX,           "<Canvas xmlns:a=''/>"},
    {XML_ERROR_XML_DECL,                     "<?xml version='1.0' encoding=UTF-8?><Canvas/>"},
    {XML_ERROR_PUBLICID,                     "<!DOCTYPE Canvas PUBLIC '{}' 'x'><Canvas/>"},
    {XML_ERROR_RESERVED_PREFIX_XML,          "<Canvas xmlns:xml='a'/>"},
    {XML_ERROR_RESERVED_PREFIX_XMLNS,        "<Canvas xmlns:xmlns='a'/>"},
    {XML_ERROR_RESERVED_NAMESPACE_URI,       "<Canvas xmlns:a='http://www.w3.org/2000/xmlns/'/>"},
    {XML_ERROR_AMPLIFICATION_LIMIT_BREACH,   entitiesOfEntities()},
};
// clang-format on

// Those that depend on the program, or on the files that a document names: the parser is given one
// document in good order, and is asked to read no other file.
const std::set<int> raisedByNoDocument = {
    XML_ERROR_NO_MEMORY,
    XML_ERROR_EXTERNAL_ENTITY_HANDLING,
    XML_ERROR_NOT_STANDALONE,
    XML_ERROR_UNEXPECTED_STATE,
    XML_ERROR_ENTITY_DECLARED_IN_PE,
    XML_ERROR_FEATURE_REQUIRES_XML_DTD,
    XML_ERROR_CANT_CHANGE_FEATURE_ONCE_PARSING,
    XML_ERROR_INCOMPLETE_PE,
    XML_ERROR_TEXT_DECL,
    XML_ERROR_SUSPENDED,
    XML_ERROR_NOT_SUSPENDED,
    XML_ERROR_ABORTED,
    XML_ERROR_FINISHED,
    XML_ERROR_SUSPEND_PE,
    XML_ERROR_INVALID_ARGUMENT,
    XML_ERROR_NO_BUFFER,
    XML_ERROR_NOT_STARTED,
};

class EachXmlError : public testing::TestWithParam<Raising> {};

TEST_P(EachXmlError, HasASentenceAndAWayOut) {
  const auto& [code, document] = GetParam();
  vantry::reader::Parser parser(nullptr, true, nullptr);
  EXPECT_FALSE(parser.parse(document.data(), static_cast<int>(document.size()), true));
  EXPECT_EQ(parser.errorCode(), code);

  const auto found = vantry::check::check(document);
  const auto error = std::ranges::find(found, "not-well-formed", &vantry::check::Diagnostic::code);
  ASSERT_NE(error, found.end());
  EXPECT_FALSE(error->help.empty()) << error->sentence;
}

INSTANTIATE_TEST_SUITE_P(, EachXmlError, testing::ValuesIn(documents));

TEST(XmlErrors, AreRaisedByADocumentOrByNone) {
  for (int code = XML_ERROR_NONE + 1; code <= XML_ERROR_NOT_STARTED; ++code) {
    const auto raised = std::ranges::count(
        documents, code, [](const Raising& raising) { return static_cast<int>(raising.code); });
    EXPECT_EQ(raised == 0, raisedByNoDocument.contains(code)) << code;
  }
}

TEST(XmlErrors, HaveASentenceEvenIfTheyAreNotKnown) {
  const auto [mistake, concernsOpenElement] =
      vantry::check::describeXmlError(9999, "<Canvas/>", 3, true);
  EXPECT_EQ(mistake.reason, "this is not well-formed XML");
  EXPECT_EQ(mistake.help, std::vector{"the document is perhaps damaged"s});
  EXPECT_EQ(mistake.place, 3u);
  EXPECT_FALSE(concernsOpenElement);
}

}  // namespace
