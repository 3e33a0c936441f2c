#include "vantry/check/values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <span>
#include <utility>

#include "vantry/base/scan.h"
#include "vantry/base/unicode_converter.h"
#include "vantry/check/characters.h"
#include "vantry/check/fonts.h"
#include "vantry/check/names.h"
#include "vantry/plot/values/value_parsers.h"
#include "vantry/plot/values/variants.h"

namespace vantry::check {

namespace {

/// Takes the first word of a text, and the blanks before it; empty where there is none.
std::string_view takeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(blanks));
  text.remove_prefix(word.size());
  return word;
}

/// How much of a word is a number. What is not decimal is all of it.
std::size_t sizeOfNumber(std::string_view word, bool isWhole) {
  const std::size_t sign = word.starts_with('+') ? 1 : 0;
  const std::string_view digits = word.substr(std::min(word.find_first_not_of("+-"), word.size()));
  const bool isHexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
  if (isHexadecimal && !isWhole) return word.size();
  const char* const begin = word.data() + sign;
  const char* const end = word.data() + word.size();
  double number = 0;
  const auto read = std::from_chars(begin, end, number);
  std::size_t size = static_cast<std::size_t>(read.ptr - word.data());
  if (isWhole) size = std::min(size, word.find_first_not_of("0123456789", sign + 1));
  return std::min(size, word.size());
}

bool isNumeric(ValueKind kind) {
  return kind == ValueKind::wholeNumber || kind == ValueKind::number ||
         kind == ValueKind::planePoint || kind == ValueKind::spacePoint;
}

std::size_t countOfWords(ValueKind kind) {
  if (kind == ValueKind::planePoint) return 2;
  return kind == ValueKind::spacePoint ? 3 : 1;
}

/// What of a value is not looked at.
std::string_view unusedPart(ValueKind kind, std::string_view text) {
  if (kind == ValueKind::text) return {};
  if (kind == ValueKind::font) return unusedPartOfFont(text);
  const bool isWhole = kind == ValueKind::wholeNumber;
  std::string_view rest = text;
  for (std::size_t i = countOfWords(kind); i > 0; --i) {
    const std::string_view word = takeWord(rest);
    std::size_t used = word.size();
    if (isNumeric(kind)) used = sizeOfNumber(word, isWhole);
    if (kind == ValueKind::color)
      used = std::min(used, std::size_t{word.starts_with('#') ? 9u : 8u});
    if (used < word.size())
      return text.substr(static_cast<std::size_t>(word.data() - text.data()) + used);
  }
  rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
  return rest;
}

std::optional<double> numberIn(const base::Variant& value) {
  if (const auto real = value.as<base::DoubleVariant>()) return real->get();
  if (const auto whole = value.as<base::LongVariant>()) return whole->get();
  return std::nullopt;
}

bool isNaN(const base::Variant& value) {
  const std::optional<double> number = numberIn(value);
  return number && std::isnan(*number);
}

/// How many numbers a value has that are to be finite. A property that is NaN by default may be
/// that, and a number that was moved into its range is finite.
int numbersIn(const Property& property, const base::Variant& stored) {
  const ValueKind kind = valueKind(property);
  if (kind == ValueKind::planePoint || kind == ValueKind::spacePoint) {
    return static_cast<int>(countOfWords(kind));
  }
  const std::optional<double> number = numberIn(stored);
  const bool isMeant = isNaN(stored) && isNaN(property.defaultVariant());
  return number && !std::isfinite(*number) && !isMeant ? 1 : 0;
}

// clang-format off
/// A word that is not of the format, in small letters, and how its value is written.
struct Meaning {
  std::string_view word;
  std::string_view value;
};

constexpr Meaning colorNames[] = {
    {"black",  "#000000"}, {"white",   "#FFFFFF"}, {"gray",   "#808080"}, {"grey",   "#808080"},
    {"red",    "#FF0000"}, {"green",   "#008000"}, {"blue",   "#0000FF"}, {"yellow", "#FFFF00"},
    {"orange", "#FFA500"}, {"brown",   "#A52A2A"}, {"purple", "#800080"}, {"pink",   "#FFC0CB"},
    {"cyan",   "#00FFFF"}, {"magenta", "#FF00FF"}, {"silver", "#C0C0C0"}, {"gold",   "#FFD700"},
};

constexpr Meaning truthNames[] = {
    {"yes", "1"}, {"on",  "1"}, {"true",  "1"}, {"y", "1"}, {"t", "1"},
    {"no",  "0"}, {"off", "0"}, {"false", "0"}, {"n", "0"}, {"f", "0"},
};
// clang-format on

/// What a word means, as a sentence, whatever the case of its letters.
std::string meaningIn(std::span<const Meaning> meanings, std::string word) {
  std::ranges::transform(word, word.begin(), lowerCase);
  const auto row = std::ranges::find(meanings, word, &Meaning::word);
  return row == meanings.end() ? "" : std::string(row->word) + " is " + std::string(row->value);
}

}  // namespace

std::string shortened(std::string_view text) {
  constexpr std::size_t longest = 40;
  std::string line(text.substr(0, longest));
  while (text.size() > line.size() && !line.empty() && !beginsCharacter(text[line.size()])) {
    line.pop_back();  // not within a character
  }
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
  if (line.size() < text.size()) line += "...";
  return line;
}

std::string helpForColorName(const std::string& text) {
  return meaningIn(colorNames, text.substr(text.starts_with('#') ? 1 : 0));
}

std::string helpForCommas(std::string_view numbers) {
  const bool hasComma = numbers.find(',') != numbers.npos;
  return hasComma ? "numbers have a point before the decimals, and blanks between them" : "";
}

std::string_view firstBadNumber(std::string_view point) {
  for (std::string_view word = takeWord(point); !word.empty(); word = takeWord(point)) {
    if (!word.starts_with('#') && sizeOfNumber(word, false) < word.size()) return word;
  }
  return {};
}

std::string_view firstBadColor(std::string_view point) {
  for (std::string_view word = takeWord(point); !word.empty(); word = takeWord(point)) {
    plot::RGBA color;
    const bool isColor = plot::ColorParser::parse(color, std::string(word).c_str());
    if (word.starts_with('#') && !isColor) return word;
  }
  return {};
}

std::string_view firstNotFinite(std::string_view text, int most) {
  for (std::string_view word = takeWord(text); most > 0 && !word.empty(); word = takeWord(text)) {
    if (word.starts_with('#')) continue;
    double number = 0;
    if (base::scanDouble(std::string(word).c_str(), number) && !std::isfinite(number)) return word;
    --most;
  }
  return {};
}

bool hasPlainNumbers(std::string_view point, int most) {
  static constexpr auto isPlain = [] {
    std::array<bool, 256> plain{};
    for (const char c : std::string_view("0123456789+-.eE")) {
      plain[static_cast<unsigned char>(c)] = true;
    }
    return plain;
  }();
  int numbers = 0;
  unsigned char before = ' ';
  bool isInColor = false;
  bool hasPoint = false;
  for (const char c : point) {
    const auto byte = static_cast<unsigned char>(c);
    const bool isFirst = before <= ' ';
    if (byte <= ' ') {
      isInColor = hasPoint = false;
    } else if (isFirst && c == '#') {
      isInColor = true;
    } else if (!isInColor) {
      const bool isSignWithin =
          (c == '+' || c == '-') && !isFirst && before != 'e' && before != 'E';
      if (!isPlain[byte] || isSignWithin || (c == '.' && hasPoint)) return false;
      hasPoint = hasPoint || c == '.';
      numbers += isFirst ? 1 : 0;
    }
    before = byte;
  }
  return numbers <= most;
}

std::string_view unusedPartOfPoint(std::string_view point, int most) {
  int numbers = 0;
  std::string_view rest = point;
  for (std::string_view word = takeWord(rest); !word.empty(); word = takeWord(rest)) {
    if (word.starts_with('#')) continue;
    if (++numbers > most) return {word.data(), word.size() + rest.size()};
    const std::size_t used = sizeOfNumber(word, false);
    if (used < word.size()) return word.substr(used);
  }
  return {};
}

namespace {

/// How many words of a point's text are colours, or are none.
std::int64_t countWords(std::string_view point, bool isColor) {
  std::int64_t count = 0;
  for (std::string_view word = takeWord(point); !word.empty(); word = takeWord(point)) {
    if (word.starts_with('#') == isColor) ++count;
  }
  return count;
}

}  // namespace

std::int64_t countNumbers(std::string_view point) { return countWords(point, false); }

std::string countsInWords(std::string_view point) {
  const std::int64_t numbers = countNumbers(point);
  const std::int64_t colors = countWords(point, true);
  return counted(numbers, "number") + (colors > 0 ? " and " + counted(colors, "colour") : "");
}

std::string counted(std::int64_t count, const std::string& thing) {
  return (count == 0 ? "no" : std::to_string(count)) + ' ' + thing + (count == 1 ? "" : "s");
}

std::vector<std::string> helpForValue(const Property& property, const std::string& text) {
  std::vector<std::string> help;
  if (const auto words = property.allowedWords(); !words.empty()) {
    help.push_back(question(nearestName(text, words)));
  }
  const ValueKind kind = valueKind(property);
  if (kind == ValueKind::color) help.push_back(helpForColorName(text));
  if (kind == ValueKind::yesOrNo) help.push_back(meaningIn(truthNames, text));
  if (kind == ValueKind::font) help.push_back(helpForFont(text));
  if (isNumeric(kind)) help.push_back(helpForCommas(text));
  help.push_back(std::string(property.name().str()) + " is " + typeInWords(property));
  return help;
}

bool isNativeText(const char* text) {
  for (int length = base::nativeCharacterLength(text); length != 0;
       length = base::nativeCharacterLength(text)) {
    if (length < 0) return false;
    text += length;
  }
  return true;
}

bool reviewValue(const Property& property, const base::Variant& stored, const std::string& text,
                 Span where, Findings& findings) {
  const std::string name = property.name().str();
  const auto add = [&](Kind kind, std::string_view detail, std::vector<std::string> help = {}) {
    findings.add({.kind = kind, .subject = name, .detail = shortened(detail)}, where,
                 std::move(help));
  };

  if (const auto words = property.allowedWords(); !words.empty()) {
    std::string_view rest = text;
    const std::string_view word = takeWord(rest);
    const bool isWhole = rest.find_first_not_of(blanks) == rest.npos;
    if (!isWhole || std::ranges::find(words, word, &Token::str) == words.end()) {
      add(Kind::unknownWord, text, helpForValue(property, text));
      return false;
    }
  }
  const auto placeOf = [&](std::string_view part) {
    const bool isAsWritten = where.size == text.size();  // and nothing of it was an entity
    const auto begin = static_cast<std::size_t>(part.data() - text.data());
    return isAsWritten ? Span{where.begin + begin, part.size()} : where;
  };
  const ValueKind kind = valueKind(property);
  const std::string_view unused = unusedPart(kind, text);
  if (!unused.empty()) {
    findings.add({.kind = Kind::textAfterValue, .subject = name, .detail = shortened(unused)},
                 placeOf(unused), helpForValue(property, text));
  }
  const std::optional<double> number = numberIn(stored);
  double written = 0;
  const bool isMoved = unused.empty() && number && base::scanDouble(text.c_str(), written) &&
                       !std::isnan(written) && written != *number;
  if (isMoved) {
    std::vector<std::string> help = helpForValue(property, text);
    std::string outcome = "it becomes " + textOf(property, stored);
    if (kind == ValueKind::wholeNumber) {
      outcome += *number > 0 ? ", the largest whole number" : ", the smallest whole number";
    }
    help.insert(help.begin(), std::move(outcome));
    add(Kind::clampedValue, text, std::move(help));
  }
  const bool isWritten =
      kind == ValueKind::text || kind == ValueKind::word || kind == ValueKind::font;
  if (isWritten && !isNativeText(text.c_str())) {
    findings.add({.kind = Kind::textNotInLocale}, where, {helpForLocale});
  }
  const auto font = stored.as<plot::FontStyleVariant>();
  if (font && isOddFamily(font->get().family.c_str())) {
    add(Kind::oddFamily, font->get().family.c_str(), helpForValue(property, text));
  }
  const std::string_view infinite = firstNotFinite(text, numbersIn(property, stored));
  if (!infinite.empty()) {
    findings.add({.kind = Kind::notFinite, .detail = shortened(infinite)}, placeOf(infinite),
                 helpForValue(property, text));
  }
  return true;
}

}  // namespace vantry::check
