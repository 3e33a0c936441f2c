#include "vantry/dom/range.h"

#include "test_document.h"
#include "vantry/dom/range_list.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class RangeTest : public TreeTest {
 protected:
  RangeTest() { load("<r><a>0123456789</a><b><x></x><y></y><z></z></b><c></c></r>"); }

  Ref<Range> range(Node* start, unsigned startOffset, Node* end, unsigned endOffset,
                   bool selected = false) {
    const Ref<Range> result = document->createRange(selected);
    result->setEnd(end, endOffset);
    result->setStart(start, startOffset);
    return result;
  }

  /// "b 1, c 0"
  static std::string bounds(const Range& range) {
    if (range.isDetached()) return "detached";
    std::ostringstream out;
    out << range.startContainer()->nodeName().str() << ' ' << range.startOffset() << ", "
        << range.endContainer()->nodeName().str() << ' ' << range.endOffset();
    return out.str();
  }

  const RangeList& rangeList() const {
    return static_cast<const RangeList&>(*document->createRange(false)->parent());
  }
};

// Making ranges

TEST_F(RangeTest, ANewRangeIsAtTheStartOfTheDocument) {
  const Ref<Range> range = document->createRange(false);
  EXPECT_EQ(bounds(*range), "#document 0, #document 0");
  EXPECT_EQ(range->refCount(), 2U);
  EXPECT_TRUE(range->collapsed());
  EXPECT_FALSE(range->isSelected());
  EXPECT_FALSE(range->isFrozen());
  EXPECT_FALSE(range->isDetached());
  EXPECT_EQ(range->ownerDocument(), document.get());
  EXPECT_EQ(range->length(), 0U);
  EXPECT_EQ(range->nodeValue(), nullptr);
  EXPECT_EQ(toXml(*range), "");
  EXPECT_EQ(toXml(*range->parent()), "");
  EXPECT_FALSE(range->isInDocument());
}

TEST_F(RangeTest, ASelectedRangeHoldsItself) {
  const Ref<Range> range = document->createRange(true);
  EXPECT_TRUE(range->isSelected());
  EXPECT_EQ(range->refCount(), 3U);
  range->deselect();
  EXPECT_FALSE(range->isSelected());
  EXPECT_EQ(range->refCount(), 2U);
  range->deselect();
  EXPECT_EQ(range->refCount(), 2U);
}

TEST_F(RangeTest, ARangeIsALeafAndItsListIsNotCopied) {
  const Ref<Range> range = document->createRange(false);
  EXPECT_DOM_ERROR(3, range->appendChild(document->element("e").get()));
  EXPECT_DOM_ERROR(9, range->parent()->cloneNode(true));
}

TEST_F(RangeTest, AClonedRangeHasTheSameBounds) {
  const Ref<Range> original = range(node("a"), 1, node("b"), 2);
  const Ref<Range> copy = original->cloneRange(false);
  EXPECT_EQ(bounds(*copy), "a 1, b 2");
  EXPECT_FALSE(copy->isSelected());
  EXPECT_TRUE(original->cloneRange(true)->isSelected());

  const Ref<Node> sameSelection = original->cloneNode(true);
  EXPECT_FALSE(static_cast<Range&>(*sameSelection).isSelected());
  const Ref<Node> selectedCopy = copy->cloneRange(true)->cloneNode(false);
  EXPECT_TRUE(static_cast<Range&>(*selectedCopy).isSelected());
  EXPECT_EQ(bounds(static_cast<Range&>(*selectedCopy)), "a 1, b 2");
}

// Setting bounds

TEST_F(RangeTest, BoundsAreSetRelativeToNodes) {
  const Ref<Range> range = document->createRange(false);
  range->selectNode(node("b"));
  EXPECT_EQ(bounds(*range), "r 1, r 2");
  range->selectNodeContents(node("b"));
  EXPECT_EQ(bounds(*range), "b 0, b 3");
  range->selectNodeContents(text());
  EXPECT_EQ(bounds(*range), "#text 0, #text 10");
  range->setEndAfter(node("c"));
  EXPECT_EQ(bounds(*range), "#text 0, r 3");
  range->setStartAfter(node("a"));
  EXPECT_EQ(bounds(*range), "r 1, r 3");
  range->setStartBefore(node("a"));
  EXPECT_EQ(bounds(*range), "r 0, r 3");
  range->setEndBefore(node("y"));
  EXPECT_EQ(bounds(*range), "r 0, b 1");
  EXPECT_EQ(range->commonAncestorContainer(), node("r"));
  EXPECT_FALSE(range->collapsed());
}

TEST_F(RangeTest, CollapsesToEitherEnd) {
  const Ref<Range> toStart = range(node("a"), 0, node("b"), 2);
  toStart->collapse(true);
  EXPECT_EQ(bounds(*toStart), "a 0, a 0");
  const Ref<Range> toEnd = range(node("a"), 0, node("b"), 2);
  toEnd->collapse(false);
  EXPECT_EQ(bounds(*toEnd), "b 2, b 2");
  EXPECT_TRUE(toEnd->collapsed());
}

TEST_F(RangeTest, OffsetsAreWithinTheContainer) {
  const Ref<Range> range = document->createRange(false);
  range->setEnd(text(), 10);
  EXPECT_DOM_ERROR(1, range->setEnd(text(), 11));
  EXPECT_DOM_ERROR(1, range->setEnd(node("b"), 4));
  EXPECT_DOM_ERROR(1, range->setStart(node("r"), 4));
  EXPECT_EQ(bounds(*range), "#document 0, #text 10");
}

TEST_F(RangeTest, ThePointsKeepTheirOrder) {
  const Ref<Range> range = this->range(node("b"), 1, node("b"), 2);
  const auto raisesBadPoints = [](auto function) {
    try {
      function();
    } catch (const RangeException& error) {
      return error.code() == 1;
    }
    return false;
  };
  EXPECT_TRUE(raisesBadPoints([&] { range->setStart(node("b"), 3); }));
  EXPECT_TRUE(raisesBadPoints([&] { range->setStart(node("c"), 0); }));
  EXPECT_TRUE(raisesBadPoints([&] { range->setStart(node("r"), 2); }));
  EXPECT_TRUE(raisesBadPoints([&] { range->setEnd(node("b"), 0); }));
  EXPECT_TRUE(raisesBadPoints([&] { range->setEnd(text(), 10); }));
  EXPECT_TRUE(raisesBadPoints([&] { range->setEnd(node("r"), 1); }));
  EXPECT_EQ(bounds(*range), "b 1, b 2");
  range->setStart(node("b"), 2);
  range->setEnd(node("r"), 2);
  EXPECT_EQ(bounds(*range), "b 2, r 2");
}

TEST_F(RangeTest, NodesOfOtherDocumentsAreRefused) {
  const Ref<TestDocument> otherDocument = new TestDocument;
  const Ref<TestElement> foreign = otherDocument->element("f");
  const Ref<Range> foreignRange = otherDocument->createRange(false);
  const Ref<Range> range = document->createRange(false);
  for (Node* each : {static_cast<Node*>(foreign.get()), static_cast<Node*>(nullptr)}) {
    EXPECT_DOM_ERROR(4, range->setStart(each, 99));
    EXPECT_DOM_ERROR(4, range->setEnd(each, 99));
    EXPECT_DOM_ERROR(4, range->setStartBefore(each));
    EXPECT_DOM_ERROR(4, range->setStartAfter(each));
    EXPECT_DOM_ERROR(4, range->setEndBefore(each));
    EXPECT_DOM_ERROR(4, range->setEndAfter(each));
    EXPECT_DOM_ERROR(4, range->selectNode(each));
    EXPECT_DOM_ERROR(4, range->selectNodeContents(each));
  }
  EXPECT_DOM_ERROR(4, range->compareBoundaryPoints(0, *foreignRange));
  EXPECT_DOM_ERROR(4, document->nextSelectedRange(foreignRange.get()));
  otherDocument->tearDown();
}

TEST_F(RangeTest, ANodeWithoutAParentIsNotSelectedAsAWhole) {
  const Ref<Range> range = document->createRange(false);
  EXPECT_DOM_ERROR(4, range->selectNode(document.get()));
  EXPECT_DOM_ERROR(4, range->setEndAfter(document.get()));
  range->selectNodeContents(document.get());
  EXPECT_EQ(bounds(*range), "#document 0, #document 1");
}

// Comparing

TEST_F(RangeTest, PointsAreComparedInDocumentOrder) {
  const struct {
    const char* a;
    unsigned aOffset;
    const char* b;
    unsigned bOffset;
    int result;
  } cases[] = {
      {"b", 1, "b", 1, 0},   // one container: the offsets
      {"b", 1, "b", 2, -1},  //
      {"b", 2, "b", 1, 1},   //
      {"r", 1, "x", 0, -1},  // a above b: before the child on the way
      {"r", 2, "x", 0, 1},   //
      {"r", 0, "x", 0, -1},  //
      {"x", 0, "r", 2, -1},  // b above a
      {"x", 0, "r", 1, 1},   //
      {"x", 0, "r", 0, 1},   //
      {"x", 0, "y", 0, -1},  // neither above the other
      {"c", 0, "x", 0, 1},   //
  };
  for (const auto& each : cases) {
    const Ref<Range> a = document->createRange(false);
    const Ref<Range> b = document->createRange(false);
    a->setEnd(node(each.a), each.aOffset);
    b->setEnd(node(each.b), each.bOffset);
    EXPECT_EQ(a->compareBoundaryPoints(Range::EndToEnd, *b), each.result)
        << each.a << each.aOffset << ' ' << each.b << each.bOffset;
  }
}

TEST_F(RangeTest, HowSelectsThePairOfPoints) {
  const Ref<Range> one = range(node("b"), 0, node("b"), 2);
  const Ref<Range> other = range(node("b"), 1, node("b"), 1);
  EXPECT_EQ(one->compareBoundaryPoints(0, *other), -1);  // start with start
  EXPECT_EQ(one->compareBoundaryPoints(1, *other), -1);  // start with end
  EXPECT_EQ(one->compareBoundaryPoints(2, *other), 1);   // end with end
  EXPECT_EQ(one->compareBoundaryPoints(3, *other), 1);   // end with start
  EXPECT_EQ(other->compareBoundaryPoints(1, *one), -1);
  EXPECT_EQ(other->compareBoundaryPoints(3, *one), 1);
  EXPECT_EQ(one->compareBoundaryPoints(4, *other), 0);
  EXPECT_EQ(one->compareBoundaryPoints(-1, *other), 0);
}

TEST_F(RangeTest, PointsOfSeparateTreesCompareAsOne) {
  const Ref<TestElement> separate = readXml(*document, "<s><t></t></s>");
  const Ref<Range> range = this->range(node("b"), 1, node("b"), 2);
  EXPECT_THROW(range->setStart(separate->firstChild(), 0), RangeException);
  range->setEnd(separate->firstChild(), 0);
  EXPECT_EQ(bounds(*range), "b 1, t 0");
  EXPECT_EQ(range->commonAncestorContainer(), nullptr);
}

// The end of a range

TEST_F(RangeTest, ADetachedRangeRefusesEverything) {
  const Ref<Range> range = this->range(node("a"), 0, node("b"), 1);
  const Ref<Range> other = document->createRange(false);
  range->detach();
  EXPECT_TRUE(range->isDetached());
  EXPECT_EQ(range->startContainer(), nullptr);
  EXPECT_EQ(range->endContainer(), nullptr);
  Node* r = node("r");
  EXPECT_DOM_ERROR(11, range->detach());
  EXPECT_DOM_ERROR(11, range->collapsed());
  EXPECT_DOM_ERROR(11, range->collapse(true));
  EXPECT_DOM_ERROR(11, range->commonAncestorContainer());
  EXPECT_DOM_ERROR(11, range->setStart(nullptr, 0));
  EXPECT_DOM_ERROR(11, range->setEnd(nullptr, 0));
  EXPECT_DOM_ERROR(11, range->setStartBefore(r));
  EXPECT_DOM_ERROR(11, range->setStartAfter(r));
  EXPECT_DOM_ERROR(11, range->setEndBefore(r));
  EXPECT_DOM_ERROR(11, range->setEndAfter(r));
  EXPECT_DOM_ERROR(11, range->selectNode(nullptr));
  EXPECT_DOM_ERROR(11, range->selectNodeContents(nullptr));
  EXPECT_DOM_ERROR(11, range->compareBoundaryPoints(0, *other));
  EXPECT_DOM_ERROR(11, other->compareBoundaryPoints(0, *range));
  EXPECT_DOM_ERROR(11, range->cloneRange(false));
  EXPECT_DOM_ERROR(11, range->cloneNode(false));
  range->deselect();
  range->observerDetached(Token());
  node("r")->removeChild(node("a"));
  EXPECT_EQ(bounds(*range), "detached");
}

TEST_F(RangeTest, DetachingEndsTheSelection) {
  const Ref<Range> range = document->createRange(true);
  range->detach();
  EXPECT_FALSE(range->isSelected());
  EXPECT_EQ(range->refCount(), 2U);
}

TEST_F(RangeTest, TheEndOfASubscriptionDetaches) {
  const Ref<Range> range = document->createRange(true);
  range->observerDetached(EventType::BeforeReplaceText);
  EXPECT_TRUE(range->isDetached());
  range->observerDetached(EventType::BeforeReplaceChildren);
}

TEST_F(RangeTest, TearDownDetachesAllRangesWithoutEvents) {
  Recorder recorder;
  document->addObserver(&recorder);
  const Ref<Range> plain = document->createRange(false);
  const Ref<Range> selected = document->createRange(true);
  const Ref<Range> alsoSelected = document->createRange(true);
  document->tearDown();
  for (const Ref<Range>& each : {plain, selected, alsoSelected}) {
    EXPECT_TRUE(each->isDetached());
    EXPECT_FALSE(each->isSelected());
    EXPECT_EQ(each->parent(), nullptr);
  }
  EXPECT_EQ(recorder.log, (Log{"beforeBatch", "detached all"}));
}

TEST_F(RangeTest, TheListDetachesItsRangesWhenItDies) {
  const Ref<Range> range = document->createRange(true);
  Ref<RangeList> list = new RangeList(document.get());
  range->parent()->doReplaceChildren(range.get(), 1, nullptr);
  list->doReplaceChildren(nullptr, 0, range.get());
  list = nullptr;
  EXPECT_TRUE(range->isDetached());
  EXPECT_FALSE(range->isSelected());
  EXPECT_EQ(range->refCount(), 1U);
}

TEST_F(RangeTest, ARangeThatNobodyHoldsVanishesAfterTheNextChange) {
  const Ref<Range> held = document->createRange(false);
  document->createRange(false);
  document->createRange(false);
  EXPECT_EQ(held->parent()->length(), 3U);
  node("r")->removeChild(node("c"));
  EXPECT_EQ(held->parent()->length(), 1U);
  EXPECT_FALSE(held->isDetached());

  document->createRange(false);
  document->beginBatch();
  EXPECT_EQ(held->parent()->length(), 1U);
  document->createRange(false);
  document->endBatch();
  EXPECT_EQ(held->parent()->length(), 1U);
}

TEST_F(RangeTest, ARangeThatNobodyHoldsSurvivesUndoAndRedo) {
  const Ref<Range> held = document->createRange(false);
  node("r")->removeChild(node("c"));
  document->createRange(false);
  document->undo();
  EXPECT_EQ(held->parent()->length(), 2U);
  document->redo();
  EXPECT_EQ(held->parent()->length(), 2U);
  node("r")->removeChild(node("b"));
  EXPECT_EQ(held->parent()->length(), 1U);
}

TEST_F(RangeTest, ARangeThatNobodyHoldsIsStillThereBeforeABatch) {
  struct : Recorder {
    const Node* list = nullptr;
    unsigned lengthBefore = 0;
    void beforeBatch() override { lengthBefore = list->length(); }
  } observer;
  const Ref<Range> held = document->createRange(false);
  observer.list = held->parent();
  document->addObserver(&observer);
  document->createRange(false);
  document->beginBatch();
  EXPECT_EQ(observer.lengthBefore, 2U);
  EXPECT_EQ(held->parent()->length(), 1U);
  document->endBatch();
  document->removeObserver(&observer);
}

TEST_F(RangeTest, ASelectedRangeNeedsNobodyUntilItIsDeselected) {
  document->createRange(true)->selectNode(node("c"));
  node("r")->removeChild(node("a"));
  Range* range = document->firstSelectedRange();
  ASSERT_NE(range, nullptr);
  EXPECT_EQ(bounds(*range), "r 1, r 2");
  range->deselect();
  EXPECT_EQ(document->firstSelectedRange(), nullptr);
  node("r")->removeChild(node("b"));
  EXPECT_EQ(rangeList().length(), 1U);
}

TEST_F(RangeTest, SelectedRangesAreEnumerated) {
  EXPECT_EQ(document->firstSelectedRange(), nullptr);
  const Ref<Range> unselected = document->createRange(false);
  const Ref<Range> first = document->createRange(true);
  const Ref<Range> alsoUnselected = document->createRange(false);
  const Ref<Range> second = document->createRange(true);
  EXPECT_EQ(document->firstSelectedRange(), first.get());
  EXPECT_EQ(document->nextSelectedRange(first.get()), second.get());
  EXPECT_EQ(document->nextSelectedRange(alsoUnselected.get()), second.get());
  EXPECT_EQ(document->nextSelectedRange(second.get()), nullptr);
  EXPECT_DOM_ERROR(8, document->nextSelectedRange(nullptr));
  first->detach();
  EXPECT_EQ(document->firstSelectedRange(), second.get());
}

// Batches

TEST_F(RangeTest, ABatchThrowsAllBoundsBackAndFreezesThem) {
  const Ref<Range> range = this->range(node("a"), 0, node("b"), 2, true);
  Recorder recorder;
  document->addObserver(&recorder);
  document->beginBatch();
  EXPECT_EQ(bounds(*range), "#document 0, #document 0");
  EXPECT_TRUE(range->isFrozen());
  range->selectNode(node("a"));
  EXPECT_EQ(bounds(*range), "#document 0, #document 0");
  const Ref<Range> made = document->createRange(false);
  EXPECT_TRUE(made->isFrozen());
  document->endBatch();
  EXPECT_FALSE(range->isFrozen());
  EXPECT_FALSE(made->isFrozen());
  EXPECT_EQ(bounds(*range), "#document 0, #document 0");
  EXPECT_EQ(recorder.log, (Log{"beforeBatch", "afterBatch"}));
  range->selectNode(node("a"));
  EXPECT_EQ(bounds(*range), "r 0, r 1");
  document->removeObserver(&recorder);
}

TEST_F(RangeTest, ADetachedRangeTakesNoPartInABatch) {
  const Ref<Range> range = document->createRange(false);
  range->detach();
  document->beginBatch();
  EXPECT_FALSE(range->isFrozen());
  EXPECT_EQ(bounds(*range), "detached");
  document->endBatch();
}

TEST_F(RangeTest, AFrozenRangeIsDeselectedInSilence) {
  const Ref<Range> range = document->createRange(true);
  Recorder recorder;
  document->addObserver(&recorder, EventType::BeforeDeselect);
  document->beginBatch();
  range->deselect();
  EXPECT_FALSE(range->isSelected());
  document->endBatch();
  EXPECT_EQ(recorder.log, (Log{"beforeBatch", "afterBatch"}));
  document->removeObserver(&recorder);
}

// Selection events

TEST_F(RangeTest, ASelectedRangeReportsItsChanges) {
  Recorder recorder;
  document->addObserver(&recorder);
  const Ref<Range> selected = document->createRange(true);
  EXPECT_TRUE(recorder.log.empty());
  selected->selectNode(node("b"));
  EXPECT_EQ(recorder.log, (Log{"BeforeSelectionChange #range", "AfterSelectionChange #range"}));
  selected->selectNode(node("b"));  // nothing changes
  EXPECT_EQ(recorder.log.size(), 2U);
  selected->deselect();
  EXPECT_EQ(recorder.log.back(), "BeforeDeselect #range");
  selected->selectNode(node("a"));
  EXPECT_EQ(recorder.log.size(), 3U);
  document->removeObserver(&recorder);
}

TEST_F(RangeTest, SelectionEventsCarryTheNewBounds) {
  const Ref<Range> selected = document->createRange(true);
  CallObserver observer([&](const DomEvent& event) {
    const auto& change = static_cast<const BeforeSelectionChangeEvent&>(event);
    EXPECT_EQ(change.target, selected.get());
    EXPECT_EQ(change.startNode, node("a"));
    EXPECT_EQ(change.startOffset, 0U);
    EXPECT_EQ(change.endNode, node("a"));
    EXPECT_EQ(change.endOffset, 1U);
    EXPECT_EQ(bounds(*selected), "#document 0, #document 0");
  });
  document->addObserver(&observer, EventType::BeforeSelectionChange);
  selected->selectNodeContents(node("a"));
  EXPECT_EQ(observer.log.size(), 1U);
  document->removeObserver(&observer);
}

TEST_F(RangeTest, ASelectionEventGoesStaleWhenTheRangeIsDetached) {
  const Ref<Range> selected = document->createRange(true);
  CallObserver detacher([&](const DomEvent& event) {
    EXPECT_FALSE(event.isStale());
    selected->detach();
    EXPECT_TRUE(event.isStale());
  });
  Recorder last;
  document->addObserver(&detacher, EventType::BeforeSelectionChange);
  document->addObserver(&last, EventType::BeforeSelectionChange);
  selected->selectNode(node("a"));
  EXPECT_EQ(detacher.log.size(), 1U);
  EXPECT_TRUE(last.log.empty());
  EXPECT_EQ(bounds(*selected), "detached");
  for (IDocObserver* each :
       {static_cast<IDocObserver*>(&detacher), static_cast<IDocObserver*>(&last)}) {
    document->removeObserver(each);
  }
}

TEST_F(RangeTest, AnObserverMayLetGoOfTheRange) {
  Range* selected = document->createRange(true).get();
  CallObserver observer([&](const DomEvent&) {
    selected->deselect();
    node("r")->removeChild(node("c"));  // nobody holds the range any more
  });
  document->addObserver(&observer, EventType::BeforeSelectionChange);
  selected->selectNode(node("c"));
  EXPECT_EQ(observer.log.size(), 1U);
  document->removeObserver(&observer);
}

// Following changes of texts

TEST_F(RangeTest, PointsInATextFollowItsChanges) {
  const struct {
    unsigned start, end;
    unsigned offset, count;
    const char* text;
    unsigned newStart, newEnd;
  } cases[] = {
      {5, 5, 2, 5, nullptr, 2, 2},   // within what is deleted
      {2, 7, 2, 5, nullptr, 2, 2},   // at both ends of it
      {1, 9, 2, 5, nullptr, 1, 4},   // before and behind
      {2, 2, 2, 0, "abc", 2, 2},     // exactly where text comes in
      {1, 3, 2, 0, "abc", 1, 6},     //
      {5, 9, 2, 5, "abc", 2, 7},     // out and in at once
      {0, 10, 0, 10, "abc", 0, 0},   // the very end falls to where text comes in
      {3, 8, 0, 99, nullptr, 0, 0},  // more than there is
      {4, 6, 10, 0, "abc", 4, 6},    // behind both
      {4, 6, 2, 0, nullptr, 4, 6},   // nothing
  };
  for (const auto& each : cases) {
    load("<r>0123456789</r>");
    const Ref<Range> range = this->range(text(), each.start, text(), each.end);
    text()->replaceData(each.offset, each.count, each.text);
    EXPECT_EQ(range->startOffset(), each.newStart);
    EXPECT_EQ(range->endOffset(), each.newEnd);
    EXPECT_EQ(range->startContainer(), text());
  }
}

TEST_F(RangeTest, PointsElsewhereDoNotFollowAText) {
  const Ref<Range> range = this->range(node("a"), 1, node("b"), 2);
  text()->deleteData(0, 10);
  EXPECT_EQ(bounds(*range), "a 1, b 2");
  const Ref<Range> half = this->range(node("a"), 0, text(), 0);
  text()->appendData("xyz");
  EXPECT_EQ(bounds(*half), "a 0, #text 0");
}

// Following changes of children

TEST_F(RangeTest, PointsFollowWhatIsTakenOut) {
  const struct {
    const char* container;
    unsigned offset;
    const char* newContainer;
    unsigned newOffset;
  } cases[] = {
      // What goes is y and z of x y z w in b.
      {"b", 0, "b", 0},  // before
      {"b", 1, "b", 1},  // at its start
      {"b", 2, "b", 1},  // within
      {"b", 3, "b", 1},  // at its end: falls by two
      {"b", 4, "b", 2},  //
      {"x", 0, "x", 0},  // inside a child before
      {"y", 0, "b", 1},  // inside what goes
      {"i", 0, "b", 1},  // deep inside
      {"w", 0, "w", 0},  // inside a child behind
      {"r", 2, "r", 2},  // above
      {"c", 0, "c", 0},  // elsewhere
  };
  for (const auto& each : cases) {
    load("<r><b><x></x><y></y><z><i></i></z><w></w></b><c></c></r>");
    const Ref<Range> range = document->createRange(false);
    range->setEnd(node(each.container), each.offset);
    range->setStart(node(each.container), each.offset);
    node("b")->replaceChildren(node("y"), 2, nullptr);
    EXPECT_EQ(range->startContainer(), node(each.newContainer)) << each.container << each.offset;
    EXPECT_EQ(range->startOffset(), each.newOffset) << each.container << each.offset;
    EXPECT_EQ(range->endContainer(), range->startContainer());
    EXPECT_EQ(range->endOffset(), range->startOffset());
  }
}

// The oddity: what comes in before a point moves the start point, whichever point that is.
TEST_F(RangeTest, AnInsertionMovesTheStartPointOnly) {
  const struct {
    unsigned start, end;
    unsigned newStart, newEnd;
  } cases[] = {
      // Two nodes come in at 1 of b, which has three children.
      {0, 0, 0, 0},  // before
      {1, 1, 1, 1},  // exactly there
      {0, 3, 2, 3},  // behind the start: the start rises for the end
      {2, 3, 6, 3},  // before both: the start rises twice
  };
  for (const auto& each : cases) {
    load("<r><b><x></x><y></y><z></z></b></r>");
    const Ref<Range> range = this->range(node("b"), each.start, node("b"), each.end);
    const Ref<DocumentFragment> fragment = document->fragment();
    fragment->appendChild(document->createElement(token("n")).get());
    fragment->appendChild(document->createElement(token("n")).get());
    node("b")->insertBefore(fragment.get(), node("y"));
    EXPECT_EQ(range->startOffset(), each.newStart);
    EXPECT_EQ(range->endOffset(), each.newEnd);
  }
}

TEST_F(RangeTest, AnInsertionMovesAStartPointThatIsElsewhere) {
  const Ref<Range> range = this->range(node("a"), 0, node("b"), 2);
  node("b")->insertBefore(document->createElement(token("n")).get(), node("x"));
  EXPECT_EQ(bounds(*range), "a 1, b 2");
}

TEST_F(RangeTest, AppendingMovesNothing) {
  const Ref<Range> range = this->range(node("b"), 0, node("b"), 3);
  node("b")->appendChild(document->createElement(token("n")).get());
  EXPECT_EQ(bounds(*range), "b 0, b 3");
}

TEST_F(RangeTest, AppendingMovesAStartThatIsBehindTheEndOfItsContainer) {
  const Ref<Range> range = this->range(node("b"), 2, node("b"), 3);
  const Ref<DocumentFragment> fragment = document->fragment();
  for (int i = 0; i < 2; ++i) fragment->appendChild(document->element("n").get());
  node("b")->insertBefore(fragment.get(), node("x"));
  EXPECT_EQ(bounds(*range), "b 6, b 3");  // of five children
  node("b")->appendChild(document->element("n").get());
  EXPECT_EQ(bounds(*range), "b 7, b 3");
  range->collapse(false);
  node("b")->appendChild(document->element("n").get());
  EXPECT_EQ(bounds(*range), "b 3, b 3");
}

TEST_F(RangeTest, AppendingMovesAStartWhoseContainerGotShorterWithoutAnEvent) {
  const Ref<Range> range = this->range(node("b"), 1, node("b"), 3);
  const Ref<Node> root = document->removeChild(document->firstChild());
  Node* const b = range->startContainer();
  b->replaceChildren(b->firstChild(), 3, nullptr);
  document->appendChild(root.get());
  b->appendChild(document->element("n").get());
  EXPECT_EQ(bounds(*range), "b 3, b 3");  // both were behind the end, so the start rose twice
}

TEST_F(RangeTest, AReplacementTakesOutAndPutsIn) {
  const Ref<Range> range = this->range(node("y"), 0, node("b"), 3);
  node("b")->replaceChild(document->createElement(token("n")).get(), node("y"));
  EXPECT_EQ(bounds(*range), "b 2, b 2");  // the start rises for the end, which fell by one
}

TEST_F(RangeTest, RangesFollowUndoAndRedo) {
  const Ref<Range> range = this->range(node("r"), 3, node("r"), 3);
  node("r")->removeChild(node("a"));
  EXPECT_EQ(bounds(*range), "r 2, r 2");
  range->selectNode(node("c"));
  EXPECT_EQ(bounds(*range), "r 1, r 2");
  document->undo();
  EXPECT_EQ(bounds(*range), "r 3, r 2");  // a comes in before both: the start rises twice
  document->redo();
  EXPECT_EQ(bounds(*range), "r 2, r 1");
}

TEST_F(RangeTest, AMovingSelectionIsReported) {
  const Ref<Range> selected = this->range(node("r"), 3, node("r"), 3, true);
  Recorder recorder;
  document->addObserver(&recorder, EventType::BeforeSelectionChange);
  document->addObserver(&recorder, EventType::AfterSelectionChange);
  document->addObserver(&recorder, EventType::AfterReplaceChildren);
  node("r")->removeChild(node("a"));
  EXPECT_EQ(recorder.log, (Log{"BeforeSelectionChange #range", "AfterSelectionChange #range",
                               "AfterReplaceChildren r"}));
  document->removeObserver(&recorder);
}

TEST_F(RangeTest, AChangeThatIsPreventedMovesNothing) {
  const std::vector<Ref<Range>> ranges = {
      range(node("b"), 1, node("b"), 2, true), range(text(), 3, text(), 5),
      range(node("y"), 0, node("c"), 0), range(node("r"), 0, node("r"), 3, true)};
  const auto boundsOfAll = [&] {
    Log all;
    for (const Ref<Range>& each : ranges) all.push_back(bounds(*each));
    return all;
  };
  const Log before = boundsOfAll();
  Log reported;
  CallObserver follower([&](const DomEvent& event) {
    if (event.target == ranges[0].get()) reported.push_back(bounds(*ranges[0]));
  });
  CallObserver thrower([](const DomEvent& event) {
    if (event.type == EventType::BeforeReplaceChildren ||
        event.type == EventType::BeforeReplaceText) {
      throw std::string("no");
    }
  });
  document->addObserver(&follower, EventType::AfterSelectionChange);
  document->addObserver(&thrower);
  EXPECT_THROW(node("r")->removeChild(node("b")), std::string);
  EXPECT_EQ(boundsOfAll(), before);
  EXPECT_EQ(reported, (Log{"r 1, r 1", "b 1, b 2"}));
  EXPECT_THROW(text()->deleteData(0, 4), std::string);
  EXPECT_EQ(boundsOfAll(), before);
  EXPECT_THROW(node("r")->insertBefore(document->element("n").get(), node("a")), std::string);
  EXPECT_EQ(boundsOfAll(), before);
  EXPECT_THROW(node("a")->appendChild(node("b")), std::string);
  EXPECT_EQ(boundsOfAll(), before);
  document->removeObserver(&thrower);
  document->removeObserver(&follower);

  node("r")->removeChild(node("b"));
  EXPECT_EQ(bounds(*ranges[0]), "r 1, r 1");
}

TEST_F(RangeTest, AChangeThatASelectionPreventsMovesNothing) {
  const Ref<Range> bookmark = range(node("b"), 1, node("b"), 2);
  for (const Token type :
       {Token(EventType::BeforeSelectionChange), Token(EventType::AfterSelectionChange)}) {
    const Ref<Range> selected = range(node("b"), 1, node("b"), 2, true);
    bool isFirst = true;
    CallObserver thrower([&](const DomEvent&) {
      if (std::exchange(isFirst, false)) throw std::string("no");
    });
    document->addObserver(&thrower, type);
    EXPECT_THROW(node("r")->removeChild(node("b")), std::string);
    document->removeObserver(&thrower);
    EXPECT_EQ(bounds(*bookmark), "b 1, b 2");
    EXPECT_EQ(bounds(*selected), "b 1, b 2");
    selected->deselect();
  }
}

TEST_F(RangeTest, AChangeThatIsPreventedWithinAnotherMovesNothing) {
  const Ref<Range> outer = range(node("b"), 1, node("b"), 2);
  const Ref<Range> inner = range(text(), 3, text(), 5);
  CallObserver thrower([&](const DomEvent& event) {
    if (event.target == node("r")) node("r")->firstChild()->removeChild(text());
    throw std::string("no");
  });
  document->addObserver(&thrower, EventType::BeforeReplaceChildren);
  EXPECT_THROW(node("r")->removeChild(node("b")), std::string);
  document->removeObserver(&thrower);
  EXPECT_EQ(bounds(*outer), "b 1, b 2");
  EXPECT_EQ(bounds(*inner), "#text 3, #text 5");
}

TEST_F(RangeTest, WhatAnObserverHasDoneBeforeItPreventsAChangeStays) {
  const Ref<Range> moved = range(node("y"), 0, node("y"), 0);
  const Ref<Range> set = range(node("b"), 1, node("b"), 2);
  CallObserver setter([&](const DomEvent&) {
    set->selectNode(node("c"));
    throw std::string("no");
  });
  document->addObserver(&setter, EventType::BeforeReplaceChildren);
  EXPECT_THROW(node("r")->removeChild(node("b")), std::string);
  document->removeObserver(&setter);
  EXPECT_EQ(bounds(*moved), "y 0, y 0");
  EXPECT_EQ(bounds(*set), "r 2, r 3");

  CallObserver remover([&](const DomEvent& event) {
    if (event.target != node("r")) return;
    node("b")->removeChild(node("y"));
    throw std::string("no");
  });
  document->addObserver(&remover, EventType::BeforeReplaceChildren);
  EXPECT_THROW(node("r")->removeChild(node("b")), std::string);
  document->removeObserver(&remover);
  EXPECT_EQ(bounds(*moved), "r 1, r 1") << "its former place has gone";
}

TEST_F(RangeTest, DetachedTreesMoveNoRanges) {
  const Ref<TestElement> separate = readXml(*document, "<s><t></t><u></u></s>");
  const Ref<Range> range = document->createRange(false);
  range->setEnd(separate.get(), 2);
  separate->removeChild(separate->firstChild());
  EXPECT_EQ(range->endOffset(), 2U);
}

}  // namespace
