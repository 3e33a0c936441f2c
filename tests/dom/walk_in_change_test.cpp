#include "vantry/dom/walk_in_change.h"

#include "snapshot.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class WalkInChangeTest : public TreeTest {
 protected:
  void SetUp() override {
    load("<r><a><b></b>text</a><c></c><d><e><f></f></e></d></r>");
    document->setUndoLimit(0);
  }

  /// The names of what is entered on a walk over the root, where `change` is called at `name`.
  template <class Change>
  std::string orderOfWalk(const char* name, Change change) {
    std::string order;
    walkInChange(*node("r"), [&](Node& each) {
      order += each.nodeName().str();
      if (each.nodeName() == token(name)) change();
      return true;
    });
    return order;
  }
};

TEST_F(WalkInChangeTest, EntersInDocumentOrder) {
  EXPECT_EQ(orderOfWalk("r", [] {}), "rab#textcdef");
}

TEST_F(WalkInChangeTest, GoesIntoWhatIsEnteredOnly) {
  std::string order;
  walkInChange(*node("r"), [&](Node& each) {
    order += each.nodeName().str();
    return each.nodeName() == token("r") || each.nodeName() == token("d");
  });
  EXPECT_EQ(order, "racde");
}

TEST_F(WalkInChangeTest, StaysBelowItsRoot) {
  std::string order;
  walkInChange(*node("a"), [&](Node& each) {
    order += each.nodeName().str();
    return true;
  });
  EXPECT_EQ(order, "ab#text");
}

TEST_F(WalkInChangeTest, PassesOverWhatHasLeft) {
  const auto remove = [this](const char* name) {
    return [this, name] { node(name)->parent()->removeChild(node(name)); };
  };
  EXPECT_EQ(orderOfWalk("a", remove("a")), "racdef") << "with what was below it";
  EXPECT_EQ(orderOfWalk("c", remove("e")), "rcd");
  load("<r><a></a><b></b><c></c></r>");
  EXPECT_EQ(orderOfWalk("a", remove("b")), "rac");
  EXPECT_EQ(orderOfWalk("a", [this] { node("r")->replaceChildren(node("a"), 2, nullptr); }), "ra");
}

TEST_F(WalkInChangeTest, PassesOverWhatIsElsewhere) {
  EXPECT_EQ(orderOfWalk("b", [this] { node("a")->appendChild(node("d")); }), "rab#textc");
  EXPECT_EQ(orderOfWalk("a", [this] { node("r")->insertBefore(node("c"), node("a")); }),
            "rab#textdefc")
      << "it is still among the same siblings";
}

TEST_F(WalkInChangeTest, EndsWhereItsRootLeaves) {
  EXPECT_EQ(orderOfWalk("b", [this] { document->removeChild(node("r")); }), "rab");
}

TEST_F(WalkInChangeTest, GoesThroughTreesBesideTheDocument) {
  const Ref<TestElement> top = readXml(*document, "<t><u><v></v></u><w></w></t>");
  std::string order;
  walkInChange(*top, [&](Node& each) {
    order += each.nodeName().str();
    if (each.nodeName() == token("u")) top->removeChild(top->lastChild());
    return true;
  });
  EXPECT_EQ(order, "tuv");
  order.clear();
  walkInChange(*document, [&](Node& each) {
    order += each.nodeName().str();
    return true;
  });
  EXPECT_EQ(order, "#documentrab#textcdef");
}

TEST_F(WalkInChangeTest, IsOneChange) {
  bool hasRun = false;
  walkInChange(*node("r"), [&](Node&) {
    document->executeDeferred(callOperation([&] { hasRun = true; }));
    EXPECT_FALSE(hasRun);
    return true;
  });
  EXPECT_TRUE(hasRun);
}

TEST_F(WalkInChangeTest, CallsForEachChildThatStays) {
  std::string order;
  forEachChildInChange(*node("r"), [&](Node& child) {
    order += child.nodeName().str();
    if (child.nodeName() == token("a")) node("r")->replaceChildren(&child, 2, nullptr);
  });
  EXPECT_EQ(order, "ad");
}

}  // namespace
