// Trees of any depth and length: nothing may cost stack per level or per sibling.
#include <pthread.h>

#include <cstring>
#include <functional>

#include "test_document.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

constexpr int levels = 100000;
constexpr unsigned siblings = 1000000;

/// Runs `function` on a stack of 256 KB.
void runOnSmallStack(std::function<void()> function) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &function), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

class LargeTreeTest : public TreeTest {
 protected:
  Ref<TestElement> deepTree() {
    Ref<TestElement> top = document->element("d");
    Node* bottom = top.get();
    for (int i = 1; i < levels; ++i) {
      bottom = bottom->appendChild(document->createElement(token("d")).get());
    }
    return top;
  }

  Ref<TestElement> longTree() {
    Ref<TestElement> top = document->element("l");
    const Token tag = token("c");
    for (unsigned i = 0; i < siblings; ++i) top->appendChild(document->createElement(tag).get());
    return top;
  }
};

TEST_F(LargeTreeTest, DeepTreesAreDestroyed) {
  runOnSmallStack([this] {
    deepTree();
    EXPECT_EQ(TestElement::alive, 0);
  });
}

TEST_F(LargeTreeTest, DeepTreesAreBuiltFromTheBottom) {
  runOnSmallStack([this] {
    Ref<TestElement> top = document->element("d");
    for (int i = 1; i < levels; ++i) {
      const Ref<TestElement> above = document->element("d");
      above->appendChild(top.get());
      top = above;
    }
    top = nullptr;
    EXPECT_EQ(TestElement::alive, 0);
  });
}

TEST_F(LargeTreeTest, DeepTreesAreWrittenAndCloned) {
  runOnSmallStack([this] {
    const Ref<TestElement> top = deepTree();
    const Ref<Node> copy = top->cloneNode(true);
    const std::string written = toXml(*copy);
    EXPECT_EQ(written.size(), std::strlen("<d></d>") * levels);
    EXPECT_EQ(written, toXml(*top));
  });
}

TEST_F(LargeTreeTest, DeepTreesComeIntoTheDocumentAndChangeThere) {
  runOnSmallStack([this] {
    TestElement* root = load("<r></r>");
    const Ref<TestElement> top = deepTree();
    root->appendChild(top.get());
    EXPECT_TRUE(top->firstChild()->isInDocument());
    top->setAttribute(token("x"), LongVariant(1));
    document->undo();
    EXPECT_FALSE(top->firstChild()->isInDocument());
    document->redo();
    document->tearDown();
    document->removeChild(root);
    EXPECT_EQ(top->refCount(), 1U);
  });
}

TEST_F(LargeTreeTest, TheBottomOfADeepTreeOutlivesIt) {
  runOnSmallStack([this] {
    Ref<TestElement> top = deepTree();
    Ref<Node> bottom = top.get();
    while (bottom->firstChild()) bottom = bottom->firstChild();
    top = nullptr;
    EXPECT_EQ(TestElement::alive, 1);
    EXPECT_EQ(bottom->parent(), nullptr);
  });
}

TEST_F(LargeTreeTest, ADeepTreeGrowsInTheDocumentInTimeInProportion) {
  runOnSmallStack([this] {
    Node* bottom = load("<r></r>");
    document->beginBatch();
    const Ref<TestElement> sample = readXml(*document, "<s><t>text</t></s>");
    for (int i = 0; i < levels; ++i) {
      const Ref<Node> subtree = sample->cloneNode(true);
      bottom = bottom->appendChild(subtree.get());
    }
    document->endBatch();
  });
}

TEST_F(LargeTreeTest, LongListsAreDestroyed) {
  runOnSmallStack([this] {
    const Ref<TestElement> top = longTree();
    EXPECT_EQ(top->length(), siblings);
  });
  EXPECT_EQ(TestElement::alive, 0);
}

TEST_F(LargeTreeTest, LongListsAreClonedWrittenAndMoved) {
  runOnSmallStack([this] {
    TestElement* root = load("<r></r>");
    document->setUndoLimit(0);
    const Ref<TestElement> top = longTree();
    const Ref<Node> copy = top->cloneNode(true);
    EXPECT_EQ(copy->length(), siblings);
    EXPECT_EQ(toXml(*copy).size(), std::strlen("<c></c>") * siblings + std::strlen("<l></l>"));
    root->appendChild(top.get());
    EXPECT_TRUE(top->lastChild()->isInDocument());
    Ref<Node> run = top->firstChild();
    top->replaceChildren(run.get(), siblings, nullptr);
    EXPECT_EQ(countSiblingsFrom(run.get()), siblings);
    run = nullptr;
    EXPECT_EQ(TestElement::alive, static_cast<int>(siblings) + 3);
  });
}

TEST_F(LargeTreeTest, ALongListOfDeepTreesIsDestroyed) {
  runOnSmallStack([this] {
    Ref<TestElement> top = document->element("l");
    for (int i = 0; i < 3; ++i) top->appendChild(deepTree().get());
    Ref<Node> run = top->firstChild();
    top->replaceChildren(run.get(), 3, nullptr);
    run = nullptr;
    EXPECT_EQ(TestElement::alive, 1);
  });
}

TEST_F(LargeTreeTest, ATextOfFiftyMegabytes) {
  const std::string large(50000000, 'x');
  load("<r></r>")->appendChild(document->createTextNode(large.c_str()).get());
  EXPECT_EQ(text()->length(), large.size());
  const Ref<Text> tail = text()->splitText(49999990);
  EXPECT_STREQ(tail->nodeValue(), "xxxxxxxxxx");
  EXPECT_EQ(text()->length(), 49999990U);
}

}  // namespace
