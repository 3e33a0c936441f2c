#include "zrd/indented_xml.h"

#include <ostream>
#include <sstream>
#include <string_view>

#include "vantry/dom/tree_walk.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/density_array2d.h"
#include "zrd/format_namespace.h"
#include "zrd/shortest_numbers.h"

namespace vantry::zrd {

namespace {

using namespace plot;

/// How many entries an array has in a row; 0 for an element with other data, or without.
std::int32_t columnsOf(const PlotElement& element) {
  if (const auto* colors = elementCast<ColorArray2d>(&element)) return colors->xMesh();
  if (const auto* values = elementCast<DensityArray2d>(&element)) return values->xMesh();
  return 0;
}

bool hasChildrenToWrite(const PlotElement& element) {
  for (const dom::Node* child = element.firstChild(); child; child = child->nextSibling()) {
    const PlotElement* childElement = PlotElement::from(child);
    if (!childElement || childElement->isWritten()) return true;
  }
  return false;
}

class Writer {
 public:
  Writer() { out_.imbue(withShortestNumbers()); }

  std::string write(const PlotElement& root) {
    out_ << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    const auto enter = [this](const dom::Node& node) { return begin(*PlotElement::from(&node)); };
    const auto leave = [this](const dom::Node& node) { end(*PlotElement::from(&node)); };
    dom::walkSubtree<const dom::Node>(root, enter, leave);
    return std::move(out_).str();
  }

 private:
  /// True if elements follow, and end() after them. Texts and elements never are in one element.
  bool begin(const PlotElement& element) {
    if (!element.isWritten()) return false;
    const std::string data = dataOf(element);
    const bool hasText = element.firstChild() && element.firstChild()->asText();
    indent() << '<' << element.tagName().str();
    if (element.tagName() == Word::Canvas) out_ << " xmlns=\"" << formatNamespace << '"';
    writeAttributes(element);
    if (!data.empty()) {
      out_ << ">\n";
      columnsOf(element) > 0 ? writeRows(data, columnsOf(element)) : writePoints(data);
      finish(indent(), element);
    } else if (hasText) {
      out_ << '>';
      for (const dom::Node* text = element.firstChild(); text; text = text->nextSibling()) {
        text->writeXml(out_);
      }
      finish(out_, element);
    } else if (hasChildrenToWrite(element)) {
      out_ << ">\n";
      ++depth_;
      return true;
    } else {
      out_ << "/>\n";
    }
    return false;
  }

  /// Line breaks and tabs in values would be blanks for the next reader, unless they are written as
  /// references.
  void writeAttributes(const PlotElement& element) {
    std::ostringstream attributes;
    attributes.imbue(out_.getloc());
    element.writeAttributes(attributes);
    for (const char c : attributes.view()) {
      const bool isBlankForReaders = c == '\n' || c == '\t' || c == '\r';
      isBlankForReaders ? out_ << "&#" << static_cast<int>(c) << ';' : out_ << c;
    }
  }

  void end(const PlotElement& element) {
    --depth_;
    finish(indent(), element);
  }

  static void finish(std::ostream& out, const PlotElement& element) {
    out << "</" << element.tagName().str() << ">\n";
  }

  std::ostream& indent() { return out_ << std::string(2 * depth_, ' '); }

  static std::string dataOf(const PlotElement& element) {
    std::ostringstream data;
    data.imbue(withShortestNumbers());
    element.writeContent(data);
    return std::move(data).str();
  }

  /// Each point begins with the tag that the first one begins with.
  void writePoints(std::string_view points) {
    const std::string_view tag = points.substr(0, points.find('>') + 1);
    while (!points.empty()) {
      const std::size_t next = points.find(tag, tag.size());
      indent() << "  " << points.substr(0, next) << '\n';
      points.remove_prefix(std::min(next, points.size()));
    }
  }

  void writeRows(std::string_view entries, std::int32_t columns) {
    std::int32_t column = 0;
    while (!entries.empty()) {
      const std::size_t end = entries.find(' ');
      (column == 0 ? indent() << "  " : out_ << ' ') << entries.substr(0, end);
      entries.remove_prefix(std::min(end, entries.size() - 1) + 1);
      column = (column + 1) % columns;
      if (column == 0) out_ << '\n';
    }
    if (column != 0) out_ << '\n';
  }

  std::ostringstream out_;
  std::size_t depth_ = 0;
};

}  // namespace

std::string indentedXml(const PlotDocument& document) {
  std::ostream nowhere(nullptr);
  document.writeXml(nowhere);  // throws for what could not be read back
  return Writer().write(*document.documentElement());
}

}  // namespace vantry::zrd
