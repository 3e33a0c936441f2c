// Short random sequences of changes, with moves between the document, trees beside it and
// fragments, and with observers that take part. All are undone and redone, and both ends compared
// node for node.
#include <algorithm>
#include <random>
#include <set>

#include "snapshot.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

constexpr unsigned sequencesOfSeed = 100;

/// What an observer throws.
struct Objection {};

/// Does random changes, of all kinds but those that no undo can take back. These are changes
/// outside of the document, where nothing is recorded, of what was in the document before; and
/// replacements of a piece of text by one of another length, but for cutting off the end.
class RandomMoves {
 public:
  RandomMoves(TestDocument& document, unsigned seed) : document_(document), random_(seed) {
    for (int i = 0; i < 3; ++i) hold(*readXml(document_, "<p><q>text</q><s></s></p>"));
    noteWhatIsThere();
  }

  void changeSomething() {
    attempt([this] { change(); });
    if (below(3) == 0) document_.startUndoGroup();
  }

  /// Does some changes that cannot be undone, and forgets all that could.
  void changeInBatch() {
    document_.beginBatch();
    for (unsigned i = below(4); i > 0; --i) changeSomething();
    document_.endBatch();
    known_.clear();
    noteWhatIsThere();
  }

  /// To be called by an observer: objects now and then, takes out what the event is about, or makes
  /// another change, at once or later. An undo does not record what is changed meanwhile, so that
  /// one is only objected to.
  void meddle(Node& target) {
    if (isMeddling_ || below(6) != 0) return;
    if (isReplaying_ || below(3) == 0) throw Objection();
    noteWhatIsThere();
    isMeddling_ = true;
    if (below(3) == 0) {
      document_.executeDeferred(callOperation([this] { changeSomething(); }));
    } else if (below(3) == 0) {
      attempt([&] { remove(target); });
    } else {
      changeSomething();
    }
    isMeddling_ = false;
  }

  unsigned refusals() const { return refusals_; }

 private:
  template <class Change>
  void attempt(Change change) {
    try {
      change();
    } catch (const DomException&) {
      ++refusals_;
    } catch (const Objection&) {
    }
    noteWhatIsThere();
  }

  unsigned below(std::size_t bound) { return static_cast<unsigned>(random_() % bound); }

  template <class T>
  T oneOf(const std::vector<T>& values) {
    return values[below(values.size())];
  }

  static std::vector<Node*> nodesBelow(Node& top) {
    std::vector<Node*> nodes;
    walkSubtree(top, [&](Node& node) {
      nodes.push_back(&node);
      return true;
    });
    return nodes;
  }

  Node& someNodeInDocument() { return *oneOf(nodesBelow(*document_.firstChild())); }

  /// A node of a tree beside the document; one in the document if that tree is there by now.
  Node& someNodeBeside() {
    Node* top = oneOf(held_).get();
    while (top->parent() && top->parent() != &document_) top = top->parent();
    return *oneOf(nodesBelow(*top));
  }

  /// Keeps a node alive, whatever observers do.
  Node& keep(Node& node) { return *kept_.emplace_back(&node); }

  Node& someNode() { return keep(below(3) == 0 ? someNodeBeside() : someNodeInDocument()); }

  Node& someParent() {
    Node& node = someNode();
    return node.asText() && node.parent() && below(20) > 0 ? keep(*node.parent()) : node;
  }

  Ref<Node> freshNode() {
    if (below(4) == 0) return document_.text("fresh text");
    Ref<Node> node = readXml(document_, below(2) == 0 ? "<f></f>" : "<f z=\"1\"><g>text</g></f>");
    hold(*node);
    return node;
  }

  void hold(Node& node) { held_.emplace_back(&node); }

  /// What is in the document now, or was there, is known to the history.
  void noteWhatIsThere() {
    for (Node* node : nodesBelow(*document_.firstChild())) {
      if (known_.insert(node).second) keep(*node);
    }
  }
  bool isKnown(const Node& node) const { return known_.count(&node) != 0; }

  /// Whether a change of the node's values or children is recorded, or need not be.
  bool mayChange(const Node& node) const { return node.isInDocument() || !isKnown(node); }

  /// Whether an undo can take back that the node leaves its parent for `target`.
  bool mayMove(const Node& node, const Node& target) const {
    const Node* source = node.parent();
    const bool mayLeave = !source || mayChange(*source) || target.isInDocument();
    return mayLeave && (mayChange(target) || node.isInDocument());
  }

  void change() {
    switch (below(14)) {
      case 0:
      case 1:
        return insertFresh();
      case 2:
        return remove(someNode());
      case 3:
        return removeRun();
      case 4:
      case 5:
      case 6:
        return move();
      case 7:
      case 8:
        return moveByFragment();
      case 9:
        return wrap();
      case 10:
        return replaceRun();
      case 11:
        return changeAttribute();
      case 12:
        return changeText();
      default:
        return replay();
    }
  }

  void replay() {
    isReplaying_ = true;
    try {
      below(2) == 0 ? document_.undo() : document_.redo();
    } catch (const Objection&) {
      // What was done by then can be undone.
    }
    isReplaying_ = false;
  }

  void insertFresh() {
    Node& parent = someParent();
    if (mayChange(parent)) parent.insertBefore(freshNode().get(), parent.childAt(below(4)));
  }

  void remove(Node& node) {
    if (!node.parent() || node.parent() == &document_ || !mayChange(*node.parent())) return;
    hold(node);
    node.parent()->removeChild(&node);
  }

  void removeRun() {
    Node& parent = someParent();
    Node* first = parent.childAt(below(3));
    if (!first || !mayChange(parent)) return;
    for (Node* node = first; node; node = node->nextSibling()) hold(*node);
    parent.replaceChildren(first, 1 + below(3), nullptr);
  }

  void move() {
    Node& node = someNode();
    Node& parent = someParent();
    if (node.parent() == &document_ || !mayMove(node, parent)) return;
    hold(node);
    Node* place = parent.childAt(below(4));
    if (below(4) == 0 && place && mayChange(parent)) {
      hold(*place);
      parent.replaceChild(&node, place);
    } else {
      parent.insertBefore(&node, place);
    }
  }

  void moveByFragment() {
    const Ref<DocumentFragment> fragment = document_.fragment();
    hold(*fragment);
    for (unsigned i = 1 + below(3); i > 0; --i) {
      Node& node = someNode();
      if (node.asDocumentFragment() || node.parent() == &document_) continue;
      if (!mayMove(node, *fragment)) continue;
      hold(node);
      fragment->insertBefore(&node, fragment->childAt(below(3)));
    }
    if (below(5) == 0) return;
    Node& parent = someParent();
    for (Node* node = fragment->firstChild(); node; node = node->nextSibling()) {
      if (!mayMove(*node, parent)) return;
    }
    parent.insertBefore(fragment.get(), parent.childAt(below(4)));
  }

  /// Puts an element around a node.
  void wrap() {
    Node& node = someNode();
    Node* parent = node.parent();
    if (!parent || parent == &document_ || !mayChange(*parent)) return;
    const Ref<Node> wrapper = readXml(document_, "<w><x></x></w>");
    hold(node);
    hold(*wrapper);
    const Ref<Node> next = node.nextSibling();
    wrapper->insertBefore(&node, wrapper->childAt(below(2)));
    if (mayChange(*parent)) parent->insertBefore(wrapper.get(), next.get());
  }

  /// Puts a run of siblings without a parent in place of another.
  void replaceRun() {
    Node& parent = someParent();
    Node& node = *oneOf(held_);
    if (node.parent() || !mayMove(node, parent) || !mayChange(parent)) return;
    for (Node* old = parent.firstChild(); old; old = old->nextSibling()) hold(*old);
    parent.replaceChildren(parent.childAt(below(3)), below(3), &node);
  }

  void changeAttribute() {
    Node& node = someNode();
    Element* element = node.asElement();
    if (!element || !mayChange(node)) return;
    const Token name = token(below(2) == 0 ? "x" : "y");
    if (below(3) == 0) return element->removeAttribute(name);
    element->setAttribute(name, LongVariant(static_cast<std::int32_t>(below(5))));
  }

  void changeText() {
    Text* text = someNode().asText();
    if (!text || !mayChange(*text) || text->length() == 0) return;
    const unsigned offset = below(text->length());
    switch (below(4)) {
      case 0:
        if (text->parent() && mayChange(*text->parent())) text->splitText(offset);
        break;
      case 1:
        text->deleteData(offset, text->length());
        break;
      case 2:
        text->setNodeValue(std::string(text->length(), '*').c_str());
        break;
      default:
        text->replaceData(offset, 1, "#");
    }
  }

  TestDocument& document_;
  std::mt19937 random_;
  std::vector<Ref<Node>> held_;
  std::vector<Ref<Node>> kept_;
  std::set<const Node*> known_;
  unsigned refusals_ = 0;
  bool isMeddling_ = false;
  bool isReplaying_ = false;
};

class RandomMovesTest : public TreeTest, public testing::WithParamInterface<unsigned> {
 protected:
  /// Calls `expect(seed)` for the first `count` sequences of the parameter.
  template <class Expect>
  void forSequences(unsigned count, Expect expect) {
    for (unsigned i = 0; i < count; ++i) {
      const unsigned seed = GetParam() * sequencesOfSeed + i;
      load("<r x=\"1\"><a>first text</a><b><c><d></d></c></b>second text<e></e></r>");
      document->setUndoLimit(1000000);
      expect(seed);
      ASSERT_FALSE(HasFailure()) << "sequence " << seed;
    }
  }

  void expectThereAndBackFrom(const Snapshot& before) {
    checkLinks(*document);
    while (document->canRedo()) document->redo();
    const Snapshot after(*document);
    for (int round = 0; round < 2; ++round) {
      while (document->canUndo()) document->undo();
      before.expectIn(*document);
      while (document->canRedo()) document->redo();
      after.expectIn(*document);
      checkLinks(*document);
    }
  }

  static constexpr unsigned steps = 30;
};

TEST_P(RandomMovesTest, BothEndsAreReachedNodeForNode) {
  forSequences(sequencesOfSeed, [this](unsigned seed) {
    const Snapshot before(*document);
    RandomMoves moves(*document, seed);
    for (unsigned i = 0; i < steps; ++i) moves.changeSomething();
    EXPECT_LT(moves.refusals(), steps / 2);
    expectThereAndBackFrom(before);
  });
}

TEST_P(RandomMovesTest, BothEndsAreReachedWhateverObserversDo) {
  forSequences(sequencesOfSeed, [this](unsigned seed) {
    RandomMoves moves(*document, seed);
    CallObserver meddler([&](const DomEvent& event) { moves.meddle(*event.target); });
    document->addObserver(&meddler);
    for (unsigned i = 0; i < steps / 2; ++i) moves.changeSomething();
    moves.changeInBatch();
    const Snapshot before(*document);
    for (unsigned i = 0; i < steps / 2; ++i) moves.changeSomething();
    document->removeObserver(&meddler);
    expectThereAndBackFrom(before);
  });
}

TEST_P(RandomMovesTest, TheLastGroupIsUndoneWithAShortHistory) {
  unsigned undone = 0;
  forSequences(sequencesOfSeed / 4, [&](unsigned seed) {
    document->setUndoLimit(1);
    RandomMoves moves(*document, seed);
    Recorder recorder;
    document->addObserver(&recorder);
    for (unsigned i = 0; i < steps; ++i) {
      const Snapshot before(*document);
      document->startUndoGroup();
      recorder.log.clear();
      moves.changeSomething();
      if (recorder.log.empty() || !document->canUndo()) continue;  // nothing is recorded, or undone
      const Snapshot after(*document);
      document->undo();
      before.expectIn(*document);
      EXPECT_FALSE(document->canUndo());
      document->redo();
      after.expectIn(*document);
      EXPECT_FALSE(document->canRedo());
      ++undone;
    }
    document->removeObserver(&recorder);
  });
  EXPECT_GT(undone, sequencesOfSeed / 4 * steps / 4) << "most steps change the document";
}

TEST_P(RandomMovesTest, ObserversMayDoAllWithAShortHistoryOrNone) {
  forSequences(sequencesOfSeed / 4, [this](unsigned seed) {
    document->setUndoLimit(seed % 2);
    RandomMoves moves(*document, seed);
    CallObserver meddler([&](const DomEvent& event) { moves.meddle(*event.target); });
    document->addObserver(&meddler);
    for (unsigned i = 0; i < steps; ++i) {
      moves.changeSomething();
      checkLinks(*document);
    }
    document->removeObserver(&meddler);
    while (document->canUndo()) document->undo();
    checkLinks(*document);
  });
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomMovesTest, testing::Range(0U, 40U));

}  // namespace
