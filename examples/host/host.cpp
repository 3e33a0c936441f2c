// A host of the plot model: it reads a drawing, watches it, changes it, and writes it back.

#include <clocale>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <vantry/dom/tree_walk.h>
#include <vantry/javaview/jvx_writer.h>
#include <vantry/plot/document.h>
#include <vantry/plot/elements/object.h>
#include <vantry/plot/elements/property_info.h>
#include <vantry/plot/framework/property_change_event.h>
#include <vantry/plot/metadata/property_tree.h>
#include <vantry/plot/values/variants.h>
#include <vantry/reader/zrd_parser_handler.h>

namespace {

using namespace vantry;
using namespace vantry::plot;
using namespace vantry::reader;
using namespace vantry::javaview;
using vantry::base::Ref;

/// Null for a file that cannot be read or holds no drawing.
Ref<PlotDocument> load(const char* path) {
  std::ifstream in(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};

  const Ref<PlotDocument> document = new PlotDocument;
  ZrdParserHandler handler(document.get(), false, nullptr);  // false: the ids are kept
  ZrdParser parser(&handler, true, nullptr);
  if (parser.parse(text.data(), static_cast<int>(text.size()), true)) return document;
  document->tearDown();
  return nullptr;
}

std::vector<Obj2d*> objectsOf(PlotDocument& document) {
  std::vector<Obj2d*> objects;
  dom::walkSubtree<dom::Node>(*document.documentElement(), [&](dom::Node& node) {
    if (auto* object = elementCast<Obj2d>(&node)) objects.push_back(object);
    return true;
  });
  return objects;
}

PlotElement* styleOf(PlotDocument& document, Token type) {
  dom::Node* node = document.documentElement()->firstChild();
  while (node && !(node->nodeName() == Word::ObjStyle &&
                   node->asElement()->getAttribute(Word::Type) == base::TokenVariant(type))) {
    node = node->nextSibling();
  }
  return PlotElement::from(node);
}

/// Prints each property that changes, where it is set and where it is inherited.
class ChangePrinter : public dom::IDocObserver {
 public:
  explicit ChangePrinter(PlotDocument& document) : document_(&document) {
    document_->addObserver(this, AfterPropertyChangeEvent::eventType());
  }
  ~ChangePrinter() override {
    if (document_) document_->removeObserver(this);
  }

  void observerDetached(Token) override { document_ = nullptr; }
  void beforeBatch() override {}
  void afterBatch() override {}
  void handleEvent(const dom::DomEvent& event) override {
    const auto& change = static_cast<const AfterPropertyChangeEvent&>(event);
    std::cout << "  " << change.target->nodeName().str() << '.' << change.name.str() << '\n';
  }

 private:
  PlotDocument* document_;
};

void printStyles(PlotDocument& document) {
  for (const Obj2d* object : objectsOf(document)) {
    const RGBA color = object->lineColor();
    std::cout << "  " << object->type().str() << ": line width " << object->lineWidth()
              << " mm, colour " << color.red() << ' ' << color.green() << ' ' << color.blue()
              << (object->hasAttribute(Word::LineColor) ? " of its own\n" : " from a style\n");
  }
}

void changeStyle(PlotDocument& document) {
  document.startUndoGroup();
  PlotElement* style = styleOf(document, Word::Default);
  style->setPropertyValue(Word::LineColor, RGBAVariant(red));
  style->setPropertyValue(Word::LineWidth, base::DoubleVariant(1.5));
  document.startUndoGroup();
}

void addPoint(PlotDocument& document, double x, double y) {
  const Ref<PlotElement> object = document.createElement(Word::Obj2d);
  const Ref<PlotElement> image = document.createElement(Word::Img2d);
  const Ref<PlotElement> point = document.createElement(Word::Pt2d);
  object->setAttributeFromString(Word::Type, "Point2d");
  point->setPropertyValue(Word::Position, P2Variant(P2{x, y}));
  object->appendChild(image.get());
  image->appendChild(point.get());

  document.startUndoGroup();
  objectsOf(document).back()->parent()->appendChild(object.get());
  document.startUndoGroup();
}

void deleteObject(PlotDocument& document, const char* id) {
  if (!document.selectById(id)) return;
  std::cout << "  selected: " << document.selectedElement()->tagName().str() << '\n';
  document.deleteSelection();
}

/// What a property editor needs to know of the properties of a type of object in one category.
void printFields(Token type, std::string_view categoryName) {
  dom::walkSubtree<const dom::Node>(*propertyInfo(type), [&](const dom::Node& node) {
    if (const auto* category = elementCast<PropCat>(&node)) {
      return category->name().c_str() == categoryName;
    }
    if (const auto* property = elementCast<PropInfo>(&node)) {
      const char* words = property->enumWords().c_str();
      std::cout << "  " << property->dom().str() << ": " << property->type().str()
                << (words ? std::string(" of ") + words : "") << '\n';
    }
    return true;
  });
}

void run(const char* inName, const char* outName) {
  const Ref<PlotDocument> document = load(inName);
  if (!document) throw std::runtime_error("no drawing in the file");
  std::cout << "The objects:\n";
  printStyles(*document);

  std::cout << "A style changes:\n";
  {
    const ChangePrinter printer(*document);
    changeStyle(*document);
  }
  printStyles(*document);
  std::cout << "Undone:\n";
  document->undo();
  printStyles(*document);
  std::cout << "Done again:\n";
  document->redo();
  printStyles(*document);

  std::cout << "A point is added, and the axis deleted:\n";
  addPoint(*document, 0, 0.25);
  deleteObject(*document, "axis");
  printStyles(*document);

  std::cout << "What can be said of the points of a curve:\n";
  printFields(Word::Curve2d, "Points");

  std::cout << "The drawing:\n";
  document->writeXml(std::cout);
  std::ofstream out(outName);
  JVXWriter(document.get()).write(out, plot::nan);

  document->tearDown();
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "usage: host <in-file> <out-file>\n";
    return 1;
  }
  std::setlocale(LC_CTYPE, "");
  run(argv[1], argv[2]);
  return 0;
} catch (const std::exception& failure) {
  std::cerr << failure.what() << '\n';
  return 2;
}
