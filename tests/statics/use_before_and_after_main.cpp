// The model works in the constructors and destructors of static objects. This file comes before the
// libraries in the order of initialisation, so that nothing of theirs that is initialised late
// would be ready for `early`; and `late` dies after everything that was made after it.
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/line2d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/framework/property_change_event.h"
#include "vantry/plot/metadata/property_tree.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using namespace vantry::reader;
using namespace vantry::javaview;
using vantry::base::Ref;

/// Ends the process where something is not as it should be: a destructor cannot fail otherwise.
void require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "static use: %s\n", what);
  std::_Exit(1);
}

constexpr std::string_view source =
    "<Canvas><Scene2d><CoordinateSystem2d><ObjStyle Type=\"Kind\" LineWidth=\"0.25\"/>"
    "<Obj2d Type=\"Kind\"><Img2d><Line2d From=\"0 0\" To=\"1 1\"/></Img2d></Obj2d>"
    "</CoordinateSystem2d></Scene2d></Canvas>";

/// Counts the changes of children and of properties, each by a subscription of its own.
class Counter : public dom::IDocObserver {
 public:
  explicit Counter(PlotDocument& document) : document_(document) {
    document_.addObserver(this, dom::EventType::AfterReplaceChildren);
    document_.addObserver(this, AfterPropertyChangeEvent::eventType());
  }
  ~Counter() override { document_.removeObserver(this); }

  void observerDetached(Token) override {}
  void beforeBatch() override {}
  void afterBatch() override {}
  void handleEvent(const dom::DomEvent& event) override {
    if (event.type == dom::EventType::AfterReplaceChildren) ++changesOfChildren;
    if (event.type == AfterPropertyChangeEvent::eventType()) ++changesOfProperties;
  }

  int changesOfChildren = 0;
  int changesOfProperties = 0;

 private:
  PlotDocument& document_;
};

Ref<PlotDocument> load() {
  const Ref<PlotDocument> document = new PlotDocument;
  ZrdParserHandler handler(document.get(), false, nullptr);
  reader::Parser parser(&handler, true, nullptr);
  require(parser.parse(source.data(), static_cast<int>(source.size()), true), "it is read");
  return document;
}

const Line2d* lineIn(PlotDocument& document) {
  const Line2d* line = nullptr;
  dom::walkSubtree<dom::Node>(*document.documentElement(), [&](dom::Node& node) {
    if (node.nodeName() == Line2d::tag) line = static_cast<const Line2d*>(&node);
    return true;
  });
  return line;
}

void editAndUndo(PlotDocument& document) {
  const Counter counter(document);
  PlotElement& canvas = *document.documentElement();
  document.startUndoGroup();
  canvas.setPropertyValue(Word::Width, base::DoubleVariant(99));
  const Ref<PlotElement> style = document.createElement(Word::ObjStyle);
  style->setAttributeFromString(Word::Type, "Other");
  canvas.appendChild(style.get());
  require(counter.changesOfChildren == 1, "an observer gets its event and no other");
  require(counter.changesOfProperties == 1, "an observer gets changes of properties");
  document.undo();
  require(!canvas.hasAttribute(Word::Width), "a change is undone");
}

void writeTexts(PlotDocument& document) {
  std::ostringstream xml;
  document.writeXml(xml);
  require(xml.str().find("LineWidth=\"0.25\"") != std::string::npos, "it is written");
  std::ostringstream jvx;
  JVXWriter(&document).write(jvx, plot::nan);
  require(jvx.str().ends_with("</jvx-model>\n"), "it is exported");
}

void makeDefaultStyles() {
  const Ref<PlotDocument> document = new PlotDocument;
  const Ref<PlotElement> canvas = document->createElement(Word::Canvas);
  document->appendChild(canvas.get());
  static_cast<Canvas&>(*canvas).createDefaultStyles();
  require(canvas->length() == 14, "there are default styles");
  document->tearDown();
}

/// Everything that a host does, in the shortest form.
void useTheModel() {
  require(Token("a word of a host", true) == Token("a word of a host", false),
          "words are interned");
  require(Mesh3d::propertyList().find(Word::UMesh) != nullptr, "a property list is filled");
  require(FontStyle::standard().family == base::FixedString("Times"), "there is a default font");
  require(propertyInfo(Word::Mesh3d) != nullptr, "properties are described");
  makeDefaultStyles();
  const Ref<PlotDocument> document = load();
  const Line2d* line = lineIn(*document);
  require(line && line->lineWidth() == 0.25, "a style is inherited");
  editAndUndo(*document);
  writeTexts(*document);
  document->tearDown();
}

/// Uses the model, and a document of its constructor, at the very end.
struct Late {
  Ref<PlotDocument> document;  // of main()

  ~Late() {
    writeTexts(*document);
    document = nullptr;
    useTheModel();
  }
} late;

struct Early {
  Ref<PlotDocument> document;

  Early() {
    useTheModel();
    document = load();
  }
  ~Early() { document->tearDown(); }
} early;

}  // namespace

int main() {
  editAndUndo(*early.document);
  late.document = load();
  return 0;
}
