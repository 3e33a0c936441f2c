// What the reader would refuse is not written.
#include <functional>
#include <locale>
#include <sstream>

#include "examples.h"
#include "reading.h"
#include "tree_difference.h"
#include "vantry/dom/text.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/framework/point_list.h"
#include "vantry/plot/values/variants.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using vantry::base::Ref;

/// A canvas with a scene and a coordinate system of each dimension, and the parts of a drawing in
/// them. All of it can be written.
class Drawing {
 public:
  explicit Drawing(bool hasRoot = true) {
    if (!hasRoot) return;
    document->appendChild(canvas.get());
    object->setAttributeFromString(Word::Type, "Curve2d");
    object3d->setAttributeFromString(Word::Type, "Surface");
    add(*add(*canvas, scene), system)->appendChild(object.get());
    add(*add(*canvas, make(Word::Scene3d)), system3d)->appendChild(object3d.get());
    object->appendChild(image.get());
    object3d->appendChild(image3d.get());
  }
  ~Drawing() { document->tearDown(); }

  Ref<PlotElement> make(Token name) { return document->createElement(name); }
  PlotElement* add(PlotElement& parent, const Ref<PlotElement>& child) {
    parent.appendChild(child.get());
    return child.get();
  }
  PlotElement* add(PlotElement& parent, Token name) { return add(parent, make(name)); }
  template <class T>
  T& add(PlotElement& parent, Token name) {
    return dynamic_cast<T&>(*add(parent, name));
  }

  /// What would be written without a look at it.
  std::string uncheckedXml() const {
    std::ostringstream out;
    out.precision(17);
    document->dom::Document::writeXml(out);
    return out.str();
  }

  Ref<PlotDocument> document{new PlotDocument};
  Ref<PlotElement> canvas = make(Word::Canvas);
  Ref<PlotElement> scene = make(Word::Scene2d);
  Ref<PlotElement> system = make(Word::CoordinateSystem2d);
  Ref<PlotElement> system3d = make(Word::CoordinateSystem3d);
  Ref<PlotElement> object = make(Word::Obj2d);
  Ref<PlotElement> object3d = make(Word::Obj3d);
  Ref<PlotElement> image = make(Word::Img2d);
  Ref<PlotElement> image3d = make(Word::Img3d);
};

/// Something that the reader refuses, and the last complaint about it.
struct Unreadable {
  const char* name;
  const char* complaint;
  std::function<void(Drawing&)> make;
};

base::TokenVariant word(const char* text) { return Token(text, true); }

/// Puts the children in without a check.
void force(PlotElement& parent, const Ref<PlotElement>& child) {
  parent.doReplaceChildren(nullptr, 0, child.get());
}

// clang-format off
const Unreadable unreadable[] = {
    {"AnObjectWithoutAType", "mandatory property 'Type' missing [node 'Obj2d']",
     [](Drawing& d) { d.add(*d.system, Word::Obj2d); }},
    {"AStyleWithoutAType", "mandatory property 'Type' missing [node 'ObjStyle']",
     [](Drawing& d) { d.add(*d.canvas, Word::ObjStyle); }},
    {"ATransformWithoutAType", "value that cannot be written: the word is empty [attribute 'Type']",
     [](Drawing& d) { d.add(*d.system, Word::Transform2d); }},
    {"AnExpressionWithoutAnOption", "value that cannot be written: the word is empty [attribute 'Opt']",
     [](Drawing& d) { d.add(*d.object, Word::Expr); }},
    {"AListWithoutAnOption", "value that cannot be written: the word is empty [attribute 'Opt']",
     [](Drawing& d) { d.add(*d.object, Word::ExprSeq); }},
    {"APropWithoutAnOption", "value that cannot be written: the word is empty [attribute 'Opt']",
     [](Drawing& d) { d.add(*d.object, Word::Prop); }},
    {"ACategoryWithoutAName", "category without a name [node 'PropCat']",
     [](Drawing& d) {
       PlotElement* type = d.add(*d.canvas, Word::ObjType);
       type->setAttribute(Word::Type, word("Curve2d"));
       d.add(*type, Word::PropCat);
     }},
    {"AWordWithMarkup", "value that cannot be written: the word has a character of markup [attribute 'LineStyle']",
     [](Drawing& d) { d.object->setAttribute(Word::LineStyle, word("a<b")); }},
    {"AMemberWithMarkup", "value that cannot be written: the word has a character of markup [attribute 'PointStyle']",
     [](Drawing& d) { d.add(*d.image, Word::Pt2d)->setAttribute(Word::PointStyle, word("a&b")); }},
    {"AnOptionWithMarkup", "value that cannot be written: the word has a character of markup [attribute 'Opt']",
     [](Drawing& d) { d.add(*d.object, Word::Expr)->setAttribute(Word::Opt, word("\"")); }},
    {"AWordThatIsNoUtf8", "word with characters that XML does not have",
     [](Drawing& d) { d.object->setAttribute(Word::LineStyle, word("\xE4")); }},
    {"ARasterWithoutColours", "colors missing [node 'ColorArray2d']",
     [](Drawing& d) { d.add(*d.image, Word::ColorArray2d); }},
    {"ARasterThatHasGrown", "values missing [node 'DensityArray2d']",
     [](Drawing& d) {
       auto& raster = d.add<DensityArray2d>(*d.image, Word::DensityArray2d);
       raster.values = {1, 2, 3};
       raster.setAttributeFromString(Word::XMesh, "2");
       raster.setAttributeFromString(Word::YMesh, "2");
     }},
    {"TextsAndElementsTogether", "children that cannot be written [node 'Title']",
     [](Drawing& d) {
       PlotElement* title = d.add(*d.object, Word::Title);
       const Ref<dom::Node> fragment(d.document->createDocumentFragment());
       fragment->appendChild(Ref<dom::Node>(d.document->createTextNode("x")).get());
       fragment->appendChild(d.make(Word::Hints).get());
       title->appendChild(fragment.get());
     }},
    {"AChildThatCameInUnchecked", "children that cannot be written [node 'Group2d']",
     [](Drawing& d) { force(*d.add(*d.system, Word::Group2d), d.make(Word::Title)); }},
    {"ALeafWithAChild", "children that cannot be written [node 'Pt2d']",
     [](Drawing& d) { force(*d.add(*d.image, Word::Pt2d), d.make(Word::Pt2d)); }},
    {"APointWithTooManyExpressions", "children that cannot be written [node 'Point2d']",
     [](Drawing& d) {
       PlotElement* point = d.add(*d.add(*d.object, Word::Points2d), Word::Point2d);
       for (int i = 2; i < 7; ++i) force(*point, d.make(Word::IExpr));
     }},
    {"ALightInAGroup", "children that cannot be written [node 'Group3d']",
     [](Drawing& d) {
       const Ref<PlotElement> light = d.make(Word::Obj3d);
       light->setAttribute(Word::Type, word("PointLight"));
       force(*d.add(*d.system3d, Word::Group3d), light);
     }},
};
// clang-format on

class UnreadableDocument : public AllLettersTest, public testing::WithParamInterface<Unreadable> {};

TEST_P(UnreadableDocument, IsNotWritten) {
  Drawing drawing;
  std::ostringstream out;
  drawing.document->writeXml(out);
  EXPECT_EQ(Reading(out.str()).code(), 0);
  GetParam().make(drawing);

  Reading unchecked(drawing.uncheckedXml());
  EXPECT_TRUE(unchecked.code() != 0 || unchecked.failures() != 0) << drawing.uncheckedXml();

  static std::string lastComplaint;
  drawing.document->setErrorReporter([](const char* format, va_list arguments) {
    char line[1000];
    const int length = std::vsnprintf(line, sizeof line, format, arguments);
    lastComplaint = line;
    return length;
  });
  out.str("before");
  try {
    drawing.document->writeXml(out);
    ADD_FAILURE() << "it was written";
  } catch (const dom::DomException& error) {
    EXPECT_EQ(error.code(), dom::DomException::InvalidState);
  }
  EXPECT_EQ(lastComplaint, GetParam().complaint + std::string("\n"));
  EXPECT_EQ(out.str(), "before");
}

INSTANTIATE_TEST_SUITE_P(All, UnreadableDocument, testing::ValuesIn(unreadable),
                         [](const auto& test) { return test.param.name; });

class WrittenDocument : public AllLettersTest {
 protected:
  static bool canBeWritten(const Drawing& drawing) {
    std::ostringstream out;
    try {
      drawing.document->writeXml(out);
    } catch (const dom::DomException& error) {
      EXPECT_EQ(error.code(), dom::DomException::InvalidState);
      EXPECT_EQ(out.str(), "");
      return false;
    }
    return true;
  }

  static std::string xmlOf(const Drawing& drawing, std::ostream& out) {
    drawing.document->writeXml(out);
    std::ostringstream text;
    text << out.rdbuf();
    return text.str();
  }
};

// Lists of two lengths cannot be read into one element; to write them would run past the end of
// one.
TEST_F(WrittenDocument, HasListsThatFitTheirPoints) {
  Drawing drawing;
  auto& plane = drawing.add<P2List>(*drawing.image, Word::Poly2d);
  auto& space = drawing.add<P3List>(*drawing.image3d, Word::Poly3d);
  plane.points = {{0, 0}, {1, 1}};
  space.points = {{0, 0, 0}, {1, 1, 1}};
  EXPECT_TRUE(canBeWritten(drawing));
  plane.colors = {red};
  EXPECT_FALSE(canBeWritten(drawing));
  plane.colors = {red, blue};
  EXPECT_TRUE(canBeWritten(drawing));
  plane.points.clear();
  EXPECT_FALSE(canBeWritten(drawing));
  plane.colors.clear();
  space.normals = {{0, 0, 1}};
  EXPECT_FALSE(canBeWritten(drawing));
  space.normals.clear();
  space.secondColors = {red, blue, red};
  EXPECT_FALSE(canBeWritten(drawing));
  space.secondColors.clear();
  EXPECT_TRUE(canBeWritten(drawing));
}

// A single colour is the first one.
TEST_F(WrittenDocument, HasNoSecondColorsWithoutFirst) {
  Drawing drawing;
  auto& space = drawing.add<P3List>(*drawing.image3d, Word::Poly3d);
  space.points = {{0, 0, 0}, {1, 1, 1}};
  space.secondColors = {red, blue};
  EXPECT_FALSE(canBeWritten(drawing));
  space.colors = {blue, red};
  EXPECT_TRUE(canBeWritten(drawing));
}

TEST_F(WrittenDocument, HasACanvas) {
  Drawing empty(false);
  EXPECT_FALSE(canBeWritten(empty));
  EXPECT_NE(Reading(empty.uncheckedXml()).failures(), 0);
  empty.document->appendChild(empty.make(Word::Group2d).get());
  EXPECT_FALSE(canBeWritten(empty));
  EXPECT_NE(Reading(empty.uncheckedXml()).code(), 0);
}

TEST_F(WrittenDocument, MayLackWhatIsNotWrittenAnyway) {
  Drawing drawing;
  drawing.add(*drawing.object, Word::ColorFunc);  // blank, and without an option
  EXPECT_TRUE(canBeWritten(drawing));
  EXPECT_EQ(Reading(drawing.uncheckedXml()).code(), 0);
}

TEST_F(WrittenDocument, DoesNotDependOnTheStateOfTheStream) {
  Drawing drawing;
  drawing.object->setAttribute(Word::LineWidth, base::DoubleVariant(1e-7));
  drawing.object->setAttribute(Word::XMesh, base::LongVariant(1234567));
  std::stringstream plain;
  const std::string expected = xmlOf(drawing, plain);
  EXPECT_NE(expected.find("LineWidth=\"1e-07\""), std::string::npos) << expected;

  struct Commas : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::stringstream odd;
  odd.imbue(std::locale(std::locale::classic(), new Commas));
  odd << std::fixed << std::hex << std::showbase << std::showpos << std::uppercase;
  odd.width(5000);
  EXPECT_EQ(xmlOf(drawing, odd), expected);
}

TEST_F(WrittenDocument, GivesBackEachFontThatTheModelTakes) {
  Drawing drawing;
  for (const char* text : {"'' 9", "Kid's 9 Bold", "a'b'c 7 #ff0000 Right", "'two words' 11"}) {
    drawing.canvas->setAttributeFromString(Word::HeaderFont, text);
    Reading again(drawing.uncheckedXml());
    ASSERT_EQ(again.code(), 0) << text;
    EXPECT_TRUE(canBeWritten(drawing));
    EXPECT_EQ(again.document().documentElement()->getAttribute(Word::HeaderFont),
              drawing.canvas->getAttribute(Word::HeaderFont));
  }
}

// An attribute has one line; in a text only the end of a line is always the same character.
TEST_F(WrittenDocument, GivesTabsAndLinesInAttributesBackAsBlanks) {
  Drawing drawing;
  drawing.object->setAttribute(Word::Name, base::FixedStringVariant("a\tb\nc\rd"));
  PlotElement* header = drawing.add(*drawing.canvas, Word::Header);
  header->appendChild(Ref<dom::Node>(drawing.document->createTextNode("a\tb\nc\rd")).get());
  std::stringstream out;
  Reading again(xmlOf(drawing, out));
  const PlotElement* scene =
      PlotElement::from(again.document().documentElement()->firstChildByName(Word::Scene2d));
  const PlotElement* object = PlotElement::from(scene->firstChild()->firstChild());
  EXPECT_EQ(object->getAttribute(Word::Name), base::FixedStringVariant("a b c d"));
  const dom::Node* text =
      again.document().documentElement()->firstChildByName(Word::Header)->firstChild();
  EXPECT_STREQ(text->nodeValue(), "a\tb\nc\nd");
}

}  // namespace
