// The panels of a page, and the blocks of text that they are drawn from.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "vantry/base/text_errors.h"
#include "vantry/javaview/export_error.h"
#include "vantry/page/page.h"
#include "vantry/page/texts.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/scene.h"

namespace vantry::page {

/// Does the work; where it cannot be done, throws PageError with the source of the plot.
template <class Work>
auto naming(const std::string& source, Work work) {
  try {
    return work();
  } catch (const javaview::JavaViewExportError& failure) {
    throw PageError(source, failure.what());
  } catch (const base::BadUnicodeString&) {
    throw TextError(source);
  }
}

/// Writes the elements of a page that hold JVX and JVD texts.
class Blocks {
 public:
  explicit Blocks(std::ostream& out) : out_(out) {}

  /// Writes an element with the text that `write` writes, and returns the name that it gets.
  std::string add(const std::function<void(std::ostream& text)>& write);

 private:
  std::ostream& out_;
  std::size_t count_ = 0;
};

/// From when to when a drawing moves.
struct TimeSpan {
  double begin;
  double end;
};

/// One drawing of a page.
class Panel {
 public:
  virtual ~Panel() = default;

  /// None for a drawing that does not move.
  virtual std::optional<TimeSpan> timeSpan() const { return std::nullopt; }

  /// The scene that is drawn; null for a drawing that is none of a plot document.
  virtual const plot::SceneBase* scene() const { return nullptr; }

  /// Everything about the panel but its frames.
  virtual Json text() const = 0;

  /// Writes the texts of the next frame, as far as it differs from the last one, and returns what
  /// the page says of it. Times come in rising order; NaN asks for no certain time. Throws
  /// PageError.
  virtual Json writeFrame(Blocks& blocks, double time) = 0;
};

/// The panel of each scene that can be drawn, in the order of the document. Throws PageError if
/// there is no such scene.
std::vector<std::unique_ptr<Panel>> panelsOf(plot::PlotDocument& document, const PlotName& name);

/// The panel of a JVX text and a JVD text, which may be null.
std::unique_ptr<Panel> panelOf(std::istream& model, std::istream* display, std::string title);

}  // namespace vantry::page
