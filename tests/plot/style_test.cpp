// Who inherits from whom, and how changes go down.
#include <algorithm>
#include <cmath>
#include <map>

#include "plot_test.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/line2d.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/tr.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/styles/style_search.h"

namespace vantry::plot::test {
namespace {

using Log = std::vector<std::string>;

StyleChain chainOf(const PlotElement& element) {
  StyleChain chain;
  element.collectStyleChain(chain);
  return chain;
}

/// Canvas, scene, coordinate system and group, with an object of the type Curve2d and a curve in
/// the group.
class StyleTest : public PlotTest {
 protected:
  ObjStyle* addStyle(dom::Node& parent, const char* type, Attributes attributes = {}) {
    ObjStyle* style = add<ObjStyle>(parent, {{Word::Type, type}});
    for (const auto& [name, text] : attributes) style->setAttributeFromString(name, text);
    return style;
  }

  Canvas* canvas = add<Canvas>(*document);
  Scene2d* scene = add<Scene2d>(*canvas);
  CoordinateSystem2d* system = add<CoordinateSystem2d>(*scene);
  Group2d* group = add<Group2d>(*system);
  Obj2d* object = add<Obj2d>(*group, {{Word::Type, "Curve2d"}});
  Img2d* image = add<Img2d>(*object);
  Poly2d* curve = add<Poly2d>(*image);
};

// The search for the styles of objects.

TEST_F(StyleTest, WithoutAnyStyleThereIsNoStyleParent) {
  EXPECT_EQ(object->styleParent(Word::LineWidth), nullptr);
  EXPECT_TRUE(chainOf(*object).empty());
  EXPECT_EQ(curve->styleParent(Word::LineWidth), nullptr);
  EXPECT_EQ(chainOf(*curve), StyleChain{object});
}

TEST_F(StyleTest, TheNearestLevelComesFirst) {
  const ObjStyle* ofCanvas = addStyle(*canvas, "Curve2d", {{Word::LineWidth, "1"}});
  EXPECT_EQ(object->styleParent(Word::LineWidth), ofCanvas);
  const ObjStyle* ofScene = addStyle(*scene, "Curve2d", {{Word::LineWidth, "2"}});
  EXPECT_EQ(object->styleParent(Word::LineWidth), ofScene);
  const ObjStyle* ofSystem = addStyle(*system, "Curve2d", {{Word::LineWidth, "3"}});
  EXPECT_EQ(object->styleParent(Word::LineWidth), ofSystem);
  const ObjStyle* ofGroup = addStyle(*group, "Curve2d", {{Word::LineWidth, "4"}});
  EXPECT_EQ(object->styleParent(Word::LineWidth), ofGroup);
  EXPECT_EQ(chainOf(*object), (StyleChain{ofGroup, ofSystem, ofScene, ofCanvas}));
}

TEST_F(StyleTest, WithinALevelTheFirstThatHasTheNameWins) {
  const ObjStyle* first = addStyle(*scene, "Curve2d", {{Word::PointSize, "5"}});
  const ObjStyle* second =
      addStyle(*scene, "Curve2d", {{Word::PointSize, "6"}, {Word::LineWidth, "2"}});
  const ObjStyle* third = addStyle(*scene, "Curve2d", {{Word::LineWidth, "3"}});
  EXPECT_EQ(object->styleParent(Word::PointSize), first);
  EXPECT_EQ(object->styleParent(Word::LineWidth), second);
  EXPECT_EQ(object->styleParent(Word::TipAngle), nullptr);
  EXPECT_EQ(chainOf(*object), (StyleChain{first, second, third}));
}

TEST_F(StyleTest, TheOwnTypeComesBeforeDefaultAtWhateverLevel) {
  const ObjStyle* nearDefault = addStyle(*group, "Default", {{Word::LineWidth, "1"}});
  const ObjStyle* farTyped = addStyle(*canvas, "Curve2d", {{Word::LineWidth, "2"}});
  addStyle(*group, "Surface", {{Word::LineWidth, "3"}});
  EXPECT_EQ(object->styleParent(Word::LineWidth), farTyped);
  EXPECT_EQ(object->lineWidth(), 2);
  EXPECT_EQ(chainOf(*object), (StyleChain{farTyped, nearDefault}));
}

TEST_F(StyleTest, ATypeWithoutAStyleGetsTheDefaultStyles) {
  const ObjStyle* near = addStyle(*scene, "Default", {{Word::LineWidth, "1"}});
  const ObjStyle* far = addStyle(*canvas, "Default", {{Word::PointSize, "9"}});
  EXPECT_EQ(object->styleParent(Word::LineWidth), near);
  EXPECT_EQ(object->styleParent(Word::PointSize), far);
  EXPECT_EQ(chainOf(*object), (StyleChain{near, far}));
}

TEST_F(StyleTest, AStyleInAGroupIsForWhatIsInTheGroup) {
  const ObjStyle* style = addStyle(*group, "Curve2d", {{Word::LineWidth, "2"}});
  Obj2d* outside = add<Obj2d>(*system, {{Word::Type, "Curve2d"}});
  EXPECT_EQ(object->styleParent(Word::LineWidth), style);
  EXPECT_EQ(outside->styleParent(Word::LineWidth), nullptr);
}

TEST_F(StyleTest, ATransformIsPassedThrough) {
  const ObjStyle* style = addStyle(*scene, "Curve2d", {{Word::LineWidth, "2"}});
  Transform2d* transform = add<Transform2d>(*system, {{Word::Type, "Rotate2d"}});
  Obj2d* inside = add<Obj2d>(*transform, {{Word::Type, "Curve2d"}});
  EXPECT_EQ(inside->styleParent(Word::LineWidth), style);

  // Not allowed there, but if it came in unchecked, it is not looked at.
  const Ref<ObjStyle> hidden = make<ObjStyle>({{Word::Type, "Curve2d"}, {Word::LineWidth, "3"}});
  transform->doReplaceChildren(nullptr, 0, hidden.get());
  EXPECT_EQ(inside->styleParent(Word::LineWidth), style);
  EXPECT_EQ(chainOf(*inside), StyleChain{style});
  hidden->setAttributeFromString(Word::Type, "Default");
  hidden->setAttributeFromString(Word::LineColor, "#0000ff");
  EXPECT_EQ(inside->styleParent(Word::LineColor), nullptr);
  EXPECT_EQ(chainOf(*inside), StyleChain{style});
}

TEST_F(StyleTest, ATransformInheritsByItsOwnType) {
  const ObjStyle* ofObject = addStyle(*canvas, "Curve2d", {{Word::Frames, "7"}});
  const ObjStyle* ofTransform = addStyle(*canvas, "Rotate2d", {{Word::Frames, "8"}});
  const ObjStyle* ofAll = addStyle(*canvas, "Default", {{Word::TimeEnd, "9"}});
  Transform2d* transform = add<Transform2d>(*system, {{Word::Type, "Rotate2d"}});
  EXPECT_EQ(transform->styleParent(Word::Frames), ofTransform);
  EXPECT_EQ(transform->styleParent(Word::TimeEnd), ofAll);
  EXPECT_EQ(chainOf(*transform), (StyleChain{ofTransform, ofAll}));
  EXPECT_EQ(transform->frames(), 8) << "resolved when it was attached";
  EXPECT_EQ(transform->timeEnd(), 9);
  EXPECT_EQ(transform->timeBegin(), 0);
  Obj2d* inside = add<Obj2d>(*transform, {{Word::Type, "Curve2d"}});
  EXPECT_EQ(inside->styleParent(Word::Frames), ofObject) << "not by the transform's type";
}

TEST_F(StyleTest, SomethingWithoutATypeGetsTheDefaultStylesOnly) {
  const Ref<ObjStyle> untyped = make<ObjStyle>({{Word::LineWidth, "2"}});
  scene->appendChild(untyped.get());
  const ObjStyle* forAll = addStyle(*canvas, "Default", {{Word::LineWidth, "3"}});
  const Obj2d* bare = add<Obj2d>(*group);
  EXPECT_EQ(bare->styleParent(Word::LineWidth), forAll);
  EXPECT_EQ(chainOf(*bare), StyleChain{forAll});
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(StyleTest, AStyleInheritsFromTheLevelsFurtherOut) {
  const ObjStyle* outerTyped = addStyle(*canvas, "Curve2d", {{Word::LineWidth, "1"}});
  const ObjStyle* outerDefault = addStyle(*canvas, "Default", {{Word::PointSize, "2"}});
  const ObjStyle* style = addStyle(*scene, "Curve2d");
  addStyle(*scene, "Curve2d", {{Word::LineWidth, "8"}});  // beside it: not looked at
  addStyle(*scene, "Default", {{Word::PointSize, "9"}});
  EXPECT_EQ(style->styleParent(Word::LineWidth), outerTyped);
  EXPECT_EQ(style->styleParent(Word::PointSize), outerDefault);
  EXPECT_EQ(style->lineWidth(), 1);
  EXPECT_EQ(chainOf(*style), (StyleChain{outerTyped, outerDefault}));
  EXPECT_EQ(outerTyped->styleParent(Word::PointSize), nullptr) << "a canvas is the outermost level";
}

TEST_F(StyleTest, ADefaultStyleAsksNoSearchForItsOwnType) {
  const ObjStyle* outer = addStyle(*canvas, "Default", {{Word::LineWidth, "1"}});
  const ObjStyle* style = addStyle(*scene, "Default");
  EXPECT_EQ(style->styleParent(Word::LineWidth), outer);
  EXPECT_EQ(chainOf(*style), StyleChain{outer}) << "once, not twice";
}

// Twice, as the style of its type and as a style for all.
TEST_F(StyleTest, WhatIsOfTheTypeDefaultHasEachDefaultStyleTwice) {
  const ObjStyle* inner = addStyle(*system, "Default", {{Word::LineWidth, "1"}});
  const ObjStyle* outer = addStyle(*canvas, "Default", {{Word::Frames, "2"}});
  const Obj2d* plain = add<Obj2d>(*system, {{Word::Type, "Default"}});
  EXPECT_EQ(chainOf(*plain), (StyleChain{inner, outer, inner, outer}));
  EXPECT_EQ(plain->styleParent(Word::Frames), outer);
  const Transform2d* transform = add<Transform2d>(*system, {{Word::Type, "Default"}});
  EXPECT_EQ(chainOf(*transform), (StyleChain{inner, outer, inner, outer}));
  EXPECT_EQ(transform->frames(), 2);
}

TEST_F(StyleTest, AStyleWithoutAParentHasNoStyleParent) {
  const Ref<ObjStyle> style = make<ObjStyle>({{Word::Type, "Curve2d"}});
  EXPECT_EQ(style->styleParent(Word::LineWidth), nullptr);
  EXPECT_TRUE(chainOf(*style).empty());
}

TEST_F(StyleTest, AResolvedValueDoesNotStopASearch) {
  const ObjStyle* far = addStyle(*canvas, "Curve2d", {{Word::LineWidth, "1"}});
  addStyle(*scene, "Curve2d");  // has it by inheritance only
  EXPECT_EQ(object->styleParent(Word::LineWidth), far);
  EXPECT_EQ(object->lineWidth(), 1);
  EXPECT_FALSE(object->hasAttribute(Word::LineWidth));
}

TEST_F(StyleTest, TheListOfStylesFollowsTheChildren) {
  ObjStyle* second = addStyle(*scene, "Curve2d", {{Word::LineWidth, "2"}});
  const Ref<ObjStyle> first = make<ObjStyle>({{Word::Type, "Curve2d"}, {Word::LineWidth, "1"}});
  scene->insertBefore(first.get(), second);
  EXPECT_EQ(chainOf(*object), (StyleChain{first.get(), second}));
  scene->insertBefore(second, scene->firstChild());
  EXPECT_EQ(chainOf(*object), (StyleChain{second, first.get()}));
  const Ref<ObjStyle> third = make<ObjStyle>({{Word::Type, "Curve2d"}, {Word::LineWidth, "3"}});
  scene->replaceChild(third.get(), second);
  EXPECT_EQ(chainOf(*object), (StyleChain{third.get(), first.get()}));
  document->undo();
  EXPECT_TRUE(chainOf(*object).empty()) << "all of this was one group";
  document->redo();
  EXPECT_EQ(chainOf(*object), (StyleChain{third.get(), first.get()}));
  scene->removeChild(first.get());
  EXPECT_EQ(chainOf(*object), StyleChain{third.get()});

  const Ref<dom::Node> copy(scene->cloneNode(true));
  const auto* copiedObject = PlotElement::from(
      copy->firstChildByName(Word::CoordinateSystem2d)->firstChild()->firstChild());
  EXPECT_EQ(chainOf(*copiedObject),
            StyleChain{PlotElement::from(copy->firstChildByName(Word::ObjStyle))});
}

// Primitives.

TEST_F(StyleTest, APrimitiveAsksItsObjectAndThenTheStylesOfThat) {
  const ObjStyle* style = addStyle(*scene, "Curve2d", {{Word::LineWidth, "2"}});
  const ObjStyle* forAll = addStyle(*canvas, "Default", {{Word::LineWidth, "3"}});
  EXPECT_EQ(curve->styleParent(Word::LineWidth), style);
  object->setAttributeFromString(Word::LineWidth, "1");
  EXPECT_EQ(curve->styleParent(Word::LineWidth), object);
  EXPECT_EQ(curve->styleParent(Word::LineColor), nullptr);
  EXPECT_EQ(chainOf(*curve), (StyleChain{object, style, forAll}));
}

TEST_F(StyleTest, APrimitiveOutsideOfAnObjectHasNobodyToAsk) {
  const Ref<Poly2d> alone = make<Poly2d>();
  EXPECT_EQ(alone->styleParent(Word::LineWidth), nullptr);
  EXPECT_TRUE(chainOf(*alone).empty());
  const Ref<Img2d> apart = make<Img2d>();
  apart->appendChild(alone.get());
  EXPECT_EQ(alone->styleParent(Word::LineWidth), nullptr);
  EXPECT_TRUE(chainOf(*alone).empty());
  alone->attachedToDocument();
  EXPECT_EQ(alone->lineWidth(), 0.5);
}

// The worked example: a curve with a line style of its own, a style for its type in the scene and
// one for all types in the canvas.
TEST_F(StyleTest, ACurveTakesEachValueFromTheFirstThatHasIt) {
  const ObjStyle* forAll = addStyle(*canvas, "Default", {{Word::LineWidth, "1"}});
  const ObjStyle* forCurves = addStyle(*scene, "Curve2d", {{Word::LineColor, "#ff0000"}});
  Obj2d* curveObject = add<Obj2d>(*system, {{Word::Type, "Curve2d"}});
  Img2d* curveImage = add<Img2d>(*curveObject);
  const Poly2d* poly = add<Poly2d>(*curveImage, {{Word::LineStyle, "Dashed"}});

  EXPECT_EQ(chainOf(*poly), (StyleChain{curveObject, forCurves, forAll}));
  EXPECT_EQ(poly->lineStyle(), Word::Dashed);
  EXPECT_EQ(poly->lineColor(), red);
  EXPECT_EQ(poly->lineWidth(), 1);
  EXPECT_EQ(poly->pointStyle(), Word::Squares);
  EXPECT_EQ(poly->pointSize(), 2);
  EXPECT_FALSE(poly->filled()) << "the default of Poly2d, although an object's is true";
  EXPECT_TRUE(curveObject->filled());
}

// Scenes and coordinate systems.

TEST_F(StyleTest, AScenesStyleIsInTheCanvas) {
  EXPECT_EQ(scene->styleParent(Word::Width), nullptr);
  EXPECT_TRUE(chainOf(*scene).empty());
  EXPECT_EQ(scene->width(), 100);
  add<Scene3dStyle>(*canvas, {{Word::Width, "70"}});
  EXPECT_EQ(scene->styleParent(Word::Width), nullptr) << "of the other dimension";
  const Scene2dStyle* style = add<Scene2dStyle>(*canvas, {{Word::Width, "80"}});
  EXPECT_EQ(scene->styleParent(Word::Width), style);
  EXPECT_EQ(scene->styleParent(Word::Height), nullptr) << "the style has none itself";
  EXPECT_EQ(scene->width(), 80);
  EXPECT_EQ(chainOf(*scene), StyleChain{style});
  EXPECT_EQ(style->styleParent(Word::Width), nullptr);
  EXPECT_TRUE(chainOf(*style).empty());

  Scene3d* scene3d = add<Scene3d>(*canvas);
  EXPECT_EQ(scene3d->width(), 70);
  EXPECT_EQ(chainOf(*scene3d).size(), 1U);
  EXPECT_EQ(chainOf(*scene3d).front()->tagName(), Word::Scene3dStyle);
  EXPECT_EQ(make<Scene2d>()->styleParent(Word::Width), nullptr) << "not in a canvas";
}

TEST_F(StyleTest, ACoordinateSystemsStyleIsInTheSceneOrInTheCanvas) {
  EXPECT_EQ(system->styleParent(Word::Axes), nullptr);
  EXPECT_TRUE(chainOf(*system).empty());
  const auto* ofCanvas =
      add<CoordinateSystem2dStyle>(*canvas, {{Word::Axes, "Frame"}, {Word::TicksLength, "3"}});
  EXPECT_EQ(system->styleParent(Word::Axes), ofCanvas);
  const auto* ofScene = add<CoordinateSystem2dStyle>(*scene, {{Word::Axes, "Origin"}});
  EXPECT_EQ(system->styleParent(Word::Axes), ofScene) << "it hides that of the canvas";
  EXPECT_EQ(system->styleParent(Word::TicksLength), ofCanvas) << "it lets that through";
  EXPECT_EQ(system->styleParent(Word::Scaling), nullptr);
  EXPECT_EQ(system->axes(), Word::Origin);
  EXPECT_EQ(system->ticksLength(), 3);
  EXPECT_EQ(chainOf(*system), (StyleChain{ofScene, ofCanvas}));

  EXPECT_EQ(ofScene->styleParent(Word::TicksLength), ofCanvas);
  EXPECT_EQ(ofScene->styleParent(Word::Scaling), nullptr);
  EXPECT_EQ(ofScene->ticksLength(), 3);
  EXPECT_EQ(chainOf(*ofScene), StyleChain{ofCanvas});
  EXPECT_EQ(ofCanvas->styleParent(Word::Axes), nullptr);
  EXPECT_TRUE(chainOf(*ofCanvas).empty());
}

TEST_F(StyleTest, The3dFormsKeepToTheirOwnStyles) {
  Scene3d* scene3d = add<Scene3d>(*canvas);
  CoordinateSystem3d* system3d = add<CoordinateSystem3d>(*scene3d);
  add<CoordinateSystem2dStyle>(*canvas, {{Word::Axes, "Frame"}});
  EXPECT_EQ(system3d->styleParent(Word::Axes), nullptr);
  const auto* ofCanvas = add<CoordinateSystem3dStyle>(*canvas, {{Word::Axes, "Origin"}});
  const auto* ofScene = add<CoordinateSystem3dStyle>(*scene3d, {{Word::Scaling, "Constrained"}});
  EXPECT_EQ(system3d->styleParent(Word::Axes), ofCanvas);
  EXPECT_EQ(system3d->styleParent(Word::Scaling), ofScene);
  EXPECT_EQ(ofScene->styleParent(Word::Axes), ofCanvas);
  EXPECT_EQ(ofScene->styleParent(Word::Scaling), nullptr) << "not itself";
  EXPECT_EQ(ofCanvas->styleParent(Word::Axes), nullptr);
  EXPECT_EQ(chainOf(*system3d), (StyleChain{ofScene, ofCanvas}));
  EXPECT_EQ(chainOf(*ofScene), StyleChain{ofCanvas});
  EXPECT_TRUE(chainOf(*ofCanvas).empty());
}

TEST_F(StyleTest, ATransformInSpaceInheritsByItsOwnType) {
  CoordinateSystem3d* system3d = add<CoordinateSystem3d>(*add<Scene3d>(*canvas));
  const ObjStyle* forAll =
      addStyle(*system3d, "Default", {{Word::TimeEnd, "9"}, {Word::Frames, "8"}});
  const ObjStyle* typed = addStyle(*canvas, "Rotate3d", {{Word::Frames, "7"}});
  addStyle(*canvas, "Rotate2d", {{Word::Frames, "6"}});
  const Transform3d* transform = add<Transform3d>(*system3d, {{Word::Type, "Rotate3d"}});
  EXPECT_EQ(transform->styleParent(Word::Frames), typed);
  EXPECT_EQ(transform->styleParent(Word::TimeEnd), forAll);
  EXPECT_EQ(transform->styleParent(Word::TimeBegin), nullptr);
  EXPECT_EQ(chainOf(*transform), (StyleChain{typed, forAll}));
}

TEST_F(StyleTest, AStyleInAFragmentHoldsForWhatIsInTheFragment) {
  const Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
  const ObjStyle* style = addStyle(*fragment, "Curve2d", {{Word::LineWidth, "2"}});
  const Obj2d* beside = add<Obj2d>(*fragment, {{Word::Type, "Curve2d"}});
  const Obj2d* inside = add<Obj2d>(*add<Group2d>(*fragment), {{Word::Type, "Curve2d"}});
  for (const Obj2d* each : {beside, inside}) {
    EXPECT_EQ(each->lineWidth(), 2);
    EXPECT_EQ(each->styleParent(Word::LineWidth), style);
    EXPECT_EQ(chainOf(*each), StyleChain{style});
  }
  EXPECT_EQ(object->lineWidth(), 0.5) << "in another tree";
}

TEST_F(StyleTest, AStyleBesideTheCanvasHoldsForAll) {
  const ObjStyle* style = addStyle(*document, "Default", {{Word::LineWidth, "2"}});
  EXPECT_EQ(object->lineWidth(), 2);
  EXPECT_EQ(chainOf(*object), StyleChain{style});
  const ObjStyle* nearer = addStyle(*canvas, "Default", {{Word::LineWidth, "3"}});
  EXPECT_EQ(object->lineWidth(), 3);
  EXPECT_EQ(chainOf(*object), (StyleChain{nearer, style}));
  EXPECT_EQ(chainOf(*nearer), StyleChain{style});
}

TEST_F(StyleTest, AnOutermostStyleInheritsFromNobody) {
  const ObjStyle* besideTheCanvas = addStyle(*document, "Default", {{Word::LineWidth, "2"}});
  const Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
  addStyle(*fragment, "Default", {{Word::LineWidth, "1"}});
  ObjStyle* inFragment = addStyle(*fragment, "Default", {{Word::LineWidth, "1"}});
  for (const ObjStyle* style : {besideTheCanvas, static_cast<const ObjStyle*>(inFragment)}) {
    EXPECT_EQ(style->styleParent(Word::LineWidth), nullptr);
    EXPECT_TRUE(chainOf(*style).empty());
  }
  inFragment->dropInheritedProperties();
  EXPECT_TRUE(inFragment->hasAttribute(Word::LineWidth));
}

TEST_F(StyleTest, ElementsWithoutADocumentHaveStylesToo) {
  const Ref<Group2d> container(new Group2d(nullptr));
  const Ref<ObjStyle> style(new ObjStyle(nullptr));
  const Ref<Obj2d> inside(new Obj2d(nullptr));
  style->setAttributeFromString(Word::Type, "Default");
  style->setAttributeFromString(Word::LineWidth, "2");
  container->appendChild(style.get());
  container->appendChild(inside.get());
  EXPECT_EQ(inside->lineWidth(), 2);
  EXPECT_EQ(chainOf(*inside), StyleChain{style.get()});
}

TEST_F(StyleTest, AllOthersInheritFromNobody) {
  addStyle(*canvas, "Default", {{Word::LineWidth, "1"}});
  for (const PlotElement* element : std::initializer_list<PlotElement*>{canvas, group, image}) {
    EXPECT_EQ(element->styleParent(Word::LineWidth), nullptr);
    EXPECT_TRUE(chainOf(*element).empty());
  }
  for (const Token name : {Word::Hints, Word::TimeRange, Word::View2d, Word::Tr2d, Word::Title,
                           Word::VExpr, Word::Prop, Word::ObjType}) {
    EXPECT_EQ(make(name)->styleParent(Word::LineWidth), nullptr);
    EXPECT_TRUE(chainOf(*make(name)).empty());
  }
}

TEST_F(StyleTest, OnlyStylesAreStyles) {
  for (const Token name : {Word::ObjStyle, Word::Scene2dStyle, Word::Scene3dStyle,
                           Word::CoordinateSystem2dStyle, Word::CoordinateSystem3dStyle}) {
    EXPECT_TRUE(make(name)->isStyle());
  }
  for (const Token name : {Word::Canvas, Word::Scene2d, Word::Obj2d, Word::Mesh3d, Word::Title}) {
    EXPECT_FALSE(make(name)->isStyle());
  }
}

// Changes that go down.

TEST_F(StyleTest, AChangeOfAStyleReachesWhatInheritsFromIt) {
  ObjStyle* style = addStyle(*canvas, "Curve2d", {{Word::PointSize, "3"}});
  curve->setAttributeFromString(Word::PointSize, "7");
  Obj2d* other = add<Obj2d>(*system, {{Word::Type, "Polygon2d"}});
  add<Poly2d>(*add<Img2d>(*other));
  PropertyObserver observer(*document);

  style->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(curve->lineWidth(), 4);
  // An object of another type passes the change on, so that its primitives resolve anew.
  EXPECT_EQ(observer.take(),
            (Log{"ObjStyle.LineWidth", "Obj2d.LineWidth", "Poly2d.LineWidth", "Poly2d.LineWidth"}));

  style->setAttributeFromString(Word::PointSize, "5");
  EXPECT_EQ(curve->pointSize(), 7) << "its own value stays";
  EXPECT_EQ(observer.take(), (Log{"ObjStyle.PointSize", "Obj2d.PointSize", "Poly2d.PointSize"}));

  style->removeAttribute(Word::LineWidth);
  EXPECT_EQ(curve->lineWidth(), 0.5);
  EXPECT_EQ(observer.take(),
            (Log{"ObjStyle.LineWidth", "Obj2d.LineWidth", "Poly2d.LineWidth", "Poly2d.LineWidth"}));
}

TEST_F(StyleTest, AnObjectWithAValueOfItsOwnStopsTheChange) {
  ObjStyle* style = addStyle(*canvas, "Curve2d");
  object->setAttributeFromString(Word::LineWidth, "2");
  EXPECT_EQ(curve->lineWidth(), 2);
  PropertyObserver observer(*document);
  style->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(curve->lineWidth(), 2);
  EXPECT_EQ(observer.take(), Log{"ObjStyle.LineWidth"});
}

TEST_F(StyleTest, AChangeOfAnObjectReachesItsPrimitives) {
  PropertyObserver observer(*document);
  object->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(curve->lineWidth(), 4);
  EXPECT_EQ(observer.take(), (Log{"Obj2d.LineWidth", "Poly2d.LineWidth"}));
  object->removeAttribute(Word::LineWidth);
  EXPECT_EQ(curve->lineWidth(), 0.5);
  object->setAttributeFromString(Word::TextFont, "serif 9");  // no property of the primitive
  observer.take();
  curve->setAttributeFromString(Word::LineColor, "#00ff00");
  EXPECT_EQ(observer.take(), Log{"Poly2d.LineColor"});
}

TEST_F(StyleTest, AChangeGoesThroughTransformsAndGroups) {
  ObjStyle* style = addStyle(*scene, "Curve2d");
  Transform2d* transform = add<Transform2d>(*group, {{Word::Type, "Scale2d"}});
  Obj2d* inside = add<Obj2d>(*transform, {{Word::Type, "Curve2d"}});
  Line2d* line = add<Line2d>(*add<Img2d>(*inside));
  style->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(line->lineWidth(), 4);
  EXPECT_EQ(curve->lineWidth(), 4);

  ObjStyle* forTransforms = addStyle(*scene, "Scale2d");
  forTransforms->setAttributeFromString(Word::Frames, "6");
  EXPECT_EQ(transform->frames(), 6);
}

TEST_F(StyleTest, AChangeOfAnOuterStyleGoesThroughAnInnerOne) {
  ObjStyle* outer = addStyle(*canvas, "Curve2d");
  ObjStyle* inner = addStyle(*scene, "Curve2d");
  PropertyObserver observer(*document);
  outer->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(inner->lineWidth(), 4);
  EXPECT_EQ(object->lineWidth(), 4);
  EXPECT_EQ(curve->lineWidth(), 4);
  const Log events = observer.take();
  EXPECT_EQ(std::count(events.begin(), events.end(), "ObjStyle.LineWidth"), 2);
  EXPECT_GE(std::count(events.begin(), events.end(), "Poly2d.LineWidth"), 1);

  inner->setAttributeFromString(Word::LineWidth, "5");
  outer->setAttributeFromString(Word::LineWidth, "6");
  EXPECT_EQ(inner->lineWidth(), 5);
  EXPECT_EQ(curve->lineWidth(), 5) << "the inner value hides the outer one";
}

/// Counts the events for each element.
class EventCounter : public PropertyObserver {
 public:
  using PropertyObserver::PropertyObserver;
  void handleEvent(const dom::DomEvent& event) override { ++counts[event.target]; }

  std::map<const dom::Node*, int> counts;
};

// By way of each style that is met, the number of events would double with each group.
TEST_F(StyleTest, EachElementGetsOneEventHoweverManyStylesAreBetween) {
  ObjStyle* outermost = addStyle(*canvas, "Curve2d");
  std::vector<const dom::Node*> expected{outermost, object, curve};
  Group2d* inner = group;
  for (int i = 0; i < 60; ++i) {
    inner = add<Group2d>(*inner);
    expected.push_back(addStyle(*inner, "Curve2d"));
    Obj2d* inside = add<Obj2d>(*inner, {{Word::Type, "Curve2d"}});
    expected.push_back(inside);
    expected.push_back(add<Poly2d>(*add<Img2d>(*inside)));
  }
  EventCounter counter(*document);
  outermost->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(counter.counts.size(), expected.size());
  for (const dom::Node* element : expected) EXPECT_EQ(counter.counts[element], 1);
  EXPECT_EQ(static_cast<const Poly2d*>(expected.back())->lineWidth(), 4);

  counter.counts.clear();
  outermost->setPropertyValue(Word::LineWidth, DoubleVariant(5));
  EXPECT_EQ(counter.counts.size(), expected.size());
  for (const dom::Node* element : expected) EXPECT_EQ(counter.counts[element], 1);

  counter.counts.clear();
  document->undo();
  EXPECT_EQ(static_cast<const Poly2d*>(expected.back())->lineWidth(), 0.5);
}

TEST_F(StyleTest, AStyleThatGoesStaysInWhatIsResolvedUntilThatIsAttachedAnew) {
  ObjStyle* style = addStyle(*canvas, "Curve2d");
  style->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(curve->lineWidth(), 4);
  canvas->removeChild(style);
  EXPECT_EQ(object->lineWidth(), 0.5) << "an object asks at each read";
  EXPECT_EQ(curve->lineWidth(), 4) << "a primitive was resolved before";
  object->attachedToDocument();
  EXPECT_EQ(curve->lineWidth(), 0.5);
}

TEST_F(StyleTest, AStyleThatComesLaterIsSeenByListsButNotByMembers) {
  EXPECT_EQ(curve->lineWidth(), 0.5);
  ObjStyle* style = addStyle(*canvas, "Curve2d", {{Word::PointSize, "9"}});
  const Ref<ObjStyle> complete = make<ObjStyle>({{Word::Type, "Curve2d"}, {Word::LineWidth, "3"}});
  canvas->appendChild(complete.get());
  EXPECT_EQ(object->lineWidth(), 3);
  EXPECT_EQ(curve->lineWidth(), 0.5) << "a new style brings no notification";
  complete->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(curve->lineWidth(), 4);
  EXPECT_EQ(curve->pointSize(), 9) << "set when the style was in the tree already";
  (void)style;
}

TEST_F(StyleTest, ASceneStyleNotifiesTheScenes) {
  Scene2dStyle* style = add<Scene2dStyle>(*canvas);
  PropertyObserver observer(*document);
  style->setAttributeFromString(Word::Width, "80");
  const Log events = observer.take();
  ASSERT_GE(events.size(), 2U);
  EXPECT_EQ(events[0], "Scene2dStyle.Width");
  EXPECT_EQ(events[1], "Scene2d.Width");
}

TEST_F(StyleTest, AStyleOfCoordinateSystemsInTheCanvasReachesThoseOfAllScenes) {
  auto* ofCanvas = add<CoordinateSystem2dStyle>(*canvas);
  auto* ofScene = add<CoordinateSystem2dStyle>(*scene);
  PropertyObserver observer(*document);
  ofCanvas->setAttributeFromString(Word::Axes, "Frame");
  EXPECT_EQ(observer.take(), (Log{"CoordinateSystem2dStyle.Axes", "CoordinateSystem2d.Axes",
                                  "CoordinateSystem2dStyle.Axes"}))
      << "once, not once more by the style in the scene";
  ofScene->setAttributeFromString(Word::Axes, "Origin");
  observer.take();
  ofCanvas->setAttributeFromString(Word::Axes, "Boxed");
  const Log events = observer.take();
  EXPECT_EQ(events.front(), "CoordinateSystem2dStyle.Axes");
  EXPECT_EQ(std::count(events.begin(), events.end(), "CoordinateSystem2dStyle.Axes"), 1);
}

TEST_F(StyleTest, WhatIsAnsweredToAChange) {
  ObjStyle* style = addStyle(*canvas, "Curve2d");
  ObjStyle* unrelated = addStyle(*canvas, "Surface");
  EXPECT_TRUE(object->parentPropertyChanged(*object, Word::LineWidth)) << "its own change";
  EXPECT_TRUE(object->parentPropertyChanged(*style, Word::LineWidth)) << "it inherits";
  EXPECT_TRUE(object->parentPropertyChanged(*unrelated, Word::LineWidth)) << "for those below";
  EXPECT_FALSE(object->parentPropertyChanged(*style, Word::Radius)) << "no such property";
  EXPECT_FALSE(object->parentPropertyChanged(*style, Word::Visible)) << "never inherited";
  object->setAttributeFromString(Word::LineWidth, "1");
  EXPECT_FALSE(object->parentPropertyChanged(*style, Word::LineWidth)) << "its own value hides it";
  EXPECT_TRUE(object->parentPropertyChanged(*unrelated, Word::LineWidth));

  EXPECT_FALSE(style->parentPropertyChanged(*unrelated, Word::LineWidth));
  EXPECT_FALSE(style->parentPropertyChanged(*style, Word::LineWidth));

  Transform2d* transform = add<Transform2d>(*system, {{Word::Type, "Rotate2d"}});
  Tr2d* map = add<Tr2d>(*transform);
  for (PlotElement* through : std::initializer_list<PlotElement*>{group, image, transform}) {
    EXPECT_TRUE(through->parentPropertyChanged(*style, Word::LineWidth)) << "on through it";
    EXPECT_FALSE(through->parentPropertyChanged(*through, Word::LineWidth)) << "no such property";
  }
  EXPECT_TRUE(group->parentPropertyChanged(*group, Word::Visible));
  EXPECT_TRUE(transform->parentPropertyChanged(*transform, Word::Frames));
  EXPECT_FALSE(map->parentPropertyChanged(*style, Word::LineWidth));
  EXPECT_TRUE(map->parentPropertyChanged(*map, Word::Shift));
  EXPECT_TRUE(curve->parentPropertyChanged(*style, Word::LineWidth));
  curve->setAttributeFromString(Word::LineWidth, "1");
  EXPECT_FALSE(curve->parentPropertyChanged(*style, Word::LineWidth));
  EXPECT_FALSE(curve->parentPropertyChanged(*style, Word::Radius));
}

// Local values that are the same as what is inherited.

TEST_F(StyleTest, ALocalValueGoesWhenTheStyleGetsTheSame) {
  ObjStyle* style = addStyle(*system, "Curve2d");
  Obj2d* beside = add<Obj2d>(*system, {{Word::Type, "Curve2d"}, {Word::LineWidth, "4"}});
  object->setAttributeFromString(Word::LineWidth, "4");
  style->setPropertyValue(Word::LineWidth, DoubleVariant(4));
  EXPECT_FALSE(beside->hasAttribute(Word::LineWidth));
  EXPECT_EQ(beside->lineWidth(), 4);
  EXPECT_TRUE(object->hasAttribute(Word::LineWidth)) << "a group does not pass it on";

  beside->setAttributeFromString(Word::LineWidth, "7");
  style->setPropertyValue(Word::LineWidth, DoubleVariant(5));
  EXPECT_TRUE(beside->hasAttribute(Word::LineWidth));
}

TEST_F(StyleTest, AStyleNotifiesScenesAndWhatIsInThem) {
  ObjStyle* style = addStyle(*canvas, "Curve2d");
  Obj2d* direct = add<Obj2d>(*system, {{Word::Type, "Curve2d"}, {Word::LineWidth, "4"}});
  ObjStyle* nearer = addStyle(*scene, "Curve2d", {{Word::PointSize, "6"}});
  direct->setAttributeFromString(Word::PointSize, "6");
  style->setPropertyValue(Word::LineWidth, DoubleVariant(4));
  EXPECT_FALSE(direct->hasAttribute(Word::LineWidth));
  style->setPropertyValue(Word::PointSize, DoubleVariant(6));
  EXPECT_TRUE(direct->hasAttribute(Word::PointSize)) << "its style parent is the nearer style";
  EXPECT_FALSE(nearer->hasAttribute(Word::PointSize)) << "that style inherits it as well";
}

TEST_F(StyleTest, AllLocalValuesThatAreTheSameCanBeDropped) {
  addStyle(*canvas, "Curve2d", {{Word::LineWidth, "4"}, {Word::PointSize, "5"}});
  Obj2d* direct = add<Obj2d>(*system, {{Word::Type, "Curve2d"},
                                       {Word::LineWidth, "4"},
                                       {Word::PointSize, "5"},
                                       {Word::TipAngle, "1"},
                                       {Word::LineColor, "#000000"}});
  add<Scene2dStyle>(*canvas, {{Word::Width, "80"}});
  scene->setAttributeFromString(Word::Width, "80");
  document->clearUndo();
  canvas->dropInheritedProperties();
  EXPECT_FALSE(direct->hasAttribute(Word::LineWidth));
  EXPECT_FALSE(direct->hasAttribute(Word::PointSize));
  EXPECT_TRUE(direct->hasAttribute(Word::TipAngle));
  EXPECT_TRUE(direct->hasAttribute(Word::LineColor)) << "equal to the default only";
  EXPECT_TRUE(direct->hasAttribute(Word::Type));
  EXPECT_FALSE(scene->hasAttribute(Word::Width));
  document->undo();
  EXPECT_TRUE(direct->hasAttribute(Word::LineWidth));
  EXPECT_TRUE(scene->hasAttribute(Word::Width));
}

TEST_F(StyleTest, ATransformDropsWhatItInheritsButItsType) {
  addStyle(*canvas, "Rotate2d", {{Word::TimeEnd, "7"}});
  Transform2d* transform =
      add<Transform2d>(*system, {{Word::Type, "Rotate2d"}, {Word::TimeEnd, "7"}});
  canvas->dropInheritedProperties();
  EXPECT_FALSE(transform->hasAttribute(Word::TimeEnd));
  EXPECT_EQ(transform->timeEnd(), 7);
  EXPECT_TRUE(transform->hasAttribute(Word::Type)) << "mandatory values stay";
  EXPECT_EQ(transform->type(), Word::Rotate2d);
}

TEST_F(StyleTest, WhatIsInAGroupDropsNothing) {
  addStyle(*canvas, "Curve2d", {{Word::LineWidth, "4"}});
  object->setAttributeFromString(Word::LineWidth, "4");
  canvas->dropInheritedProperties();
  EXPECT_TRUE(object->hasAttribute(Word::LineWidth)) << "a group does not pass the call on";
}

// The style has lost its value by then, so it is not from there that the object inherits.
TEST_F(StyleTest, ALocalValueStaysWhenTheStyleComesToInheritTheSame) {
  addStyle(*canvas, "Curve2d", {{Word::LineWidth, "1"}});
  ObjStyle* ofScene = addStyle(*scene, "Curve2d", {{Word::LineWidth, "2"}});
  Obj2d* direct = add<Obj2d>(*system, {{Word::Type, "Curve2d"}, {Word::LineWidth, "1"}});
  ofScene->setPropertyValue(Word::LineWidth, DoubleVariant(1));
  EXPECT_FALSE(ofScene->hasAttribute(Word::LineWidth));
  EXPECT_EQ(ofScene->lineWidth(), 1);
  EXPECT_TRUE(direct->hasAttribute(Word::LineWidth));
  EXPECT_EQ(direct->lineWidth(), 1);
}

// Typed access.

TEST_F(StyleTest, TheColourInTheLegendIsThePropertyThatIsNamed) {
  RGBA color = blue;
  EXPECT_FALSE(object->legendColor(color)) << "none is named";
  object->setAttributeFromString(Word::LineColor, "#ff0000");
  object->setAttributeFromString(Word::LegendColor, "LineColor");
  EXPECT_TRUE(object->legendColor(color));
  EXPECT_EQ(color, red);
  EXPECT_EQ(object->ObjectStyleGetter::legendColor(), Word::LineColor);

  color = blue;
  object->setAttributeFromString(Word::LegendColor, "LineWidth");
  EXPECT_FALSE(object->legendColor(color)) << "no colour";
  object->setAttributeFromString(Word::LegendColor, "Radius");
  EXPECT_FALSE(object->legendColor(color)) << "no property";
  object->setAttributeFromString(Word::LegendColor, "Type");
  EXPECT_FALSE(object->legendColor(color)) << "a word";
  EXPECT_EQ(color, blue);

  addStyle(*canvas, "Curve2d", {{Word::LegendColor, "FillColor"}, {Word::FillColor, "#ffff00"}});
  object->removeAttribute(Word::LegendColor);
  EXPECT_TRUE(object->legendColor(color)) << "both by inheritance";
  EXPECT_EQ(color, yellow);
}

TEST_F(StyleTest, TheParameterRangeOfAnObject) {
  const auto rangeOf = [](Obj2d& element) {
    double begin = 77;
    double end = 88;
    const bool isThere = element.parameterRange(begin, end);
    EXPECT_TRUE(isThere || (begin == 77 && end == 88));
    return isThere ? std::pair(begin, end) : std::pair(plot::nan, plot::nan);
  };
  const auto isNone = [](std::pair<double, double> range) { return std::isnan(range.first); };
  EXPECT_TRUE(isNone(rangeOf(*object)));
  PlotElement* end = add(*object, Word::ParameterEnd, {{Word::Val, "5"}});
  EXPECT_TRUE(isNone(rangeOf(*object)));
  PlotElement* begin = add(*object, Word::ParameterBegin, {{Word::Val, "2"}});
  EXPECT_EQ(rangeOf(*object), std::pair(2.0, 5.0)) << "in whichever order";
  begin->setAttributeFromString(Word::Val, "nan");
  EXPECT_TRUE(isNone(rangeOf(*object)));
  begin->setAttributeFromString(Word::Val, "2");
  end->setAttributeFromString(Word::Val, "nan");
  EXPECT_TRUE(isNone(rangeOf(*object)));

  Obj2d* other = add<Obj2d>(*group);
  add(*other, Word::ParameterBegin, {{Word::Val, "3"}});
  EXPECT_TRUE(isNone(rangeOf(*other)));
  add(*other, Word::ParameterEnd, {{Word::Val, "1"}});
  EXPECT_EQ(rangeOf(*other), std::pair(3.0, 1.0)) << "backwards too";
}

}  // namespace
}  // namespace vantry::plot::test
