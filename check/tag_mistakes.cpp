#include "vantry/check/tag_mistakes.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <vector>

#include "vantry/check/characters.h"
#include "vantry/check/markup.h"
#include "vantry/check/values.h"

namespace vantry::check {

std::optional<TagPart> tagFrom(std::string_view document, std::size_t begin, std::size_t end) {
  TagPart tag{begin, document.npos, false};
  for (std::size_t at = begin; at < end; ++at) {
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

namespace {

using Mistake = std::optional<MarkupMistake>;

/// The name that ends before a place; empty where there is none.
std::string_view nameBefore(std::string_view text, std::size_t end) {
  std::size_t begin = end;
  while (begin > 0 && isNameCharacter(text[begin - 1])) --begin;
  return text.substr(begin, end - begin);
}

/// The word that begins at a place, without the end of the tag that it may be before.
std::string_view wordAt(std::string_view text, std::size_t begin) {
  const std::size_t end = std::min(text.find_first_of(" \t\r\n<>\"'", begin), text.size());
  std::string_view word = text.substr(begin, end - begin);
  if (word.ends_with('/') && text.substr(end).starts_with('>')) word.remove_suffix(1);
  return word;
}

/// The place behind the last character before `at` that is no blank.
std::size_t behindWordBefore(std::string_view text, std::size_t at) {
  while (at > 0 && isBlank(text[at - 1])) --at;
  return at;
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

MarkupMistake attributeWithoutValue(std::string_view name, std::size_t place) {
  return {"the attribute " + shortened(name) + " has no value",
          {"write " + shortened(name) + "=\"...\""},
          place};
}

MarkupMistake valueWithoutQuotes(std::string_view document, std::size_t offset,
                                 std::string_view name) {
  const std::string_view value = wordAt(document, offset);
  if (value.empty()) return attributeWithoutValue(name, offset);
  const std::string shown = value == "=" ? "..." : shortened(value);
  return {"a value is not between quotes",
          {beginsWithCurlyQuote(value) ? "quotes are straight: \" or '"
                                       : "write " + shortened(name) + "=\"" + shown + '"'},
          offset};
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
  return attributeWithoutValue(name, end - name.size());
}

/// What is wrong directly behind a value.
MarkupMistake mistakeBehindValue(std::string_view document, std::size_t offset) {
  const std::string help = "a quote in a value is &quot; or &apos;";
  if (beginsName(document[offset])) {
    return {
        "a blank is missing before this", {"attributes have blanks between them; " + help}, offset};
  }
  return {"attributes have only blanks between them", {"leave this out; " + help}, offset};
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
  if (isBehindQuote) return mistakeBehindValue(document, offset);
  return mistakeBehindName(document, offset, tag);
}

}  // namespace

Mistake mistakeInTag(std::string_view document, std::size_t offset) {
  const auto tag = openTagAt(document, offset);
  if (!tag) return {};
  if (!tag->isInValue) return mistakeBetweenValues(document, offset, *tag);
  if (document[offset] != '<') return {};
  if (!hasClosingQuote(document, tag->lastQuote)) return missingQuote(tag->lastQuote);
  return {{"a value cannot have < in it", {"write &lt; for the character <"}, offset}};
}

Mistake mistakeInSecondAttribute(std::string_view document, std::size_t offset) {
  const std::string_view rest = document.substr(std::min(offset, document.size()));
  if (rest.starts_with('<')) {  // the parser knows no place within the tag
    return {{"two prefixes mean the same namespace, so that this tag has an attribute twice",
             {"leave one of the two attributes out"},
             offset}};
  }
  const std::string_view name = nameAt(rest, 0);
  if (name.empty()) return {};
  return {{"this tag has the attribute " + shortened(name) + " twice",
           {"leave one of them out"},
           offset}};
}

Mistake mistakeInPrefix(std::string_view document, std::size_t tag) {
  if (!document.substr(tag).starts_with('<')) return {};  // but what an entity stands for
  constexpr std::string_view declaration = "xmlns:";
  std::unordered_set<std::string_view> declared = {"", "xml", "xmlns"};
  std::vector<std::string_view> names;  // at the end, those in the tag
  std::optional<Markup> markup;
  for (std::size_t at = 0; at <= tag; at = markup->end()) {
    markup = nextMarkup(document, at);
    names = namesIn(*markup);
    for (const std::string_view name : names) {
      if (name.starts_with(declaration)) declared.insert(name.substr(declaration.size()));
    }
  }
  for (const std::string_view name : names) {
    const std::size_t size = name.find(':');
    if (size == name.npos || declared.contains(name.substr(0, size))) continue;
    const std::string prefix = shortened(name.substr(0, size));
    return {{"the prefix " + prefix + " belongs to no namespace",
             {"leave it out, or declare it, as in xmlns:" + prefix + "=\"...\""},
             static_cast<std::size_t>(name.data() - document.data())}};
  }
  return {};
}

}  // namespace vantry::check
