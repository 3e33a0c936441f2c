#include "vantry/dom/document.h"

#include "test_document.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class DocumentTest : public TreeTest {};

TEST_F(DocumentTest, IsItsOwnOwnerAndBeginsEmpty) {
  EXPECT_EQ(document->ownerDocument(), document.get());
  EXPECT_EQ(document->firstChild(), nullptr);
  EXPECT_EQ(document->documentElement(), nullptr);
  EXPECT_FALSE(document->isInBatch());
  EXPECT_FALSE(document->canUndo());
  EXPECT_FALSE(document->canRedo());
}

TEST_F(DocumentTest, MakesNodesThatNobodyRefersToYet) {
  const Ref<Text> text = document->createTextNode("x");
  EXPECT_EQ(text->refCount(), 1U);
  EXPECT_EQ(text->ownerDocument(), document.get());
  const Ref<DocumentFragment> fragment = document->createDocumentFragment();
  EXPECT_EQ(fragment->refCount(), 1U);
  EXPECT_EQ(fragment->ownerDocument(), document.get());
}

TEST_F(DocumentTest, ARootThatIsNoElementIsNoDocumentElement) {
  document->appendChild(document->createTextNode("x").get());
  EXPECT_EQ(document->documentElement(), nullptr);
}

// Observers

TEST_F(DocumentTest, ObserversAreNotifiedOfEveryChange) {
  TestElement* root = load("<r>text</r>");
  Recorder recorder;
  document->addObserver(&recorder);
  root->setAttribute(token("x"), LongVariant(1));
  root->removeAttribute(token("x"));
  text()->appendData("!");
  root->removeChild(text());
  EXPECT_EQ(recorder.log,
            (Log{"BeforeSetAttribute r", "AfterSetAttribute r", "BeforeRemoveAttribute r",
                 "AfterRemoveAttribute r", "BeforeReplaceText #text", "AfterReplaceText #text",
                 "BeforeReplaceChildren r", "AfterReplaceChildren r"}));
  document->removeObserver(&recorder);
}

TEST_F(DocumentTest, ASubscriptionIsForOneTypeOrForAll) {
  TestElement* root = load("<r></r>");
  Recorder one;
  document->addObserver(&one, token("AfterSetAttribute"));
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_EQ(one.log, (Log{"AfterSetAttribute r"}));
  document->removeObserver(&one);
}

TEST_F(DocumentTest, EventsCarryWhatIsAboutToHappen) {
  TestElement* root = load("<r><a></a>text</r>");
  const Ref<TestElement> b = document->element("b");
  Node* const a = node("a");
  int calls = 0;
  CallObserver observer([&](const DomEvent& event) {
    ++calls;
    EXPECT_FALSE(event.isStale());
    if (event.type == EventType::BeforeReplaceChildren) {
      const auto& before = static_cast<const BeforeReplaceChildrenEvent&>(event);
      EXPECT_EQ(before.target, root);
      EXPECT_EQ(before.first, a);
      EXPECT_EQ(before.count, 1U);
      EXPECT_EQ(before.newChildren, b.get());
      EXPECT_EQ(a->parent(), root);
    } else if (event.type == EventType::AfterReplaceChildren) {
      EXPECT_EQ(b->parent(), root);
    } else if (event.type == EventType::BeforeReplaceText) {
      const auto& before = static_cast<const BeforeReplaceTextEvent&>(event);
      EXPECT_EQ(before.target, text());
      EXPECT_EQ(before.offset, 1U);
      EXPECT_EQ(before.count, 2U);
      EXPECT_STREQ(before.text, "XY");
      EXPECT_STREQ(text()->nodeValue(), "text");
    } else if (event.type == EventType::AfterReplaceText) {
      EXPECT_STREQ(text()->nodeValue(), "tXYt");
    } else if (event.type == EventType::BeforeSetAttribute) {
      const auto& before = static_cast<const BeforeSetAttributeEvent&>(event);
      EXPECT_EQ(before.name, token("x"));
      EXPECT_EQ(before.value, LongVariant(1));
    } else {
      const auto& attribute = static_cast<const DomAttributeEvent&>(event);
      EXPECT_EQ(attribute.name, token("x"));
    }
  });
  document->addObserver(&observer);
  root->replaceChild(b.get(), a);
  text()->replaceData(1, 2, "XY");
  root->setAttribute(token("x"), LongVariant(1));
  root->removeAttribute(token("x"));
  EXPECT_EQ(calls, 8);
  document->removeObserver(&observer);
}

TEST_F(DocumentTest, ADeletionCarriesNoText) {
  load("<r>text</r>");
  CallObserver observer([](const DomEvent& event) {
    EXPECT_EQ(static_cast<const BeforeReplaceTextEvent&>(event).text, nullptr);
  });
  document->addObserver(&observer, EventType::BeforeReplaceText);
  text()->deleteData(0, 2);
  EXPECT_EQ(observer.log.size(), 1U);
  document->removeObserver(&observer);
}

TEST_F(DocumentTest, NullObserversAreIgnored) {
  document->addObserver(nullptr);
  document->addObserver(nullptr, EventType::AfterReplaceText);
  document->removeObserver(nullptr);
  document->removeObserver(nullptr, EventType::AfterReplaceText);
  load("<r></r>")->setAttribute(token("x"), LongVariant(1));
}

TEST_F(DocumentTest, OneObserverMayHaveSeveralSubscriptions) {
  Recorder recorder;
  document->addObserver(&recorder, EventType::BeforeReplaceText);
  document->addObserver(&recorder, EventType::AfterReplaceText);
  document->removeObserver(&recorder);
  EXPECT_EQ(recorder.log, (Log{"detached BeforeReplaceText", "detached AfterReplaceText"}));
  document->removeObserver(&recorder);
  EXPECT_EQ(recorder.log.size(), 2U);
}

TEST_F(DocumentTest, OneSubscriptionEndsAlone) {
  TestElement* root = load("<r></r>");
  Recorder recorder;
  document->addObserver(&recorder);
  document->addObserver(&recorder, EventType::BeforeSetAttribute);
  document->removeObserver(&recorder, EventType::AfterSetAttribute);  // there is none
  EXPECT_TRUE(recorder.log.empty());
  document->removeObserver(&recorder, Token());
  EXPECT_EQ(recorder.log, (Log{"detached all"}));
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_EQ(recorder.log, (Log{"detached all", "BeforeSetAttribute r"}));
  document->removeObserver(&recorder);
}

TEST_F(DocumentTest, ObserversAreNotifiedInTheOrderOfTheirPlaces) {
  TestElement* root = load("<r></r>");
  Log order;
  const auto noting = [&order](const char* name) {
    return CallObserver([&order, name](const DomEvent&) { order.push_back(name); });
  };
  auto first = noting("first"), second = noting("second"), third = noting("third");
  document->addObserver(&first, EventType::AfterSetAttribute);
  document->addObserver(&second, EventType::AfterSetAttribute);
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_EQ(order, (Log{"first", "second"}));

  order.clear();
  document->removeObserver(&first);
  document->addObserver(&third, EventType::AfterSetAttribute);  // takes the first's place
  document->addObserver(&first, EventType::AfterSetAttribute);
  root->setAttribute(token("x"), LongVariant(2));
  EXPECT_EQ(order, (Log{"third", "second", "first"}));
  for (IDocObserver* each : {&first, &second, &third}) document->removeObserver(each);
}

TEST_F(DocumentTest, AnObserverMayRemoveItself) {
  TestElement* root = load("<r></r>");
  Recorder last;
  IDocObserver* self = nullptr;
  CallObserver observer([&](const DomEvent&) { document->removeObserver(self); });
  self = &observer;
  document->addObserver(&observer);
  document->addObserver(&last);
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_EQ(observer.log, (Log{"BeforeSetAttribute r", "detached all"}));
  EXPECT_EQ(last.log, (Log{"BeforeSetAttribute r", "AfterSetAttribute r"}));
  document->removeObserver(&last);
}

TEST_F(DocumentTest, AnObserverMayAddAndRemoveOthers) {
  TestElement* root = load("<r></r>");
  std::vector<Recorder> added(50);
  Recorder removed;
  CallObserver observer([&](const DomEvent&) {
    if (!added[0].log.empty()) return;
    for (Recorder& each : added) document->addObserver(&each);
    document->removeObserver(&removed);
  });
  document->addObserver(&observer);
  document->addObserver(&removed);
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_EQ(removed.log, (Log{"detached all"}));
  // The first took the free place behind the observer, the others came to the end.
  for (const Recorder& each : added) {
    EXPECT_EQ(each.log, (Log{"BeforeSetAttribute r", "AfterSetAttribute r"}));
  }
  document->removeObserver(&observer);
  for (Recorder& each : added) document->removeObserver(&each);
}

// Batches

TEST_F(DocumentTest, ABatchIsReportedOnceAndSilent) {
  TestElement* root = load("<r></r>");
  Recorder recorder;
  document->addObserver(&recorder);
  document->beginBatch();
  document->beginBatch();
  EXPECT_EQ(recorder.log, (Log{"beforeBatch"}));
  root->setAttribute(token("x"), LongVariant(1));
  document->endBatch();
  EXPECT_TRUE(document->isInBatch());
  root->setAttribute(token("x"), LongVariant(2));
  EXPECT_EQ(recorder.log, (Log{"beforeBatch"}));
  document->endBatch();
  EXPECT_FALSE(document->isInBatch());
  EXPECT_EQ(recorder.log, (Log{"beforeBatch", "afterBatch"}));
  document->endBatch();  // there is none
  EXPECT_EQ(recorder.log.size(), 2U);
  root->setAttribute(token("x"), LongVariant(3));
  EXPECT_EQ(recorder.log.size(), 4U);
  document->removeObserver(&recorder);
}

TEST_F(DocumentTest, ABatchEndsAllUndoAndRecordsNothing) {
  TestElement* root = load("<r></r>");
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_TRUE(document->canUndo());
  document->beginBatch();
  EXPECT_FALSE(document->canUndo());
  root->setAttribute(token("x"), LongVariant(2));
  EXPECT_FALSE(document->canUndo());
  document->endBatch();
  EXPECT_FALSE(document->canUndo());
  root->setAttribute(token("x"), LongVariant(3));
  EXPECT_TRUE(document->canUndo());
}

TEST_F(DocumentTest, WhatAChangeHasRecordedIsForgottenWithTheHistory) {
  const std::function<void()> ways[] = {
      [this] {
        document->beginBatch();
        document->endBatch();
      },
      [this] { document->clearUndo(); },
      [this] { document->setUndoLimit(50); },
  };
  for (const std::function<void()>& forget : ways) {
    TestElement* root = load("<r></r>");
    document->asOneChange([&] {
      root->setAttribute(token("x"), LongVariant(1));
      forget();
    });
    EXPECT_FALSE(document->canUndo());
    document->asOneChange([&] {
      root->setAttribute(token("x"), LongVariant(2));
      forget();
      root->setAttribute(token("x"), LongVariant(3));
    });
    document->undo();
    EXPECT_FALSE(document->canUndo());
    EXPECT_EQ(xml(), "<r x=\"2\"></r>");
  }
}

TEST_F(DocumentTest, ABatchKeepsTheUndoLimit) {
  TestElement* root = load("<r></r>");
  document->setUndoLimit(1);
  document->beginBatch();
  document->endBatch();
  for (int i = 0; i < 3; ++i) {
    document->startUndoGroup();
    root->setAttribute(token("x"), LongVariant(i));
  }
  document->undo();
  EXPECT_FALSE(document->canUndo());
}

/// An observer that calls a function before a batch and one after it.
template <class Before, class After>
class BatchObserver final : public Recorder {
 public:
  BatchObserver(Before before, After after)
      : before_(std::move(before)), after_(std::move(after)) {}
  void beforeBatch() override {
    Recorder::beforeBatch();
    before_();
  }
  void afterBatch() override {
    Recorder::afterBatch();
    after_();
  }

 private:
  Before before_;
  After after_;
};

TEST_F(DocumentTest, AroundABatchObserversAreNotInIt) {
  TestElement* root = load("<r></r>");
  document->setUndoLimit(2);
  root->setAttribute(token("x"), LongVariant(1));
  BatchObserver observer(
      [&] {
        EXPECT_FALSE(document->isInBatch());
        EXPECT_FALSE(document->canUndo()) << "the history is empty by then";
        root->setAttribute(token("x"), LongVariant(2));
        EXPECT_FALSE(document->canUndo()) << "and takes nothing";
      },
      [&] {
        EXPECT_FALSE(document->isInBatch());
        for (int i = 4; i < 7; ++i) {
          document->startUndoGroup();
          root->setAttribute(token("x"), LongVariant(i));
        }
      });
  document->addObserver(&observer);
  document->beginBatch();
  root->setAttribute(token("x"), LongVariant(3));
  document->endBatch();
  EXPECT_EQ(observer.log,
            (Log{"beforeBatch", "BeforeSetAttribute r", "AfterSetAttribute r", "afterBatch",
                 "BeforeSetAttribute r", "AfterSetAttribute r", "BeforeSetAttribute r",
                 "AfterSetAttribute r", "BeforeSetAttribute r", "AfterSetAttribute r"}));
  while (document->canUndo()) document->undo();
  EXPECT_EQ(xml(), "<r x=\"4\"></r>") << "the limit is 2 again";
  document->removeObserver(&observer);
}

TEST_F(DocumentTest, AnUndoLimitSetInABatchCountsAfterIt) {
  TestElement* root = load("<r></r>");
  document->beginBatch();
  document->setUndoLimit(0);
  document->setUndoLimit(5);
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_FALSE(document->canUndo());
  document->endBatch();
  root->setAttribute(token("x"), LongVariant(2));
  EXPECT_TRUE(document->canUndo());
}

TEST_F(DocumentTest, NodesMeetTheDocumentInABatchToo) {
  TestElement* root = load("<r></r>");
  Log log;
  const Ref<TestElement> a = document->element("a");
  a->log = &log;
  document->beginBatch();
  root->appendChild(a.get());
  document->endBatch();
  EXPECT_EQ(log, (Log{"attached a"}));
}

// Deferred operations

TEST_F(DocumentTest, ADeferredOperationRunsOnceAfterTheExecution) {
  TestElement* root = load("<r></r>");
  int runs = 0;
  CallObserver observer([&](const DomEvent& event) {
    if (!(event.type == EventType::BeforeSetAttribute)) return;
    document->executeDeferred(callOperation([&] {
      ++runs;
      EXPECT_TRUE(root->hasAttribute(token("x")));
    }));
    EXPECT_EQ(runs, 0);
  });
  document->addObserver(&observer);
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_EQ(runs, 1);
  document->removeObserver(&observer);
  root->setAttribute(token("x"), LongVariant(2));
  EXPECT_EQ(runs, 1);
}

TEST_F(DocumentTest, DeferredOperationsKeepTheirOrderAndAreNotRecorded) {
  TestElement* root = load("<r></r>");
  Log log;
  document->execute(callOperation([&] {
    document->executeDeferred(callOperation([&] { log.push_back("first"); }));
    document->executeDeferred(callOperation([&] { log.push_back("second"); }));
    log.push_back("execution");
  }));
  EXPECT_EQ(log, (Log{"execution", "first", "second"}));
  document->undo();
  EXPECT_FALSE(document->canUndo());
  EXPECT_EQ(log.size(), 3U);
  EXPECT_EQ(root->length(), 0U);
}

TEST_F(DocumentTest, OutsideOfAnExecutionADeferredOperationRunsAtOnce) {
  int runs = 0;
  document->executeDeferred(callOperation([&] { ++runs; }));
  EXPECT_EQ(runs, 1);
  EXPECT_FALSE(document->canUndo());
  document->executeDeferred(nullptr);
  document->execute(nullptr);
}

TEST_F(DocumentTest, ADeferredOperationMayChangeTheTree) {
  TestElement* root = load("<r></r>");
  CallObserver observer([&](const DomEvent& event) {
    if (event.target->length() > 3) return;
    document->executeDeferred(
        callOperation([&] { root->appendChild(document->createElement(token("more")).get()); }));
  });
  document->addObserver(&observer, EventType::AfterReplaceChildren);
  root->appendChild(document->createElement(token("a")).get());
  EXPECT_EQ(xml(), "<r><a></a><more></more><more></more><more></more></r>");
  document->removeObserver(&observer);
}

TEST_F(DocumentTest, DeferredOperationsRunAfterUndoAndRedo) {
  TestElement* root = load("<r></r>");
  root->setAttribute(token("x"), LongVariant(1));
  Log log;
  CallObserver observer([&](const DomEvent& event) {
    const std::string type = event.type.str();
    document->executeDeferred(callOperation([&log, type] { log.push_back("after " + type); }));
    log.push_back(type);
  });
  document->addObserver(&observer, EventType::AfterRemoveAttribute);
  document->addObserver(&observer, EventType::AfterSetAttribute);
  document->undo();
  document->redo();
  EXPECT_EQ(log, (Log{"AfterRemoveAttribute", "after AfterRemoveAttribute", "AfterSetAttribute",
                      "after AfterSetAttribute"}));
  document->removeObserver(&observer);
}

TEST_F(DocumentTest, ADeferredOperationMayTakeAwayWhatAMoveIsAbout) {
  load("<r><a><x></x></a><b><y></y></b></r>");
  document->setUndoLimit(0);
  CallObserver observer([&](const DomEvent& event) {
    if (!(event.target->nodeName() == token("a"))) return;
    document->executeDeferred(callOperation([&] { node("r")->removeChild(node("b")); }));
  });
  document->addObserver(&observer, EventType::AfterReplaceChildren);
  node("b")->insertBefore(node("x"), node("y"));
  EXPECT_EQ(xml(), "<r><a></a></r>");
  document->removeObserver(&observer);
}

// The end of a document

TEST_F(DocumentTest, TearDownEndsEverythingButTheTree) {
  TestElement* root = load("<r></r>");
  Recorder recorder;
  document->addObserver(&recorder, EventType::AfterSetAttribute);
  root->setAttribute(token("x"), LongVariant(1));
  recorder.log.clear();
  document->tearDown();
  EXPECT_EQ(recorder.log, (Log{"beforeBatch", "detached AfterSetAttribute"}));
  EXPECT_TRUE(document->isInBatch());
  EXPECT_FALSE(document->canUndo());
  EXPECT_FALSE(document->createRange(true));
  EXPECT_EQ(document->firstSelectedRange(), nullptr);
  root->setAttribute(token("x"), LongVariant(2));
  EXPECT_EQ(xml(), "<r x=\"2\"></r>");
}

TEST_F(DocumentTest, ADocumentThatWasTornDownSendsNoEvents) {
  load("<r></r>");
  document->tearDown();
  Recorder recorder;
  document->addObserver(&recorder);
  document->notify(AfterReplaceChildrenEvent(node("r")));
  element("r")->setAttribute(token("x"), LongVariant(1));
  EXPECT_TRUE(recorder.log.empty());
  document->removeObserver(&recorder);
}

TEST_F(DocumentTest, TearDownCanBeCalledAgain) {
  document->tearDown();
  document->tearDown();
  EXPECT_TRUE(document->isInBatch());
  document->endBatch();
  EXPECT_TRUE(document->isInBatch());
}

TEST_F(DocumentTest, TearDownDropsPendingOperationsWithoutRunningThem) {
  bool hasRun = false;
  document->execute(callOperation([&] {
    document->executeDeferred(callOperation([&] { hasRun = true; }));
    document->tearDown();
  }));
  EXPECT_FALSE(hasRun);
}

TEST_F(DocumentTest, AnObserverMayTearTheDocumentDown) {
  TestElement* root = load("<r></r>");
  Recorder last;
  CallObserver observer([&](const DomEvent&) { document->tearDown(); });
  document->addObserver(&observer);
  document->addObserver(&last);
  root->setAttribute(token("x"), LongVariant(1));
  EXPECT_EQ(last.log, (Log{"beforeBatch", "detached all"}));
}

TEST_F(DocumentTest, TheLastReleaseTearsDown) {
  Recorder recorder;
  document->addObserver(&recorder);
  load("<r><a></a></r>");
  document = nullptr;
  EXPECT_EQ(recorder.log, (Log{"beforeBatch", "detached all"}));
  EXPECT_EQ(TestElement::alive, 0);
}

TEST_F(DocumentTest, ADocumentThatWasNeverReferencedDiesOnItsFirstRelease) {
  auto* unheld = new TestDocument;
  unheld->appendChild(unheld->createElement(token("r")).get());
  unheld->release();
  EXPECT_EQ(TestElement::alive, 0);
}

TEST_F(DocumentTest, ANodeThatOutlivesItsDocumentStillHasAnOwner) {
  const Ref<TestElement> unattached = document->element("u");
  load("<r><a><b></b></a></r>");
  Ref<TestElement> a = element("a");
  document = nullptr;
  EXPECT_EQ(TestElement::alive, 3);
  EXPECT_EQ(a->parent(), nullptr);
  EXPECT_FALSE(a->isInDocument());
  EXPECT_FALSE(a->firstChild()->isInDocument());
  EXPECT_EQ(a->ownerDocument(), unattached->ownerDocument());
  EXPECT_EQ(a->ownerDocument()->firstChild(), nullptr);

  a->setAttribute(token("x"), LongVariant(1));
  a->appendChild(unattached.get());
  const Ref<Node> copy = a->cloneNode(true);
  EXPECT_EQ(toXml(*copy), "<a x=\"1\"><b></b><u></u></a>");
}

TEST_F(DocumentTest, ADocumentThatWasGivenUpCanBeHeldAgain) {
  Ref<TestElement> element = document->element("e");
  document = nullptr;
  Ref<Document> again = element->ownerDocument();
  again->appendChild(element.get());
  EXPECT_TRUE(element->isInDocument());
  again = nullptr;
  EXPECT_FALSE(element->isInDocument());

  again = element->ownerDocument();
  element = nullptr;
  EXPECT_EQ(TestElement::alive, 0);
  again->appendChild(again->createElement(token("new")).get());
  again = nullptr;
  EXPECT_EQ(TestElement::alive, 0);
}

TEST_F(DocumentTest, ADocumentThatWasGivenUpTwiceGoesWithTheLastNode) {
  const Ref<TestElement> element = document->element("e");
  Ref<TestElement> other = document->element("o");
  document = nullptr;
  Ref<Document> again = element->ownerDocument();
  again->appendChild(other.get());
  other = nullptr;
  again = nullptr;
  EXPECT_EQ(TestElement::alive, 1);
  EXPECT_EQ(element->ownerDocument()->firstChild(), nullptr);
}

}  // namespace
