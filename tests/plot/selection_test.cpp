// The selection of a document, its deletion, and the time of an animated drawing.
#include <cmath>

#include "plot_test.h"
#include "vantry/dom/range.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"

namespace vantry::plot::test {
namespace {

using dom::Range;

class SelectionTest : public PlotTest {
 protected:
  unsigned selectedRanges() const {
    unsigned count = 0;
    for (Range* range = document->firstSelectedRange(); range;
         range = document->nextSelectedRange(range)) {
      ++count;
    }
    return count;
  }

  using Offsets = std::pair<unsigned, unsigned>;
  Offsets selectedOffsets() const {
    const Range* range = document->firstSelectedRange();
    return {range->startOffset(), range->endOffset()};
  }

  Canvas* canvas = add<Canvas>(*document);
  Scene2d* scene = add<Scene2d>(*canvas);
  CoordinateSystem2d* system = add<CoordinateSystem2d>(*scene);
  Group2d* group = add<Group2d>(*system);
  Obj2d* object = add<Obj2d>(*group, {{Word::Type, "Curve2d"}, {Word::Id, "curve"}});
};

TEST_F(SelectionTest, AtFirstNothingIsSelected) {
  EXPECT_EQ(document->selectedElement(), nullptr);
  EXPECT_FALSE(document->canDeleteSelection());
  document->clearSelection();
  document->deleteSelection();
  EXPECT_FALSE(document->canUndo() && selectedRanges() > 0);
}

TEST_F(SelectionTest, OneElementIsSelectedAtATime) {
  document->select(object);
  EXPECT_EQ(document->selectedElement(), object);
  document->select(scene);
  EXPECT_EQ(document->selectedElement(), scene);
  document->select(canvas);
  EXPECT_EQ(document->selectedElement(), canvas);
  EXPECT_EQ(selectedRanges(), 1U);
  document->select(nullptr);
  EXPECT_EQ(document->selectedElement(), nullptr);
  EXPECT_EQ(selectedRanges(), 0U);
}

TEST_F(SelectionTest, ATextIsNoElement) {
  PlotElement* title = add(*object, Word::Title);
  addText(*title, "a");
  document->select(title->firstChild());
  EXPECT_EQ(document->selectedElement(), nullptr);
  EXPECT_EQ(selectedRanges(), 1U);
}

TEST_F(SelectionTest, WhatCannotBeSelected) {
  document->select(object);
  const Ref<PlotElement> loose = make(Word::Group2d);
  EXPECT_EQ(codeOf([&] { document->select(loose.get()); }), DomException::WrongDocument);
  const Ref<PlotDocument> other = new PlotDocument;
  const Ref<PlotElement> foreign(other->createElement(Word::Canvas));
  other->appendChild(foreign.get());
  EXPECT_EQ(codeOf([&] { document->select(foreign.get()); }), DomException::WrongDocument);
  EXPECT_EQ(document->selectedElement(), object) << "as it was";
  document->clearSelection();
  EXPECT_EQ(codeOf([&] { document->select(loose.get()); }), DomException::WrongDocument);
  EXPECT_EQ(selectedRanges(), 0U);
}

TEST_F(SelectionTest, OnlyOneRangeOverOneChildIsASelectedElement) {
  add(*group, Word::Obj2d);
  const Ref<Range> range = document->createRange(true);
  EXPECT_EQ(document->selectedElement(), nullptr) << "empty";
  range->selectNodeContents(group);
  EXPECT_EQ(document->selectedElement(), nullptr) << "two children";
  range->setEnd(group, 1);
  EXPECT_EQ(document->selectedElement(), object);
  range->setEnd(system, 1);
  EXPECT_EQ(document->selectedElement(), nullptr) << "two containers";
  range->selectNode(object);
  const Ref<Range> second = document->createRange(true);
  EXPECT_EQ(document->selectedElement(), nullptr) << "two ranges";
  document->select(group);
  EXPECT_EQ(selectedRanges(), 1U);
  EXPECT_EQ(document->selectedElement(), group);
}

TEST_F(SelectionTest, TheSelectionFollowsTheTree) {
  document->select(object);
  const Ref<PlotElement> before = make(Word::Obj2d);
  group->insertBefore(before.get(), object);
  EXPECT_EQ(selectedOffsets(), Offsets(1, 1)) << "the start point rises for the end point";
  EXPECT_EQ(document->selectedElement(), nullptr);
  group->removeChild(before.get());
  EXPECT_EQ(selectedOffsets(), Offsets(0, 0));
  EXPECT_EQ(document->selectedElement(), nullptr);
  EXPECT_EQ(selectedRanges(), 1U);
  document->select(object);
  group->removeChild(object);
  EXPECT_EQ(document->selectedElement(), nullptr);
}

/// When a range is deselected, makes and selects another one, as often as it may.
class Reselector : public dom::IDocObserver {
 public:
  explicit Reselector(PlotDocument& document) : document_(document) {
    document_.addObserver(this, dom::EventType::BeforeDeselect);
  }
  virtual ~Reselector() { document_.removeObserver(this); }

  void observerDetached(Token) override {}
  void beforeBatch() override {}
  void afterBatch() override {}
  void handleEvent(const dom::DomEvent&) override {
    if (left_-- > 0) document_.createRange(true);
  }

 private:
  PlotDocument& document_;
  int left_ = 1000;
};

TEST_F(SelectionTest, WhatIsSelectedWhileTheSelectionIsClearedStays) {
  document->select(object);
  const Ref<Range> second = document->createRange(true);
  Reselector reselector(*document);
  document->clearSelection();
  EXPECT_FALSE(second->isSelected());
  EXPECT_EQ(selectedRanges(), 2U) << "one for each of the two";
}

TEST_F(SelectionTest, WhatIsSelectedWhileAnotherIsSelectedStays) {
  document->select(object);
  const Ref<Range> second = document->createRange(true);
  Reselector reselector(*document);
  document->select(group);
  EXPECT_FALSE(second->isSelected());
  EXPECT_EQ(selectedRanges(), 2U);
}

TEST_F(SelectionTest, ByIdentifierOfTheCanvas) {
  canvas->setAttributeFromString(Word::Id, "canvas");
  EXPECT_TRUE(document->selectById("canvas"));
  EXPECT_EQ(document->selectedElement(), canvas);
}

TEST_F(SelectionTest, ByIdentifierAParentComesBeforeItsChild) {
  group->setAttributeFromString(Word::Id, "curve");
  EXPECT_TRUE(document->selectById("curve"));
  EXPECT_EQ(document->selectedElement(), group);
}

TEST_F(SelectionTest, ByIdentifier) {
  Obj2d* second = add<Obj2d>(*system, {{Word::Type, "Curve2d"}, {Word::Id, "curve"}});
  system->setAttributeFromString(Word::Id, "system");
  EXPECT_TRUE(document->selectById("curve"));
  EXPECT_EQ(document->selectedElement(), object) << "the first in depth";
  EXPECT_TRUE(document->selectById("system"));
  EXPECT_EQ(document->selectedElement(), system);
  EXPECT_FALSE(document->selectById("nobody"));
  EXPECT_EQ(document->selectedElement(), nullptr);
  EXPECT_EQ(selectedRanges(), 0U);

  object->removeAttribute(Word::Id);
  EXPECT_TRUE(document->selectById("curve"));
  EXPECT_EQ(document->selectedElement(), second);
  EXPECT_FALSE(document->selectById(""));
  EXPECT_EQ(selectedRanges(), 0U);
  document->select(object);
  EXPECT_FALSE(document->selectById(nullptr));
  EXPECT_EQ(selectedRanges(), 0U);
}

TEST_F(SelectionTest, ByIdentifierInAnEmptyDocument) {
  const Ref<PlotDocument> empty = new PlotDocument;
  EXPECT_FALSE(empty->selectById("x"));
}

TEST_F(SelectionTest, WhatMayBeDeleted) {
  const auto mayGo = [this](dom::Node* node) {
    document->select(node);
    return document->canDeleteSelection();
  };
  EXPECT_FALSE(mayGo(canvas));
  EXPECT_FALSE(mayGo(scene)) << "the only one";
  EXPECT_FALSE(mayGo(system)) << "the only one";
  EXPECT_TRUE(mayGo(group));
  EXPECT_TRUE(mayGo(object));

  PlotElement* scene3d = add(*canvas, Word::Scene3d);
  EXPECT_FALSE(mayGo(scene)) << "one of another dimension is none of the same name";
  EXPECT_FALSE(mayGo(scene3d));
  add(*canvas, Word::Scene2d);
  add(*canvas, Word::Scene3d);
  EXPECT_TRUE(mayGo(scene));
  EXPECT_TRUE(mayGo(scene3d));
  add(*scene, Word::CoordinateSystem2d);
  EXPECT_TRUE(mayGo(system));
  PlotElement* system3d = add(*scene3d, Word::CoordinateSystem3d);
  EXPECT_FALSE(mayGo(system3d));
}

TEST_F(SelectionTest, TheOnlySceneIsNotDeleted) {
  document->select(scene);
  document->clearUndo();
  document->deleteSelection();
  EXPECT_EQ(canvas->firstChild(), scene);
  EXPECT_FALSE(document->canUndo());
  PlotElement* second = add(*canvas, Word::Scene2d);
  document->deleteSelection();
  EXPECT_EQ(canvas->firstChild(), second);
  EXPECT_EQ(canvas->length(), 1U);
}

TEST_F(SelectionTest, ASceneThatIsTheRootMayNotGo) {
  const Ref<PlotDocument> other = new PlotDocument;
  const Ref<PlotElement> root(other->createElement(Word::Scene2d));
  other->appendChild(root.get());
  other->select(root.get());
  EXPECT_EQ(other->selectedElement(), root.get());
  EXPECT_FALSE(other->canDeleteSelection());
  other->tearDown();
}

// The rules for children are asked last, and then nothing has changed yet.
TEST_F(SelectionTest, WhatItsParentCannotDoWithoutIsNotDeleted) {
  canvas->setAttributeFromString(Word::Consistent, "1");
  PlotElement* tick = add(*add(*system, Word::XTicksAt), Word::TickPos);
  document->select(tick->firstChild());
  ASSERT_EQ(document->selectedElement()->tagName(), Word::VExpr);
  document->clearUndo();
  const std::string before = xmlOf(*document);
  takeComplaints();
  EXPECT_TRUE(document->canDeleteSelection());
  EXPECT_EQ(codeOf([&] { document->deleteSelection(); }), 3);
  EXPECT_EQ(takeComplaints(), "PlotDom error: missing option child [parent 'TickPos']\n");
  EXPECT_EQ(xmlOf(*document), before);
  EXPECT_FALSE(document->canUndo());
}

TEST_F(SelectionTest, ADeletionMakesWhatIsAroundItInconsistent) {
  canvas->setAttributeFromString(Word::Consistent, "1");
  system->setAttributeFromString(Word::Consistent, "0");
  group->setAttributeFromString(Word::Consistent, "1");
  document->select(object);
  const std::string before = xmlOf(*document);
  document->clearUndo();
  PropertyObserver observer(*document);
  document->deleteSelection();

  EXPECT_EQ(group->firstChild(), nullptr);
  EXPECT_EQ(document->selectedElement(), nullptr);
  EXPECT_EQ(valueOf(*canvas, Word::Consistent), "0");
  EXPECT_FALSE(scene->hasAttribute(Word::Consistent)) << "one without a value is left alone";
  EXPECT_EQ(valueOf(*system, Word::Consistent), "0");
  EXPECT_EQ(valueOf(*group, Word::Consistent), "0");
  EXPECT_EQ(observer.take(), (std::vector<std::string>{"Group2d.Consistent", "Canvas.Consistent"}));

  // All of it is one group: what came before is another one, and so is what comes behind.
  canvas->setAttributeFromString(Word::Width, "50");
  document->undo();
  EXPECT_FALSE(canvas->hasAttribute(Word::Width));
  EXPECT_EQ(group->firstChild(), nullptr);
  document->undo();
  EXPECT_EQ(xmlOf(*document), before);
  EXPECT_FALSE(document->canUndo());
  document->redo();
  EXPECT_EQ(group->firstChild(), nullptr);
  EXPECT_EQ(valueOf(*canvas, Word::Consistent), "0");
}

TEST_F(SelectionTest, ADeletionIsSeparateFromWhatCameBefore) {
  canvas->setAttributeFromString(Word::Width, "50");
  document->select(object);
  document->deleteSelection();
  document->undo();
  EXPECT_EQ(group->firstChild(), object);
  EXPECT_TRUE(canvas->hasAttribute(Word::Width));
}

TEST_F(SelectionTest, ADeletionIsSeparateFromWhatComesBehindThoughAnObserverThrows) {
  class Thrower final : public PropertyObserver {
   public:
    using PropertyObserver::PropertyObserver;
    void handleEvent(const dom::DomEvent&) override { throw std::string("no"); }
  };
  canvas->setAttributeFromString(Word::Consistent, "1");
  document->select(object);
  {
    const Thrower thrower(*document);
    EXPECT_THROW(document->deleteSelection(), std::string);
  }
  EXPECT_EQ(group->firstChild(), nullptr);
  canvas->setAttributeFromString(Word::Width, "50");
  document->undo();
  EXPECT_FALSE(canvas->hasAttribute(Word::Width));
  EXPECT_EQ(group->firstChild(), nullptr);
}

TEST_F(SelectionTest, ADeletionIsCompleteThoughAnObserverThrowsOrTakesMoreOut) {
  struct Thrown {};
  class Thief final : public PropertyObserver {
   public:
    using PropertyObserver::PropertyObserver;
    void handleEvent(const dom::DomEvent& event) override {
      if (event.target->nodeName() != Word::Group2d) return;
      event.target->parent()->removeChild(event.target);
      throw Thrown();
    }
  };
  for (const Token name : {Word::Consistent, Word::Width})
    canvas->setAttributeFromString(name, "1");
  group->setAttributeFromString(Word::Consistent, "1");
  document->select(object);
  document->clearUndo();
  const std::string before = xmlOf(*canvas);
  {
    const Thief thief(*document);
    EXPECT_THROW(document->deleteSelection(), Thrown);
  }
  EXPECT_EQ(system->firstChild(), nullptr);
  EXPECT_EQ(valueOf(*canvas, Word::Consistent), "0");
  document->undo();
  EXPECT_EQ(xmlOf(*canvas), before);
  EXPECT_FALSE(document->canUndo());
}

TEST_F(SelectionTest, WhatIsTakenOutWhileItIsToBeSelectedIsNotSelected) {
  class Thief final : public PropertyObserver {
   public:
    Thief(PlotDocument& document, PlotElement* victim)
        : PropertyObserver(document), victim_(victim) {
      document.addObserver(this, dom::EventType::BeforeDeselect);
    }
    void handleEvent(const dom::DomEvent&) override {
      if (victim_->parent()) victim_->parent()->removeChild(victim_);
    }

   private:
    PlotElement* victim_;
  };
  document->setUndoLimit(0);
  const Ref<Range> ranges[] = {document->createRange(true), document->createRange(true)};
  {
    const Thief thief(*document, object);
    EXPECT_EQ(codeOf([&] { document->select(object); }), DomException::WrongDocument);
  }
  EXPECT_EQ(group->firstChild(), nullptr);
  EXPECT_EQ(document->selectedElement(), nullptr);
}

// Times.

TEST_F(SelectionTest, TheCurrentTime) {
  EXPECT_TRUE(std::isnan(document->currentTime()));
  canvas->setAttributeFromString(Word::InitialTime, "2");
  EXPECT_EQ(document->currentTime(), 2);
  document->setCurrentTime(5);
  EXPECT_EQ(document->currentTime(), 5);
  EXPECT_EQ(canvas->getAttribute(Word::CurrentTime), DoubleVariant(5));
  document->setCurrentTime(plot::nan);
  EXPECT_EQ(document->currentTime(), 2);
}

TEST_F(SelectionTest, AnEmptyDocumentHasNoTime) {
  const Ref<PlotDocument> empty = new PlotDocument;
  EXPECT_TRUE(std::isnan(empty->currentTime()));
  EXPECT_TRUE(std::isnan(empty->nextTime(0, true)));
  empty->setCurrentTime(5);
  EXPECT_TRUE(std::isnan(empty->currentTime()));
}

/// A document of a host whose canvas knows when something changes.
class TimedDocument : public PlotDocument {
 public:
  class TimedCanvas : public Canvas {
   public:
    using Canvas::Canvas;
    void timeStep(double time, bool forward, double& result) override {
      EXPECT_TRUE(std::isnan(result));
      result = forward ? time + 1 : time - 1;
    }
  };

 protected:
  ~TimedDocument() override = default;
  Ref<dom::Element> newElement(Token name) override {
    if (name == Word::Canvas) return new TimedCanvas(this);
    return PlotDocument::newElement(name);
  }
};

TEST_F(SelectionTest, TheNextTimeIsFoundByTheRoot) {
  EXPECT_TRUE(std::isnan(document->nextTime(0, true))) << "no class of the model knows one";
  const Ref<PlotDocument> timed = new TimedDocument;
  const Ref<PlotElement> root(timed->createElement(Word::Canvas));
  timed->appendChild(root.get());
  EXPECT_EQ(timed->nextTime(3, true), 4);
  EXPECT_EQ(timed->nextTime(3, false), 2);
}

}  // namespace
}  // namespace vantry::plot::test
