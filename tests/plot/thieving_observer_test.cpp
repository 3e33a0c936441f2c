// Observers that take nodes out of a drawing while a change of it goes on.
#include <functional>
#include <set>

#include "plot_test.h"
#include "vantry/base/operation.h"
#include "vantry/dom/range.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::plot::test {
namespace {

/// Calls a function with each event in its lifetime.
template <class Function>
class CallObserver final : public dom::IDocObserver {
 public:
  CallObserver(dom::Document& document, Function function)
      : document_(document), function_(std::move(function)) {
    document_.addObserver(this);
  }
  ~CallObserver() override { document_.removeObserver(this); }
  void observerDetached(Token) override {}
  void beforeBatch() override {}
  void afterBatch() override {}
  void handleEvent(const dom::DomEvent& event) override { function_(event); }

 private:
  dom::Document& document_;
  Function function_;
};

/// Takes a node out of the document, if it is there.
class Removal final : public base::Operation {
 public:
  explicit Removal(dom::Node& node) : node_(&node) {}
  void execute() override {
    if (node_->isInDocument()) node_->parent()->removeChild(node_.get());
  }
  void undo() override {}

 private:
  Ref<dom::Node> node_;
};

/// Takes one node out after the other.
class RemovalOfBoth final : public base::Operation {
 public:
  RemovalOfBoth(dom::Node& first, dom::Node& second) : first_(first), second_(second) {}
  void execute() override {
    first_.execute();
    second_.execute();
  }
  void undo() override {}

 private:
  Removal first_;
  Removal second_;
};

bool isPropertyChange(const dom::DomEvent& event) {
  return event.type == AfterPropertyChangeEvent::eventType();
}

/// A drawing whose nodes nobody holds but their parents and the history, which has the parameter as
/// its limit.
class ThievingObserverTest : public PlotTest, public testing::WithParamInterface<unsigned> {
 protected:
  /// Makes a drawing with a style of the line width 7. The group, with two objects of the type of
  /// the style that have three curves each, is not in the document yet.
  void build() {
    if (document->firstChild()) document->removeChild(document->firstChild());
    canvas = add<Canvas>(*document);
    add<ObjStyle>(*canvas, {{Word::Type, "Default"}, {Word::LineWidth, "5"}});
    system = add<CoordinateSystem2d>(*add<Scene2d>(*canvas));
    style = add<ObjStyle>(*system, {{Word::Type, "Curve2d"}, {Word::LineWidth, "7"}});
    group = make<Group2d>();
    for (Object& object : objects) {
      object.element = add<Obj2d>(*group, {{Word::Type, "Curve2d"}});
      object.image = add<Img2d>(*object.element);
      for (Poly2d*& curve : object.curves) curve = add<Poly2d>(*object.image);
    }
    document->setUndoLimit(GetParam());
  }

  /// The same with the group in the document, which is its only owner then.
  void buildWhole() {
    build();
    system->appendChild(std::exchange(group, nullptr).get());
    document->clearUndo();
  }

  /// The same with the objects beside the style and a line width of their own.
  void buildWithOwnValues() {
    build();
    for (const Object& object : objects) {
      object.element->setAttribute(Word::LineWidth, DoubleVariant(3));
      system->appendChild(object.element);
    }
    document->clearUndo();
  }

  void expectSound() {
    dom::walkSubtree<dom::Node>(*document, [](dom::Node& node) {
      const dom::Node* last = nullptr;
      for (const dom::Node* child = node.firstChild(); child; child = child->nextSibling()) {
        EXPECT_EQ(child->parent(), &node);
        EXPECT_EQ(child->previousSibling(), last);
        EXPECT_TRUE(child->isInDocument());
        last = child;
      }
      EXPECT_EQ(node.lastChild(), last);
      const PlotElement* element = PlotElement::from(&node);
      const PlotElement* found = element ? element->styleParent(Word::LineWidth) : nullptr;
      EXPECT_TRUE(!found || found->isInDocument());
      return true;
    });
  }

  /// Expects that the drawing was as in `before`, if the history reaches back so far.
  void expectThereAndBackFrom(const std::string& before) {
    if (GetParam() == 0) return;
    const std::string after = xml();
    while (document->canUndo()) document->undo();
    EXPECT_EQ(xml(), before);
    while (document->canRedo()) document->redo();
    EXPECT_EQ(xml(), after);
  }

  std::string xml() { return xmlOf(*document->documentElement()); }

  /// The node at that place in document order, the canvas being the first; null behind all.
  dom::Node* nodeAt(unsigned place) {
    dom::Node* found = nullptr;
    dom::walkSubtree<dom::Node>(*document, [&](dom::Node& node) {
      if (&node != document.get() && place-- == 0) found = &node;
      return true;
    });
    return found;
  }

  struct Object {
    Obj2d* element;
    Img2d* image;
    Poly2d* curves[3];
  };
  Canvas* canvas = nullptr;
  CoordinateSystem2d* system = nullptr;
  ObjStyle* style = nullptr;
  Ref<Group2d> group;
  Object objects[2] = {};
};

INSTANTIATE_TEST_SUITE_P(UndoLimits, ThievingObserverTest, testing::Values(100U, 0U));

TEST_P(ThievingObserverTest, WhatStaysOfATreeThatComesInIsResolved) {
  build();
  Poly2d* const first = objects[0].curves[0];
  const Ref<Poly2d> gone(objects[0].curves[1]);
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    if (isPropertyChange(event) && event.target == first) Removal(*gone).execute();
  });
  system->appendChild(group.get());
  EXPECT_EQ(first->lineWidth(), 7);
  EXPECT_EQ(gone->lineWidth(), 0) << "it had gone before it was its turn";
  EXPECT_EQ(objects[0].curves[2]->lineWidth(), 7);
  EXPECT_EQ(objects[1].curves[2]->lineWidth(), 7);
  expectSound();
}

TEST_P(ThievingObserverTest, EachNodeThatComesInMayBeTakenOutByItsFirstEvent) {
  build();
  const Ref<Poly2d> held(objects[0].curves[2]);
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    if (isPropertyChange(event)) Removal(*event.target).execute();
  });
  system->appendChild(group.get());
  EXPECT_EQ(xmlOf(*group),
            "<Group2d><Obj2d Type=\"Curve2d\"><Img2d></Img2d></Obj2d>"
            "<Obj2d Type=\"Curve2d\"><Img2d></Img2d></Obj2d></Group2d>");
  EXPECT_EQ(held->lineWidth(), 7);
  expectSound();
}

TEST_P(ThievingObserverTest, ACurveIsResolvedThoughAnObserverTakesTheStyleOut) {
  build();
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    if (isPropertyChange(event) && style) Removal(*std::exchange(style, nullptr)).execute();
  });
  system->appendChild(group.get());
  EXPECT_EQ(objects[0].curves[0]->lineWidth(), 7) << "it was its turn";
  EXPECT_EQ(objects[0].curves[1]->lineWidth(), 5);
}

TEST_P(ThievingObserverTest, AChangeOfAStyleReachesWhatStays) {
  buildWhole();
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    const bool isFirst = event.target == objects[0].curves[0];
    if (isPropertyChange(event) && isFirst) Removal(*objects[0].element).execute();
  });
  const Ref<Poly2d> gone(objects[0].curves[1]);
  style->setAttribute(Word::LineWidth, DoubleVariant(3));
  EXPECT_EQ(gone->lineWidth(), 7);
  for (const Poly2d* curve : objects[1].curves) EXPECT_EQ(curve->lineWidth(), 3);
  expectSound();
}

TEST_P(ThievingObserverTest, AChangeOfAPropertyIsCompleteThoughAnObserverThrows) {
  struct Thrown {};
  buildWithOwnValues();
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    if (isPropertyChange(event)) throw Thrown();
  });
  EXPECT_THROW(style->setPropertyValue(Word::LineWidth, DoubleVariant(3)), Thrown);
  for (const Object& object : objects) {
    EXPECT_FALSE(object.element->hasAttribute(Word::LineWidth));
    EXPECT_EQ(object.curves[0]->lineWidth(), 3);
  }
}

TEST_P(ThievingObserverTest, AllThatComesInIsResolvedThoughAnObserverThrows) {
  struct Thrown {};
  build();
  unsigned arrivals = 0;
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    if (isPropertyChange(event)) throw Thrown();
    if (event.type == dom::EventType::AfterReplaceChildren) ++arrivals;
  });
  EXPECT_THROW(system->appendChild(group.get()), Thrown);
  EXPECT_EQ(arrivals, 1U);
  for (const Object& object : objects) {
    for (const Poly2d* curve : object.curves) {
      EXPECT_EQ(curve->lineWidth(), 7);
      EXPECT_EQ(curve->lineColor2(), blue);
    }
  }
  EXPECT_THROW(style->setAttribute(Word::LineWidth, DoubleVariant(8)), Thrown);
  EXPECT_EQ(objects[1].curves[2]->lineWidth(), 8);
}

TEST_P(ThievingObserverTest, WhatIsDeferredWaitsForTheWholeChangeOfAProperty) {
  buildWithOwnValues();
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    if (event.target != style || !isPropertyChange(event)) return;
    document->executeDeferred(std::make_unique<Removal>(*objects[1].element));
  });
  const Ref<Obj2d> removed(objects[1].element);
  style->setPropertyValue(Word::LineWidth, DoubleVariant(3));
  EXPECT_FALSE(removed->parent());
  EXPECT_FALSE(removed->hasAttribute(Word::LineWidth)) << "it was there until the end";
}

TEST_P(ThievingObserverTest, ADeferredOperationIsCompleteThoughTheObserverThrows) {
  struct Thrown {};
  buildWithOwnValues();
  bool isFirst = true;
  const CallObserver observer(*document, [&](const dom::DomEvent& event) {
    if (!isPropertyChange(event) || !std::exchange(isFirst, false)) return;
    document->executeDeferred(
        std::make_unique<RemovalOfBoth>(*objects[0].element, *objects[1].element));
    throw Thrown();
  });
  const Ref<Obj2d> removed[] = {objects[0].element, objects[1].element};
  EXPECT_THROW(style->setPropertyValue(Word::LineWidth, DoubleVariant(3)), Thrown);
  for (const Ref<Obj2d>& object : removed) EXPECT_FALSE(object->parent());
}

/// Each node of the drawing is taken out at the first event of each kind for each target.
TEST_P(ThievingObserverTest, AnyNodeMayGoAtAnyTime) {
  const auto append = [this] { system->appendChild(group.get()); };
  const auto width = [](double value) { return DoubleVariant(value); };
  const struct {
    const char* name;
    bool hasUnrecorded;  // changes, so that no undo gives the start
    bool isMove;         // and so refused where its target has gone
    std::function<void()> prepare;
    std::function<void()> act;
  } cases[] = {
      {"append a tree", false, false, [&] { build(); }, append},
      {"append it again", true, false,
       [&] {
         build();
         append();
         document->undo();
       },
       [&] { document->redo(); }},
      {"take a removal back", true, false,
       [&] {
         buildWhole();
         Removal(*objects[0].element->parent()).execute();
       },
       [&] { document->undo(); }},
      {"move", false, true, [&] { buildWhole(); },
       [&] { system->appendChild(objects[0].element); }},
      {"attach anew", false, false, [&] { buildWhole(); }, [&] { canvas->attachedToDocument(); }},
      {"set an attribute of a style", false, false, [&] { buildWhole(); },
       [&] { style->setAttribute(Word::LineWidth, width(3)); }},
      {"take that back", true, false,
       [&] {
         buildWhole();
         style->setAttribute(Word::LineWidth, width(3));
       },
       [&] { document->undo(); }},
      {"remove an attribute of a style", false, false, [&] { buildWhole(); },
       [&] { style->removeAttribute(Word::LineWidth); }},
      {"set a property of a style", false, false, [&] { buildWithOwnValues(); },
       [&] { style->setPropertyValue(Word::LineWidth, width(3)); }},
      {"set a property of an object", false, false, [&] { buildWithOwnValues(); },
       [&] { objects[0].element->setPropertyValue(Word::LineWidth, width(7)); }},
      {"set a property of a curve", false, false, [&] { buildWhole(); },
       [&] { objects[0].curves[1]->setPropertyValue(Word::LineWidth, width(3)); }},
      {"set a property of a group", false, false, [&] { buildWhole(); },
       [&] {
         PlotElement::from(objects[0].element->parent())
             ->setPropertyValue(Word::Visible, BoolVariant(false));
       }},
      {"drop what is inherited", false, false,
       [&] {
         buildWhole();
         for (const Object& object : objects) {
           object.element->setAttribute(Word::LineColor, RGBAVariant(RGBA(0, 0, 1, 1)));
           object.element->setAttribute(Word::LineWidth, width(7));
         }
         style->setAttribute(Word::LineColor, RGBAVariant(RGBA(0, 0, 1, 1)));
       },
       [&] { objects[0].element->dropInheritedProperties(); }},
      {"drop what a curve inherits", false, false,
       [&] {
         buildWhole();
         for (Poly2d* curve : objects[0].curves) {
           curve->setAttribute(Word::LineWidth, width(7));
           curve->setAttribute(Word::Filled, BoolVariant(true));
         }
         style->setAttribute(Word::Filled, BoolVariant(true));
       },
       [&] { objects[0].curves[0]->dropInheritedProperties(); }},
      {"delete the selection", false, false,
       [&] {
         buildWhole();
         canvas->setAttribute(Word::Consistent, BoolVariant(true));
         system->setAttribute(Word::Consistent, BoolVariant(true));
         document->select(objects[0].element);
       },
       [&] { document->deleteSelection(); }},
      {"select", false, false,
       [&] {
         buildWhole();
         document->createRange(true);
         document->select(objects[0].element);
       },
       [&] { document->select(objects[1].element); }},
  };
  for (const auto& each : cases) {
    unsigned time = 0;
    for (bool hasHappened = true; hasHappened; ++time) {
      hasHappened = false;
      bool hasGone = true;
      for (unsigned place = 0; hasGone; ++place) {
        hasGone = false;
        for (const bool isDeferred : {false, true}) {
          SCOPED_TRACE(each.name + std::string(", time ") + std::to_string(time) + ", place " +
                       std::to_string(place) + (isDeferred ? ", deferred" : ""));
          each.prepare();
          if (!each.hasUnrecorded) document->clearUndo();
          const std::string before = xml();
          std::set<std::pair<const dom::Node*, Token>> seen;
          {
            const CallObserver observer(*document, [&](const dom::DomEvent& event) {
              const bool isNew = seen.insert({event.target, event.type}).second;
              if (!isNew || seen.size() != time + 1) return;
              hasHappened = true;
              dom::Node* victim = nodeAt(place);
              if (!victim) return;
              hasGone = true;
              auto removal = std::make_unique<Removal>(*victim);
              isDeferred ? document->executeDeferred(std::move(removal)) : removal->execute();
            });
            const int refusal = codeOf(each.act);
            EXPECT_TRUE(refusal == 0 || (each.isMove && refusal == DomException::HierarchyRequest))
                << refusal;
          }
          expectSound();
          if (!each.hasUnrecorded && document->firstChild()) expectThereAndBackFrom(before);
          ASSERT_FALSE(HasFailure());
        }
      }
    }
    const bool isWithoutHistory = each.hasUnrecorded && GetParam() == 0;  // nothing to take back
    EXPECT_GT(time, isWithoutHistory ? 0U : 1U) << each.name << " sends no event";
  }
}

}  // namespace
}  // namespace vantry::plot::test
