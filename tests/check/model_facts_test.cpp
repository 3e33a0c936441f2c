#include "vantry/check/model_facts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

namespace Word = vantry::base::Word;
using namespace vantry::check;

std::vector<std::string> namesOf(const std::vector<Token>& tokens) {
  std::vector<std::string> names;
  for (const Token token : tokens) names.emplace_back(token.str());
  return names;
}

using Names = std::vector<std::string>;

TEST(ModelFacts, SayWhatAnElementTakes) {
  EXPECT_EQ(namesOf(factsOf(Word::Scene2d)->childNames()),
            (Names{"CoordinateSystem2d", "CoordinateSystem2dStyle", "Footer", "Header", "ObjStyle",
                   "View2d"}));
  EXPECT_EQ(namesOf(factsOf(Word::Mesh3d)->childNames()), Names{"P3"});
  EXPECT_EQ(namesOf(factsOf(Word::Pts2d)->childNames()), Names{"P2"});
  EXPECT_EQ(namesOf(factsOf(Word::Sphere)->childNames()), Names{});
  EXPECT_EQ(namesOf(factsOf(Word::ExprSeq)->childNames()), Names{"IExpr"});
  EXPECT_EQ(namesOf(factsOf(Word::TickPos)->childNames()), (Names{"Title", "VExpr"}));
  EXPECT_EQ(namesOf(factsOf(Word::Matrix2d)->childNames()), Names{"IExpr"});
  EXPECT_EQ(namesOf(factsOf(Word::Group3d)->childNames()),
            (Names{"Group3d", "Obj3d", "ObjStyle", "Transform3d"}));
}

TEST(ModelFacts, SayWhereAnElementIs) {
  EXPECT_EQ(namesOf(factsOf(Word::Mesh3d)->parents), Names{"Img3d"});
  EXPECT_EQ(namesOf(factsOf(Word::P2)->parents), (Names{"Field2d", "Poly2d", "Pts2d"}));
  EXPECT_EQ(namesOf(factsOf(Word::Canvas)->parents), Names{});
  EXPECT_EQ(factsOf(Word::Solid), nullptr);
}

TEST(ModelFacts, SayHowOften) {
  const auto isSingle = [](Token parent, Token child) {
    const auto& children = factsOf(parent)->children;
    return std::ranges::find(children, child, &ChildFacts::name)->isSingle;
  };
  EXPECT_TRUE(isSingle(Word::Canvas, Word::TimeRange));
  EXPECT_TRUE(isSingle(Word::Scene3d, Word::ClippingBox));
  EXPECT_FALSE(isSingle(Word::Canvas, Word::Scene2d));
  EXPECT_FALSE(isSingle(Word::Img3d, Word::Sphere));
  EXPECT_FALSE(isSingle(Word::Pts2d, Word::P2));
  EXPECT_FALSE(isSingle(Word::Matrix2d, Word::IExpr));
  EXPECT_TRUE(isSingle(Word::TickPos, Word::VExpr));
  EXPECT_TRUE(isSingle(Word::TickPos, Word::Title));
}

TEST(ModelFacts, SayWhatMustBeGiven) {
  EXPECT_EQ(namesOf(factsOf(Word::Obj2d)->required), Names{"Type"});
  EXPECT_EQ(namesOf(factsOf(Word::Expr)->required), Names{"Opt"});
  EXPECT_EQ(namesOf(factsOf(Word::Prop)->required), (Names{"Opt", "Val"}));
  EXPECT_EQ(namesOf(factsOf(Word::Sphere)->required), Names{});
}

TEST(ModelFacts, KnowTheClassesOfADocument) {
  const auto classes = documentClasses();
  const auto has = [&](Token name) {
    return std::ranges::any_of(classes,
                               [=](const ClassFacts* facts) { return facts->name == name; });
  };
  EXPECT_EQ(classes.front()->name, Word::Canvas);
  EXPECT_TRUE(has(Word::P3));
  EXPECT_TRUE(has(Word::IExpr));
  EXPECT_FALSE(has(Word::Solid)) << "it is no element";
}

TEST(ModelFacts, PutTypesIntoWords) {
  const auto typeOf = [](Token element, Token property) {
    return typeInWords(*factsOf(element)->property(property));
  };
  EXPECT_EQ(typeOf(Word::Poly2d, Word::LineColor), "a colour as #RRGGBB or #RRGGBBAA");
  EXPECT_EQ(typeOf(Word::Poly2d, Word::LineWidth), "a length above 0, in millimetres");
  EXPECT_EQ(typeOf(Word::Canvas, Word::Spacing), "a length of at least 0, in millimetres");
  EXPECT_EQ(typeOf(Word::Mesh3d, Word::UMesh), "a whole number of at least 1");
  EXPECT_EQ(typeOf(Word::Mesh3d, Word::Shading), "one of Flat or Smooth");
  EXPECT_EQ(typeOf(Word::Text2d, Word::VerticalAlignment),
            "one of Top, BaseLine, Center or Bottom");
  EXPECT_EQ(defaultText(*factsOf(Word::Poly2d)->property(Word::LineColor)), "#000000");
  EXPECT_EQ(defaultText(*factsOf(Word::Img2d)->property(Word::Param)), "nan");
}

// A new kind of field needs its words.
TEST(ModelFacts, KnowTheKindOfEachProperty) {
  for (const ClassFacts* facts : documentClasses()) {
    for (const Property* property : facts->properties) {
      const bool isAnyWord = typeInWords(*property) == "a word";
      EXPECT_TRUE(!isAnyWord || property->editorWord() == Word::Token)
          << facts->name.str() << '@' << property->name().str();
    }
  }
}

}  // namespace
