// Values and texts that the input format cannot hold are refused when they are set.
#include "../locale_guard.h"
#include "plot_test.h"
#include "vantry/dom/text.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/expr_list.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::plot::test {
namespace {

class RefusalTest : public PlotTest {
 protected:
  /// Sets the attribute, and expects it to be refused for that reason.
  void expectRefused(PlotElement& element, Token name, const Variant& value, const char* reason) {
    SCOPED_TRACE(reason);
    const std::string before = xmlOf(element);
    document->clearUndo();
    takeComplaints();
    EXPECT_EQ(codeOf([&] { element.setAttribute(name, value); }), DomException::HierarchyRequest);
    EXPECT_EQ(takeComplaints(), std::string("PlotDom error: illegal value: ") + reason +
                                    " [attribute '" + name.str() + "']\n");
    EXPECT_EQ(codeOf([&] { element.setPropertyValue(name, value); }),
              DomException::HierarchyRequest);
    EXPECT_EQ(xmlOf(element), before);
    EXPECT_FALSE(document->canUndo());
  }

  LocaleGuard locale{LC_CTYPE, "C.UTF-8"};
  Canvas* canvas = add<Canvas>(*document);
  Scene3d* scene = add<Scene3d>(*canvas);
  CoordinateSystem3d* system = add<CoordinateSystem3d>(*scene);
  Obj3d* object = add<Obj3d>(*system, {{Word::Type, "Surface"}});
};

TEST_F(RefusalTest, AFontThatNoTextGives) {
  const auto refuse = [this](const FontStyle& font, const char* reason) {
    expectRefused(*canvas, Word::HeaderFont, FontStyleVariant(font), reason);
  };
  refuse({"Times", 0, false, black, false, Word::Left}, "the font has no size");
  refuse({"Times", -3, false, black, false, Word::Left}, "the font has no size");
  refuse({"Times", 9, false, black, false, Token()}, "the font has no alignment");
  refuse({"Times", 9, false, black, false, Word::Top}, "the font has no alignment");
  refuse({"Ti\x01mes", 9, false, black, false, Word::Left},
         "XML does not have all of its characters");
  const char* apostrophe =
      "the font's family has an apostrophe that cannot be told from its quotes";
  refuse({"Kid's Hand", 9, false, black, false, Word::Left}, apostrophe);
  refuse({"'Times", 9, false, black, false, Word::Left}, apostrophe);
  for (const char* family : {"serif", "sans-serif", "monospace"}) {
    refuse({family, 9, false, black, false, Word::Left}, "the font's family stands for another");
  }
}

TEST_F(RefusalTest, AFontThatSomeTextGives) {
  for (const char* family :
       {"", "Times", "two words", "Kid's", "K\xC3\xA4se", "Serif", "serif-bold"}) {
    const FontStyle font{family, 9, true, red, false, Word::Center};
    canvas->setAttribute(Word::HeaderFont, FontStyleVariant(font));
    const std::string text = valueOf(*canvas, Word::HeaderFont);
    EXPECT_EQ(text.find('\'') == std::string::npos, std::string(family) == "Kid's") << text;
  }
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(RefusalTest, AWordThatNoTextGives) {
  const auto refuse = [this](PlotElement& element, Token name, Token word, const char* reason) {
    expectRefused(element, name, TokenVariant(word), reason);
  };
  const Ref<ObjStyle> style = make<ObjStyle>();
  const Ref<Transform3d> transform = make<Transform3d>();
  for (PlotElement* element : std::initializer_list<PlotElement*>{object, style.get()}) {
    refuse(*element, Word::Type, Token(), "the word is empty");
    refuse(*element, Word::Type, token(""), "the word is empty");
    refuse(*element, Word::LineStyle, token("two words"), "the word has a blank");
    refuse(*element, Word::LineStyle, token("line\n"), "the word has a blank");
    refuse(*element, Word::LineStyle, token("\xEF\xBF\xBF"),
           "XML does not have all of its characters");
  }
  EXPECT_EQ(codeOf([&] { transform->setAttribute(Word::Type, TokenVariant(Token())); }),
            DomException::HierarchyRequest);
  transform->setAttribute(Word::Type, TokenVariant(token("Wobbly")));
  EXPECT_EQ(transform->type(), token("Wobbly")) << "any word is accepted and kept";
}

TEST_F(RefusalTest, AnOptionThatNoTextGives) {
  const Ref<Expr> expression = make<Expr>({{Word::Opt, "some option"}});
  expectRefused(*expression, Word::Opt, TokenVariant(Token()), "the word is empty");
  expectRefused(*expression, Word::Opt, TokenVariant(token("")), "the word is empty");
  expectRefused(*expression, Word::Opt, TokenVariant(token("a\x02")),
                "XML does not have all of its characters");
  EXPECT_EQ(expression->option(), token("some option"));
}

TEST_F(RefusalTest, ATextWithCharactersThatXmlDoesNotHave) {
  for (const char* text : {"a\x01z", "\x1F", "\x7F\x08", "\xEF\xBF\xBE", "a\xEF\xBF\xBFz"}) {
    expectRefused(*object, Word::Name, FixedStringVariant(text),
                  "XML does not have all of its characters");
  }
  for (const char* text : {"", "a\tb\nc\rd", "\x7F", "\xEF\xBF\xBD", "\xC2\x80"}) {
    object->setAttribute(Word::Name, FixedStringVariant(text));
    EXPECT_EQ(object->getAttribute(Word::Name), FixedStringVariant(text));
  }
}

TEST_F(RefusalTest, ATextNodeWithCharactersThatXmlDoesNotHave) {
  const std::string complaint = "PlotDom error: text with characters that XML does not have\n";
  for (const char* bad : {"a\x01z", "\x1B[0m", "\xEF\xBF\xBF"}) {
    EXPECT_EQ(codeOf([&] { document->createTextNode(bad); }), DomException::InvalidCharacter);
    EXPECT_EQ(takeComplaints(), complaint);
  }
  PlotElement* header = add(*canvas, Word::Header);
  addText(*header, "tab\tline\n");
  document->clearUndo();
  dom::Text& text = *header->firstChild()->asText();
  for (const auto& change : std::initializer_list<void (*)(dom::Text&)>{
           [](dom::Text& t) { t.setNodeValue("\x01"); }, [](dom::Text& t) { t.appendData("\x01"); },
           [](dom::Text& t) { t.replaceData(0, 1, "\xEF\xBF\xBE"); }}) {
    EXPECT_EQ(codeOf([&] { change(text); }), DomException::HierarchyRequest);
    EXPECT_EQ(takeComplaints(), complaint);
  }
  EXPECT_STREQ(text.nodeValue(), "tab\tline\n");
  EXPECT_FALSE(document->canUndo());
  text.appendData(nullptr);
  const Ref<dom::Node> empty(document->createTextNode(nullptr));
  EXPECT_EQ(empty->nodeValue(), nullptr);
  EXPECT_EQ(takeComplaints(), "");
}

// It could not have come in with that type either.
TEST_F(RefusalTest, AnObjectInAGroupThatWouldBecomeALight) {
  Group3d* group = add<Group3d>(*system);
  Transform3d* transform = add<Transform3d>(*group, {{Word::Type, "Rotate3d"}});
  for (dom::Node* parent : std::initializer_list<dom::Node*>{group, transform}) {
    Obj3d* inside = add<Obj3d>(*parent, {{Word::Type, "Surface"}});
    for (const Token type : {Word::Camera, Word::AmbientLight, Word::PointLight, Word::DistantLight,
                             Word::SpotLight, Word::ClippingBox}) {
      EXPECT_EQ(codeOf([&] { inside->setAttribute(Word::Type, TokenVariant(type)); }),
                DomException::HierarchyRequest);
      EXPECT_EQ(takeComplaints(), std::string("PlotDom error: illegal type '") + type.str() +
                                      "' [parent '" + parent->nodeName().str() + "']\n");
      EXPECT_EQ(inside->type(), Word::Surface);
    }
    inside->setAttributeFromString(Word::Type, "Sphere");
    EXPECT_EQ(inside->type(), Word::Sphere);
  }
  object->setAttributeFromString(Word::Type, "Camera");
  EXPECT_EQ(object->type(), Word::Camera) << "directly in the coordinate system";
}

}  // namespace
}  // namespace vantry::plot::test
