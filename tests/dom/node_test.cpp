#include "vantry/dom/node.h"

#include "test_document.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class NodeTest : public TreeTest {};

TEST_F(NodeTest, ANewNodeIsNowhereAndNobodyRefersToIt) {
  const Ref<TestElement> held = document->element("a");
  EXPECT_EQ(held->refCount(), 1U);
  EXPECT_EQ(held->ownerDocument(), document.get());
  EXPECT_EQ(held->parent(), nullptr);
  EXPECT_EQ(held->nextSibling(), nullptr);
  EXPECT_EQ(held->previousSibling(), nullptr);
  EXPECT_EQ(held->firstChild(), nullptr);
  EXPECT_EQ(held->lastChild(), nullptr);
  EXPECT_EQ(held->length(), 0U);
  EXPECT_FALSE(held->isInDocument());
  EXPECT_FALSE(held->isReadOnly());
}

TEST_F(NodeTest, ANodeThatWasNeverReferencedDiesOnItsFirstRelease) {
  auto* element = new TestElement(document.get(), token("a"));
  EXPECT_EQ(element->refCount(), 0U);
  EXPECT_EQ(TestElement::alive, 1);
  element->release();
  EXPECT_EQ(TestElement::alive, 0);
}

TEST_F(NodeTest, EachKindHasItsTypeAndName) {
  const Ref<TestElement> tag = document->element("tag");
  const Ref<Text> textNode = document->text("x");
  const Ref<DocumentFragment> fragment = document->fragment();
  const Ref<Range> range = document->createRange(false);
  const struct {
    const Node* node;
    int type;
    const char* name;
  } cases[] = {
      {tag.get(), 1, "tag"},
      {textNode.get(), 3, "#text"},
      {document.get(), 9, "#document"},
      {fragment.get(), 11, "#document-fragment"},
      {range.get(), 1000, "#range"},
      {range->parent(), 1001, "#rangelist"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(each.node->nodeType(), each.type);
    EXPECT_STREQ(each.node->nodeName().str(), each.name);
    EXPECT_EQ(each.node->ownerDocument(), document.get());
  }
}

TEST_F(NodeTest, ANodeIsItselfAsWhatItIs) {
  const Ref<TestElement> tag = document->element("tag");
  const Ref<Text> textNode = document->text("x");
  const Ref<DocumentFragment> fragment = document->fragment();
  EXPECT_EQ(tag->asElement(), tag.get());
  EXPECT_EQ(textNode->asText(), textNode.get());
  EXPECT_EQ(fragment->asDocumentFragment(), fragment.get());

  const Node& constTag = *tag;
  EXPECT_EQ(constTag.asElement(), tag.get());
  EXPECT_EQ(constTag.asText(), nullptr);
  EXPECT_EQ(constTag.asDocumentFragment(), nullptr);
  EXPECT_EQ(textNode->asElement(), nullptr);
  EXPECT_EQ(document->asElement(), nullptr);
}

TEST_F(NodeTest, OnlyTextsHaveAValue) {
  const Ref<DocumentFragment> fragment = document->fragment();
  const Ref<TestElement> tag = document->element("tag");
  for (Node* each : {static_cast<Node*>(document.get()), static_cast<Node*>(fragment.get()),
                     static_cast<Node*>(tag.get())}) {
    each->setNodeValue("ignored");
    EXPECT_EQ(each->nodeValue(), nullptr);
    EXPECT_FALSE(each->canReplaceText(0, 0, "x"));
  }
  EXPECT_TRUE(document->text("x")->canReplaceText(0, 1, "y"));
}

// Mutators

TEST_F(NodeTest, AppendInsertReplaceRemove) {
  TestElement* root = load("<r></r>");
  const Ref<TestElement> a = document->element("a");
  const Ref<TestElement> b = document->element("b");
  const Ref<TestElement> c = document->element("c");

  EXPECT_EQ(root->appendChild(a.get()), a.get());
  EXPECT_EQ(root->insertBefore(b.get(), a.get()), b.get());
  EXPECT_EQ(xml(), "<r><b></b><a></a></r>");
  EXPECT_EQ(root->replaceChild(c.get(), b.get()), b.get());
  EXPECT_EQ(xml(), "<r><c></c><a></a></r>");
  EXPECT_EQ(root->insertBefore(b.get(), nullptr), b.get());
  EXPECT_EQ(xml(), "<r><c></c><a></a><b></b></r>");
  EXPECT_EQ(root->removeChild(a.get()), a.get());
  EXPECT_EQ(xml(), "<r><c></c><b></b></r>");
  EXPECT_EQ(a->parent(), nullptr);
  EXPECT_EQ(a->nextSibling(), nullptr);
}

TEST_F(NodeTest, RemovedChildIsKeptByTheResult) {
  TestElement* root = load("<r><a></a></r>");
  document->setUndoLimit(0);
  Ref<Node> removed = root->removeChild(root->firstChild());
  EXPECT_EQ(TestElement::alive, 2);
  EXPECT_EQ(removed->refCount(), 1U);
  removed = nullptr;
  EXPECT_EQ(TestElement::alive, 1);
}

TEST_F(NodeTest, NullArgumentsDoNothing) {
  TestElement* root = load("<r><a></a></r>");
  EXPECT_EQ(root->appendChild(nullptr), nullptr);
  EXPECT_EQ(root->insertBefore(nullptr, root->firstChild()), nullptr);
  EXPECT_FALSE(root->removeChild(nullptr));
  root->replaceChildren(nullptr, 3, nullptr);
  root->replaceChildren(root->firstChild(), 0, nullptr);
  EXPECT_EQ(xml(), "<r><a></a></r>");
}

TEST_F(NodeTest, ReplacingNothingAppendsAndReplacingByNothingRemoves) {
  TestElement* root = load("<r><a></a></r>");
  const Ref<TestElement> b = document->element("b");
  EXPECT_FALSE(root->replaceChild(b.get(), nullptr));
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
  EXPECT_EQ(root->replaceChild(nullptr, b.get()), b.get());
  EXPECT_EQ(xml(), "<r><a></a></r>");
}

TEST_F(NodeTest, WhatIsPutInLeavesItsFormerPlace) {
  load("<r><a><x></x><y></y></a><b></b></r>");
  node("b")->appendChild(node("x"));
  EXPECT_EQ(xml(), "<r><a><y></y></a><b><x></x></b></r>");
  node("b")->insertBefore(node("y"), node("x"));
  EXPECT_EQ(xml(), "<r><a></a><b><y></y><x></x></b></r>");
  node("b")->appendChild(node("y"));
  EXPECT_EQ(xml(), "<r><a></a><b><x></x><y></y></b></r>");
  node("r")->replaceChild(node("y"), node("a"));
  EXPECT_EQ(xml(), "<r><y></y><b><x></x></b></r>");
}

TEST_F(NodeTest, AParentThatNobodyRefersToSurvivesAMove) {
  auto* unheld = new TestElement(document.get(), token("u"));
  unheld->appendChild(document->createElement(token("a")).get());
  const Ref<TestElement> target = document->element("t");
  target->appendChild(unheld->firstChild());
  EXPECT_EQ(unheld->length(), 0U);
  EXPECT_EQ(unheld->refCount(), 0U);
  unheld->release();
}

TEST_F(NodeTest, RefusalsHaveTheirCodes) {
  TestElement* root = load("<r><a></a></r>");
  const Ref<TestElement> stranger = document->element("s");
  const Ref<TestDocument> otherDocument = new TestDocument;
  const Ref<TestElement> foreign = otherDocument->element("f");
  const Ref<TestElement> fresh = document->element("n");

  EXPECT_DOM_ERROR(8, root->removeChild(stranger.get()));
  EXPECT_DOM_ERROR(8, root->insertBefore(fresh.get(), stranger.get()));
  EXPECT_DOM_ERROR(8, root->replaceChild(fresh.get(), stranger.get()));
  EXPECT_DOM_ERROR(8, root->replaceChildren(stranger.get(), 0, fresh.get()));
  EXPECT_DOM_ERROR(4, root->appendChild(foreign.get()));
  EXPECT_DOM_ERROR(4, root->replaceChildren(root->firstChild(), 1, foreign.get()));

  root->takesChildren = false;
  EXPECT_DOM_ERROR(3, root->appendChild(fresh.get()));
  EXPECT_DOM_ERROR(3, root->removeChild(root->firstChild()));
  root->readOnly = true;
  EXPECT_DOM_ERROR(7, root->appendChild(fresh.get()));
  EXPECT_DOM_ERROR(7, root->removeChild(root->firstChild()));
  EXPECT_EQ(xml(), "<r><a></a></r>");
}

TEST_F(NodeTest, WhatIsNewBelongsToWhoeverAskedForIt) {
  const Ref<Element> element = document->createElement(token("a"));
  EXPECT_EQ(element->refCount(), 1U);
  EXPECT_EQ(document->createTextNode("x")->refCount(), 1U);
  EXPECT_EQ(document->createDocumentFragment()->refCount(), 1U);
  for (const bool deep : {false, true}) {
    EXPECT_EQ(element->cloneNode(deep)->refCount(), 1U);
    EXPECT_EQ(document->text("x")->cloneNode(deep)->refCount(), 1U);
    EXPECT_EQ(document->fragment()->cloneNode(deep)->refCount(), 1U);
  }
  const Ref<Range> range = document->createRange(false);
  EXPECT_EQ(range->cloneNode(false)->refCount(), 2U) << "the list of ranges has the other";
}

TEST_F(NodeTest, DocumentsAndRangesAreNobodysChildren) {
  TestElement* root = load("<r></r>");
  const Ref<TestElement> apart = document->element("a");
  const Ref<Range> range = document->createRange(false);
  const Ref<DocumentFragment> fragment = document->fragment();
  for (Node* parent : {static_cast<Node*>(root), static_cast<Node*>(apart.get()),
                       static_cast<Node*>(document.get()), static_cast<Node*>(fragment.get())}) {
    EXPECT_DOM_ERROR(3, parent->appendChild(document.get()));
    EXPECT_DOM_ERROR(3, parent->replaceChildren(nullptr, 0, document.get()));
    EXPECT_DOM_ERROR(3, parent->appendChild(range.get()));
    EXPECT_DOM_ERROR(3, parent->replaceChildren(nullptr, 0, range.get()));
    EXPECT_DOM_ERROR(3, parent->appendChild(range->parent()));
    EXPECT_DOM_ERROR(3, parent->replaceChildren(nullptr, 0, fragment.get()));
  }
  EXPECT_EQ(document->firstChild(), root);
  EXPECT_EQ(document->length(), 1U);
  EXPECT_EQ(range->parent()->nodeType(), Node::RangeListNode);
  EXPECT_FALSE(range->isDetached());
}

TEST_F(NodeTest, TheChecksHaveAnOrder) {
  TestElement* root = load("<r></r>");
  const Ref<TestElement> stranger = document->element("s");
  const Ref<TestDocument> otherDocument = new TestDocument;
  const Ref<TestElement> foreign = otherDocument->element("f");
  root->readOnly = true;
  root->takesChildren = false;
  root->replaceChildren(nullptr, 1, nullptr);  // nothing to do: nothing to refuse
  EXPECT_DOM_ERROR(8, root->insertBefore(foreign.get(), stranger.get()));
  EXPECT_DOM_ERROR(4, root->appendChild(foreign.get()));
  EXPECT_DOM_ERROR(7, root->appendChild(stranger.get()));
}

TEST_F(NodeTest, ATextTakesNoChildren) {
  load("<r>text</r>");
  const Ref<TestElement> a = document->element("a");
  EXPECT_DOM_ERROR(3, text()->appendChild(a.get()));
  EXPECT_DOM_ERROR(3, text()->doReplaceChildren(nullptr, 0, a.get()));
  EXPECT_FALSE(text()->canReplaceChildren(nullptr, 0, nullptr));
  EXPECT_EQ(text()->firstChild(), nullptr);
  EXPECT_EQ(text()->lastChild(), nullptr);
}

TEST_F(NodeTest, ANodeIsNotPutIntoItself) {
  load("<r><a><b><x></x></b></a></r>");
  EXPECT_DOM_ERROR(3, node("a")->appendChild(node("a")));
  EXPECT_DOM_ERROR(3, node("x")->appendChild(node("r")));
  EXPECT_DOM_ERROR(3, node("x")->appendChild(node("b")));
  EXPECT_DOM_ERROR(3, node("x")->appendChild(document.get()));
  EXPECT_DOM_ERROR(3, document->appendChild(document.get()));
  EXPECT_EQ(xml(), "<r><a><b><x></x></b></a></r>");

  const Ref<TestElement> leaf = document->element("leaf");
  EXPECT_DOM_ERROR(3, leaf->appendChild(leaf.get()));
  const Ref<TestElement> top = readXml(*document, "<a><b></b></a>");
  EXPECT_DOM_ERROR(3, top->firstChild()->appendChild(top.get()));
  EXPECT_EQ(toXml(*top), "<a><b></b></a>");
}

TEST_F(NodeTest, TheBareMutatorTakesOnlyWhatIsInNoTree) {
  load("<r><a></a><b></b></r>");
  EXPECT_DOM_ERROR(3, node("b")->replaceChildren(nullptr, 0, node("a")));
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
}

TEST_F(NodeTest, ARefusedMoveLeavesTheNodeWhereItWas) {
  load("<r><a><x></x><y></y><z></z></a><b></b></r>");
  element("b")->takesChildren = false;
  EXPECT_DOM_ERROR(3, node("b")->appendChild(node("y")));
  EXPECT_EQ(xml(), "<r><a><x></x><y></y><z></z></a><b></b></r>");
  EXPECT_DOM_ERROR(3, node("b")->appendChild(node("z")));
  EXPECT_EQ(xml(), "<r><a><x></x><y></y><z></z></a><b></b></r>");

  const Ref<TestElement> detached = readXml(*document, "<d><e></e><f></f></d>");
  EXPECT_DOM_ERROR(3, node("b")->appendChild(detached->firstChild()));
  EXPECT_EQ(toXml(*detached), "<d><e></e><f></f></d>");
  checkLinks(*detached);
}

TEST_F(NodeTest, ARefusedMoveLeavesNothingBehind) {
  TestElement* root = load("<r><a><x></x><y></y></a><b></b><c></c></r>");
  const Ref<TestDocument> otherDocument = new TestDocument;
  const Ref<TestElement> foreign = otherDocument->element("f");
  const Ref<TestElement> detached = document->element("d");
  otherDocument->appendChild(foreign.get());
  const Ref<DocumentFragment> fragment = document->fragment();
  fragment->appendChild(document->element("n").get());
  element("b")->takesChildren = false;
  detached->takesChildren = false;
  element("c")->readOnly = true;
  root->setAttribute(token("z"), LongVariant(1));
  document->undo();

  Recorder recorder;
  document->addObserver(&recorder);
  otherDocument->addObserver(&recorder);
  const Ref<Range> range = document->createRange(true);
  range->setEnd(node("y"), 0);
  range->setStart(node("x"), 0);
  recorder.log.clear();
  EXPECT_DOM_ERROR(3, node("b")->appendChild(node("x")));
  EXPECT_DOM_ERROR(3, detached->appendChild(node("x")));
  EXPECT_DOM_ERROR(3, node("b")->appendChild(fragment.get()));
  EXPECT_DOM_ERROR(7, node("c")->appendChild(node("x")));
  EXPECT_DOM_ERROR(4, foreign->appendChild(node("x")));
  EXPECT_DOM_ERROR(8, node("a")->insertBefore(node("x"), node("x")));
  EXPECT_DOM_ERROR(8, node("a")->insertBefore(node("x"), node("b")));
  EXPECT_DOM_ERROR(8, node("a")->replaceChild(node("x"), node("b")));
  EXPECT_DOM_ERROR(3, node("x")->appendChild(node("a")));
  element("a")->takesChildren = false;
  EXPECT_DOM_ERROR(3, root->appendChild(node("x")));

  EXPECT_EQ(recorder.log, Log());
  EXPECT_EQ(xml(), "<r><a><x></x><y></y></a><b></b><c></c></r>");
  EXPECT_EQ(range->startContainer(), node("x"));
  EXPECT_EQ(range->endContainer(), node("y"));
  EXPECT_TRUE(range->isSelected());
  EXPECT_FALSE(document->canUndo());
  EXPECT_TRUE(document->canRedo());
  document->removeObserver(&recorder);
  otherDocument->removeObserver(&recorder);
}

TEST_F(NodeTest, AParentIsAskedAboutASingleNodeThatIsStillInItsPlace) {
  class AskedElement : public TestElement {
   public:
    using TestElement::TestElement;
    bool canReplaceChildren(Node*, unsigned, NewChildren newChildren) const override {
      for (const Node& child : newChildren) asked.push_back(child.nodeName().str());
      isMovedWithin = newChildren.isMovedWithin(*this);
      return true;
    }
    mutable Log asked;
    mutable bool isMovedWithin = false;
  };
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  const Ref<AskedElement> parent = new AskedElement(document.get(), token("p"));
  root->appendChild(parent.get());
  parent->appendChild(node("a"));
  EXPECT_EQ(parent->asked, (Log{"a", "a"})) << "before and after it has left its former place";
  EXPECT_FALSE(parent->isMovedWithin);

  const Ref<DocumentFragment> fragment = document->fragment();
  for (const char* name : {"m", "n"}) fragment->appendChild(document->element(name).get());
  parent->asked.clear();
  parent->appendChild(fragment.get());
  EXPECT_EQ(parent->asked, (Log{"m", "n"}));

  const Ref<AskedElement> detached = new AskedElement(document.get(), token("d"));
  for (const char* name : {"m", "n"}) detached->appendChild(document->element(name).get());
  detached->asked.clear();
  detached->appendChild(detached->firstChild());
  EXPECT_EQ(detached->asked, (Log{"m"})) << "and nothing about the removal";
  EXPECT_TRUE(detached->isMovedWithin);
}

TEST_F(NodeTest, ANodeCannotGoBeforeOrReplaceItself) {
  load("<r><a></a><b></b></r>");
  EXPECT_DOM_ERROR(8, node("r")->insertBefore(node("a"), node("a")));
  EXPECT_DOM_ERROR(8, node("r")->replaceChild(node("a"), node("a")));
  EXPECT_EQ(xml(), "<r><a></a><b></b></r>");
}

// Fragments

class FragmentTest : public TreeTest {
 protected:
  Ref<DocumentFragment> filled(const std::string& children) {
    const Ref<DocumentFragment> fragment = document->fragment();
    const Ref<TestElement> parent = readXml(*document, "<p>" + children + "</p>");
    while (parent->firstChild()) fragment->appendChild(parent->firstChild());
    return fragment;
  }
};

TEST_F(FragmentTest, ItsChildrenGoInItsPlace) {
  TestElement* root = load("<r><z></z></r>");
  Ref<DocumentFragment> fragment = filled("<a></a><b></b>");
  Node* a = fragment->firstChild();
  EXPECT_EQ(root->insertBefore(fragment.get(), node("z")), a);
  EXPECT_EQ(xml(), "<r><a></a><b></b><z></z></r>");
  EXPECT_EQ(fragment->firstChild(), nullptr);
  EXPECT_EQ(fragment->length(), 0U);

  fragment = filled("<c></c><d></d>");
  Node* c = fragment->firstChild();
  EXPECT_EQ(root->appendChild(fragment.get()), c);
  EXPECT_EQ(xml(), "<r><a></a><b></b><z></z><c></c><d></d></r>");

  fragment = filled("<e></e><f></f>");
  root->replaceChild(fragment.get(), node("z"));
  EXPECT_EQ(xml(), "<r><a></a><b></b><e></e><f></f><c></c><d></d></r>");
}

// The oddity: only the first child is cleared.
TEST_F(FragmentTest, AnEmptiedFragmentStillNamesItsLastChild) {
  TestElement* root = load("<r></r>");
  const Ref<DocumentFragment> fragment = filled("<a></a><b></b>");
  root->appendChild(fragment.get());
  EXPECT_EQ(fragment->firstChild(), nullptr);
  EXPECT_EQ(fragment->lastChild(), node("b"));
}

TEST_F(FragmentTest, NothingFollowsTheLastChildOfAnEmptiedFragment) {
  TestElement* root = load("<r></r>");
  document->setUndoLimit(0);
  const Ref<DocumentFragment> fragment = filled("<a></a><b></b>");
  root->appendChild(fragment.get());
  root->replaceChildren(root->firstChild(), 2, nullptr);
  EXPECT_EQ(TestElement::alive, 1);

  const Ref<Node> copy = fragment->cloneNode(true);
  EXPECT_EQ(copy->firstChild(), nullptr);
  fragment->appendChild(document->createElement(token("c")).get());
  checkLinks(*fragment);
}

TEST_F(FragmentTest, AnEmptyOneChangesNothing) {
  TestElement* root = load("<r><a></a></r>");
  const Ref<DocumentFragment> fragment = document->fragment();
  EXPECT_EQ(root->appendChild(fragment.get()), nullptr);
  EXPECT_EQ(root->insertBefore(fragment.get(), node("a")), nullptr);
  EXPECT_EQ(xml(), "<r><a></a></r>");
  EXPECT_FALSE(document->canUndo());
}

TEST_F(FragmentTest, AnEmptyOneReplacesAChildByNothing) {
  TestElement* root = load("<r><a></a><b></b></r>");
  const Ref<Node> removed = root->replaceChild(document->fragment().get(), node("a"));
  EXPECT_STREQ(removed->nodeName().str(), "a");
  EXPECT_EQ(xml(), "<r><b></b></r>");
}

TEST_F(FragmentTest, ARefusedOneKeepsItsChildren) {
  TestElement* root = load("<r></r>");
  root->takesChildren = false;
  const Ref<DocumentFragment> fragment = filled("<a></a><b></b>");
  EXPECT_DOM_ERROR(3, root->appendChild(fragment.get()));
  EXPECT_EQ(fragment->length(), 2U);
  checkLinks(*fragment);
}

TEST_F(FragmentTest, IsNotPutIntoItself) {
  const Ref<DocumentFragment> fragment = filled("<a></a><b><c></c></b>");
  Node* b = fragment->lastChild();
  EXPECT_DOM_ERROR(3, fragment->appendChild(fragment.get()));
  EXPECT_DOM_ERROR(3, fragment->insertBefore(fragment.get(), b));
  EXPECT_DOM_ERROR(3, fragment->replaceChild(fragment.get(), b));
  EXPECT_DOM_ERROR(3, b->firstChild()->appendChild(fragment.get()));
  EXPECT_EQ(fragment->length(), 2U);
  checkLinks(*fragment);
}

TEST_F(FragmentTest, WritesNothing) { EXPECT_EQ(toXml(*filled("<a></a>")), ""); }

TEST_F(FragmentTest, ClonesItsChildrenIfAsked) {
  const Ref<DocumentFragment> fragment = filled("<a></a><b><c></c></b>");
  const Ref<Node> shallow = fragment->cloneNode(false);
  EXPECT_EQ(shallow->nodeType(), Node::DocumentFragmentNode);
  EXPECT_EQ(shallow->ownerDocument(), document.get());
  EXPECT_EQ(shallow->firstChild(), nullptr);
  const Ref<Node> deep = fragment->cloneNode(true);
  EXPECT_EQ(deep->length(), 2U);
  EXPECT_EQ(toXml(*deep->lastChild()), "<b><c></c></b>");
  checkLinks(*deep);
}

// Runs of children

TEST_F(NodeTest, ARemovedRunStaysChained) {
  TestElement* root = load("<r><a></a><b></b><c></c><d></d></r>");
  const Ref<Node> b = node("b");
  Node* c = node("c");
  root->replaceChildren(b.get(), 2, nullptr);
  EXPECT_EQ(xml(), "<r><a></a><d></d></r>");
  EXPECT_EQ(b->nextSibling(), c);
  EXPECT_EQ(c->previousSibling(), b.get());
  EXPECT_EQ(c->nextSibling(), nullptr);
  EXPECT_EQ(c->parent(), nullptr);
  EXPECT_FALSE(c->isInDocument());
}

TEST_F(NodeTest, ANodeTakenFromARunInNoTreeIsCutOffFromIt) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  document->setUndoLimit(0);
  const Ref<Node> a = node("a");
  Node* b = node("b");
  root->replaceChildren(a.get(), 3, nullptr);
  root->appendChild(b);
  EXPECT_EQ(xml(), "<r><b></b><c></c></r>");
  EXPECT_EQ(a->nextSibling(), nullptr);
}

/// Names of the children, one letter each.
std::string letters(const Node& parent) {
  std::string result;
  for (Node* child = parent.firstChild(); child; child = child->nextSibling()) {
    result += child->nodeName().str();
  }
  return result;
}

// Every list of up to four children, every run in it, and every chain of up to three new ones.
TEST_F(NodeTest, ListSurgeryDoesWhatAStringReplacementDoes) {
  const std::string olds = "abcd";
  const std::string news = "xyz";
  for (unsigned length = 0; length <= 4; ++length) {
    for (unsigned first = 0; first <= length; ++first) {
      for (unsigned count = 0; count <= length + 1; ++count) {
        for (unsigned added = 0; added <= 3; ++added) {
          const Ref<TestElement> parent = document->element("p");
          for (unsigned i = 0; i < length; ++i) {
            parent->appendChild(document->createElement(token(olds.substr(i, 1))).get());
          }
          const Ref<DocumentFragment> chain = document->fragment();
          for (unsigned i = 0; i < added; ++i) {
            chain->appendChild(document->createElement(token(news.substr(i, 1))).get());
          }
          const Ref<Node> newChildren = chain->firstChild();
          if (newChildren) chain->doReplaceChildren(newChildren.get(), added, nullptr);
          const Ref<Node> start = parent->childAt(first);

          parent->doReplaceChildren(start.get(), count, newChildren.get());

          std::string expected = olds.substr(0, length);
          const std::size_t removed = start ? std::min(count, length - first) : 0;
          expected.replace(first, removed, news.substr(0, added));
          EXPECT_EQ(letters(*parent), expected);
          EXPECT_EQ(parent->length(), expected.size());
          checkLinks(*parent);
          if (removed > 0) {
            EXPECT_EQ(countSiblingsFrom(start.get()), removed);
            EXPECT_EQ(start->parent(), nullptr);
            EXPECT_EQ(start->previousSibling(), nullptr);
          }
        }
      }
    }
  }
}

// Looking around

TEST_F(NodeTest, ChildrenAreFoundByNameAndIndex) {
  TestElement* root = load("<r><a></a>text<b></b><a></a></r>");
  EXPECT_EQ(root->firstChildByName(token("a")), root->childAt(0));
  EXPECT_EQ(root->firstChildByName(token("#text")), root->childAt(1));
  EXPECT_EQ(root->firstChildByName(token("c")), nullptr);
  EXPECT_EQ(root->childAt(4), nullptr);
  EXPECT_EQ(document->text("x")->childAt(0), nullptr);
  EXPECT_EQ(root->length(), 4U);
  for (unsigned i = 0; i < 4; ++i) EXPECT_EQ(root->childAt(i)->indexInParent(), i);
  EXPECT_EQ(countSiblingsFrom(root->childAt(1)), 3U);
  EXPECT_EQ(countSiblingsFrom(nullptr), 0U);
}

TEST_F(NodeTest, TheCommonAncestorIsTheInnermostThatHoldsBoth) {
  load("<r><a><x></x><y></y></a><b></b></r>");
  const Ref<TestElement> separate = document->element("s");
  const Ref<TestElement> other = document->element("o");
  EXPECT_EQ(commonAncestor(node("x"), node("x")), node("x"));
  EXPECT_EQ(commonAncestor(node("x"), node("y")), node("a"));
  EXPECT_EQ(commonAncestor(node("x"), node("a")), node("a"));
  EXPECT_EQ(commonAncestor(node("a"), node("x")), node("a"));
  EXPECT_EQ(commonAncestor(node("x"), node("b")), node("r"));
  EXPECT_EQ(commonAncestor(node("r"), document.get()), document.get());
  EXPECT_EQ(commonAncestor(node("x"), separate.get()), nullptr);
  EXPECT_EQ(commonAncestor(other.get(), separate.get()), nullptr);
  EXPECT_EQ(commonAncestor(node("x"), nullptr), nullptr);
  for (const TestElement* each : {element("r"), element("a"), element("x"), element("y"),
                                  element("b"), separate.get(), other.get()}) {
    EXPECT_FALSE(each->hasFlag(0)) << each->tagName().str();
  }
}

// In the document, or not

TEST_F(NodeTest, TheFirstChildOfTheDocumentIsInItWithAllBelow) {
  const Ref<TestElement> root = readXml(*document, "<r><a>text</a></r>");
  EXPECT_FALSE(root->isInDocument());
  document->appendChild(root.get());
  EXPECT_FALSE(document->isInDocument());
  EXPECT_TRUE(root->isInDocument());
  EXPECT_TRUE(text()->isInDocument());
  const Ref<Node> a = root->removeChild(node("a"));
  EXPECT_FALSE(a->isInDocument());
  EXPECT_FALSE(a->firstChild()->isInDocument());
  document->removeChild(root.get());
  EXPECT_FALSE(root->isInDocument());
}

TEST_F(NodeTest, OnlyTheFirstChildOfTheDocumentIsInIt) {
  const Ref<TestElement> first = readXml(*document, "<a><b></b></a>");
  const Ref<TestElement> second = readXml(*document, "<c><d></d></c>");
  document->appendChild(first.get());
  document->appendChild(second.get());
  EXPECT_TRUE(first->firstChild()->isInDocument());
  EXPECT_FALSE(second->firstChild()->isInDocument());
  checkLinks(*document);

  document->insertBefore(second.get(), first.get());
  EXPECT_FALSE(first->firstChild()->isInDocument());
  EXPECT_TRUE(second->firstChild()->isInDocument());
  checkLinks(*document);

  document->removeChild(second.get());
  EXPECT_TRUE(first->firstChild()->isInDocument());
  EXPECT_FALSE(second->firstChild()->isInDocument());

  document->replaceChild(second.get(), first.get());
  EXPECT_FALSE(first->isInDocument());
  EXPECT_TRUE(second->isInDocument());
}

TEST_F(NodeTest, TheRootElementIsSetWithoutRecordOrEvents) {
  Recorder recorder;
  document->addObserver(&recorder);
  load("<r></r>");
  EXPECT_TRUE(recorder.log.empty());
  EXPECT_FALSE(document->canUndo());
  EXPECT_EQ(document->documentElement(), node("r"));
  document->removeObserver(&recorder);
}

TEST_F(NodeTest, DetachedTreesChangeWithoutRecordOrEvents) {
  Recorder recorder;
  document->addObserver(&recorder);
  const Ref<TestElement> top = readXml(*document, "<r><a></a></r>");
  top->setAttribute(token("x"), LongVariant(1));
  top->removeChild(top->firstChild());
  EXPECT_TRUE(recorder.log.empty());
  EXPECT_FALSE(document->canUndo());
  document->removeObserver(&recorder);
}

TEST_F(NodeTest, EveryNodeOfANewSubtreeIsAttachedInDocumentOrder) {
  TestElement* root = load("<r></r>");
  Log log;
  const Ref<DocumentFragment> fragment = document->fragment();
  for (const char* each : {"<a><b></b><c><d></d></c></a>", "<e></e>"}) {
    const Ref<TestElement> top = readXml(*document, each);
    walkSubtree<Node>(*top, [&log](Node& below) {
      static_cast<TestElement&>(below).log = &log;
      return true;
    });
    fragment->appendChild(top.get());
  }
  root->log = &log;
  EXPECT_TRUE(log.empty());
  root->appendChild(fragment.get());
  EXPECT_EQ(log, (Log{"attached a", "attached b", "attached c", "attached d", "attached e"}));
}

// Life and death

TEST_F(NodeTest, AChildThatOutlivesItsParentHasNone) {
  Ref<TestElement> parent = readXml(*document, "<p><a></a><b><i></i></b><c></c></p>");
  const Ref<Node> b = nodeBelow(*parent, "b");
  Node* c = nodeBelow(*parent, "c");
  parent = nullptr;
  EXPECT_EQ(TestElement::alive, 3);
  EXPECT_EQ(b->parent(), nullptr);
  EXPECT_EQ(b->previousSibling(), nullptr);
  EXPECT_EQ(b->nextSibling(), c);
  EXPECT_EQ(c->parent(), nullptr);
  EXPECT_EQ(c->previousSibling(), b.get());
  checkLinks(*b);
}

TEST_F(NodeTest, ADeepDescendantOutlivesAllAboveIt) {
  load("<r><a><b><c><d></d></c></b><e></e></a></r>");
  const Ref<Node> c = node("c");
  document->removeChild(node("r"));
  EXPECT_EQ(TestElement::alive, 2);
  EXPECT_EQ(c->parent(), nullptr);
  EXPECT_FALSE(c->isInDocument());
  EXPECT_FALSE(c->firstChild()->isInDocument());
}

TEST_F(NodeTest, ANodeWithinADyingRunSurvivesWithTheRestOfIt) {
  TestElement* root = load("<r><a></a><b></b><c></c></r>");
  document->setUndoLimit(0);
  Ref<Node> run = node("a");
  const Ref<Node> b = node("b");
  root->replaceChildren(run.get(), 3, nullptr);
  run = nullptr;
  EXPECT_EQ(TestElement::alive, 3);
  EXPECT_EQ(b->previousSibling(), nullptr);
  EXPECT_STREQ(b->nextSibling()->nodeName().str(), "c");
}

// Copies

TEST_F(NodeTest, ACopyIsANewNodeInNoTree) {
  load("<r><a x=\"1\"><b></b>text</a><c></c></r>");
  const Ref<Node> shallow = node("a")->cloneNode(false);
  EXPECT_EQ(shallow->refCount(), 1U);
  EXPECT_EQ(toXml(*shallow), "<a x=\"1\"></a>");
  EXPECT_EQ(shallow->parent(), nullptr);
  EXPECT_EQ(shallow->nextSibling(), nullptr);
  EXPECT_FALSE(shallow->isInDocument());
  EXPECT_EQ(shallow->ownerDocument(), document.get());

  const Ref<Node> deep = node("r")->cloneNode(true);
  EXPECT_EQ(toXml(*deep), "<r><a x=\"1\"><b></b>text</a><c></c></r>");
  EXPECT_FALSE(deep->firstChild()->isInDocument());
  checkLinks(*deep);
}

TEST_F(NodeTest, CopiesOfChildrenFollowThoseThatAreThere) {
  const Ref<TestElement> source = readXml(*document, "<s><a><b></b><c></c></a>t<d></d></s>");
  const Ref<TestElement> target = readXml(*document, "<t><x></x></t>");
  source->cloneChildrenInto(*target);
  EXPECT_EQ(toXml(*target), "<t><x></x><a><b></b><c></c></a>t<d></d></t>");
  EXPECT_EQ(toXml(*source), "<s><a><b></b><c></c></a>t<d></d></s>");
  checkLinks(*target);
}

TEST_F(NodeTest, CopiesOfChildrenComeWithoutChecksRecordOrEvents) {
  TestElement* target = load("<t></t>");
  const Ref<TestElement> source = readXml(*document, "<s><a></a>text</s>");
  target->takesChildren = false;
  target->readOnly = true;
  Recorder recorder;
  document->addObserver(&recorder);
  source->cloneChildrenInto(*target);
  EXPECT_EQ(xml(), "<t><a></a>text</t>");
  EXPECT_TRUE(recorder.log.empty());
  EXPECT_FALSE(document->canUndo());
  document->removeObserver(&recorder);
}

TEST_F(NodeTest, ADocumentIsNotCopied) { EXPECT_DOM_ERROR(9, document->cloneNode(true)); }

}  // namespace
