#include "vantry/dom/tree_walk.h"

#include "test_document.h"

namespace {

using namespace vantry;
using namespace vantry::dom::test;

class TreeWalkTest : public TreeTest {
 protected:
  void SetUp() override { load("<r><a><b></b>text</a><c></c><d><e><f></f></e></d></r>"); }
};

TEST_F(TreeWalkTest, EntersAndLeavesInDocumentOrder) {
  std::string order;
  walkSubtree<const Node>(
      *node("r"),
      [&](const Node& each) {
        order += each.nodeName().str();
        return true;
      },
      [&](const Node& each) { order += std::string("/") + each.nodeName().str(); });
  EXPECT_EQ(order, "rab/b#text/#text/ac/cdef/f/e/d/r");
}

TEST_F(TreeWalkTest, GoesIntoWhatIsEnteredOnly) {
  std::string order;
  walkSubtree(
      *node("r"),
      [&](Node& each) {
        order += each.nodeName().str();
        return each.nodeName() == token("r") || each.nodeName() == token("d");
      },
      [&](Node& each) { order += std::string("/") + each.nodeName().str(); });
  EXPECT_EQ(order, "racde/d/r");
}

TEST_F(TreeWalkTest, StaysBelowItsRoot) {
  std::string order;
  const auto enter = [&](Node& each) {
    order += each.nodeName().str();
    return true;
  };
  walkSubtree(*node("a"), enter);
  EXPECT_EQ(order, "ab#text");
  order.clear();
  walkSubtree(*node("c"), enter);
  EXPECT_EQ(order, "c");
  order.clear();
  walkSubtree(*node("a"), [&](Node& each) { return enter(each) && false; });
  EXPECT_EQ(order, "a");
}

}  // namespace
