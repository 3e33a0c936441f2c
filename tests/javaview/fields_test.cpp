#include "vantry/javaview/emit_fields.h"

#include <gtest/gtest.h>

#include "property_effect.h"

namespace vantry::javaview {

using namespace plot;

namespace {

std::string vectors3d(int count) {
  std::string vectors;
  for (int i = 1; i <= count; ++i) vectors += "<P3>0 0 " + std::to_string(i) + "</P3>";
  return vectors;
}

std::string vectors2d(int count) {
  std::string vectors;
  for (int i = 1; i <= count; ++i) vectors += "<P2>0 " + std::to_string(i) + "</P2>";
  return vectors;
}

Attributes mesh(const std::string& x, const std::string& y) {
  return {{Word::XMesh, x}, {Word::YMesh, y}};
}

Attributes mesh(const std::string& x, const std::string& y, const std::string& z) {
  return {{Word::XMesh, x}, {Word::YMesh, y}, {Word::ZMesh, z}};
}

}  // namespace

TEST(Field3dTest, ShowsItsProperties) {
  expectPropertyEffects<Field3d>(
      {with(mesh("2", "1", "1"), {{Word::Delta, "1 2 3"}}), vectors3d(2)},
      {
          {Word::Anchor,
           "5 6 7",
           {{"<p>0 0 0</p>\n<p>1 0 0</p>\n", "<p>5 6 7</p>\n<p>6 6 7</p>\n"}}},
          {Word::Delta,
           "0.5 2 3",
           {{"<p>1 0 0</p>", "<p>0.5 0 0</p>"}, {"<length>0.4<", "<length>0.2<"}}},
          {Word::XMesh,
           "1",
           {{"<points num=\"2\">\n<p>0 0 0</p>\n<p>1 0 0</p>\n",
             "<points num=\"1\">\n<p>0 0 0</p>\n"},
            {"<vectors num=\"2\">\n<v>0 0 1</v>\n<v>0 0 2</v>\n",
             "<vectors num=\"1\">\n<v>0 0 1</v>\n"}}},
          {Word::YMesh, "2", vanishes},
          {Word::ZMesh, "2", vanishes},
          {Word::LineWidth, "1", {{"<thickness>1.77165<", "<thickness>3.54331<"}}},
          {Word::LineColor,
           "#01020380",
           {{"<color>0 0 0</color>\n</vectors>", "<color>1 2 3</color>\n</vectors>"},
            {"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColorType,
           "Dichromatic",
           {{"color=\"hide\"", "color=\"show\""},
            {"</vectors>\n",
             "</vectors>\n<colors num=\"2\">\n<c>0 0 255</c>\n<c>0 0 255</c>\n</colors>\n"}}},
          {Word::LineColorType,
           "Monochrome",
           {{"color=\"hide\"", "color=\"show\""},
            {"</vectors>\n",
             "</vectors>\n<colors num=\"2\">\n<c>0 0 0</c>\n<c>0 0 0</c>\n</colors>\n"}}},
          {Word::PointsVisible, "false", {{"arrow=\"show\"", "arrow=\"hide\""}}},
      });
}

TEST(Field3dTest, ShowsWhatColorsItsNodes) {
  const std::string colors = "<colors num=\"2\">\n<c>0 0 200</c>\n<c>100 0 100</c>\n</colors>\n";
  expectPropertyEffects<Field3d>(
      {with(with(mesh("1", "1", "2"), {{Word::Delta, "1 2 5"}}), fromBlueToRed), vectors3d(2)},
      {
          {Word::Anchor,  // the colours follow the anchor
           "5 6 7",
           {{"<p>0 0 0</p>\n<p>0 0 5</p>\n", "<p>5 6 7</p>\n<p>5 6 12</p>\n"}}},
          {Word::Delta,
           "1 2 -5",
           {{"<p>0 0 5</p>", "<p>0 0 -5</p>"}, {"<c>0 0 200</c>\n", "<c>200 0 0</c>\n"}}},
          {Word::XMesh, "2", vanishes},
          {Word::YMesh, "2", vanishes},
          {Word::ZMesh,
           "1",
           {{"<points num=\"2\">\n<p>0 0 0</p>\n<p>0 0 5</p>\n",
             "<points num=\"1\">\n<p>0 0 0</p>\n"},
            {"<vectors num=\"2\">\n<v>0 0 1</v>\n<v>0 0 2</v>\n",
             "<vectors num=\"1\">\n<v>0 0 1</v>\n"},
            {colors, "<colors num=\"1\">\n<c>0 0 200</c>\n</colors>\n"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165<", "<thickness>3.54331<"}}},
          {Word::LineColor,
           "#640000",
           {{"<color>200 0 0</color>\n</vectors>", "<color>100 0 0</color>\n</vectors>"},
            {"<c>100 0 100</c>", "<c>50 0 100</c>"}}},
          {Word::LineColor2,
           "#006400",
           {{"<c>0 0 200</c>\n<c>100 0 100</c>\n", "<c>0 100 0</c>\n<c>100 50 0</c>\n"}}},
          {Word::LineColorType, "Flat", {{"color=\"show\"", "color=\"hide\""}, {colors, ""}}},
          {Word::PointsVisible, "false", {{"arrow=\"show\"", "arrow=\"hide\""}}},
      });
}

TEST(Field2dTest, ShowsItsProperties) {
  const std::string colors = "<colors num=\"2\">\n<c>0 0 200</c>\n<c>100 0 100</c>\n</colors>\n";
  expectPropertyEffects<Field2d>(
      {with(with(mesh("1", "2"), {{Word::Delta, "1 5"}}), fromBlueToRed), vectors2d(2)},
      {
          {Word::Anchor, "5 6", {{"<p>0 0</p>\n<p>0 5</p>\n", "<p>5 6</p>\n<p>5 11</p>\n"}}},
          {Word::Delta,
           "0.5 -5",
           {{"<p>0 5</p>", "<p>0 -5</p>"},
            {"<length>0.4<", "<length>0.2<"},
            {"<c>0 0 200</c>\n", "<c>200 0 0</c>\n"}}},
          {Word::XMesh, "2", vanishes},
          {Word::YMesh,
           "1",
           {{"<points num=\"2\">\n<p>0 0</p>\n<p>0 5</p>\n", "<points num=\"1\">\n<p>0 0</p>\n"},
            {"<vectors num=\"2\">\n<v>0 1</v>\n<v>0 2</v>\n", "<vectors num=\"1\">\n<v>0 1</v>\n"},
            {colors, "<colors num=\"1\">\n<c>0 0 200</c>\n</colors>\n"}}},
          {Word::LineWidth, "1", {{"<thickness>1.77165<", "<thickness>3.54331<"}}},
          {Word::LineColor, "#c8000080", {{"\"hide\">0</tr", "\"show\">0.498039</tr"}}},
          {Word::LineColor,
           "#640000",
           {{"<color>200 0 0</color>\n</vectors>", "<color>100 0 0</color>\n</vectors>"},
            {"<c>100 0 100</c>", "<c>50 0 100</c>"}}},
          {Word::LineColor2,
           "#006400",
           {{"<c>0 0 200</c>\n<c>100 0 100</c>\n", "<c>0 100 0</c>\n<c>100 50 0</c>\n"}}},
          {Word::LineColorType, "Flat", {{"color=\"show\"", "color=\"hide\""}, {colors, ""}}},
          {Word::TipLength, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}},
          {Word::TipAngle, "0", {{"arrow=\"show\"", "arrow=\"hide\""}}},
      });
}

}  // namespace vantry::javaview
