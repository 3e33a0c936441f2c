// Element classes of a host's own: which ones a document takes, and what they can do there.
#include <tuple>
#include <type_traits>
#include <typeinfo>

#include "plot_test.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/plot/elements/arrow2d.h"
#include "vantry/plot/elements/arrow3d.h"
#include "vantry/plot/elements/box.h"
#include "vantry/plot/elements/camera.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/circle3d.h"
#include "vantry/plot/elements/clipping_box.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/cone.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/elements/ellipsoid.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/expr_list.h"
#include "vantry/plot/elements/field2d.h"
#include "vantry/plot/elements/field3d.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/hints.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/lights.h"
#include "vantry/plot/elements/line2d.h"
#include "vantry/plot/elements/line3d.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/plane.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/property_info.h"
#include "vantry/plot/elements/pt2d.h"
#include "vantry/plot/elements/pts2d.h"
#include "vantry/plot/elements/pts3d.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/sphere.h"
#include "vantry/plot/elements/string_elements.h"
#include "vantry/plot/elements/surf3d.h"
#include "vantry/plot/elements/text2d.h"
#include "vantry/plot/elements/text3d.h"
#include "vantry/plot/elements/time_range.h"
#include "vantry/plot/elements/tr.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/elements/vertical_asymptote.h"
#include "vantry/plot/elements/view.h"
#include "vantry/plot/styles/obj_style.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot::test {
namespace {

using AllClasses = std::tuple<
    AmbientLight, Arc2d, Arrow2d, Arrow3d, AxesOriginX, AxesOriginY, AxesOriginZ, Box, Camera,
    Canvas, Circle3d, ClippingBox, ColorArray2d, ColorFunc, Cone, CoordinateSystem2d,
    CoordinateSystem2dStyle, CoordinateSystem3d, CoordinateSystem3dStyle, DensityArray2d,
    DistantLight, Ellipsoid, Expr, ExprSeq, Field2d, Field3d, Footer, Group2d, Group3d, Header,
    Hints, IExpr, Img2d, Img3d, LegendText, Line2d, Line3d, Lines3d, Matrix2d, Matrix3d, Mesh3d,
    Obj2d, Obj3d, ObjStyle, ObjType, ParameterBegin, ParameterEnd, ParameterName, Plane, Point2d,
    Point3d, PointLight, Points2d, Points3d, Poly2d, Poly3d, Prop, PropCat, PropInfo, Pt2d, Pts2d,
    Pts3d, Scene2d, Scene2dStyle, Scene3d, Scene3dStyle, Sphere, SpotLight, Surf3d, Text2d, Text3d,
    TextOrientation, TickPos, TimeRange, Title, TitlePositionX, TitlePositionY, TitlePositionZ,
    Tr2d, Tr3d, Transform2d, Transform3d, VExpr, VerticalAsymptote, View2d, View3d, ViewingBoxXMax,
    ViewingBoxXMin, ViewingBoxYMax, ViewingBoxYMin, ViewingBoxZMax, ViewingBoxZMin, XAxisTitle,
    XTicksAnchor, XTicksAt, XTicksDistance, YAxisTitle, YTicksAnchor, YTicksAt, YTicksDistance,
    ZAxisTitle, ZTicksAnchor, ZTicksAt, ZTicksDistance>;

/// A host's class for the elements of a class of the model.
template <class Model>
class Derived : public ElementOf<Derived<Model>, Model> {
 public:
  using ElementOf<Derived<Model>, Model>::ElementOf;
  bool visit() override { return false; }
};

/// Has the name of a class of the model and nothing else of it.
template <class Model>
class Impostor : public ElementOf<Impostor<Model>, PlotElement> {
 public:
  static constexpr Token tag = Model::tag;
  using ElementOf<Impostor<Model>, PlotElement>::ElementOf;
};

/// An element that is not of the model at all.
class Stranger : public dom::Element {
 public:
  Stranger(dom::Document* document, Token tag) : Element(document), tag_(tag) {}
  Ref<dom::Node> cloneNode(bool) const override { return new Stranger(*this); }
  Token tagName() const override { return tag_; }
  Variant getAttribute(Token) const override { return {}; }
  bool hasAttribute(Token) const override { return false; }
  void doSetAttribute(Token, const Variant&) override {}
  void doRemoveAttribute(Token) override {}

 private:
  Token tag_;
};

/// Has the members of a group, yet is none.
class HalfGroup : public ElementOf<HalfGroup, GroupBase> {
 public:
  static constexpr Token tag = Word::Group2d;
  using ElementOf::ElementOf;
  bool isContentChild(const dom::Node&) const override { return true; }
};

/// Is a group in the plane, and says that it is one in space.
class Renamed : public Group2d {
 public:
  using Group2d::Group2d;
  Token tagName() const override { return Word::Group3d; }
};

class HostTest : public PlotTest {
 protected:
  void expectRefused(dom::Node& parent, dom::Node* child) {
    takeComplaints();
    const std::string complaint = std::string("PlotDom error: not of the class of its name '") +
                                  child->nodeName().str() + "'\n";
    const unsigned length = parent.length();
    EXPECT_EQ(codeOf([&] { parent.appendChild(child); }), DomException::HierarchyRequest);
    EXPECT_EQ(takeComplaints(), complaint);
    EXPECT_EQ(codeOf([&] { parent.replaceChildren(nullptr, 0, child); }),
              DomException::HierarchyRequest);
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_EQ(parent.length(), length);
    EXPECT_FALSE(document->canUndo());
  }

  template <class Model>
  void checkClass() {
    SCOPED_TRACE(Model::tag.str());
    const Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
    const Ref<dom::Node> own(new Derived<Model>(document.get()));
    EXPECT_EQ(own->nodeName(), Model::tag);
    fragment->appendChild(own.get());
    EXPECT_EQ(own->parent(), fragment.get());
    EXPECT_EQ(elementCast<Model>(own.get()), own.get());
    EXPECT_EQ(PlotElement::from(own.get()), own.get());
    const Ref<dom::Node> copy(own->cloneNode(true));
    const dom::Node& copied = *copy;
    EXPECT_EQ(typeid(copied), typeid(Derived<Model>));

    const Ref<dom::Node> impostor(new Impostor<Model>(document.get()));
    EXPECT_EQ(elementCast<Model>(impostor.get()), nullptr);
    expectRefused(*fragment, impostor.get());
    const Ref<dom::Node> stranger(new Stranger(document.get(), Model::tag));
    EXPECT_EQ(elementCast<Model>(stranger.get()), nullptr);
    EXPECT_EQ(PlotElement::from(stranger.get()), nullptr);
    expectRefused(*fragment, stranger.get());
  }

  /// An element asks its document for more than each kind of document has.
  template <class Element>
  static void checkConstructor() {
    EXPECT_TRUE((std::is_constructible_v<Element, PlotDocument*>));
    EXPECT_FALSE((std::is_constructible_v<Element, dom::Document*>));
  }

  template <class... Models>
  static void checkConstructors(const std::tuple<Models...>*) {
    (checkConstructor<Models>(), ...);
    (checkConstructor<Derived<Models>>(), ...);
    checkConstructor<Impostor<Group2d>>();
  }

  template <class... Models>
  void checkClasses(const std::tuple<Models...>*) {
    (checkClass<Models>(), ...);
  }
};

TEST_F(HostTest, EachClassIsOpenAndNoOtherClassOfItsNameComesIn) {
  EXPECT_EQ(std::tuple_size_v<AllClasses>, elementNames().size());
  checkClasses(static_cast<const AllClasses*>(nullptr));
}

TEST_F(HostTest, NoElementIsMadeForADocumentOfAnotherKind) {
  checkConstructors(static_cast<const AllClasses*>(nullptr));
}

TEST_F(HostTest, AWrongClassIsRefusedWhereverItIsToGo) {
  const Ref<dom::Node> stranger(new Stranger(document.get(), Word::Canvas));
  expectRefused(*document, stranger.get());
  add<CoordinateSystem2d>(*add<Scene2d>(*add<Canvas>(*document)));
  const Ref<Group2d> apart = make<Group2d>();
  dom::Node& system = *document->firstChild()->firstChild()->firstChild();
  document->clearUndo();
  for (dom::Node* parent : {&system, static_cast<dom::Node*>(apart.get())}) {
    expectRefused(*parent, Ref<dom::Node>(new HalfGroup(document.get())).get());
    expectRefused(*parent, Ref<dom::Node>(new Renamed(document.get())).get());
    expectRefused(*parent, Ref<dom::Node>(new Stranger(document.get(), Word::Obj2d)).get());
    expectRefused(*parent, Ref<dom::Node>(new Stranger(document.get(), token("Unknown"))).get());
  }
  // Among others, too.
  const Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
  const Ref<dom::Node> unchecked(new Stranger(document.get(), Word::Obj2d));
  add<Obj2d>(*fragment);
  fragment->doReplaceChildren(nullptr, 0, unchecked.get());
  EXPECT_EQ(codeOf([&] { system.appendChild(fragment.get()); }), DomException::HierarchyRequest);
  EXPECT_EQ(fragment->length(), 2U);
  EXPECT_EQ(system.length(), 0U);
}

TEST_F(HostTest, WhatCameInUncheckedIsPassedOver) {
  Canvas* canvas = add<Canvas>(*document);
  CoordinateSystem2d* system = add<CoordinateSystem2d>(*add<Scene2d>(*canvas));
  for (const Token name : {Word::ObjStyle, Word::Group2d, Word::Scene2dStyle}) {
    const Ref<dom::Node> stranger(new Stranger(document.get(), name));
    canvas->doReplaceChildren(nullptr, 0, stranger.get());
    const Ref<dom::Node> another(new Stranger(document.get(), name));
    system->doReplaceChildren(nullptr, 0, another.get());
  }
  Obj2d* object = add<Obj2d>(*system, {{Word::Type, "Curve2d"}});
  EXPECT_EQ(object->lineWidth(), 0.5);
  ObjStyle* style = add<ObjStyle>(*canvas, {{Word::Type, "Curve2d"}});
  style->setPropertyValue(Word::LineWidth, DoubleVariant(4));
  EXPECT_EQ(object->lineWidth(), 4);
  document->visitElements();
  std::ostringstream out;
  document->printCommands(out, false);
  EXPECT_EQ(codeOf([&] { document->writeXml(out); }), DomException::InvalidState);
}

/// A group of a host that overrides what there is to override.
class HostGroup : public ElementOf<HostGroup, Group2d> {
 public:
  using ElementOf::ElementOf;

  bool visit() override { return note("visit"); }
  void timeStep(double time, bool, double& result) override { result = time + 1; }
  bool beginCommand(CmdWriter& writer) const override {
    note("beginCommand");
    return ElementOf::beginCommand(writer);
  }
  void endCommand(CmdWriter& writer) const override {
    note("endCommand");
    ElementOf::endCommand(writer);
  }
  bool canSetAttribute(Token key, const Variant& value) const override {
    return key != Word::Name && ElementOf::canSetAttribute(key, value);
  }
  bool isContentChild(const dom::Node& node) const override {
    return node.nodeName() != Word::ObjStyle && ElementOf::isContentChild(node);
  }
  bool afterSetAttribute(Element& origin, Token key) override {
    note("afterSetAttribute");
    return ElementOf::afterSetAttribute(origin, key);
  }
  bool parentPropertyChanged(PlotElement& source, Token key) override {
    note("parentPropertyChanged");
    return ElementOf::parentPropertyChanged(source, key);
  }
  void propertyChanged(PlotElement&, Token) override { note("propertyChanged"); }
  void doReplaceChildren(dom::Node* first, unsigned count, dom::Node* newChildren) override {
    note("doReplaceChildren");
    ElementOf::doReplaceChildren(first, count, newChildren);
  }

  mutable std::vector<std::string> log;

 protected:
  void onAttached() override {
    note("onAttached");
    ElementOf::onAttached();
  }

 private:
  bool note(const char* hook) const {
    log.emplace_back(hook);
    return true;
  }
};

/// A group that leaves when it is visited.
class LeavingGroup : public ElementOf<LeavingGroup, Group2d> {
 public:
  using ElementOf::ElementOf;
  bool visit() override {
    parent()->removeChild(this);
    return true;
  }
};

TEST_F(HostTest, AnElementMayLeaveWhenItIsVisited) {
  Canvas* canvas = add<Canvas>(*document);
  for (const unsigned limit : {0U, 100U}) {
    document->setUndoLimit(limit);
    CoordinateSystem2d* system = add<CoordinateSystem2d>(*add<Scene2d>(*canvas));
    for (int i = 0; i < 2; ++i) {
      system->appendChild(Ref<LeavingGroup>(new LeavingGroup(document.get())).get());
      add<Obj2d>(*system->lastChild(), {{Word::Type, "Curve2d"}});
    }
    const Ref<HostGroup> last(new HostGroup(document.get()));
    system->appendChild(last.get());
    document->visitElements();
    EXPECT_EQ(system->firstChild(), last.get());
    EXPECT_EQ(last->log.back(), "visit");
  }
}

TEST_F(HostTest, TheHooksOfAHostsClassAreCalled) {
  using Log = std::vector<std::string>;
  Canvas* canvas = add<Canvas>(*document);
  CoordinateSystem2d* system = add<CoordinateSystem2d>(*add<Scene2d>(*canvas));
  ObjStyle* style = add<ObjStyle>(*system, {{Word::Type, "Curve2d"}});
  const Ref<HostGroup> group(new HostGroup(document.get()));
  const auto take = [&group] { return std::exchange(group->log, {}); };

  system->appendChild(group.get());
  EXPECT_EQ(take(), Log{"onAttached"});
  Obj2d* object = add<Obj2d>(*group, {{Word::Type, "Curve2d"}});
  EXPECT_EQ(take(), Log{"doReplaceChildren"});
  document->visitElements();
  EXPECT_EQ(take(), Log{"visit"});
  style->setPropertyValue(Word::LineWidth, DoubleVariant(4));
  EXPECT_EQ(take(), (Log{"parentPropertyChanged", "propertyChanged"}));
  EXPECT_EQ(object->lineWidth(), 4);
  group->setAttribute(Word::Visible, BoolVariant(false));
  EXPECT_EQ(take(), (Log{"afterSetAttribute", "parentPropertyChanged"}));
  std::ostringstream out;
  document->printCommands(out, false);
  EXPECT_EQ(take(), (Log{"beginCommand", "endCommand"}));

  EXPECT_EQ(codeOf([&] { group->setAttribute(Word::Name, FixedStringVariant("x")); }),
            DomException::HierarchyRequest);
  EXPECT_EQ(codeOf([&] {
              add<ObjStyle>(*group, {{Word::Type, "Curve2d"}});
            }),
            DomException::HierarchyRequest);
  EXPECT_EQ(xmlOf(*group), "<Group2d Visible=\"0\"><Obj2d Type=\"Curve2d\"></Obj2d></Group2d>");
}

/// A document whose elements are a host's where it has a class for them.
class HostDocument : public PlotDocument {
 protected:
  ~HostDocument() override = default;
  Ref<dom::Element> newElement(Token name) override {
    if (name == Word::Group2d) return new HostGroup(this);
    if (name == Word::Title) return new Impostor<Title>(this);
    if (name == Word::Header) return new Stranger(this, name);
    return PlotDocument::newElement(name);
  }
};

TEST_F(HostTest, AHostsDocumentMakesTheHostsElements) {
  const Ref<PlotDocument> own = new HostDocument;
  const Ref<PlotElement> group(own->createElement(Word::Group2d));
  const Ref<PlotElement> object(own->createElement(Word::Obj2d));
  const Ref<PlotElement> title(own->createElement(Word::Title));
  group->appendChild(object.get());
  EXPECT_EQ(group->firstChild(), object.get());
  EXPECT_EQ(codeOf([&] { object->appendChild(title.get()); }), DomException::HierarchyRequest);
  EXPECT_FALSE(own->createElement(Word::Header)) << "no element of the model";
}

}  // namespace
}  // namespace vantry::plot::test
