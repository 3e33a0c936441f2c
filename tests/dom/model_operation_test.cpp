#include "vantry/dom/model_operation.h"

#include "test_document.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class ModelOperationTest : public TreeTest {
 protected:
  const Token x = token("x");
};

TEST_F(ModelOperationTest, AppendUndoRedo) {
  TestElement* root = load("<r><a></a></r>");
  const Ref<TestElement> b = document->element("b");
  root->appendChild(b.get());
  document->undo();
  EXPECT_EQ(xml(), "<r><a></a></r>");
  EXPECT_EQ(b->parent(), nullptr);
  EXPECT_FALSE(b->isInDocument());
  document->redo();
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
  EXPECT_TRUE(b->isInDocument());
  checkLinks(*document);
}

// Each change of three children: done, undone, redone, undone.
TEST_F(ModelOperationTest, EveryChangeOfChildrenIsItsOwnInverse) {
  const std::string before = "<r><a></a><b></b><c></c></r>";
  for (unsigned first = 0; first <= 3; ++first) {
    for (unsigned count = 0; count <= 5; ++count) {
      for (unsigned added = 0; added <= 2; ++added) {
        TestElement* root = load(before);
        const Ref<DocumentFragment> fragment = document->fragment();
        for (unsigned i = 0; i < added; ++i)
          fragment->appendChild(document->createElement(x).get());
        const Ref<Node> chain = fragment->firstChild();
        if (chain) fragment->replaceChildren(chain.get(), added, nullptr);
        document->clearUndo();

        root->replaceChildren(root->childAt(first), count, chain.get());
        const std::string after = xml();
        for (int i = 0; i < 2; ++i) {
          document->undo();
          EXPECT_EQ(xml(), before);
          checkLinks(*document);
          document->redo();
          EXPECT_EQ(xml(), after);
          checkLinks(*document);
        }
      }
    }
  }
}

TEST_F(ModelOperationTest, RemovingTheMiddleIsUndoneInPlace) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  root->removeChild(node("b"));
  EXPECT_EQ(xml(), "<r><a></a><c></c></r>");
  document->undo();
  EXPECT_EQ(xml(), "<r><a></a><b></b><c></c></r>");
}

TEST_F(ModelOperationTest, RemovingTheLastIsUndoneAtTheEnd) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  root->removeChild(node("c"));
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
  document->undo();
  EXPECT_EQ(xml(), "<r><a></a><b></b><c></c></r>");
  EXPECT_EQ(root->lastChild(), node("c"));
  document->redo();
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
}

TEST_F(ModelOperationTest, AMoveIsOneGroup) {
  load("<r><a><x></x><y></y></a><b></b></r>");
  document->startUndoGroup();
  node("b")->appendChild(node("x"));
  document->undo();
  EXPECT_EQ(xml(), "<r><a><x></x><y></y></a><b></b></r>");
  document->redo();
  EXPECT_EQ(xml(), "<r><a><y></y></a><b><x></x></b></r>");
}

TEST_F(ModelOperationTest, TheHistoryKeepsWhatWasRemovedAlive) {
  TestElement* root = load("<r><a><b></b></a></r>");
  root->removeChild(node("a"));
  EXPECT_EQ(TestElement::alive, 3);
  document->clearUndo();
  EXPECT_EQ(TestElement::alive, 1);
}

TEST_F(ModelOperationTest, UndoMakesNodesMeetTheDocumentAgain) {
  TestElement* root = load("<r><a></a></r>");
  Log log;
  element("a")->log = &log;
  root->removeChild(node("a"));
  EXPECT_TRUE(log.empty());
  document->undo();
  EXPECT_EQ(log, (Log{"attached a"}));
}

TEST_F(ModelOperationTest, WhatWasPutElsewhereInBetweenIsTakenBack) {
  TestElement* root = load("<r><a></a><b></b></r>");
  const Ref<TestElement> elsewhere = document->element("e");
  const Ref<Node> a = root->removeChild(node("a"));
  elsewhere->appendChild(a.get());
  elsewhere->appendChild(document->createElement(x).get());
  document->undo();
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
  EXPECT_EQ(toXml(*elsewhere), "<e><x></x></e>");
  checkLinks(*document);
  checkLinks(*elsewhere);
}

TEST_F(ModelOperationTest, UndoDoesWhatIsLeftToDoAfterDeferredChanges) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  root->removeChild(node("a"));  // its undo is to insert before b
  document->executeDeferred(
      std::make_unique<ReplaceChildrenOperation>(root, node("b"), 1U, nullptr));
  document->undo();
  EXPECT_EQ(xml(), "<r><c></c><a></a></r>");
  checkLinks(*document);

  root->appendChild(document->createElement(x).get());  // its undo is to remove that
  document->executeDeferred(
      std::make_unique<ReplaceChildrenOperation>(root, node("x"), 1U, nullptr));
  document->undo();
  EXPECT_EQ(xml(), "<r><c></c><a></a></r>");
  checkLinks(*document);
}

TEST_F(ModelOperationTest, AnUndoTakesOutOnlyWhatTheChangePutIn) {
  TestElement* root = load("<r><c></c></r>");
  const Ref<DocumentFragment> fragment = document->fragment();
  for (const char* name : {"x", "y"}) fragment->appendChild(document->element(name).get());
  root->insertBefore(fragment.get(), node("c"));
  document->executeDeferred(
      std::make_unique<ReplaceChildrenOperation>(root, node("y"), 1U, nullptr));
  document->undo();
  EXPECT_EQ(xml(), "<r><c></c></r>");
  document->redo();
  EXPECT_EQ(xml(), "<r><x></x><c></c></r>") << "what was taken out meanwhile stays out";
  checkLinks(*document);
}

TEST_F(ModelOperationTest, AnUndoLeavesWhatCameInBetween) {
  TestElement* root = load("<r><c></c></r>");
  const Ref<DocumentFragment> fragment = document->fragment();
  for (const char* name : {"x", "y", "z"}) fragment->appendChild(document->element(name).get());
  root->insertBefore(fragment.get(), node("c"));
  for (const char* name : {"y", "z"}) {
    const Ref<TestElement> stranger = document->element(std::string("before-") + name);
    document->executeDeferred(
        std::make_unique<ReplaceChildrenOperation>(root, node(name), 0U, stranger.get()));
  }
  const Ref<Range> bookmark = document->createRange(false);
  bookmark->selectNodeContents(node("before-y"));
  EXPECT_EQ(xml(), "<r><x></x><before-y></before-y><y></y><before-z></before-z><z></z><c></c></r>");
  document->undo();
  EXPECT_EQ(xml(), "<r><before-y></before-y><before-z></before-z><c></c></r>");
  EXPECT_EQ(bookmark->startContainer(), node("before-y"));
  document->redo();
  EXPECT_EQ(xml(), "<r><x></x><y></y><z></z><before-y></before-y><before-z></before-z><c></c></r>");
  checkLinks(*document);
}

TEST_F(ModelOperationTest, WhatIsBelowItsNewPlaceStaysWhereItWasPut) {
  TestElement* root = load("<r><a></a></r>");
  const Ref<Node> a = node("a");
  const Ref<TestElement> fresh = document->element("f");
  const Ref<TestElement> elsewhere = document->element("e");
  a->appendChild(fresh.get());
  document->undo();
  document->executeDeferred(std::make_unique<ReplaceChildrenOperation>(root, a.get(), 1U, nullptr));
  fresh->appendChild(a.get());
  elsewhere->appendChild(fresh.get());
  document->redo();
  EXPECT_EQ(toXml(*elsewhere), "<e><f><a></a></f></e>");
  checkLinks(*elsewhere);
}

TEST_F(ModelOperationTest, WithoutAHistoryNothingCanBeUndone) {
  TestElement* root = load("<r></r>");
  document->setUndoLimit(0);
  root->appendChild(document->createElement(x).get());
  EXPECT_FALSE(document->canUndo());
  document->undo();
  EXPECT_EQ(xml(), "<r><x></x></r>");
}

TEST_F(ModelOperationTest, AChangeAfterAnUndoEndsTheRedo) {
  TestElement* root = load("<r></r>");
  root->setAttribute(x, LongVariant(1));
  document->undo();
  EXPECT_TRUE(document->canRedo());
  root->setAttribute(x, LongVariant(2));
  EXPECT_FALSE(document->canRedo());
  document->redo();
  EXPECT_EQ(xml(), "<r x=\"2\"></r>");
}

TEST_F(ModelOperationTest, TheFirstOf101GroupsCannotBeUndone) {
  TestElement* root = load("<r></r>");
  for (int i = 0; i <= 100; ++i) {
    document->startUndoGroup();
    root->setAttribute(x, LongVariant(i));
  }
  for (int i = 0; i < 100; ++i) {
    EXPECT_TRUE(document->canUndo());
    document->undo();
  }
  EXPECT_FALSE(document->canUndo());
  EXPECT_EQ(xml(), "<r x=\"0\"></r>");
}

// Texts

TEST_F(ModelOperationTest, AReplacementByATextOfEqualLengthIsUndoneAndRedone) {
  load("<r>abcdef</r>");
  text()->replaceData(1, 3, "XYZ");
  document->undo();
  EXPECT_STREQ(text()->nodeValue(), "abcdef");
  document->redo();
  EXPECT_STREQ(text()->nodeValue(), "aXYZef");
}

// The oddity: the count stays that of the change itself.
TEST_F(ModelOperationTest, UndoOfAReplacementByAnotherLengthTakesOutTheOldNumberOfBytes) {
  const struct {
    unsigned offset;
    unsigned count;
    const char* text;
    const char* undone;
  } cases[] = {
      {1, 2, "WXYZ", "abcYZdef"},  // "aWXYZdef": WX goes, bc comes
      {1, 4, "X", "abcde"},        // "aXf": Xf goes, bcde comes
      {3, 0, "X", "abcXdef"},      // an insertion stays
      {2, 2, nullptr, "abcd"},     // "abef": ef goes, cd comes
  };
  for (const auto& each : cases) {
    load("<r>abcdef</r>");
    document->clearUndo();
    text()->replaceData(each.offset, each.count, each.text);
    document->undo();
    EXPECT_STREQ(text()->nodeValue(), each.undone);
  }
}

TEST_F(ModelOperationTest, UndoOnATextThatHasBecomeShorterRaises) {
  load("<r>abcdef</r>");
  text()->replaceData(5, 1, "X");
  document->executeDeferred(std::make_unique<ReplaceTextOperation>(text(), 0U, 6U, nullptr));
  Recorder recorder;
  document->addObserver(&recorder);
  EXPECT_DOM_ERROR(1, document->undo());
  document->removeObserver(&recorder);
  EXPECT_EQ(recorder.log, (Log{"detached all"})) << "nothing is announced that does not come";
}

// Attributes

TEST_F(ModelOperationTest, SettingANewAttributeIsUndoneByRemovingIt) {
  TestElement* root = load("<r></r>");
  Recorder recorder;
  document->addObserver(&recorder);
  root->setAttribute(x, LongVariant(1));
  document->undo();
  EXPECT_FALSE(root->hasAttribute(x));
  document->redo();
  EXPECT_EQ(root->getAttribute(x), LongVariant(1));
  EXPECT_EQ(recorder.log,
            (Log{"BeforeSetAttribute r", "AfterSetAttribute r", "BeforeRemoveAttribute r",
                 "AfterRemoveAttribute r", "BeforeSetAttribute r", "AfterSetAttribute r"}));
  document->removeObserver(&recorder);
}

TEST_F(ModelOperationTest, ChangingAnAttributeIsUndoneByChangingItBack) {
  TestElement* root = load("<r x=\"1\"></r>");
  root->setAttribute(x, LongVariant(2));
  Recorder recorder;
  document->addObserver(&recorder);
  document->undo();
  EXPECT_EQ(root->getAttribute(x), LongVariant(1));
  document->redo();
  EXPECT_EQ(root->getAttribute(x), LongVariant(2));
  document->undo();
  EXPECT_EQ(root->getAttribute(x), LongVariant(1));
  EXPECT_EQ(recorder.log.size(), 6U);
  EXPECT_EQ(recorder.log[0], "BeforeSetAttribute r");
  document->removeObserver(&recorder);
}

TEST_F(ModelOperationTest, RemovingAnAttributeIsUndoneBySettingIt) {
  TestElement* root = load("<r x=\"1\"></r>");
  root->removeAttribute(x);
  Recorder recorder;
  document->addObserver(&recorder);
  document->undo();
  EXPECT_EQ(root->getAttribute(x), LongVariant(1));
  document->redo();
  EXPECT_FALSE(root->hasAttribute(x));
  EXPECT_EQ(recorder.log, (Log{"BeforeSetAttribute r", "AfterSetAttribute r",
                               "BeforeRemoveAttribute r", "AfterRemoveAttribute r"}));
  document->undo();
  EXPECT_EQ(root->getAttribute(x), LongVariant(1));
  document->removeObserver(&recorder);
}

TEST_F(ModelOperationTest, RemovingWhatWasNotThereDoesNothing) {
  TestElement* root = load("<r></r>");
  Recorder recorder;
  document->addObserver(&recorder);
  document->execute(std::make_unique<RemoveAttributeOperation>(root, x));
  document->undo();
  EXPECT_TRUE(recorder.log.empty());
  document->removeObserver(&recorder);
}

TEST_F(ModelOperationTest, HooksComeBeforeTheEvents) {
  TestElement* root = load("<r></r>");
  Log log;
  root->log = &log;
  CallObserver observer([&](const DomEvent& event) { log.push_back(event.type.str()); });
  document->addObserver(&observer);
  root->setAttribute(x, LongVariant(1));
  document->undo();
  EXPECT_EQ(log, (Log{"beforeSet r of r.x=1", "BeforeSetAttribute", "afterSet r of r.x",
                      "AfterSetAttribute", "beforeRemove r of r.x", "BeforeRemoveAttribute",
                      "afterRemove r of r.x", "AfterRemoveAttribute"}));
  document->removeObserver(&observer);
}

TEST_F(ModelOperationTest, HooksComeBeforeTheEventsOfAnUndoneRemovalToo) {
  TestElement* root = load("<r x=\"1\"></r>");
  root->removeAttribute(x);
  Log log;
  root->log = &log;
  CallObserver observer([&](const DomEvent& event) { log.push_back(event.type.str()); });
  document->addObserver(&observer);
  document->undo();
  EXPECT_EQ(log, (Log{"beforeSet r of r.x=1", "BeforeSetAttribute", "afterSet r of r.x",
                      "AfterSetAttribute"}));
  document->removeObserver(&observer);
}

TEST_F(ModelOperationTest, AnObserverMayChangeTheTreeDuringAnUndo) {
  TestElement* root = load("<r></r>");
  root->setAttribute(x, LongVariant(1));
  CallObserver observer([&](const DomEvent&) {
    root->appendChild(document->createElement(token("noted")).get());
    document->undo();
  });
  document->addObserver(&observer, EventType::AfterRemoveAttribute);
  document->undo();
  EXPECT_EQ(xml(), "<r><noted></noted></r>");
  document->removeObserver(&observer);
  document->redo();
  EXPECT_EQ(xml(), "<r x=\"1\"><noted></noted></r>");
}

TEST_F(ModelOperationTest, AnObserverMayBeginABatchDuringAnUndo) {
  TestElement* root = load("<r></r>");
  root->setAttribute(x, LongVariant(1));
  root->setAttribute(token("y"), LongVariant(1));
  CallObserver observer([&](const DomEvent&) {
    document->beginBatch();
    document->endBatch();
  });
  document->addObserver(&observer, EventType::AfterRemoveAttribute);
  document->undo();
  EXPECT_EQ(xml(), "<r></r>");
  EXPECT_FALSE(document->canRedo());
  document->removeObserver(&observer);
}

}  // namespace
