// The rules for documents as a whole, which have been read.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "vantry/check/checking_reader.h"
#include "vantry/check/findings.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/plot/elements/box.h"
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/density_array2d.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/scene.h"
#include "vantry/plot/elements/surf3d.h"

namespace vantry::check {

/// What lies between two numbers.
struct Interval {
  double min;
  double max;
};

/// The bounds of the viewing box along x, y and z, where both are given and in their order.
using ViewingBox = std::array<std::optional<Interval>, 3>;

/// Whether an element is a light, and whether objects of a type are lights, whichever they have.
bool isLight(const dom::Node& node);
bool isLightType(Token type);

/// Finds in the tree of a document what is wrong with it though each of its parts is right: for
/// what reasons it cannot be converted, and what of it is hardly meant. What lost a part while it
/// was read is not reported to lack it.
class Review {
 public:
  Review(plot::PlotDocument& document, const Origins& origins, const Source& source,
         Findings& findings)
      : document_(document), origins_(origins), source_(source), findings_(findings) {}

  void run();

 private:
  using Names = std::initializer_list<Token>;

  void add(const Finding& finding, const dom::Node& element, std::vector<std::string> help = {});
  void addAtValue(const Finding& finding, const dom::Node& element, Token attribute,
                  std::vector<std::string> help = {});
  void addAtInfinite(const Finding& finding, const PlotElement& element, Names numbers,
                     std::vector<std::string> help);
  void addReversed(const PlotElement& element, Token attribute, Token begin, Token end,
                   const std::string& effect);
  std::string defaultsInWords(const PlotElement& element, Names names) const;

  // review.cpp: what is converted of the document.
  void reviewTexts(const PlotElement& canvas);
  void reviewScenes(const PlotElement& canvas);
  void reviewCoordinateSystem(const plot::CoordinateSystemBase& system);
  void reviewTransform(const PlotElement& transform, Token frame);
  void reviewObject(const plot::ObjectBase& object, bool isTransformed);
  void reviewImages(const plot::ObjectBase& object, Token image);
  void reviewLeftOut(const PlotElement& parent);
  bool reportLeftOut(const dom::Node& element);
  void tryToWriteTexts();
  void addNotWritable(const PlotElement& text);

  // review_display.cpp: what an object is seen in.
  void reviewBounds(const plot::CoordinateSystemBase& system);
  void reviewNumbers(const PlotElement& parent, Token begin, Token end);
  void reviewNumber(const PlotElement& parent, Token name, Token partner = {}, int side = 0);
  void reviewCameras(const plot::CoordinateSystemBase& system);
  bool reviewCamera(const plot::ObjectBase& object);
  void reviewLights(const plot::SceneBase& scene, const plot::CoordinateSystemBase& system);

  // review_animation.cpp: what moves.
  void reviewTimeRange(const PlotElement& canvas);
  void reviewAnimation(const PlotElement& element, Token frame);
  void reviewStandstill(const PlotElement& element, Token frame);
  void reviewFrames(const PlotElement& element, Token frame);

  // review_primitives.cpp: what objects are made of.
  void reviewPrimitive(const PlotElement& primitive, const plot::ObjectBase& object);
  bool reviewCounts(const PlotElement& primitive, const plot::ObjectBase& object);
  bool reviewMesh(const plot::Mesh3d& mesh);
  bool reviewSurface(const plot::Surf3d& surface);
  void reviewField(const PlotElement& field, std::int64_t vectors, Names sides, bool isVisible);
  void reviewArc(const plot::Arc2d& arc);
  void reviewBox(const plot::Box& box);
  void reviewColors(const PlotElement& primitive);
  void reviewCells(const plot::DensityArray2d& array);

  // review_drawing.cpp: what is to be seen of them.
  void reviewDrawing(const PlotElement& primitive, const plot::ObjectBase& object, bool isWhole);
  void reviewSight(const PlotElement& primitive);
  void reviewExtent(const plot::ObjectBase& object, Token image);

  // review_styles.cpp
  void reviewStyles(const PlotElement& canvas);
  void reviewSceneStyles(const PlotElement& canvas);

  plot::PlotDocument& document_;
  const Origins& origins_;
  const Source& source_;
  Findings& findings_;
  ViewingBox box_;
  bool is2d_ = false;
  bool hasTimeRange_ = false;
};

}  // namespace vantry::check
