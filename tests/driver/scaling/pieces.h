// The parts that documents of many items are made of.
#pragma once

#include <cstddef>
#include <string>

inline std::string repeated(const std::string& text, std::size_t count) {
  std::string all;
  all.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

/// `count` texts, in each of which every "#" is its number.
inline std::string numbered(const std::string& text, std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) {
    for (const char c : text) c == '#' ? all += std::to_string(i) : all += c;
  }
  return all;
}

inline std::string nested(const std::string& begin, const std::string& inner,
                          const std::string& end, std::size_t count) {
  return repeated(begin, count) + inner + repeated(end, count);
}

inline std::string canvas(const std::string& content, const std::string& before = "") {
  return before + "<Canvas xmlns='http://plots.example/xml/Corvane'>" + content + "</Canvas>\n";
}

inline std::string plane(const std::string& content, const std::string& before = "") {
  return canvas("<Scene2d><CoordinateSystem2d>" + content + "</CoordinateSystem2d></Scene2d>",
                before);
}

inline std::string space(const std::string& content) {
  return canvas("<Scene3d><CoordinateSystem3d>" + content + "</CoordinateSystem3d></Scene3d>");
}

inline std::string image(const std::string& content) {
  return plane("<Obj2d Type='Curve2d'><Img2d>" + content + "</Img2d></Obj2d>");
}

inline std::string body(const std::string& content) {
  return space("<Obj3d Type='Surface'><Img3d>" + content + "</Img3d></Obj3d>");
}
