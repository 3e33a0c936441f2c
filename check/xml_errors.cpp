#include "vantry/check/xml_errors.h"

#include <expat.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "vantry/check/characters.h"
#include "vantry/check/entity_mistakes.h"
#include "vantry/check/prolog_mistakes.h"
#include "vantry/check/tag_mistakes.h"

namespace vantry::check {

using namespace std::string_view_literals;

namespace {

struct Row {
  std::int32_t code;
  const char* reason;
  const char* help;
  bool concernsOpenElement = false;
};

// clang-format off
constexpr Row rows[] = {
    {XML_ERROR_NO_MEMORY,               "there is not enough memory for the document", "make it smaller, or check it where there is more"},
    {XML_ERROR_NO_ELEMENTS,             "the document ends before its outermost element does", "each element needs its end tag, or ends with />", true},
    {XML_ERROR_INVALID_TOKEN,           "a character cannot be here", "in text < is written as &lt; and & as &amp;; values of attributes are between quotes", true},
    {XML_ERROR_UNCLOSED_TOKEN,          "the document ends too early", "it is perhaps cut off", true},
    {XML_ERROR_PARTIAL_CHAR,            "the document ends within a character", "it is perhaps cut off, or damaged"},
    {XML_ERROR_TAG_MISMATCH,            "this end tag is not that of the element that is open", "names are compared letter by letter, capitals included", true},
    {XML_ERROR_DUPLICATE_ATTRIBUTE,     "a tag has an attribute twice", "leave one of them out"},
    {XML_ERROR_JUNK_AFTER_DOC_ELEMENT,  "something follows the outermost element", "a document has one outermost element, the Canvas"},
    {XML_ERROR_PARAM_ENTITY_REF,        "an entity with % cannot be here", "within the document itself it can be between declarations alone"},
    {XML_ERROR_UNDEFINED_ENTITY,        "there is no entity of this name", "XML knows &lt; &gt; &amp; &quot; and &apos;; for any other character write its number, as in &#176;"},
    {XML_ERROR_RECURSIVE_ENTITY_REF,    "an entity contains itself", "what it stands for must not contain its own name, in other entities either"},
    {XML_ERROR_ASYNC_ENTITY,            "an element begins in an entity and ends outside of it, or the other way round", "an entity holds elements with both of their tags", true},
    {XML_ERROR_BAD_CHAR_REF,            "there is no character of this number in XML", "the number is that in Unicode; of control characters there are &#9; &#10; and &#13; alone"},
    {XML_ERROR_BINARY_ENTITY_REF,       "this entity is a file that is no text (NDATA)", "leave it out: it cannot be in a text"},
    {XML_ERROR_ATTRIBUTE_EXTERNAL_ENTITY_REF, "the value of an attribute contains an entity that is in another file", "write what it stands for instead"},
    {XML_ERROR_MISPLACED_XML_PI,        "<?xml ...?> is not at the very beginning", "move it there; blank lines before it count too"},
    {XML_ERROR_UNKNOWN_ENCODING,        "the encoding that the document names is not known", "it may be UTF-8, UTF-16, ISO-8859-1 or US-ASCII; a file in any other is converted by iconv"},
    {XML_ERROR_INCORRECT_ENCODING,      "the document is not in the encoding that it names", "name the one that it is in, or none: then it is UTF-8, or UTF-16 with a byte order mark"},
    {XML_ERROR_UNBOUND_PREFIX,          "a prefix belongs to no namespace", "declare it, as in xmlns:my=\"...\""},
    {XML_ERROR_UNDECLARING_PREFIX,      "a prefix is declared with no namespace", "leave xmlns:...=\"\" out, or put a namespace between the quotes"},
    {XML_ERROR_RESERVED_PREFIX_XML,     "the prefix xml always means the namespace of XML", "choose another prefix"},
    {XML_ERROR_RESERVED_PREFIX_XMLNS,   "the prefix xmlns cannot be declared", "choose another prefix"},
    {XML_ERROR_RESERVED_NAMESPACE_URI,  "no other prefix can mean the namespace of the prefix xml or xmlns", "leave the declaration out"},
    {XML_ERROR_PUBLICID,                "a public identifier has a character that cannot be in one", "it may hold letters, digits, blanks and -'()+,./:=?;!*#@$_%"},
    {XML_ERROR_XML_DECL,                "<?xml ...?> is not right", "it is written as <?xml version=\"1.0\" encoding=\"UTF-8\"?>"},
    {XML_ERROR_AMPLIFICATION_LIMIT_BREACH, "entities or namespaces make the document too large", "write out what they stand for: a document may become ten times as long as it is"},
};

constexpr Row otherError = {XML_ERROR_NONE, "this is not well-formed XML", "the document is perhaps damaged"};

/// What files of other formats begin with; those in UTF-32 after they have been read as UTF-16.
constexpr struct {
  std::string_view beginning;
  const char* help;
} otherFormats[] = {
    {"\x89PNG",        "this is a picture, a PNG file, and no plot document"},
    {"\xFF\xD8\xFF",   "this is a picture, a JPEG file, and no plot document"},
    {"GIF8",           "this is a picture, a GIF file, and no plot document"},
    {"%PDF",           "this is a PDF file and no plot document"},
    {"PK\x03\x04",     "this is a ZIP archive and no plot document"},
    {"\x1F\x8B",       "this is a compressed file; unpack it first"},
    {"{",              "this looks like JSON; a plot document is XML"},
    {"<\0"sv,          "this is a text in UTF-32; convert it to UTF-8"},
    {"\0<\0"sv,        "this is a text in UTF-32; convert it to UTF-8"},
    {"\0\xEF\xBB\xBF\0"sv, "this is a text in UTF-32; convert it to UTF-8"},
};
// clang-format on

constexpr const char* helpForEmptyDocument = "a plot document is a Canvas: <Canvas> ... </Canvas>";

/// What the document itself shows of an error. Where it has no help, that of the row helps.
std::optional<MarkupMistake> findMistake(std::int32_t code, std::string_view document,
                                         std::size_t offset, bool isInElement) {
  switch (code) {
    case XML_ERROR_INVALID_TOKEN:
      return mistakeInToken(document, offset, isInElement);
    case XML_ERROR_UNCLOSED_TOKEN:
      return mistakeInUnclosedToken(document, offset);
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
      return mistakeInUnclosedCdata(document, offset);
    case XML_ERROR_UNDEFINED_ENTITY:
      return mistakeInUndefinedEntity(document, offset);
    case XML_ERROR_RECURSIVE_ENTITY_REF:
      return mistakeInRecursiveEntity(document, offset);
    case XML_ERROR_UNBOUND_PREFIX:
      return mistakeInPrefix(document, offset);
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
      return mistakeInSecondAttribute(document, offset);
    case XML_ERROR_SYNTAX: {
      auto found = mistakeInProlog(document, offset);
      return found ? found : textOutside(offset);
    }
    case XML_ERROR_NO_ELEMENTS: {
      if (isInElement) return {};
      auto found = mistakeInProlog(document, document.size());
      return found ? found
                   : MarkupMistake{"the document has no elements", {helpForEmptyDocument}, offset};
    }
    default:
      return {};
  }
}

}  // namespace

XmlError describeXmlError(std::int32_t code, std::string_view document, std::size_t offset,
                          bool isInElement) {
  if (isBlank(document)) return {{"the document is empty", {helpForEmptyDocument}, offset}, false};
  const auto* format = std::ranges::find_if(
      otherFormats, [&](const auto& other) { return document.starts_with(other.beginning); });
  const bool isPlot = format == std::end(otherFormats);
  const auto* known = std::ranges::find(rows, code, &Row::code);
  const Row& row = known == std::end(rows) ? otherError : *known;
  if (isPlot) {
    if (auto found = findMistake(code, document, offset, isInElement)) {
      if (found->help.empty()) found->help = {row.help};
      return {std::move(*found), false};
    }
  }
  return {{row.reason, {isPlot ? row.help : format->help}, offset},
          isInElement && row.concernsOpenElement};
}

}  // namespace vantry::check
