// Observers and operations that throw, and observers that change the tree in the midst of a change.
#include <cstring>

#include "snapshot.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

struct Thrown {};

class UnrulyObserverTest : public TreeTest {
 protected:
  const Token x = token("x");

  /// Calls `statement` with an observer of this type of event that throws. Expects that to pass.
  template <class Statement>
  void expectThrown(Token eventType, Statement statement) {
    CallObserver thrower([](const DomEvent&) { throw Thrown(); });
    document->addObserver(&thrower, eventType);
    EXPECT_THROW(statement(), Thrown);
    document->removeObserver(&thrower);
  }

  /// Expects the document to be outside of any execution: what is deferred runs at once.
  void expectAtRest() {
    bool hasRun = false;
    document->executeDeferred(callOperation([&] { hasRun = true; }));
    EXPECT_TRUE(hasRun);
    EXPECT_FALSE(document->isInBatch());
  }
};

// Exceptions

TEST_F(UnrulyObserverTest, WhatIsThrownBeforeAChangePreventsIt) {
  TestElement* root = load("<r><a></a>text</r>");
  const Snapshot before(*document);
  const Ref<TestElement> detached = readXml(*document, "<d><y></y><z></z></d>");
  const Ref<DocumentFragment> fragment = document->fragment();
  for (const char* name : {"m", "n"}) fragment->appendChild(document->element(name).get());

  expectThrown(EventType::BeforeSetAttribute, [&] { root->setAttribute(x, LongVariant(1)); });
  expectThrown(EventType::BeforeReplaceText, [&] { text()->replaceData(0, 1, "T"); });
  expectThrown(EventType::BeforeReplaceChildren, [&] { root->removeChild(node("a")); });
  expectThrown(EventType::BeforeReplaceChildren,
               [&] { root->appendChild(detached->firstChild()); });
  expectThrown(EventType::BeforeReplaceChildren, [&] { root->appendChild(fragment.get()); });
  expectThrown(EventType::BeforeReplaceChildren,
               [&] { root->replaceChild(document->fragment().get(), node("a")); });
  before.expectIn(*document);
  EXPECT_EQ(toXml(*detached), "<d><y></y><z></z></d>");
  EXPECT_EQ(fragment->length(), 2U);
  checkLinks(*fragment);
  EXPECT_FALSE(document->canUndo());
  expectAtRest();
}

TEST_F(UnrulyObserverTest, ARunOfSiblingsStaysWholeIfAnObserverPreventsThatItComesIn) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  const Ref<Node> a = node("a");
  root->replaceChildren(a.get(), 3, nullptr);
  document->clearUndo();
  Node* const b = a->nextSibling();
  expectThrown(EventType::BeforeReplaceChildren, [&] { root->appendChild(b); });
  ASSERT_EQ(a->nextSibling(), b);
  ASSERT_TRUE(b->nextSibling());
  root->appendChild(b);
  EXPECT_EQ(xml(), "<r><b></b><c></c></r>");
  EXPECT_EQ(a->nextSibling(), nullptr);
  checkLinks(*document);
}

TEST_F(UnrulyObserverTest, AFragmentThatComesBackIsWhole) {
  TestElement* root = load("<r><g></g></r>");
  const Ref<DocumentFragment> fragment = document->fragment();
  const Ref<TestElement> y = document->element("y");
  fragment->appendChild(document->element("x").get());
  fragment->appendChild(y.get());
  CallObserver observer([&](const DomEvent& event) {
    if (event.target != root) return;
    node("g")->appendChild(y.get());
    fragment->appendChild(document->element("z").get());
    throw Thrown();
  });
  document->addObserver(&observer, EventType::BeforeReplaceChildren);
  EXPECT_THROW(root->appendChild(fragment.get()), Thrown);
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><g><y></y></g></r>");
  ASSERT_EQ(fragment->length(), 2U);
  EXPECT_EQ(fragment->firstChild()->nodeName(), token("x"));
  EXPECT_EQ(fragment->lastChild()->nodeName(), token("z"));
  checkLinks(*fragment);
}

TEST_F(UnrulyObserverTest, WhatIsThrownAfterAChangeLeavesItDoneAndRecorded) {
  TestElement* root = load("<r y=\"1\"><a></a><b></b>text</r>");
  const Snapshot before(*document);
  expectThrown(EventType::AfterSetAttribute, [&] { root->setAttribute(x, LongVariant(1)); });
  expectThrown(EventType::AfterRemoveAttribute, [&] { root->removeAttribute(token("y")); });
  expectThrown(EventType::AfterReplaceText, [&] { text()->replaceData(0, 1, "T"); });
  expectThrown(EventType::AfterReplaceChildren, [&] { node("a")->appendChild(node("b")); });
  expectThrown(EventType::AfterReplaceChildren, [&] { text()->splitText(2); });
  EXPECT_EQ(xml(), "<r x=\"1\"><a><b></b></a>Text</r>");
  EXPECT_EQ(root->length(), 3U);
  expectAtRest();
  document->undo();
  before.expectIn(*document);
}

TEST_F(UnrulyObserverTest, AHookThatThrowsAfterAChangeLeavesItRecorded) {
  class ThrowingElement : public TestElement {
   public:
    using TestElement::TestElement;
    bool afterSetAttribute(Element&, Token) override { throw Thrown(); }
    void onAttached() override { throw Thrown(); }
  };
  TestElement* root = load("<r></r>");
  const Ref<ThrowingElement> element = new ThrowingElement(document.get(), token("t"));
  EXPECT_THROW(root->appendChild(element.get()), Thrown);
  EXPECT_THROW(element->setAttribute(x, LongVariant(1)), Thrown);
  EXPECT_EQ(xml(), "<r><t x=\"1\"></t></r>");
  expectAtRest();
  document->undo();
  EXPECT_EQ(xml(), "<r></r>");
}

TEST_F(UnrulyObserverTest, AnOperationThatThrowsIsNotRecorded) {
  load("<r></r>");
  EXPECT_THROW(document->execute(callOperation([] { throw Thrown(); })), Thrown);
  EXPECT_FALSE(document->canUndo());
  expectAtRest();
}

TEST_F(UnrulyObserverTest, ADeferredOperationThatThrowsKeepsNoOtherFromRunning) {
  TestElement* root = load("<r></r>");
  Log log;
  EXPECT_THROW(document->execute(callOperation([&] {
    document->executeDeferred(callOperation([] { throw Thrown(); }));
    document->executeDeferred(callOperation([&] {
      root->setAttribute(x, LongVariant(1));
      log.push_back("second");
    }));
  })),
               Thrown);
  EXPECT_EQ(log, (Log{"second"}));
  EXPECT_TRUE(root->hasAttribute(x));
  EXPECT_THROW(document->executeDeferred(callOperation([] { throw Thrown(); })), Thrown);
  expectAtRest();
}

TEST_F(UnrulyObserverTest, WhatIsThrownAfterADeferredChangeComesOutOfThatChange) {
  TestElement* root = load("<r><a></a><b></b></r>");
  const auto removal = [&](const char* name) {
    return std::make_unique<ReplaceChildrenOperation>(root, node(name), 1U, nullptr);
  };
  expectThrown(EventType::AfterReplaceChildren, [&] { document->executeDeferred(removal("a")); });
  EXPECT_NO_THROW(root->setAttribute(x, LongVariant(1)));

  CallObserver observer([&](const DomEvent&) { document->executeDeferred(removal("b")); });
  document->addObserver(&observer, EventType::AfterSetAttribute);
  expectThrown(EventType::AfterReplaceChildren, [&] { root->setAttribute(x, LongVariant(2)); });
  document->removeObserver(&observer);
  EXPECT_NO_THROW(root->setAttribute(x, LongVariant(3)));
  EXPECT_EQ(xml(), "<r x=\"3\"></r>");
}

TEST_F(UnrulyObserverTest, DeferredOperationsRunThoughAnObserverThrows) {
  TestElement* root = load("<r></r>");
  int runs = 0;
  CallObserver observer([&](const DomEvent&) {
    document->executeDeferred(callOperation([&] { ++runs; }));
    throw Thrown();
  });
  document->addObserver(&observer);
  EXPECT_THROW(root->setAttribute(x, LongVariant(1)), Thrown);
  EXPECT_EQ(runs, 1);
  document->removeObserver(&observer);
  expectAtRest();
}

TEST_F(UnrulyObserverTest, AnUndoThatIsPreventedHalfwayLeavesTwoGroups) {
  TestElement* root = load("<r><a></a></r>");
  const Snapshot before(*document);
  root->setAttribute(x, LongVariant(1));
  root->removeChild(node("a"));
  root->appendChild(document->text("text").get());
  const Snapshot after(*document);
  expectThrown(EventType::BeforeRemoveAttribute, [&] { document->undo(); });
  EXPECT_EQ(xml(), "<r x=\"1\"><a></a></r>");
  EXPECT_TRUE(document->canUndo());
  EXPECT_TRUE(document->canRedo());
  expectAtRest();
  document->redo();
  after.expectIn(*document);
  EXPECT_FALSE(document->canRedo());
  while (document->canUndo()) document->undo();
  before.expectIn(*document);
}

TEST_F(UnrulyObserverTest, ARedoThatIsPreventedHalfwayLeavesTwoGroups) {
  TestElement* root = load("<r><a></a></r>");
  const Snapshot before(*document);
  root->setAttribute(x, LongVariant(1));
  root->removeChild(node("a"));
  const Snapshot after(*document);
  document->undo();
  expectThrown(EventType::BeforeReplaceChildren, [&] { document->redo(); });
  EXPECT_EQ(xml(), "<r x=\"1\"><a></a></r>");
  EXPECT_TRUE(document->canRedo());
  document->undo();
  before.expectIn(*document);
  EXPECT_FALSE(document->canUndo());
  while (document->canRedo()) document->redo();
  after.expectIn(*document);
}

TEST_F(UnrulyObserverTest, AnUndoIsCompleteThoughAnObserverThrowsAfterAChange) {
  TestElement* root = load("<r><a></a></r>");
  const Snapshot before(*document);
  root->setAttribute(x, LongVariant(1));
  root->removeChild(node("a"));
  const Snapshot after(*document);
  expectThrown(EventType::AfterReplaceChildren, [&] { document->undo(); });
  before.expectIn(*document);
  EXPECT_FALSE(document->canUndo());
  expectThrown(EventType::AfterReplaceChildren, [&] { document->redo(); });
  after.expectIn(*document);
  EXPECT_FALSE(document->canRedo());
  expectAtRest();
}

/// Throws at the begin or the end of a batch.
class BatchThrower final : public Recorder {
 public:
  bool throwsBefore = false;
  bool throwsAfter = false;
  void beforeBatch() override {
    Recorder::beforeBatch();
    if (throwsBefore) throw Thrown();
  }
  void afterBatch() override {
    Recorder::afterBatch();
    if (throwsAfter) throw Thrown();
  }
};

TEST_F(UnrulyObserverTest, ABatchThatAnObserverPreventsHasNotBegun) {
  TestElement* root = load("<r><a></a></r>");
  document->setUndoLimit(7);
  const Ref<Range> range = document->createRange(false);
  Recorder first;
  BatchThrower thrower;
  Recorder last;
  for (IDocObserver* each :
       {static_cast<IDocObserver*>(&first), static_cast<IDocObserver*>(&thrower),
        static_cast<IDocObserver*>(&last)}) {
    document->addObserver(each, EventType::AfterSetAttribute);
  }
  thrower.throwsBefore = true;
  EXPECT_THROW(document->beginBatch(), Thrown);
  EXPECT_EQ(first.log, (Log{"beforeBatch", "afterBatch"}));
  EXPECT_EQ(thrower.log, (Log{"beforeBatch"}));
  EXPECT_TRUE(last.log.empty());
  EXPECT_FALSE(range->isFrozen());
  expectAtRest();
  for (int i = 0; i < 9; ++i) {
    document->startUndoGroup();
    root->setAttribute(x, LongVariant(i));
  }
  int undone = 0;
  for (; document->canUndo(); ++undone) document->undo();
  EXPECT_EQ(undone, 7);

  thrower.throwsBefore = false;
  document->beginBatch();
  EXPECT_TRUE(document->isInBatch());
  document->endBatch();
  expectAtRest();
  for (IDocObserver* each :
       {static_cast<IDocObserver*>(&first), static_cast<IDocObserver*>(&thrower),
        static_cast<IDocObserver*>(&last)}) {
    document->removeObserver(each);
  }
}

/// Does what it is asked to when a batch begins.
template <class Function>
class BatchBeginner final : public Recorder {
 public:
  explicit BatchBeginner(Function function) : function_(std::move(function)) {}
  void beforeBatch() override {
    Recorder::beforeBatch();
    function_();
  }

 private:
  Function function_;
};

TEST_F(UnrulyObserverTest, ABatchWithinTheBeginOfABatchIsPartOfIt) {
  TestElement* root = load("<r></r>");
  const Ref<Range> range = document->createRange(false);
  for (const bool isEnded : {true, false}) {
    BatchBeginner observer([&] {
      document->beginBatch();
      EXPECT_TRUE(document->isInBatch());
      if (isEnded) document->endBatch();
    });
    document->addObserver(&observer);
    document->beginBatch();
    EXPECT_TRUE(range->isFrozen());
    root->setAttribute(x, LongVariant(1));
    document->endBatch();
    if (!isEnded) {
      EXPECT_TRUE(document->isInBatch());
      document->endBatch();
    }
    EXPECT_EQ(observer.log, (Log{"beforeBatch", "afterBatch"}));
    document->removeObserver(&observer);
    expectAtRest();
    EXPECT_FALSE(range->isFrozen());
    EXPECT_FALSE(document->canUndo());
    root->setAttribute(x, LongVariant(2));
    EXPECT_TRUE(document->canUndo());
  }
}

TEST_F(UnrulyObserverTest, ABatchWithinTheBeginOfOneThatIsPreventedKeepsTheUndoLimit) {
  TestElement* root = load("<r></r>");
  BatchBeginner observer([&] {
    document->beginBatch();
    document->setUndoLimit(1);
    throw Thrown();
  });
  document->addObserver(&observer);
  EXPECT_THROW(document->beginBatch(), Thrown);
  document->removeObserver(&observer);
  EXPECT_TRUE(document->isInBatch()) << "in that of the observer";
  document->endBatch();
  for (int i = 0; i < 2; ++i) {
    document->startUndoGroup();
    root->setAttribute(x, LongVariant(i));
  }
  document->undo();
  EXPECT_FALSE(document->canUndo());
}

TEST_F(UnrulyObserverTest, ADocumentIsTornDownWhateverObserversThrow) {
  class DetachThrower final : public Recorder {
   public:
    void beforeBatch() override { throw Thrown(); }
    void observerDetached(Token) override { throw Thrown(); }
  };
  TestElement* root = load("<r><a></a></r>");
  root->removeChild(node("a"));
  const Ref<Range> range = document->createRange(true);
  DetachThrower thrower;
  Recorder last;
  document->addObserver(&thrower);
  document->addObserver(&last);
  EXPECT_THROW(document->tearDown(), Thrown);
  EXPECT_EQ(last.log, (Log{"detached all"}));
  EXPECT_TRUE(document->isInBatch());
  EXPECT_TRUE(range->isDetached());
  EXPECT_FALSE(document->canUndo());
  EXPECT_EQ(TestElement::alive, 1);
  EXPECT_NO_THROW(document->tearDown());
}

TEST_F(UnrulyObserverTest, TheLastReleaseThrowsNothing) {
  BatchThrower thrower;
  thrower.throwsBefore = true;
  load("<r></r>");
  document->addObserver(&thrower);
  document = nullptr;
  EXPECT_EQ(thrower.log, (Log{"beforeBatch", "detached all"}));
  EXPECT_EQ(TestElement::alive, 0);
}

TEST_F(UnrulyObserverTest, TheEndOfABatchReachesAllObservers) {
  TestElement* root = load("<r></r>");
  BatchThrower thrower;
  thrower.throwsAfter = true;
  Recorder last;
  document->addObserver(&thrower);
  document->addObserver(&last);
  const Ref<Range> range = document->createRange(false);
  document->beginBatch();
  EXPECT_THROW(document->endBatch(), Thrown);
  EXPECT_EQ(last.log, (Log{"beforeBatch", "afterBatch"}));
  EXPECT_FALSE(range->isFrozen());
  root->setAttribute(x, LongVariant(1));
  EXPECT_TRUE(document->canUndo());
  expectAtRest();
  document->removeObserver(&thrower);
  document->removeObserver(&last);
}

// Changes in the midst of a change

TEST_F(UnrulyObserverTest, ATargetThatIsPutBelowWhatComesInStaysThere) {
  TestElement* root = load("<r><a></a></r>");
  Node* const a = node("a");
  const Ref<TestElement> fresh = document->element("f");
  CallObserver observer([&](const DomEvent& event) {
    if (event.target == a && a->parent() == root) fresh->appendChild(a);
  });
  document->addObserver(&observer, EventType::BeforeReplaceChildren);
  a->appendChild(fresh.get());
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r></r>");
  EXPECT_EQ(toXml(*fresh), "<f><a></a></f>");
  checkLinks(*fresh);
}

TEST_F(UnrulyObserverTest, WhatComesInIsTakenFromWhereAnObserverPutIt) {
  TestElement* root = load("<r></r>");
  const Snapshot before(*document);
  const Ref<TestElement> fresh = document->element("f");
  const Ref<TestElement> thief = document->element("t");
  CallObserver observer([&](const DomEvent&) { thief->appendChild(fresh.get()); });
  document->addObserver(&observer, EventType::BeforeReplaceChildren);
  root->appendChild(fresh.get());
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><f></f></r>");
  EXPECT_EQ(thief->length(), 0U);
  document->undo();
  before.expectIn(*document);
}

TEST_F(UnrulyObserverTest, WhatAnObserverPutIntoTheDocumentGoesBackThereForTheUndo) {
  TestElement* root = load("<r><a></a><b></b><x></x><e></e></r>");
  const Snapshot before(*document);
  Node* const e = node("e");
  const Ref<Node> moved = node("x");
  bool isFirst = true;
  CallObserver observer([&](const DomEvent& event) {
    if (event.target == e && std::exchange(isFirst, false))
      root->replaceChild(moved.get(), node("a"));
  });
  document->addObserver(&observer, EventType::BeforeReplaceChildren);
  e->appendChild(moved.get());
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><b></b><e><x></x></e></r>");
  const Snapshot after(*document);
  for (int round = 0; round < 2; ++round) {
    document->undo();
    before.expectIn(*document);
    document->redo();
    after.expectIn(*document);
  }
}

TEST_F(UnrulyObserverTest, WhatAnObserverHasTakenOutNeedsNoRemoval) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  const Snapshot before(*document);
  bool isFirst = true;
  CallObserver observer([&](const DomEvent&) {
    if (std::exchange(isFirst, false)) root->replaceChildren(node("a"), 2, nullptr);
  });
  document->addObserver(&observer, EventType::BeforeReplaceChildren);
  root->replaceChild(document->element("n").get(), node("a"));
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><c></c><n></n></r>");
  const Snapshot after(*document);
  document->undo();
  before.expectIn(*document);
  document->redo();
  after.expectIn(*document);
}

TEST_F(UnrulyObserverTest, ARemovalTakesOutOnlyWhatItWasAskedFor) {
  const struct {
    void (*meddle)(Node& b);
    const char* xml;
  } cases[] = {
      {[](Node& b) { b.parent()->removeChild(&b); }, "<r><c></c></r>"},
      {[](Node& b) {
         b.parent()->insertBefore(b.ownerDocument()->createElement(token("n")).get(), &b);
       },
       "<r><n></n><c></c></r>"},
      {[](Node& b) { b.parent()->insertBefore(&b, b.previousSibling()); }, "<r><c></c></r>"},
      {[](Node& b) { b.nextSibling()->appendChild(&b); }, "<r><c><b></b></c></r>"},
  };
  for (const auto& each : cases) {
    TestElement* root = load("<r><a></a><b></b><c></c></r>");
    document->clearUndo();
    const Snapshot before(*document);
    bool isFirst = true;
    CallObserver observer([&](const DomEvent&) {
      if (std::exchange(isFirst, false)) each.meddle(*node("b"));
    });
    document->addObserver(&observer, EventType::BeforeReplaceChildren);
    root->replaceChildren(node("a"), 2, nullptr);
    document->removeObserver(&observer);
    EXPECT_EQ(xml(), each.xml);
    checkLinks(*document);
    const Snapshot after(*document);
    for (int round = 0; round < 2; ++round) {
      document->undo();
      before.expectIn(*document);
      document->redo();
      after.expectIn(*document);
    }
  }
}

TEST_F(UnrulyObserverTest, WhatAnObserverKeepsFromLeavingDoesNotComeIn) {
  TestElement* root = load("<r><a></a><b></b><g></g></r>");
  Node* const g = node("g");
  const Ref<Node> a = node("a"), b = node("b");
  root->replaceChildren(a.get(), 2, nullptr);  // its undo brings both back
  for (const Ref<Node>& each : {a, b}) {
    document->executeDeferred(
        std::make_unique<ReplaceChildrenOperation>(g, nullptr, 0U, NewChildren::only(*each)));
  }
  EXPECT_EQ(xml(), "<r><g><a></a><b></b></g></r>");
  CallObserver observer([&](const DomEvent&) {
    if (b->parent() != g && a->parent() != g) g->appendChild(a.get());
  });
  document->addObserver(&observer, EventType::AfterReplaceChildren);
  document->undo();
  document->removeObserver(&observer);
  checkLinks(*document);
  EXPECT_EQ(a->parent() == g || a->parent() == root, true);
  EXPECT_EQ(b->parent(), root);
}

TEST_F(UnrulyObserverTest, AnUndoWithinAChangeDoesNothing) {
  TestElement* root = load("<r><a></a><c></c></r>");
  const Snapshot before(*document);
  root->insertBefore(document->element("y").get(), node("c"));
  document->startUndoGroup();
  for (const Token type :
       {Token(EventType::BeforeReplaceChildren), Token(EventType::AfterReplaceChildren)}) {
    bool isFirst = true;
    CallObserver observer([&](const DomEvent&) {
      if (std::exchange(isFirst, false)) document->undo();
    });
    document->addObserver(&observer, type);
    root->removeChild(root->firstChild());
    document->removeObserver(&observer);
  }
  EXPECT_EQ(xml(), "<r><c></c></r>");
  document->undo();
  EXPECT_EQ(xml(), "<r><a></a><y></y><c></c></r>");
  document->undo();
  before.expectIn(*document);

  document->redo();
  CallObserver observer([&](const DomEvent&) { document->redo(); });
  document->addObserver(&observer, EventType::BeforeSetAttribute);
  root->setAttribute(x, LongVariant(1));
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r x=\"1\"><a></a><y></y><c></c></r>");
}

TEST_F(UnrulyObserverTest, ADeferredUndoRunsAfterTheChange) {
  TestElement* root = load("<r><a></a></r>");
  bool isFirst = true;
  CallObserver observer([&](const DomEvent&) {
    if (!std::exchange(isFirst, false)) return;
    document->executeDeferred(callOperation([&] { document->undo(); }));
  });
  document->addObserver(&observer, EventType::BeforeReplaceChildren);
  root->removeChild(node("a"));
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><a></a></r>");
  EXPECT_TRUE(document->canRedo());
}

TEST_F(UnrulyObserverTest, AnAttributeThatAnObserverRemovesOrSetsFirst) {
  enum class Way { Remove, Set, Both };
  for (const char* start : {"<r x=\"1\"></r>", "<r></r>"}) {
    for (const Way way : {Way::Remove, Way::Set, Way::Both}) {
      for (const bool isRemoval : {false, true}) {
        TestElement* root = load(start);
        if (isRemoval && !root->hasAttribute(x)) continue;
        document->clearUndo();
        const Snapshot before(*document);
        bool isFirst = true;
        CallObserver observer([&](const DomEvent&) {
          if (!std::exchange(isFirst, false)) return;
          if (way != Way::Set) root->removeAttribute(x);
          if (way != Way::Remove) root->setAttribute(x, LongVariant(5));
          document->startUndoGroup();
        });
        document->addObserver(&observer);
        isRemoval ? root->removeAttribute(x) : root->setAttribute(x, LongVariant(2));
        document->removeObserver(&observer);
        EXPECT_EQ(xml(), isRemoval ? "<r></r>" : "<r x=\"2\"></r>");
        const Snapshot after(*document);
        for (int round = 0; round < 2; ++round) {
          while (document->canUndo()) document->undo();
          before.expectIn(*document);
          while (document->canRedo()) document->redo();
          after.expectIn(*document);
        }
      }
    }
  }
}

TEST_F(UnrulyObserverTest, AValueThatIsGoneBeforeTheUndoComesBackWithTheRedo) {
  TestElement* root = load("<r x=\"1\"></r>");
  root->setAttribute(x, LongVariant(2));
  document->executeDeferred(std::make_unique<RemoveAttributeOperation>(root, x));
  document->undo();
  EXPECT_EQ(xml(), "<r x=\"1\"></r>");
  document->redo();
  EXPECT_EQ(xml(), "<r x=\"2\"></r>");
}

TEST_F(UnrulyObserverTest, ChangesOfObserversAreUndoneInTheirOrder) {
  TestElement* root = load("<r><a></a>text</r>");
  const Snapshot before(*document);
  unsigned calls = 0;
  bool isMeddling = false;
  CallObserver observer([&](const DomEvent& event) {
    if (std::exchange(isMeddling, true)) return;
    if (std::strncmp(event.type.str(), "Before", 6) == 0) {
      root->insertBefore(document->element("n").get(), root->firstChild());
    } else {
      root->appendChild(document->element("m").get());
      text()->replaceData(0, 2, ++calls % 2 == 0 ? "01" : "23");
    }
    isMeddling = false;
  });
  document->addObserver(&observer);
  root->appendChild(document->element("b").get());
  root->removeChild(node("a"));
  text()->replaceData(1, 2, "XY");
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><n></n><n></n><n></n>23Yt<b></b><m></m><m></m><m></m></r>");
  const Snapshot after(*document);
  for (int round = 0; round < 2; ++round) {
    document->undo();
    before.expectIn(*document);
    document->redo();
    after.expectIn(*document);
  }
}

TEST_F(UnrulyObserverTest, AMoveWhoseTargetAnObserverTakesAwayEndsWithARefusal) {
  load("<r><a><x></x></a></r>");
  const Ref<TestElement> target = document->element("t");
  Node* const moved = node("x");
  CallObserver observer([&](const DomEvent&) { moved->appendChild(target.get()); });
  document->addObserver(&observer, EventType::AfterReplaceChildren);
  EXPECT_DOM_ERROR(3, target->appendChild(moved));
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><a></a></r>");
  document->undo();
  EXPECT_EQ(xml(), "<r><a><x><t></t></x></a></r>");
}

TEST_F(UnrulyObserverTest, AMoveWhoseTargetLeavesTheDocumentEndsWithARefusal) {
  TestElement* root = load("<r><a><x></x><y></y></a><b></b></r>");
  const Snapshot before(*document);
  for (const char* source : {"y", "b"}) {
    bool isFirst = true;
    CallObserver observer([&](const DomEvent&) {
      if (std::exchange(isFirst, false)) root->removeChild(node("a"));
    });
    document->addObserver(&observer, EventType::AfterReplaceChildren);
    const Ref<Node> target = node("a");
    EXPECT_DOM_ERROR(3, target->replaceChild(node(source), node("x")));
    document->removeObserver(&observer);
    EXPECT_EQ(target->firstChild()->nodeName(), token("x"));
    const Snapshot after(*document);
    document->undo();
    before.expectIn(*document);
    document->redo();
    after.expectIn(*document);
    document->undo();
  }
}

TEST_F(UnrulyObserverTest, AMoveOutThatAnObserverPutsBackEndsWithARefusal) {
  TestElement* root = load("<r><a></a><x></x></r>");
  const Snapshot before(*document);
  const Ref<TestElement> outside = document->element("o");
  const Ref<Node> moved = node("x");
  bool isFirst = true;
  CallObserver observer([&](const DomEvent&) {
    if (std::exchange(isFirst, false)) node("a")->appendChild(moved.get());
  });
  document->addObserver(&observer, EventType::AfterReplaceChildren);
  EXPECT_DOM_ERROR(3, outside->appendChild(moved.get()));
  document->removeObserver(&observer);
  EXPECT_EQ(xml(), "<r><a><x></x></a></r>");
  EXPECT_EQ(outside->length(), 0U);
  const Snapshot after(*document);
  EXPECT_EQ(root->length(), 1U);
  document->undo();
  before.expectIn(*document);
  document->redo();
  after.expectIn(*document);
}

TEST_F(UnrulyObserverTest, ASplitIsUndoneThoughAnObserverTakesTheTextOut) {
  TestElement* root = load("<r>abcdef</r>");
  const Snapshot before(*document);
  bool isFirst = true;
  CallObserver observer([&](const DomEvent&) {
    if (std::exchange(isFirst, false)) root->removeChild(root->firstChild());
  });
  document->addObserver(&observer, EventType::AfterReplaceChildren);
  const Ref<Text> first = text();
  const Ref<Text> tail = first->splitText(2);
  document->removeObserver(&observer);
  EXPECT_STREQ(first->nodeValue(), "ab");
  EXPECT_EQ(xml(), "<r>cdef</r>");
  document->undo();
  before.expectIn(*document);
  document->redo();
  EXPECT_STREQ(first->nodeValue(), "ab");
  EXPECT_EQ(xml(), "<r>cdef</r>");
}

TEST_F(UnrulyObserverTest, ATextThatIsTakenOutWhileItIsSplitIsSplitAllTheSame) {
  for (const bool isDeferred : {true, false}) {
    TestElement* root = load("<r>abcdef</r>");
    document->setUndoLimit(0);
    bool isFirst = true;
    CallObserver observer([&](const DomEvent&) {
      if (!std::exchange(isFirst, false)) return;
      const auto remove = [root] { root->removeChild(root->firstChild()); };
      if (isDeferred) {
        document->executeDeferred(callOperation(remove));
      } else {
        remove();
      }
    });
    document->addObserver(&observer, EventType::AfterReplaceChildren);
    const Ref<Text> tail = text()->splitText(2);
    document->removeObserver(&observer);
    EXPECT_STREQ(tail->nodeValue(), "cdef");
    EXPECT_EQ(xml(), "<r>cdef</r>");
  }
}

// What is taken out during a change

TEST_F(UnrulyObserverTest, WhatIsTakenOutDuringAChangeLivesUntilItsEnd) {
  enum class Way { Recorded, InABatch, WithTheRoot, Outside };
  for (const Way way : {Way::Recorded, Way::InABatch, Way::WithTheRoot, Way::Outside}) {
    TestElement* root = load("<r><a><b></b></a><c></c></r>");
    document->setUndoLimit(0);
    const int before = TestElement::alive;
    CallObserver observer([&](const DomEvent&) {
      Node* const a = node("a");
      Node* const b = node("b");
      if (way == Way::InABatch) document->beginBatch();
      if (way == Way::WithTheRoot) document->removeChild(root);
      root->removeChild(a);
      if (way == Way::InABatch) document->endBatch();
      if (way == Way::Outside) a->removeChild(b);
      EXPECT_EQ(TestElement::alive, before);
      EXPECT_EQ(b->nodeName(), token("b"));
    });
    document->addObserver(&observer, EventType::AfterSetAttribute);
    element("c")->setAttribute(x, LongVariant(1));
    document->removeObserver(&observer);
    EXPECT_EQ(TestElement::alive, way == Way::WithTheRoot ? 0 : before - 2);
  }
}

TEST_F(UnrulyObserverTest, WhatIsTakenOutDuringAnUndoLivesUntilItsEnd) {
  TestElement* root = load("<r><a></a><c></c></r>");
  element("c")->setAttribute(x, LongVariant(1));
  const int before = TestElement::alive;
  bool isFirst = true;
  CallObserver observer([&](const DomEvent&) {
    if (!std::exchange(isFirst, false)) return;
    root->removeChild(node("a"));
    EXPECT_EQ(TestElement::alive, before);
  });
  document->addObserver(&observer);
  document->undo();
  document->removeObserver(&observer);
  EXPECT_EQ(TestElement::alive, before - 1);
  EXPECT_EQ(xml(), "<r><c></c></r>");
}

TEST_F(UnrulyObserverTest, SeveralChangesCanBeOne) {
  TestElement* root = load("<r><a></a></r>");
  const Snapshot before(*document);
  Log log;
  CallObserver observer([&](const DomEvent&) {
    document->executeDeferred(callOperation([&] { log.push_back("deferred"); }));
    throw Thrown();
  });
  document->addObserver(&observer, EventType::AfterReplaceChildren);
  EXPECT_THROW(document->asOneChange([&] {
    root->removeChild(node("a"));
    root->setAttribute(x, LongVariant(1));
    document->undo();
    log.push_back("end");
  }),
               Thrown);
  document->removeObserver(&observer);
  EXPECT_EQ(log, (Log{"end", "deferred"}));
  EXPECT_EQ(xml(), "<r x=\"1\"></r>");
  expectAtRest();
  document->undo();
  before.expectIn(*document);
}

TEST_F(UnrulyObserverTest, ARefusalEndsWhatWasToBeOneChange) {
  TestElement* root = load("<r></r>");
  EXPECT_DOM_ERROR(8, document->asOneChange([&] {
    root->setAttribute(x, LongVariant(1));
    root->removeChild(root);
    root->setAttribute(x, LongVariant(2));
  }));
  EXPECT_EQ(xml(), "<r x=\"1\"></r>");
  expectAtRest();
}

/// Takes itself out in one of its hooks.
class FleetingElement : public TestElement {
 public:
  using TestElement::TestElement;
  bool beforeSetAttribute(Element&, Token, const Variant&) override { return flee("beforeSet"); }
  bool afterSetAttribute(Element&, Token) override { return flee("afterSet"); }
  bool beforeRemoveAttribute(Element&, Token) override { return flee("beforeRemove"); }
  bool afterRemoveAttribute(Element&, Token) override { return flee("afterRemove"); }
  void onAttached() override { flee("attached"); }

  static inline std::string_view fleesIn;
  static inline int flights = 0;

 private:
  bool flee(std::string_view hook) {
    if (hook != fleesIn) return true;
    EXPECT_TRUE(parent());
    parent()->removeChild(this);
    EXPECT_EQ(nodeName(), token("f")) << "it is still there";
    ++flights;
    return true;
  }
};

TEST_F(UnrulyObserverTest, AnElementMayTakeItselfOutInItsHooks) {
  for (const unsigned limit : {0U, 100U}) {
    for (const char* hook : {"attached", "beforeSet", "afterSet", "beforeRemove", "afterRemove"}) {
      SCOPED_TRACE(hook);
      document->setUndoLimit(limit);
      TestElement* root = load("<r><a></a></r>");
      const Ref<TestElement> top = readXml(*document, "<t><u></u></t>");
      for (int i = 0; i < 2; ++i) {
        const Ref<Node> fleeting = new FleetingElement(document.get(), token("f"));
        top->insertBefore(fleeting.get(), top->firstChild());
      }
      FleetingElement::fleesIn = hook;
      FleetingElement::flights = 0;
      root->appendChild(top.get());
      root->setAttribute(x, LongVariant(1));
      root->removeAttribute(x);
      EXPECT_EQ(FleetingElement::flights, 2);
      EXPECT_EQ(xml(), "<r><a></a><t><u></u></t></r>");
      checkLinks(*document);
    }
  }
}

}  // namespace
