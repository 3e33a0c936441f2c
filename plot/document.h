// The document of the plot model.
#pragma once

#include "vantry/plot/framework/element_document.h"
#include "vantry/plot/styles/style_path.h"

namespace vantry::plot {

/// The document of a plot. Its root is a Canvas.
class PlotDocument : public ElementDocument {
 public:
  PlotDocument() = default;

  /// Knows the classes of the model, and those of a host that derive from them and keep their
  /// names. Another class is reported.
  bool knowsClassOf(const dom::Node& node) const override;
  /// Refuses characters that XML does not have, and reports them.
  bool canHoldText(const char* text) const override;

  /// Writes what the reader reads, with numbers in the precision of the stream. Throws DomException
  /// InvalidState for a document that could not be read back, after a message to the reporter that
  /// says why, and base::BadUnicodeString for a text that the locale cannot hold; nothing is
  /// written then.
  std::ostream& writeXml(std::ostream& out) const override;

  /// Writes the drawing as a call of the algebra system's plot command, or of the command that
  /// draws a plot again. Nothing is written for a document without a root.
  virtual void printCommands(std::ostream& out, bool replot) const;

  /// Calls visit() of each element, from the root down.
  virtual void visitElements();

  StylePath& stylePath() override { return stylePath_; }

  // The selection: what the selected ranges of the document hold.

  /// Makes `node` the selection; null for no selection. Throws DomException WrongDocument for a
  /// node of another document or without a parent.
  virtual void select(dom::Node* node);
  /// Selects the first element whose property `id` is this; no id or an empty one ends the
  /// selection, and so does one that no element has. Returns whether one was found.
  virtual bool selectById(const char* id);
  /// The selected element, or null unless the selection is exactly one child of one parent.
  virtual PlotElement* selectedElement() const;
  /// Deselects all ranges that are selected now. What an observer selects meanwhile stays.
  virtual void clearSelection();

  /// Whether there is a selected element that may go: the canvas may not, and a scene or a
  /// coordinate system only if its parent has another one of the same name.
  virtual bool canDeleteSelection() const;
  /// Takes the selected element out, if it may go. All elements around it that are consistent by an
  /// attribute of their own no longer are. Both are one group of the undo history. Throws
  /// DomException HierarchyRequest, with nothing changed, where the parent cannot be without the
  /// element, as a tick mark without its place.
  virtual void deleteSelection();

  // The time of an animated drawing. Without a root there is none: NaN.

  /// Sets the current time of the canvas; NaN lets the initial time count again. This and the next
  /// throw DomException InvalidAccess if the root is no canvas.
  virtual void setCurrentTime(double time);
  /// The time to be shown: the current time of the canvas, or else its initial one.
  virtual double currentTime() const;
  /// The next time after (or before) `time` at which something changes; NaN if there is none.
  virtual double nextTime(double time, bool forward) const;

 protected:
  ~PlotDocument() override = default;

  /// A host that has element classes of its own makes them here, and all others by this one.
  base::Ref<dom::Element> newElement(Token name) override;

 private:
  bool canBeWritten() const;

  StylePath stylePath_;
};

}  // namespace vantry::plot
