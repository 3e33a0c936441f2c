// Documents of different threads do not touch each other. Each test runs in a process of its own,
// so that the threads also meet at the first use of everything that documents share. The thread
// sanitizer watches it in the preset "tsan".
#include <array>
#include <barrier>
#include <functional>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "../random_changes.h"
#include "../reader/examples.h"
#include "vantry/javaview/export_error.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/property_info.h"
#include "vantry/plot/elements/text2d.h"
#include "vantry/plot/metadata/property_tree.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using namespace vantry::reader;
using namespace vantry::javaview;
using vantry::base::Ref;

constexpr unsigned threadCount = 8;

/// Does `work` on all threads at once; each gets its number.
void onAllThreads(const std::function<void(unsigned)>& work) {
  std::barrier start(threadCount);
  std::vector<std::thread> threads;
  for (unsigned number = 0; number < threadCount; ++number) {
    threads.emplace_back([&, number] {
      start.arrive_and_wait();
      work(number);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

Ref<PlotDocument> load(const std::string& text) {
  const Ref<PlotDocument> document = new PlotDocument;
  ZrdParserHandler handler(document.get(), false, nullptr);
  reader::Parser parser(&handler, true, nullptr);
  EXPECT_TRUE(parser.parse(text.data(), static_cast<int>(text.size()), true));
  return document;
}

/// What changes at random make need not be a document that can be written, but its elements can.
std::string xmlOf(const PlotDocument& document) {
  std::ostringstream out;
  document.documentElement()->writeXml(out);
  return out.str();
}

template <class Writer>
std::string exported(PlotDocument& document) {
  std::ostringstream out;
  try {
    Writer(&document).write(out, plot::nan);
  } catch (const JavaViewExportError& error) {
    out << error.what();
  }
  static const std::regex dateLine("<meta date=\"[^\"]*\"/>");
  return std::regex_replace(out.str(), dateLine, "");
}

/// All that a host does with a document, and all that it gets to see of it.
std::string lifeOf(const std::string& text, unsigned seed) {
  const Ref<PlotDocument> document = load(text);
  const std::string loaded = xmlOf(*document);
  std::string seen = loaded + exported<JVXWriter>(*document) + exported<JVDWriter>(*document);

  RandomChanges changes(*document, seed, StyleChanges::ValuesOnly);
  document->startUndoGroup();
  for (int i = 0; i < 20; ++i) changes.changeSomething();
  const std::string changed = xmlOf(*document);
  const Ref<dom::Node> copy = document->documentElement()->cloneNode(true);
  document->undo();
  EXPECT_EQ(xmlOf(*document), loaded);
  document->redo();
  EXPECT_EQ(xmlOf(*document), changed);
  seen += changed + exported<JVXWriter>(*document);
  document->tearDown();
  return seen;
}

class DocumentsOfThreads : public AllLettersTest {};

TEST_F(DocumentsOfThreads, LiveAsIfEachWereAlone) {
  std::vector<std::string> texts;
  for (const std::string& name : exampleNames()) texts.push_back(exampleNamed(name));

  std::array<std::vector<std::string>, threadCount> seen;
  onAllThreads([&](unsigned number) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      seen[number].push_back(lifeOf(texts[i], static_cast<unsigned>(i)));
    }
  });
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string alone = lifeOf(texts[i], static_cast<unsigned>(i));
    for (const auto& ofThread : seen) EXPECT_EQ(ofThread[i], alone) << exampleNames()[i];
  }
}

/// The default font has one text, which the labels of all documents share.
TEST_F(DocumentsOfThreads, ShareTheirDefaults) {
  const std::string label =
      "<Canvas><Scene2d><CoordinateSystem2d><Obj2d Type=\"Text2d\"><Img2d>"
      "<Text2d Position=\"0 0\">x</Text2d></Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>";
  onAllThreads([&](unsigned) {
    for (int i = 0; i < 50; ++i) {
      const Ref<PlotDocument> document = load(label);
      const dom::Node* node = document->documentElement();
      while (node->firstChild()) node = node->firstChild();
      const auto& text = static_cast<const Text2d&>(*node->parent());
      const FontStyle copy = text.textFont();
      EXPECT_EQ(copy, FontStyle::standard());
      EXPECT_EQ(document->documentElement()->getPropertyValue(Word::HeaderFont),
                FontStyleVariant(copy));
      document->tearDown();
    }
  });
}

TEST_F(DocumentsOfThreads, MakeTheirDefaultStyles) {
  std::array<std::string, threadCount> seen;
  onAllThreads([&](unsigned number) {
    const Ref<PlotDocument> document = new PlotDocument;
    const Ref<PlotElement> canvas = document->createElement(Word::Canvas);
    document->appendChild(canvas.get());
    static_cast<Canvas&>(*canvas).createDefaultStyles();
    EXPECT_EQ(canvas->length(), 14U);
    seen[number] = xmlOf(*document);
    document->tearDown();
  });
  for (const std::string& text : seen) EXPECT_EQ(text, seen[0]);
}

/// The description of a property editor is one document for all threads, which only read it.
TEST_F(DocumentsOfThreads, ShareTheDescriptionOfTheProperties) {
  std::array<std::string, threadCount> seen;
  onAllThreads([&](unsigned number) {
    for (const Token name : {Word::Mesh3d, Word::Canvas, Word::Text2d}) {
      dom::walkSubtree<const dom::Node>(*propertyInfo(name), [&](const dom::Node& node) {
        const PlotElement& element = *PlotElement::from(&node);
        for (const Token property : {Word::Name, Word::Enum}) {
          if (!element.hasAttribute(property)) continue;
          const Variant value = element.getAttribute(property);
          seen[number] += value.as<base::FixedStringVariant>()->get().c_str();
        }
        return true;
      });
    }
  });
  EXPECT_NE(seen[0].find("Calculation"), std::string::npos);
  for (const std::string& text : seen) EXPECT_EQ(text, seen[0]);
}

}  // namespace
