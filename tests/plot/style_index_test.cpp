// Searches for object styles while the tree around them changes: what containers remember of each
// other must never show.

#include <gtest/gtest.h>

#include "vantry/plot/document.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/obj_style.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using vantry::base::Ref;

class StyleIndexes : public testing::Test {
 protected:
  StyleIndexes() {
    document_->appendChild(canvas_.get());
    canvas_->appendChild(scene_.get());
    scene_->appendChild(system_.get());
  }
  ~StyleIndexes() override { document_->tearDown(); }

  template <class T>
  Ref<T> make() {
    return new T(document_.get());
  }

  Ref<ObjStyle> style(const char* lineWidth) {
    Ref<ObjStyle> made = make<ObjStyle>();
    made->setAttributeFromString(Word::Type, "Default");
    made->setAttributeFromString(Word::LineWidth, lineWidth);
    return made;
  }

  Ref<PlotDocument> document_{new PlotDocument};
  Ref<Canvas> canvas_ = make<Canvas>();
  Ref<Scene2d> scene_ = make<Scene2d>();
  Ref<CoordinateSystem2d> system_ = make<CoordinateSystem2d>();
};

TEST_F(StyleIndexes, FollowStylesThatComeAndGo) {
  const Ref<Group2d> group = make<Group2d>();
  const Ref<Obj2d> object = make<Obj2d>();
  system_->appendChild(group.get());
  group->appendChild(object.get());
  EXPECT_EQ(object->lineWidth(), 0.5);

  const Ref<ObjStyle> outer = style("1");
  canvas_->appendChild(outer.get());
  EXPECT_EQ(object->lineWidth(), 1);
  const Ref<ObjStyle> inner = style("2");
  group->insertBefore(inner.get(), object.get());
  EXPECT_EQ(object->lineWidth(), 2);
  const Ref<ObjStyle> first = style("3");
  group->insertBefore(first.get(), inner.get());
  EXPECT_EQ(object->lineWidth(), 3) << "the first in document order wins";
  group->removeChild(first.get());
  EXPECT_EQ(object->lineWidth(), 2);
  group->removeChild(inner.get());
  EXPECT_EQ(object->lineWidth(), 1);
  canvas_->removeChild(outer.get());
  EXPECT_EQ(object->lineWidth(), 0.5);
}

TEST_F(StyleIndexes, FollowTypesThatChange) {
  const Ref<Obj2d> object = make<Obj2d>();
  object->setAttributeFromString(Word::Type, "Curve2d");
  system_->appendChild(object.get());
  const Ref<ObjStyle> first = style("1");
  const Ref<ObjStyle> second = style("2");
  system_->appendChild(first.get());
  system_->appendChild(second.get());
  EXPECT_EQ(object->lineWidth(), 1);

  document_->startUndoGroup();
  second->setAttributeFromString(Word::Type, "Curve2d");
  EXPECT_EQ(object->lineWidth(), 2) << "the style of the type comes before the default";
  document_->startUndoGroup();
  first->setAttributeFromString(Word::Type, "Curve2d");
  EXPECT_EQ(object->lineWidth(), 1) << "the first in document order wins";
  document_->startUndoGroup();
  first->setAttributeFromString(Word::Type, "Surface");
  EXPECT_EQ(object->lineWidth(), 2);
  document_->undo();
  EXPECT_EQ(object->lineWidth(), 1);
  document_->undo();
  document_->undo();
  EXPECT_EQ(object->lineWidth(), 1);
  document_->redo();
  EXPECT_EQ(object->lineWidth(), 2);
}

TEST_F(StyleIndexes, FollowContainersThatMove) {
  const Ref<Group2d> styled = make<Group2d>();
  const Ref<Group2d> moving = make<Group2d>();
  const Ref<Transform2d> inner = make<Transform2d>();
  const Ref<Obj2d> object = make<Obj2d>();
  styled->appendChild(style("4").get());
  system_->appendChild(styled.get());
  moving->appendChild(inner.get());
  inner->appendChild(object.get());
  EXPECT_EQ(object->lineWidth(), 0.5) << "asked while in no tree";

  styled->appendChild(moving.get());
  EXPECT_EQ(object->lineWidth(), 4);
  system_->appendChild(moving.get());
  EXPECT_EQ(object->lineWidth(), 0.5);
}

TEST_F(StyleIndexes, ForgetWhenAnEmptyContainerMoves) {
  const Ref<Group2d> group = make<Group2d>();
  const Ref<Obj2d> object = make<Obj2d>();
  group->appendChild(object.get());
  EXPECT_EQ(object->lineWidth(), 0.5);
  group->removeChild(object.get());
  system_->appendChild(style("5").get());
  system_->appendChild(group.get());
  group->appendChild(object.get());
  EXPECT_EQ(object->lineWidth(), 5);
}

TEST_F(StyleIndexes, ForgetAStyledContainerThatDies) {
  Ref<Group2d> styled = make<Group2d>();
  const Ref<Group2d> survivor = make<Group2d>();
  const Ref<Obj2d> object = make<Obj2d>();
  styled->appendChild(style("6").get());
  styled->appendChild(survivor.get());
  survivor->appendChild(object.get());
  EXPECT_EQ(object->lineWidth(), 6);
  styled = nullptr;
  EXPECT_EQ(survivor->parent(), nullptr);
  EXPECT_EQ(object->lineWidth(), 0.5);
}

TEST_F(StyleIndexes, LookThroughATransform) {
  const Ref<Transform2d> transform = make<Transform2d>();
  const Ref<Obj2d> object = make<Obj2d>();
  system_->appendChild(style("7").get());
  system_->appendChild(transform.get());
  transform->appendChild(object.get());
  transform->doReplaceChildren(nullptr, 0, style("8").get());
  EXPECT_EQ(object->lineWidth(), 7) << "a style that got into a transform is for nobody";
}

// Behind a text, a header takes whatever comes with it.
TEST_F(StyleIndexes, FollowAHeaderThatHoldsAContainer) {
  const Ref<Scene2d> otherScene = make<Scene2d>();
  canvas_->appendChild(otherScene.get());
  scene_->appendChild(style("1").get());
  otherScene->appendChild(style("2").get());

  const Ref<PlotElement> header(document_->createElement(Word::Header));
  const auto putIn = [&](const Ref<PlotElement>& element) {
    const Ref<dom::DocumentFragment> content(document_->createDocumentFragment());
    content->appendChild(document_->createTextNode("text").get());
    content->appendChild(element.get());
    header->appendChild(content.get());
  };
  const Ref<Obj2d> object = make<Obj2d>();
  const Ref<Group2d> group = make<Group2d>();
  group->appendChild(object.get());
  putIn(group);

  scene_->appendChild(header.get());
  EXPECT_EQ(object->lineWidth(), 1);
  otherScene->appendChild(header.get());
  EXPECT_EQ(object->lineWidth(), 2);
  otherScene->removeChild(header.get());
  EXPECT_EQ(object->lineWidth(), 0.5);
  putIn(style("3"));
  EXPECT_EQ(object->lineWidth(), 3);
}

TEST_F(StyleIndexes, ACopyHasTheStylesThatWereCopied) {
  const Ref<Group2d> group = make<Group2d>();
  group->appendChild(style("9").get());
  group->appendChild(make<Obj2d>().get());
  const Ref<dom::Node> copy(group->cloneNode(true));
  EXPECT_EQ(static_cast<const Obj2d*>(copy->firstChildByName(Word::Obj2d))->lineWidth(), 9);
}

TEST(StylesWithoutTheirDocument, AreFoundInWhatIsLeft) {
  Ref<PlotDocument> document(new PlotDocument);
  const Ref<Group2d> group(new Group2d(document.get()));
  const Ref<ObjStyle> style(new ObjStyle(document.get()));
  style->setAttributeFromString(Word::Type, "Default");
  style->setAttributeFromString(Word::LineWidth, "2");
  const Ref<Obj2d> object(new Obj2d(document.get()));
  document->appendChild(group.get());
  group->appendChild(style.get());
  group->appendChild(object.get());
  EXPECT_EQ(object->lineWidth(), 2);
  document = nullptr;
  EXPECT_EQ(object->lineWidth(), 2);
  group->removeChild(style.get());
  EXPECT_EQ(object->lineWidth(), 0.5);
}

}  // namespace
