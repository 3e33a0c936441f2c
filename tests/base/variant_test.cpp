#include "vantry/base/variant.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <compare>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "vantry/base/vocabulary.h"

namespace {

using namespace vantry::base;

// A value as the plot model has them: kept on the heap, compared by its numbers.
struct Pair {
  double x = 0;
  double y = 0;

  friend bool operator==(const Pair&, const Pair&) = default;
  friend bool operator<(const Pair& a, const Pair& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; }
};

class PairVariant : public HeapVariant<PairVariant, Pair> {
  using HeapVariant::HeapVariant;
};

const double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Variant, IsEmptyByDefault) {
  EXPECT_TRUE(Variant().isEmpty());
  EXPECT_EQ(Variant(), Variant());
  EXPECT_FALSE(Variant() < Variant());
  EXPECT_NE(Variant(), LongVariant(0));
  EXPECT_NE(Variant(), BoolVariant(false));
  EXPECT_EQ(Variant().as<LongVariant>(), nullptr);
}

TEST(Variant, GivesItsValueToItsOwnKindOnly) {
  const Variant boolean = BoolVariant(true);
  const Variant integer = LongVariant(-7);
  const Variant number = DoubleVariant(2.5);
  const Variant token = TokenVariant(Word::Radius);
  const Variant text = FixedStringVariant(FixedString("text"));
  const Variant pair = PairVariant(Pair{1, 2});
  EXPECT_TRUE(boolean.as<BoolVariant>()->get());
  EXPECT_EQ(integer.as<LongVariant>()->get(), -7);
  EXPECT_EQ(number.as<DoubleVariant>()->get(), 2.5);
  EXPECT_EQ(token.as<TokenVariant>()->get(), Word::Radius);
  EXPECT_STREQ(text.as<FixedStringVariant>()->get().c_str(), "text");
  EXPECT_EQ(pair.as<PairVariant>()->get(), (Pair{1, 2}));
  EXPECT_EQ(boolean.as<LongVariant>(), nullptr);
  EXPECT_EQ(integer.as<BoolVariant>(), nullptr);
  EXPECT_EQ(number.as<TokenVariant>(), nullptr);
  EXPECT_EQ(token.as<FixedStringVariant>(), nullptr);
  EXPECT_EQ(text.as<PairVariant>(), nullptr);
  EXPECT_EQ(pair.as<DoubleVariant>(), nullptr);
}

TEST(Variant, IsOfOneKindByItsDescriptor) {
  EXPECT_EQ(LongVariant(1).type(), LongVariant(2).type());
  const std::vector<const VariantType*> types = {
      BoolVariant::descriptor(),  LongVariant::descriptor(),        DoubleVariant::descriptor(),
      TokenVariant::descriptor(), FixedStringVariant::descriptor(), PairVariant::descriptor()};
  for (std::size_t i = 0; i < types.size(); ++i) {
    EXPECT_NE(types[i], nullptr);
    for (std::size_t k = i + 1; k < types.size(); ++k) EXPECT_NE(types[i], types[k]);
  }
}

TEST(Variant, DiffersFromOtherKindsAndIsOrderedAgainstThem) {
  const Variant zero = LongVariant(0);
  const Variant no = BoolVariant(false);
  EXPECT_NE(zero, no);
  EXPECT_NE(zero < no, no < zero);
}

TEST(Variant, KeepsUnusedBitsZero) {
  EXPECT_EQ(BoolVariant(true), BoolVariant(true));
  EXPECT_NE(BoolVariant(true), BoolVariant(false));
  VariantValue value;
  value.set(1.5);
  value.set(true);
  EXPECT_EQ(value.words()[1], 0u);
  EXPECT_EQ(value.as<bool>(), true);
}

TEST(Variant, ComparesDoublesBitByBit) {
  EXPECT_EQ(DoubleVariant(nan), DoubleVariant(nan));
  EXPECT_NE(DoubleVariant(nan), DoubleVariant(-nan));
  EXPECT_NE(DoubleVariant(nan),
            DoubleVariant(std::bit_cast<double>(std::bit_cast<std::uint64_t>(nan) | 1)));
  EXPECT_NE(DoubleVariant(0.0), DoubleVariant(-0.0));
  EXPECT_EQ(DoubleVariant(0.1), DoubleVariant(0.1));
}

// The asymmetry to doubles is on purpose.
TEST(Variant, ComparesHeapValuesByTheirNumbers) {
  const PairVariant withNan(Pair{1, nan});
  const Variant copy = withNan;
  EXPECT_NE(withNan, copy);
  EXPECT_EQ(withNan, withNan);  // one and the same object, before any number is looked at
  EXPECT_FALSE(withNan < withNan);
  EXPECT_EQ(PairVariant(Pair{0.0, 1}), PairVariant(Pair{-0.0, 1}));
}

TEST(Variant, OrdersHeapValuesByTheirNumbers) {
  EXPECT_TRUE(PairVariant(Pair{1, 9}) < PairVariant(Pair{2, 0}));
  EXPECT_TRUE(PairVariant(Pair{1, 1}) < PairVariant(Pair{1, 2}));
  EXPECT_FALSE(PairVariant(Pair{1, 2}) < PairVariant(Pair{1, 2}));
}

// Words are compared as they are, without regard for what they mean.
TEST(Variant, OrdersPlainValuesByTheirUnsignedWords) {
  EXPECT_TRUE(LongVariant(1) < LongVariant(2));
  EXPECT_TRUE(LongVariant(1) < LongVariant(-1));
  EXPECT_FALSE(LongVariant(2) < LongVariant(2));
  const auto number = [](std::uint32_t first, std::uint32_t second) {
    return DoubleVariant(std::bit_cast<double>(std::array{first, second}));
  };
  EXPECT_TRUE(number(1, 9) < number(2, 1));
  EXPECT_TRUE(number(1, 1) < number(1, 2));
}

TEST(Variant, OrdersTokensAsTokensAre) {
  EXPECT_EQ(TokenVariant(Word::Left), TokenVariant(Word::Left));
  EXPECT_NE(TokenVariant(Word::Left), TokenVariant(Word::Right));
  EXPECT_EQ(TokenVariant(Word::Left) < TokenVariant(Word::Right), Word::Left < Word::Right);
  EXPECT_EQ(TokenVariant(Word::Right) < TokenVariant(Word::Left), Word::Right < Word::Left);
}

TEST(Variant, ComparesStringsByTheirText) {
  const FixedStringVariant a(FixedString("a"));
  const FixedStringVariant b(FixedString("b"));
  EXPECT_EQ(a, FixedStringVariant(FixedString("a")));
  EXPECT_NE(a, b);
  EXPECT_TRUE(a < b);
  EXPECT_FALSE(b < a);
  EXPECT_FALSE(a < a);
}

TEST(Variant, DistinguishesANullStringFromAnEmptyOne) {
  const FixedStringVariant null((FixedString()));
  const FixedStringVariant empty(FixedString(""));
  EXPECT_EQ(null.get().c_str(), nullptr);
  EXPECT_STREQ(empty.get().c_str(), "");
  EXPECT_NE(null, empty);
  EXPECT_EQ(null, null);
}

TEST(Variant, SharesTheTextOfACopiedString) {
  const FixedString text("shared");
  {
    const FixedStringVariant variant(text);
    EXPECT_EQ(text.useCount(), 2);
    Variant copy = variant;
    EXPECT_EQ(text.useCount(), 3);
    EXPECT_EQ(copy.as<FixedStringVariant>()->get().c_str(), text.c_str());
    copy = LongVariant(1);
    EXPECT_EQ(text.useCount(), 2);
    copy = variant;
    EXPECT_EQ(text.useCount(), 3);
  }
  EXPECT_EQ(text.useCount(), 1);
}

TEST(Variant, CopiesHeapValuesDeeply) {
  const PairVariant variant(Pair{1, 2});
  const Variant copy = variant;
  EXPECT_EQ(copy, variant);
  EXPECT_NE(&copy.as<PairVariant>()->get(), &variant.get());
}

TEST(Variant, StaysUnchangedWhenAssignedToItself) {
  Variant text = FixedStringVariant(FixedString("text"));
  Variant pair = PairVariant(Pair{1, 2});
  const char* const address = text.as<FixedStringVariant>()->get().c_str();
  const Variant& sameText = text;
  const Variant& samePair = pair;
  text = sameText;
  pair = samePair;
  EXPECT_EQ(text.as<FixedStringVariant>()->get().c_str(), address);
  EXPECT_EQ(text.as<FixedStringVariant>()->get().useCount(), 1);
  EXPECT_EQ(pair.as<PairVariant>()->get(), (Pair{1, 2}));
}

TEST(Variant, TakesAnotherKindByAssignment) {
  Variant variant = PairVariant(Pair{1, 2});
  variant = DoubleVariant(0.5);
  EXPECT_EQ(variant, DoubleVariant(0.5));
  variant = TokenVariant(Word::Left);
  EXPECT_EQ(variant, TokenVariant(Word::Left));
  variant = Variant();
  EXPECT_TRUE(variant.isEmpty());
}

TEST(Variant, MovesItsValue) {
  const FixedString text("moved");
  Variant source = FixedStringVariant(text);
  const Variant target = std::move(source);
  EXPECT_EQ(text.useCount(), 2);
  EXPECT_STREQ(target.as<FixedStringVariant>()->get().c_str(), "moved");
}

TEST(Variant, MovesItsValueByAssignment) {
  const FixedString text("moved");
  Variant source = FixedStringVariant(text);
  Variant target = PairVariant(Pair{1, 2});
  target = std::move(source);
  EXPECT_EQ(text.useCount(), 2);
  EXPECT_EQ(target.as<FixedStringVariant>()->get().c_str(), text.c_str());
  source = PairVariant(Pair{3, 4});
  EXPECT_EQ(source.as<PairVariant>()->get(), (Pair{3, 4}));
  target = DoubleVariant(1);
  EXPECT_EQ(text.useCount(), 1);
}

// What was found to be of a kind is no variant of that class: any variant may hold the value.
TEST(Variant, GivesTheValueOfAnyVariantOfTheKind) {
  const std::vector<Variant> values = {LongVariant(5), FixedStringVariant(FixedString("text"))};
  const auto number = values[0].as<LongVariant>();
  ASSERT_TRUE(number);
  EXPECT_EQ(number->get(), 5);
  EXPECT_FALSE(values[1].as<LongVariant>());
  EXPECT_EQ(&values[1].as<FixedStringVariant>()->get(), &values[1].as<FixedStringVariant>()->get());
}

TEST(Variant, LivesInAList) {
  std::vector<Variant> values;
  for (int i = 0; i < 100; ++i) {
    values.push_back(PairVariant(Pair{i * 1.0, 0}));
    values.push_back(FixedStringVariant(FixedString("text")));
    values.push_back(LongVariant(i));
  }
  values.erase(values.begin(), values.begin() + 150);
  EXPECT_EQ(values[0], PairVariant(Pair{50, 0}));
  EXPECT_EQ(values[2], LongVariant(50));
}

// A value whose copy fails.
struct Fragile {
  bool breaks = false;

  explicit Fragile(bool b) : breaks(b) {}
  Fragile(const Fragile& other) : breaks(other.breaks) {
    if (breaks) throw std::bad_alloc();
  }
  friend bool operator==(const Fragile& a, const Fragile& b) { return a.breaks == b.breaks; }
  friend bool operator<(const Fragile& a, const Fragile& b) { return a.breaks < b.breaks; }
};

class FragileVariant : public HeapVariant<FragileVariant, Fragile> {
 public:
  using HeapVariant::HeapVariant;
  void breakFromNowOn() { const_cast<Fragile&>(get()).breaks = true; }
};

TEST(Variant, KeepsItsValueWhenACopyFails) {
  FragileVariant fragile((Fragile(false)));
  fragile.breakFromNowOn();
  Variant target = FixedStringVariant(FixedString("kept"));
  EXPECT_THROW(target = fragile, std::bad_alloc);
  EXPECT_STREQ(target.as<FixedStringVariant>()->get().c_str(), "kept");
  EXPECT_THROW(const Variant copy(fragile), std::bad_alloc);
}

}  // namespace
