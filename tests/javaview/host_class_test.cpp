// Documents with elements of a host's own classes.
#include <gtest/gtest.h>

#include "conversion.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/pt2d.h"

namespace vantry::javaview {

using namespace plot;
namespace {

template <class Model>
class Host : public ElementOf<Host<Model>, Model> {
 public:
  using ElementOf<Host<Model>, Model>::ElementOf;
};

/// A document with some elements of the host.
class HostDocument : public PlotDocument {
 protected:
  ~HostDocument() override = default;
  base::Ref<dom::Element> newElement(Token name) override {
    if (name == Word::Group2d) return new Host<Group2d>(this);
    if (name == Word::Obj2d) return new Host<Obj2d>(this);
    if (name == Word::Img2d) return new Host<Img2d>(this);
    if (name == Word::Pt2d) return new Host<Pt2d>(this);
    return PlotDocument::newElement(name);
  }
};

/// An element of the model with a name that is not that of its class.
class FalseGroup : public PlotElement {
 public:
  using PlotElement::PlotElement;
  Token tagName() const override { return Word::Group2d; }
  base::Ref<dom::Node> cloneNode(bool) const override { return new FalseGroup(*this); }
};

constexpr std::string_view source =
    "<Canvas><Scene2d><CoordinateSystem2d>"
    "<Group2d><Obj2d Type='Point2d'><Img2d><Pt2d Position='1 2'/></Img2d></Obj2d></Group2d>"
    "<Group2d Visible='0'><Obj2d Type='Point2d'><Img2d><Pt2d/></Img2d></Obj2d></Group2d>"
    "</CoordinateSystem2d></Scene2d></Canvas>";

TEST(HostClasses, AreWrittenLikeThoseThatTheyDeriveFrom) {
  const base::Ref<PlotDocument> document(new HostDocument);
  reader::ZrdParserHandler handler(document.get(), true, nullptr);
  reader::Parser parser(&handler, true, nullptr);
  ASSERT_TRUE(parser.parse(source.data(), static_cast<int>(source.size()), true));
  const JvxConversion plain(source);
  const JvxConversion host(document.get());
  EXPECT_EQ(host.error, "");
  EXPECT_EQ(host.body(), plain.body());
  EXPECT_NE(host.body().find("<p>1 2</p>"), std::string::npos) << host.body();
  EXPECT_EQ(host.body().find("<p>0 0</p>"), std::string::npos) << "in a hidden group";
  document->tearDown();
}

// It has no visibility to be read, nor anything else of a group.
TEST(HostClasses, ThatDeriveFromAnotherClassAreNotWritten) {
  const ReadDocument document(source);
  dom::Node& system = *document->documentElement()->firstChild()->firstChild();
  const base::Ref<dom::Node> group(new FalseGroup(document.get()));
  EXPECT_THROW(system.appendChild(group.get()), dom::DomException);
  const std::string before = JvxConversion(document.get()).body();
  system.doReplaceChildren(nullptr, 0, group.get());
  const JvxConversion after(document.get());
  EXPECT_EQ(after.error, "");
  EXPECT_EQ(after.body(), before);
}

}  // namespace
}  // namespace vantry::javaview
