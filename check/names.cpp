#include "vantry/check/names.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "vantry/check/characters.h"

namespace vantry::check {

namespace {

// Of steps, ten make up a letter that is missing, too much or another one; a letter of the other
// case is one step.
constexpr int letter = 10;

int stepsFromTo(char a, char b) {
  if (a == b) return 0;
  return lowerCase(a) == lowerCase(b) ? 1 : letter;
}

// The steps from one name to the other, where two letters that are swapped are one letter.
int distance(std::string_view a, std::string_view b) {
  std::vector<int> before(b.size() + 1);
  std::vector<int> row(b.size() + 1);
  std::vector<int> next(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = static_cast<int>(j) * letter;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    next[0] = static_cast<int>(i) * letter;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      next[j] = std::min(
          {row[j] + letter, next[j - 1] + letter, row[j - 1] + stepsFromTo(a[i - 1], b[j - 1])});
      const bool isSwapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (isSwapped) next[j] = std::min(next[j], before[j - 2] + letter);
    }
    std::swap(before, row);
    std::swap(row, next);
  }
  return row[b.size()];
}

}  // namespace

std::string_view nearestName(std::string_view name, std::span<const base::Token> names) {
  constexpr std::size_t longestName = 64;
  if (name.size() > longestName) return {};
  int nearest = std::max(letter, static_cast<int>(name.size()) * letter / 3);
  std::string_view found;
  for (const base::Token candidate : names) {
    const auto more = std::ssize(std::string_view(candidate.str())) - std::ssize(name);
    if (std::abs(more) * letter > nearest) continue;
    const int steps = distance(name, candidate.str());
    if (steps > nearest || (steps == nearest && !found.empty())) continue;
    nearest = steps;
    found = candidate.str();
  }
  return found;
}

std::string question(std::string_view nearest) {
  return nearest.empty() ? "" : "did you mean " + std::string(nearest) + '?';
}

std::string tagsOf(base::Token element) {
  const std::string name = element.str();
  return '<' + name + ">...</" + name + '>';
}

std::string listOf(std::span<const std::string_view> words, std::string_view last) {
  std::string list;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) list += i + 1 < words.size() ? ", " : ' ' + std::string(last) + ' ';
    list += words[i];
  }
  return list;
}

std::string listOf(std::span<const base::Token> names, std::string_view last) {
  std::vector<std::string_view> words;
  std::ranges::transform(names, std::back_inserter(words), &base::Token::str);
  return listOf(words, last);
}

}  // namespace vantry::check
