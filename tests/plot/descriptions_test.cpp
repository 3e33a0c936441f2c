// Every element and every property that an element takes is described, and nothing else is.
#include "vantry/plot/metadata/descriptions.h"

#include <cctype>
#include <set>
#include <string>

#include "plot_test.h"
#include "vantry/base/vocabulary.h"
#include "vantry/plot/element_factory.h"

namespace vantry::plot::test {
namespace {

/// A row of the table. The token of what the row does not name is null.
struct Row {
  Token element;
  Token property;
  std::string text;
};

const Row rows[] = {
#define ELEMENT(element, text) {Word::element, Token(), text},
#define PROPERTY(property, text) {Token(), Word::property, text},
#define PROPERTY_OF(element, property, text) {Word::element, Word::property, text},
#include "vantry/plot/metadata/descriptions.def"
};

std::string nameOf(const Row& row) {
  std::string name = row.element ? row.element.str() : "";
  if (row.property) name.append(1, '.').append(row.property.str());
  return name;
}

std::set<Token> allElements() {
  std::set<Token> names = {Word::P2, Word::P3};
  for (const Token name : elementNames()) names.insert(name);
  return names;
}

class Descriptions : public PlotTest {
 protected:
  /// The properties of an element class.
  std::set<Token> propertiesOf(Token element) {
    std::set<Token> names;
    const Ref<PlotElement> sample = make(element);
    for (int id = 1; id <= base::wordCount; ++id) {
      if (sample->findProperty(base::tokenById(id))) names.insert(base::tokenById(id));
    }
    return names;
  }

  /// All properties of all classes.
  std::set<Token> allProperties() {
    std::set<Token> names;
    for (const Token element : elementNames()) names.merge(propertiesOf(element));
    return names;
  }
};

TEST_F(Descriptions, SayWhatEachElementIs) {
  for (const Token element : allElements()) {
    EXPECT_NE(elementDescription(element), "") << element.str();
  }
}

TEST_F(Descriptions, SayWhatEachPropertyOfEachElementMeans) {
  std::size_t count = 0;
  for (const Token element : elementNames()) {
    for (const Token property : propertiesOf(element)) {
      EXPECT_NE(propertyDescription(element, property), "")
          << element.str() << '.' << property.str();
      ++count;
    }
  }
  EXPECT_GT(count, 800U);
}

TEST_F(Descriptions, PreferWhatIsSaidOfTheElement) {
  EXPECT_EQ(propertyDescription(Word::Camera, Word::Position),
            "The point from which the scene is seen.");
  EXPECT_EQ(propertyDescription(Word::Pt2d, Word::Position),
            "The point at which the element is drawn.");
}

TEST_F(Descriptions, KnowNothingOfOtherNames) {
  for (const Token name : {Token(), Word::Rainbow, token("Mesh3D")}) {
    EXPECT_EQ(elementDescription(name), "");
    EXPECT_EQ(propertyDescription(Word::Mesh3d, name), "");
  }
  EXPECT_EQ(elementDescription(Word::LineWidth), "");
  EXPECT_EQ(propertyDescription(Word::Mesh3d, Word::Mesh3d), "");
}

TEST_F(Descriptions, AreOnlyOfWhatThereIs) {
  const std::set<Token> elements = allElements();
  const std::set<Token> properties = allProperties();
  for (const Row& row : rows) {
    if (!row.property) {
      EXPECT_TRUE(elements.contains(row.element)) << nameOf(row);
    } else if (!row.element) {
      EXPECT_TRUE(properties.contains(row.property)) << nameOf(row);
    } else {
      EXPECT_TRUE(propertiesOf(row.element).contains(row.property)) << nameOf(row);
    }
  }
}

TEST_F(Descriptions, AreThereOnceEach) {
  std::set<std::string> names;
  for (const Row& row : rows) EXPECT_TRUE(names.insert(nameOf(row)).second) << nameOf(row);
}

TEST_F(Descriptions, OfOneElementDifferFromTheGeneralOnes) {
  for (const Row& row : rows) {
    if (!row.element || !row.property) continue;
    EXPECT_NE(propertyDescription(Token(), row.property), "") << nameOf(row);
    EXPECT_NE(propertyDescription(Token(), row.property), row.text) << nameOf(row);
  }
}

TEST_F(Descriptions, AreShortSentences) {
  for (const Row& row : rows) {
    ASSERT_GE(row.text.size(), 10U) << nameOf(row);
    EXPECT_LE(row.text.size(), 80U) << nameOf(row);
    EXPECT_TRUE(std::isupper(static_cast<unsigned char>(row.text.front()))) << nameOf(row);
    EXPECT_EQ(row.text.back(), '.') << nameOf(row);
    EXPECT_EQ(row.text.find('\n'), std::string::npos) << nameOf(row);
    EXPECT_EQ(row.text.find("  "), std::string::npos) << nameOf(row);
  }
}

}  // namespace
}  // namespace vantry::plot::test
