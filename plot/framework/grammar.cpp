#include "vantry/plot/framework/grammar.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace vantry::plot {

using base::Token;

namespace {

using Names = std::initializer_list<Token>;

/// What may be below an element. `options` may be there once each; `required` are those of them
/// that must be there. The options of the `counterpart` are known, but illegal.
struct Row {
  Token parent;
  Names content;
  Names options = {};
  Names required = {};
  Token counterpart = {};
};

using namespace base::Word;

// clang-format off
constexpr Row rows[] = {
    // The document and its parts.
    {Canvas,
     {Scene2d, Scene3d, ObjStyle, ObjType},
     {Header, Footer, Scene2dStyle, Scene3dStyle, CoordinateSystem2dStyle, CoordinateSystem3dStyle,
      TimeRange}},
    {Scene2d,
     {CoordinateSystem2d, ObjStyle},
     {Header, Footer, View2d, CoordinateSystem2dStyle},
     {}, Scene3d},
    {Scene3d,
     {CoordinateSystem3d, ObjStyle},
     {Header, Footer, ClippingBox, View3d, CoordinateSystem3dStyle},
     {}, Scene2d},
    {CoordinateSystem2d,
     {Obj2d, Group2d, Transform2d, ObjStyle},
     {ViewingBoxXMin, ViewingBoxXMax, ViewingBoxYMin, ViewingBoxYMax,
      AxesOriginX, AxesOriginY,
      XAxisTitle, YAxisTitle,
      XTicksAnchor, XTicksDistance, YTicksAnchor, YTicksDistance,
      XTicksAt, YTicksAt,
      Hints},
     {}, CoordinateSystem3d},
    {CoordinateSystem3d,
     {Obj3d, Group3d, Transform3d, ObjStyle},
     {ViewingBoxXMin, ViewingBoxXMax, ViewingBoxYMin, ViewingBoxYMax, ViewingBoxZMin, ViewingBoxZMax,
      AxesOriginX, AxesOriginY, AxesOriginZ,
      XAxisTitle, YAxisTitle, ZAxisTitle,
      XTicksAnchor, XTicksDistance, YTicksAnchor, YTicksDistance, ZTicksAnchor, ZTicksDistance,
      XTicksAt, YTicksAt, ZTicksAt,
      Hints},
     {}, CoordinateSystem2d},

    // Objects, alone and together.
    {Obj2d,
     {Expr, ExprSeq, ColorFunc, Prop, Img2d},
     {ParameterName, ParameterBegin, ParameterEnd, Title, TitlePositionX, TitlePositionY, LegendText,
      Points2d},
     {}, Obj3d},
    {Obj3d,
     {Expr, ExprSeq, ColorFunc, Prop, Img3d},
     {ParameterName, ParameterBegin, ParameterEnd, Title, TitlePositionX, TitlePositionY,
      TitlePositionZ, LegendText, Points3d, TextOrientation},
     {}, Obj2d},
    {Group2d, {Obj2d, Group2d, Transform2d, ObjStyle}},
    {Group3d, {Obj3d, Group3d, Transform3d, ObjStyle}},
    {Transform2d,
     {Expr, Tr2d, Obj2d, Group2d, Transform2d},
     {ParameterName, ParameterBegin, ParameterEnd, Matrix2d},
     {}, Transform3d},
    {Transform3d,
     {Expr, Tr3d, Obj3d, Group3d, Transform3d},
     {ParameterName, ParameterBegin, ParameterEnd, Matrix3d},
     {}, Transform2d},

    // Primitives.
    {Img2d,
     {Poly2d, Arc2d, Pt2d, Pts2d, Line2d, Arrow2d, Text2d, VerticalAsymptote, Field2d, ColorArray2d,
      DensityArray2d}},
    {Img3d,
     {Mesh3d, Pts3d, Line3d, Lines3d, Surf3d, Field3d, Arrow3d, Box, Circle3d, Cone, Sphere,
      Ellipsoid, Plane, Text3d, Poly3d,
      Camera, AmbientLight, PointLight, DistantLight, SpotLight, ClippingBox}},

    // Expressions. How many a tuple has depends on its class.
    {ExprSeq,         {IExpr}},
    {ColorFunc,       {IExpr}},
    {Point2d,         {IExpr}},
    {Point3d,         {IExpr}},
    {Matrix2d,        {IExpr}},
    {Matrix3d,        {IExpr}},
    {TextOrientation, {IExpr}},
    {Points2d,        {Point2d}},
    {Points3d,        {Point3d}},
    {XTicksAt,        {TickPos}},
    {YTicksAt,        {TickPos}},
    {ZTicksAt,        {TickPos}},
    {TickPos,         {}, {VExpr, Title}, {VExpr}},

    // The description of properties.
    {ObjType, {PropCat}},
    {PropCat, {PropCat, PropInfo}},
};

constexpr Token textElements[] = {
    Text2d, Text3d, Header, Footer, Title, LegendText, XAxisTitle, YAxisTitle, ZAxisTitle,
    Expr, IExpr, VExpr, ParameterName, ParameterBegin, ParameterEnd,
    TitlePositionX, TitlePositionY, TitlePositionZ, AxesOriginX, AxesOriginY, AxesOriginZ,
    XTicksAnchor, YTicksAnchor, ZTicksAnchor, XTicksDistance, YTicksDistance, ZTicksDistance,
    ViewingBoxXMin, ViewingBoxXMax, ViewingBoxYMin, ViewingBoxYMax, ViewingBoxZMin, ViewingBoxZMax,
};
// clang-format on

constexpr auto isText = [] {
  base::WordTable<bool> table;
  for (const Token element : textElements) table[element] = true;
  return table;
}();

constexpr Row noChildren = {Token(), {}};

// The row of each parent, from 1; 0 for a name without one.
constexpr auto rowNumbers = base::rowNumbers(rows, &Row::parent);

constexpr const Row& rowOf(Token parent) {
  const std::size_t number = rowNumbers[parent];
  return number > 0 ? rows[number - 1] : noChildren;
}

constexpr ChildRules::Names spanOf(const Names& names) { return {names.begin(), names.size()}; }

// The rules of each row; those of no row come first.
constexpr auto rulesOfRows = [] {
  std::array<ChildRules, std::size(rows) + 1> rules;
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const Row& row = rows[i];
    rules[i + 1] = ChildRules(spanOf(row.content), spanOf(row.options), spanOf(row.required),
                              spanOf(rowOf(row.counterpart).options));
  }
  return rules;
}();

}  // namespace

std::span<const Token> contentOf(Token parent) { return spanOf(rowOf(parent).content); }

std::span<const Token> allowedOptionsOf(Token parent) { return spanOf(rowOf(parent).options); }

std::span<const Token> requiredOptionsOf(Token parent) { return spanOf(rowOf(parent).required); }

bool takesText(Token element) { return isText[element]; }

const ChildRules& childRulesOf(Token parent) { return rulesOfRows[rowNumbers[parent]]; }

Token ChildRules::optionIn(std::uint32_t mask) const {
  const auto isInMask = [&](Token name) { return (optionBit(name) & mask) != 0; };
  return *std::ranges::find_if(base::wordTokens, isInMask);
}

}  // namespace vantry::plot
