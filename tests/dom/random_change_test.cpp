// Random changes of a tree, all undone and all redone.
#include <random>

#include "test_document.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

/// Expects each live range to have both containers, in whatever trees of its document they are. Of
/// the offsets nothing is said: changes of a detached tree send no events.
void checkContainers(const std::vector<Ref<Range>>& ranges) {
  for (const Ref<Range>& range : ranges) {
    if (range->isDetached()) continue;
    ASSERT_TRUE(range->startContainer() && range->endContainer());
    EXPECT_EQ(range->startContainer()->ownerDocument(), range->ownerDocument());
    EXPECT_EQ(range->endContainer()->ownerDocument(), range->ownerDocument());
  }
}

/// Expects ranges that were set within the tree of the document to be there still, for what is
/// taken out leaves them behind. Of the start offset nothing is said: an insertion before the end
/// point moves the start point on, even behind the end of its container.
void checkRangesInTree(const std::vector<Ref<Range>>& ranges) {
  checkContainers(ranges);
  for (const Ref<Range>& range : ranges) {
    EXPECT_FALSE(range->isDetached());
    for (const Node* container : {range->startContainer(), range->endContainer()}) {
      EXPECT_TRUE(container == range->ownerDocument() || container->isInDocument());
    }
    EXPECT_LE(range->endOffset(), range->endContainer()->length());
  }
}

class RandomChangeTest : public TreeTest, public testing::WithParamInterface<unsigned> {
 protected:
  unsigned below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

  /// Some node below the document, by preference an element.
  Node& someNode() {
    std::vector<Node*> nodes;
    walkSubtree<Node>(*document->firstChild(), [&](Node& each) {
      nodes.push_back(&each);
      return true;
    });
    return *nodes[below(static_cast<unsigned>(nodes.size()))];
  }
  TestElement& someElement() {
    Node* some = &someNode();
    return static_cast<TestElement&>(some->asElement() ? *some : *some->parent());
  }

  Ref<Node> freshNode() {
    if (below(3) == 0) return document->text("some text");
    return readXml(*document, below(2) == 0 ? "<f></f>" : "<f z=\"1\"><g>text</g><h></h></f>");
  }

  void changeSomething() {
    TestElement& element = someElement();
    Node& node = someNode();
    switch (below(9)) {
      case 0:
        element.appendChild(freshNode().get());
        break;
      case 1:
        element.insertBefore(freshNode().get(), element.childAt(below(4)));
        break;
      case 2:
        if (element.firstChild()) element.replaceChild(freshNode().get(), element.firstChild());
        break;
      case 3:
        if (node.parent() != document.get()) node.parent()->removeChild(&node);
        break;
      case 4:
        try {
          element.insertBefore(&node, element.childAt(below(4)));
        } catch (const DomException&) {
          // The node holds the element, or is the one to go before.
        }
        break;
      case 5:
        element.replaceChildren(element.childAt(below(3)), below(4), freshNode().get());
        break;
      case 6:
        element.setAttribute(token("x"), LongVariant(static_cast<std::int32_t>(below(5))));
        break;
      case 7:
        element.removeAttribute(token("x"));
        break;
      default:
        if (Text* text = node.asText(); text && text->nodeValue()) {
          text->replaceData(below(text->length()), 1, "#");
        }
    }
    if (below(3) == 0) document->startUndoGroup();
  }

 private:
  std::mt19937 random_{GetParam()};
};

TEST_P(RandomChangeTest, AllIsUndoneAndRedone) {
  const std::string before = "<r x=\"1\"><a>first text</a><b><c></c>second text</b><d></d></r>";
  load(before);
  document->setUndoLimit(1000000);
  std::vector<Ref<Range>> ranges;
  for (int i = 0; i < 3; ++i) {
    ranges.push_back(document->createRange(i == 0));
    ranges.back()->selectNodeContents(&someNode());
  }

  for (int i = 0; i < 400; ++i) {
    changeSomething();
    if (i % 50 == 0) checkLinks(*document);
    if (i % 10 == 0) document->undo();
    checkRangesInTree(ranges);
  }
  const std::string after = xml();

  for (int round = 0; round < 3; ++round) {
    while (document->canUndo()) {
      document->undo();
      checkRangesInTree(ranges);
    }
    EXPECT_EQ(xml(), before);
    checkLinks(*document);
    while (document->canRedo()) {
      document->redo();
      checkRangesInTree(ranges);
    }
    EXPECT_EQ(xml(), after);
    checkLinks(*document);
  }
}

/// Anything that a host may do, in any order: the links stay right and nothing leaks.
class RandomMischiefTest : public RandomChangeTest {
 protected:
  /// A node of the document, or one of those that were put aside in detached trees.
  Node& anyNode() {
    if (aside_.empty() || below(3) != 0) return someNode();
    return *aside_[below(static_cast<unsigned>(aside_.size()))];
  }

  void doMischief() {
    try {
      switch (below(14)) {
        case 0:
          anyNode().appendChild(&anyNode());
          break;
        case 1:
          anyNode().replaceChild(&anyNode(), anyNode().firstChild());
          break;
        case 2:
          aside_.push_back(&someNode());
          if (below(2) == 0) aside_.back()->parent()->removeChild(aside_.back().get());
          break;
        case 3:
          if (!aside_.empty()) aside_.erase(aside_.begin());
          break;
        case 4:
          document->undo();
          break;
        case 5:
          document->redo();
          break;
        case 6:
          if (Text* text = anyNode().asText()) text->replaceData(below(6), below(4), "new");
          break;
        case 7:
          if (Text* text = anyNode().asText()) text->splitText(below(6));
          break;
        case 8: {
          const Ref<Range> range = document->createRange(below(2) == 0);
          ranges_.push_back(range);
          range->setEnd(&anyNode(), below(3));
          range->setStart(&anyNode(), below(3));
          break;
        }
        case 9:
          if (!ranges_.empty()) ranges_.erase(ranges_.begin());
          break;
        case 10:
          if (Range* range = document->firstSelectedRange()) range->deselect();
          break;
        case 11:
          if (below(5) == 0) document->beginBatch();
          document->endBatch();
          break;
        case 12: {
          const Ref<DocumentFragment> fragment = document->fragment();
          for (int i = 0; i < 3; ++i) fragment->appendChild(freshNode().get());
          anyNode().insertBefore(fragment.get(), anyNode().firstChild());
          break;
        }
        default:
          changeSomething();
      }
    } catch (const DomException&) {
    } catch (const RangeException&) {
    }
    if (!document->firstChild()) document->appendChild(document->createElement(token("r")).get());
  }

  const std::vector<Ref<Range>>& ranges() const { return ranges_; }

 private:
  std::vector<Ref<Node>> aside_;
  std::vector<Ref<Range>> ranges_;
};

TEST_P(RandomMischiefTest, TheTreeStaysWhole) {
  load("<r x=\"1\"><a>first text</a><b><c></c>second text</b><d></d></r>");
  int meddling = 0;
  CallObserver meddler([&](const DomEvent&) {
    if (meddling > 0 || below(10) != 0) return;
    ++meddling;
    const auto meddle = [&] {
      doMischief();
      --meddling;
    };
    if (below(4) == 0) {
      meddle();
    } else {
      document->executeDeferred(callOperation(meddle));
    }
  });
  document->addObserver(&meddler);
  for (int i = 0; i < 1000; ++i) {
    doMischief();
    checkLinks(*document);
    checkContainers(ranges());
  }
  document->removeObserver(&meddler);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomMischiefTest, testing::Range(0U, 100U));
INSTANTIATE_TEST_SUITE_P(Seeds, RandomChangeTest, testing::Range(0U, 100U));

}  // namespace
