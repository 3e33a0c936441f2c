// A reader that goes on after the mistakes of a document.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vantry/dom/dom_exception.h"
#include "vantry/plot/document.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using namespace vantry::reader;

/// Leaves out what is refused and writes it down, with the place in the document.
class ForgivingReader : public ZrdParserHandler {
 public:
  explicit ForgivingReader(PlotDocument& document) : ZrdParserHandler(&document, true, nullptr) {}

  void read(std::string_view text) {
    Parser parser(this, true, nullptr);
    parser_ = &parser;
    EXPECT_TRUE(parser.parse(text.data(), static_cast<int>(text.size()), true));
    parser_ = nullptr;
  }

  void startElement(std::uint32_t space, std::uint32_t element,
                    const AttributeList& attributes) override {
    try {
      ZrdParserHandler::startElement(space, element, attributes);
    } catch (const dom::DomException&) {
      note("element");
      enterSkipped();
    }
  }

  std::string log;

 protected:
  void setAttribute(PlotElement& element, Token name, const char* value) override {
    try {
      ZrdParserHandler::setAttribute(element, name, value);
    } catch (const dom::DomException&) {
      note(name.str());
    }
  }
  void requireAttributes(PlotElement& element) override {
    try {
      ZrdParserHandler::requireAttributes(element);
    } catch (const dom::DomException&) {
      note("missing");
    }
  }
  void endContent(base::WordId element) override {
    try {
      ZrdParserHandler::endContent(element);
    } catch (const dom::DomException&) {
      note(current()->tagName().str());
    }
  }
  void refusePoint(base::WordId, PointError error) override {
    note("point " + std::to_string(static_cast<int>(error)));
  }
  void refuseCell(const char* word) override { note(word); }

 private:
  void note(const std::string& what) {
    log += what + " at " + std::to_string(parser_->byteOffset()) + '\n';
  }

  const Parser* parser_ = nullptr;
};

/// What a document is after its mistakes are left out, and which they were.
std::string readOn(std::string_view text, std::string& xml) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  std::string log;
  {
    ForgivingReader reader(*document);
    reader.read(text);
    log = reader.log;
  }
  std::ostringstream out;
  document->documentElement()->writeXml(out);
  xml = out.str();
  document->tearDown();
  return log;
}

TEST(GoingOn, LeavesOutABadAttributeAndAMisplacedElement) {
  std::string xml;
  EXPECT_EQ(
      readOn("<Canvas Width=\"-1\" Rows=\"2\"><Obj2d><Scene2d/></Obj2d><Scene2d/></Canvas>", xml),
      "Width at 0\nmissing at 28\nelement at 28\n");
  EXPECT_EQ(xml, "<Canvas Rows=\"2\"><Scene2d></Scene2d></Canvas>");
}

TEST(GoingOn, LeavesOutBadPointsAndCells) {
  std::string xml;
  const std::string begin = "<Canvas><Scene2d><CoordinateSystem2d><Obj2d Type=\"a\"><Img2d>";
  const std::string end = "</Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>";
  const auto at = [&](std::size_t offset) { return std::to_string(begin.size() + offset) + '\n'; };
  EXPECT_EQ(readOn(begin +
                       "<Pts2d><P2>1 2</P2><P2>3</P2><P2>a b</P2><P2>4 5 #ff0000</P2>"
                       "<P3>1 2 3</P3><P2>5 6</P2></Pts2d>" +
                       end,
                   xml),
            "point 3 at " + at(24) + "point 4 at " + at(36) + "point 2 at " + at(56) +
                "point 1 at " + at(70));
  EXPECT_NE(xml.find("<P2>1 2</P2><P2>5 6</P2></Pts2d>"), std::string::npos) << xml;

  EXPECT_EQ(readOn(begin + "<ColorArray2d XMesh=\"2\">#ff0000 red </ColorArray2d>" + end, xml),
            "red at " + at(24) + "ColorArray2d at " + at(36));
  EXPECT_NE(xml.find("#ff0000 </ColorArray2d></Img2d>"), std::string::npos) << xml;
}

}  // namespace
