#include "driver/conversion.h"

#include <array>
#include <clocale>
#include <fstream>
#include <optional>

#include "SRC/plot_document.h"
#include "base/ref_counted.h"
#include "driver/output.h"
#include "driver/reporting.h"
#include "export/export_error.h"
#include "export/jvd_writer.h"
#include "export/jvx_writer.h"
#include "reader/xml_parser.h"
#include "reader/zrd_parser_handler.h"

namespace Driver {

namespace {

/// A writer whose warnings reach the user.
template <class Writer>
class WarningWriter : public Writer {
 public:
  using Writer::Writer;
  void warning(const char* text) override { Driver::warning(text); }
};

using JVX_Writer = WarningWriter<PlotDom::JVXWriter>;
using JVD_Writer = WarningWriter<PlotDom::JVDWriter>;

/// The input is parsed in blocks of this size: the number of parser warnings depends on it.
constexpr int blockSize = 512;

/// The input is read from the system in pieces of this size.
constexpr int readSize = 64 * 1024;

/// Parses the whole input. An error of the parser is no reason to stop: each block that follows
/// repeats it.
void parse(std::istream& in, Xml::Parser& parser) {
  std::array<char, blockSize> block;
  int count;
  do {
    in.read(block.data(), blockSize);
    count = static_cast<int>(in.gcount());
    if (!parser.parse(block.data(), count, count < blockSize)) {
      parserWarning(parser.errorCode(), parser.lineNumber(), parser.columnNumber());
    }
  } while (count == blockSize);
}

/// Writes the geometry. An animation has no `output`, for it opens a file for each frame.
void writeJvx(PlotDom::PlotDocument* document, const Options& options,
              std::optional<Output>& output) {
  JVX_Writer writer(document);
  if (!output && writer.isAnimated()) return writer.writeAnimation(options.frames, options.outName);
  if (!output) {
    warning("No animation, '-f' ignored.");
    output.emplace(options.outName);
  }
  writer.write(output->stream(), options.time);
}

void write(PlotDom::PlotDocument* document, const Options& options,
           std::optional<Output>& output) try {
  if (options.displayMode) {
    JVD_Writer(document).write(output->stream(), options.time);
  } else {
    writeJvx(document, options, output);
  }
} catch (const PlotDom::JavaViewExportError& failure) {
  error(failure.what());
}

}  // namespace

void convert(Options options) {
  if (options.displayMode && options.frames > 0) {
    warning("Only JVX files can be animated, '-f' ignored.");
    options.frames = 0;
  }

  std::array<char, readSize> readBuffer;
  std::ifstream in;
  in.rdbuf()->pubsetbuf(readBuffer.data(), readSize);
  in.open(options.inName, std::ios::binary);
  if (!in) error("Can not open input file.");

  if (!options.outName && options.frames > 0) error("No output file name given.");
  std::optional<Output> output;
  if (options.frames == 0) output.emplace(options.outName);

  // Texts come out in the user's character set, numbers in no locale but the neutral one.
  std::setlocale(LC_CTYPE, "");

  {
    const Ubase::Ref<PlotDom::PlotDocument> document = new PlotDom::PlotDocument;
    PlotDom::ZrdParserHandler handler(document.get(), true, nullptr);
    Xml::Parser parser(&handler, true, nullptr);
    parse(in, parser);
    write(document.get(), options, output);
    document->tearDown();
  }
  if (output) output->close();
}

}  // namespace Driver
