#include "vantry/base/scan.h"

#include <langinfo.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>

namespace vantry::base {
namespace {

// Bytes above 0x7F may be white space to sscanf, depending on the locale. A fast path meets them as
// neither white space nor part of a number and gives up.
bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
unsigned digitValue(char c) { return static_cast<unsigned char>(c) - unsigned{'0'}; }
bool isDigit(char c) { return digitValue(c) < 10; }
bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

// As long as it lives, the C library of this thread takes a point as the decimal mark, whatever the
// locale says.
class PointAsDecimalMark {
 public:
  PointAsDecimalMark() {
    if (*nl_langinfo(RADIXCHAR) == '.') return;
    const locale_t present = duplocale(uselocale(nullptr));
    if (!present) return;
    withPoint_ = newlocale(LC_NUMERIC_MASK, "C", present);
    if (withPoint_) {
      before_ = uselocale(withPoint_);
    } else {
      freelocale(present);
    }
  }
  PointAsDecimalMark(const PointAsDecimalMark&) = delete;
  PointAsDecimalMark& operator=(const PointAsDecimalMark&) = delete;
  ~PointAsDecimalMark() {
    if (!withPoint_) return;
    uselocale(before_);
    freelocale(withPoint_);
  }

 private:
  locale_t withPoint_ = nullptr;
  locale_t before_ = nullptr;
};

// All powers of ten that a double holds exactly.
constexpr auto exactPowersOfTen = [] {
  std::array<double, 23> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

// Reads a decimal number whose digits and power of ten both are exact doubles, so that a single
// division rounds it correctly; nearly every number of a plot is of this kind. Gives the place
// behind the number, or null for any other text.
const char* readShortDecimal(const char* at, double& number) {
  constexpr std::ptrdiff_t safeDigits = 19;  // what always fits into 64 bits
  constexpr std::uint64_t largestExact = std::uint64_t{1} << 53;

  const bool isNegative = *at == '-';
  if (isNegative) ++at;
  std::uint64_t digits = 0;
  const auto readDigits = [&] {
    const char* const first = at;
    for (; isDigit(*at); ++at) digits = digits * 10 + digitValue(*at);
    return at - first;
  };
  const std::ptrdiff_t wholeDigits = readDigits();
  std::ptrdiff_t decimals = 0;
  if (*at == '.') {
    ++at;
    decimals = readDigits();
  }
  const std::ptrdiff_t digitCount = wholeDigits + decimals;
  if (digitCount == 0 || digitCount > safeDigits || digits > largestExact) return nullptr;
  if (*at == 'e' || *at == 'E') return nullptr;

  const double size = static_cast<double>(digits);
  const double value = size / exactPowersOfTen.data()[decimals];  // at most safeDigits
  number = isNegative ? -value : value;
  return at;
}

// Reads a decimal number without a plus sign. Gives the place behind it, or null for any other
// text.
template <class Number>
const char* readDecimal(const char* at, const char* end, Number& number) {
  const char* digits = at + (*at == '-');
  if (!isDigit(*digits) && *digits != '.') return nullptr;  // from_chars reads inf and nan too
  const auto [behind, error] = std::from_chars(at, end, number);
  return error == std::errc() ? behind : nullptr;
}

bool isNumberEnd(char c) { return c == '\0' || isSpace(c); }

// A NUL-terminated text with a known end, and the place that the scan has reached.
class Scanner {
 public:
  explicit Scanner(const char* text) : at_(text), end_(text + std::strlen(text)) {}

  bool scan(double& number) {
    skipSpace();
    const auto readShort = [this](double& value) { return readShortDecimal(at_, value); };
    return take(number, readShort) || scanDecimal(number) || scanByFormat(" %lf%n", &number);
  }
  bool scan(long& number) {
    skipSpace();
    return scanDecimal(number) || scanInteger(number);
  }
  bool scan(ScannedWord& word) {
    skipSpace();
    return scanAsciiWord(word) || scanByFormat(" %10s%n", word.data());
  }

  // A word that begins with "#".
  bool scanMarked(ScannedWord& word) {
    skipSpace();
    if (at_ != end_ && isAscii(*at_)) return *at_ == '#' && (++at_, scan(word));
    return scanByFormat(" #%10s%n", word.data());
  }

 private:
  void skipSpace() {
    while (isSpace(*at_)) ++at_;
  }

  // Takes the number that `read` finds if white space or the end follows. What else follows may
  // belong to the number in the eyes of sscanf.
  template <class Number, class Read>
  bool take(Number& number, const Read& read) {
    Number value;
    const char* behind = read(value);
    if (!behind || !isNumberEnd(*behind)) return false;
    number = value;
    at_ = behind;
    return true;
  }

  template <class Number>
  bool scanDecimal(Number& number) {
    return take(number, [this](Number& value) { return readDecimal(at_, end_, value); });
  }

  // What sscanf reads as "%ld", but with a meaning for numbers that are too large: the nearest
  // bound.
  bool scanInteger(long& number) {
    char* behind = nullptr;
    const long value = std::strtol(at_, &behind, 10);
    if (behind == at_) return false;
    number = value;
    at_ = behind;
    return true;
  }

  bool scanAsciiWord(ScannedWord& word) {
    const char* behind = at_;
    const char* limit = at_ + std::min(end_ - at_, std::ssize(word) - 1);
    while (behind != limit && isAscii(*behind) && !isSpace(*behind)) ++behind;
    if (behind == at_ || !isAscii(*behind)) return false;
    *std::copy(at_, behind, word.begin()) = '\0';
    at_ = behind;
    return true;
  }

  template <class Target>
  bool scanByFormat(const char* format, Target* target) {
    const PointAsDecimalMark pointAsDecimalMark;
    int length = 0;
    if (std::sscanf(at_, format, target, &length) != 1) return false;
    at_ += length;
    return true;
  }

  const char* at_;
  const char* end_;
};

}  // namespace

int scanDoubles(const char* text, std::span<double> numbers) {
  if (scanOnlyShortDecimals(text, numbers)) return static_cast<int>(numbers.size());
  return scanPoint(text, numbers, {});
}

int scanPoint(const char* text, std::span<double> numbers, std::span<ScannedWord> words) {
  Scanner scanner(text);
  int items = 0;
  for (double& number : numbers) {
    if (!scanner.scan(number)) return items;
    ++items;
  }
  for (ScannedWord& word : words) {
    if (!scanner.scanMarked(word)) return items;
    ++items;
  }
  return items;
}

bool scanOnlyShortDecimals(const char* text, std::span<double> numbers) {
  const auto skipBlanks = [&] {
    while (*text == ' ' || *text == '\t' || *text == '\n' || *text == '\r') ++text;
  };
  for (double& number : numbers) {
    skipBlanks();
    double value = 0;
    text = readShortDecimal(text, value);
    if (!text || !isNumberEnd(*text)) return false;
    number = value;
  }
  skipBlanks();
  return *text == '\0';
}

bool scanDouble(const char* text, double& number) { return Scanner(text).scan(number); }

bool scanLong(const char* text, std::int32_t& number) {
  using Bounds = std::numeric_limits<std::int32_t>;
  long wide;
  if (!Scanner(text).scan(wide)) return false;
  number = static_cast<std::int32_t>(std::clamp<long>(wide, Bounds::min(), Bounds::max()));
  return true;
}

bool scanInt(const char* text, int& number) {
  long wide;
  if (!Scanner(text).scan(wide)) return false;
  number = static_cast<int>(wide);
  return true;
}

bool scanWord(const char* text, ScannedWord& word) { return Scanner(text).scan(word); }

}  // namespace vantry::base
