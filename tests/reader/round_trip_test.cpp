// What is written can be read again.
#include <set>
#include <sstream>

#include "examples.h"
#include "random_drawing.h"
#include "reading.h"
#include "tree_difference.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/element_factory.h"

namespace {

/// Writes with so many digits: 17 are enough for every double.
std::string xmlOf(const vantry::plot::PlotDocument& document, int digits) {
  std::ostringstream out;
  out.precision(digits);
  document.writeXml(out);
  return out.str();
}

class RoundTrip : public AllLettersTest {
 protected:
  static void expectReadable(vantry::plot::PlotDocument& document) {
    Reading exact(xmlOf(document, 17), false);
    ASSERT_EQ(exact.code(), 0) << exact.complaints();
    ASSERT_EQ(exact.failures(), 0);
    EXPECT_EQ(exact.complaints(), "");
    EXPECT_EQ(differenceOf(*document.documentElement(), *exact.document().documentElement()), "");

    const std::string rounded = xmlOf(document, 6);
    EXPECT_EQ(xmlOf(Reading(rounded, false).document(), 6), rounded);
  }
};

class RoundTripOfAnExample : public RoundTrip, public testing::WithParamInterface<std::string> {};

TEST_P(RoundTripOfAnExample, GivesTheSameTree) {
  Reading reading(exampleNamed(GetParam()), false);
  ASSERT_EQ(reading.code(), 0);
  expectReadable(reading.document());
}

INSTANTIATE_TEST_SUITE_P(All, RoundTripOfAnExample, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

TEST_F(RoundTrip, OfGeneratedDrawingsGivesTheSameTree) {
  std::set<std::string> names;
  for (unsigned seed = 1; seed <= 30; ++seed) {
    SCOPED_TRACE(seed);
    RandomDrawing drawing(seed);
    expectReadable(drawing.document());
    vantry::dom::walkSubtree<vantry::dom::Node>(*drawing.document().documentElement(),
                                                [&](vantry::dom::Node& node) {
                                                  names.insert(node.nodeName().str());
                                                  return true;
                                                });
  }
  for (const vantry::plot::Token name : vantry::plot::elementNames()) {
    EXPECT_TRUE(names.count(name.str())) << name.str() << " was in no drawing";
  }
}

}  // namespace
