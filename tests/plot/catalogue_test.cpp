// Every class and every property of it, against the tables in catalogue.cpp.
#include "catalogue.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <set>

#include "../locale_guard.h"
#include "plot_test.h"
#include "vantry/base/vocabulary.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/framework/resolved.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot::test {
namespace {

/// The default in a form that can be compared: as a variant of the type that the property has.
Variant defaultOf(const ExpectedProperty& expected) {
  const std::string text = expected.defaultText;
  const bool isNone = text == "none";
  double x = 0;
  double y = 0;
  double z = 0;
  switch (expected.type) {
    case boolean:
      return BoolVariant(text == "true");
    case integer:
      return LongVariant(std::stoi(text));
    case real:
      return DoubleVariant(text == "NaN" ? plot::nan : std::stod(text));
    case word:
      return TokenVariant(isNone ? Token() : token(text));
    case ValueType::text:
      return FixedStringVariant(nullptr);
    case color:
      return RGBAVariant(
          RGBA(0xFF000000U | static_cast<std::uint32_t>(std::stoul(text.substr(1), nullptr, 16))));
    case p2:
      std::sscanf(expected.defaultText, "(%lf, %lf)", &x, &y);
      return P2Variant({x, y});
    case p3:
      std::sscanf(expected.defaultText, "(%lf, %lf, %lf)", &x, &y, &z);
      return P3Variant({x, y, z});
    case font:
      return FontStyleVariant(FontStyle::standard());
  }
  return {};
}

/// Equal, where two null texts count as equal too.
bool isSameValue(const Variant& a, const Variant& b) {
  const auto textA = a.as<FixedStringVariant>();
  const auto textB = b.as<FixedStringVariant>();
  if (textA && textB) return textA->get() == textB->get();
  return a == b;
}

/// A text that every property of the type takes, and that is not its default.
const char* someText(ValueType type) {
  switch (type) {
    case boolean:
      return "1";
    case integer:
      return "7";
    case real:
      return "0.75";
    case word:
      return "Wobbly";
    case text:
      return "a text";
    case color:
      return "#010203";
    case p2:
      return "5 6";
    case p3:
      return "5 6 7";
    case font:
      return "Courier 17";
  }
  return "";
}

class CatalogueTest : public PlotTest {
  LocaleGuard numbers_{LC_NUMERIC, "C"};  // for the texts of the expected values

 protected:
  /// Calls `check(element, expected)` for every property of every class, with a new element.
  void forEachProperty(
      const std::function<void(PlotElement& element, const ExpectedProperty& expected)>& check) {
    for (const auto& [elementClass, lists] : listsOfClass) {
      for (const auto& [name, expected] : expectedProperties(elementClass)) {
        SCOPED_TRACE(elementClass + "." + name);
        check(*make(token(elementClass)), expected);
      }
    }
  }
};

std::uint32_t setBitsOf(const PlotElement& element) {
  const auto* members = dynamic_cast<const MemberValues*>(&element);
  return members ? members->setBits : 0;
}

bool isMember(const ExpectedProperty& expected) { return expected.place == inMember; }

TEST_F(CatalogueTest, TheFactoryMakesTheClassOfEachNameAndNothingElse) {
  const std::set<std::string> names(expectedElements.begin(), expectedElements.end());
  for (const Token word : base::wordTokens) {
    const Ref<PlotElement> element = make(word);
    const bool isExpected = word && names.count(word.str()) != 0;
    ASSERT_EQ(static_cast<bool>(element), isExpected) << (word ? word.str() : "null");
    if (!element) continue;
    EXPECT_EQ(element->tagName(), word);
    EXPECT_EQ(element->nodeName(), word);
    EXPECT_EQ(element->ownerDocument(), document.get());
    EXPECT_EQ(element->parent(), nullptr);
    EXPECT_FALSE(element->isInDocument());
    EXPECT_EQ(element->refCount(), 1U) << "the only reference is that of this test";
  }
  EXPECT_EQ(document->createElement(token("Canva")), nullptr);
  EXPECT_EQ(elementNames().size(), expectedElements.size());
}

TEST_F(CatalogueTest, EachClassHasItsPropertiesAndNoOthers) {
  const std::set<std::string> valueClasses = {
      "VExpr",          "AxesOriginX",    "AxesOriginY",    "AxesOriginZ",    "ParameterBegin",
      "ParameterEnd",   "XTicksAnchor",   "XTicksDistance", "YTicksAnchor",   "YTicksDistance",
      "ZTicksAnchor",   "ZTicksDistance", "ViewingBoxXMin", "ViewingBoxXMax", "ViewingBoxYMin",
      "ViewingBoxYMax", "ViewingBoxZMin", "ViewingBoxZMax"};
  const std::set<std::string> optionClasses = {"Expr", "ExprSeq", "ColorFunc"};

  for (const std::string& elementClass : expectedElements) {
    const Ref<PlotElement> element = make(token(elementClass));
    auto expected = expectedProperties(elementClass);
    if (valueClasses.count(elementClass)) expected["Val"] = {};
    if (optionClasses.count(elementClass)) expected["Opt"] = {};
    for (const Token word : base::wordTokens) {
      if (!word) continue;
      const Property* property = element->findProperty(word);
      EXPECT_EQ(property != nullptr, expected.count(word.str()) != 0)
          << elementClass << "." << word.str();
      EXPECT_EQ(element->hasProperty(word), property != nullptr);
      EXPECT_TRUE(!property || property->name() == word);
    }
  }
  EXPECT_EQ(takeComplaints(), "");
}

// The reader takes those words as attributes that the vocabulary marks.
TEST_F(CatalogueTest, TheVocabularyMarksThePropertiesAsAttributes) {
  const std::set<Token> ofNoClass = {Word::Point1, Word::Point2};  // read, and kept by no element
  std::set<Token> properties;
  for (const Token name : elementNames()) {
    const Ref<PlotElement> element = make(name);
    for (const Token word : base::wordTokens) {
      if (word && element->findProperty(word)) properties.insert(word);
    }
  }
  for (const Token word : base::wordTokens) {
    if (!word) continue;
    EXPECT_EQ(base::isAttributeWord(base::wordOf(word)),
              properties.count(word) != 0 || ofNoClass.count(word) != 0)
        << "whether " << word.str() << " is an ATTRIBUTE in base/vocabulary.def";
  }
}

TEST_F(CatalogueTest, EachMemberHasABitOfItsOwn) {
  for (const auto& [elementClass, lists] : listsOfClass) {
    std::uint32_t used = 0;
    for (const auto& [name, expected] : expectedProperties(elementClass)) {
      if (!isMember(expected)) continue;
      SCOPED_TRACE(elementClass + "." + name);
      const Ref<PlotElement> element = make(token(elementClass));
      element->doRemoveAttribute(token(name));  // a mandatory one too
      const std::uint32_t before = setBitsOf(*element);
      element->setAttributeFromString(token(name), someText(expected.type));
      const std::uint32_t bit = setBitsOf(*element) & ~before;
      EXPECT_TRUE(std::has_single_bit(bit));
      EXPECT_EQ(used & bit, 0U);
      used |= bit;
    }
  }
}

TEST_F(CatalogueTest, KindTypeAndDefault) {
  forEachProperty([](PlotElement& element, const ExpectedProperty& expected) {
    const Property& property = *element.findProperty(token(expected.name));
    EXPECT_EQ(property.isInherited(), expected.kind == inherited);
    EXPECT_EQ(property.isMandatory(), expected.kind == mandatory);
    EXPECT_EQ(element.canRemoveAttribute(property.name()), expected.kind != mandatory);
    EXPECT_TRUE(element.isWritableProperty(property.name()));

    const Variant expectedDefault = defaultOf(expected);
    EXPECT_EQ(property.defaultVariant().type(), expectedDefault.type());
    EXPECT_TRUE(isSameValue(property.defaultVariant(), expectedDefault));
  });
}

TEST_F(CatalogueTest, ANewElementHoldsTheDefaultsOfWhatIsNotInherited) {
  forEachProperty([](PlotElement& element, const ExpectedProperty& expected) {
    const Token name = token(expected.name);
    EXPECT_EQ(element.hasAttribute(name), expected.kind == mandatory && isMember(expected));
    if (!isMember(expected)) return;
    const Variant value = element.getPropertyValue(name);
    if (expected.kind != inherited) {
      EXPECT_TRUE(isSameValue(value, defaultOf(expected)));
    } else if (expected.type == word) {
      EXPECT_EQ(value, TokenVariant(Token())) << "until it is attached";
    }
  });
}

TEST_F(CatalogueTest, AnElementOutsideOfAnObjectGetsTheDefaultsOfWhatIsInherited) {
  forEachProperty([](PlotElement& element, const ExpectedProperty& expected) {
    if (expected.kind != inherited) return;
    element.attachedToDocument();
    EXPECT_TRUE(isSameValue(element.getPropertyValue(token(expected.name)), defaultOf(expected)));
    EXPECT_FALSE(element.hasAttribute(token(expected.name)));
  });
}

TEST_F(CatalogueTest, SettingAPropertySetsNoOther) {
  forEachProperty([](PlotElement& element, const ExpectedProperty& expected) {
    const Token name = token(expected.name);
    const std::uint32_t before = setBitsOf(element);
    const bool isSetBefore = isMember(expected) && expected.kind == mandatory;
    EXPECT_EQ(element.hasAttribute(name), isSetBefore);

    element.setAttributeFromString(name, someText(expected.type));
    EXPECT_EQ(std::popcount(setBitsOf(element) ^ before),
              isMember(expected) && !isSetBefore ? 1 : 0);
    EXPECT_TRUE(element.hasAttribute(name));
    const Property& property = *element.findProperty(name);
    EXPECT_EQ(property.isSet(element), isMember(expected));
    Variant out;
    EXPECT_EQ(property.getIfSet(element, out), isMember(expected));
    if (isMember(expected)) {
      EXPECT_EQ(out, property.getValue(element));
    }
    EXPECT_EQ(out.isEmpty(), !isMember(expected));
    EXPECT_EQ(element.getAttribute(name), element.getPropertyValue(name));

    const int code = codeOf([&] { element.removeAttribute(name); });
    EXPECT_EQ(code, expected.kind == mandatory ? DomException::HierarchyRequest : 0);
    EXPECT_EQ(element.hasAttribute(name), expected.kind == mandatory);
    EXPECT_EQ(setBitsOf(element), before);
  });
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(CatalogueTest, ATextIsReadAndWrittenBack) {
  forEachProperty([](PlotElement& element, const ExpectedProperty& expected) {
    const Token name = token(expected.name);
    element.setAttributeFromString(name, someText(expected.type));
    if (std::string(expected.rule) == "IdType") {
      EXPECT_EQ(valueOf(element, name), "") << "an id is never written";
    } else if (expected.type == font) {
      EXPECT_EQ(valueOf(element, name), "'Courier' 17 #000000 Left");
    } else {
      EXPECT_EQ(valueOf(element, name), someText(expected.type));
    }
  });
}

TEST_F(CatalogueTest, AValueOfAnotherKindIsRefused) {
  forEachProperty([this](PlotElement& element, const ExpectedProperty& expected) {
    const Token name = token(expected.name);
    const Variant wrong = expected.type == integer ? Variant(DoubleVariant(7.0)) : LongVariant(7);
    EXPECT_EQ(codeOf([&] { element.setAttribute(name, wrong); }), DomException::HierarchyRequest);
    EXPECT_EQ(takeComplaints(),
              "PlotDom error: illegal value [attribute '" + std::string(expected.name) + "']\n");
  });
}

TEST_F(CatalogueTest, ATextThatDoesNotParseIsRefusedAndTheOldValueStays) {
  forEachProperty([this](PlotElement& element, const ExpectedProperty& expected) {
    if (expected.type == text) return;  // any text parses
    const Token name = token(expected.name);
    element.setAttributeFromString(name, someText(expected.type));
    const Variant before = element.getPropertyValue(name);
    for (const char* bad : {"", expected.type == word ? " \t" : "x", "  "}) {
      EXPECT_EQ(codeOf([&] { element.setAttributeFromString(name, bad); }), DomException::Syntax);
      EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value string [attribute '" +
                                      std::string(expected.name) + "']\n");
    }
    EXPECT_EQ(element.getPropertyValue(name), before);
  });
}

TEST_F(CatalogueTest, AllowedWordsAreListedInOrder) {
  forEachProperty([](PlotElement& element, const ExpectedProperty& expected) {
    std::string rule = expected.rule;
    if (rule == "TypeType") rule += " of " + std::string(element.tagName().str());
    const auto found = expectedWords.find(rule);
    const auto words = found == expectedWords.end() ? std::vector<std::string>() : found->second;
    const auto allowed = element.findProperty(token(expected.name))->allowedWords();
    ASSERT_EQ(allowed.size(), words.size());
    for (std::size_t i = 0; i < words.size(); ++i) EXPECT_EQ(allowed[i].str(), words[i]);
  });
}

// A settled property of the format: a document with an unknown keyword loads.
TEST_F(CatalogueTest, AnyWordIsAcceptedForAnEnumeration) {
  forEachProperty([this](PlotElement& element, const ExpectedProperty& expected) {
    if (expected.type != word) return;
    const Token name = token(expected.name);
    element.setAttributeFromString(name, "NoSuchKeyword");
    EXPECT_EQ(element.getPropertyValue(name), TokenVariant(token("NoSuchKeyword")));
    EXPECT_TRUE(element.hasAttribute(name));
    EXPECT_EQ(takeComplaints(), "");
  });
}

/// The value as it is stored, or "refused".
std::string outcome(const ExpectedProperty& expected, double value) {
  const std::string rule = expected.rule;
  const auto refusedBelow = [value](double bound) { return value >= bound ? "kept" : "refused"; };
  if (rule == "PosOutputSizeType") return value > 0 ? "kept" : "refused";
  if (rule == "NonNegOutputSizeListType") return refusedBelow(0);
  if (rule == "NonNegOutputSizeType" || rule == "NonNegLengthType") {
    return value < 0 ? "0" : "kept";
  }
  if (rule == "LightIntensityType") return value < 0 ? "0" : value > 1 ? "1" : "kept";
  if (rule == "NonNegLongType") return refusedBelow(0);
  if (rule == "MeshType") return refusedBelow(1);
  return "kept";
}

TEST_F(CatalogueTest, RulesOfNumbers) {
  forEachProperty([this](PlotElement& element, const ExpectedProperty& expected) {
    if (expected.type != real && expected.type != integer) return;
    const Token name = token(expected.name);
    for (const double value : {-3.0, -1.0, -0.5, 0.0, 0.5, 1.0, 2.0, 1e6, plot::nan}) {
      if (expected.type == integer && value != std::floor(value)) continue;
      std::ostringstream given;
      given << (expected.type == integer ? std::floor(value) : value);
      const std::string text =
          expected.type == integer ? std::to_string(static_cast<long>(value)) : given.str();
      const std::string result = outcome(expected, value);
      SCOPED_TRACE(text);

      const int code = codeOf([&] { element.setAttributeFromString(name, text.c_str()); });
      if (result == "refused") {
        EXPECT_EQ(code, DomException::HierarchyRequest);
        EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value [attribute '" +
                                        std::string(expected.name) + "']\n");
      } else {
        EXPECT_EQ(code, 0);
        EXPECT_EQ(takeComplaints(), "");
        EXPECT_EQ(valueOf(element, name), result != "kept"           ? result
                                          : expected.type == integer ? text
                                                                     : given.str());
      }
    }
  });
}

/// Whether the value is printed through the writer's unit.
bool isSize(const ExpectedProperty& expected) {
  return std::string(expected.rule).find("OutputSize") != std::string::npos;
}

TEST_F(CatalogueTest, CommandForm) {
  forEachProperty([](PlotElement& element, const ExpectedProperty& expected) {
    const Token name = token(expected.name);
    element.setAttributeFromString(name, expected.type == real ? "254" : someText(expected.type));
    std::ostringstream out;
    CmdWriter writer(out, Word::In);
    element.findProperty(name)->putCmd(writer, element.getPropertyValue(name));

    std::string value;
    const std::string rule = expected.rule;
    if (rule == "OutputUnitsType") {
      value = "unit::pt";
    } else if (rule == "LightIntensityType") {
      value = "1";
    } else if (isSize(expected)) {
      value = "10";
    } else {
      switch (expected.type) {
        case boolean:
          value = "TRUE";
          break;
        case integer:
          value = "7";
          break;
        case real:
          value = "254";
          break;
        case word:
          value = "Wobbly";
          break;
        case text:
          value = "\"a text\"";
          break;
        case color:
          value = "[0.00392157,0.00784314,0.0117647]";
          break;
        case p2:
          value = "[5,6]";
          break;
        case p3:
          value = "[5,6,7]";
          break;
        case font:
          value = "[\"Courier\",17,[0,0,0],Left]";
          break;
      }
    }
    const bool isHidden = rule == "ConsistentType" || rule == "TypeNameType";
    EXPECT_EQ(out.str(), isHidden ? "" : "  " + std::string(expected.name) + "=" + value);
  });
}

}  // namespace
}  // namespace vantry::plot::test
