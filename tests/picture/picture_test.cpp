// The command picture, as a process, with a real browser.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "../zrd_command.h"

namespace {

namespace fs = std::filesystem;

const fs::path source = VANTRY_SOURCE_DIR;

/// The size that the head of a PNG names, as "width x height", and its colour type.
struct PngHead {
  explicit PngHead(const std::string& png) {
    if (png.size() < 26 || !png.starts_with("\x89PNG")) return;
    const auto number = [&png](std::size_t at) {
      unsigned value = 0;
      for (std::size_t i = at; i < at + 4; ++i) {
        value = value << 8 | static_cast<unsigned char>(png[i]);
      }
      return std::to_string(value);
    };
    size = number(16) + " x " + number(20);
    hasAlpha = png[25] == 6;
  }
  std::string size;
  bool hasAlpha = false;
};

class PictureTest : public ZrdCommandTest {
 protected:
  PictureTest() : ZrdCommandTest("picture") {}
};

const std::string surface = source / "docs/examples/surface.zrd";

TEST_F(PictureTest, HasTheSizeThatIsAskedFor) {
  const Outcome outcome = command({surface, "-o", "a.png", "--size", "320x200", "--scale", "1.5"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(PngHead(read("a.png")).size, "480 x 300");
  EXPECT_FALSE(PngHead(read("a.png")).hasAlpha);
  EXPECT_EQ(files(), "a.png");
}

TEST_F(PictureTest, MayBeTransparentAndGoToStandardOutput) {
  const Outcome outcome = command({surface, "-o", "-", "--size", "100x100", "--transparent"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(PngHead(outcome.out).size, "100 x 100");
  EXPECT_TRUE(PngHead(outcome.out).hasAlpha);
}

TEST_F(PictureTest, LeavesNothingBehind) {
  fs::create_directory(folder_.path() / "tmp");
  setEnvironment("TMPDIR", folder_.path() / "tmp");
  EXPECT_EQ(command({surface, "-o", "a.png", "--size", "100x100"}).status, 0);
  EXPECT_TRUE(fs::is_empty(folder_.path() / "tmp"));
}

TEST_F(PictureTest, NamesTheBrowserThatIsMissing) {
  setEnvironment("VANTRY_BROWSER", "./nothing");
  const Outcome outcome = command({surface, "-o", "a.png"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zrd: ./nothing cannot be started: install the Debian package chromium, or let the "
            "variable VANTRY_BROWSER name the program\n");
  EXPECT_FALSE(exists("a.png"));
}

TEST_F(PictureTest, NamesTheBrowserThatFails) {
  setEnvironment("VANTRY_BROWSER", "false");
  const Outcome outcome = command({surface, "-o", "a.png"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_TRUE(outcome.err.starts_with("zrd: false cannot draw the plot: it has ended (run it"))
      << outcome.err;
  EXPECT_FALSE(exists("a.png"));
}

TEST_F(PictureTest, LooksForChromiumAndChrome) {
  setEnvironment("PATH", "");
  const Outcome outcome = command({surface, "-o", "a.png"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_TRUE(outcome.err.starts_with("zrd: neither Chromium nor Chrome was found: "))
      << outcome.err;
}

TEST_F(PictureTest, NamesThePlotThatCannotBeShown) {
  write("bad.zrd", "<Canvas>");
  EXPECT_EQ(errorOf({"bad.zrd", "-o", "a.png"}, 2),
            "zrd: bad.zrd:1:9: not well-formed XML" + wayOut);
}

/// The program fails if the page says anything that is wrong.
class PictureOfExample : public PictureTest, public testing::WithParamInterface<std::string> {};

TEST_P(PictureOfExample, IsDrawnWithoutAComplaint) {
  const Outcome outcome =
      command({source / "examples" / (GetParam() + ".zrd"), "-o", "a.png", "--size", "160x120"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(PngHead(read("a.png")).size, "160 x 120");
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, PictureOfExample,
                         testing::Values("annotations2d", "axes_boxed_3d_grid", "camera_animated",
                                         "curves2d", "density_arrays", "lights_explicit",
                                         "surface_animated", "texts2d", "vector_field3d"),
                         [](const auto& test) { return test.param; });

}  // namespace
