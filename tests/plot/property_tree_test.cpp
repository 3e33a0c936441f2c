// The description of properties for a host.
#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <thread>
#include <vector>

#include "catalogue.h"
#include "plot_test.h"
#include "vantry/plot/elements/property_info.h"
#include "vantry/plot/metadata/property_categories.h"
#include "vantry/plot/metadata/property_tree.h"

namespace vantry::plot::test {
namespace {

const std::vector<std::string> categories = {
    "Definition", "Animation",       "Style",      "Annotation",  "Surface",
    "Lines",      "Points",          "Tip",        "Text",        "Layout",
    "Axes",       "Grid Lines",      "Tick Marks", "Calculation", "Asymptotes",
    "Arrow Tips", "Camera && Light", "Arrows"};

const std::set<std::string> editorWords = {"Angle",
                                           "AxisTitleAlignment",
                                           "Bool",
                                           "Color",
                                           "ColorType",
                                           "CoordinateType2d",
                                           "Enum",
                                           "Float",
                                           "FloatOrNaN",
                                           "Font",
                                           "HorAlignment",
                                           "Int",
                                           "Intensity",
                                           "LineStyle",
                                           "NonNegFloat",
                                           "NonNegInt",
                                           "NonNegSize",
                                           "P2",
                                           "P3",
                                           "PosInt",
                                           "PosSize",
                                           "String",
                                           "TicksLabelStyle",
                                           "TicksNumber",
                                           "TitleOrientation",
                                           "Token",
                                           "VertAlignment"};

/// The kind of field for each type of value and each named type.
std::string expectedEditor(const ExpectedProperty& expected) {
  static const std::map<std::string, std::string> byRule = {
      {"AxisTitleAlignmentType", "AxisTitleAlignment"},
      {"ColorType", "ColorType"},
      {"CoordinateType2dType", "CoordinateType2d"},
      {"HorizontalAlignmentType", "HorAlignment"},
      {"LineStyleType", "LineStyle"},
      {"TicksLabelStyleType", "TicksLabelStyle"},
      {"TicksNumberType", "TicksNumber"},
      {"VerticalAlignmentType", "VertAlignment"},
      {"YAxisTitleOrientationType", "TitleOrientation"},
      {"LegendColorType", "Token"},
      {"TypeNameType", "Token"},
      {"PosOutputSizeType", "PosSize"},
      {"NonNegOutputSizeType", "NonNegSize"},
      {"NonNegOutputSizeListType", "NonNegSize"},
      {"NonNegLongType", "NonNegInt"},
      {"MeshType", "PosInt"},
      {"NonNegLengthType", "NonNegFloat"},
      {"LightIntensityType", "Intensity"},
      {"AngleType", "Angle"},
      {"FloatOrNaNType", "FloatOrNaN"},
  };
  const auto found = byRule.find(expected.rule);
  if (found != byRule.end()) return found->second;
  switch (expected.type) {
    case boolean:
      return "Bool";
    case integer:
      return "Int";
    case real:
      return "Float";
    case word:
      return *expected.rule == '\0' ? "Token" : "Enum";
    case text:
      return "String";
    case color:
      return "Color";
    case p2:
      return "P2";
    case p3:
      return "P3";
    case font:
      return "Font";
  }
  return "";
}

std::string textOfString(const base::FixedString& string) {
  return string.c_str() ? string.c_str() : "";
}

class PropertyTreeTest : public PlotTest {
 protected:
  /// The properties that the description of a name holds, by category.
  std::map<std::string, std::vector<const PropInfo*>> propertiesOf(const std::string& name) {
    std::map<std::string, std::vector<const PropInfo*>> result;
    const ObjType* description = propertyInfo(token(name));
    if (!description) return result;
    for (const dom::Node* node = description->firstChild(); node; node = node->nextSibling()) {
      const auto& category = dynamic_cast<const PropCat&>(*node);
      auto& properties = result[textOfString(category.name())];
      EXPECT_TRUE(properties.empty()) << "one category, one element";
      for (const dom::Node* info = category.firstChild(); info; info = info->nextSibling()) {
        properties.push_back(dynamic_cast<const PropInfo*>(info));
      }
      EXPECT_FALSE(properties.empty());
    }
    return result;
  }

  std::map<std::string, const PropInfo*> allPropertiesOf(const std::string& name) {
    std::map<std::string, const PropInfo*> result;
    for (const auto& [category, properties] : propertiesOf(name)) {
      for (const PropInfo* info : properties) {
        EXPECT_TRUE(result.emplace(info->dom().str(), info).second) << info->dom().str();
      }
    }
    return result;
  }
};

TEST_F(PropertyTreeTest, EachClassHasADescriptionOfAllItsProperties) {
  for (const std::string& elementClass : expectedElements) {
    SCOPED_TRACE(elementClass);
    const ObjType* description = propertyInfo(token(elementClass));
    ASSERT_TRUE(description);
    EXPECT_EQ(description->type(), token(elementClass));

    std::set<std::string> expected;
    const Ref<PlotElement> element = make(token(elementClass));
    for (const Token name : base::wordTokens) {
      if (name && element->findProperty(name)) expected.insert(name.str());
    }
    std::set<std::string> described;
    for (const auto& [name, info] : allPropertiesOf(elementClass)) described.insert(name);
    EXPECT_EQ(described, expected);
  }
}

TEST_F(PropertyTreeTest, WhatIsSaidOfEachProperty) {
  for (const auto& [elementClass, lists] : listsOfClass) {
    const auto described = allPropertiesOf(elementClass);
    for (const auto& [name, expected] : expectedProperties(elementClass)) {
      SCOPED_TRACE(elementClass + "." + name);
      ASSERT_TRUE(described.count(name));
      const PropInfo& info = *described.at(name);
      EXPECT_EQ(info.type().str(), expectedEditor(expected));
      EXPECT_TRUE(editorWords.count(info.type().str()));
      EXPECT_NE(base::findWord(info.type().str()), base::WordId::none);

      std::string rule = expected.rule;
      if (rule == "TypeType") rule += " of " + elementClass;
      std::string words;
      if (expectedWords.count(rule)) {
        for (const std::string& allowed : expectedWords.at(rule)) {
          words += (words.empty() ? "" : " ") + allowed;
        }
      }
      EXPECT_EQ(textOfString(info.enumWords()), words);
      EXPECT_EQ(info.hasAttribute(Word::Enum), !words.empty());

      const bool isMesh = name.find("esh") != std::string::npos && name != "MeshVisible";
      const bool isOption = name != "Consistent" && !(name == "Type" && rule == "TypeNameType");
      EXPECT_EQ(info.opt(), isOption ? info.dom() : Token());
      EXPECT_EQ(info.hasAttribute(Word::Opt), isOption);

      // Texts for the user are the host's.
      EXPECT_FALSE(info.hasAttribute(Word::Name));
      EXPECT_FALSE(info.hasAttribute(Word::Info));

      EXPECT_EQ(info.recalc(), isMesh || name == "Frames" || name == "DiscontinuitySearch");
    }
  }
}

TEST_F(PropertyTreeTest, TheCategoriesAreInTheirOrder) {
  std::set<std::string> seen;
  for (const std::string& elementClass : expectedElements) {
    auto next = categories.begin();
    const dom::Node* node = propertyInfo(token(elementClass))->firstChild();
    for (; node; node = node->nextSibling()) {
      const std::string name = textOfString(dynamic_cast<const PropCat&>(*node).name());
      next = std::find(next, categories.end(), name);
      ASSERT_NE(next, categories.end()) << elementClass << ": " << name;
      ++next;
      seen.insert(name);
    }
  }
  EXPECT_EQ(seen, std::set<std::string>(categories.begin(), categories.end())) << "all in use";
}

TEST_F(PropertyTreeTest, EachPropertyHasOneCategory) {
  std::map<Token, std::string> categoryOf;
  for (const CategoryRow& row : propertyCategories()) {
    for (const Token name : row.properties) {
      EXPECT_TRUE(categoryOf.emplace(name, row.category).second) << name.str();
    }
  }
  for (const auto& [list, properties] : expectedLists) {
    for (const ExpectedProperty& property : properties) {
      EXPECT_NE(isOnlyInTheDefinition(token(property.name)),
                categoryOf.count(token(property.name)) != 0)
          << property.name;
    }
  }
  EXPECT_EQ(categoryOf[Word::LineColor], "Lines");
  EXPECT_EQ(categoryOf[Word::Radius], "Definition");
  EXPECT_EQ(categoryOf[Word::SpotAngle], "Camera && Light");
}

TEST_F(PropertyTreeTest, WhatNoCategoryNamesIsTheEndOfTheDefinition) {
  const dom::Node* definition = propertyInfo(Word::PropInfo)->firstChild();
  EXPECT_EQ(textOfString(dynamic_cast<const PropCat&>(*definition).name()), "Definition");
  std::vector<Token> names;
  for (const dom::Node* node = definition->firstChild(); node; node = node->nextSibling()) {
    names.push_back(dynamic_cast<const PropInfo&>(*node).dom());
  }
  EXPECT_EQ(names, (std::vector<Token>{Word::Name, Word::Type, Word::Opt, Word::Dom, Word::Enum,
                                       Word::Info, Word::Recalc}));
}

TEST_F(PropertyTreeTest, ATypeOfObjectHasThePropertiesOfTheClass) {
  const std::pair<const char*, std::vector<std::string>> types[] = {
      {"Obj2d",
       {"Circle2d", "Curve2d", "Ellipse2d", "Function2d", "Hatch", "Implicit2d", "Polygon2d",
        "PrimitiveList2d", "Rectangle", "VectorField2d"}},
      {"Obj3d",
       {"Curve3d", "Function3d", "Implicit3d", "Polygon3d", "PrimitiveList3d", "Surface",
        "VectorField3d"}},
      {"Transform2d", {"Rotate2d", "Scale2d", "Translate2d"}},
      {"Transform3d", {"Rotate3d", "Scale3d", "Translate3d"}},
  };
  for (const auto& [elementClass, names] : types) {
    for (const std::string& name : names) {
      SCOPED_TRACE(name);
      const ObjType* description = propertyInfo(token(name));
      ASSERT_TRUE(description);
      EXPECT_EQ(description->type(), token(name));
      const auto expected = allPropertiesOf(elementClass);
      const auto described = allPropertiesOf(name);
      EXPECT_EQ(described.size(), expected.size());
      for (const auto& [property, info] : expected) EXPECT_TRUE(described.count(property));
    }
  }
}

TEST_F(PropertyTreeTest, ANameOfBothIsTheClass) {
  EXPECT_TRUE(allPropertiesOf("Box").count("XMin"));
  EXPECT_FALSE(allPropertiesOf("Box").count("LegendEntry"));
}

TEST_F(PropertyTreeTest, OtherNamesHaveNone) {
  for (const char* name : {"P2", "LineWidth", "Flat", "Nonsense", ""}) {
    EXPECT_EQ(propertyInfo(token(name)), nullptr) << name;
  }
  EXPECT_EQ(propertyInfo(Token()), nullptr);
}

TEST_F(PropertyTreeTest, ItIsBuiltOnceAndIsADocumentOfItsOwn) {
  const ObjType* description = propertyInfo(Word::Sphere);
  EXPECT_EQ(description, propertyInfo(Word::Sphere));
  EXPECT_NE(description->ownerDocument(), document.get());
  EXPECT_TRUE(description->isInDocument());
}

TEST_F(PropertyTreeTest, AnExample) {
  const auto byCategory = propertiesOf("Sphere");
  ASSERT_EQ(byCategory.size(), 2U);
  const auto& definition = byCategory.at("Definition");
  ASSERT_EQ(definition.size(), 2U);
  EXPECT_EQ(definition[0]->dom(), Word::Center);
  EXPECT_EQ(definition[0]->type(), Word::P3);
  EXPECT_EQ(definition[1]->dom(), Word::Radius);
  EXPECT_EQ(definition[1]->type(), Word::NonNegFloat);
  const auto& surface = byCategory.at("Surface");
  ASSERT_EQ(surface.size(), 2U);
  EXPECT_EQ(surface[0]->dom(), Word::FillColor);
  EXPECT_EQ(surface[0]->type(), Word::Color);
  EXPECT_EQ(surface[1]->dom(), Word::Shading);
  EXPECT_EQ(surface[1]->type(), Word::Enum);
  EXPECT_EQ(textOfString(surface[1]->enumWords()), "Flat Smooth");
  EXPECT_FALSE(surface[1]->recalc());
  EXPECT_EQ(surface[1]->opt(), Word::Shading);
}

TEST(PropertyInfoTree, ThreadsThatAskAtOnceGetTheSameTree) {
  std::array<const ObjType*, 4> found{};
  std::vector<std::thread> threads;
  for (const ObjType*& tree : found) {
    threads.emplace_back([&tree] { tree = plot::propertyInfo(Word::Mesh3d); });
  }
  for (std::thread& thread : threads) thread.join();
  ASSERT_NE(found[0], nullptr);
  for (const ObjType* tree : found) EXPECT_EQ(tree, found[0]);
}

}  // namespace
}  // namespace vantry::plot::test
