// Random changes of a drawing, all undone and all redone.
#include <map>
#include <random>

#include "SRC/element_factory.h"
#include "dom/text.h"
#include "dom/tree_walk.h"
#include "plot_test.h"

namespace PlotDomTest {
namespace {

class RandomDrawingTest : public PlotTest, public testing::WithParamInterface<unsigned> {
 protected:
  /// A drawing with styles on every level, and something to inherit from each.
  void buildDrawing() {
    PlotElement* canvas = add(*document, Word::Canvas, {{Word::Consistent, "1"}});
    add(*canvas, Word::ObjStyle, {{Word::Type, "Default"}, {Word::LineWidth, "0.25"}});
    add(*canvas, Word::Scene2dStyle, {{Word::BackgroundColor, "#ff0000"}});
    add(*canvas, Word::CoordinateSystem2dStyle, {{Word::Axes, "Frame"}});
    PlotElement* scene = add(*canvas, Word::Scene2d, {{Word::Width, "50"}});
    addText(*add(*scene, Word::Header), "a header");
    PlotElement* system = add(*scene, Word::CoordinateSystem2d);
    add(*system, Word::ObjStyle, {{Word::Type, "Curve2d"}, {Word::LineColor, "#0000ff"}});
    PlotElement* group = add(*system, Word::Group2d, {{Word::Visible, "0"}});
    PlotElement* object = add(*group, Word::Obj2d, {{Word::Type, "Curve2d"}});
    addText(*add(*object, Word::Expr, {{Word::Opt, "Function"}}), "sin(x)");
    PlotElement* image = add(*object, Word::Img2d, {{Word::Param, "0"}});
    add(*image, Word::Poly2d, {{Word::LineWidth, "0.5"}});
    add(*image, Word::Text2d);
    PlotElement* transform = add(*system, Word::Transform2d, {{Word::Type, "Rotate2d"}});
    add(*transform, Word::Tr2d, {{Word::Shift, "1 2"}});
    add(*transform, Word::Obj2d, {{Word::Type, "Function2d"}});
    document->setUndoLimit(1000000);
  }

  /// Does one change, or none where it is refused.
  void changeSomething() {
    try {
      switch (below(9)) {
        case 0:
          return removeSomething();
        case 1:
          return replaceSomething();
        case 2:
          return editText();
        case 3:
          return setAttribute();
        case 4:
          return removeAttribute();
        case 5:
          return setProperty();
        default:
          return insertSomething();
      }
    } catch (const DomException&) {
      ++refusals_;
    }
  }

  unsigned below(std::size_t bound) { return static_cast<unsigned>(random_() % bound); }

  unsigned refusals() const { return refusals_; }

 private:
  template <class T>
  T oneOf(const std::vector<T>& values) {
    return values[below(values.size())];
  }

  template <class Filter>
  std::vector<Arbor::Node*> nodes(Filter filter) {
    std::vector<Arbor::Node*> result;
    Arbor::walkSubtree<Arbor::Node>(*document->documentElement(), [&](Arbor::Node& node) {
      if (filter(node)) result.push_back(&node);
      return true;
    });
    return result;
  }

  PlotElement& someElement() {
    return *PlotElement::from(oneOf(nodes([](Arbor::Node& node) { return node.asElement(); })));
  }

  /// An element of any class, with an attribute if it takes one.
  Ref<PlotElement> freshElement() {
    static const std::vector<Token> names = elementNames();
    Ref<PlotElement> element = make(oneOf(names));
    const Token property = somePropertyOf(*element);
    if (!property) return element;
    try {
      element->setAttributeFromString(property, someText());
    } catch (const DomException&) {
      // A text of another type.
    }
    return element;
  }

  /// An element that may stand in `parent`, with a descendant or a text if it takes that too; null
  /// if none was met.
  Ref<Arbor::Node> freshChildOf(const PlotElement& parent) {
    const Ref<Arbor::Node> text = document->createTextNode("some text");
    if (parent.canReplaceChildren(nullptr, 0, text.get())) return text;
    for (int i = 0; i < 100; ++i) {
      const Ref<PlotElement> child = freshElement();
      if (!parent.canReplaceChildren(nullptr, 0, child.get())) continue;
      if (below(2) == 0) {
        const Ref<Arbor::Node> grandchild = freshChildOf(*child);
        if (grandchild) child->appendChild(grandchild.get());
      }
      return child;
    }
    return nullptr;
  }

  const std::vector<Token>& propertiesOf(const PlotElement& element) {
    std::vector<Token>& names = propertiesOfTag_[element.tagName()];
    if (names.empty()) {
      for (const Token name : Ubase::wordTokens) {
        if (name && element.findProperty(name)) names.push_back(name);
      }
    }
    return names;
  }
  Token somePropertyOf(const PlotElement& element) {
    const std::vector<Token>& names = propertiesOf(element);
    return names.empty() ? Token() : oneOf(names);
  }

  const char* someText() {
    return oneOf<const char*>({"0", "1", "0.25", "12", "#0000ff", "#10203040", "Default", "Curve2d",
                               "Flat", "1 2", "1 2 3", "'sans' 10 Bold"});
  }

  void insertSomething() {
    PlotElement& parent = someElement();
    if (below(4) == 0) {  // a move
      parent.insertBefore(&someElement(), parent.childAt(below(4)));
    } else if (const Ref<Arbor::Node> child = freshChildOf(parent)) {
      parent.insertBefore(child.get(), parent.childAt(below(4)));
    }
  }

  /// Whether so little is below the node that the drawing can be without it.
  static bool isSmall(const Arbor::Node& node) { return node.asText() || node.length() < 2; }

  void removeSomething() {
    PlotElement& element = someElement();
    const bool isRoot = &element == document->documentElement();
    if (!isRoot && isSmall(element)) element.parent()->removeChild(&element);
  }

  void replaceSomething() {
    PlotElement& parent = someElement();
    Arbor::Node* former = parent.firstChild();
    if (!former || !isSmall(*former)) return;
    const Ref<Arbor::Node> child = freshChildOf(parent);
    if (child) parent.replaceChild(child.get(), former);
  }

  /// Replaces one byte by another: an undo gives back as many bytes as were taken.
  void editText() {
    const auto texts = nodes([](Arbor::Node& node) { return node.nodeValue() != nullptr; });
    if (texts.empty()) return;
    Arbor::Text* text = oneOf(texts)->asText();
    text->replaceData(below(text->length()), 1, below(2) == 0 ? "#" : "<");
  }

  void setAttribute() {
    PlotElement& element = someElement();
    const Token name = somePropertyOf(element);
    if (name) element.setAttributeFromString(name, someText());
  }

  void removeAttribute() {
    PlotElement& element = someElement();
    std::vector<Token> names = propertiesOf(element);
    std::erase_if(names, [&](Token name) { return !element.hasAttribute(name); });
    if (!names.empty()) element.removeAttribute(oneOf(names));
  }

  /// Gives a property a value that it may inherit already, or that another element has.
  void setProperty() {
    PlotElement& element = someElement();
    const Token name = somePropertyOf(element);
    if (!name) return;
    const PlotElement* source = below(2) == 0 ? element.styleParent(name) : &someElement();
    const bool hasSource = source && source->hasProperty(name);
    element.setPropertyValue(name, hasSource ? source->getPropertyValue(name)
                                             : element.findProperty(name)->defaultVariant());
  }

  std::mt19937 random_{GetParam()};
  std::map<Token, std::vector<Token>> propertiesOfTag_;
  unsigned refusals_ = 0;
};

TEST_P(RandomDrawingTest, AllIsUndoneAndRedone) {
  buildDrawing();
  const std::string before = xmlOf(*document);
  constexpr unsigned steps = 300;
  for (unsigned i = 0; i < steps; ++i) {
    if (below(3) == 0) document->startUndoGroup();
    changeSomething();
    if (i % 10 == 0) document->undo();
    if (i % 20 == 0) document->redo();
  }
  const std::string after = xmlOf(*document);
  EXPECT_NE(after, before);
  EXPECT_LT(refusals(), steps / 2);

  for (int round = 0; round < 2; ++round) {
    while (document->canUndo()) document->undo();
    EXPECT_EQ(xmlOf(*document), before);
    while (document->canRedo()) document->redo();
    EXPECT_EQ(xmlOf(*document), after);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDrawingTest, testing::Range(0U, 30U));

}  // namespace
}  // namespace PlotDomTest
