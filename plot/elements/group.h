// Groups of objects.
#pragma once

#include "vantry/plot/framework/element_with_children.h"
#include "vantry/plot/framework/with_properties.h"
#include "vantry/plot/styles/style_index.h"

namespace vantry::plot {

/// Objects, groups and transforms that are shown or hidden together; styles in a group are for
/// what is in it.
class GroupBase : public ContainerWithProperties<GroupBase, StyleContainer<ElementWithChildren>>,
                  public MemberValues {
 public:
  explicit GroupBase(ElementDocument* document);

  /// A call with the attributes and the children as its arguments.
  bool beginCommand(CmdWriter& writer) const override;
  void endCommand(CmdWriter& writer) const override;

  static const PropertyList& propertyList();

  Resolved<base::FixedString> id;
  Resolved<base::FixedString> name;
  Resolved<bool> consistent;
  Resolved<bool> visible;

 protected:
  GroupBase(const GroupBase&) = default;
};

/// A group in the plane.
class Group2d : public ElementOf<Group2d, GroupBase> {
 public:
  static constexpr Token tag = Word::Group2d;
  using ElementOf::ElementOf;
};

/// A group in space.
class Group3d : public ElementOf<Group3d, GroupBase> {
 public:
  static constexpr Token tag = Word::Group3d;
  using ElementOf::ElementOf;
  bool isContentChild(const dom::Node& node) const override;
};

/// Whether objects of that type may be in a 3d group or transform. Cameras, lights and clipping
/// boxes belong to the whole coordinate system, and so are directly in it; an object without a
/// type may become one of them.
bool isMovableType3d(Token type);

/// The same for a node, which may be any other than an object as well.
bool isMovable3d(const dom::Node& node);

}  // namespace vantry::plot
