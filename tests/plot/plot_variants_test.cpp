#include "vantry/plot/values/variants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace vantry::plot::test {
namespace {

using namespace vantry;
using namespace vantry::plot;
using base::Token;
using base::Variant;
namespace Word = base::Word;

constexpr double nan = plot::nan;

/// Whether each of the values is below all that follow, and below none of the others.
template <class Kind>
bool areInOrder(std::initializer_list<typename Kind::Value> values) {
  const std::vector<Kind> variants(values.begin(), values.end());
  for (const Kind& a : variants) {
    for (const Kind& b : variants) {
      if ((a < b) != (&a < &b) || (a == b) != (&a == &b)) return false;
    }
  }
  return true;
}

TEST(PlotVariants, EqualTheirCopiesUnlessACoordinateIsNan) {
  const auto equalsItsCopy = [](const Variant& variant) {
    const Variant copy = variant;
    return variant == copy;
  };
  EXPECT_TRUE(equalsItsCopy(P2Variant({1, 2})));
  EXPECT_TRUE(equalsItsCopy(P3Variant({1, 2, 3})));
  EXPECT_TRUE(equalsItsCopy(FontStyleVariant(FontStyle::standard())));
  for (const P2& point : {P2{nan, 2}, P2{1, nan}}) {
    EXPECT_FALSE(equalsItsCopy(P2Variant(point)));
  }
  for (const P3& point : {P3{nan, 2, 3}, P3{1, nan, 3}, P3{1, 2, nan}}) {
    EXPECT_FALSE(equalsItsCopy(P3Variant(point)));
  }
}

// One and the same object is equal to itself before any coordinate is looked at.
TEST(PlotVariants, EqualThemselvesEvenWithANan) {
  const P2Variant flat({nan, nan});
  const P3Variant point({nan, nan, nan});
  EXPECT_EQ(flat, flat);
  EXPECT_EQ(point, point);
  EXPECT_FALSE(flat < flat);
  EXPECT_FALSE(point < point);
}

TEST(PlotVariants, CompareCoordinatesAsNumbers) {
  EXPECT_EQ(P2Variant({0.0, 1}), P2Variant({-0.0, 1}));
  EXPECT_EQ(P3Variant({1, 2, 0.0}), P3Variant({1, 2, -0.0}));
}

TEST(PlotVariants, CopyTheirValues) {
  const auto copiesItsValue = []<class Kind>(const Kind& variant) {
    const Variant copy = variant;
    Variant assigned;
    assigned = variant;
    const auto* const value = &variant.get();
    return copy == variant && assigned == variant && &copy.as<Kind>()->get() != value &&
           &assigned.as<Kind>()->get() != value;
  };
  EXPECT_TRUE(copiesItsValue(P2Variant({1, 2})));
  EXPECT_TRUE(copiesItsValue(P3Variant({1, 2, 3})));
  EXPECT_TRUE(copiesItsValue(FontStyleVariant(FontStyle::standard())));
}

TEST(PlotVariants, ShareTheFamilyOfACopiedFont) {
  FontStyle font = FontStyle::standard();
  font.family = "Palatino";
  const FontStyleVariant variant(font);
  const Variant copy = variant;
  EXPECT_EQ(copy.as<FontStyleVariant>()->get().family.c_str(), font.family.c_str());
  EXPECT_EQ(font.family.useCount(), 3);
}

TEST(PlotVariants, OrderPointsByOneCoordinateAfterTheOther) {
  EXPECT_TRUE(areInOrder<P2Variant>({{-1, 9}, {0, 1}, {0, 2}, {3, -9}}));
  EXPECT_TRUE(areInOrder<P3Variant>(
      {{-1, 9, 9}, {0, -5, 9}, {0, 1, 7}, {0, 1, 8}, {0, 2, -9}, {3, -9, -9}}));
}

TEST(PlotVariants, OrderFontsByOneFieldAfterTheOther) {
  const Token low = std::min(Token(Word::Left), Token(Word::Right));
  const Token high = std::max(Token(Word::Left), Token(Word::Right));
  EXPECT_TRUE(areInOrder<FontStyleVariant>({{"Arial", 9, true, white, true, high},
                                            {"Times", 8, true, white, true, high},
                                            {"Times", 9, false, white, true, high},
                                            {"Times", 9, true, white, false, high},
                                            {"Times", 9, true, black, true, high},
                                            {"Times", 9, true, white, true, low},
                                            {"Times", 9, true, white, true, high}}));
}

TEST(PlotVariants, AreKindsOfTheirOwn) {
  EXPECT_NE(Variant(P2Variant({0, 0})), Variant(P3Variant({0, 0, 0})));
  EXPECT_EQ(Variant(P2Variant({0, 0})).as<P3Variant>(), nullptr);
  EXPECT_EQ(Variant(RGBAVariant(black)).as<FontStyleVariant>(), nullptr);
}

}  // namespace
}  // namespace vantry::plot::test
