// Expressions, texts, tuples and lists; elements as XML; copies.
#include <cmath>
#include <limits>
#include <typeinfo>

#include "plot_test.h"
#include "vantry/dom/text.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/expr_list.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/tr.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::plot::test {
namespace {

class ElementTest : public PlotTest {};

// Expressions.

TEST_F(ElementTest, AVExprHasOneAttribute) {
  const Ref<VExpr> element = make<VExpr>();
  EXPECT_TRUE(std::isnan(element->value()));
  EXPECT_TRUE(element->hasAttribute(Word::Val));
  EXPECT_FALSE(element->hasAttribute(Word::Opt));
  EXPECT_FALSE(element->hasAttribute(Word::Name));

  element->setAttributeFromString(Word::Val, "\n -2.5e1 and more");
  EXPECT_EQ(element->value(), -25);
  EXPECT_EQ(element->getAttribute(Word::Val), DoubleVariant(-25));
  EXPECT_EQ(element->getPropertyValue(Word::Val), DoubleVariant(-25));
  element->setAttribute(Word::Val, DoubleVariant(3));
  EXPECT_EQ(element->value(), 3);
  element->setPropertyValue(Word::Val, DoubleVariant(4));
  EXPECT_EQ(element->value(), 4);
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(ElementTest, AVExprTakesNumbersInEachNotationOfTheCLibrary) {
  const Ref<VExpr> element = make<VExpr>({{Word::Val, "0x10"}});
  EXPECT_EQ(element->value(), 16);
  element->setAttributeFromString(Word::Val, "inf");
  EXPECT_EQ(element->value(), std::numeric_limits<double>::infinity());
  EXPECT_EQ(xmlOf(*element), "<VExpr Val=\"inf\"></VExpr>");
  element->setAttributeFromString(Word::Val, "nan");
  EXPECT_TRUE(std::isnan(element->value()));
  EXPECT_EQ(xmlOf(*element), "<VExpr></VExpr>");
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(ElementTest, WhatAVExprRefuses) {
  const Ref<VExpr> element = make<VExpr>({{Word::Val, "7"}});
  EXPECT_EQ(codeOf([&] { element->setAttributeFromString(Word::Opt, "x"); }),
            DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal attribute 'Opt'\n");
  EXPECT_EQ(codeOf([&] { element->getAttribute(Word::Name); }), DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal attribute 'Name'\n");
  EXPECT_EQ(codeOf([&] { element->setAttributeFromString(Word::Val, "x7"); }),
            DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value string [Val='x7']\n");
  EXPECT_EQ(codeOf([&] { element->setAttributeFromString(Word::Val, ""); }),
            DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value string [Val='']\n");
  EXPECT_EQ(codeOf([&] { element->setAttribute(Word::Val, LongVariant(1)); }),
            DomException::HierarchyRequest);
  EXPECT_EQ(codeOf([&] { element->setAttribute(Word::Opt, DoubleVariant(1)); }),
            DomException::HierarchyRequest);
  EXPECT_EQ(codeOf([&] { element->removeAttribute(Word::Val); }), DomException::HierarchyRequest);
  EXPECT_EQ(codeOf([&] { element->getPropertyValue(Word::Opt); }), DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: unknown property 'Opt' [node 'VExpr']\n");
  EXPECT_EQ(codeOf([&] { element->setPropertyValue(Word::Opt, DoubleVariant(1)); }),
            DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: unknown property 'Opt' [node 'VExpr']\n");
  EXPECT_EQ(element->value(), 7) << "as it was";
}

TEST_F(ElementTest, AnExprHasOneAttribute) {
  const Ref<Expr> element = make<Expr>();
  EXPECT_FALSE(element->option());
  EXPECT_TRUE(element->hasAttribute(Word::Opt));
  EXPECT_FALSE(element->hasAttribute(Word::Val));
  EXPECT_EQ(element->getAttribute(Word::Opt), TokenVariant(Token()));

  element->setAttributeFromString(Word::Opt, " a b ");
  EXPECT_STREQ(element->option().str(), " a b ") << "the whole text";
  element->setAttribute(Word::Opt, TokenVariant(Word::Mesh3d));
  EXPECT_EQ(element->option(), Word::Mesh3d);
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(ElementTest, WhatAnExprRefuses) {
  for (const Token name : {Word::Expr, Word::ExprSeq, Word::ColorFunc}) {
    const Ref<PlotElement> element = make(name, {{Word::Opt, "Function"}});
    EXPECT_EQ(codeOf([&] { element->setAttributeFromString(Word::Opt, ""); }),
              DomException::InvalidAccess);
    EXPECT_EQ(takeComplaints(), "PlotDom error: empty option name\n");
    EXPECT_EQ(codeOf([&] { element->setAttributeFromString(Word::Val, "1"); }),
              DomException::InvalidAccess);
    EXPECT_EQ(takeComplaints(), "PlotDom error: illegal attribute 'Val'\n");
    EXPECT_EQ(codeOf([&] { element->getAttribute(Word::Val); }), DomException::InvalidAccess);
    EXPECT_EQ(takeComplaints(), "PlotDom error: illegal attribute 'Val'\n");
    EXPECT_EQ(codeOf([&] { element->setAttribute(Word::Opt, DoubleVariant(1)); }),
              DomException::HierarchyRequest);
    EXPECT_EQ(static_cast<Expr&>(*element).option(), Word::Function);
  }
}

TEST_F(ElementTest, TheirPropertiesAreInNoList) {
  const Property* val = make<VExpr>()->findProperty(Word::Val);
  const Property* opt = make<Expr>()->findProperty(Word::Opt);
  EXPECT_TRUE(val->isMandatory() && opt->isMandatory());
  EXPECT_FALSE(val->isInherited() || opt->isInherited());
  EXPECT_TRUE(std::isnan(val->defaultVariant().as<DoubleVariant>()->get()));
  EXPECT_EQ(opt->defaultVariant(), TokenVariant(Token()));
  EXPECT_EQ(make(Word::ViewingBoxXMin)->findProperty(Word::Val)->name(), Word::Val);
  EXPECT_EQ(make(Word::ColorFunc)->findProperty(Word::Opt)->name(), Word::Opt);
}

TEST_F(ElementTest, AChangeOfAValueCanBeUndone) {
  PlotElement* canvas = add(*document, Word::Canvas);
  PlotElement* scene = add(*canvas, Word::Scene2d);
  PlotElement* system = add(*scene, Word::CoordinateSystem2d);
  auto* bound = static_cast<VExpr*>(add(*system, Word::ViewingBoxXMin, {{Word::Val, "1"}}));
  document->startUndoGroup();
  bound->setAttributeFromString(Word::Val, "2");
  document->undo();
  EXPECT_EQ(bound->value(), 1);
  document->redo();
  EXPECT_EQ(bound->value(), 2);
}

TEST_F(ElementTest, BitsOfTheViewingBox) {
  const std::pair<Token, std::int32_t> parts[] = {
      {Word::ViewingBoxXMin, 1}, {Word::ViewingBoxXMax, 2},  {Word::ViewingBoxYMin, 4},
      {Word::ViewingBoxYMax, 8}, {Word::ViewingBoxZMin, 16}, {Word::ViewingBoxZMax, 32}};
  for (const auto& [name, bit] : parts) {
    const Ref<PlotElement> part = make(name);
    EXPECT_EQ(dynamic_cast<const ViewingBoxExprElement&>(*part).viewingBoxBit(), bit);
  }
}

// Blank texts.

TEST_F(ElementTest, BlankTexts) {
  const auto isBlank = [this](std::initializer_list<const char*> texts, bool allowWhiteSpace) {
    const Ref<Title> title = make<Title>();
    for (const char* text : texts) {
      // Past the check of createTextNode(), which takes no control characters.
      title->appendChild(Ref<dom::Node>(new dom::Text(document.get(), text)).get());
    }
    return title->isBlank(allowWhiteSpace);
  };
  EXPECT_TRUE(isBlank({}, false));
  EXPECT_TRUE(isBlank({""}, false));
  EXPECT_TRUE(isBlank({"", "", ""}, false));
  EXPECT_FALSE(isBlank({" "}, false));
  EXPECT_FALSE(isBlank({"x"}, false));

  EXPECT_TRUE(isBlank({}, true));
  EXPECT_TRUE(isBlank({" \t\n\r\x01\x1f", "", " "}, true));
  EXPECT_FALSE(isBlank({" ", "x"}, true));
  EXPECT_FALSE(isBlank({"  x  "}, true));
  EXPECT_FALSE(isBlank({" \xC3\xBC"}, true)) << "no blank, whatever the encoding is";
}

TEST_F(ElementTest, AChildThatIsNoTextIsNotBlank) {
  const Ref<IExpr> element = make<IExpr>();
  const Ref<PlotElement> child = make(Word::Title);
  element->doReplaceChildren(nullptr, 0, child.get());
  EXPECT_FALSE(element->isBlank(false));
  EXPECT_FALSE(element->isBlank(true));
}

// XML.

TEST_F(ElementTest, ExpressionsAsXml) {
  EXPECT_EQ(xmlOf(*make(Word::VExpr)), "<VExpr></VExpr>");
  const Ref<PlotElement> anchor = make(Word::XTicksAnchor, {{Word::Val, "0.25"}});
  addText(*anchor, "a < 1/4");
  EXPECT_EQ(xmlOf(*anchor), "<XTicksAnchor Val=\"0.25\">a &lt; 1/4</XTicksAnchor>");
  EXPECT_EQ(xmlOf(*make(Word::Expr, {{Word::Opt, "Function"}})), "<Expr Opt=\"Function\"></Expr>");
  EXPECT_EQ(xmlOf(*make(Word::ExprSeq)), "<ExprSeq Opt=\"\"></ExprSeq>");
  EXPECT_EQ(xmlOf(*make(Word::IExpr)), "<IExpr></IExpr>");
}

TEST_F(ElementTest, TuplesThatCountAsEmptyLeaveThemselvesOut) {
  for (const Token name : {Word::Matrix2d, Word::Matrix3d, Word::TextOrientation}) {
    const Ref<PlotElement> tuple = make(name);
    EXPECT_EQ(xmlOf(*tuple), "");
    addText(*tuple->lastChild(), "1");
    EXPECT_EQ(xmlOf(*tuple), "") << "the first of them decides";
    addText(*tuple->firstChild(), " \n");
    EXPECT_EQ(xmlOf(*tuple), "");
    addText(*tuple->firstChild(), "2");
    std::string expected = std::string("<") + name.str() + "><IExpr> \n2</IExpr>";
    for (unsigned i = 2; i < tuple->length(); ++i) expected += "<IExpr></IExpr>";
    expected += std::string("<IExpr>1</IExpr></") + name.str() + ">";
    EXPECT_EQ(xmlOf(*tuple), expected);
  }
  const Ref<PlotElement> function = make(Word::ColorFunc, {{Word::Opt, "LineColorFunction"}});
  EXPECT_EQ(xmlOf(*function), "");
  addText(*function->firstChild(), "RGB::Red");
  EXPECT_EQ(xmlOf(*function),
            "<ColorFunc Opt=\"LineColorFunction\"><IExpr>RGB::Red</IExpr></ColorFunc>");

  const Ref<PlotElement> object = make(Word::Obj3d);
  add(*object, Word::TextOrientation);
  EXPECT_EQ(xmlOf(*object), "<Obj3d></Obj3d>") << "within another element as well";
}

TEST_F(ElementTest, ATupleWhoseFirstChildIsNoExpressionCountsAsEmpty) {
  const Ref<PlotElement> matrix = make(Word::Matrix2d);
  addText(*matrix->firstChild(), "1");
  EXPECT_FALSE(isBlankList(*matrix));
  const Ref<dom::Node> text(document->createTextNode("1"));
  matrix->doReplaceChildren(matrix->firstChild(), 0, text.get());
  EXPECT_TRUE(isBlankList(*matrix));
  matrix->doReplaceChildren(matrix->firstChild(), 5, nullptr);
  EXPECT_TRUE(isBlankList(*matrix)) << "without any child too";
}

TEST_F(ElementTest, PointsAreWrittenEvenIfBlank) {
  EXPECT_EQ(xmlOf(*make(Word::Point2d)), "<Point2d><IExpr></IExpr><IExpr></IExpr></Point2d>");
  EXPECT_EQ(xmlOf(*make(Word::TickPos)), "<TickPos><VExpr></VExpr></TickPos>");
  EXPECT_EQ(xmlOf(*make(Word::Points3d)), "<Points3d></Points3d>");
}

TEST_F(ElementTest, PointListsAsXml) {
  const Ref<Poly2d> plane = make<Poly2d>();
  plane->points = {{1, 2.5}, {-3, 1e10}};
  EXPECT_EQ(xmlOf(*plane), "<Poly2d><P2>1 2.5</P2><P2>-3 1e+10</P2></Poly2d>");
  plane->colors = {red, RGBA(0x80FF8000)};
  EXPECT_EQ(xmlOf(*plane), "<Poly2d><P2>1 2.5 #ff0000</P2><P2>-3 1e+10 #ff800080</P2></Poly2d>");

  const Ref<PlotElement> element = make(Word::Pts3d);
  auto& space = static_cast<P3List&>(*element);
  space.points = {{1, 2, 3}};
  EXPECT_EQ(xmlOf(space), "<Pts3d><P3>1 2 3</P3></Pts3d>");
  space.colors = {red};
  EXPECT_EQ(xmlOf(space), "<Pts3d><P3>1 2 3 #ff0000</P3></Pts3d>");
  space.secondColors = {blue};
  EXPECT_EQ(xmlOf(space), "<Pts3d><P3>1 2 3 #ff0000 #0000ff</P3></Pts3d>");
  space.normals = {{0, 0.5, 1}};
  EXPECT_EQ(xmlOf(space), "<Pts3d><P3>1 2 3 0 0.5 1 #ff0000 #0000ff</P3></Pts3d>");
  space.colors.clear();
  space.secondColors.clear();
  EXPECT_EQ(xmlOf(space), "<Pts3d><P3>1 2 3 0 0.5 1</P3></Pts3d>");
}

TEST_F(ElementTest, ArraysAsXml) {
  const Ref<ColorArray2d> colors = make<ColorArray2d>();
  colors->colors = {red, RGBA(0x80010203)};
  std::string xml = xmlOf(*colors);
  EXPECT_EQ(xml.substr(xml.find('>')), ">#ff0000 #01020380 </ColorArray2d>");
  const Ref<DensityArray2d> densities = make<DensityArray2d>();
  densities->values = {1, 0.1, plot::nan};
  xml = xmlOf(*densities);
  EXPECT_EQ(xml.substr(xml.find('>')), ">1 0.1 nan </DensityArray2d>");
}

// Copies.

TEST_F(ElementTest, ACopyIsIndependentAndHoldsTheSame) {
  PlotElement* canvas = add(*document, Word::Canvas);
  PlotElement* scene = add(*canvas, Word::Scene3d, {{Word::Lighting, "None"}});
  PlotElement* system = add(*scene, Word::CoordinateSystem3d);
  PlotElement* transform = add(*system, Word::Transform3d, {{Word::Type, "Rotate3d"}});
  addText(*add(*transform, Word::Matrix3d)->firstChild(), "1");
  PlotElement* object = add(*transform, Word::Obj3d, {{Word::Type, "Surface"}});
  addText(*add(*object, Word::Title), "a title");
  add(*object, Word::ParameterBegin, {{Word::Val, "2"}});
  Mesh3d* mesh = add<Mesh3d>(*add(*object, Word::Img3d, {{Word::Param, "1"}}),
                             {{Word::LineWidth, "3"}, {Word::UMesh, "1"}});
  mesh->points = {{1, 2, 3}};
  mesh->normals = {{0, 0, 1}};
  mesh->colors = {red};

  const Ref<dom::Node> copy(canvas->cloneNode(true));
  EXPECT_EQ(xmlOf(*copy), xmlOf(*canvas));
  EXPECT_EQ(copy->parent(), nullptr);
  EXPECT_FALSE(copy->isInDocument());
  EXPECT_EQ(copy->ownerDocument(), document.get());

  const Ref<dom::Node> bare(canvas->cloneNode(false));
  EXPECT_EQ(bare->firstChild(), nullptr);
  const Ref<dom::Node> meshCopy(mesh->cloneNode(false));
  EXPECT_EQ(static_cast<Mesh3d&>(*meshCopy).points, mesh->points);
  EXPECT_EQ(static_cast<Mesh3d&>(*meshCopy).lineWidth(), 3);
  EXPECT_EQ(xmlOf(*meshCopy), xmlOf(*mesh));
}

TEST_F(ElementTest, ACopyOfEachClassHasTheSameChildrenAndRules) {
  for (const Token word : base::wordTokens) {
    const Ref<PlotElement> element = make(word);
    if (!element) continue;
    const Ref<dom::Node> copy(element->cloneNode(true));
    EXPECT_EQ(copy->nodeName(), word);
    EXPECT_EQ(copy->length(), element->length()) << word.str();
    EXPECT_EQ(xmlOf(*copy), xmlOf(*element));
    const dom::Node& original = *element;
    const dom::Node& copied = *copy;
    EXPECT_EQ(typeid(copied), typeid(original));
  }
  const Ref<dom::Node> tick(make(Word::TickPos)->cloneNode(true));
  add(*tick, Word::Title);
  EXPECT_EQ(takeComplaints(), "") << "the copy knows its options";
  EXPECT_TRUE(static_cast<TickPos&>(*tick).hasOption(Word::VExpr));
  EXPECT_TRUE(static_cast<TickPos&>(*tick).hasOption(Word::Title));
}

// Times of frames.

TEST_F(ElementTest, TheTimeOfAFrameIsForgottenWhenItMayHaveChanged) {
  PlotElement* canvas = add(*document, Word::Canvas);
  PlotElement* system = add(*add(*canvas, Word::Scene2d), Word::CoordinateSystem2d);
  ObjStyle* style = add<ObjStyle>(*canvas, {{Word::Type, "Curve2d"}});
  PlotElement* object = add(*system, Word::Obj2d, {{Word::Type, "Curve2d"}});
  add(*object, Word::ParameterBegin, {{Word::Val, "0"}});
  add(*object, Word::ParameterEnd, {{Word::Val, "10"}});
  Img2d* image = add<Img2d>(*object, {{Word::Param, "5"}});
  EXPECT_EQ(image->frameTime(), 2) << "half of 0 to 4";
  style->setAttributeFromString(Word::TimeEnd, "8");
  EXPECT_EQ(image->frameTime(), 4);
  object->setAttributeFromString(Word::TimeBegin, "4");
  EXPECT_EQ(image->frameTime(), 6);
  image->setAttributeFromString(Word::Param, "10");
  EXPECT_EQ(image->frameTime(), 8);

  PlotElement* other = add(*system, Word::Obj2d);
  add(*other, Word::ParameterBegin, {{Word::Val, "0"}});
  add(*other, Word::ParameterEnd, {{Word::Val, "20"}});
  other->appendChild(image);
  EXPECT_EQ(image->frameTime(), 2) << "half of 0 to 4";
}

TEST_F(ElementTest, TheTimeOfAMapIsForgottenWhenItMayHaveChanged) {
  PlotElement* canvas = add(*document, Word::Canvas);
  PlotElement* system = add(*add(*canvas, Word::Scene2d), Word::CoordinateSystem2d);
  ObjStyle* style = add<ObjStyle>(*canvas, {{Word::Type, "Rotate2d"}});
  const auto addTransform = [&](const char* parameterEnd) {
    PlotElement* transform = add(*system, Word::Transform2d, {{Word::Type, "Rotate2d"}});
    add(*transform, Word::ParameterBegin, {{Word::Val, "0"}});
    add(*transform, Word::ParameterEnd, {{Word::Val, parameterEnd}});
    return transform;
  };
  PlotElement* transform = addTransform("10");
  Tr2d* map = add<Tr2d>(*transform, {{Word::Param, "5"}});
  EXPECT_EQ(map->frameTime(), 2) << "half of 0 to 4";
  style->setAttributeFromString(Word::TimeEnd, "8");
  EXPECT_EQ(map->frameTime(), 4);
  transform->setAttributeFromString(Word::TimeEnd, "16");
  EXPECT_EQ(map->frameTime(), 8);
  map->setAttributeFromString(Word::Param, "10");
  EXPECT_EQ(map->frameTime(), 16);
  addTransform("20")->appendChild(map);
  EXPECT_EQ(map->frameTime(), 4) << "half of 0 to 8";
}

}  // namespace
}  // namespace vantry::plot::test
