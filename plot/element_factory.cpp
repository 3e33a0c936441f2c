#include "vantry/plot/element_factory.h"

#include <array>
#include <cstdint>

#include "vantry/base/word_table.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/plot/elements/arrow2d.h"
#include "vantry/plot/elements/arrow3d.h"
#include "vantry/plot/elements/box.h"
#include "vantry/plot/elements/camera.h"
#include "vantry/plot/elements/canvas.h"
#include "vantry/plot/elements/circle3d.h"
#include "vantry/plot/elements/clipping_box.h"
#include "vantry/plot/elements/color_array2d.h"
#include "vantry/plot/elements/cone.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/elements/ellipsoid.h"
#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/expr_list.h"
#include "vantry/plot/elements/field2d.h"
#include "vantry/plot/elements/field3d.h"
#include "vantry/plot/elements/group.h"
#include "vantry/plot/elements/hints.h"
#include "vantry/plot/elements/img.h"
#include "vantry/plot/elements/lights.h"
#include "vantry/plot/elements/line2d.h"
#include "vantry/plot/elements/line3d.h"
#include "vantry/plot/elements/lines3d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/plane.h"
#include "vantry/plot/elements/poly2d.h"
#include "vantry/plot/elements/poly3d.h"
#include "vantry/plot/elements/property_info.h"
#include "vantry/plot/elements/pt2d.h"
#include "vantry/plot/elements/pts2d.h"
#include "vantry/plot/elements/pts3d.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/sphere.h"
#include "vantry/plot/elements/string_elements.h"
#include "vantry/plot/elements/surf3d.h"
#include "vantry/plot/elements/text2d.h"
#include "vantry/plot/elements/text3d.h"
#include "vantry/plot/elements/time_range.h"
#include "vantry/plot/elements/tr.h"
#include "vantry/plot/elements/transform.h"
#include "vantry/plot/elements/vertical_asymptote.h"
#include "vantry/plot/elements/view.h"
#include "vantry/plot/styles/obj_style.h"

namespace vantry::plot {

namespace {

struct FactoryRow {
  const dom::NodeClass& nodeClass;
  base::Ref<PlotElement> (*make)(PlotDocument& document);
};

// wordOf() for the compiler.
constexpr WordId wordIdOf(Token word) {
  int id = 1;
  while (base::tokenById(id) != word) ++id;
  return static_cast<WordId>(id);
}

template <class Element>
constexpr FactoryRow classOf() {
  return {elementClass<Element>,
          [](PlotDocument& document) -> base::Ref<PlotElement> { return new Element(&document); }};
}

constexpr std::array elementClasses = {
    classOf<AmbientLight>(),
    classOf<Arc2d>(),
    classOf<Arrow2d>(),
    classOf<Arrow3d>(),
    classOf<AxesOriginX>(),
    classOf<AxesOriginY>(),
    classOf<AxesOriginZ>(),
    classOf<Box>(),
    classOf<Camera>(),
    classOf<Canvas>(),
    classOf<Circle3d>(),
    classOf<ClippingBox>(),
    classOf<ColorArray2d>(),
    classOf<ColorFunc>(),
    classOf<Cone>(),
    classOf<CoordinateSystem2d>(),
    classOf<CoordinateSystem2dStyle>(),
    classOf<CoordinateSystem3d>(),
    classOf<CoordinateSystem3dStyle>(),
    classOf<DensityArray2d>(),
    classOf<DistantLight>(),
    classOf<Ellipsoid>(),
    classOf<Expr>(),
    classOf<ExprSeq>(),
    classOf<Field2d>(),
    classOf<Field3d>(),
    classOf<Footer>(),
    classOf<Group2d>(),
    classOf<Group3d>(),
    classOf<Header>(),
    classOf<Hints>(),
    classOf<IExpr>(),
    classOf<Img2d>(),
    classOf<Img3d>(),
    classOf<LegendText>(),
    classOf<Line2d>(),
    classOf<Line3d>(),
    classOf<Lines3d>(),
    classOf<Matrix2d>(),
    classOf<Matrix3d>(),
    classOf<Mesh3d>(),
    classOf<Obj2d>(),
    classOf<Obj3d>(),
    classOf<ObjStyle>(),
    classOf<ObjType>(),
    classOf<ParameterBegin>(),
    classOf<ParameterEnd>(),
    classOf<ParameterName>(),
    classOf<Plane>(),
    classOf<Point2d>(),
    classOf<Point3d>(),
    classOf<PointLight>(),
    classOf<Points2d>(),
    classOf<Points3d>(),
    classOf<Poly2d>(),
    classOf<Poly3d>(),
    classOf<Prop>(),
    classOf<PropCat>(),
    classOf<PropInfo>(),
    classOf<Pt2d>(),
    classOf<Pts2d>(),
    classOf<Pts3d>(),
    classOf<Scene2d>(),
    classOf<Scene2dStyle>(),
    classOf<Scene3d>(),
    classOf<Scene3dStyle>(),
    classOf<Sphere>(),
    classOf<SpotLight>(),
    classOf<Surf3d>(),
    classOf<Text2d>(),
    classOf<Text3d>(),
    classOf<TextOrientation>(),
    classOf<TickPos>(),
    classOf<TimeRange>(),
    classOf<Title>(),
    classOf<TitlePositionX>(),
    classOf<TitlePositionY>(),
    classOf<TitlePositionZ>(),
    classOf<Tr2d>(),
    classOf<Tr3d>(),
    classOf<Transform2d>(),
    classOf<Transform3d>(),
    classOf<VExpr>(),
    classOf<VerticalAsymptote>(),
    classOf<View2d>(),
    classOf<View3d>(),
    classOf<ViewingBoxXMax>(),
    classOf<ViewingBoxXMin>(),
    classOf<ViewingBoxYMax>(),
    classOf<ViewingBoxYMin>(),
    classOf<ViewingBoxZMax>(),
    classOf<ViewingBoxZMin>(),
    classOf<XAxisTitle>(),
    classOf<XTicksAnchor>(),
    classOf<XTicksAt>(),
    classOf<XTicksDistance>(),
    classOf<YAxisTitle>(),
    classOf<YTicksAnchor>(),
    classOf<YTicksAt>(),
    classOf<YTicksDistance>(),
    classOf<ZAxisTitle>(),
    classOf<ZTicksAnchor>(),
    classOf<ZTicksAt>(),
    classOf<ZTicksDistance>(),
};

// The place of each class in the list, from 1, by its name; 0 for a word that is no class.
constexpr auto classNumbers = [] {
  static_assert(elementClasses.size() < 256);
  base::WordTable<std::uint8_t> numbers;
  for (std::size_t i = 0; i < elementClasses.size(); ++i) {
    numbers[wordIdOf(elementClasses[i].nodeClass.name)] = static_cast<std::uint8_t>(i + 1);
  }
  return numbers;
}();

// The class with that name, or null.
const FactoryRow* findClass(Token name) {
  const std::size_t number = classNumbers[name];
  return number > 0 ? &elementClasses[number - 1] : nullptr;
}

}  // namespace

base::Ref<PlotElement> makeElement(Token name, PlotDocument& document) {
  const FactoryRow* found = findClass(name);
  return found ? found->make(document) : nullptr;
}

bool isElementClass(WordId name) { return classNumbers[name] != 0; }

bool isOfItsClass(const dom::Element& element) {
  const FactoryRow* found = findClass(element.tagName());
  return found && element.nodeClass() == &found->nodeClass;
}

std::vector<Token> elementNames() {
  std::vector<Token> names;
  names.reserve(elementClasses.size());
  for (const FactoryRow& row : elementClasses) names.push_back(row.nodeClass.name);
  return names;
}

}  // namespace vantry::plot
