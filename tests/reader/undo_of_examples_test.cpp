// Random changes of each document of examples/, all undone and all redone.
#include <string>
#include <tuple>
#include <vector>

#include "../random_changes.h"
#include "examples.h"
#include "reading.h"
#include "tree_difference.h"
#include "vantry/dom/tree_walk.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using vantry::base::Ref;

/// What a property counts for in an element: its resolved value, and whether that is its own.
struct ResolvedValue {
  std::string place;
  bool isLocal;
  Variant value;

  bool operator==(const ResolvedValue&) const = default;
};

class UndoOfAnExample : public AllLettersTest,
                        public testing::WithParamInterface<std::tuple<std::string, unsigned>> {
 protected:
  /// All that a drawing is at some time.
  struct State {
    Ref<PlotElement> tree;  // a copy
    std::vector<ResolvedValue> values;
  };

  const std::string& example() const { return std::get<std::string>(GetParam()); }
  static unsigned seed() { return std::get<unsigned>(GetParam()); }

  State state() { return {Ref<PlotElement>::cast(root().cloneNode(true)), resolvedValues()}; }

  /// A whole style that comes or goes does not reach the members which hold inherited values; so
  /// these are compared only if there were no such changes.
  void expectSame(const State& expected, StyleChanges styleChanges) {
    EXPECT_EQ(differenceOf(*expected.tree, root()), "");
    const std::vector<ResolvedValue> values = resolvedValues();
    ASSERT_EQ(values.size(), expected.values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      const bool isInherited = !values[i].isLocal && !expected.values[i].isLocal;
      if (isInherited && styleChanges == StyleChanges::All) continue;
      EXPECT_TRUE(values[i] == expected.values[i]) << values[i].place;
    }
  }

  void changeAndUndo(StyleChanges styleChanges) {
    RandomChanges changes(document(), seed(), styleChanges);
    document().setUndoLimit(1000000);
    const State before = state();
    for (int i = 0; i < 100; ++i) {
      if (changes.below(3) == 0) document().startUndoGroup();
      changes.changeSomething();
      if (i % 10 == 0) document().undo();
      if (i % 20 == 0) document().redo();
    }
    const State after = state();
    EXPECT_TRUE(document().canUndo());

    for (int round = 0; round < 2; ++round) {
      while (document().canUndo()) document().undo();
      expectSame(before, styleChanges);
      while (document().canRedo()) document().redo();
      expectSame(after, styleChanges);
    }
  }

 private:
  PlotDocument& document() { return reading_.document(); }
  PlotElement& root() { return *document().documentElement(); }

  /// The values of all properties of all elements, in document order.
  std::vector<ResolvedValue> resolvedValues() {
    std::vector<ResolvedValue> values;
    dom::walkSubtree<dom::Node>(root(), [&](dom::Node& node) {
      if (const PlotElement* element = PlotElement::from(&node)) {
        for (const Token name : propertyNames_.of(*element)) {
          values.push_back(resolvedValue(*element, name));
        }
      }
      return true;
    });
    return values;
  }

  static ResolvedValue resolvedValue(const PlotElement& element, Token name) {
    const bool isLocal = element.hasAttribute(name);
    const bool isMissing = !isLocal && element.findProperty(name)->isMandatory();
    return {std::string(element.tagName().str()) + "@" + name.str(), isLocal,
            isMissing ? Variant() : element.getPropertyValue(name)};
  }

  Reading reading_{exampleNamed(example()), false};
  PropertyNames propertyNames_;
};

TEST_P(UndoOfAnExample, GivesTheTreeBack) { changeAndUndo(StyleChanges::All); }

TEST_P(UndoOfAnExample, GivesInheritedValuesBack) { changeAndUndo(StyleChanges::ValuesOnly); }

INSTANTIATE_TEST_SUITE_P(All, UndoOfAnExample,
                         testing::Combine(testing::ValuesIn(exampleNames()),
                                          testing::Values(1U, 2U)),
                         [](const auto& test) {
                           return std::get<std::string>(test.param) + "_seed" +
                                  std::to_string(std::get<unsigned>(test.param));
                         });

}  // namespace
