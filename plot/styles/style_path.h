// What object styles hold at one place of the tree.
#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <vector>

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

class ObjStyle;

/// The containers around the place that was last searched for object styles, each a child of the
/// one before it, with the styles that hold in them. A search at the same place, or near to it in
/// the order of the document, need not walk outwards again. Each document has one path.
///
/// A container on the path knows so, see StyleIndex, and takes itself off when something changes by
/// which other styles may hold in it. A change elsewhere does not matter.
class StylePath {
 public:
  using Styles = std::vector<const ObjStyle*>;

  StylePath() = default;
  StylePath(const StylePath&) = delete;
  StylePath& operator=(const StylePath&) = delete;
  ~StylePath() { cutAt(0); }

  /// The styles of that type that hold in `container`, its own first, then those of the containers
  /// around it. One is left out if the styles before it have all of its attributes. The result
  /// lives until the next search or change.
  std::span<const ObjStyle* const> stylesIn(const PlotElement& container, Token type);

  /// The outermost of the containers that the last answer was about. What is around it is no
  /// container.
  const PlotElement& outermost() const { return *levels_.front().container; }

  /// Adds a style that has come behind the other children of the container on that level.
  void append(std::size_t level, const ObjStyle& style);

  /// Takes the container on that level off the path, and all that are in it.
  void cutAt(std::size_t level) noexcept;

 private:
  /// A container, with the types of its own styles.
  struct Level {
    const PlotElement* container;
    const StyleIndex* index;  // which a container that is about to go can no longer be asked for
    std::vector<Token> types;
  };

  /// The styles of one type that hold in a container, and in those in it that have none.
  struct Scope {
    std::size_t level;
    Styles styles;
    std::size_t ownCount;  // so many of them are the container's own
  };
  using Scopes = std::vector<Scope>;  // from the outside in

  std::size_t enter(const PlotElement& container);
  void push(const PlotElement& container);
  static Scope makeScope(std::size_t level, std::span<const ObjStyle* const> own,
                         std::span<const Scope> outer);

  std::vector<Level> levels_;
  std::map<Token, Scopes> scopesByType_;
};

}  // namespace vantry::plot
