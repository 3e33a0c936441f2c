#include "vantry/check/markup_mistakes.h"

#include <algorithm>
#include <array>

#include "vantry/check/values.h"
#include "vantry/plot/values/format_limits.h"

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

bool isUtf16(std::string_view document) {
  using namespace std::string_view_literals;
  constexpr std::array beginnings = {"\xFE\xFF"sv, "\xFF\xFE"sv, "<\0"sv, "\0<"sv};
  return std::ranges::any_of(beginnings, [=](auto bytes) { return document.starts_with(bytes); });
}

/// Whether the document names an encoding, which is not UTF-8.
bool isInOtherEncoding(std::string_view document) {
  if (!document.starts_with("<?xml")) return false;
  const std::string_view declaration = document.substr(0, document.find("?>"));
  const std::size_t encoding = declaration.find("encoding");
  if (encoding == declaration.npos) return false;
  const std::string_view name = declaration.substr(encoding);
  return name.find("UTF-8") == name.npos && name.find("utf-8") == name.npos;
}

/// Whether the character that begins with the first byte is one of UTF-8.
bool beginsWithUtf8(std::string_view text) {
  for (std::size_t size = 1; size <= std::min<std::size_t>(text.size(), 4); ++size) {
    if (plot::isXml(text.substr(0, size))) return true;
  }
  return false;
}

std::string hexadecimal(unsigned char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  return {'0', 'x', digits[byte / 16], digits[byte % 16]};
}

/// The character of Latin-1 in UTF-8, if a byte is a printable one.
std::string latin1(unsigned char byte) {
  if (byte < 0xA0) return {};
  return {static_cast<char>(0xC0 | (byte >> 6)), static_cast<char>(0x80 | (byte & 0x3F))};
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
    return {{"the control character " + hexadecimal(byte) + " cannot be here",
             {"of these, XML has the tab and the ends of lines alone"},
             offset}};
  }
  if (byte < 0x80 || isInOtherEncoding(document) || beginsWithUtf8(document.substr(offset))) {
    return {};
  }
  const std::string meant = latin1(byte);
  return {
      {"the byte " + hexadecimal(byte) + " is no UTF-8",
       {meant.empty() ? "the file is perhaps in Windows-1252, or no text"
                      : "the file is perhaps in Latin-1, where this is " + meant,
        "convert it by iconv -f " + std::string(meant.empty() ? "WINDOWS-1252" : "ISO-8859-1") +
            " -t UTF-8",
        meant.empty() ? "" : "or begin it with <?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"},
       offset}};
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

/// The tag that is open at a place, if there is one.
std::optional<TagPart> openTagAt(std::string_view document, std::size_t offset) {
  const std::size_t begin = offset == 0 ? document.npos : document.rfind('<', offset - 1);
  if (begin == document.npos) return {};
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

MarkupMistake missingQuote(std::size_t quote) {
  return {"the value that begins here has no closing quote",
          {"a value ends with the quote that it begins with; within it write &lt; for <"},
          quote};
}

/// Whether what begins with < is no tag.
bool isDeclaration(std::string_view document, std::size_t begin) {
  return document[begin + 1] == '!' || document[begin + 1] == '?';
}

bool isEndTag(std::string_view document, std::size_t begin) {
  return document.substr(begin).starts_with("</");
}

/// Another tag begins where one has not ended.
Mistake missingEndOfTag(std::string_view document, std::size_t begin) {
  if (isDeclaration(document, begin)) return {};
  return {{"the tag that begins here has no >",
           {isEndTag(document, begin) ? "an end tag holds a name alone" : ""},
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
Mistake valueWithoutEqualsSign(std::string_view document, std::size_t offset,
                               std::string_view name) {
  if (name.ends_with(':')) name.remove_suffix(1);
  const std::string_view behindQuote = document.substr(offset + 1);
  const std::string_view value = behindQuote.substr(0, behindQuote.find(document[offset]));
  return {{"= comes between the name and the value of an attribute",
           {"write " + shortened(name) + "=\"" + shortened(value) + '"'},
           offset}};
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
  if (last == '=') {
    const std::string_view name = nameBefore(document, behindWordBefore(document, end - 1));
    return valueWithoutQuotes(document, offset, name);
  }
  if (isBehindQuote) {
    return {{"a blank is missing before this", {"attributes have blanks between them"}, offset}};
  }
  const std::string name(nameBefore(document, end));
  if (name.empty() || end - name.size() <= tag.begin + 1) {
    if (end == offset || isDeclaration(document, tag.begin)) return {};
    return {{"no attribute has a name that begins with this",
             {"perhaps the tag has no > before it"},
             offset}};
  }
  if (isQuote(document[offset])) return valueWithoutEqualsSign(document, offset, name);
  return {{"the attribute " + shortened(name) + " has no value",
           {"write " + shortened(name) + "=\"...\""},
           end - name.size()}};
}

Mistake mistakeInTag(std::string_view document, std::size_t offset) {
  const auto tag = openTagAt(document, offset);
  if (!tag) return {};
  if (!tag->isInValue) return mistakeBetweenValues(document, offset, *tag);
  return document[offset] == '<' ? Mistake(missingQuote(tag->lastQuote)) : Mistake();
}

}  // namespace

Mistake mistakeInToken(std::string_view document, std::size_t offset) {
  if (offset >= document.size() || isUtf16(document)) return {};
  for (const auto find :
       {badByte, hyphensInComment, bareAmpersand, bareAngle, endOfCdata, mistakeInTag}) {
    if (Mistake found = find(document, offset)) return found;
  }
  return {};
}

Mistake mistakeInUnclosedToken(std::string_view document, std::size_t offset) {
  if (isUtf16(document)) return {};
  if (document.substr(std::min(offset, document.size())).starts_with("<!--")) {
    return {{"a comment is not closed", {"it ends with -->"}, offset}};
  }
  const auto tag = openTagAt(document, document.size());
  return tag && tag->isInValue ? Mistake(missingQuote(tag->lastQuote)) : Mistake();
}

Mistake mistakeInSecondAttribute(std::string_view document, std::size_t offset) {
  const std::string_view rest = document.substr(std::min(offset, document.size()));
  const std::string name(rest.substr(0, rest.find_first_of("= \t\r\n")));
  return {{"this tag has the attribute " + shortened(name) + " twice",
           {"leave one of them out"},
           offset}};
}

}  // namespace vantry::check
