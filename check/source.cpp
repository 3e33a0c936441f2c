#include "vantry/check/source.h"

#include <algorithm>

namespace vantry::check {

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string_view localPart(std::string_view name) { return name.substr(name.rfind(':') + 1); }

}  // namespace

int countCharacters(std::string_view text) {
  const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
  return static_cast<int>(std::ranges::count_if(text, begins));
}

void Source::countUpTo(std::size_t offset) const {
  if (offset < counted_.offset) return countBackTo(offset);
  const std::string_view between = text_.substr(counted_.offset, offset - counted_.offset);
  const std::size_t lineBreak = between.rfind('\n');
  if (lineBreak != between.npos) {
    counted_.line += static_cast<int>(std::ranges::count(between, '\n'));
    counted_.lineBegin = counted_.offset + lineBreak + 1;
    counted_.column = 1;
  }
  const std::size_t begin = std::max(counted_.offset, counted_.lineBegin);
  counted_.column += countCharacters(text_.substr(begin, offset - begin));
  counted_.offset = offset;
}

void Source::countBackTo(std::size_t offset) const {
  const std::string_view between = text_.substr(offset, counted_.offset - offset);
  const auto lineBreaks = static_cast<int>(std::ranges::count(between, '\n'));
  if (lineBreaks > 0) {
    counted_.line -= lineBreaks;
    const std::string_view before = text_.substr(0, offset);
    counted_.lineBegin = before.rfind('\n') + 1;  // 0 in the first line
    counted_.column = 1 + countCharacters(before.substr(counted_.lineBegin));
  } else {
    counted_.column -= countCharacters(between);
  }
  counted_.offset = offset;
}

Place Source::placeOf(Span span) const {
  const std::size_t begin = std::min(span.begin, text_.size());
  countUpTo(begin);
  const std::string_view part = text_.substr(begin, span.size);
  const std::string_view line = part.substr(0, part.find_first_of("\r\n"));
  return {counted_.line, counted_.column, counted_.column + countCharacters(line), begin};
}

Span Source::nameIn(std::size_t tag) const {
  if (tag >= text_.size() || text_[tag] != '<') return {tag, 0};
  std::size_t begin = tag + 1;
  if (begin < text_.size() && text_[begin] == '/') ++begin;
  const std::size_t end = std::min(text_.find_first_of(" \t\r\n/>", begin), text_.size());
  return {begin, end - begin};
}

void Source::readAttributes(std::size_t tag) const {
  tag_ = {tag, {}};
  const Span element = nameIn(tag);
  std::size_t at = element.begin + element.size;
  while (element.size > 0) {
    const std::size_t begin = text_.find_first_not_of(blanks, at);
    const std::size_t end = text_.find_first_of("=>", at);
    if (begin == text_.npos || end == text_.npos || text_[end] == '>') return;
    const std::size_t open = text_.find_first_not_of(blanks, end + 1);
    if (open == text_.npos || (text_[open] != '"' && text_[open] != '\'')) return;
    const std::size_t close = text_.find(text_[open], open + 1);
    if (close == text_.npos) return;
    const std::string_view name = text_.substr(begin, end - begin);
    const std::size_t size = name.find_last_not_of(blanks) + 1;
    tag_.attributes.try_emplace(localPart(name.substr(0, size)),
                                RawAttribute{{begin, size}, {open + 1, close - open - 1}});
    at = close + 1;
  }
}

const Source::RawAttribute* Source::findAttribute(std::size_t tag, std::string_view name) const {
  if (tag_.begin != tag) readAttributes(tag);
  const auto found = tag_.attributes.find(name);
  return found == tag_.attributes.end() ? nullptr : &found->second;
}

std::optional<Span> Source::valueIn(std::size_t tag, std::string_view attribute) const {
  const RawAttribute* found = findAttribute(tag, attribute);
  return found ? std::optional(found->value) : std::nullopt;
}

std::optional<Span> Source::attributeIn(std::size_t tag, std::string_view attribute) const {
  const RawAttribute* found = findAttribute(tag, attribute);
  return found ? std::optional(found->name) : std::nullopt;
}

Span Source::textBefore(std::size_t tag) const {
  constexpr std::size_t longest = 4096;
  const std::size_t end = std::min(tag, text_.size());
  const std::size_t from = end - std::min(end, longest);
  const std::string_view before = text_.substr(from, end - from);
  const std::size_t markup = before.rfind('>');
  if (markup == before.npos) return {end, 0};
  const std::size_t first = before.find_first_not_of(blanks, markup + 1);
  if (first == before.npos) return {from + markup + 1, end - from - markup - 1};
  return {from + first, before.find_last_not_of(blanks) + 1 - first};
}

std::optional<Span> Source::findWord(Span part, std::string_view word) const {
  constexpr std::string_view around = " \t\r\n<>[]\"'";
  const auto isEdge = [&](std::size_t at) {
    return at >= text_.size() || around.find(text_[at]) != around.npos;
  };
  const std::string_view searched = textOf(part);
  for (std::size_t at = searched.find(word); at != searched.npos;
       at = searched.find(word, at + 1)) {
    const std::size_t begin = part.begin + at;
    const bool isWhole = (begin == 0 || isEdge(begin - 1)) && isEdge(begin + word.size());
    if (isWhole) return Span{begin, word.size()};
  }
  return std::nullopt;
}

}  // namespace vantry::check
