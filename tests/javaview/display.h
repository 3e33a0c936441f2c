// Documents and the displays that they convert to.
#pragma once

#include <stdexcept>
#include <string>

#include "conversion.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/jvd_writer.h"

namespace vantry::javaview {

/// The display that a document converts to.
struct Display : Conversion<JVDWriter> {
  using Conversion::Conversion;

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

/// The first element of that class in document order.
template <class T>
T& first(const ReadDocument& document) {
  dom::Node* found = nullptr;
  dom::walkSubtree<dom::Node>(*document.get(), [&](dom::Node& node) {
    if (!found && node.nodeName() == T::tag) found = &node;
    return !found;
  });
  if (!found) throw std::out_of_range(T::tag.str());
  return static_cast<T&>(*found);
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

}  // namespace vantry::javaview
