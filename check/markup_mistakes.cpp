#include "vantry/check/markup_mistakes.h"

#include <algorithm>
#include <array>

#include "vantry/base/hexadecimal.h"
#include "vantry/check/prolog_mistakes.h"
#include "vantry/check/utf8_text.h"
#include "vantry/check/values.h"

namespace vantry::check {

namespace {

using Mistake = std::optional<MarkupMistake>;

constexpr std::string_view blanks = " \t\r\n";

bool isBlank(char c) { return blanks.find(c) != blanks.npos; }
bool isQuote(char c) { return c == '"' || c == '\''; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isNameCharacter(char c) {
  return isLetter(c) || isDigit(c) || c == '_' || c == ':' || c == '-' || c == '.' || (c & 0x80);
}

/// The name that ends before a place; empty where there is none.
std::string_view nameBefore(std::string_view text, std::size_t end) {
  std::size_t begin = end;
  while (begin > 0 && isNameCharacter(text[begin - 1])) --begin;
  return text.substr(begin, end - begin);
}

std::string_view wordAt(std::string_view text, std::size_t begin) {
  return text.substr(begin, text.find_first_of(" \t\r\n<>\"'", begin) - begin);
}

/// The place behind the last character before `at` that is no blank.
std::size_t behindWordBefore(std::string_view text, std::size_t at) {
  while (at > 0 && isBlank(text[at - 1])) --at;
  return at;
}

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
             {"of these, XML has the tab and the ends of lines alone"},
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

// ---- Tags ----

/// The part of a tag before a place.
struct TagPart {
  std::size_t begin;
  std::size_t lastQuote;  ///< the one that opened a value; none if it is no place
  bool isInValue;
};

/// The tag that begins at a place, if it has no end before another.
std::optional<TagPart> tagFrom(std::string_view document, std::size_t begin, std::size_t offset) {
  TagPart tag{begin, document.npos, false};
  for (std::size_t at = begin; at < offset; ++at) {
    const char c = document[at];
    if (!tag.isInValue && c == '>') return {};
    if (!tag.isInValue && isQuote(c)) {
      tag.isInValue = true;
      tag.lastQuote = at;
    } else if (tag.isInValue && c == document[tag.lastQuote]) {
      tag.isInValue = false;
    }
  }
  return tag;
}

/// The tag that is open at a place, if there is one.
std::optional<TagPart> openTagAt(std::string_view document, std::size_t offset) {
  const std::size_t begin = offset == 0 ? document.npos : document.rfind('<', offset - 1);
  if (begin == document.npos) return {};
  return tagFrom(document, begin, offset);
}

MarkupMistake missingQuote(std::size_t quote) {
  return {"the value that begins here has no closing quote",
          {"a value ends with the quote that it begins with; within it write &lt; for <"},
          quote};
}

/// Whether a value that has < in it ends as a value does, and not where the next one was to begin.
bool hasClosingQuote(std::string_view document, std::size_t quote) {
  const std::size_t close = document.find(document[quote], quote + 1);
  if (close == document.npos || close + 1 == document.size()) return false;
  const char next = document[close + 1];
  const bool endsWithEqualsSign = document[behindWordBefore(document, close) - 1] == '=';
  return !endsWithEqualsSign && (isBlank(next) || next == '/' || next == '>');
}

bool isEndTag(std::string_view document, std::size_t begin) {
  return document.substr(begin).starts_with("</");
}

/// Another tag begins where one has not ended.
Mistake missingEndOfTag(std::string_view document, std::size_t begin) {
  return {{"the tag that begins here has no >",
           {isEndTag(document, begin) ? "an end tag holds a name alone"
                                      : "a tag ends with >, or with /> if its element is empty"},
           begin}};
}

/// Whether a value begins with a quotation mark of prose, which is none in XML.
bool beginsWithCurlyQuote(std::string_view value) {
  constexpr std::array<std::string_view, 7> quotes = {"“", "”", "„", "‘", "’", "«", "»"};
  return std::ranges::any_of(quotes, [=](auto quote) { return value.starts_with(quote); });
}

Mistake valueWithoutQuotes(std::string_view document, std::size_t offset, std::string_view name) {
  const std::string value(wordAt(document, offset));
  const bool isCurly = beginsWithCurlyQuote(value);
  return {{"a value is not between quotes",
           {isCurly ? "quotes are straight: \" or '"
                    : "write " + std::string(name) + "=\"" + value + '"'},
           offset}};
}

/// A value follows its name at once, or behind another character than =.
MarkupMistake valueWithoutEqualsSign(std::string_view document, std::size_t offset,
                                     std::string_view name) {
  if (name.ends_with(':')) name.remove_suffix(1);
  const std::string_view behindQuote = document.substr(offset + 1);
  const std::string_view value = behindQuote.substr(0, behindQuote.find(document[offset]));
  return {"= comes between the name and the value of an attribute",
          {"write " + shortened(name) + "=\"" + shortened(value) + '"'},
          offset};
}

/// What is wrong behind a name in a tag, which is that of its element or of an attribute.
MarkupMistake mistakeBehindName(std::string_view document, std::size_t offset, const TagPart& tag) {
  const std::size_t end = behindWordBefore(document, offset);
  const std::string name(nameBefore(document, end));
  const bool isElement = name.empty() || end - name.size() <= tag.begin + 1;
  if (isElement && end < offset) {
    return {"no attribute has a name that begins with this",
            {"perhaps the tag has no > before it"},
            offset};
  }
  const char bad = document[offset];
  if (!isElement && isQuote(bad)) return valueWithoutEqualsSign(document, offset, name);
  if (isElement || (end == offset && bad != '/' && bad != '>')) {
    return {
        "this cannot be in a name",
        {"names have letters, digits and _ - . alone; perhaps a blank or > is missing before it"},
        offset};
  }
  return {"the attribute " + shortened(name) + " has no value",
          {"write " + shortened(name) + "=\"...\""},
          end - name.size()};
}

/// What is wrong between the values of a tag.
Mistake mistakeBetweenValues(std::string_view document, std::size_t offset, const TagPart& tag) {
  const std::size_t end = behindWordBefore(document, offset);
  const char last = document[end - 1];
  const bool isBehindQuote = isQuote(last) && end == offset;
  if (isBehindQuote && document[behindWordBefore(document, end - 1) - 1] == '=') {
    return missingQuote(tag.lastQuote);
  }
  if (document[offset] == '<') return missingEndOfTag(document, tag.begin);
  if (isEndTag(document, tag.begin)) {
    return {{"an end tag holds a name alone",
             {"it is written as in </Canvas>; attributes are in the tag that begins an element"},
             offset}};
  }
  if (document[offset - 1] == '/') {
    return {{"/ does not end this tag", {"write /> without anything between the two"}, offset - 1}};
  }
  if (last == '=') {
    const std::string_view name = nameBefore(document, behindWordBefore(document, end - 1));
    return valueWithoutQuotes(document, offset, name);
  }
  if (isBehindQuote) {
    return {{"a blank is missing before this",
             {"attributes have blanks between them; a quote in a value is &quot; or &apos;"},
             offset}};
  }
  return mistakeBehindName(document, offset, tag);
}

Mistake mistakeInTag(std::string_view document, std::size_t offset) {
  const auto tag = openTagAt(document, offset);
  if (!tag) return {};
  if (!tag->isInValue) return mistakeBetweenValues(document, offset, *tag);
  if (document[offset] != '<') return {};
  if (!hasClosingQuote(document, tag->lastQuote)) return missingQuote(tag->lastQuote);
  return {{"a value cannot have < in it", {"write &lt; for the character <"}, offset}};
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
  const bool isInMarkup = openTagAt(document, offset) || mistakeInProlog(document, offset);
  return isInMarkup ? Mistake() : Mistake(textOutside(offset));
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
    if (Mistake found = mistakeInEntity(document, offset)) return found;
  }
  const auto* row = std::ranges::find_if(
      unclosed, [=](const auto& kind) { return token.starts_with(kind.beginning); });
  if (row == std::end(unclosed)) return mistakeInProlog(document, document.size());
  return {{row->reason, {row->help}, offset}};
}

Mistake mistakeInUnclosedCdata(std::string_view document) {
  const std::size_t closed = document.rfind("]]>");
  const std::size_t from = closed == document.npos ? 0 : closed;
  return mistakeInUnclosedToken(document, document.find("<![CDATA[", from));
}

Mistake mistakeInSecondAttribute(std::string_view document, std::size_t offset) {
  const std::string_view rest = document.substr(std::min(offset, document.size()));
  const std::string name(rest.substr(0, rest.find_first_of("= \t\r\n")));
  return {{"this tag has the attribute " + shortened(name) + " twice",
           {"leave one of them out"},
           offset}};
}

}  // namespace vantry::check
