#include "vantry/check/markup_mistakes.h"

#include <algorithm>
#include <array>

#include "vantry/base/hexadecimal.h"
#include "vantry/check/characters.h"
#include "vantry/check/markup.h"
#include "vantry/check/prolog_mistakes.h"
#include "vantry/check/tag_mistakes.h"
#include "vantry/check/utf8_text.h"
#include "vantry/check/values.h"

namespace vantry::check {

namespace {

using Mistake = std::optional<MarkupMistake>;

// ---- Bytes ----

/// A byte of a document that is to be in UTF-8, and is none of it.
MarkupMistake badUtf8(unsigned char byte, std::size_t offset) {
  // Latin-1 has no letters below that.
  const std::string meant = byte < 0xA0 ? "" : utf8Of(byte);
  const std::string reason = "the byte 0x" + base::hexadecimal(byte) + " is no UTF-8";
  if (meant.empty()) {
    return {reason,
            {"the file is perhaps in Windows-1252, or no text",
             "convert it by iconv -f WINDOWS-1252 -t UTF-8"},
            offset};
  }
  return {reason,
          {"the file is perhaps in Latin-1, where this is " + meant,
           "convert it by iconv -f ISO-8859-1 -t UTF-8",
           "or begin it with <?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"},
          offset};
}

Mistake badByte(std::string_view document, std::size_t offset) {
  const auto byte = static_cast<unsigned char>(document[offset]);
  if (byte == 0) {
    return {{"a NUL byte cannot be here",
             {"this is perhaps no text, or one in UTF-16 whose first bytes are missing",
              "a text in UTF-16 is converted by iconv -f UTF-16LE -t UTF-8"},
             offset}};
  }
  if (byte < ' ' && !isBlank(document[offset])) {
    return {{"the control character 0x" + base::hexadecimal(byte) + " cannot be here",
             {"leave it out; of these, XML has the tab and the ends of lines alone"},
             offset}};
  }
  if (byte < 0x80) return {};
  const std::string_view rest = document.substr(offset);
  if (isSameEncoding(namedEncoding(document), "US-ASCII")) {
    return {{"this character is not in US-ASCII, the encoding that the document names",
             {"name the one that it is in, such as UTF-8"},
             offset}};
  }
  constexpr std::array<std::string_view, 3> others = {"\xEF\xBF\xBD", "\xEF\xBF\xBE",
                                                      "\xEF\xBF\xBF"};
  const bool isOther = std::ranges::any_of(others, [=](auto c) { return rest.starts_with(c); });
  if (isOther) {
    return {{"this is no character of XML", {"leave it out; the file is perhaps damaged"}, offset}};
  }
  if (sizeOfCharacter(rest) > 0) return {};
  return badUtf8(byte, offset);
}

// ---- Text and comments ----

Mistake hyphensInComment(std::string_view document, std::size_t offset) {
  const std::size_t begin = document.rfind("<!--", offset);
  if (begin == document.npos) return {};
  const std::size_t end = document.find("-->", begin + 4);
  const bool isClosed = end != document.npos && end + 3 <= offset;
  const std::size_t hyphens = document.find("--", begin + 4);
  if (isClosed || hyphens > offset) return {};
  return {{"a comment cannot have two hyphens in it", {"it ends with -->"}, hyphens}};
}

/// An entity that can be here, but not what it stands for.
Mistake mistakeInEntity(std::string_view document, std::size_t offset) {
  if (document[offset] != '&') return {};
  const std::size_t end = document.find(';', offset);
  if (end == document.npos || end == offset + 1) return {};
  const std::string_view name = document.substr(offset + 1, end - offset - 1);
  if (!std::ranges::all_of(name, isNameCharacter)) return {};
  return {{"what this entity stands for is not well-formed",
           {"an entity holds text, and elements with both of their tags"},
           offset}};
}

Mistake bareAmpersand(std::string_view document, std::size_t offset) {
  const std::size_t begin = document.rfind('&', offset);
  if (begin == document.npos) return {};
  const std::string_view between = document.substr(begin, offset - begin);
  if (between.find_first_of("; \t\r\n<>") != between.npos) return {};
  return {{"this & does not begin an entity",
           {"write &amp; for the character &; an entity is as in &lt;"},
           begin}};
}

Mistake bareAngle(std::string_view document, std::size_t offset) {
  if (offset == 0 || document[offset - 1] != '<') return {};
  return {{"this < does not begin a tag",
           {"write &lt; for the character <; the name of an element follows it at once"},
           offset - 1}};
}

Mistake endOfCdata(std::string_view document, std::size_t offset) {
  const std::size_t begin = document.rfind("]]>", offset);
  if (begin == document.npos || offset - begin > 2) return {};
  return {{"]]> cannot be in a text", {"write ]]&gt; instead"}, begin}};
}

// ---- Declarations, comments and instructions ----

/// What begins with <! or <? and is nothing that XML has.
Mistake noMarkup(std::string_view document, std::size_t offset) {
  const auto tag = openTagAt(document, offset);
  if (!tag) return {};
  const std::string_view markup = document.substr(tag->begin);
  if (markup.starts_with("<!-")) {
    return {{"this does not begin a comment", {"a comment begins with <!--"}, tag->begin}};
  }
  if (markup.starts_with("<![")) {
    return {{"this does not begin a CDATA section",
             {"it begins with <![CDATA[, in capitals, and is in an element"},
             tag->begin}};
  }
  if (markup.starts_with("<?")) {
    return {{"this is no processing instruction",
             {"the name follows <? at once; <?xml is in small letters"},
             tag->begin}};
  }
  return {};
}

/// Where declarations may be, they have been looked at before.
Mistake declarationInElement(std::string_view document, std::size_t offset) {
  const auto tag = openTagAt(document, offset);
  if (!tag || !document.substr(tag->begin).starts_with("<!")) return {};
  return {{"a declaration cannot be in an element",
           {"<!DOCTYPE ...> comes before the outermost element; a comment begins with <!--"},
           tag->begin}};
}

// ---- Outside of the outermost element ----

Mistake mistakeOutside(std::string_view document, std::size_t offset) {
  if (offset > 0 && document.substr(offset - 1).starts_with("</")) {
    return {{"this end tag belongs to no element",
             {"leave it out, or write the tag that begins the element"},
             offset - 1}};
  }
  if (openTagAt(document, offset) || mistakeInProlog(document, offset)) return {};
  std::size_t begin = offset;  // the parser has perhaps taken some of the text for a name
  while (begin > 0 && !isBlank(document[begin - 1]) && document[begin - 1] != '>') --begin;
  return textOutside(begin);
}

/// The first that finds a mistake is right.
using Find = Mistake (*)(std::string_view document, std::size_t offset);
constexpr std::array<Find, 9> inElements = {
    badByte,   hyphensInComment, noMarkup,     mistakeInEntity, bareAmpersand, declarationInElement,
    bareAngle, endOfCdata,       mistakeInTag,
};
constexpr std::array<Find, 9> outsideOfElements = {
    badByte,       hyphensInComment, noMarkup,  mistakeOutside, mistakeInEntity,
    bareAmpersand, mistakeInProlog,  bareAngle, mistakeInTag,
};

/// How what does not end begins, and how it ends.
// clang-format off
constexpr struct {
  std::string_view beginning;
  const char* reason;
  const char* help;
} unclosed[] = {
    {"<!--", "a comment is not closed",                     "it ends with -->"},
    {"<![",  "a <![CDATA[ section is not closed",           "it ends with ]]>"},
    {"<!",   "the declaration that begins here has no >",   "the document is perhaps cut off"},
    {"<?",   "a processing instruction is not closed",      "it ends with ?>"},
    {"</",   "the end tag that begins here has no >",       "the document is perhaps cut off"},
    {"<",    "the tag that begins here has no >",           "the document is perhaps cut off"},
    {"&",    "the entity that begins here has no ;",        "write &amp; for the character &"},
    {"%",    "the entity that begins here has no ;",        "the document is perhaps cut off"},
    {"\"",   "the text that begins here has no closing quote", "it ends with the quote that it begins with"},
    {"'",    "the text that begins here has no closing quote", "it ends with the quote that it begins with"},
};
// clang-format on

}  // namespace

MarkupMistake textOutside(std::size_t offset) {
  return {"there is text outside of the outermost element",
          {"a document begins with a tag such as <Canvas>, and ends with its end tag"},
          offset};
}

Mistake mistakeInToken(std::string_view document, std::size_t offset, bool isInElement) {
  if (offset >= document.size()) return {};
  for (const Find find : isInElement ? inElements : outsideOfElements) {
    if (Mistake found = find(document, offset)) return found;
  }
  return {};
}

Mistake mistakeInUnclosedToken(std::string_view document, std::size_t offset) {
  const std::string_view token = document.substr(std::min(offset, document.size()));
  const bool isTag = token.starts_with('<') && !token.starts_with("<!") && !token.starts_with("<?");
  const auto tag = isTag ? tagFrom(document, offset, document.size()) : std::nullopt;
  if (tag && tag->isInValue) return missingQuote(tag->lastQuote);
  if (!token.empty()) {
    if (Mistake found = badByte(document, offset)) return found;  // half a byte order mark
    if (Mistake found = mistakeInEntity(document, offset)) return found;
  }
  const auto* row = std::ranges::find_if(
      unclosed, [=](const auto& kind) { return token.starts_with(kind.beginning); });
  if (row == std::end(unclosed)) return mistakeInProlog(document, document.size());
  return {{row->reason, {row->help}, offset}};
}

Mistake mistakeInUnclosedCdata(std::string_view document, std::size_t offset) {
  auto markup = nextMarkup(document, 0);
  while (markup && (markup->isClosed || !markup->text.starts_with("<![CDATA["))) {
    markup = nextMarkup(document, markup->end());
  }
  return mistakeInUnclosedToken(document, markup ? markup->begin : offset);
}

}  // namespace vantry::check
