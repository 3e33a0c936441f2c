// The search for the styles from which objects, transforms and styles inherit.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "SRC/plot_element.h"

namespace PlotDom {

class ObjStyle;

/// The first ObjStyle with the type `key` and a local value of `name`, in the containers around
/// `start`, from the inside out. Null if there is none.
const PlotElement* findObjStyle(const Arbor::Node& start, Token key, Token name);

/// Adds every ObjStyle with the type `key` in the containers around `start`: the nearest level
/// first, in document order within a level.
void collectObjStyles(const Arbor::Node& start, Token key, StyleChain& chain);

/// What an element of the type `key` inherits from: first the styles of that type, then those of
/// the type Default.
const PlotElement* findTypedStyle(const Arbor::Node& start, Token key, Token name);
void collectTypedStyles(const Arbor::Node& start, Token key, StyleChain& chain);

/// What a container knows of object styles, so that a search need not look at its other children,
/// nor at the containers around it that have none.
class StyleIndex {
 public:
  StyleIndex() = default;
  StyleIndex(const StyleIndex&) {}  // a copy has no children yet
  StyleIndex& operator=(const StyleIndex&) = delete;
  ~StyleIndex();

  /// What a change of children means for the styles among them.
  struct Change {
    bool isMixed = false;                   // the styles are to be sorted anew
    const Arbor::Node* appended = nullptr;  // or else, these are to be added
  };

  /// To be called before a change of children, with what goes and comes.
  static Change beforeReplace(const Arbor::Node* first, unsigned count,
                              const Arbor::Node* newChildren);
  /// To be called after it.
  void afterReplace(const Change& change) noexcept;

  /// To be called when a child has got another type.
  void typeChanged() const;

  /// The ObjStyle children of that type, in document order. `container` is the element whose index
  /// this is.
  std::span<const ObjStyle* const> stylesOf(const Arbor::Node& container, Token type) const;

  /// The nearest container with styles: the element `node` or an ancestor of it. Null if there is
  /// none.
  static const PlotElement* nearestStyled(const Arbor::Node* node);

 private:
  using StylesByType = std::map<Token, std::vector<const ObjStyle*>>;

  enum class State {
    none,      // there never was any
    outdated,  // the next search sorts the children anew
    sorted
  };

  static void addStyles(const Arbor::Node* node, StylesByType& byType);

  mutable StylesByType byType_;
  mutable State state_ = State::none;

  // For a container without styles: the nearest around it that has some, as long as the stamp is
  // the current one.
  mutable const PlotElement* outer_ = nullptr;
  mutable std::uint64_t stamp_ = 0;
  mutable bool isPassed_ = false;  // a container in it remembers one that is further out
};

/// A container through which a search for object styles goes. Its ObjStyle children are styles for
/// what is in it, unless it only passes searches on.
template <class Base, bool hasStyles = true>
class StyleScope : public Base {
 public:
  using Base::Base;

  const StyleIndex* styleIndex() const override { return &index_; }

  void doReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newChildren) override {
    const StyleIndex::Change change = StyleIndex::beforeReplace(first, count, newChildren);
    Base::doReplaceChildren(first, count, newChildren);
    if constexpr (hasStyles) index_.afterReplace(change);
  }

 protected:
  StyleScope(const StyleScope&) = default;

 private:
  StyleIndex index_;
};

}  // namespace PlotDom
