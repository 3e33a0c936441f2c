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
#include "vantry/plot/elements/coordinate_system.h"
#include "vantry/plot/elements/mesh3d.h"
#include "vantry/plot/elements/object.h"
#include "vantry/plot/elements/surf3d.h"

namespace vantry::check {

/// What lies between two numbers.
struct Interval {
  double min;
  double max;
};

/// The bounds of the viewing box along x, y and z, where both are given and in their order.
using ViewingBox = std::array<std::optional<Interval>, 3>;

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
  void add(const Finding& finding, const dom::Node& element, std::vector<std::string> help = {});
  void addAtValue(const Finding& finding, const dom::Node& element, Token attribute,
                  std::vector<std::string> help = {});

  // review.cpp: what is converted of the document.
  void reviewTimeRange(const PlotElement& canvas);
  void reviewTexts(const PlotElement& canvas);
  void reviewScenes(const PlotElement& canvas);
  void reviewCoordinateSystem(const plot::CoordinateSystemBase& system);
  void reviewTransform(const PlotElement& transform, Token frame);
  void reviewObject(const plot::ObjectBase& object, bool isTransformed);
  void reviewImages(const plot::ObjectBase& object, Token image);
  void reviewAnimation(const PlotElement& element, Token frame);
  void tryToWriteTexts();

  // review_primitives.cpp: what objects are made of.
  void reviewPrimitive(const PlotElement& primitive, const plot::ObjectBase& object);
  void reviewDrawing(const PlotElement& primitive, const plot::ObjectBase& object);
  void reviewCounts(const PlotElement& primitive);
  void reviewMesh(const plot::Mesh3d& mesh);
  void reviewSurface(const plot::Surf3d& surface);
  void reviewField(const PlotElement& field, std::int64_t vectors,
                   std::initializer_list<std::int32_t> sides);
  void reviewArc(const plot::Arc2d& arc);
  void reviewColors(const PlotElement& primitive);
  void reviewExtent(const plot::ObjectBase& object, Token image);

  // review_styles.cpp
  void reviewStyles(const PlotElement& canvas);

  plot::PlotDocument& document_;
  const Origins& origins_;
  const Source& source_;
  Findings& findings_;
  ViewingBox box_;
  bool is2d_ = false;
  bool hasTimeRange_ = false;
};

}  // namespace vantry::check
