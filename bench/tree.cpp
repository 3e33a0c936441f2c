// What must not cost more in a large tree than in a small one.

#include <benchmark/benchmark.h>

#include "vantry/dom/document.h"
#include "vantry/dom/range.h"

namespace {

using vantry::base::Ref;
using vantry::dom::Node;
using vantry::dom::Token;

constinit const vantry::base::StaticToken bare("bare");

/// An element without attributes.
class BareElement final : public vantry::dom::Element {
 public:
  explicit BareElement(vantry::dom::Document* document) : Element(document) {}
  BareElement(const BareElement&) = default;
  Ref<Node> cloneNode(bool deep) const override {
    Ref<Node> copy = new BareElement(*this);
    if (deep) cloneChildrenInto(*copy);
    return copy;
  }
  Token tagName() const override { return bare; }
  vantry::base::Variant getAttribute(Token) const override { return {}; }
  bool hasAttribute(Token) const override { return false; }
  void doSetAttribute(Token, const vantry::base::Variant&) override {}
  void doRemoveAttribute(Token) override {}
};

class BareDocument final : public vantry::dom::Document {
 public:
  Ref<vantry::dom::Element> make() { return createElement(Token()); }

 protected:
  ~BareDocument() override = default;
  Ref<vantry::dom::Element> newElement(Token) override { return new BareElement(this); }
};

/// A document with a root, given up at the end.
class Tree {
 public:
  Tree() { document->appendChild(document->make().get()); }
  ~Tree() { document->tearDown(); }
  Node& root() const { return *document->firstChild(); }

  const Ref<BareDocument> document = new BareDocument;
};

/// Times `work` on a new tree, and counts in steps, of which the first argument is the number.
template <class Work>
void steps(benchmark::State& state, Work work) {
  for (auto _ : state) {
    const Tree tree;
    work(tree, state.range(0));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void appendChildren(const Tree& tree, std::int64_t count) {
  for (; count > 0; --count) tree.root().appendChild(tree.document->make().get());
}

void appendToList(benchmark::State& state) {
  steps(state, [](const Tree& tree, std::int64_t count) {
    tree.document->setUndoLimit(0);
    appendChildren(tree, count);
  });
}
BENCHMARK(appendToList)->Arg(1000)->Arg(32000);

void appendToListOfRange(benchmark::State& state) {
  steps(state, [](const Tree& tree, std::int64_t count) {
    tree.document->setUndoLimit(0);
    const Ref<vantry::dom::Range> range = tree.document->createRange(false);
    range->selectNodeContents(&tree.root());
    appendChildren(tree, count);
  });
}
BENCHMARK(appendToListOfRange)->Arg(1000)->Arg(32000);

/// Each step puts an element with a child below the child of the last one.
void insertDeepInDetachedTree(benchmark::State& state) {
  steps(state, [](const Tree& tree, std::int64_t count) {
    const Ref<Node> top = tree.document->make();
    for (Node* bottom = top.get(); count > 0; --count) {
      const Ref<Node> next = tree.document->make();
      Node* child = next->appendChild(tree.document->make().get());
      bottom->appendChild(next.get());
      bottom = child;
    }
  });
}
BENCHMARK(insertDeepInDetachedTree)->Arg(1000)->Arg(32000);

/// Twice as many groups as are kept.
void dropOldestUndoGroup(benchmark::State& state) {
  steps(state, [](const Tree& tree, std::int64_t count) {
    tree.document->setUndoLimit(static_cast<unsigned>(count / 2));
    for (; count > 0; --count) {
      tree.document->startUndoGroup();
      appendChildren(tree, 1);
    }
  });
}
BENCHMARK(dropOldestUndoGroup)->Arg(1000)->Arg(32000);

}  // namespace
