// Drawings of all elements there are.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "vantry/plot/document.h"
#include "vantry/plot/values/rgba.h"

/// A document with elements, attributes, texts and data by chance, the same for each `seed`. All of
/// it can be written and read again: texts have no blanks at their ends, for readers drop them, and
/// attributes no line breaks, which are blanks to an XML parser.
class RandomDrawing {
 public:
  explicit RandomDrawing(unsigned seed);
  ~RandomDrawing() { document_->tearDown(); }

  vantry::plot::PlotDocument& document() { return *document_; }

 private:
  using Token = vantry::plot::Token;
  using Variant = vantry::plot::Variant;
  using PlotElement = vantry::plot::PlotElement;

  int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }
  bool oneIn(int count) { return below(count) == 0; }
  template <class List>
  auto oneOf(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
  }

  double number();
  vantry::plot::RGBA color();
  std::string text();
  std::string line();
  Token word();
  Variant value(const Variant& like);

  void setAttributes(PlotElement& element);
  void addText(PlotElement& element);
  void addData(PlotElement& element);
  void addChildren(PlotElement& element);

  std::mt19937 random_;
  vantry::base::Ref<vantry::plot::PlotDocument> document_{new vantry::plot::PlotDocument};
  int elementsLeft_ = 600;
};
