// Conversion of documents that hold a single primitive.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "conversion.h"
#include "vantry/plot/framework/grammar.h"

namespace vantry::javaview {

/// Attributes of an element by name, with their values as they are in its start tag.
using Attributes = std::map<base::Token, std::string>;

/// `attributes` with `more` beside them.
inline Attributes with(Attributes attributes, const Attributes& more) {
  attributes.insert(more.begin(), more.end());
  return attributes;
}

/// Lines that are coloured by height.
inline const Attributes fromBlueToRed{{base::Word::LineColorType, "Dichromatic"},
                                      {base::Word::LineColor, "#c80000"},
                                      {base::Word::LineColor2, "#0000c8"}};

/// A document with one object of one primitive. Its viewing box goes from 0 to 10 on the height
/// axis.
struct MinimalDocument {
  Attributes attributes;
  std::string content = {};
  /// The attributes of a transform around the object; none for no transform.
  Attributes transform = {};
};

inline std::string startTag(const std::string& name, const Attributes& attributes) {
  std::string tag = "<" + name;
  for (const auto& [attribute, value] : attributes) {
    tag.append(" ").append(attribute.str()).append("=\"").append(value).append("\"");
  }
  return tag + ">";
}

/// The text of the document, with the primitive `name` in the plane ("2d") or in space ("3d").
inline std::string textOf(const MinimalDocument& source, const std::string& name,
                          const std::string& dimension) {
  const auto element = [](const std::string& tag, const Attributes& attributes,
                          const std::string& content) {
    return startTag(tag, attributes) + content + "</" + tag + ">";
  };
  const auto viewingBox = [&](const std::string& bound, const std::string& value) {
    const std::string axis = dimension == "2d" ? "Y" : "Z";
    return element("ViewingBox" + axis + bound, {{base::Word::Val, value}}, "");
  };
  const std::string primitive = element(name, source.attributes, source.content);
  std::string object = element("Obj" + dimension, {{base::Word::Type, name}},
                               element("Img" + dimension, {}, primitive));
  if (!source.transform.empty()) {
    object = element("Transform" + dimension, {{base::Word::Type, "Rotate"}},
                     element("Tr" + dimension, source.transform, "") + object);
  }
  const std::string coordinateSystem =
      element("CoordinateSystem" + dimension, {},
              viewingBox("Min", "0") + viewingBox("Max", "10") + object);
  return element("Canvas", {}, element("Scene" + dimension, {}, coordinateSystem));
}

/// What is written for the one primitive of the document: the content of `<geometries>`.
template <class T>
std::string convert(const MinimalDocument& source) {
  const auto primitives2d = plot::contentOf(base::Word::Img2d);
  const bool is2d = std::ranges::find(primitives2d, T::tag) != primitives2d.end();

  const JvxConversion conversion(textOf(source, T::tag.str(), is2d ? "2d" : "3d"));
  EXPECT_EQ(conversion.error, "");
  const std::string_view head = "<geometries>\n";
  const std::size_t begin = conversion.text.find(head) + head.size();
  return conversion.text.substr(begin, conversion.text.find("</geometries>\n") - begin);
}

// Texts that nearly every geometry has.

/// `<material>` with the content of `<transparency>` and its attribute; opaque as a rule.
inline std::string material(std::string_view attributes = "",
                            std::string_view transparency = "\"hide\">0") {
  return std::string("<material")
      .append(attributes)
      .append(
          ">\n"
          "<ambientIntensity>0.2</ambientIntensity>\n"
          "<diffuse><color>128 128 128</color></diffuse>\n"
          "<emissive><color>0 0 0</color></emissive>\n"
          "<shininess>0.9</shininess>\n"
          "<specular><color>128 128 128</color></specular>\n"
          "<transparency visible=")
      .append(transparency)
      .append("</transparency>\n</material>\n");
}

/// `<material>` of smooth shading.
inline std::string smoothMaterial(std::string_view transparency = "\"hide\">0") {
  return material(" shading=\"gouraud\"", transparency);
}

/// `<transparency>` for alpha 128: 1 - 128 / 255.
inline constexpr std::string_view halfTransparent = "\"show\">0.498039";

inline std::string repeated(std::string_view text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

}  // namespace vantry::javaview
