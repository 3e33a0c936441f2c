// Which child a parent takes, and what is reported where it takes none.
#include <algorithm>
#include <map>
#include <set>
#include <span>

#include "catalogue.h"
#include "plot_test.h"
#include "vantry/dom/range.h"
#include "vantry/dom/text.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/framework/element_with_children.h"

namespace vantry::plot::test {
namespace {

using Names = std::vector<std::string>;

/// What a parent takes: plain children, and options, of each of them one. `counterpart` are the
/// options of its counterpart in the other dimension, for which it has a complaint of their own.
struct Content {
  Names plain;
  Names options = {};
  Names counterpart = {};
};

const std::map<std::string, Content> contents = {
    {"Canvas",
     {{"Scene2d", "Scene3d", "ObjStyle", "ObjType"},
      {"Header", "Footer", "Scene2dStyle", "Scene3dStyle", "CoordinateSystem2dStyle",
       "CoordinateSystem3dStyle", "TimeRange"}}},
    {"Scene2d",
     {{"CoordinateSystem2d", "ObjStyle"},
      {"Header", "Footer", "View2d", "CoordinateSystem2dStyle"},
      {"View3d", "ClippingBox", "CoordinateSystem3dStyle"}}},
    {"Scene3d",
     {{"CoordinateSystem3d", "ObjStyle"},
      {"Header", "Footer", "View3d", "ClippingBox", "CoordinateSystem3dStyle"},
      {"View2d", "CoordinateSystem2dStyle"}}},
    {"CoordinateSystem2d",
     {{"Obj2d", "Group2d", "Transform2d", "ObjStyle"},
      {"ViewingBoxXMin", "ViewingBoxXMax", "ViewingBoxYMin", "ViewingBoxYMax", "AxesOriginX",
       "AxesOriginY", "XAxisTitle", "YAxisTitle", "XTicksAnchor", "YTicksAnchor", "XTicksDistance",
       "YTicksDistance", "XTicksAt", "YTicksAt", "Hints"},
      {"ViewingBoxZMin", "ViewingBoxZMax", "AxesOriginZ", "ZAxisTitle", "ZTicksAnchor",
       "ZTicksDistance", "ZTicksAt"}}},
    {"CoordinateSystem3d",
     {{"Obj3d", "Group3d", "Transform3d", "ObjStyle"},
      {"ViewingBoxXMin", "ViewingBoxXMax", "ViewingBoxYMin", "ViewingBoxYMax", "ViewingBoxZMin",
       "ViewingBoxZMax", "AxesOriginX",    "AxesOriginY",    "AxesOriginZ",    "XAxisTitle",
       "YAxisTitle",     "ZAxisTitle",     "XTicksAnchor",   "YTicksAnchor",   "ZTicksAnchor",
       "XTicksDistance", "YTicksDistance", "ZTicksDistance", "XTicksAt",       "YTicksAt",
       "ZTicksAt",       "Hints"}}},
    {"Group2d", {{"Obj2d", "Group2d", "Transform2d", "ObjStyle"}}},
    {"Group3d", {{"Group3d", "Transform3d", "ObjStyle"}}},  // and Obj3d by its type
    {"Transform2d",
     {{"Expr", "Tr2d", "Obj2d", "Group2d", "Transform2d"},
      {"ParameterName", "ParameterBegin", "ParameterEnd", "Matrix2d"},
      {"Matrix3d"}}},
    {"Transform3d",
     {{"Expr", "Tr3d", "Group3d", "Transform3d"},  // and Obj3d by its type
      {"ParameterName", "ParameterBegin", "ParameterEnd", "Matrix3d"},
      {"Matrix2d"}}},
    {"Obj2d",
     {{"Expr", "ExprSeq", "ColorFunc", "Prop", "Img2d"},
      {"ParameterName", "ParameterBegin", "ParameterEnd", "Title", "TitlePositionX",
       "TitlePositionY", "LegendText", "Points2d"},
      {"TitlePositionZ", "Points3d", "TextOrientation"}}},
    {"Obj3d",
     {{"Expr", "ExprSeq", "ColorFunc", "Prop", "Img3d"},
      {"ParameterName", "ParameterBegin", "ParameterEnd", "Title", "TitlePositionX",
       "TitlePositionY", "TitlePositionZ", "LegendText", "Points3d", "TextOrientation"},
      {"Points2d"}}},
    {"Img2d",
     {{"Poly2d", "Arc2d", "Pt2d", "Pts2d", "Line2d", "Arrow2d", "Text2d", "VerticalAsymptote",
       "Field2d", "ColorArray2d", "DensityArray2d"}}},
    {"Img3d", {{"Mesh3d",       "Pts3d",     "Line3d",     "Lines3d", "Surf3d",       "Field3d",
                "Arrow3d",      "Box",       "Circle3d",   "Cone",    "Sphere",       "Ellipsoid",
                "Plane",        "Text3d",    "Poly3d",     "Camera",  "AmbientLight", "PointLight",
                "DistantLight", "SpotLight", "ClippingBox"}}},
    {"TickPos", {{}, {"VExpr", "Title"}}},
    {"ObjStyle", {}},
    {"Scene2dStyle", {}},
    {"Scene3dStyle", {}},
    {"CoordinateSystem2dStyle", {}},
    {"CoordinateSystem3dStyle", {}},
};

/// A tick mark has its place from the start.
const std::string requiredIn(const std::string& parent) {
  return parent == "TickPos" ? "VExpr" : "";
}

/// Elements that take text, and say so when they are given anything else.
const std::set<std::string> textParents = {
    "Text2d",         "Text3d",         "Header",         "Footer",         "Title",
    "LegendText",     "XAxisTitle",     "YAxisTitle",     "ZAxisTitle",     "Expr",
    "IExpr",          "VExpr",          "ParameterName",  "TitlePositionX", "TitlePositionY",
    "TitlePositionZ", "AxesOriginX",    "AxesOriginY",    "AxesOriginZ",    "ParameterBegin",
    "ParameterEnd",   "XTicksAnchor",   "YTicksAnchor",   "ZTicksAnchor",   "XTicksDistance",
    "YTicksDistance", "ZTicksDistance", "ViewingBoxXMin", "ViewingBoxXMax", "ViewingBoxYMin",
    "ViewingBoxYMax", "ViewingBoxZMin", "ViewingBoxZMax"};

/// Elements that take what is listed and refuse anything else without a word. All others are
/// leaves. Matrix2d, Matrix3d and TextOrientation are full as they are made.
const std::map<std::string, Names> silentParents = {{"Point2d", {"IExpr"}},
                                                    {"Point3d", {"IExpr"}},
                                                    {"ColorFunc", {"IExpr"}},
                                                    {"ExprSeq", {"IExpr"}},
                                                    {"Points2d", {"Point2d"}},
                                                    {"Points3d", {"Point3d"}},
                                                    {"XTicksAt", {"TickPos"}},
                                                    {"YTicksAt", {"TickPos"}},
                                                    {"ZTicksAt", {"TickPos"}},
                                                    {"ObjType", {"PropCat"}},
                                                    {"PropCat", {"PropCat", "PropInfo"}}};

bool contains(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// What a new element says when it is offered one child: "" means yes, "no" a refusal
/// without a word.
std::string expectedAnswer(const std::string& parent, const std::string& child) {
  const auto content = contents.find(parent);
  if (content != contents.end()) {
    const Content& rules = content->second;
    if (child == requiredIn(parent)) {
      return "PlotDom error: option child '" + child + "' defined twice [parent '" + parent +
             "']\n";
    }
    if (contains(rules.plain, child) || contains(rules.options, child)) return "";
    return contains(rules.counterpart, child)
               ? "PlotDom error: illegal option child [parent '" + parent + "']\n"
               : "PlotDom error: not a valid content child '" + child + "' [parent '" + parent +
                     "']\n";
  }
  if (textParents.count(parent)) {
    return child == "#text" ? ""
                            : "PlotDom error: not a text node child [parent '" + parent + "']\n";
  }
  const auto silent = silentParents.find(parent);
  return silent != silentParents.end() && contains(silent->second, child) ? "" : "no";
}

class GrammarTest : public PlotTest {
 protected:
  Ref<dom::Node> makeNode(const std::string& name) {
    if (name == "#text") return document->createTextNode("x");
    return make(token(name)).get();
  }

  std::string answerOf(const PlotElement& parent, dom::Node* child) {
    const bool isAccepted = parent.canReplaceChildren(nullptr, 0, child);
    const std::string said = takeComplaints();
    if (isAccepted) return said.empty() ? "" : "yes, but: " + said;
    return said.empty() ? "no" : said;
  }
};

TEST_F(GrammarTest, EachParentAndEachChild) {
  Names children = expectedElements;
  children.push_back("#text");
  for (const std::string& parentName : expectedElements) {
    const Ref<PlotElement> parent = make(token(parentName));
    for (const std::string& childName : children) {
      const Ref<dom::Node> child = makeNode(childName);
      EXPECT_EQ(answerOf(*parent, child.get()), expectedAnswer(parentName, childName))
          << childName << " in " << parentName;
    }
  }
}

TEST_F(GrammarTest, AttachingDoesWhatTheAnswerSays) {
  for (const std::string& parentName : expectedElements) {
    for (const std::string& childName : expectedElements) {
      const Ref<PlotElement> parent = make(token(parentName));
      const Ref<PlotElement> child = make(token(childName));
      const unsigned before = parent->length();
      const int code = codeOf([&] { parent->appendChild(child.get()); });
      const bool isAccepted = expectedAnswer(parentName, childName).empty();
      EXPECT_EQ(code, isAccepted ? 0 : DomException::HierarchyRequest)
          << childName << " in " << parentName;
      EXPECT_EQ(parent->length(), before + (isAccepted ? 1 : 0));
      EXPECT_EQ(child->parent(), isAccepted ? parent.get() : nullptr);
    }
  }
}

/// The names of a list, sorted.
Names namesOf(std::span<const Token> tokens) {
  Names names;
  for (const Token name : tokens) names.push_back(name.str());
  std::ranges::sort(names);
  return names;
}

Names sorted(Names names) {
  std::ranges::sort(names);
  return names;
}

TEST_F(GrammarTest, TheListsOfEachParent) {
  for (const std::string& parent : expectedElements) {
    SCOPED_TRACE(parent);
    const auto content = contents.find(parent);
    const auto silent = silentParents.find(parent);
    Names plain;
    if (content != contents.end()) plain = content->second.plain;
    if (silent != silentParents.end()) plain = silent->second;
    if (parent == "Group3d" || parent == "Transform3d") plain.push_back("Obj3d");
    if (parent == "Matrix2d" || parent == "Matrix3d" || parent == "TextOrientation") {
      plain.push_back("IExpr");
    }
    EXPECT_EQ(namesOf(contentOf(token(parent))), sorted(plain));

    const Names options = content != contents.end() ? content->second.options : Names();
    EXPECT_EQ(namesOf(allowedOptionsOf(token(parent))), sorted(options));
    const std::string required = requiredIn(parent);
    EXPECT_EQ(namesOf(requiredOptionsOf(token(parent))),
              required.empty() ? Names() : Names{required});
    EXPECT_EQ(takesText(token(parent)), textParents.count(parent) != 0);
  }
}

TEST_F(GrammarTest, WhatIsNoElementHasNoChildren) {
  for (const Token name : {Token(), Word::P2, Word::LineWidth, token("#text"), token("Wobbly")}) {
    EXPECT_TRUE(contentOf(name).empty());
    EXPECT_TRUE(allowedOptionsOf(name).empty());
    EXPECT_TRUE(requiredOptionsOf(name).empty());
    EXPECT_FALSE(takesText(name));
  }
}

TEST_F(GrammarTest, EachElementButTheRootHasAParent) {
  for (const Token child : elementNames()) {
    const auto isTaken = [child](Token parent) {
      return std::ranges::count(contentOf(parent), child) +
                 std::ranges::count(allowedOptionsOf(parent), child) >
             0;
    };
    EXPECT_EQ(std::ranges::any_of(base::wordTokens, isTaken), child != Word::Canvas)
        << child.str() << " as a child in plot/framework/grammar.cpp";
  }
}

TEST_F(GrammarTest, EachOptionIsThereOnce) {
  for (const auto& [parentName, content] : contents) {
    for (const std::string& childName : content.options) {
      const Ref<PlotElement> parent = make(token(parentName));
      const auto& optioned = static_cast<const ElementWithOptions&>(*parent);
      if (childName != requiredIn(parentName)) {
        EXPECT_FALSE(optioned.hasOption(token(childName))) << childName << " in " << parentName;
        add(*parent, token(childName));
      }
      EXPECT_TRUE(optioned.hasOption(token(childName))) << childName << " in " << parentName;

      EXPECT_EQ(answerOf(*parent, make(token(childName)).get()),
                "PlotDom error: option child '" + childName + "' defined twice [parent '" +
                    parentName + "']\n");
      EXPECT_TRUE(parent->canReplaceChildren(parent->lastChild(), 1, make(token(childName)).get()));
    }
  }
}

TEST_F(GrammarTest, RemovingAnOptionMakesRoomForAnother) {
  const Ref<PlotElement> scene = make(Word::Scene2d);
  const auto& optioned = static_cast<const ElementWithOptions&>(*scene);
  PlotElement* first = add(*scene, Word::View2d);
  EXPECT_TRUE(optioned.hasOption(Word::View2d));
  const Ref<PlotElement> second = make(Word::View2d);
  EXPECT_EQ(codeOf([&] { scene->appendChild(second.get()); }), DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(),
            "PlotDom error: option child 'View2d' defined twice [parent 'Scene2d']\n");

  scene->replaceChild(second.get(), first);
  EXPECT_EQ(scene->firstChild(), second.get());
  EXPECT_EQ(scene->length(), 1U);
  EXPECT_TRUE(optioned.hasOption(Word::View2d));
  scene->removeChild(second.get());
  EXPECT_FALSE(optioned.hasOption(Word::View2d));
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(GrammarTest, AnOptionIsFoundAsLongAsItIsThere) {
  const Ref<PlotElement> system(document->createElement(Word::CoordinateSystem2d));
  const Ref<PlotElement> object(document->createElement(Word::Obj2d));
  const Ref<PlotElement> title(document->createElement(Word::XAxisTitle));
  const Ref<PlotElement> other(document->createElement(Word::XAxisTitle));
  EXPECT_EQ(system->firstChildByName(Word::XAxisTitle), nullptr);
  system->appendChild(object.get());
  system->appendChild(title.get());
  EXPECT_EQ(system->firstChildByName(Word::XAxisTitle), title.get());
  EXPECT_EQ(system->firstChildByName(Word::YAxisTitle), nullptr);
  EXPECT_EQ(system->firstChildByName(Word::Obj2d), object.get());

  const Ref<dom::Node> copy = system->cloneNode(true);
  EXPECT_EQ(copy->firstChildByName(Word::XAxisTitle), copy->lastChild());

  system->replaceChild(other.get(), title.get());
  EXPECT_EQ(system->firstChildByName(Word::XAxisTitle), other.get());
  system->removeChild(other.get());
  EXPECT_EQ(system->firstChildByName(Word::XAxisTitle), nullptr);
}

TEST_F(GrammarTest, OptionsOfOtherClassesOfTheFamilyAreIllegal) {
  const auto answer = [this](Token parent, Token child) {
    return answerOf(*make(parent), make(child).get());
  };
  EXPECT_EQ(answer(Word::Scene2d, Word::View3d),
            "PlotDom error: illegal option child [parent 'Scene2d']\n");
  EXPECT_EQ(answer(Word::Obj2d, Word::Points3d),
            "PlotDom error: illegal option child [parent 'Obj2d']\n");
  EXPECT_EQ(answer(Word::Transform3d, Word::Matrix2d),
            "PlotDom error: illegal option child [parent 'Transform3d']\n");
}

TEST_F(GrammarTest, ARefusalOfAnOptionNamesTheChild) {
  struct Listener : RefusalListener {
    void refused(const Refusal& refusal) override {
      kinds.push_back(refusal.kind);
      subjects.push_back(refusal.subject);
    }
    std::vector<RefusalKind> kinds;
    Names subjects;
  } listener;
  document->setRefusalListener(&listener);
  answerOf(*make(Word::Scene2d), make(Word::View3d).get());
  const Ref<PlotElement> tick = make(Word::TickPos);
  EXPECT_FALSE(tick->canReplaceChildren(tick->firstChild(), 1, nullptr));
  document->setRefusalListener(nullptr);
  EXPECT_EQ(listener.kinds,
            (std::vector<RefusalKind>{RefusalKind::illegalOption, RefusalKind::optionMissing}));
  EXPECT_EQ(listener.subjects, (Names{"View3d", "VExpr"}));
  EXPECT_NE(takeComplaints(), "");
}

TEST_F(GrammarTest, ATextIsNoContentOfACanvas) {
  EXPECT_EQ(answerOf(*make(Word::Canvas), makeNode("#text").get()),
            "PlotDom error: not a valid content child '#text' [parent 'Canvas']\n");
}

TEST_F(GrammarTest, SeveralChildrenAtOnceAreAllLookedAt) {
  const Ref<PlotElement> scene = make(Word::Scene2d);
  const auto fragmentOf = [this](std::initializer_list<Token> names) {
    Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
    for (const Token name : names) add(*fragment, name);
    return fragment;
  };
  const auto answer = [&](std::initializer_list<Token> names) {
    return answerOf(*scene, fragmentOf(names)->firstChild());
  };
  EXPECT_EQ(answer({Word::CoordinateSystem2d, Word::View2d, Word::Header, Word::ObjStyle}), "");
  EXPECT_EQ(answer({Word::CoordinateSystem2d, Word::Obj2d, Word::View3d}),
            "PlotDom error: not a valid content child 'Obj2d' [parent 'Scene2d']\n");
  EXPECT_EQ(answer({Word::Header, Word::Footer, Word::Header}),
            "PlotDom error: option child 'Header' defined twice [parent 'Scene2d']\n");
  // The mask is looked at when all children have been: the wrong one is reported first.
  EXPECT_EQ(answer({Word::View3d, Word::Obj2d}),
            "PlotDom error: not a valid content child 'Obj2d' [parent 'Scene2d']\n");
  EXPECT_EQ(answer({Word::View3d, Word::View2d}),
            "PlotDom error: illegal option child [parent 'Scene2d']\n");
}

TEST_F(GrammarTest, TheFirstWrongChildIsTheOneThatIsReported) {
  const auto complaint = [this](Token parent, std::initializer_list<Token> children) {
    const Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
    for (const Token child : children) add(*fragment, child);
    return answerOf(*make(parent), fragment->firstChild());
  };
  EXPECT_EQ(complaint(Word::Group2d, {Word::Obj2d, Word::Obj3d, Word::Canvas}),
            "PlotDom error: not a valid content child 'Obj3d' [parent 'Group2d']\n");
  EXPECT_EQ(complaint(Word::Img2d, {Word::Poly2d, Word::Mesh3d, Word::Obj2d}),
            "PlotDom error: not a valid content child 'Mesh3d' [parent 'Img2d']\n");
}

TEST_F(GrammarTest, ACanvasTakesScenesOfBothDimensionsButNotInOneGo) {
  const Ref<PlotElement> canvas = make(Word::Canvas);
  Ref<dom::DocumentFragment> both(document->createDocumentFragment());
  add(*both, Word::Scene2d);
  add(*both, Word::ObjStyle);
  add(*both, Word::Scene3d);
  EXPECT_EQ(answerOf(*canvas, both->firstChild()), "no");
  EXPECT_EQ(codeOf([&] { canvas->appendChild(both.get()); }), DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "");
  EXPECT_EQ(canvas->length(), 0U);
  EXPECT_EQ(both->length(), 3U);

  add(*canvas, Word::Scene3d);
  add(*canvas, Word::Scene2d);
  add(*canvas, Word::Scene3d);
  EXPECT_EQ(canvas->length(), 3U);

  Ref<dom::DocumentFragment> wrong(document->createDocumentFragment());
  add(*wrong, Word::Scene2d);
  add(*wrong, Word::Scene3d);
  add(*wrong, Word::Obj2d);
  EXPECT_EQ(answerOf(*canvas, wrong->firstChild()),
            "PlotDom error: not a valid content child 'Obj2d' [parent 'Canvas']\n")
      << "the rule for options is asked first";
}

TEST_F(GrammarTest, AMoveIsJudgedByWhatWouldBeThereAfterIt) {
  PlotElement* canvas = add(*document, Word::Canvas);
  PlotElement* scene = add(*canvas, Word::Scene2d);
  PlotElement* system = add(*scene, Word::CoordinateSystem2d);
  PlotElement* view = add(*scene, Word::View2d);
  PlotElement* other = add(*canvas, Word::Scene2d);
  PlotElement* otherView = add(*other, Word::View2d);
  document->clearUndo();

  const Ref<dom::Range> range = document->createRange(true);
  range->selectNode(otherView);
  EXPECT_EQ(codeOf([&] { scene->appendChild(otherView); }), DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(),
            "PlotDom error: option child 'View2d' defined twice [parent 'Scene2d']\n");
  EXPECT_EQ(codeOf([&] { view->appendChild(otherView); }), DomException::HierarchyRequest);
  EXPECT_FALSE(document->canUndo());
  EXPECT_EQ(document->selectedElement(), otherView);

  scene->insertBefore(view, system);
  EXPECT_EQ(scene->firstChild(), view) << "it is not there twice";
  scene->replaceChild(otherView, view);
  EXPECT_EQ(scene->firstChildByName(Word::View2d), otherView);
  EXPECT_EQ(takeComplaints(), "");
  document->undo();
  EXPECT_EQ(scene->firstChildByName(Word::View2d), view);
  EXPECT_EQ(other->firstChildByName(Word::View2d), otherView);
}

TEST_F(GrammarTest, ExpressionsChangePlacesAsLongAsTheirNumberIsRight) {
  const Ref<PlotElement> point = make(Word::Point2d);
  dom::Node* first = point->firstChild();
  EXPECT_EQ(codeOf([&] { point->appendChild(first); }), DomException::HierarchyRequest)
      << "two are the least, and a move takes one out";
  while (point->length() < 6) add(*point, Word::IExpr);
  point->appendChild(first);
  EXPECT_EQ(point->lastChild(), first) << "six are the most, and it is one of them";
  const Ref<PlotElement> full = make(Word::Point2d);
  while (full->length() < 6) add(*full, Word::IExpr);
  EXPECT_EQ(codeOf([&] { full->appendChild(first); }), DomException::HierarchyRequest);
  full->replaceChild(first, full->firstChild());
  EXPECT_EQ(point->length(), 5U);
  EXPECT_EQ(full->length(), 6U);
}

TEST_F(GrammarTest, ATickMarkHasItsPlaceFromTheStart) {
  const Ref<PlotElement> tick = make(Word::TickPos);
  ASSERT_EQ(tick->length(), 1U);
  PlotElement* place = PlotElement::from(tick->firstChild());
  EXPECT_EQ(place->tagName(), Word::VExpr);
  add(*tick, Word::Title);
  EXPECT_EQ(tick->length(), 2U);
  EXPECT_EQ(takeComplaints(), "");

  EXPECT_EQ(codeOf([&] { tick->removeChild(place); }), DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "PlotDom error: missing option child [parent 'TickPos']\n");
  tick->replaceChild(make(Word::VExpr).get(), place);
  tick->removeChild(tick->lastChild());
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(GrammarTest, CamerasLightsAndClippingBoxesAreDirectlyInACoordinateSystem) {
  for (const Token special : {Word::Camera, Word::AmbientLight, Word::PointLight,
                              Word::DistantLight, Word::SpotLight, Word::ClippingBox}) {
    const Ref<PlotElement> object = make(Word::Obj3d, {{Word::Type, special.str()}});
    EXPECT_EQ(answerOf(*make(Word::CoordinateSystem3d), object.get()), "");
    for (const std::string parent : {"Group3d", "Transform3d"}) {
      EXPECT_EQ(answerOf(*make(token(parent)), object.get()),
                "PlotDom error: not a valid content child 'Obj3d' [parent '" + parent + "']\n")
          << special.str();
    }
  }
  for (const Token parent : {Word::CoordinateSystem3d, Word::Group3d, Word::Transform3d}) {
    for (const char* type : {"Surface", "Default", "Sphere", "NoSuchType"}) {
      EXPECT_EQ(answerOf(*make(parent), make(Word::Obj3d, {{Word::Type, type}}).get()), "");
    }
  }
  const Ref<PlotElement> camera2d = make(Word::Obj2d, {{Word::Type, "Camera"}});
  EXPECT_EQ(answerOf(*make(Word::Group2d), camera2d.get()), "") << "only in space";
  EXPECT_EQ(answerOf(*make(Word::Transform2d), camera2d.get()), "");
}

TEST_F(GrammarTest, TupleSizes) {
  struct Tuple {
    Token name;
    unsigned made, least, most;
  };
  for (const Tuple& tuple :
       {Tuple{Word::Point2d, 2, 2, 6}, Tuple{Word::Point3d, 3, 3, 7},
        Tuple{Word::Matrix2d, 4, 4, 4}, Tuple{Word::Matrix3d, 9, 9, 9},
        Tuple{Word::TextOrientation, 6, 6, 6}, Tuple{Word::ColorFunc, 1, 1, 4}}) {
    SCOPED_TRACE(tuple.name.str());
    const Ref<PlotElement> parent = make(tuple.name);
    ASSERT_EQ(parent->length(), tuple.made) << "before anything was attached";
    for (dom::Node* child = parent->firstChild(); child; child = child->nextSibling()) {
      EXPECT_EQ(child->nodeName(), Word::IExpr);
    }

    // Each number of children taken out at each place, and of children put in.
    while (parent->length() < tuple.most) add(*parent, Word::IExpr);
    for (unsigned place = 0; place <= tuple.most; ++place) {
      for (unsigned out = 0; out <= tuple.most + 2; ++out) {
        for (unsigned in = 0; in <= tuple.most + 1; ++in) {
          Ref<dom::DocumentFragment> fragment(document->createDocumentFragment());
          for (unsigned i = 0; i < in; ++i) add(*fragment, Word::IExpr);
          const unsigned removed = std::min(out, tuple.most - place);
          const unsigned after = tuple.most - removed + in;
          EXPECT_EQ(parent->canReplaceChildren(parent->childAt(place), out,
                                               in > 0 ? fragment->firstChild() : nullptr),
                    after >= tuple.least && after <= tuple.most)
              << removed << " out at " << place << ", " << in << " in";
        }
      }
    }
    EXPECT_EQ(answerOf(*parent, make(Word::Expr).get()), "no");
    EXPECT_FALSE(parent->canReplaceChildren(parent->firstChild(), 1, make(Word::VExpr).get()));
    EXPECT_EQ(takeComplaints(), "") << "all in silence";
  }
}

TEST_F(GrammarTest, OnlyTheFirstOfNewTextChildrenIsLookedAt) {
  const Ref<PlotElement> title = make(Word::Title);
  Ref<dom::DocumentFragment> textFirst(document->createDocumentFragment());
  addText(*textFirst, "x");
  add(*textFirst, Word::Title);
  EXPECT_EQ(answerOf(*title, textFirst->firstChild()), "");

  Ref<dom::DocumentFragment> textLast(document->createDocumentFragment());
  add(*textLast, Word::Title);
  addText(*textLast, "x");
  EXPECT_EQ(answerOf(*title, textLast->firstChild()),
            "PlotDom error: not a text node child [parent 'Title']\n");
  for (const Token name : {Word::Title, Word::Text2d, Word::Text3d}) {
    const Ref<PlotElement> parent = make(name);
    addText(*parent, "x");
    parent->removeChild(parent->firstChild());
    EXPECT_EQ(parent->firstChild(), nullptr);
  }
}

TEST_F(GrammarTest, LeavesRefuseInSilence) {
  for (const Token name :
       {Word::Sphere, Word::Mesh3d, Word::Camera, Word::SpotLight, Word::ClippingBox, Word::Tr2d,
        Word::Tr3d, Word::Hints, Word::Prop, Word::PropInfo, Word::TimeRange, Word::View2d,
        Word::View3d, Word::ColorArray2d}) {
    const Ref<PlotElement> leaf = make(name);
    EXPECT_EQ(answerOf(*leaf, make(Word::IExpr).get()), "no");
    EXPECT_EQ(answerOf(*leaf, makeNode("#text").get()), "no");
    EXPECT_TRUE(leaf->canReplaceChildren(nullptr, 0, nullptr)) << "nothing to do";

    // A child that came in unchecked does not go either.
    const Ref<dom::Node> child = makeNode("#text");
    leaf->doReplaceChildren(nullptr, 0, child.get());
    EXPECT_FALSE(leaf->canReplaceChildren(child.get(), 1, nullptr));
    EXPECT_TRUE(leaf->canReplaceChildren(child.get(), 0, nullptr));
    EXPECT_EQ(takeComplaints(), "");
  }
}

TEST_F(GrammarTest, NothingIsSaidAboutRemovals) {
  for (const auto& [parentName, content] : contents) {
    if (parentName == "TickPos") continue;
    const Ref<PlotElement> parent = make(token(parentName));
    for (const std::string& child : content.plain) add(*parent, token(child));
    while (parent->firstChild()) parent->removeChild(parent->firstChild());
  }
  for (const auto& [parentName, children] : silentParents) {
    const Ref<PlotElement> parent = make(token(parentName));
    if (parent->firstChild()) continue;  // tuples have their own test
    add(*parent, token(children.front()));
    parent->removeChild(parent->firstChild());
    EXPECT_EQ(parent->firstChild(), nullptr);
  }
  EXPECT_EQ(takeComplaints(), "");
}

}  // namespace
}  // namespace vantry::plot::test
