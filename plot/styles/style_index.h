// What the containers of object styles know of them.
#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

class ObjStyle;
class StylePath;

/// What a container knows of its object styles, so that a search need not look at its other
/// children.
class StyleIndex {
 public:
  using StylesByType = std::map<Token, std::vector<const ObjStyle*>>;

  StyleIndex() = default;
  StyleIndex(const StyleIndex&) {}  // a copy has no children yet
  StyleIndex& operator=(const StyleIndex&) = delete;
  ~StyleIndex() { leavePath(); }

  /// The ObjStyle children by type, in document order. `container` is the element whose index this
  /// is.
  const StylesByType& stylesByType(const PlotElement& container) const;

  /// What a change of children means for the styles among them.
  struct Change {
    bool isInside = false;                // the styles are to be collected anew
    const dom::Node* appended = nullptr;  // or else, these are to be added
  };

  /// To be called before a change of children, with what goes and comes.
  static Change beforeReplace(const dom::Node* first, unsigned count, const dom::Node* newChildren);
  /// To be called after it.
  void afterReplace(const Change& change) noexcept;

  /// To be called when a style among the children has got another type.
  void typeChanged() const noexcept;
  /// To be called when one of them has got an attribute more or less, and when other containers may
  /// be around this one.
  void leavePath() const noexcept;

 private:
  friend class StylePath;

  void addStyles(const dom::Node* node) const;

  // All that is here is found in the tree again when it is missing, hence the changes by searches.
  mutable StylesByType byType_;
  mutable bool isOutdated_ = false;  // the next search collects the styles anew

  // The place on the path of the document; null if the container is not on it.
  mutable StylePath* path_ = nullptr;
  mutable std::size_t level_ = 0;
};

/// A container through which a search for object styles goes. Its ObjStyle children are styles for
/// what is in it, unless it only passes searches on.
template <class Base, bool hasStyles = true>
class StyleContainer : public Base {
 public:
  using Base::Base;

  const StyleIndex* styleIndex() const override { return &index_; }

  void doReplaceChildren(dom::Node* first, unsigned count, dom::Node* newChildren) override {
    const StyleIndex::Change change = StyleIndex::beforeReplace(first, count, newChildren);
    Base::doReplaceChildren(first, count, newChildren);
    if constexpr (hasStyles) index_.afterReplace(change);
  }

 protected:
  StyleContainer(const StyleContainer&) = default;

 private:
  StyleIndex index_;
};

}  // namespace vantry::plot
