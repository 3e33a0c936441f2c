#include "vantry/base/format_number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string_view>

#include "vantry/base/powers_of_ten.h"

// Six digits of a double, exactly.
//
// A double is x = m * 2^(e - 63), with an integer m of 64 bits whose highest bit is set. Its first
// digit counts 10^p, where p is the logarithm of x, rounded down. So x * 10^k with k = 5 - p
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

namespace vantry::base {
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

// Every group of three decimal digits as text, one a byte, the first in the lowest byte. The
// highest byte is the number of leading zeros.
constexpr auto digitGroups = [] {
  std::array<std::uint32_t, 1000> groups{};
  for (std::uint32_t n = 0; n < groups.size(); ++n) {
    const std::uint32_t text = (n / 100) | (n / 10 % 10) << 8 | (n % 10) << 16 | 0x30'3030;
    groups[n] = text | (n < 10 ? 2u : n < 100 ? 1u : 0u) << 24;
  }
  return groups;
}();

// Every group is below 1000. The library's check of the index costs more than the look-up.
constexpr std::uint32_t lookUp(std::uint32_t group) { return digitGroups.data()[group]; }

constexpr std::uint32_t textOf(std::uint32_t group) { return lookUp(group) & 0xFF'FFFF; }

template <class Bytes>
void store(char* out, Bytes bytes) {
  if constexpr (std::endian::native == std::endian::big) {
    const auto mirrored = std::bit_cast<std::array<char, sizeof(bytes)>>(bytes);
    std::reverse_copy(mirrored.begin(), mirrored.end(), out);
  } else {
    std::memcpy(out, &bytes, sizeof(bytes));
  }
}

char* writeGroup(char* out, std::uint32_t group) {
  store(out, textOf(group));
  return out + 3;
}

char* writeGroupWithoutZeros(char* out, std::uint32_t group) {
  const std::uint32_t leadingZeros = lookUp(group) >> 24;
  store(out, textOf(group) >> 8 * leadingZeros);
  return out + 3 - leadingZeros;
}

constexpr std::uint64_t onlyDigits = 0x0F0F'0F0F'0F0F'0F0F;  // makes numbers of text, byte by byte

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
  const std::uint32_t upper = sixDigits / 1000;
  const std::uint64_t text = textOf(upper) | std::uint64_t{textOf(sixDigits % 1000)} << 24;
  const int count = 8 - std::countl_zero(text & onlyDigits) / 8;  // without the zeros at the end
  if (exponent >= 0 && exponent < 6) return writeWithPoint(out, text, count, exponent + 1);
  if (exponent < 0 && exponent >= -4) {
    writeText(out, "0.000");
    store(out + 1 - exponent, text);
    return out + 1 - exponent + count;
  }
  return writeExponent(writeWithPoint(out, text, count, 1), exponent);
}

char* formatInteger(char* out, std::uint64_t value) {
  if (value < 1000) return writeGroupWithoutZeros(out, static_cast<std::uint32_t>(value));
  const std::uint64_t groups = value / 1000;
  out = groups < 1000 ? writeGroupWithoutZeros(out, static_cast<std::uint32_t>(groups))
                      : formatInteger(out, groups);
  return writeGroup(out, static_cast<std::uint32_t>(value % 1000));
}

char* formatInteger(char* out, std::int64_t value) {
  *out = '-';
  out += value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  return formatInteger(out, value < 0 ? 0 - bits : bits);
}

}  // namespace vantry::base
