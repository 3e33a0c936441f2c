// A whole document: it is parsed in blocks, and written in every form that there is. The first byte
// chooses the time, so that animations are seen as well, and the command.

#include <algorithm>
#include <cmath>
#include <ostream>
#include <streambuf>

#include "fuzz_input.h"
#include "vantry/base/text_errors.h"
#include "vantry/dom/dom_exception.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/export_error.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace {

using namespace vantry;
using namespace vantry::plot;
using namespace vantry::reader;
using namespace vantry::javaview;

int dropMessage(const char*, va_list) { return 0; }

/// Takes everything, so that all of it is formatted, and keeps nothing.
class Nowhere : public std::streambuf {
 private:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize size) override { return size; }
};

// Runs one step of the use of a document. It may be refused in the ways that are meant for that.
template <class Step>
bool passes(Step step) {
  try {
    step();
    return true;
  } catch (const dom::DomException&) {
  } catch (const JavaViewExportError&) {
  } catch (const base::BadUnicodeString&) {
  }
  return false;
}

void parse(PlotDocument& document, const char* data, std::size_t size) {
  constexpr std::size_t blockSize = 512;
  ZrdParserHandler handler(&document, false, dropMessage);
  reader::Parser parser(&handler, true, nullptr);
  for (bool isLast = false; !isLast;) {
    const std::size_t count = std::min(size, blockSize);
    isLast = count < blockSize;
    parser.parse(data, static_cast<int>(count), isLast);
    data += count;
    size -= count;
  }
}

// An arc of thousands of turns is written with all of them: slow, but no find.
bool hasEndlessArc(const PlotDocument& document) {
  const PlotElement* root = document.documentElement();
  if (!root) return false;
  bool found = false;
  dom::walkSubtree<const dom::Node>(*root, [&](const dom::Node& node) {
    if (const auto* arc = elementCast<Arc2d>(&node)) {
      found = found || std::abs(arc->endAngle() - arc->startAngle()) > 10'000;
    }
    return true;
  });
  return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t choice = size > 0 ? data[0] : 1;
  const double time = choice % 2 == 0 ? choice : plot::nan;
  const base::Ref<PlotDocument> document(new PlotDocument);
  document->setErrorReporter(dropMessage);
  Nowhere buffer;
  std::ostream nowhere(&buffer);
  const bool isRead = passes([&] { parse(*document, reinterpret_cast<const char*>(data), size); });
  if (isRead && !hasEndlessArc(*document)) {
    passes([&] { JVXWriter(document.get()).write(nowhere, time); });
    passes([&] { JVDWriter(document.get()).write(nowhere, time); });
    passes([&] { document->printCommands(nowhere, choice % 3 == 0); });
    passes([&] { document->writeXml(nowhere); });
  }
  document->tearDown();
  return 0;
}
