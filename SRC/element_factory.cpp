#include "SRC/element_factory.h"

#include <array>
#include <cstdint>

#include "SRC/arc2d.h"
#include "SRC/arrow2d.h"
#include "SRC/arrow3d.h"
#include "SRC/box.h"
#include "SRC/camera.h"
#include "SRC/canvas.h"
#include "SRC/circle3d.h"
#include "SRC/clipping_box.h"
#include "SRC/color_array2d.h"
#include "SRC/cone.h"
#include "SRC/coordinate_system.h"
#include "SRC/density_array2d.h"
#include "SRC/ellipsoid.h"
#include "SRC/expr.h"
#include "SRC/expr_list.h"
#include "SRC/field2d.h"
#include "SRC/field3d.h"
#include "SRC/group.h"
#include "SRC/hints.h"
#include "SRC/img.h"
#include "SRC/lights.h"
#include "SRC/line2d.h"
#include "SRC/line3d.h"
#include "SRC/lines3d.h"
#include "SRC/mesh3d.h"
#include "SRC/obj_style.h"
#include "SRC/object.h"
#include "SRC/plane.h"
#include "SRC/plot_document.h"
#include "SRC/poly2d.h"
#include "SRC/poly3d.h"
#include "SRC/property_info.h"
#include "SRC/pt2d.h"
#include "SRC/pts2d.h"
#include "SRC/pts3d.h"
#include "SRC/scene.h"
#include "SRC/sphere.h"
#include "SRC/string_elements.h"
#include "SRC/surf3d.h"
#include "SRC/text2d.h"
#include "SRC/text3d.h"
#include "SRC/time_range.h"
#include "SRC/tr.h"
#include "SRC/transform.h"
#include "SRC/vertical_asymptote.h"
#include "SRC/view.h"
#include "base/word_table.h"

namespace PlotDom {

namespace {

struct FactoryRow {
  const Arbor::NodeClass& nodeClass;
  Ubase::Ref<PlotElement> (*make)(PlotDocument& document);
};

// wordOf() for the compiler.
constexpr WordId wordIdOf(Token word) {
  int id = 1;
  while (Ubase::tokenById(id) != word) ++id;
  return static_cast<WordId>(id);
}

template <class Element>
constexpr FactoryRow classOf() {
  return {elementClass<Element>,
          [](PlotDocument& document) -> Ubase::Ref<PlotElement> { return new Element(&document); }};
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
  Ubase::WordTable<std::uint8_t> numbers;
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

Ubase::Ref<PlotElement> makeElement(Token name, PlotDocument& document) {
  const FactoryRow* found = findClass(name);
  return found ? found->make(document) : nullptr;
}

bool isElementClass(WordId name) { return classNumbers[name] != 0; }

bool isOfItsClass(const Arbor::Element& element) {
  const FactoryRow* found = findClass(element.tagName());
  return found && element.nodeClass() == &found->nodeClass;
}

std::vector<Token> elementNames() {
  std::vector<Token> names;
  names.reserve(elementClasses.size());
  for (const FactoryRow& row : elementClasses) names.push_back(row.nodeClass.name);
  return names;
}

}  // namespace PlotDom
