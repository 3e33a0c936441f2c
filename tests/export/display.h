// Documents and the displays that they convert to.
#pragma once

#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "SRC/plot_document.h"
#include "dom/tree_walk.h"
#include "export/export_error.h"
#include "export/jvd_writer.h"
#include "reader/xml_parser.h"
#include "reader/zrd_parser_handler.h"

namespace PlotDom {

/// A document that was read from a text.
class Plot {
 public:
  explicit Plot(std::string_view zrd) {
    ZrdParserHandler handler(document_.get(), true, nullptr);
    Xml::Parser parser(&handler, true, nullptr);
    if (!parser.parse(zrd.data(), static_cast<int>(zrd.size()), true)) {
      throw std::invalid_argument("no document: " + std::string(zrd));
    }
  }
  Plot(const Plot&) = delete;
  Plot& operator=(const Plot&) = delete;
  ~Plot() { document_->tearDown(); }

  PlotDocument* document() const { return document_.get(); }

  /// The first element of that class in document order.
  template <class T>
  T& first() const {
    Arbor::Node* found = nullptr;
    Arbor::walkSubtree(*static_cast<Arbor::Node*>(document_.get()), [&](Arbor::Node& node) {
      if (!found && node.nodeName() == T::tag) found = &node;
      return !found;
    });
    if (!found) throw std::out_of_range(T::tag.str());
    return static_cast<T&>(*found);
  }

 private:
  Ubase::Ref<PlotDocument> document_{new PlotDocument};
};

/// What came of the conversion of a document to a display.
struct Display {
  std::string text;
  std::string error;
  std::vector<std::string> warnings;

  /// The text of all elements with that name, each up to the newline behind its end tag.
  std::string element(const std::string& name) const {
    std::string elements;
    const std::string end = "</" + name + ">\n";
    std::size_t at = 0;
    while ((at = text.find("<" + name, at)) != std::string::npos) {
      const std::size_t next = text.find(end, at);
      if (next == std::string::npos) break;
      elements += text.substr(at, next + end.size() - at);
      at = next;
    }
    return elements;
  }
};

/// Converts, with what the writer warns of and what it throws kept.
inline Display convert(PlotDocument* document, double time = nan) {
  class Writer : public JVDWriter {
   public:
    Writer(PlotDocument* source, std::vector<std::string>& warnings)
        : JVDWriter(source), warnings_(warnings) {}
    void warning(const char* message) override { warnings_.emplace_back(message); }

   private:
    std::vector<std::string>& warnings_;
  };

  Display display;
  std::ostringstream out;
  try {
    Writer(document, display.warnings).write(out, time);
  } catch (const JavaViewExportError& error) {
    display.error = error.what();
  }
  display.text = std::regex_replace(
      out.str(),
      std::regex("date=\"[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9]\\d \\d\\d:\\d\\d:\\d\\d \\d{4}\""),
      "date=\"DATE\"");
  return display;
}

inline Display convert(const std::string& zrd, double time = nan) {
  return convert(Plot(zrd).document(), time);
}

/// A document with one coordinate system.
inline std::string plot3d(const std::string& content, const std::string& attributes = "",
                          const std::string& sceneAttributes = "") {
  return "<Canvas><Scene3d " + sceneAttributes + "><CoordinateSystem3d " + attributes + ">" +
         content + "</CoordinateSystem3d></Scene3d></Canvas>";
}
inline std::string plot2d(const std::string& content, const std::string& attributes = "",
                          const std::string& canvasAttributes = "") {
  return "<Canvas " + canvasAttributes + "><Scene2d><CoordinateSystem2d " + attributes + ">" +
         content + "</CoordinateSystem2d></Scene2d></Canvas>";
}

/// The viewing box along one axis.
inline std::string range(char axis, const std::string& min, const std::string& max) {
  const std::string element = std::string("ViewingBox") + axis;
  return "<" + element + "Min Val=\"" + min + "\"/><" + element + "Max Val=\"" + max + "\"/>";
}

/// A viewing box of 4 by 10 by 4 around (0, 5, 1).
inline const std::string box3d =
    range('X', "-2", "2") + range('Y', "0", "10") + range('Z', "-1", "3");

/// A viewing box of 4 by 2 around (2, 0).
inline const std::string box2d = range('X', "0", "4") + range('Y', "-1", "1");

/// A viewing box from -1 to 1 on each axis.
inline const std::string unitBox3d =
    range('X', "-1", "1") + range('Y', "-1", "1") + range('Z', "-1", "1");

}  // namespace PlotDom
