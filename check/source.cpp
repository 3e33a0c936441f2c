#include "vantry/check/source.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "vantry/check/characters.h"
#include "vantry/check/markup.h"

namespace vantry::check {

namespace {

/// Within so many bytes, characters are counted one by one.
constexpr std::size_t blockSize = 1024;

/// Whether a line ends with this character: one of "\n", "\r\n" and "\r" ends it.
bool endsLine(std::string_view text, std::size_t at) {
  if (text[at] != '\r') return text[at] == '\n';
  return at + 1 == text.size() || text[at + 1] != '\n';
}

std::string_view localPart(std::string_view name) { return name.substr(name.rfind(':') + 1); }

}  // namespace

int countCharacters(std::string_view text) {
  return static_cast<int>(std::ranges::count_if(text, beginsCharacter));
}

const Source::Index& Source::index() const {
  if (index_) return *index_;
  Index index;
  std::size_t characters = 0;
  for (std::size_t begin = 0; begin <= text_.size(); begin += blockSize) {
    index.characters.push_back(characters);
    characters += static_cast<std::size_t>(countCharacters(text_.substr(begin, blockSize)));
  }
  index.lines.push_back(0);
  for (std::size_t at = 0; at < text_.size(); ++at) {
    if (endsLine(text_, at)) index.lines.push_back(at + 1);
  }
  return index_.emplace(std::move(index));
}

std::size_t Source::charactersBefore(std::size_t offset) const {
  const std::size_t block = offset / blockSize;
  const std::size_t begin = block * blockSize;
  const int further = countCharacters(text_.substr(begin, offset - begin));
  return index().characters[block] + static_cast<std::size_t>(further);
}

Place Source::placeOf(Span span) const {
  const std::size_t begin = std::min(span.begin, text_.size());
  const auto next = std::ranges::upper_bound(index().lines, begin);
  const std::size_t before = charactersBefore(begin) - charactersBefore(*std::prev(next));
  const std::string_view part = text_.substr(begin, span.size);
  const int characters = countCharacters(part.substr(0, part.find_first_of("\r\n")));
  const int column = static_cast<int>(before) + 1;
  return {static_cast<int>(next - index().lines.begin()), column, column + characters, begin};
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

std::string Source::charactersOf(Span part) const {
  constexpr std::string_view sectionBegin = "<![CDATA[";
  constexpr std::string_view sectionEnd = "]]>";
  const std::string_view text = textOf(part);
  std::string characters(text);
  const auto blankOut = [&](std::size_t begin, std::size_t size) {
    characters.replace(begin, size, size, ' ');
  };
  for (auto markup = nextMarkup(text, 0); markup; markup = nextMarkup(text, markup->end())) {
    if (!markup->text.starts_with(sectionBegin)) {
      blankOut(markup->begin, markup->text.size());
      continue;
    }
    blankOut(markup->begin, sectionBegin.size());
    if (markup->isClosed) blankOut(markup->end() - sectionEnd.size(), sectionEnd.size());
  }
  return characters;
}

std::size_t Source::behindTag(std::size_t tag) const {
  return nameIn(tag).size == 0 ? tag : nextMarkup(text_, tag)->end();
}

Span Source::contentOf(std::size_t tag, std::size_t end) const {
  const std::size_t begin = behindTag(tag);
  const Span all{begin, std::max(begin, end) - begin};
  const std::string characters = charactersOf(all);
  const std::size_t first = characters.find_first_not_of(blanks);
  if (first == characters.npos) return all;
  return {begin + first, characters.find_last_not_of(blanks) + 1 - first};
}

Span Source::referenceAt(std::size_t place) const {
  if (place >= text_.size() || text_[place] != '&') return {place, 0};
  const std::size_t end = text_.find(';', place);
  return {place, end == text_.npos ? 0 : end + 1 - place};
}

std::optional<Span> Source::findWord(Span part, std::string_view word) const {
  constexpr std::string_view around = " \t\r\n<>[]\"'";
  const auto isEdge = [&](std::size_t at) {
    return at >= text_.size() || around.find(text_[at]) != around.npos;
  };
  const std::string searched = charactersOf(part);
  for (std::size_t at = searched.find(word); at != searched.npos;
       at = searched.find(word, at + 1)) {
    const std::size_t begin = part.begin + at;
    const bool isWhole = (begin == 0 || isEdge(begin - 1)) && isEdge(begin + word.size());
    if (isWhole) return Span{begin, word.size()};
  }
  return std::nullopt;
}

}  // namespace vantry::check
