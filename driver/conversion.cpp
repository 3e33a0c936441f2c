#include "driver/conversion.h"

#include <clocale>
#include <cstdint>
#include <optional>
#include <span>

#include "driver/input.h"
#include "driver/last_words.h"
#include "driver/output.h"
#include "driver/reporting.h"
#include "vantry/base/ref_counted.h"
#include "vantry/javaview/export_error.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/document.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace vantry::driver {

namespace {

/// A writer whose warnings reach the user.
template <class Writer>
class WarningWriter : public Writer {
 public:
  using Writer::Writer;
  void warning(const char* text) override { driver::warning(text); }
};

using JVX_Writer = WarningWriter<javaview::JVXWriter>;
using JVD_Writer = WarningWriter<javaview::JVDWriter>;

void warnOfParserError(const reader::Parser& parser) {
  parserWarning(parser.errorCode(), parser.lineNumber(), parser.columnNumber());
}

/// Parses the whole input. An error of the parser is no reason to stop: each block from the one
/// that shows it on is warned of, and so are blocks that were read before the parser looked at
/// them.
void parse(Input& in, reader::Parser& parser) {
  const PlaceInInput place(parser);
  constexpr auto blockSize = static_cast<std::int64_t>(Input::blockSize);
  std::int64_t blocks = 0;
  bool isWellFormed = true;
  bool isLast = false;
  while (!isLast) {
    const std::span<const char> block = in.nextBlock();
    isLast = block.size() < Input::blockSize;
    ++blocks;
    if (parser.parse(block.data(), static_cast<int>(block.size()), isLast)) continue;
    const std::int64_t first =
        isWellFormed ? (parser.errorEnd() + blockSize - 1) / blockSize : blocks;
    isWellFormed = false;
    warnOfParserError(parser);
    for (std::int64_t missed = first; missed < blocks; ++missed) {
      parser.parse("", 0, true);
      warnOfParserError(parser);
    }
  }
}

/// Writes the geometry. An animation has no `output`, for it opens a file for each frame.
void writeJvx(plot::PlotDocument* document, const Options& options, std::optional<Output>& output) {
  JVX_Writer writer(document);
  if (!output && writer.isAnimated()) return writer.writeAnimation(options.frames, options.outName);
  if (!output) {
    warning("No animation, '-f' ignored.");
    output.emplace(options.outName);
  }
  writer.write(output->stream(), options.time);
}

void write(plot::PlotDocument* document, const Options& options,
           std::optional<Output>& output) try {
  if (options.displayMode) {
    JVD_Writer(document).write(output->stream(), options.time);
  } else {
    writeJvx(document, options, output);
  }
} catch (const javaview::JavaViewExportError& failure) {
  error(failure.what());
}

}  // namespace

void convert(Options options) {
  if (options.displayMode && options.frames > 0) {
    warning("Only JVX files can be animated, '-f' ignored.");
    options.frames = 0;
  }

  Input in(options.inName);
  if (!options.outName && options.frames > 0) error("No output file name given.");
  std::optional<Output> output;
  if (options.frames == 0) output.emplace(options.outName);

  // Texts come out in the user's character set, numbers in no locale but the neutral one.
  std::setlocale(LC_CTYPE, "");

  // The document is left to the end of the process, which is near: taking apart a tree of many
  // objects would cost a twentieth of the time. A static reference keeps it in use for leak
  // checkers.
  static auto& document = *new base::Ref<plot::PlotDocument>(new plot::PlotDocument);
  reader::ZrdParserHandler handler(document.get(), true, nullptr);
  reader::Parser parser(&handler, true, nullptr);
  parse(in, parser);
  write(document.get(), options, output);
  if (output) output->close();
}

}  // namespace vantry::driver
