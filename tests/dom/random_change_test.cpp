// Random changes of a tree, all undone and all redone.
#include <random>

#include "test_document.h"

namespace {

using namespace ArborTest;

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
          // The node holds the element, or is the one to stand before.
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
        if (Text* text = node.asText()) text->replaceData(below(text->length()), 1, "#");
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
  }
  const std::string after = xml();

  for (int round = 0; round < 3; ++round) {
    while (document->canUndo()) document->undo();
    EXPECT_EQ(xml(), before);
    checkLinks(*document);
    while (document->canRedo()) document->redo();
    EXPECT_EQ(xml(), after);
    checkLinks(*document);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomChangeTest, testing::Range(0U, 100U));

}  // namespace
