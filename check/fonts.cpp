#include "vantry/check/fonts.h"

#include <algorithm>
#include <vector>

#include "vantry/check/characters.h"
#include "vantry/check/values.h"

namespace vantry::check {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view partNames[] = {"Bold", "Italic", "Left", "Center", "Right"};

bool isPartName(std::string_view word) {
  return std::ranges::find(partNames, word) != std::end(partNames);
}

bool isSize(std::string_view word) { return digits.find(word.front()) != digits.npos; }

/// The words of a text.
std::vector<std::string_view> wordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  for (std::size_t begin = text.find_first_not_of(blanks); begin < text.size();
       begin = text.find_first_not_of(blanks, begin)) {
    words.push_back(text.substr(begin, text.find_first_of(blanks, begin) - begin));
    begin += words.back().size();
  }
  return words;
}

/// What follows the family, which is in quotes or a word.
std::string_view behindFamily(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  const bool isQuoted = text.starts_with('\'');
  const std::size_t end = isQuoted ? text.find('\'', 1) : text.find_first_of(blanks);
  return end == text.npos ? "" : text.substr(end + (isQuoted ? 1 : 0));
}

/// How much of a word that is a size or a colour is looked at.
std::size_t usedOf(std::string_view word) {
  constexpr std::size_t longestColor = 9;
  if (word.starts_with('#')) return std::min(longestColor, word.size());
  return isSize(word) ? std::min(word.find_first_not_of(digits), word.size()) : word.size();
}

/// The name of a part that a word is, but for the case of its letters.
std::string_view partNameLike(std::string_view word) {
  const auto* name = std::ranges::find_if(partNames, [word](std::string_view part) {
    return std::ranges::equal(part, word, {}, lowerCase, lowerCase);
  });
  return name == std::end(partNames) ? "" : *name;
}

}  // namespace

std::string_view unusedPartOfFont(std::string_view text) {
  for (const std::string_view word : wordsOf(behindFamily(text))) {
    if (const std::size_t used = usedOf(word); used < word.size()) return word.substr(used);
  }
  return {};
}

bool isOddFamily(std::string_view family) {
  return isPartName(family) || family.starts_with('#') ||
         family.find_first_of(",\"") != family.npos ||
         family.find_first_not_of(digits) == family.npos;
}

std::string helpForFont(std::string_view text) {
  const std::string write = "write for example ";
  const std::size_t size = std::min(text.find_first_of(digits), text.size());
  for (const std::string_view word : wordsOf(behindFamily(text))) {
    if (isSize(word) || word.starts_with('#') || isPartName(word)) continue;
    const std::string_view part = partNameLike(word);
    if (!part.empty()) return std::string(word) + " is " + std::string(part);
    if (word.data() > text.data() + size) return "a font begins with its family";
    if (size == text.size() || text.find('\'') != text.npos) return {};
    const std::string_view family = text.substr(0, text.find_last_not_of(blanks, size - 1) + 1);
    return write + '\'' + shortened(family) + "' " + shortened(text.substr(size));
  }
  if (const std::string_view unused = unusedPartOfFont(text); !unused.empty()) {
    const auto begin = static_cast<std::size_t>(unused.data() - text.data());
    return write + shortened(std::string(text).erase(begin, unused.size()));
  }
  const bool hasBlankBehind = !text.empty() && isBlank(text.back());
  return hasBlankBehind ? "there is no blank at the end of a font" : "";
}

}  // namespace vantry::check
