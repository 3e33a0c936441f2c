// Random changes of a drawing, all undone and all redone.
#include "../random_changes.h"
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
};

TEST_P(RandomDrawingTest, AllIsUndoneAndRedone) {
  buildDrawing();
  const std::string before = xmlOf(*document);
  RandomChanges changes(*document, GetParam());
  constexpr unsigned steps = 300;
  for (unsigned i = 0; i < steps; ++i) {
    if (changes.below(3) == 0) document->startUndoGroup();
    changes.changeSomething();
    if (i % 10 == 0) document->undo();
    if (i % 20 == 0) document->redo();
  }
  const std::string after = xmlOf(*document);
  EXPECT_NE(after, before);
  EXPECT_LT(changes.refusals(), steps / 2);

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
