#include "vantry/check/names.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>
#include <vector>

#include "vantry/base/vocabulary.h"

namespace {

namespace Word = vantry::base::Word;
using vantry::base::Token;
using vantry::check::listOf;
using vantry::check::nearestName;
using vantry::check::question;

constexpr std::array names = {Word::Mesh3d,    Word::Line2d,     Word::Line3d,
                              Word::LineColor, Word::LineColor2, Word::Position};

TEST(NearestName, CountsTheCaseOfLettersLeast) {
  EXPECT_EQ(nearestName("Mesh3D", names), "Mesh3d");
  EXPECT_EQ(nearestName("LINE3D", names), "Line3d");
}

TEST(NearestName, KnowsLettersThatAreMissingSwappedOrTooMany) {
  EXPECT_EQ(nearestName("Positon", names), "Position");
  EXPECT_EQ(nearestName("Posiiton", names), "Position");
  EXPECT_EQ(nearestName("Possition", names), "Position");
  EXPECT_EQ(nearestName("LineColour", names), "LineColor");
  EXPECT_EQ(nearestName("LineColour2", names), "LineColor2");
}

TEST(NearestName, IsNoneWhereNothingIsNear) {
  EXPECT_EQ(nearestName("Surface", names), "");
  EXPECT_EQ(nearestName("", names), "");
  EXPECT_EQ(nearestName(std::string(1'000'000, 'x'), names), "");
}

TEST(ListOf, IsAPartOfASentence) {
  EXPECT_EQ(listOf(std::vector<Token>()), "");
  EXPECT_EQ(listOf(std::array{Word::Flat}), "Flat");
  EXPECT_EQ(listOf(std::array{Word::Flat, Word::Smooth}, "or"), "Flat or Smooth");
  EXPECT_EQ(listOf(std::array{Word::Top, Word::Center, Word::Bottom}), "Top, Center and Bottom");
  EXPECT_EQ(listOf(std::vector<std::string_view>{"jvx", "jvd", "both"}, "or"), "jvx, jvd or both");
}

TEST(Question, IsAskedForANameThatWasFound) {
  EXPECT_EQ(question("Mesh3d"), "did you mean Mesh3d?");
  EXPECT_EQ(question(""), "");
}

}  // namespace
