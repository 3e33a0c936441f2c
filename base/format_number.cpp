#include "base/format_number.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

#include "base/powers_of_ten.h"

// Six digits of a double, exactly.
//
// A double is x = m * 2^(e - 63), with an integer m of 64 bits whose highest bit is set. Its first
// digit stands for 10^p, where p is the logarithm of x, rounded down. So x * 10^k with k = 5 - p
// lies between 100000 and 1000000, and the six digits are that number, rounded to an integer; half
// way between two integers, the even one is taken.
//
// 10^k = P * 2^(E - 127) comes from a table, its 128 bits rounded up. The product m * P has 192
// bits, and its lowest 64 are cut off:
//
//   T = x * 10^k * 2^s = m * 10^k * 2^(127 - E) / 2^64   with s = 126 - e - E, what is wanted
//   A = m * P / 2^64, rounded down                       what is computed
//
// The upper bits of A, from bit s on, are the integer, and the s bits below are the fraction. Since
// P is too large by less than 1 and m < 2^64, m * P / 2^64 is at least T and below T + 1. Thus A
// equals T wherever T is an integer, and lies between T - 1 and T + 1 elsewhere. The first covers
// the half ways: s is at least 107, so that a half is a whole number of units in T, and A shows it
// exactly. And no other x can be taken for a half way, or be put on its wrong side: for all doubles
// and their k, x * 10^k is either half way or at least 2^-64 away from it (the continued fraction
// of 10^k * 2^e bounds this for each e), which is more than 2^40 units of T.

namespace Ubase {
namespace {

constexpr int fractionBits = 52;
constexpr std::uint64_t signBit = std::uint64_t{1} << 63;
constexpr std::uint64_t infinity = std::uint64_t{0x7FF} << fractionBits;

struct SixDigits {
  std::uint32_t digits;  // 100000 to 999999
  int exponent;          // of the first digit
};

// Whether m * 2^(e - 63) >= 10^k, for an e that is no greater than 10^k's own.
bool reachesPower(std::uint64_t m, int e, int k) {
  const PowerOfTen& power = powerOfTen(k);
  return (e == binaryExponent(k)) & (m >= power.high + (power.low != 0));
}

// `magnitude` holds the bits of a finite double above 0.
SixDigits roundToSixDigits(std::uint64_t magnitude) {
  int e = static_cast<int>(magnitude >> fractionBits) - 1023;
  std::uint64_t m = magnitude << 11 | signBit;
  if (e == -1023) {  // a subnormal number: magnitude * 2^-1074
    const int shift = std::countl_zero(magnitude);
    m = magnitude << shift;
    e = -1011 - shift;
  }
  int p = decimalExponent(e);
  p += reachesPower(m, e, p + 1);

  const int k = 5 - p;
  const PowerOfTen& power = powerOfTen(k);
  const Uint128 product = Uint128{m} * power.high + (Uint128{m} * power.low >> 64);
  const int s = 126 - e - binaryExponent(k) - 64;  // from here on, in the upper half of the product
  // The lower half only matters as being zero or not, and goes into the lowest bit.
  const std::uint64_t scaled =
      static_cast<std::uint64_t>(product >> 64) | (static_cast<std::uint64_t>(product) != 0);
  const std::uint64_t belowHalf = (std::uint64_t{1} << (s - 1)) - 1;
  const std::uint64_t isOdd = scaled >> s & 1;
  const auto digits = static_cast<std::uint32_t>((scaled + belowHalf + isOdd) >> s);
  return digits < 1'000'000 ? SixDigits{digits, p} : SixDigits{100'000, p + 1};
}

// The eight decimal digits of a number, one a byte, the first in the lowest byte. All groups of
// digits are split at once, into fours, pairs and single digits.
std::uint64_t eightDigits(std::uint32_t number) {
  const std::uint64_t upper = number / 10'000;
  const std::uint64_t fours = upper | (number - upper * 10'000) << 32;
  const std::uint64_t hundreds = (fours * 10'486 >> 20) & 0x0000007F'0000007F;
  const std::uint64_t pairs = hundreds | (fours - hundreds * 100) << 16;
  const std::uint64_t tens = (pairs * 103 >> 10) & 0x000F000F'000F000F;
  return tens | (pairs - tens * 10) << 8;
}

constexpr std::uint64_t asText = 0x30303030'30303030;  // makes digits of numbers, byte by byte

void store(char* out, std::uint64_t bytes) {
  if constexpr (std::endian::native == std::endian::big) bytes = __builtin_bswap64(bytes);
  std::memcpy(out, &bytes, sizeof(bytes));
}

char* writeText(char* out, std::string_view text) {
  return std::copy(text.begin(), text.end(), out);
}

// Writes the first `count` of the digits in `text`, with a point behind the first `before` of them
// if that leaves any behind it.
char* writeWithPoint(char* out, std::uint64_t text, int count, int before) {
  store(out, text);
  out[before] = '.';
  store(out + before + 1, text >> (8 * before));
  return out + (count > before ? count + 1 : before);
}

char* writeExponent(char* out, int exponent) {
  *out++ = 'e';
  *out++ = exponent < 0 ? '-' : '+';
  const int size = exponent < 0 ? -exponent : exponent;
  if (size < 10) *out++ = '0';
  return formatInteger(out, std::int64_t{size});
}

}  // namespace

char* formatDouble(char* out, double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const std::uint64_t magnitude = bits & ~signBit;
  *out = '-';
  out += bits >> 63;
  if (magnitude - 1 >= infinity - 1) {  // not between 0 and infinity
    return writeText(out, magnitude == 0 ? "0" : magnitude == infinity ? "inf" : "nan");
  }
  const auto [sixDigits, exponent] = roundToSixDigits(magnitude);
  const std::uint64_t digits = eightDigits(sixDigits * 100);
  const int count = 8 - std::countl_zero(digits) / 8;  // without the zeros at the end
  const std::uint64_t text = digits | asText;
  if (exponent >= 0 && exponent < 6) return writeWithPoint(out, text, count, exponent + 1);
  if (exponent < 0 && exponent >= -4) {
    writeText(out, "0.000");
    store(out + 1 - exponent, text);
    return out + 1 - exponent + count;
  }
  return writeExponent(writeWithPoint(out, text, count, 1), exponent);
}

char* formatInteger(char* out, std::uint64_t value) {
  constexpr std::uint64_t limit = 100'000'000;
  if (value >= limit) {
    out = formatInteger(out, value / limit);
    store(out, eightDigits(static_cast<std::uint32_t>(value % limit)) | asText);
    return out + 8;
  }
  const std::uint64_t digits = eightDigits(static_cast<std::uint32_t>(value));
  const int leadingZeros = value == 0 ? 7 : std::countr_zero(digits) / 8;
  store(out, (digits | asText) >> (8 * leadingZeros));
  return out + 8 - leadingZeros;
}

char* formatInteger(char* out, std::int64_t value) {
  *out = '-';
  out += value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  return formatInteger(out, value < 0 ? 0 - bits : bits);
}

}  // namespace Ubase
