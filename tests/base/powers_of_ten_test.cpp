#include "vantry/base/powers_of_ten.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

namespace {

using namespace vantry::base;

// 5^55 is the last power that has no more than 128 bits.
TEST(PowersOfTen, HaveTheirExactMantissasRoundedUp) {
  struct Row {
    int power;
    std::uint64_t high;
    std::uint64_t low;
    int exponent;
  };
  constexpr Row rows[] = {
      {0, 0x8000000000000000, 0x0000000000000000, 0},
      {1, 0xA000000000000000, 0x0000000000000000, 3},
      {2, 0xC800000000000000, 0x0000000000000000, 6},
      {-1, 0xCCCCCCCCCCCCCCCC, 0xCCCCCCCCCCCCCCCD, -4},
      {-2, 0xA3D70A3D70A3D70A, 0x3D70A3D70A3D70A4, -7},
      {22, 0x878678326EAC9000, 0x0000000000000000, 73},
      {55, 0xD0CF4B50CFE20765, 0xFFF4B4E3F741CF6D, 182},
      {56, 0x82818F1281ED449F, 0xBFF8F10E7A8921A5, 186},
      {-55, 0x9CED737BB6C4183D, 0x55464DD69685606C, -183},
      {308, 0x8E679C2F5E44FF8F, 0x570F09EAA7EA7649, 1023},
      {-308, 0xE61ACF033D1A45DF, 0x6FB92487298E33BE, -1024},
      {-323, 0x818995CE7AA0E1B2, 0x7343EFEBD1940994, -1073},
      {330, 0x96C6E0EAB509E64D, 0x5ECA783430DC19F6, 1096},
      {-330, 0xD953E8624B85DD78, 0xD71D6DAD34A2AF0E, -1097},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(powerOfTen(row.power).high, row.high) << row.power;
    EXPECT_EQ(powerOfTen(row.power).low, row.low) << row.power;
    EXPECT_EQ(binaryExponent(row.power), row.exponent) << row.power;
  }
}

TEST(PowersOfTen, AreEachTenTimesTheOneBefore) {
  for (int k = firstPower; k < lastPower; ++k) {
    const auto value = [](int power) {
      const int exponent = binaryExponent(power) - binaryExponent(firstPower);
      return std::ldexp(static_cast<long double>(powerOfTen(power).high), exponent);
    };
    EXPECT_GE(powerOfTen(k).high, std::uint64_t{1} << 63);
    EXPECT_NEAR(static_cast<double>(value(k + 1) / value(k)), 10, 1e-15) << k;
  }
}

TEST(PowersOfTen, GiveTheDecimalExponentOfEveryBinaryOne) {
  for (int e = -1074; e <= 1023; ++e) {
    const double power = std::ldexp(1.0, e);
    EXPECT_EQ(decimalExponent(e), static_cast<int>(std::floor(std::log10(power)))) << e;
  }
}

}  // namespace
