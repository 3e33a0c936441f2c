// The drawing as a call of the algebra system's plot command.
#include <sstream>

#include "plot_test.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/expr_list.h"
#include "vantry/plot/framework/library_element.h"
#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot::test {
namespace {

class CommandTest : public PlotTest {
 protected:
  std::string commandOf(const PlotElement& element, Token unit = Word::MM) {
    std::ostringstream out;
    CmdWriter writer(out, unit);
    element.printCommand(writer);
    return out.str();
  }

  std::string commands(bool replot = false) {
    std::ostringstream out;
    document->printCommands(out, replot);
    return out.str();
  }

  /// A new element with a text.
  Ref<PlotElement> makeWithText(Token name, const char* text, Attributes attributes = {}) {
    const Ref<PlotElement> element = make(name, attributes);
    addText(*element, text);
    return element;
  }

  /// A list of IExpr with these texts, in place of those that it was made with.
  Ref<PlotElement> makeTuple(Token name, std::initializer_list<const char*> texts,
                             Attributes attributes = {}) {
    const Ref<PlotElement> tuple = make(name, attributes);
    if (tuple->firstChild())
      tuple->doReplaceChildren(tuple->firstChild(), tuple->length(), nullptr);
    for (const char* text : texts) {
      tuple->doReplaceChildren(nullptr, 0, makeWithText(Word::IExpr, text).get());
    }
    return tuple;
  }
};

TEST_F(CommandTest, WithoutARootThereIsNothing) {
  EXPECT_EQ(commands(), "");
  EXPECT_EQ(commands(true), "");
}

TEST_F(CommandTest, TheFrame) {
  add<Canvas>(*document);
  EXPECT_EQ(commands(),
            "plot(\n"
            "  plot::Canvas(\n"
            ")):");
  EXPECT_EQ(commands(true),
            "plot::replot(\n"
            "  plot::Canvas(\n"
            ")):");
}

TEST_F(CommandTest, SizesAreWrittenInTheUnitOfTheCanvas) {
  const Ref<PlotElement> canvas = make(Word::Canvas, {{Word::Width, "25.4"}});
  document->appendChild(canvas.get());
  EXPECT_EQ(commands(), "plot(\n  plot::Canvas(\n    Width=25.4)):");

  const auto with = [&](const char* unit) {
    canvas->removeAttribute(Word::Width);
    canvas->setAttributeFromString(Word::OutputUnits, unit);
    const std::string alone = commands();
    add(*canvas, Word::Scene2d, {{Word::Width, "25.4"}});
    std::string both = commands();
    canvas->removeChild(canvas->lastChild());
    return alone + "\n" + both;
  };
  EXPECT_EQ(with("In"),
            "plot(\n  plot::Canvas(\n    OutputUnits=unit::inch)):\n"
            "plot(\n  plot::Canvas(\n    OutputUnits=unit::inch,\n    plot::Scene2d(\n"
            "      Width=1))):");
  EXPECT_EQ(with("Pt"),
            "plot(\n  plot::Canvas(\n    OutputUnits=unit::pt)):\n"
            "plot(\n  plot::Canvas(\n    OutputUnits=unit::pt,\n    plot::Scene2d(\n"
            "      Width=72))):");
  EXPECT_EQ(with("MM"),
            "plot(\n  plot::Canvas(\n    OutputUnits=unit::mm)):\n"
            "plot(\n  plot::Canvas(\n    OutputUnits=unit::mm,\n    plot::Scene2d(\n"
            "      Width=25.4))):");
}

TEST_F(CommandTest, ADrawing) {
  PlotElement* canvas = add(*document, Word::Canvas, {{Word::Name, "A \"plot\""}});
  add(*canvas, Word::ObjStyle, {{Word::Type, "Default"}, {Word::LineWidth, "0.25"}});
  add(*canvas, Word::Scene2dStyle, {{Word::BackgroundColor, "#ff0000"}});
  PlotElement* scene = add(*canvas, Word::Scene2d);
  scene->appendChild(makeWithText(Word::Header, "x\ny").get());
  PlotElement* system = add(*scene, Word::CoordinateSystem2d, {{Word::AutoViewingBox, "2"}});
  system->appendChild(makeWithText(Word::ViewingBoxXMin, "-1").get());
  system->appendChild(makeWithText(Word::ViewingBoxXMax, "1").get());
  PlotElement* group = add(*system, Word::Group2d, {{Word::Visible, "0"}});
  PlotElement* object = add(*group, Word::Obj2d, {{Word::Type, "Function2d"}});
  object->appendChild(makeWithText(Word::Expr, "sin(x)", {{Word::Opt, "Function"}}).get());
  PlotElement* image = add(*object, Word::Img2d);
  add(*image, Word::Poly2d);
  EXPECT_EQ(commands(),
            "plot(\n"
            "  plot::Canvas(\n"
            "    Name=\"A \\\"plot\\\"\",\n"
            "    LineWidth=0.25,\n"
            "    plot::Scene2d::BackgroundColor=[1,0,0],\n"
            "    plot::Scene2d(\n"
            "      Header=\"x\\ny\",\n"
            "      plot::CoordinateSystem2d(\n"
            "        AutoViewingBox=2,\n"
            "        ViewingBoxXMin=(-1),\n"
            "        plot::Group2d(\n"
            "          Visible=FALSE,\n"
            "          plot::Function2d(\n"
            "            Function=(sin(x)))))))):");
}

TEST_F(CommandTest, ClassNames) {
  const auto nameOf = [](const PlotElement& element) {
    std::ostringstream out;
    CmdWriter writer(out, Word::MM);
    static_cast<const AttributeListElement&>(element).printClassName(writer);
    return out.str();
  };
  EXPECT_EQ(nameOf(*make(Word::Canvas)), "Canvas");
  EXPECT_EQ(nameOf(*make(Word::Scene3d)), "Scene3d");
  EXPECT_EQ(nameOf(*make(Word::CoordinateSystem2d)), "CoordinateSystem2d");
  EXPECT_EQ(nameOf(*make(Word::Obj3d, {{Word::Type, "Surface"}})), "Surface");
  EXPECT_EQ(nameOf(*make(Word::Obj3d)), "");
  EXPECT_EQ(nameOf(*make(Word::ObjStyle, {{Word::Type, "Curve2d"}})), "Curve2d");
  EXPECT_EQ(nameOf(*make(Word::ObjStyle)), "");
  EXPECT_EQ(nameOf(*make(Word::Scene2dStyle)), "Scene2d");
  EXPECT_EQ(nameOf(*make(Word::Scene3dStyle)), "Scene3d");
  EXPECT_EQ(nameOf(*make(Word::CoordinateSystem2dStyle)), "CoordinateSystem2d");
  EXPECT_EQ(nameOf(*make(Word::CoordinateSystem3dStyle)), "CoordinateSystem3d");
}

TEST_F(CommandTest, Styles) {
  EXPECT_EQ(commandOf(*make(Word::ObjStyle, {{Word::Type, "Curve2d"}, {Word::Filled, "1"}})),
            "  plot::Curve2d::Filled=TRUE");
  EXPECT_EQ(commandOf(*make(Word::ObjStyle, {{Word::Type, "Default"}, {Word::Filled, "1"}})),
            "  Filled=TRUE");
  EXPECT_EQ(commandOf(*make(Word::ObjStyle, {{Word::LineWidth, "0.25"}})),
            "  plot::::LineWidth=0.25")
      << "the type is not known";
  EXPECT_EQ(commandOf(*make(Word::CoordinateSystem3dStyle, {{Word::Axes, "Frame"}})),
            "  plot::CoordinateSystem3d::Axes=Frame");
  EXPECT_EQ(commandOf(*make(Word::Scene2dStyle)), "");
  EXPECT_EQ(commandOf(*make(Word::Scene3dStyle, {{Word::Width, "25.4"}, {Word::Lighting, "None"}}),
                      Word::In),
            "  plot::Scene3d::Lighting=None,\n  plot::Scene3d::Width=1")
      << "in alphabetical order";
}

TEST_F(CommandTest, WhatIsNoArgumentOfACommand) {
  EXPECT_EQ(commandOf(*make(Word::Obj2d, {{Word::Type, "Curve2d"}, {Word::Consistent, "1"}})),
            "  plot::Curve2d(\n)");
  EXPECT_EQ(commandOf(*make(Word::Obj2d, {{Word::Type, "Curve2d"}, {Word::Id, "a\"b"}})),
            "  plot::Curve2d(\n    id=\"a\"b\")");
}

TEST_F(CommandTest, ThePlaceOfASceneIsASizeOrAPartOfTheCanvas) {
  const Ref<PlotElement> canvas = make(Word::Canvas);
  PlotElement* scene = add(*canvas, Word::Scene2d, {{Word::Bottom, "25.4"}});
  EXPECT_EQ(commandOf(*scene, Word::In), "  plot::Scene2d(\n    Bottom=1)");
  canvas->setAttributeFromString(Word::Layout, "Absolute");
  EXPECT_EQ(commandOf(*scene, Word::In), "  plot::Scene2d(\n    Bottom=1)");
  canvas->setAttributeFromString(Word::Layout, "Relative");
  EXPECT_EQ(commandOf(*scene, Word::In), "  plot::Scene2d(\n    Bottom=25.4)");
  scene->removeAttribute(Word::Bottom);
  scene->setAttributeFromString(Word::Left, "25.4");
  EXPECT_EQ(commandOf(*scene, Word::In), "  plot::Scene2d(\n    Left=25.4)");
  EXPECT_EQ(commandOf(*make(Word::Scene3d, {{Word::Left, "25.4"}}), Word::In),
            "  plot::Scene3d(\n    Left=1)")
      << "outside of a canvas";
}

TEST_F(CommandTest, GroupsAndTransforms) {
  EXPECT_EQ(commandOf(*make(Word::Group3d)), "  plot::Group3d(\n)");
  EXPECT_EQ(commandOf(*make(Word::Group3d, {{Word::Name, "g"}})),
            "  plot::Group3d(\n    Name=\"g\")");
  const Ref<PlotElement> transform =
      make(Word::Transform2d, {{Word::Type, "Rotate2d"}, {Word::Frames, "3"}});
  transform->appendChild(makeWithText(Word::Expr, "PI", {{Word::Opt, "Angle"}}).get());
  add(*transform, Word::Tr2d);
  transform->appendChild(makeTuple(Word::Matrix2d, {"1", "0", "0", "1"}).get());
  EXPECT_EQ(commandOf(*transform),
            "  plot::Rotate2d(\n"
            "    Frames=3,\n"
            "    Angle=(PI),\n"
            "    Matrix2d=[1,0,0,1])");
  EXPECT_EQ(commandOf(*make(Word::Transform3d)), "  plot::(\n)") << "the type is not known";
}

TEST_F(CommandTest, Texts) {
  EXPECT_EQ(commandOf(*makeWithText(Word::Title, "a \"b\" \\ c")),
            "  Title=\"a \\\"b\\\" \\\\ c\"");
  EXPECT_EQ(commandOf(*make(Word::Footer)), "  Footer=\"\"");
  const Ref<PlotElement> title = makeWithText(Word::LegendText, "one ");
  addText(*title, "two");
  EXPECT_EQ(commandOf(*title), "  LegendText=\"one two\"");
}

TEST_F(CommandTest, NamedExpressions) {
  EXPECT_EQ(commandOf(*makeWithText(Word::ParameterName, "a")), "  ParameterName=(a)");
  EXPECT_EQ(commandOf(*makeWithText(Word::ParameterName, " \n")), "  ParameterName=NIL");
  EXPECT_EQ(commandOf(*make(Word::TitlePositionX)), "  TitlePositionX=NIL");
  EXPECT_EQ(commandOf(*makeWithText(Word::ParameterEnd, "2*PI", {{Word::Val, "6.28"}})),
            "  ParameterEnd=(2*PI)");
  EXPECT_EQ(commandOf(*make(Word::XTicksDistance, {{Word::Val, "1"}})), "  XTicksDistance=NIL");
  EXPECT_EQ(commandOf(*makeWithText(Word::Expr, "a<\"b\"", {{Word::Opt, "Function"}})),
            "  Function=(a<\"b\")")
      << "as it is";
  EXPECT_EQ(commandOf(*make(Word::Expr, {{Word::Opt, "Function"}})), "  Function=NIL");
  EXPECT_EQ(commandOf(*make(Word::Expr)), "  =NIL");
}

TEST_F(CommandTest, BoundsThatTheAlgebraSystemComputesAreLeftOut) {
  for (const Token name : {Word::CoordinateSystem2d, Word::CoordinateSystem3d}) {
    const Ref<PlotElement> system = make(name);
    const auto boundOf = [&](Token part) {
      const Ref<PlotElement> bound = makeWithText(part, "7");
      system->doReplaceChildren(nullptr, 0, bound.get());
      return commandOf(*bound);
    };
    const Token parts[] = {Word::ViewingBoxXMin, Word::ViewingBoxXMax, Word::ViewingBoxYMin,
                           Word::ViewingBoxYMax, Word::ViewingBoxZMin, Word::ViewingBoxZMax};
    for (int i = 0; i < 6; ++i) {
      const std::string written = std::string("  ") + parts[i].str() + "=(7)";
      EXPECT_EQ(boundOf(parts[i]), i < 5 ? "" : written) << "31 leaves the last part out";
      system->setAttribute(Word::AutoViewingBox, LongVariant(63 & ~(1 << i)));
      EXPECT_EQ(boundOf(parts[i]), written);
      system->setAttribute(Word::AutoViewingBox, LongVariant(1 << i));
      EXPECT_EQ(boundOf(parts[i]), "");
      system->removeAttribute(Word::AutoViewingBox);
    }
  }
  EXPECT_EQ(commandOf(*makeWithText(Word::ViewingBoxXMin, "7")), "  ViewingBoxXMin=(7)")
      << "outside of a coordinate system";
}

TEST_F(CommandTest, ListsOfExpressions) {
  EXPECT_EQ(commandOf(*makeWithText(Word::IExpr, "a+b")), "a+b");
  EXPECT_EQ(commandOf(*make(Word::IExpr)), "NIL");
  EXPECT_EQ(commandOf(*makeWithText(Word::VExpr, "c", {{Word::Val, "3"}})), "c");
  EXPECT_EQ(commandOf(*make(Word::VExpr, {{Word::Val, "3"}})), "NIL");

  EXPECT_EQ(commandOf(*make(Word::ExprSeq, {{Word::Opt, "Contours"}})), "  Contours=NIL");
  EXPECT_EQ(commandOf(*makeTuple(Word::ExprSeq, {"1"}, {{Word::Opt, "Contours"}})),
            "  Contours=[1]");
  EXPECT_EQ(commandOf(*makeTuple(Word::ExprSeq, {"1", "", "3"}, {{Word::Opt, "Contours"}})),
            "  Contours=[1,NIL,3]");

  EXPECT_EQ(commandOf(*make(Word::ColorFunc, {{Word::Opt, "LineColorFunction"}})),
            "  LineColorFunction=NIL");
  EXPECT_EQ(commandOf(*makeTuple(Word::ColorFunc, {"f"}, {{Word::Opt, "LineColorFunction"}})),
            "  LineColorFunction=(f)");
  EXPECT_EQ(commandOf(*makeTuple(Word::ColorFunc, {"f", "g"}, {{Word::Opt, "LineColorFunction"}})),
            "  LineColorFunction=[f,g]");
  EXPECT_EQ(commandOf(*makeTuple(Word::ColorFunc, {" ", "g"}, {{Word::Opt, "LineColorFunction"}})),
            "  LineColorFunction=NIL");
}

TEST_F(CommandTest, Matrices) {
  EXPECT_EQ(commandOf(*make(Word::Matrix2d)), "  Matrix2d=NIL");
  EXPECT_EQ(commandOf(*makeTuple(Word::Matrix2d, {"", "2", "3", "4"})), "  Matrix2d=NIL")
      << "a blank first entry is enough";
  EXPECT_EQ(commandOf(*makeTuple(Word::Matrix2d, {"1", "", "3", "4"})), "  Matrix2d=[1,NIL,3,4]");
  EXPECT_EQ(commandOf(*make(Word::Matrix3d)), "  Matrix3d=NIL");
  EXPECT_EQ(commandOf(*makeTuple(Word::Matrix3d, {"1", "2", "3", "4", "5", "6", "7", "8", "9"})),
            "  Matrix3d=[1,2,3,4,5,6,7,8,9]");
  EXPECT_EQ(commandOf(*make(Word::TextOrientation)), "  TextOrientation=NIL");
  EXPECT_EQ(commandOf(*makeTuple(Word::TextOrientation, {"1", "2", "3", "4", "5", "6"})),
            "  TextOrientation=[1,2,3,4,5,6]");
}

TEST_F(CommandTest, Points) {
  EXPECT_EQ(commandOf(*make(Word::Points2d)), "  Points2d=NIL");
  EXPECT_EQ(commandOf(*make(Word::Point2d)), "  [NIL,NIL]");
  const Ref<PlotElement> points = make(Word::Points3d);
  points->appendChild(makeTuple(Word::Point3d, {"1", "2", "3"}).get());
  points->appendChild(makeTuple(Word::Point3d, {"4", "5", "6", "RGB::Red"}).get());
  EXPECT_EQ(commandOf(*points),
            "  Points3d=[\n"
            "    [1,2,3],\n"
            "    [4,5,6,RGB::Red]]");
}

TEST_F(CommandTest, TickMarks) {
  EXPECT_EQ(commandOf(*make(Word::XTicksAt)), "  XTicksAt=NIL");
  const auto makeTick = [this](const char* place, const char* title) {
    const Ref<PlotElement> tick = make(Word::TickPos);
    addText(*tick->firstChild(), place);
    if (title) tick->appendChild(makeWithText(Word::Title, title).get());
    return tick;
  };
  EXPECT_EQ(commandOf(*makeTick("1/2", nullptr)), "  1/2");
  EXPECT_EQ(commandOf(*makeTick("1/2", "half \"1\"")), "  (1/2)=\"half \\\"1\\\"\"");
  EXPECT_EQ(commandOf(*make(Word::TickPos)), "  NIL");
  const Ref<PlotElement> ticks = make(Word::YTicksAt);
  ticks->appendChild(makeTick("0", nullptr).get());
  ticks->appendChild(makeTick("1", "one").get());
  EXPECT_EQ(commandOf(*ticks),
            "  YTicksAt=[    0,\n"
            "    (1)=\"one\"]");

  const Ref<PlotElement> bare = make(Word::TickPos);
  bare->doReplaceChildren(bare->firstChild(), 1, nullptr);
  EXPECT_EQ(commandOf(*bare), "");
}

TEST_F(CommandTest, WhatHasNoCommandForm) {
  for (const Token name :
       {Word::Hints, Word::TimeRange, Word::View2d, Word::View3d, Word::Img2d, Word::Img3d,
        Word::Tr2d, Word::Tr3d, Word::Poly2d, Word::Mesh3d, Word::Camera, Word::Prop, Word::ObjType,
        Word::PropCat, Word::PropInfo, Word::ClippingBox}) {
    EXPECT_EQ(commandOf(*make(name)), "") << name.str();
  }
}

TEST_F(CommandTest, ADeepDrawingCostsNoStack) {
  constexpr int depth = 100000;
  PlotElement* canvas = add(*document, Word::Canvas);
  Ref<dom::Node> top = make(Word::Obj2d, {{Word::Type, "Curve2d"}});
  for (int i = 0; i < depth; ++i) {
    const Ref<PlotElement> group = make(Word::Group2d);
    group->appendChild(top.get());
    top = group.get();
  }
  add(*add(*canvas, Word::Scene2d), Word::CoordinateSystem2d)->appendChild(top.get());

  struct Counter : std::streambuf {
    std::size_t written = 0;
    int overflow(int c) override { return ++written, c; }
    std::streamsize xsputn(const char*, std::streamsize count) override {
      written += static_cast<std::size_t>(count);
      return count;
    }
  } counter;
  std::ostream out(&counter);
  document->printCommands(out, false);
  EXPECT_GT(counter.written, static_cast<std::size_t>(depth) * depth) << "the indentation";
}

}  // namespace
}  // namespace vantry::plot::test
