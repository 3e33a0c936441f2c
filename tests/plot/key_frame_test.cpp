// The points of time of key frames: what they depend on, and what they cost.
#include <cmath>

#include "plot_test.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/tr.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::plot::test {
namespace {

/// An object with the parameters from 0 to 10 and the times from 0 to 4, and a frame half-way; and
/// a transform just like it.
class KeyFrameTest : public PlotTest {
 protected:
  KeyFrameTest() { document->clearUndo(); }

  Canvas* canvas = add<Canvas>(*document);
  CoordinateSystem2d* system = add<CoordinateSystem2d>(*add<Scene2d>(*canvas));

  Obj2d* object = add<Obj2d>(*system, {{Word::Type, "Curve2d"}});
  dom::Node* begin = add(*object, Word::ParameterBegin, {{Word::Val, "0"}});
  PlotElement* end = add(*object, Word::ParameterEnd, {{Word::Val, "10"}});
  Img2d* image = add<Img2d>(*object, {{Word::Param, "5"}});

  Transform2d* transform = add<Transform2d>(*system, {{Word::Type, "Rotate2d"}});
  dom::Node* mapBegin = add(*transform, Word::ParameterBegin, {{Word::Val, "0"}});
  PlotElement* mapEnd = add(*transform, Word::ParameterEnd, {{Word::Val, "10"}});
  Tr2d* map = add<Tr2d>(*transform, {{Word::Param, "5"}});
};

TEST_F(KeyFrameTest, ABoundThatChangesCounts) {
  EXPECT_EQ(image->frameTime(), 2) << "half of 0 to 4";
  EXPECT_EQ(map->frameTime(), 2);
  end->setAttribute(Word::Val, DoubleVariant(20));
  mapEnd->setAttribute(Word::Val, DoubleVariant(20));
  EXPECT_EQ(image->frameTime(), 1) << "a quarter of it";
  EXPECT_EQ(map->frameTime(), 1);
  document->undo();
  EXPECT_EQ(image->frameTime(), 2);
  EXPECT_EQ(map->frameTime(), 2);
}

TEST_F(KeyFrameTest, ABoundThatIsReplacedOrTakenOutCounts) {
  EXPECT_EQ(image->frameTime(), 2);
  EXPECT_EQ(map->frameTime(), 2);
  const Ref<PlotElement> other = make(Word::ParameterEnd, {{Word::Val, "20"}});
  object->replaceChild(other.get(), end);
  EXPECT_EQ(image->frameTime(), 1);
  object->removeChild(begin);
  EXPECT_TRUE(std::isnan(image->frameTime()));
  transform->removeChild(mapBegin);
  EXPECT_TRUE(std::isnan(map->frameTime()));
  document->undo();
  EXPECT_EQ(image->frameTime(), 2);
  EXPECT_EQ(map->frameTime(), 2);
}

TEST_F(KeyFrameTest, AStyleThatComesAndGoesCounts) {
  EXPECT_EQ(image->frameTime(), 2);
  const Ref<ObjStyle> style = make<ObjStyle>({{Word::Type, "Curve2d"}, {Word::TimeBegin, "2"}});
  canvas->appendChild(style.get());
  EXPECT_EQ(image->frameTime(), 3) << "half of 2 to 4";
  style->setAttributeFromString(Word::Type, "Surface");
  EXPECT_EQ(image->frameTime(), 2);
  style->setAttributeFromString(Word::Type, "Default");
  EXPECT_EQ(image->frameTime(), 3);
  canvas->removeChild(style.get());
  EXPECT_EQ(image->frameTime(), 2);
}

// A transform is resolved when it is attached, like a primitive.
TEST_F(KeyFrameTest, TheTimesOfATransformCountOnceTheyAreResolved) {
  EXPECT_EQ(map->frameTime(), 2);
  const Ref<ObjStyle> style = make<ObjStyle>({{Word::Type, "Rotate2d"}, {Word::TimeEnd, "8"}});
  canvas->appendChild(style.get());
  EXPECT_EQ(map->frameTime(), 2);
  transform->attachedToDocument();
  EXPECT_EQ(map->frameTime(), 4);
  style->setAttributeFromString(Word::TimeEnd, "16");
  EXPECT_EQ(map->frameTime(), 8);
}

/// Reads the time of a frame before and after each change.
class TimeReader : public PropertyObserver {
 public:
  TimeReader(dom::Document& document, const Tr2d& map) : PropertyObserver(document), map_(map) {}
  void handleEvent(const dom::DomEvent&) override { lastTime = map_.frameTime(); }

  double lastTime = 0;

 private:
  const Tr2d& map_;
};

TEST_F(KeyFrameTest, AReadDuringAChangeLeavesNothingOld) {
  ObjStyle* style = add<ObjStyle>(*canvas, {{Word::Type, "Rotate2d"}});
  TimeReader reader(*document, *map);
  style->setAttributeFromString(Word::TimeEnd, "8");  // comes before the transform's own event
  EXPECT_EQ(map->frameTime(), 4);
  EXPECT_EQ(reader.lastTime, 4);

  add<ObjStyle>(*system, {{Word::Type, "Rotate2d"}, {Word::TimeEnd, "16"}});
  EXPECT_EQ(map->frameTime(), 4);
  transform->attachedToDocument();
  EXPECT_EQ(reader.lastTime, 8);
}

TEST_F(KeyFrameTest, ChangesOutsideOfTheDocumentCountToo) {
  const Ref<dom::Node> apart = system->removeChild(object);
  EXPECT_EQ(image->frameTime(), 2);
  end->setAttribute(Word::Val, DoubleVariant(20));
  EXPECT_EQ(image->frameTime(), 1);
  image->setAttribute(Word::Param, DoubleVariant(10));
  EXPECT_EQ(image->frameTime(), 2);
  object->setAttribute(Word::TimeEnd, DoubleVariant(6));
  EXPECT_EQ(image->frameTime(), 3);
  object->removeAttribute(Word::TimeEnd);
  EXPECT_EQ(image->frameTime(), 2);
}

TEST_F(KeyFrameTest, AFrameWithoutItsParentHasNoTime) {
  const Ref<Img2d> survivor = make<Img2d>({{Word::Param, "5"}});
  {
    const Ref<Obj2d> other = make<Obj2d>();
    add(*other, Word::ParameterBegin, {{Word::Val, "0"}});
    add(*other, Word::ParameterEnd, {{Word::Val, "10"}});
    other->appendChild(survivor.get());
    EXPECT_EQ(survivor->frameTime(), 2);
  }
  EXPECT_TRUE(std::isnan(survivor->frameTime()));
}

TEST_F(KeyFrameTest, EqualBoundsGiveTheBeginUntilTheyDiffer) {
  object->setAttributeFromString(Word::TimeBegin, "1");
  end->setAttribute(Word::Val, DoubleVariant(0));
  EXPECT_EQ(image->frameTime(), 1);
  EXPECT_EQ(image->frameTime(), 1);
  object->setAttributeFromString(Word::TimeBegin, "2");
  EXPECT_EQ(image->frameTime(), 2);
  end->setAttribute(Word::Val, DoubleVariant(10));
  EXPECT_EQ(image->frameTime(), 3) << "half of 2 to 4";
}

TEST_F(KeyFrameTest, AnElementWithoutADocumentHasItsTimesToo) {
  const Ref<Obj2d> alone(new Obj2d(nullptr));
  const Ref<ParameterBegin> first(new ParameterBegin(nullptr));
  const Ref<ParameterEnd> last(new ParameterEnd(nullptr));
  const Ref<Img2d> frame(new Img2d(nullptr));
  first->setAttributeFromString(Word::Val, "0");
  last->setAttributeFromString(Word::Val, "10");
  frame->setAttributeFromString(Word::Param, "5");
  for (dom::Node* child :
       {static_cast<dom::Node*>(first.get()), static_cast<dom::Node*>(last.get()),
        static_cast<dom::Node*>(frame.get())}) {
    alone->appendChild(child);
  }
  EXPECT_EQ(frame->frameTime(), 2);
  last->setAttributeFromString(Word::Val, "20");
  EXPECT_EQ(frame->frameTime(), 1);
}

// The cost.

/// Counts how often it is asked for a value.
class AskedObject final : public ElementOf<AskedObject, Obj2d> {
 public:
  using ElementOf::ElementOf;
  Variant getPropertyValue(Token name) const override {
    ++questions;
    return ElementOf::getPropertyValue(name);
  }

  mutable int questions = 0;
};

/// Counts how often its name or class is looked at.
class SeenImage final : public ElementOf<SeenImage, Img2d> {
 public:
  using ElementOf::ElementOf;
  Token tagName() const override {
    ++looks;
    return ElementOf::tagName();
  }
  const dom::NodeClass* nodeClass() const override {
    ++looks;
    return ElementOf::nodeClass();
  }

  static inline int looks = 0;
};

TEST_F(KeyFrameTest, ATimeIsComputedOnceUntilSomethingChanges) {
  for (const char* last : {"10", "0", "nan"}) {
    const Ref<AskedObject> asked(new AskedObject(document.get()));
    add(*asked, Word::ParameterBegin, {{Word::Val, "0"}});
    add(*asked, Word::ParameterEnd, {{Word::Val, last}});
    const Img2d* frame = add<Img2d>(*asked, {{Word::Param, "5"}});
    frame->frameTime();
    EXPECT_EQ(asked->questions, 2) << "for the begin and the end";
    frame->frameTime();
    EXPECT_EQ(asked->questions, 2) << "bounds 0 and " << last;
    asked->setAttributeFromString(Word::TimeEnd, "8");
    frame->frameTime();
    EXPECT_EQ(asked->questions, 4);
  }
}

TEST_F(KeyFrameTest, FramesBeforeTheirBoundsAreNotGoneThrough) {
  const Ref<Obj2d> animated = make<Obj2d>();
  Ref<SeenImage> last;
  for (int i = 0; i < 200; ++i) {
    last = new SeenImage(document.get());
    last->setAttributeFromString(Word::Param, "5");
    animated->appendChild(last.get());
  }
  add(*animated, Word::ParameterBegin, {{Word::Val, "0"}});
  add(*animated, Word::ParameterEnd, {{Word::Val, "10"}});
  SeenImage::looks = 0;
  EXPECT_EQ(last->frameTime(), 2);
  EXPECT_EQ(SeenImage::looks, 0);
}

}  // namespace
}  // namespace vantry::plot::test
