#include "vantry/page/axes_text.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <span>

#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/expr_list.h"

namespace vantry::page {

using namespace plot;

namespace {

/// Where a coordinate system keeps what it says of one axis.
struct Axis {
  const char* name;
  Token title;
  Token titleAlignment;
  Token grid;
  Token subgrid;
  Token labelStyle;
  Token amount;
  Token anchor;
  Token ticks;
  Token origin;
};

constexpr Axis allAxes[] = {
    {"x", Word::XAxisTitle, Word::XAxisTitleAlignment, Word::XGridVisible, Word::XSubgridVisible,
     Word::XTicksLabelStyle, Word::XTicksNumber, Word::XTicksAnchor, Word::XTicksAt,
     Word::AxesOriginX},
    {"y", Word::YAxisTitle, Word::YAxisTitleAlignment, Word::YGridVisible, Word::YSubgridVisible,
     Word::YTicksLabelStyle, Word::YTicksNumber, Word::YTicksAnchor, Word::YTicksAt,
     Word::AxesOriginY},
    {"z", Word::ZAxisTitle, Word::ZAxisTitleAlignment, Word::ZGridVisible, Word::ZSubgridVisible,
     Word::ZTicksLabelStyle, Word::ZTicksNumber, Word::ZTicksAnchor, Word::ZTicksAt,
     Word::AxesOriginZ},
};

const char* placeAlong(Token alignment) {
  if (alignment == Word::Begin) return "left";
  return alignment == Word::End ? "right" : "center";
}

/// The value of a child; NaN without one.
double childValue(const CoordinateSystemBase& system, Token name) {
  const auto* child = elementCast<VExpr, AxesOriginX, AxesOriginY, AxesOriginZ, XTicksAnchor,
                                  YTicksAnchor, ZTicksAnchor>(system.firstChildByName(name));
  return child ? child->value() : nan;
}

/// The ticks at places of their own. Without a title they show the expression for the place.
Json ticksText(const CoordinateSystemBase& system, Token name) {
  Json text = Json::array();
  const dom::Node* list = system.firstChildByName(name);
  for (const dom::Node* child = list ? list->firstChild() : nullptr; child;
       child = child->nextSibling()) {
    const auto* tick = elementCast<TickPos>(child);
    const auto* place = tick ? firstChildOf<VExpr>(*tick) : nullptr;
    if (!place || !std::isfinite(place->value())) continue;
    Json entry = {{"at", place->value()}};
    for (const Token label : {Word::VExpr, Word::Title}) {
      if (const std::string words = childText(*tick, label); !words.empty()) entry["text"] = words;
    }
    text.push_back(std::move(entry));
  }
  return text;
}

Json axisText(const CoordinateSystemBase& system, const Axis& axis) {
  Json text = {{"grid", propertyValue<bool>(system, axis.grid)},
               {"subgrid", propertyValue<bool>(system, axis.subgrid)},
               {"numbers", wordText(propertyValue<Token>(system, axis.labelStyle))},
               {"amount", wordText(propertyValue<Token>(system, axis.amount))}};
  if (const double anchor = childValue(system, axis.anchor); std::isfinite(anchor)) {
    text["anchor"] = anchor;
  }
  if (Json ticks = ticksText(system, axis.ticks); !ticks.empty()) text["ticks"] = std::move(ticks);
  if (const std::string title = childText(system, axis.title); !title.empty()) {
    text["title"] = fontText(system.axesTitleFont());
    text["title"]["text"] = title;
    text["title"]["align"] = placeAlong(propertyValue<Token>(system, axis.titleAlignment));
  }
  return text;
}

Json originText(const CoordinateSystemBase& system, std::span<const Axis> axes) {
  Json text = Json::array();
  for (const Axis& axis : axes) {
    const double value = childValue(system, axis.origin);
    text.push_back(std::isfinite(value) ? value : 0);
  }
  return text;
}

/// What only coordinate systems of the plane have.
void putPlane(Json& text, const CoordinateSystemBase& system) {
  const Token type = system.coordinateType();
  text["inFront"] = system.axesInFront();
  text["gridInFront"] = system.gridInFront();
  text["x"]["logarithmic"] = isOneOf(type, Word::LogLin, Word::LogLog);
  text["y"]["logarithmic"] = isOneOf(type, Word::LinLog, Word::LogLog);
  if (isSaid(system, Word::YAxisTitleOrientation)) {
    text["y"]["turned"] = system.yAxisTitleOrientation() == Word::Vertical;
  }
}

}  // namespace

Json axesText(const CoordinateSystemBase& system, bool is2d) {
  const auto axes = std::span(allAxes).first(is2d ? 2 : 3);
  Json text = {
      {"kind", wordText(system.axes())},
      {"tips", system.axesTips()},
      {"origin", originText(system, axes)},
      {"numbers", fontText(system.ticksLabelFont())},
      {"grid",
       {{"color", colorText(system.gridLineColor())},
        {"width", pixels(system.gridLineWidth())},
        {"style", wordText(system.gridLineStyle())}}},
      {"subgrid",
       {{"color", colorText(system.subgridLineColor())},
        {"width", pixels(system.subgridLineWidth())},
        {"style", wordText(system.subgridLineStyle())}}},
  };
  if (isSaid(system, Word::TicksLength)) text["tickLength"] = pixels(system.ticksLength());
  for (const Axis& axis : axes) text[axis.name] = axisText(system, axis);
  if (is2d) putPlane(text, system);
  return text;
}

}  // namespace vantry::page
