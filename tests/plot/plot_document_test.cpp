#include "vantry/plot/document.h"

#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "plot_test.h"
#include "vantry/dom/text.h"
#include "vantry/plot/element_factory.h"
#include "vantry/plot/elements/expr_list.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/sphere.h"

namespace vantry::plot::test {
namespace {

class PlotDocumentTest : public PlotTest {};

TEST_F(PlotDocumentTest, ANewDocumentIsEmpty) {
  EXPECT_EQ(document->documentElement(), nullptr);
  EXPECT_EQ(document->firstChild(), nullptr);
  EXPECT_EQ(codeOf([&] { xmlOf(*document); }), DomException::InvalidState);
  EXPECT_EQ(takeComplaints(), "PlotDom error: no canvas to be written\n");
}

TEST_F(PlotDocumentTest, TheRootIsTheDocumentElement) {
  PlotElement* canvas = add(*document, Word::Canvas);
  EXPECT_EQ(document->documentElement(), canvas);
  EXPECT_TRUE(canvas->isInDocument());
  EXPECT_EQ(xmlOf(*document), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Canvas></Canvas>\n");
}

TEST_F(PlotDocumentTest, NamesThatMakeNoElement) {
  for (const char* name : {"P2", "P3", "Opt", "Circle2d", "canvas", "Canvas ", "", "#text"}) {
    EXPECT_EQ(document->createElement(token(name)), nullptr) << name;
  }
  EXPECT_EQ(document->createElement(Token()), nullptr);
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PlotDocumentTest, ANewElementBelongsToWhoeverAskedForIt) {
  const Ref<PlotElement> element = document->createElement(Word::Sphere);
  EXPECT_EQ(element->refCount(), 1U);
  EXPECT_EQ(makeElement(Word::Sphere, *document)->refCount(), 1U);
  EXPECT_EQ(element->cloneNode(true)->refCount(), 1U);
}

TEST_F(PlotDocumentTest, ADocumentCannotBeMadeOnTheStack) {
  EXPECT_FALSE(std::is_destructible_v<PlotDocument>);
}

TEST_F(PlotDocumentTest, SomeElementsAreMadeWithChildren) {
  const std::tuple<Token, unsigned, Token> made[] = {
      {Word::Point2d, 2, Word::IExpr},         {Word::Point3d, 3, Word::IExpr},
      {Word::Matrix2d, 4, Word::IExpr},        {Word::Matrix3d, 9, Word::IExpr},
      {Word::TextOrientation, 6, Word::IExpr}, {Word::ColorFunc, 1, Word::IExpr},
      {Word::TickPos, 1, Word::VExpr}};
  for (const auto& [name, count, childName] : made) {
    const Ref<PlotElement> element = make(name);
    EXPECT_EQ(element->length(), count) << name.str();
    for (dom::Node* child = element->firstChild(); child; child = child->nextSibling()) {
      EXPECT_EQ(child->nodeName(), childName);
      EXPECT_EQ(child->firstChild(), nullptr);
    }
  }
  unsigned childless = 0;
  for (const Token word : base::wordTokens) {
    const Ref<PlotElement> element = make(word);
    if (element && !element->firstChild()) ++childless;
  }
  EXPECT_EQ(childless, elementNames().size() - std::size(made));
}

TEST_F(PlotDocumentTest, TheBasesOfTheClasses) {
  EXPECT_TRUE(dynamic_cast<Expr*>(make(Word::ColorFunc).get()));
  EXPECT_TRUE(dynamic_cast<Expr*>(make(Word::ExprSeq).get()));
  EXPECT_TRUE(dynamic_cast<SeqExprElement*>(make(Word::VExpr).get()));
  EXPECT_TRUE(dynamic_cast<NamedVExprElement*>(make(Word::ViewingBoxZMax).get()));
  EXPECT_TRUE(dynamic_cast<NamedExprElement*>(make(Word::ParameterName).get()));
  EXPECT_TRUE(dynamic_cast<StringElement*>(make(Word::ZAxisTitle).get()));
  EXPECT_TRUE(dynamic_cast<ElementWithOptions*>(make(Word::TickPos).get()));
}

TEST_F(PlotDocumentTest, AComplaintIsReportedInTwoCalls) {
  static std::vector<std::string> formats;
  formats.clear();
  document->setErrorReporter([](const char* format, va_list arguments) {
    formats.push_back(format);
    return std::vsnprintf(nullptr, 0, format, arguments);
  });
  make<Sphere>()->report("%s and %d\n", "one", 2);
  EXPECT_EQ(formats, (std::vector<std::string>{"PlotDom error: ", "%s and %d\n"}));
}

TEST_F(PlotDocumentTest, BothCallsGetTheSameArguments) {
  static std::string text;
  text.clear();
  document->setErrorReporter([](const char* format, va_list arguments) {
    char buffer[100];
    const bool isPrefix = std::string(format) == "PlotDom error: ";
    std::vsnprintf(buffer, sizeof buffer, isPrefix ? "%s|" : format, arguments);
    text += buffer;
    return 0;
  });
  make<Sphere>()->report("%s.", "same");
  EXPECT_EQ(text, "same|same.");
}

TEST_F(PlotDocumentTest, WithoutAReporterComplaintsAreSilent) {
  document->setErrorReporter(nullptr);
  EXPECT_EQ(codeOf([&] { make(Word::Sphere, {{Word::XMesh, "1"}}); }), DomException::InvalidAccess);
  EXPECT_EQ(codeOf([&] { make(Word::Sphere, {{Word::Radius, "wide"}}); }), DomException::Syntax);
  const Ref<PlotElement> scene = make(Word::Scene2d);
  EXPECT_EQ(codeOf([&] { add(*scene, Word::View3d); }), DomException::HierarchyRequest);
  EXPECT_EQ(takeComplaints(), "");
}

TEST_F(PlotDocumentTest, ComplaintsOfAnElementWithoutADocumentAreSilent) {
  const Ref<Sphere> sphere(new Sphere(nullptr));
  EXPECT_EQ(codeOf([&] { sphere->setAttributeFromString(Word::XMesh, "1"); }),
            DomException::InvalidAccess);
  EXPECT_EQ(takeComplaints(), "");
  sphere->attachedToDocument();
  EXPECT_EQ(sphere->shading(), Word::Flat);
  EXPECT_EQ(sphere->fillColor(), black);
}

// Visits.

struct VisitLog {
  static inline std::vector<std::string> names;
};

/// A document of a host that has a class of its own for groups.
class HostDocument : public PlotDocument {
 public:
  class HostGroup : public Group2d {
   public:
    using Group2d::Group2d;
    bool visit() override {
      VisitLog::names.push_back(std::to_string(length()));
      return length() != 1;
    }
  };

 protected:
  ~HostDocument() override = default;
  Ref<dom::Element> newElement(Token name) override {
    if (name == Word::Group2d) return new HostGroup(this);
    return PlotDocument::newElement(name);
  }
};

TEST(PlotDocumentVisit, ReachesEachElementFromTheRootDown) {
  VisitLog::names.clear();
  const Ref<PlotDocument> document = new HostDocument;
  document->visitElements();
  const auto add = [&](dom::Node& parent, Token name) -> dom::Node& {
    const Ref<dom::Node> child(document->createElement(name));
    parent.appendChild(child.get());
    return *child;
  };
  dom::Node& system =
      add(add(add(*document, Word::Canvas), Word::Scene2d), Word::CoordinateSystem2d);
  dom::Node& two = add(system, Word::Group2d);
  add(two, Word::Obj2d);
  dom::Node& one = add(two, Word::Group2d);
  add(one, Word::Group2d);
  add(system, Word::Group2d);
  document->visitElements();
  EXPECT_EQ(VisitLog::names, (std::vector<std::string>{"2", "1", "0"}))
      << "what is below the second group was left out";
}

// Depth.

TEST_F(PlotDocumentTest, ADeepTreeCostsNoStack) {
  constexpr int depth = 100000;
  PlotElement* canvas = add(*document, Word::Canvas);
  PlotElement* system = add(*add(*canvas, Word::Scene2d), Word::CoordinateSystem2d);
  Ref<dom::Node> top = make(Word::Obj2d, {{Word::Type, "Curve2d"}});
  for (int i = 0; i < depth; ++i) {
    const Ref<PlotElement> group = make(Word::Group2d);
    group->appendChild(top.get());
    top = group.get();
  }
  system->appendChild(top.get());
  document->visitElements();
  EXPECT_GT(xmlOf(*document).size(), static_cast<std::size_t>(depth) * 19);
  const Ref<dom::Node> copy(canvas->cloneNode(true));
  EXPECT_EQ(xmlOf(*copy), xmlOf(*canvas));
  canvas->setPropertyValue(Word::Width, DoubleVariant(3));
  canvas->dropInheritedProperties();
  const Ref<PlotElement> style = make(Word::ObjStyle, {{Word::Type, "Curve2d"}});
  canvas->appendChild(style.get());
  style->setAttributeFromString(Word::LineWidth, "4");
  style->setPropertyValue(Word::LineWidth, DoubleVariant(5));
  document->undo();
  document->redo();
}

}  // namespace
}  // namespace vantry::plot::test
