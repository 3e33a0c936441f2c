// Elements that are lists of expressions, of points or of tick marks.
#pragma once

#include <ostream>
#include <type_traits>

#include "vantry/plot/elements/expr.h"
#include "vantry/plot/elements/string_elements.h"
#include "vantry/plot/framework/element_with_children.h"
#include "vantry/plot/values/cmd_writer.h"

namespace vantry::plot {

/// Gives a new element `count` children of that name, unchecked.
void addChildren(PlotElement& parent, Token name, unsigned count);

/// Whether `parent` takes the new children and would have between `least` and `most` children after
/// `count` of them from `first` on were replaced.
bool canBeTuple(const PlotElement& parent, const dom::Node* first, unsigned count,
                dom::NewChildren newChildren, unsigned least, unsigned most);

/// Whether a list counts as empty: it has no child, or its first is no IExpr or is blank.
bool isBlankList(const PlotElement& list);

/// Writes the item `name=[a,b,c]`, or `name=NIL` for a list that counts as empty. A single
/// expression is in round brackets.
void putTuple(CmdWriter& writer, Token name, const PlotElement& tuple);

/// Writes the item `[a,b,c]`.
void putPoint(CmdWriter& writer, const PlotElement& point);

/// Writes `name=NIL` for a list without children and returns false; otherwise `name=` and
/// `opening`.
bool beginList(CmdWriter& writer, const PlotElement& list, const char* opening);

/// What an element writes when it counts as empty.
enum class WhenBlank { itself, nothing };

/// Between `least` and `most` expressions; a new element has `least` blank ones.
template <WordId name, unsigned least, unsigned most, WhenBlank whenBlank, class Base = PlotElement>
class ExprTuple : public ElementOf<ExprTuple<name, least, most, whenBlank, Base>, Base> {
 public:
  static constexpr Token tag = base::tokenOf(name);

  explicit ExprTuple(ElementDocument* document) : ElementOf<ExprTuple, Base>(document) {
    addChildren(*this, Word::IExpr, least);
  }

  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override {
    return canBeTuple(*this, first, count, newChildren, least, most);
  }

  bool isWritten() const override { return whenBlank == WhenBlank::itself || !isBlankList(*this); }

  bool beginCommand(CmdWriter& writer) const override {
    if constexpr (whenBlank == WhenBlank::itself) {
      putPoint(writer, *this);
    } else if constexpr (std::is_same_v<Base, Expr>) {
      putTuple(writer, this->option(), *this);
    } else {
      putTuple(writer, tag, *this);
    }
    return false;
  }
};

/// The coordinates of a point, and what is particular to it.
using Point2d = ExprTuple<WordId::Point2d, 2, 6, WhenBlank::itself>;
using Point3d = ExprTuple<WordId::Point3d, 3, 7, WhenBlank::itself>;
/// The entries of a matrix, row by row.
using Matrix2d = ExprTuple<WordId::Matrix2d, 4, 4, WhenBlank::nothing>;
using Matrix3d = ExprTuple<WordId::Matrix3d, 9, 9, WhenBlank::nothing>;
/// The two vectors that span the plane of a text.
using TextOrientation = ExprTuple<WordId::TextOrientation, 6, 6, WhenBlank::nothing>;
/// A colour function: one expression for the whole colour, or one for each component.
using ColorFunc = ExprTuple<WordId::ColorFunc, 1, 4, WhenBlank::nothing, Expr>;

/// A list of expressions that is the value of an option.
class ExprSeq : public ElementOf<ExprSeq, Expr> {
 public:
  static constexpr Token tag = Word::ExprSeq;
  using ElementOf::ElementOf;
  bool canReplaceChildren(dom::Node* first, unsigned count,
                          dom::NewChildren newChildren) const override;
  bool beginCommand(CmdWriter& writer) const override;
};

/// Where the first item of a list is in the command syntax.
enum class FirstItem { onNewLine, onSameLine };

/// Any number of children of one kind.
template <WordId name, FirstItem firstItem>
class ListOf : public ElementOf<ListOf<name, firstItem>, PlotElement> {
 public:
  static constexpr Token tag = base::tokenOf(name);
  using ElementOf<ListOf, PlotElement>::ElementOf;

  bool canReplaceChildren(dom::Node*, unsigned, dom::NewChildren newChildren) const override {
    return isContentOf(*this, newChildren);
  }

  bool beginCommand(CmdWriter& writer) const override {
    return beginList(writer, *this, firstItem == FirstItem::onNewLine ? "[\n" : "[");
  }
  void endCommand(CmdWriter& writer) const override {
    writer.out() << ']';
    writer.endItem();
  }
};

using Points2d = ListOf<WordId::Points2d, FirstItem::onNewLine>;
using Points3d = ListOf<WordId::Points3d, FirstItem::onNewLine>;

/// Tick marks at given places.
using XTicksAt = ListOf<WordId::XTicksAt, FirstItem::onSameLine>;
using YTicksAt = ListOf<WordId::YTicksAt, FirstItem::onSameLine>;
using ZTicksAt = ListOf<WordId::ZTicksAt, FirstItem::onSameLine>;

/// A tick mark: its place and, if it has one, its title.
class TickPos : public ElementOf<TickPos, ElementWithOptions> {
 public:
  static constexpr Token tag = Word::TickPos;

  explicit TickPos(ElementDocument* document);

  bool beginCommand(CmdWriter& writer) const override;
};

}  // namespace vantry::plot
