// The powers of ten as wide binary numbers, computed by the compiler.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace vantry::base {

__extension__ using Uint128 = unsigned __int128;

/// 10^k as mantissa * 2^(exponent - 127): the mantissa has 128 bits, the highest of them set, and
/// is rounded up if it would need more; binaryExponent(k) is the exponent.
struct PowerOfTen {
  std::uint64_t high;
  std::uint64_t low;
};

/// The logarithm of 10^k to base 2, rounded down; right for all k up to 642 either way.
constexpr int binaryExponent(int k) { return (k * 217706) >> 16; }

/// The logarithm of 2^e to base 10, rounded down; right for all e up to 1650 either way.
constexpr int decimalExponent(int e) { return (e * 78913) >> 18; }

/// The powers between `firstPower` and `lastPower`, in ascending order.
inline constexpr int firstPower = -330;
inline constexpr int lastPower = 330;
inline constexpr auto powersOfTen = [] {
  // 5^k has the same mantissa as 10^k. It is kept in 29 limbs of 32 bits, the lowest first: 5^330
  // needs 24 of them, and the inverse, as an integer part of 2^927 / 5^k, has four and more left.
  constexpr std::size_t limbCount = 29;
  using Limbs = std::array<std::uint32_t, limbCount>;

  const auto multiplyBy5 = [](Limbs& limbs) {
    std::uint64_t carry = 0;
    for (std::uint32_t& limb : limbs) {
      carry += std::uint64_t{limb} * 5;
      limb = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  };
  const auto divideBy5 = [](Limbs& limbs) {
    std::uint64_t rest = 0;
    for (std::size_t i = limbCount; i-- > 0;) {
      rest = rest << 32 | limbs[i];
      limbs[i] = static_cast<std::uint32_t>(rest / 5);
      rest %= 5;
    }
  };
  const auto mantissa = [](const Limbs& limbs, bool isInexact) {
    std::size_t top = limbCount - 1;
    while (limbs[top] == 0) --top;
    const auto limb = [&](std::size_t below) -> Uint128 {
      return below <= top ? limbs[top - below] : 0;
    };
    const int shift = std::countl_zero(limbs[top]);
    Uint128 bits = limb(0) << 96 | limb(1) << 64 | limb(2) << 32 | limb(3);
    const Uint128 next = limb(4) << shift;
    bits = bits << shift | next >> 32;
    isInexact = isInexact || static_cast<std::uint32_t>(next) != 0;
    for (std::size_t below = 5; below <= top; ++below) isInexact = isInexact || limb(below) != 0;
    bits += isInexact;
    return PowerOfTen{static_cast<std::uint64_t>(bits >> 64), static_cast<std::uint64_t>(bits)};
  };

  std::array<PowerOfTen, lastPower - firstPower + 1> table{};
  constexpr std::size_t zeroth = -firstPower;
  Limbs limbs{1};
  for (std::size_t k = 0; k <= lastPower; ++k) {
    table[zeroth + k] = mantissa(limbs, false);
    multiplyBy5(limbs);
  }
  limbs = {};
  limbs[limbCount - 1] = 1u << 31;
  for (std::size_t k = 1; k <= zeroth; ++k) {
    divideBy5(limbs);
    table[zeroth - k] = mantissa(limbs, true);
  }
  return table;
}();

/// Of a power in that range. Nothing checks it: each number that is printed takes two of them.
constexpr const PowerOfTen& powerOfTen(int k) { return powersOfTen.data()[k - firstPower]; }

}  // namespace vantry::base
