// The page of each example.

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "../javaview/conversion.h"
#include "../reader/examples.h"
#include "read_page.h"
#include "vantry/javaview/jvd_writer.h"

namespace vantry::page {

namespace {

std::vector<std::string> documents() {
  std::vector<std::string> names;
  for (const std::string folder : {"examples/", "docs/examples/"}) {
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder / folder)) {
      if (entry.path().extension() == ".zrd")
        names.push_back(folder + entry.path().stem().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string undated(const std::string& text) {
  return std::regex_replace(text, std::regex("<meta date=\"[^\"]*\"/>"), "");
}

std::int64_t geometriesIn(const std::string& model) {
  std::int64_t count = 0;
  for (std::size_t at = 0; (at = model.find("<geometry>", at)) != model.npos; ++at) ++count;
  return count;
}

class PageOfExample : public AllLettersTest, public testing::WithParamInterface<std::string> {};

TEST_P(PageOfExample, HoldsTheModelAndTheDisplay) {
  const std::string document = contentOf(sourceFolder / (GetParam() + ".zrd"));
  const ReadPage page = pageOf(document, {.framesPerUnit = 2});
  ASSERT_TRUE(page.isWhole);
  const std::vector<double> still = {plot::nan};
  const auto times = page.text.value("/animation/times"_json_pointer, still);
  for (std::size_t frame = 0; frame < times.size(); ++frame) {
    const javaview::Conversion<javaview::JVXWriter> model(document, times[frame]);
    const javaview::Conversion<javaview::JVDWriter> display(document, times[frame]);
    EXPECT_EQ(undated(page.block(0, frame, "model")), undated(model.text));
    EXPECT_EQ(undated(page.block(0, frame, "display")), undated(display.text));
    std::int64_t counted = 0;
    for (const auto& run : page.runs(0, frame)) {
      EXPECT_LT(run.at("object"), page.panel(0).at("objects").size());
      counted += run.at("count").get<std::int64_t>();
    }
    EXPECT_EQ(counted, geometriesIn(model.text));
  }
}

INSTANTIATE_TEST_SUITE_P(All, PageOfExample, testing::ValuesIn(documents()), [](const auto& test) {
  return std::regex_replace(test.param, std::regex("[^A-Za-z0-9]"), "_");
});

}  // namespace

}  // namespace vantry::page
