// The pieces of text that JavaView models and displays share.
#pragma once

#include <string_view>

#include "vantry/base/output_sink.h"
#include "vantry/plot/values/rgba.h"

namespace vantry::javaview {

/// 90 pixels to the inch.
inline constexpr double pixelsPerMillimetre = 3.5433070866141736;

/// Writes to a stream through a sink, with the pieces that every JavaView file is made of. Emitters
/// write literal text with <<, in the order in which it is in the file.
class JavaViewOutput {
 public:
  /// From now on writes to `stream`, which must outlive the writing.
  void attach(std::ostream& stream) { sink_.attach(stream); }
  void flush() { sink_.flush(); }

  /// Text, integers, and doubles with six significant digits.
  template <class T>
  JavaViewOutput& operator<<(const T& value) {
    sink_ << value;
    return *this;
  }

  /// ` name="show"` or ` name="hide"`.
  void writeShowAttribute(std::string_view name, bool show);

  /// `<color>R G B</color>` and a newline. Alpha is not written.
  void writeColor(plot::RGBA color);

  /// `<thickness>` of a size in millimetres, in pixels and at least 1. Nothing for a NaN.
  void writeThickness(double size);

  /// A text in the native encoding, as UTF-8 and with the characters of markup escaped. Null is
  /// the empty text. Throws base::BadUnicodeString.
  void writeEscapedLocaleText(const char* text);

 private:
  base::OutputSink sink_;
};

}  // namespace vantry::javaview
