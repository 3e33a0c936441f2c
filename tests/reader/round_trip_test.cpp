// What is written can be read again.
#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "SRC/element_factory.h"
#include "dom/tree_walk.h"
#include "random_drawing.h"
#include "reading.h"
#include "tree_difference.h"

namespace {

namespace fs = std::filesystem;

/// Writes with so many digits: 17 are enough for every double.
std::string xmlOf(const PlotDom::PlotDocument& document, int digits) {
  std::ostringstream out;
  out.precision(digits);
  document.writeXml(out);
  return out.str();
}

class RoundTrip : public testing::Test {
 protected:
  RoundTrip() : localeBefore_(std::setlocale(LC_CTYPE, nullptr)) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
  }
  ~RoundTrip() override { std::setlocale(LC_CTYPE, localeBefore_.c_str()); }

  static void expectReadable(PlotDom::PlotDocument& document) {
    Reading exact(xmlOf(document, 17), false);
    ASSERT_EQ(exact.code(), 0) << exact.complaints();
    ASSERT_EQ(exact.failures(), 0);
    EXPECT_EQ(exact.complaints(), "");
    EXPECT_EQ(differenceOf(*document.documentElement(), *exact.document().documentElement()), "");

    const std::string rounded = xmlOf(document, 6);
    EXPECT_EQ(xmlOf(Reading(rounded, false).document(), 6), rounded);
  }

 private:
  std::string localeBefore_;
};

class RoundTripOfAnExample : public RoundTrip, public testing::WithParamInterface<fs::path> {};

std::vector<fs::path> examples() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(VANTRY_SOURCE_DIR) / "examples")) {
    if (entry.path().extension() == ".zrd") files.push_back(entry.path());
  }
  return files;
}

TEST_P(RoundTripOfAnExample, GivesTheSameTree) {
  std::ifstream in(GetParam(), std::ios::binary);
  Reading reading(std::string{std::istreambuf_iterator<char>(in), {}}, false);
  ASSERT_EQ(reading.code(), 0);
  expectReadable(reading.document());
}

INSTANTIATE_TEST_SUITE_P(All, RoundTripOfAnExample, testing::ValuesIn(examples()),
                         [](const auto& test) { return test.param.stem().string(); });

TEST_F(RoundTrip, OfGeneratedDrawingsGivesTheSameTree) {
  std::set<std::string> names;
  for (unsigned seed = 1; seed <= 30; ++seed) {
    SCOPED_TRACE(seed);
    RandomDrawing drawing(seed);
    expectReadable(drawing.document());
    Arbor::walkSubtree<Arbor::Node>(*drawing.document().documentElement(), [&](Arbor::Node& node) {
      names.insert(node.nodeName().str());
      return true;
    });
  }
  for (const PlotDom::Token name : PlotDom::elementNames()) {
    EXPECT_TRUE(names.count(name.str())) << name.str() << " was in no drawing";
  }
}

}  // namespace
