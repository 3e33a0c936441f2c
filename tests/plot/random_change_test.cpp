// Random changes of a drawing, all undone and all redone, and the styles that are found meanwhile.
#include <algorithm>

#include "../random_changes.h"
#include "plot_test.h"
#include "vantry/base/operation.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/framework/primitive.h"

namespace vantry::plot::test {
namespace {

Token typeOf(const PlotElement& element) {
  if (!element.hasAttribute(Word::Type)) return Token();
  const Variant type = element.getAttribute(Word::Type);
  return type.as<TokenVariant>()->get();
}

/// The styles of that type around `start`, by a look at all children of all ancestors.
StyleChain stylesAround(const dom::Node& start, Token type) {
  StyleChain styles;
  const dom::Node* ancestor = type ? start.parent() : nullptr;
  for (; ancestor; ancestor = ancestor->parent()) {
    if (isOneOf(ancestor->nodeName(), Word::Transform2d, Word::Transform3d)) continue;
    for (const dom::Node* child = ancestor->firstChild(); child; child = child->nextSibling()) {
      if (child->nodeName() != Word::ObjStyle) continue;
      const PlotElement* style = PlotElement::from(child);
      if (typeOf(*style) == type) styles.push_back(style);
    }
  }
  return styles;
}

/// Whether the element inherits from styles of objects.
bool isStyled(const PlotElement& element) {
  return isOneOf(element.tagName(), Word::ObjStyle, Word::Obj2d, Word::Obj3d, Word::Transform2d,
                 Word::Transform3d) ||
         dynamic_cast<const PrimitiveBase*>(&element);
}

/// What an object, a transform, a style of objects or a primitive inherits from. There are no other
/// styles in these drawings.
StyleChain expectedChain(const PlotElement& element) {
  StyleChain chain;
  if (!isStyled(element)) return chain;
  const dom::Node* start = &element;
  if (dynamic_cast<const PrimitiveBase*>(&element)) {
    const dom::Node* image = element.parent();
    const PlotElement* object = image ? PlotElement::from(image->parent()) : nullptr;
    if (!object) return chain;
    chain = expectedChain(*object);
    chain.insert(chain.begin(), object);
    return chain;
  }
  const bool isStyle = element.tagName() == Word::ObjStyle;
  if (isStyle) start = element.parent();
  if (!start) return chain;
  const Token type = typeOf(element);
  if (!isStyle || type != Word::Default) chain = stylesAround(*start, type);
  const StyleChain forAll = stylesAround(*start, Word::Default);
  chain.insert(chain.end(), forAll.begin(), forAll.end());
  return chain;
}

const PlotElement* firstWith(Token name, const StyleChain& styles) {
  const auto first = std::ranges::find_if(
      styles, [name](const PlotElement* style) { return style->hasAttribute(name); });
  return first == styles.end() ? nullptr : *first;
}

void expectItsStyles(const PlotElement& element) {
  const StyleChain expected = expectedChain(element);
  StyleChain chain;
  element.collectStyleChain(chain);
  EXPECT_EQ(chain, expected) << xmlOf(element);
  StyleChain effective;
  element.collectEffectiveStyles(effective);
  for (const Token name : {Word::LineWidth, Word::LineColor, Word::FillColor, Word::Visible,
                           Word::Frames, Word::Type}) {
    const PlotElement* parent = firstWith(name, expected);
    EXPECT_EQ(element.styleParent(name), parent) << name.str() << " of " << xmlOf(element);
    EXPECT_EQ(firstWith(name, effective), parent) << name.str() << " of " << xmlOf(element);
  }
}

/// Compares the styles of all elements in the tree or trees of which `first` is the outermost node
/// and the first of siblings.
void expectStylesIn(const dom::Node& first) {
  for (const dom::Node* top = &first; top; top = top->nextSibling()) {
    dom::walkSubtree(*top, [](const dom::Node& node) {
      const PlotElement* element = PlotElement::from(&node);
      if (element && isStyled(*element)) expectItsStyles(*element);
      return true;
    });
  }
}

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

  /// All nodes, in document order.
  std::vector<Ref<dom::Node>> nodesOfDocument() {
    std::vector<Ref<dom::Node>> nodes;
    dom::walkSubtree<dom::Node>(*document, [&](dom::Node& node) {
      if (&node != document.get()) nodes.emplace_back(&node);
      return true;
    });
    return nodes;
  }
};

TEST_P(RandomDrawingTest, AllIsUndoneAndRedone) {
  buildDrawing();
  const std::string before = xmlOf(*document->documentElement());
  const std::vector<Ref<dom::Node>> nodesBefore = nodesOfDocument();
  RandomChanges changes(*document, GetParam());
  constexpr unsigned steps = 300;
  for (unsigned i = 0; i < steps; ++i) {
    if (changes.below(3) == 0) document->startUndoGroup();
    changes.changeSomething();
    expectStylesIn(*document);
    if (i % 10 == 0) document->undo();
    if (i % 20 == 0) document->redo();
    if (i % 10 == 0) expectStylesIn(*document);
    ASSERT_FALSE(HasFailure()) << "change " << i;
  }
  const std::string after = xmlOf(*document->documentElement());
  const std::vector<Ref<dom::Node>> nodesAfter = nodesOfDocument();
  EXPECT_NE(after, before);
  EXPECT_LT(changes.refusals(), steps / 2);

  for (int round = 0; round < 2; ++round) {
    while (document->canUndo()) document->undo();
    EXPECT_EQ(xmlOf(*document->documentElement()), before);
    EXPECT_EQ(nodesOfDocument(), nodesBefore);
    while (document->canRedo()) document->redo();
    EXPECT_EQ(xmlOf(*document->documentElement()), after);
    EXPECT_EQ(nodesOfDocument(), nodesAfter);
  }
}

/// What an observer throws.
struct Objection {};

/// Takes part in the changes of a drawing: objects to one now and then, takes out what it is about,
/// or makes another one, at once or later.
class Meddler final : public dom::IDocObserver {
 public:
  Meddler(PlotDocument& document, RandomChanges& changes) : document_(document), changes_(changes) {
    document_.addObserver(this);
  }
  Meddler(const Meddler&) = delete;
  Meddler& operator=(const Meddler&) = delete;
  ~Meddler() override { document_.removeObserver(this); }

  void observerDetached(Token) override {}
  void beforeBatch() override {}
  void afterBatch() override {}
  void handleEvent(const dom::DomEvent& event) override {
    if (isBusy_ || changes_.below(10) != 0) return;
    const unsigned way = changes_.below(4);
    if (way == 0) throw Objection();
    if (way == 1) return document_.executeDeferred(std::make_unique<Change>(*this, *event.target));
    meddle(way == 2 ? event.target : nullptr);
  }

 private:
  /// A change to be made later.
  class Change final : public base::Operation {
   public:
    Change(Meddler& meddler, dom::Node& target) : meddler_(meddler), target_(&target) {}
    void execute() override { meddler_.meddle(target_.get()); }
    void undo() override {}

   private:
    Meddler& meddler_;
    Ref<dom::Node> target_;
  };

  /// Takes a node out, or does any change if there is none.
  void meddle(dom::Node* target) {
    isBusy_ = true;
    try {
      if (!target) {
        changes_.changeSomething();
      } else if (target->isInDocument() && target->parent() != &document_) {
        target->parent()->removeChild(target);
      }
    } catch (const DomException&) {
      // It is one that its parent needs.
    }
    isBusy_ = false;
  }

  PlotDocument& document_;
  RandomChanges& changes_;
  bool isBusy_ = false;
};

TEST_P(RandomDrawingTest, AllIsUndoneAndRedoneWhateverObserversDo) {
  buildDrawing();
  const std::string before = xmlOf(*document->documentElement());
  RandomChanges changes(*document, GetParam());
  {
    Meddler meddler(*document, changes);
    for (unsigned i = 0; i < 100; ++i) {
      if (changes.below(3) == 0) document->startUndoGroup();
      try {
        changes.changeSomething();
      } catch (const Objection&) {
      }
      expectStylesIn(*document);
      ASSERT_FALSE(HasFailure()) << "change " << i;
    }
  }
  const std::string after = xmlOf(*document->documentElement());
  for (int round = 0; round < 2; ++round) {
    while (document->canUndo()) document->undo();
    EXPECT_EQ(xmlOf(*document->documentElement()), before);
    while (document->canRedo()) document->redo();
    EXPECT_EQ(xmlOf(*document->documentElement()), after);
  }
}

TEST_P(RandomDrawingTest, ObserversMayDoAllWithAShortHistoryOrNone) {
  for (const unsigned limit : {0U, 1U}) {
    if (document->firstChild()) document->removeChild(document->firstChild());
    buildDrawing();
    document->setUndoLimit(limit);
    RandomChanges changes(*document, GetParam());
    Meddler meddler(*document, changes);
    for (unsigned i = 0; i < 100; ++i) {
      document->startUndoGroup();
      try {
        changes.changeSomething();
        if (i % 4 == 0) document->undo();
        if (i % 8 == 0) document->redo();
      } catch (const Objection&) {
      }
      expectStylesIn(*document);
      ASSERT_FALSE(HasFailure()) << "change " << i;
    }
    EXPECT_TRUE(limit > 0 || !document->canUndo());
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDrawingTest, testing::Range(0U, 30U));

/// Containers, styles and what inherits from them, in the document and in trees beside it, which
/// lose and gain parts and fall asunder.
class RandomStylesTest : public PlotTest, public testing::WithParamInterface<unsigned> {
 protected:
  RandomStylesTest() {
    document->appendChild(canvas_.get());
    hold(*make(Word::Group2d));
  }

  /// Does one change, or none where it is refused; what of it was recorded is undone and done
  /// again. All styles are compared each time.
  void changeSomething() {
    if (!canvas_->firstChild()) addGroups();
    searchSomewhere();
    try {
      change();
    } catch (const DomException&) {
      ++refusals_;
    }
    takeComplaints();
    expectAllStyles();
    if (document->canUndo()) {
      ++undoes_;
      document->undo();
      expectAllStyles();
      document->redo();
      expectAllStyles();
    }
    document->clearUndo();
    if (held_.size() > 6) held_.erase(held_.begin() + below(held_.size()));
    expectAllStyles();
  }

  unsigned refusals() const { return refusals_; }
  unsigned undoes() const { return undoes_; }

 private:
  /// What is remembered of the last search must not outlive the next change.
  void searchSomewhere() {
    const PlotElement* element = someElement();
    if (element && isStyled(*element)) expectItsStyles(*element);
  }

  unsigned below(std::size_t bound) { return static_cast<unsigned>(random_() % bound); }

  template <class T>
  T oneOf(const std::vector<T>& values) {
    return values[below(values.size())];
  }

  void addGroups() {
    PlotElement* system = add(*add(*canvas_, Word::Scene2d), Word::CoordinateSystem2d);
    PlotElement* object = add(*add(*add(*system, Word::Group2d), Word::Transform2d), Word::Obj2d);
    add(*add(*object, Word::Img2d), Word::Poly2d);
  }

  void hold(dom::Node& node) { held_.emplace_back(&node); }

  /// The outermost node of each tree; without a parent they may be siblings all the same.
  std::vector<dom::Node*> tops() {
    std::vector<dom::Node*> result;
    const auto addTopOf = [&result](dom::Node* node) {
      while (node->parent()) node = node->parent();
      while (node->previousSibling()) node = node->previousSibling();
      if (std::ranges::find(result, node) == result.end()) result.push_back(node);
    };
    addTopOf(document.get());
    addTopOf(canvas_.get());
    for (const Ref<dom::Node>& node : held_) addTopOf(node.get());
    return result;
  }

  void expectAllStyles() {
    for (const dom::Node* top : tops()) expectStylesIn(*top);
  }

  template <class Filter>
  std::vector<dom::Node*> nodes(Filter filter) {
    std::vector<dom::Node*> result;
    for (dom::Node* top : tops()) {
      for (; top; top = top->nextSibling()) {
        dom::walkSubtree(*top, [&](dom::Node& node) {
          if (filter(node)) result.push_back(&node);
          return true;
        });
      }
    }
    return result;
  }

  /// A node that takes the child, mostly one in the document.
  dom::Node& someParentFor(dom::Node& child) {
    const bool inDocument = canvas_->isInDocument() && below(3) > 0;
    const auto parents = nodes([&](dom::Node& node) {
      return node.isInDocument() == inDocument && node.canReplaceChildren(nullptr, 0, &child);
    });
    return parents.empty() ? *document : *oneOf(parents);
  }

  /// Any element but the canvas of the document; null if none was met.
  PlotElement* someElement() {
    const bool inDocument = below(3) > 0;
    const auto elements = nodes([&](dom::Node& node) {
      return node.isInDocument() == inDocument && node.asElement() && &node != canvas_.get();
    });
    return elements.empty() ? nullptr : PlotElement::from(oneOf(elements));
  }

  void change() {
    if (!canvas_->parent() && below(4) == 0) return toggleCanvas();
    switch (below(20)) {
      case 0:
        return toggleCanvas();
      case 1:
        return removeSomething();
      case 2:
      case 3:
        return moveSomething();
      case 4:
      case 5:
        return changeType();
      case 6:
      case 7:
        return changeValue();
      case 8:
      case 9:
        return moveThroughFragment();
      case 10:
        return copySomething();
      case 11:
        return replaceSomething();
      case 12:
        return holdSomething();
      default:
        return put(*freshElement());
    }
  }

  Ref<PlotElement> freshElement() {
    const Ref<PlotElement> element = make(oneOf<Token>(
        {Word::Canvas, Word::Scene2d, Word::CoordinateSystem2d, Word::Group2d, Word::Group2d,
         Word::Transform2d, Word::Obj2d, Word::Img2d, Word::Poly2d, Word::Group3d, Word::Header,
         Word::ObjStyle, Word::ObjStyle, Word::ObjStyle}));
    giveType(*element);
    giveValue(*element);
    return element;
  }

  void giveType(PlotElement& element) {
    if (!element.hasProperty(Word::Type) || below(5) == 0) return;
    element.setAttributeFromString(Word::Type,
                                   oneOf<const char*>({"Default", "Curve2d", "Rotate2d"}));
  }

  void giveValue(PlotElement& element) {
    const auto [name, text] = oneOf<std::pair<Token, const char*>>({{Word::LineWidth, "1"},
                                                                    {Word::LineColor, "#0000ff"},
                                                                    {Word::FillColor, "#ff0000"},
                                                                    {Word::Visible, "0"},
                                                                    {Word::Frames, "7"}});
    if (!element.hasProperty(name)) return;
    if (element.hasAttribute(name)) {
      element.removeAttribute(name);
    } else {
      element.setAttributeFromString(name, text);
    }
  }

  void put(dom::Node& node) { put(node, someParentFor(node)); }

  void put(dom::Node& node, dom::Node& parent) {
    if (!node.parent() && node.previousSibling()) return;  // not the first of its siblings
    hold(node);
    parent.insertBefore(&node, parent.childAt(below(4)));
  }

  void moveSomething() {
    if (PlotElement* element = someElement()) put(*element);
  }

  void removeSomething() {
    PlotElement* element = someElement();
    if (!element || !element->parent() || element->length() > 1) return;
    if (below(2) == 0) hold(*element);
    element->parent()->removeChild(element);
  }

  void changeType() {
    if (PlotElement* element = someElement()) giveType(*element);
  }

  void changeValue() {
    if (PlotElement* element = someElement()) giveValue(*element);
  }

  /// Up to three elements go into a fragment; it stays as it is, or goes elsewhere.
  void moveThroughFragment() {
    const Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
    // Behind a text, a header takes anything.
    if (below(4) == 0) fragment->appendChild(document->createTextNode("text").get());
    for (unsigned i = 1 + below(3); i > 0; --i) {
      if (PlotElement* element = someElement()) put(*element, *fragment);
    }
    if (below(3) == 0) put(*freshElement(), *fragment);
    expectStylesIn(*fragment);
    if (!fragment->firstChild() || below(3) == 0) {
      hold(*fragment);
    } else {
      dom::Node& parent = someParentFor(*fragment->firstChild());
      parent.insertBefore(fragment.get(), parent.childAt(below(4)));
    }
  }

  /// Of the copy all is held, or only an element in it, so that what is around that goes away.
  void copySomething() {
    const PlotElement* original = someElement();
    if (!original) return;
    const Ref<dom::Node> copy(original->cloneNode(true));
    expectStylesIn(*copy);
    dom::Node* part = copy.get();
    while (part->firstChild() && below(3) > 0) part = part->childAt(below(part->length()));
    hold(*part);
    if (part == copy.get() && below(2) == 0) put(*part);
  }

  void replaceSomething() {
    PlotElement* element = someElement();
    if (!element || !element->parent()) return;
    hold(*element);
    element->parent()->replaceChild(freshElement().get(), element);
  }

  void holdSomething() {
    if (PlotElement* element = someElement()) hold(*element);
  }

  void toggleCanvas() {
    if (canvas_->parent()) {
      document->removeChild(canvas_.get());
    } else {
      document->insertBefore(canvas_.get(), document->firstChild());
    }
  }

  std::mt19937 random_{GetParam()};
  const Ref<PlotElement> canvas_ = make(Word::Canvas);
  std::vector<Ref<dom::Node>> held_;
  unsigned refusals_ = 0;
  unsigned undoes_ = 0;
};

TEST_P(RandomStylesTest, AreFoundAsByALookAtAllAncestors) {
  constexpr unsigned steps = 300;
  for (unsigned i = 0; i < steps; ++i) {
    changeSomething();
    ASSERT_FALSE(HasFailure()) << "change " << i;
  }
  EXPECT_LT(refusals(), steps / 4);
  EXPECT_GT(undoes(), steps / 20);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomStylesTest, testing::Range(0U, 40U));

}  // namespace
}  // namespace vantry::plot::test
