// Undo and redo of nodes that moved through fragments, detached trees and runs of siblings.
#include "snapshot.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class UndoOfMovesTest : public TreeTest {
 protected:
  /// Undoes and redoes everything, twice, and expects the very nodes of `before` and of now.
  void expectThereAndBackFrom(const Snapshot& before) {
    const Snapshot after(*document);
    for (int round = 0; round < 2; ++round) {
      while (document->canUndo()) document->undo();
      before.expectIn(*document);
      checkLinks(*document);
      while (document->canRedo()) document->redo();
      after.expectIn(*document);
      checkLinks(*document);
    }
  }

  /// Each change a group by itself.
  void separate() { document->startUndoGroup(); }
};

TEST_F(UndoOfMovesTest, AFragmentOfNodesOfTheDocument) {
  load("<r><a></a><b></b><g></g></r>");
  const Snapshot before(*document);
  const Ref<DocumentFragment> fragment = document->fragment();
  fragment->appendChild(node("a"));
  fragment->appendChild(node("b"));
  node("g")->appendChild(fragment.get());
  EXPECT_EQ(xml(), "<r><g><a></a><b></b></g></r>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, AFragmentFilledAndEmptiedInThreeSteps) {
  load("<r><a></a><b></b><g></g></r>");
  const Snapshot before(*document);
  const Ref<DocumentFragment> fragment = document->fragment();
  fragment->appendChild(node("b"));
  separate();
  fragment->insertBefore(node("a"), fragment->firstChild());
  separate();
  node("r")->replaceChild(fragment.get(), node("g"));
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, AFragmentThatWasNeverPutIn) {
  load("<r><a></a><b></b><c></c></r>");
  const Snapshot before(*document);
  const Ref<DocumentFragment> fragment = document->fragment();
  fragment->appendChild(node("c"));
  fragment->insertBefore(node("a"), fragment->firstChild());
  expectThereAndBackFrom(before);
  EXPECT_EQ(fragment->length(), 2U) << "the nodes are where they went";
  EXPECT_EQ(fragment->firstChild()->nodeName(), token("a"));
  document->undo();
  EXPECT_EQ(fragment->length(), 0U);
}

TEST_F(UndoOfMovesTest, ARunThatWasParted) {
  TestElement* root = load("<r><a></a><b></b><g></g></r>");
  const Snapshot before(*document);
  Node* b = node("b");
  root->replaceChildren(node("a"), 2, nullptr);
  node("g")->appendChild(b);
  EXPECT_EQ(xml(), "<r><g><b></b></g></r>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, ARunThatWasPutInElsewhereInAnotherOrder) {
  TestElement* root = load("<r><a></a><b></b><c></c><g></g></r>");
  const Snapshot before(*document);
  const Ref<Node> a = node("a"), b = node("b"), c = node("c");
  root->replaceChildren(a.get(), 3, nullptr);
  for (const Ref<Node>& each : {c, a, b}) {
    separate();
    node("g")->appendChild(each.get());
  }
  EXPECT_EQ(xml(), "<r><g><c></c><a></a><b></b></g></r>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, WrappingInANewElement) {
  TestElement* root = load("<r><a></a><b></b></r>");
  const Snapshot before(*document);
  const Ref<TestElement> group = document->element("group");
  group->appendChild(node("a"));
  root->appendChild(group.get());
  EXPECT_EQ(xml(), "<r><b></b><group><a></a></group></r>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, WrappingTwiceAmongOthers) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  const Snapshot before(*document);
  const Ref<TestElement> inner = readXml(*document, "<i><x></x><y></y></i>");
  const Ref<TestElement> outer = readXml(*document, "<o><z></z></o>");
  inner->insertBefore(node("c"), inner->lastChild());
  inner->insertBefore(node("a"), inner->lastChild());
  outer->insertBefore(inner.get(), outer->firstChild());
  root->insertBefore(outer.get(), node("b"));
  EXPECT_EQ(xml(), "<r><o><i><x></x><c></c><a></a><y></y></i><z></z></o><b></b></r>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, UnwrappingWhatWasTakenOut) {
  TestElement* root = load("<r><g><a></a><b></b></g><c></c></r>");
  const Snapshot before(*document);
  const Ref<Node> group = root->removeChild(node("g"));
  root->insertBefore(group->firstChild(), node("c"));
  root->appendChild(group->firstChild());
  EXPECT_EQ(xml(), "<r><a></a><c></c><b></b></r>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, ANodeOfADetachedTreeGoesBackThere) {
  TestElement* root = load("<r></r>");
  const Snapshot before(*document);
  const Ref<TestElement> detached = readXml(*document, "<d><x></x><y></y><z></z></d>");
  root->appendChild(nodeBelow(*detached, "y"));
  EXPECT_EQ(toXml(*detached), "<d><x></x><z></z></d>");
  document->undo();
  EXPECT_EQ(toXml(*detached), "<d><x></x><y></y><z></z></d>");
  checkLinks(*detached);
  document->redo();
  EXPECT_EQ(toXml(*detached), "<d><x></x><z></z></d>");
  expectThereAndBackFrom(before);
}

TEST_F(UndoOfMovesTest, WhereTheNextSiblingHasGoneIsTheEnd) {
  TestElement* root = load("<r></r>");
  const Ref<TestElement> detached = readXml(*document, "<d><x></x><y></y><z></z></d>");
  root->appendChild(nodeBelow(*detached, "x"));
  detached->removeChild(nodeBelow(*detached, "y"));
  document->undo();
  EXPECT_EQ(toXml(*detached), "<d><z></z><x></x></d>");
}

TEST_F(UndoOfMovesTest, APlaceThatIsNowBelowTheNodeIsGone) {
  TestElement* root = load("<r></r>");
  const Ref<TestElement> detached = readXml(*document, "<d><x></x></d>");
  Node* x = detached->firstChild();
  root->appendChild(x);
  document->setUndoLimit(5);
  const Ref<Node> out = root->removeChild(x);
  x->appendChild(detached.get());
  document->undo();
  EXPECT_EQ(xml(), "<r><x><d></d></x></r>");
  document->redo();
  EXPECT_EQ(xml(), "<r></r>");
  checkLinks(*x);
}

TEST_F(UndoOfMovesTest, ATreeThatWasTakenOutAfterWhatWasPutIntoIt) {
  TestElement* root = load("<r><t><p></p></t><x></x></r>");
  const Snapshot before(*document);
  const Ref<Node> x = root->removeChild(node("x"));
  separate();
  const Ref<Node> t = root->removeChild(node("t"));
  t->appendChild(x.get());
  expectThereAndBackFrom(before);
  EXPECT_EQ(toXml(*t), "<t><p></p><x></x></t>");
}

TEST_F(UndoOfMovesTest, WhatIsChangedOutsideOfTheDocumentStaysChanged) {
  TestElement* root = load("<r><a></a></r>");
  const Ref<Node> a = root->removeChild(node("a"));
  a->asElement()->setAttribute(token("x"), LongVariant(1));
  a->appendChild(document->element("b").get());
  document->undo();
  EXPECT_EQ(xml(), "<r><a x=\"1\"><b></b></a></r>");
}

TEST_F(UndoOfMovesTest, TheDocumentIsNoPlaceToGoBackTo) {
  TestElement* root = load("<r></r>");
  const Ref<TestElement> second = document->element("s");
  document->appendChild(second.get());
  root->appendChild(second.get());
  document->undo();
  EXPECT_EQ(second->parent(), nullptr) << "what happens beside the root is not recorded";
  EXPECT_EQ(document->length(), 1U);
}

TEST_F(UndoOfMovesTest, ManyNodesAtOnce) {
  load("<r><g></g><h></h></r>");
  for (int i = 0; i < 50; ++i) node("g")->appendChild(document->element("n").get());
  document->clearUndo();
  const Snapshot before(*document);
  const Ref<DocumentFragment> fragment = document->fragment();
  while (node("g")->firstChild())
    fragment->insertBefore(node("g")->firstChild(), fragment->firstChild());
  node("h")->appendChild(fragment.get());
  node("h")->replaceChildren(node("h")->childAt(10), 30, nullptr);
  expectThereAndBackFrom(before);
}

}  // namespace
