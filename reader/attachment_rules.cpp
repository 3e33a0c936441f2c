#include "vantry/reader/attachment_rules.h"

#include <initializer_list>

#include "vantry/base/word_table.h"

namespace vantry::reader {

using base::WordId;

namespace {

struct Row {
  AttachmentRule rule;
  std::initializer_list<WordId> elements;
};

constexpr Row rows[] = {
    {{Place::append, Required::nothing, Content::nothing},
     {WordId::AmbientLight,
      WordId::Arc2d,
      WordId::Arrow2d,
      WordId::Arrow3d,
      WordId::Box,
      WordId::Camera,
      WordId::Circle3d,
      WordId::ClippingBox,
      WordId::Cone,
      WordId::CoordinateSystem2d,
      WordId::CoordinateSystem3d,
      WordId::DistantLight,
      WordId::Ellipsoid,
      WordId::Field2d,
      WordId::Field3d,
      WordId::Group2d,
      WordId::Group3d,
      WordId::Img2d,
      WordId::Img3d,
      WordId::Line2d,
      WordId::Line3d,
      WordId::Mesh3d,
      WordId::Plane,
      WordId::Point2d,
      WordId::Point3d,
      WordId::PointLight,
      WordId::Poly2d,
      WordId::Poly3d,
      WordId::Pt2d,
      WordId::Pts2d,
      WordId::Pts3d,
      WordId::Scene2d,
      WordId::Scene3d,
      WordId::Sphere,
      WordId::SpotLight,
      WordId::TickPos,
      WordId::Tr2d,
      WordId::Tr3d,
      WordId::VerticalAsymptote}},
    {{Place::append, Required::nothing, Content::text}, {WordId::Text2d, WordId::Text3d}},
    {{Place::append, Required::nothing, Content::words},
     {WordId::ColorArray2d, WordId::DensityArray2d}},
    {{Place::append, Required::typeToken, Content::nothing},
     {WordId::Lines3d, WordId::Obj2d, WordId::Obj3d, WordId::ObjStyle, WordId::ObjType,
      WordId::Surf3d, WordId::Transform2d, WordId::Transform3d}},
    {{Place::append, Required::optToken, Content::nothing}, {WordId::ColorFunc, WordId::ExprSeq}},
    {{Place::append, Required::optToken, Content::text}, {WordId::Expr}},
    {{Place::append, Required::optTokenAndVal, Content::nothing}, {WordId::Prop}},
    {{Place::append, Required::nameText, Content::nothing}, {WordId::PropCat}},
    {{Place::append, Required::domToken, Content::nothing}, {WordId::PropInfo}},
    {{Place::unique, Required::nothing, Content::nothing},
     {WordId::CoordinateSystem2dStyle, WordId::CoordinateSystem3dStyle, WordId::Hints,
      WordId::Matrix2d, WordId::Matrix3d, WordId::Points2d, WordId::Points3d, WordId::Scene2dStyle,
      WordId::Scene3dStyle, WordId::TextOrientation, WordId::TimeRange, WordId::View2d,
      WordId::View3d, WordId::XTicksAt, WordId::YTicksAt, WordId::ZTicksAt}},
    {{Place::unique, Required::nothing, Content::text},
     {WordId::AxesOriginX,    WordId::AxesOriginY,    WordId::AxesOriginZ,
      WordId::Footer,         WordId::Header,         WordId::LegendText,
      WordId::ParameterBegin, WordId::ParameterEnd,   WordId::ParameterName,
      WordId::Title,          WordId::TitlePositionX, WordId::TitlePositionY,
      WordId::TitlePositionZ, WordId::ViewingBoxXMax, WordId::ViewingBoxXMin,
      WordId::ViewingBoxYMax, WordId::ViewingBoxYMin, WordId::ViewingBoxZMax,
      WordId::ViewingBoxZMin, WordId::XAxisTitle,     WordId::XTicksAnchor,
      WordId::XTicksDistance, WordId::YAxisTitle,     WordId::YTicksAnchor,
      WordId::YTicksDistance, WordId::ZAxisTitle,     WordId::ZTicksAnchor,
      WordId::ZTicksDistance}},
    {{Place::positional, Required::nothing, Content::text}, {WordId::IExpr, WordId::VExpr}},
    {{Place::root, Required::nothing, Content::nothing}, {WordId::Canvas}},
};

constexpr auto rules = [] {
  base::WordTable<AttachmentRule> table;
  for (const Row& row : rows) {
    for (const WordId element : row.elements) table[element] = row.rule;
  }
  return table;
}();

}  // namespace

const AttachmentRule& attachmentRule(WordId element) { return rules[element]; }

}  // namespace vantry::reader
