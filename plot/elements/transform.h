// Transforms of objects.
#pragma once

#include "vantry/plot/framework/element_with_children.h"
#include "vantry/plot/framework/with_properties.h"
#include "vantry/plot/styles/style_index.h"

namespace vantry::plot {

/// Maps the objects in it. It may be animated, with a Tr2d or Tr3d for each key frame, and inherits
/// its times from the object styles around it, by its type.
class TransformBase
    : public ContainerWithProperties<TransformBase,
                                     StyleContainer<ElementWithOptions, /*hasStyles=*/false>>,
      public MemberValues {
 public:
  explicit TransformBase(ElementDocument* document);

  bool visitStyles(StyleVisitor& visitor) const override;

  /// A call with the attributes and the children as its arguments.
  bool beginCommand(CmdWriter& writer) const override;
  void endCommand(CmdWriter& writer) const override;

  static const PropertyList& propertyList();

  Resolved<Token> type;
  Resolved<base::FixedString> id;
  Resolved<base::FixedString> name;
  Resolved<bool> consistent;
  Resolved<std::int32_t> frames;
  Resolved<double> timeBegin;
  Resolved<double> timeEnd;

 protected:
  TransformBase(const TransformBase&) = default;
};

/// A transform of objects in the plane.
class Transform2d : public ElementOf<Transform2d, TransformBase> {
 public:
  static constexpr Token tag = Word::Transform2d;
  using ElementOf::ElementOf;
};

/// A transform of objects in space.
class Transform3d : public ElementOf<Transform3d, TransformBase> {
 public:
  static constexpr Token tag = Word::Transform3d;
  using ElementOf::ElementOf;
  bool isContentChild(const dom::Node& node) const override;
};

}  // namespace vantry::plot
