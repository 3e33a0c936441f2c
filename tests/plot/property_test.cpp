// How properties are set, resolved, removed and reported: for values in members, and in lists.
#include <cmath>
#include <map>
#include <sstream>

#include "plot_test.h"
#include "vantry/plot/elements/box.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/sphere.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/elements/view.h"
#include "vantry/plot/framework/property_list.h"
#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot::test {
namespace {

/// A canvas, a scene, a coordinate system, an object of the type Surface and an image in it.
class PropertyTest : public PlotTest {
 protected:
  Canvas* canvas = add<Canvas>(*document);
  Scene3d* scene = add<Scene3d>(*canvas);
  CoordinateSystem3d* system = add<CoordinateSystem3d>(*scene);
  Obj3d* object = add<Obj3d>(*system, {{Word::Type, "Surface"}});
  Img3d* image = add<Img3d>(*object);
};

using Log = std::vector<std::string>;

// Members.

TEST_F(PropertyTest, AnUnknownPropertyIsRefusedEverywhere) {
  const Ref<Sphere> sphere = make<Sphere>();
  const std::string complaint = "PlotDom error: unknown property 'XMesh' [node 'Sphere']\n";
  const Variant value = LongVariant(3);
  const auto refused = [&](auto act) {
    EXPECT_EQ(codeOf(act), DomException::InvalidAccess);
    EXPECT_EQ(takeComplaints(), complaint);
  };
  refused([&] { sphere->setAttributeFromString(Word::XMesh, "3"); });
  refused([&] { sphere->getAttribute(Word::XMesh); });
  refused([&] { sphere->doSetAttribute(Word::XMesh, value); });
  refused([&] { sphere->doRemoveAttribute(Word::XMesh); });
  refused([&] { sphere->getPropertyValue(Word::XMesh); });
  refused([&] { sphere->setPropertyValue(Word::XMesh, value); });

  EXPECT_EQ(sphere->findProperty(Word::XMesh), nullptr);
  EXPECT_FALSE(sphere->hasAttribute(Word::XMesh));
  EXPECT_FALSE(sphere->hasProperty(Word::XMesh));
  EXPECT_FALSE(sphere->canSetAttribute(Word::XMesh, value));
  EXPECT_FALSE(sphere->canRemoveAttribute(Word::XMesh));
  EXPECT_FALSE(sphere->isWritableProperty(Word::XMesh));
  EXPECT_FALSE(sphere->parentPropertyChanged(*sphere, Word::XMesh));
  EXPECT_EQ(codeOf([&] { sphere->setAttribute(Word::XMesh, value); }),
            DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PropertyTest, AWordThatNoClassHasAsAPropertyIsUnknown) {
  const Ref<Sphere> sphere = make<Sphere>();
  EXPECT_EQ(sphere->findProperty(token("Wobbly")), nullptr);
  EXPECT_EQ(codeOf([&] { sphere->setAttributeFromString(token("Wobbly"), "1"); }),
            DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: unknown property 'Wobbly' [node 'Sphere']\n");
}

TEST_F(PropertyTest, AnElementWithoutPropertiesKnowsNone) {
  const Ref<PlotElement> points = make(Word::Points2d);
  EXPECT_EQ(codeOf([&] { points->setAttributeFromString(Word::Name, "x"); }),
            DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: unknown property 'Name' [node 'Points2d']\n");
}

TEST_F(PropertyTest, AnAttributeWithoutAValueIsNoError_ButReadingItIs) {
  const Ref<Sphere> sphere = make<Sphere>();
  EXPECT_FALSE(sphere->hasAttribute(Word::Shading));
  EXPECT_EQ(codeOf([&] { sphere->getAttribute(Word::Shading); }), DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PropertyTest, ABadTextLeavesTheOldValue) {
  const Ref<Sphere> sphere = make<Sphere>({{Word::Radius, "2.5"}});
  EXPECT_EQ(codeOf([&] { sphere->setAttributeFromString(Word::Radius, "wide"); }),
            DomException::Syntax);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value string [attribute 'Radius']\n");
  EXPECT_EQ(sphere->radius(), 2.5);
}

TEST_F(PropertyTest, AnUnknownKeywordIsKept) {
  const Ref<Sphere> sphere = make<Sphere>({{Word::Shading, "Wobbly"}});
  EXPECT_EQ(sphere->shading(), token("Wobbly"));
  EXPECT_TRUE(sphere->hasAttribute(Word::Shading));
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PropertyTest, ValuesOutsideOfTheirRangeAreBroughtIn) {
  EXPECT_EQ(make<Sphere>({{Word::Radius, "-2"}})->radius(), 0);
  EXPECT_EQ(valueOf(*make(Word::Circle3d, {{Word::Radius, "-2"}}), Word::Radius), "0");
  EXPECT_EQ(valueOf(*make(Word::Ellipsoid, {{Word::SemiAxisX, "-1"}}), Word::SemiAxisX), "0");
  EXPECT_EQ(valueOf(*make(Word::AmbientLight, {{Word::LightIntensity, "2"}}), Word::LightIntensity),
            "1");
  EXPECT_EQ(
      valueOf(*make(Word::AmbientLight, {{Word::LightIntensity, "-1"}}), Word::LightIntensity),
      "0");
  EXPECT_EQ(valueOf(*make(Word::SpotLight, {{Word::LightIntensity, "nan"}}), Word::LightIntensity),
            "nan");
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PropertyTest, AMarginOfACanvasIsBroughtInWhereThatOfASceneIsRefused) {
  EXPECT_EQ(valueOf(*make(Word::Canvas, {{Word::TopMargin, "-3"}}), Word::TopMargin), "0");
  EXPECT_EQ(valueOf(*make(Word::Canvas, {{Word::Spacing, "-1"}}), Word::Spacing), "0");
  EXPECT_EQ(takeComplaints(), "");
  EXPECT_EQ(codeOf([&] {
              make(Word::Scene2d, {{Word::TopMargin, "-3"}});
            }),
            DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value [attribute 'TopMargin']\n");
}

TEST_F(PropertyTest, ARefusedValueLeavesTheElementAsItWas) {
  const Ref<PlotElement> line = make(Word::Line3d, {{Word::LineWidth, "2"}});
  for (const char* text : {"0", "-1", "nan"}) {
    EXPECT_EQ(codeOf([&] { line->setAttributeFromString(Word::LineWidth, text); }),
              DomException::HierarchyRequest);
    EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value [attribute 'LineWidth']\n");
  }
  EXPECT_EQ(valueOf(*line, Word::LineWidth), "2");
  EXPECT_EQ(codeOf([&] {
              make(Word::Mesh3d, {{Word::UMesh, "0"}});
            }),
            DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value [attribute 'UMesh']\n");
  make(Word::Mesh3d, {{Word::USubmesh, "0"}});
  EXPECT_EQ(codeOf([&] {
              make(Word::Canvas, {{Word::Width, "0"}});
            }),
            DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value [attribute 'Width']\n");
}

TEST_F(PropertyTest, AVariantOfAnotherKindLeavesTheElementAsItWas) {
  const Ref<Sphere> sphere = make<Sphere>({{Word::Radius, "2.5"}});
  EXPECT_EQ(codeOf([&] { sphere->setAttribute(Word::Radius, LongVariant(3)); }),
            DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value [attribute 'Radius']\n");
  EXPECT_EQ(sphere->radius(), 2.5);

  object->setAttributeFromString(Word::LineWidth, "2.5");
  EXPECT_EQ(codeOf([&] { object->setAttribute(Word::LineWidth, LongVariant(3)); }),
            DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal value [attribute 'LineWidth']\n");
  EXPECT_EQ(object->lineWidth(), 2.5);
}

/// A transform of which nothing can be changed once it is locked.
class LockableTransform final : public ElementOf<LockableTransform, TransformBase> {
 public:
  static constexpr Token tag = Word::Transform2d;
  using ElementOf::ElementOf;
  bool isContentChild(const dom::Node&) const override { return true; }
  bool isReadOnly() const override { return isLocked; }

  bool isLocked = false;
};

TEST_F(PropertyTest, AReadOnlyElementRefusesEachValueInSilence) {
  const Ref<LockableTransform> transform(new LockableTransform(document.get()));
  transform->setAttributeFromString(Word::Frames, "3");
  transform->isLocked = true;
  const auto refuse = [&](const char* text, int code, const std::string& complaint) {
    EXPECT_EQ(codeOf([&] { transform->setAttributeFromString(Word::Frames, text); }), code);
    EXPECT_EQ(takeComplaints(), complaint);
    EXPECT_EQ(transform->frames(), 3);
  };
  refuse("7", DomException::NoModificationAllowed, "");
  refuse("-1", DomException::NoModificationAllowed, "");
  refuse("many", DomException::Syntax,
         "PlotDom error: illegal value string [attribute 'Frames']\n");
}

TEST_F(PropertyTest, AMandatoryMemberIsThereFromTheStartAndNeverGoes) {
  const Ref<Box> box = make<Box>();
  for (const Token name :
       {Word::XMin, Word::XMax, Word::YMin, Word::YMax, Word::ZMin, Word::ZMax}) {
    EXPECT_TRUE(box->hasAttribute(name));
    EXPECT_EQ(box->getAttribute(name), DoubleVariant(-1));
    EXPECT_FALSE(box->canRemoveAttribute(name));
    EXPECT_EQ(codeOf([&] { box->removeAttribute(name); }), DomException::HierarchyRequest);
    EXPECT_TRUE(box->hasAttribute(name));
  }
  EXPECT_EQ(box->getAttribute(Word::XMin), DoubleVariant(-1));
}

TEST_F(PropertyTest, AMandatoryMemberWithoutADefaultHoldsNothing) {
  const Ref<Transform2d> transform = make<Transform2d>();
  EXPECT_TRUE(transform->hasAttribute(Word::Type));
  EXPECT_EQ(transform->getAttribute(Word::Type), TokenVariant(Token()));
  const Ref<PlotElement> prop = make(Word::Prop);
  EXPECT_TRUE(prop->hasAttribute(Word::Opt));
  EXPECT_TRUE(prop->hasAttribute(Word::Val));
  EXPECT_EQ(prop->getAttribute(Word::Val).as<FixedStringVariant>()->get().c_str(), nullptr);
}

TEST_F(PropertyTest, AValueEqualToTheDefaultCountsAsSet) {
  const Ref<Mesh3d> mesh = make<Mesh3d>({{Word::LineWidth, "0.5"}, {Word::USubmesh, "0"}});
  EXPECT_TRUE(mesh->hasAttribute(Word::LineWidth));
  EXPECT_TRUE(mesh->hasAttribute(Word::USubmesh));
  EXPECT_FALSE(mesh->hasAttribute(Word::VSubmesh));
}

TEST_F(PropertyTest, AViewKnowsWhatItWasGiven) {
  const Ref<View2d> view = make<View2d>({{Word::ViewXMax, "3"}});
  EXPECT_TRUE(std::isnan(view->viewXMin()));
  EXPECT_FALSE(view->hasAttribute(Word::ViewXMin));
  EXPECT_TRUE(view->hasAttribute(Word::ViewXMax));
}

TEST_F(PropertyTest, WithoutAStyleTheDefaultOfTheOwnClassHolds) {
  const Mesh3d* mesh = add<Mesh3d>(*image);
  EXPECT_FALSE(mesh->hasAttribute(Word::FillColor));
  EXPECT_EQ(mesh->fillColor(), red) << "a mesh's default, not the object's";
  EXPECT_EQ(mesh->getPropertyValue(Word::FillColor), RGBAVariant(red));
}

TEST_F(PropertyTest, AMemberIsResolvedWhenTheElementMeetsTheDocument) {
  add<ObjStyle>(*canvas, {{Word::Type, "Surface"}, {Word::LineWidth, "3"}});
  const Ref<Mesh3d> mesh = make<Mesh3d>({{Word::LineColor, "#00ff00"}});
  EXPECT_EQ(mesh->shading(), Token()) << "no more than the constructor wrote";
  const Ref<Img3d> apart = make<Img3d>();
  apart->appendChild(mesh.get());
  EXPECT_EQ(mesh->shading(), Token());

  object->appendChild(apart.get());
  EXPECT_EQ(mesh->shading(), Word::Flat);
  EXPECT_EQ(mesh->lineWidth(), 3);
  EXPECT_FALSE(mesh->hasAttribute(Word::LineWidth));
  EXPECT_EQ(mesh->lineColor(), RGBA(0, 255, 0));
}

// The outermost element comes into the document by a way of its own.
TEST_F(PropertyTest, AWholeTreeIsResolvedByACallOfAttachedToDocument) {
  document->removeChild(canvas);
  const Ref<Canvas> whole = make<Canvas>();
  add<ObjStyle>(*whole, {{Word::Type, "Surface"}, {Word::LineWidth, "3"}});
  CoordinateSystem3d* axes = add<CoordinateSystem3d>(*add<Scene3d>(*whole));
  Obj3d* surface = add<Obj3d>(*axes, {{Word::Type, "Surface"}});
  const Mesh3d* mesh = add<Mesh3d>(*add<Img3d>(*surface));
  document->appendChild(whole.get());
  EXPECT_TRUE(mesh->isInDocument());
  EXPECT_EQ(mesh->shading(), Token());
  EXPECT_EQ(mesh->lineWidth(), 0);

  whole->attachedToDocument();
  EXPECT_EQ(mesh->shading(), Word::Flat);
  EXPECT_EQ(mesh->lineWidth(), 3);
}

TEST_F(PropertyTest, OnlyInheritedMembersAreFilledFromStyles) {
  add<ObjStyle>(*canvas, {{Word::Type, "Default"},
                          {Word::USubmesh, "5"},
                          {Word::UMesh, "7"},
                          {Word::ULinesVisible, "0"}});
  const Mesh3d* mesh = add<Mesh3d>(*image);
  EXPECT_EQ(mesh->uSubmesh(), 0) << "optional: its default stays";
  EXPECT_EQ(mesh->uMesh(), 20) << "mandatory";
  EXPECT_FALSE(mesh->uLinesVisible()) << "inherited";
}

TEST_F(PropertyTest, ARemovedMemberHoldsWhatTheStyleParentHas) {
  object->setAttributeFromString(Word::LineWidth, "3");
  Mesh3d* mesh = add<Mesh3d>(*image, {{Word::LineWidth, "1"}, {Word::LineColor, "#00ff00"}});
  EXPECT_EQ(mesh->lineWidth(), 1);
  mesh->removeAttribute(Word::LineWidth);
  EXPECT_EQ(mesh->lineWidth(), 3);
  EXPECT_FALSE(mesh->hasAttribute(Word::LineWidth));
  mesh->removeAttribute(Word::LineColor);
  EXPECT_EQ(mesh->lineColor(), black) << "nobody has it: the default";
  mesh->removeAttribute(Word::LineColor);  // not there: nothing happens
}

// Only what is removed asks the style parent; what comes later does not reach it.
TEST_F(PropertyTest, AnOptionalMemberThatIsRemovedHoldsWhatTheStyleParentHas) {
  Mesh3d* mesh = add<Mesh3d>(*image);
  object->setAttribute(Word::USubmesh, LongVariant(5));
  EXPECT_EQ(mesh->uSubmesh(), 0);
  mesh->setAttribute(Word::USubmesh, LongVariant(1));
  mesh->removeAttribute(Word::USubmesh);
  EXPECT_EQ(mesh->uSubmesh(), 5);
  EXPECT_FALSE(mesh->hasAttribute(Word::USubmesh));
}

TEST_F(PropertyTest, UndoGivesAMemberBackWhatItInherited) {
  object->setAttributeFromString(Word::LineWidth, "3");
  Mesh3d* mesh = add<Mesh3d>(*image);
  document->startUndoGroup();
  mesh->setAttributeFromString(Word::LineWidth, "5");
  document->undo();
  EXPECT_EQ(mesh->lineWidth(), 3);
  EXPECT_FALSE(mesh->hasAttribute(Word::LineWidth));
  document->redo();
  EXPECT_EQ(mesh->lineWidth(), 5);
  EXPECT_TRUE(mesh->hasAttribute(Word::LineWidth));
}

/// Keeps of which properties it is notified, as "tag.property".
class ListeningObject final : public ElementOf<ListeningObject, Obj2d> {
 public:
  using ElementOf::ElementOf;
  void propertyChanged(PlotElement& source, Token name) override {
    log.push_back(std::string(source.tagName().str()) + "." + name.str());
  }

  Log log;
};

TEST_F(PropertyTest, AnElementWithMembersNotifiesItsChildrenOfWhatItWasGiven) {
  const Ref<PlotElement> group = make(Word::Group2d);
  const Ref<ListeningObject> child(new ListeningObject(document.get()));
  const Ref<ListeningObject> deeper(new ListeningObject(document.get()));
  add(*group, Word::Group2d)->appendChild(deeper.get());
  group->appendChild(child.get());
  group->setPropertyValue(Word::Visible, BoolVariant(false));
  EXPECT_EQ(child->log, Log{"Group2d.Visible"});
  EXPECT_EQ(deeper->log, Log{}) << "only its children";
  group->setAttribute(Word::Visible, BoolVariant(true));
  EXPECT_EQ(child->log.size(), 1U) << "an attribute is not passed on that way";
}

TEST_F(PropertyTest, SettingWhatTheStyleParentHasLeavesTheMemberUnset) {
  object->setAttributeFromString(Word::LineWidth, "3");
  Mesh3d* mesh = add<Mesh3d>(*image, {{Word::LineWidth, "1"}});
  mesh->setPropertyValue(Word::LineWidth, DoubleVariant(3));
  EXPECT_FALSE(mesh->hasAttribute(Word::LineWidth));
  EXPECT_EQ(mesh->lineWidth(), 3);
  mesh->setPropertyValue(Word::LineWidth, DoubleVariant(4));
  EXPECT_TRUE(mesh->hasAttribute(Word::LineWidth));
  EXPECT_EQ(mesh->lineWidth(), 4);
  mesh->setPropertyValue(Word::LineColor, RGBAVariant(black));
  EXPECT_TRUE(mesh->hasAttribute(Word::LineColor)) << "the default is no style parent";
}

// The comparison is that of variants, bit by bit.
TEST_F(PropertyTest, ANanEqualsTheNanOfTheStyleParent) {
  object->setAttributeFromString(Word::LineColorDirectionX, "nan");
  Mesh3d* mesh = add<Mesh3d>(*image, {{Word::LineColorDirectionX, "1"}});
  mesh->setPropertyValue(Word::LineColorDirectionX,
                         object->getPropertyValue(Word::LineColorDirectionX));
  EXPECT_FALSE(mesh->hasAttribute(Word::LineColorDirectionX));
  object->setAttributeFromString(Word::LineColorDirectionX, "0");
  mesh->setPropertyValue(Word::LineColorDirectionX, DoubleVariant(-0.0));
  EXPECT_TRUE(mesh->hasAttribute(Word::LineColorDirectionX));
}

// It must have a value of its own, so this cannot be left to the style parent.
TEST_F(PropertyTest, AMandatoryMemberKeepsTheValueOfTheStyleParentAsItsOwn) {
  object->setAttributeFromString(Word::UMesh, "25");
  Mesh3d* mesh = add<Mesh3d>(*image);
  EXPECT_EQ(mesh->uMesh(), 20);
  mesh->setPropertyValue(Word::UMesh, LongVariant(25));
  EXPECT_EQ(mesh->uMesh(), 25);
  EXPECT_TRUE(mesh->hasAttribute(Word::UMesh));
  object->setAttributeFromString(Word::UMesh, "26");
  EXPECT_EQ(mesh->uMesh(), 25);

  add<ObjStyle>(*canvas, {{Word::Type, "Rotate3d"}});
  auto* transform = add<Transform3d>(*system, {{Word::Type, "Rotate3d"}});
  transform->setPropertyValue(Word::Type, TokenVariant(Word::Rotate3d));
  EXPECT_EQ(transform->type(), Word::Rotate3d);
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PropertyTest, AMemberThatEqualsTheInheritedValueCanBeDropped) {
  object->setAttributeFromString(Word::LineWidth, "3");
  object->setAttributeFromString(Word::PointSize, "4");
  object->setAttributeFromString(Word::LineColorDirectionX, "nan");
  Mesh3d* mesh = add<Mesh3d>(*image, {{Word::LineWidth, "3"},
                                      {Word::PointSize, "5"},
                                      {Word::LineColorDirectionX, "nan"},
                                      {Word::LineColor, "#000000"}});
  mesh->dropInheritedProperties();
  EXPECT_FALSE(mesh->hasAttribute(Word::LineWidth));
  EXPECT_EQ(mesh->lineWidth(), 3);
  EXPECT_TRUE(mesh->hasAttribute(Word::PointSize));
  EXPECT_TRUE(mesh->hasAttribute(Word::LineColorDirectionX)) << "a NaN equals no number";
  EXPECT_TRUE(mesh->hasAttribute(Word::LineColor)) << "equal to the default, but not inherited";

  const Property& property = *mesh->findProperty(Word::PointSize);
  mesh->setAttributeFromString(Word::PointSize, "4");
  property.dropIfInherited(*mesh, *canvas);
  EXPECT_TRUE(mesh->hasAttribute(Word::PointSize)) << "the canvas is not the style parent";
  property.dropIfInherited(*mesh, *object);
  EXPECT_FALSE(mesh->hasAttribute(Word::PointSize));
}

TEST_F(PropertyTest, TheZerosOfBothSignsAreTheSameWhenDropped) {
  object->setAttributeFromString(Word::LineColorDirectionX, "0");
  Mesh3d* mesh = add<Mesh3d>(*image, {{Word::LineColorDirectionX, "-0"}});
  mesh->dropInheritedProperties();
  EXPECT_FALSE(mesh->hasAttribute(Word::LineColorDirectionX));
}

TEST_F(PropertyTest, WhatIsReportedOfMembers) {
  Mesh3d* mesh = add<Mesh3d>(*image);
  PropertyObserver observer(*document);
  document->startUndoGroup();
  mesh->setAttributeFromString(Word::LineWidth, "2");
  EXPECT_EQ(observer.take(), Log{"Mesh3d.LineWidth"});
  mesh->removeAttribute(Word::LineWidth);
  EXPECT_EQ(observer.take(), Log{"Mesh3d.LineWidth"});
  document->undo();
  EXPECT_EQ(observer.take(), (Log{"Mesh3d.LineWidth", "Mesh3d.LineWidth"}));

  const Property& property = *mesh->findProperty(Word::LineWidth);
  mesh->removeAttribute(Word::LineWidth);
  observer.take();
  EXPECT_TRUE(property.inheritFrom(*mesh, {}));
  EXPECT_EQ(observer.take(), Log{"Mesh3d.LineWidth"});
  mesh->doSetAttribute(Word::LineWidth, DoubleVariant(2));
  EXPECT_FALSE(property.inheritFrom(*mesh, {}));
  EXPECT_EQ(observer.take(), Log{});

  document->beginBatch();
  mesh->setAttributeFromString(Word::LineWidth, "5");
  document->endBatch();
  EXPECT_EQ(observer.take(), Log{}) << "nothing is reported in a batch";
}

TEST_F(PropertyTest, AttachingReportsEachInheritedMember) {
  PropertyObserver observer(*document);
  add<Sphere>(*image, {{Word::FillColor, "#123456"}});
  EXPECT_EQ(observer.take(), Log{"Sphere.Shading"});
}

TEST_F(PropertyTest, WhatAnElementInNoTreeInheritsIsReportedToo) {
  const Ref<Mesh3d> mesh = make<Mesh3d>();
  PropertyObserver observer(*document);
  EXPECT_TRUE(mesh->findProperty(Word::LineWidth)->inheritFrom(*mesh, {}));
  EXPECT_EQ(observer.take(), Log{"Mesh3d.LineWidth"});
}

TEST_F(PropertyTest, AnEventHoldsElementAndName) {
  const AfterPropertyChangeEvent event(*object, Word::Radius);
  EXPECT_EQ(event.target, object);
  EXPECT_EQ(event.name, Word::Radius);
  EXPECT_STREQ(event.type.str(), "AfterPropertyChange");
  EXPECT_EQ(event.type, AfterPropertyChangeEvent::eventType());
  EXPECT_EQ(base::findWord("AfterPropertyChange"), base::WordId::none);
}

TEST_F(PropertyTest, TheFirstOfTheChainThatHasTheNameIsTaken) {
  const Ref<ObjStyle> without = make<ObjStyle>({{Word::PointSize, "9"}});
  const Ref<ObjStyle> first = make<ObjStyle>({{Word::LineWidth, "3"}});
  const Ref<ObjStyle> second = make<ObjStyle>({{Word::LineWidth, "4"}});
  const Ref<Mesh3d> mesh = make<Mesh3d>();
  const Property& property = *mesh->findProperty(Word::LineWidth);
  EXPECT_TRUE(property.inheritFrom(*mesh, {without.get(), first.get(), second.get()}));
  EXPECT_EQ(mesh->lineWidth(), 3);
  EXPECT_TRUE(property.inheritFrom(*mesh, {without.get()}));
  EXPECT_EQ(mesh->lineWidth(), 0.5);
}

// Lists.

TEST_F(PropertyTest, AListHoldsOnlyWhatWasSet) {
  EXPECT_FALSE(object->hasAttribute(Word::LineWidth));
  EXPECT_TRUE(object->hasProperty(Word::LineWidth));
  EXPECT_EQ(object->getPropertyValue(Word::LineWidth), DoubleVariant(0.5));
  EXPECT_EQ(codeOf([&] { object->getAttribute(Word::LineWidth); }), DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal attribute 'LineWidth' [node 'Obj3d']\n");

  object->setAttributeFromString(Word::LineWidth, "2");
  EXPECT_EQ(object->getAttribute(Word::LineWidth), DoubleVariant(2));
  object->setAttributeFromString(Word::LineWidth, "3");
  EXPECT_EQ(object->getAttribute(Word::LineWidth), DoubleVariant(3));
  object->removeAttribute(Word::LineWidth);
  EXPECT_FALSE(object->hasAttribute(Word::LineWidth));
}

TEST_F(PropertyTest, AListPropertyHasNoMember) {
  object->setAttributeFromString(Word::LineWidth, "2");
  const Property& property = *object->findProperty(Word::LineWidth);
  Variant out;
  EXPECT_FALSE(property.isSet(*object));
  EXPECT_FALSE(property.getIfSet(*object, out));
  EXPECT_TRUE(out.isEmpty());
  EXPECT_EQ(object->getAttribute(Word::LineWidth), DoubleVariant(2));
}

TEST_F(PropertyTest, AnUnknownPropertyOfAListElement) {
  const std::string complaint = "PlotDom error: unknown property 'Radius' [node 'Obj3d']\n";
  const auto refused = [&](auto act) {
    EXPECT_EQ(codeOf(act), DomException::InvalidAccess);
    EXPECT_EQ(takeComplaints(), complaint);
  };
  refused([&] { object->setAttributeFromString(Word::Radius, "1"); });
  refused([&] { object->getPropertyValue(Word::Radius); });
  refused([&] { object->setPropertyValue(Word::Radius, DoubleVariant(1)); });
  EXPECT_FALSE(object->hasProperty(Word::Radius));
  EXPECT_EQ(codeOf([&] { object->getAttribute(Word::Radius); }), DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "PlotDom error: illegal attribute 'Radius' [node 'Obj3d']\n");
}

TEST_F(PropertyTest, PropertiesOfTheOtherDimensionAreUnknown) {
  const auto complaint = [this](Token element, Token name, const char* text) {
    EXPECT_EQ(codeOf([&] { make(element, {{name, text}}); }), DomException::InvalidAccess);
    return takeComplaints();
  };
  EXPECT_EQ(complaint(Word::Scene2d, Word::Lighting, "None"),
            "PlotDom error: unknown property 'Lighting' [node 'Scene2d']\n");
  EXPECT_EQ(complaint(Word::Scene2d, Word::ZXRatio, "1"),
            "PlotDom error: unknown property 'ZXRatio' [node 'Scene2d']\n");
  EXPECT_EQ(complaint(Word::CoordinateSystem3d, Word::AxesInFront, "1"),
            "PlotDom error: unknown property 'AxesInFront' [node 'CoordinateSystem3d']\n");
  EXPECT_EQ(complaint(Word::Obj2d, Word::ZMesh, "1"),
            "PlotDom error: unknown property 'ZMesh' [node 'Obj2d']\n");
  EXPECT_EQ(complaint(Word::Obj3d, Word::VerticalAsymptotesStyle, "Solid"),
            "PlotDom error: unknown property 'VerticalAsymptotesStyle' [node 'Obj3d']\n");
  EXPECT_EQ(complaint(Word::Poly3d, Word::XMesh, "1"),
            "PlotDom error: unknown property 'XMesh' [node 'Poly3d']\n");
  EXPECT_EQ(complaint(Word::Pts3d, Word::XMesh, "1"),
            "PlotDom error: unknown property 'XMesh' [node 'Pts3d']\n");
  EXPECT_EQ(complaint(Word::Img2d, Word::TitlePositionZ, "1"),
            "PlotDom error: unknown property 'TitlePositionZ' [node 'Img2d']\n");
  make(Word::Img3d, {{Word::TitlePositionZ, "1"}});
  make(Word::ObjStyle, {{Word::ZMesh, "1"}, {Word::FillStyle, "EvenOdd"}});
  make(Word::Scene3d, {{Word::Lighting, "None"}, {Word::Width, "10"}});
  make(Word::Scene3d, {{Word::YXRatio, "0"}, {Word::ZXRatio, "0"}});
  make(Word::Scene2d, {{Word::YXRatio, "0"}});
  make(Word::CoordinateSystem2d, {{Word::AxesInFront, "1"}});
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PropertyTest, DefaultsOfACanvas) {
  EXPECT_EQ(canvas->getPropertyValue(Word::Width), DoubleVariant(100));
  EXPECT_EQ(canvas->width(), 100);
  EXPECT_EQ(canvas->height(), 75);
}

TEST_F(PropertyTest, AMandatoryListPropertyIsMissedWhenItIsRead) {
  const Ref<ObjStyle> style = make<ObjStyle>();
  EXPECT_EQ(codeOf([&] { style->getPropertyValue(Word::Type); }), DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(),
            "PlotDom error: mandatory property 'Type' missing [node 'ObjStyle']\n");
  EXPECT_EQ(codeOf([&] { style->type(); }), DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(),
            "PlotDom error: mandatory property 'Type' missing [node 'ObjStyle']\n");
  EXPECT_FALSE(style->hasAttribute(Word::Type));

  style->setAttributeFromString(Word::Type, "Curve2d");
  EXPECT_EQ(style->type(), Word::Curve2d);
  EXPECT_EQ(codeOf([&] { style->removeAttribute(Word::Type); }), DomException::HierarchyRequest);
}

TEST_F(PropertyTest, MeshesOfObjectsHaveTheirMinimum) {
  make<Obj3d>({{Word::XSubmesh, "0"}, {Word::AdaptiveMesh, "0"}, {Word::ZMesh, "1"}});
  for (const Token name : {Word::XMesh, Word::YMesh, Word::ZMesh, Word::UMesh, Word::VMesh}) {
    EXPECT_EQ(codeOf([&] { make<Obj3d>({{name, "0"}}); }), DomException::HierarchyRequest);
    EXPECT_EQ(takeComplaints(),
              std::string("PlotDom error: illegal value [attribute '") + name.str() + "']\n");
  }
}

TEST_F(PropertyTest, AListPropertyIsResolvedAtEachRead) {
  EXPECT_EQ(object->lineWidth(), 0.5);
  ObjStyle* style = add<ObjStyle>(*canvas, {{Word::Type, "Surface"}, {Word::LineWidth, "3"}});
  EXPECT_EQ(object->lineWidth(), 3);
  EXPECT_FALSE(object->hasAttribute(Word::LineWidth));
  style->setAttributeFromString(Word::LineWidth, "4");
  EXPECT_EQ(object->lineWidth(), 4);
  canvas->removeChild(style);
  EXPECT_EQ(object->lineWidth(), 0.5);
}

TEST_F(PropertyTest, SettingAListPropertyToWhatIsInheritedRemovesIt) {
  add<ObjStyle>(*canvas, {{Word::Type, "Surface"}, {Word::LineWidth, "3"}});
  document->clearUndo();
  object->setPropertyValue(Word::LineWidth, DoubleVariant(3));
  EXPECT_FALSE(object->hasAttribute(Word::LineWidth));
  EXPECT_FALSE(document->canUndo()) << "nothing was done";
  object->setPropertyValue(Word::LineWidth, DoubleVariant(5));
  EXPECT_EQ(object->getAttribute(Word::LineWidth), DoubleVariant(5));
  object->setPropertyValue(Word::LineWidth, DoubleVariant(3));
  EXPECT_FALSE(object->hasAttribute(Word::LineWidth));
  EXPECT_EQ(object->lineWidth(), 3);
  object->setPropertyValue(Word::Name, FixedStringVariant("a"));
  EXPECT_TRUE(object->hasAttribute(Word::Name)) << "not inherited: always kept";
}

TEST_F(PropertyTest, AListElementWritesItsAttributesInTheOrderOfTheTokens) {
  const Ref<Canvas> element = make<Canvas>({{Word::Width, "120"},
                                            {Word::BackgroundColor, "#ABCDEF"},
                                            {Word::Name, "a \"b\" & <c>"},
                                            {Word::Id, "hidden"}});
  std::map<Token, std::string> expected = {
      {Word::Width, " Width=\"120\""},
      {Word::BackgroundColor, " BackgroundColor=\"#abcdef\""},
      {Word::Name, " Name=\"a &quot;b&quot; &amp; &lt;c&gt;\""}};
  std::string xml = "<Canvas";
  for (const auto& [name, text] : expected) xml += text;
  EXPECT_EQ(xmlOf(*element), xml + "></Canvas>");
}

TEST_F(PropertyTest, AnAttributeWithoutAPropertyIsKeptButNotWritten) {
  const Ref<Obj3d> element = make<Obj3d>();
  element->doSetAttribute(Word::Radius, DoubleVariant(1));
  EXPECT_TRUE(element->hasAttribute(Word::Radius));
  EXPECT_TRUE(element->hasProperty(Word::Radius));
  EXPECT_EQ(element->getPropertyValue(Word::Radius), DoubleVariant(1));
  EXPECT_EQ(xmlOf(*element), "<Obj3d></Obj3d>");
}

TEST_F(PropertyTest, AMemberElementWritesWhatWasSet) {
  const Ref<Sphere> sphere = make<Sphere>({{Word::FillColor, "#FF000080"}});
  const std::string xml = xmlOf(*sphere);
  EXPECT_NE(xml.find(" Center=\"0 0 0\""), std::string::npos);
  EXPECT_NE(xml.find(" Radius=\"1\""), std::string::npos);
  EXPECT_NE(xml.find(" FillColor=\"#ff000080\""), std::string::npos);
  EXPECT_EQ(xml.find("Shading"), std::string::npos);
  add<Sphere>(*image);
  EXPECT_EQ(xmlOf(*image->firstChild()).find("Shading"), std::string::npos)
      << "what is inherited is not written";
}

// The lists of properties.

constexpr PropertyListOf someProperties{
    optional<BoolType>(Word::Visible, true),
    inherited<DoubleType>(Word::LineWidth, 1),
    mandatory<TokenType>(Word::Type, {}),
};

TEST(PropertyList, FindsItsProperties) {
  EXPECT_EQ(someProperties.find(Word::LineWidth), &someProperties.properties()[1]);
  EXPECT_EQ(someProperties.find(Word::LineWidth)->name(), Word::LineWidth);
  EXPECT_EQ(someProperties.find(Word::Name), nullptr);
  EXPECT_EQ(someProperties.find(Token()), nullptr);
  EXPECT_EQ(someProperties.find(token("Wobbly")), nullptr);
}

TEST(PropertyList, ShowsItsPropertiesInTheOrderOfItsRows) {
  std::vector<Token> names;
  for (const Property& property : someProperties.properties()) names.push_back(property.name());
  EXPECT_EQ(names, (std::vector<Token>{Word::Visible, Word::LineWidth, Word::Type}));
}

TEST(PropertyList, KnowsTheKindsOfItsProperties) {
  const auto isOfKind = [](Token name, bool isInherited, bool isMandatory) {
    const Property& property = *someProperties.find(name);
    return property.isInherited() == isInherited && property.isMandatory() == isMandatory;
  };
  EXPECT_TRUE(isOfKind(Word::Visible, false, false));
  EXPECT_TRUE(isOfKind(Word::LineWidth, true, false));
  EXPECT_TRUE(isOfKind(Word::Type, false, true));
}

TEST(PropertyList, IsReadyBeforeAnythingRuns) {
  constexpr std::size_t bits = someProperties.bitCount();
  EXPECT_EQ(bits, 3U);
  static constexpr PropertyListOf derived{someProperties, optional<LongType>(Word::Rows, 0)};
  EXPECT_EQ(derived.bitCount(), 4U) << "the bits go on behind those of the base";
}

template <base::WordId name>
concept CanNameAProperty = requires {
  typename std::bool_constant<optional<BoolType>(base::tokenOf(name), true).isMandatory()>;
};

TEST(PropertyList, NamesAttributesOnly) {
  static_assert(CanNameAProperty<base::WordId::LineWidth>);
  static_assert(!CanNameAProperty<base::WordId::Absolute>, "a plain word");
  static_assert(!CanNameAProperty<base::WordId::Surf3d>, "an element");
  static_assert(!CanNameAProperty<base::WordId::none>);
}

TEST(PropertyList, TheFirstListThatHasTheNameAnswers) {
  static constexpr PropertyListOf others{mandatory<TokenType>(Word::Type, {}),
                                         optional<LongType>(Word::Rows, 0)};
  EXPECT_EQ(findIn(Word::Type, someProperties, others), someProperties.find(Word::Type));
  EXPECT_EQ(findIn(Word::Rows, someProperties, others), others.find(Word::Rows));
  EXPECT_EQ(findIn(Word::Name, someProperties, others), nullptr);
}

}  // namespace
}  // namespace vantry::plot::test
