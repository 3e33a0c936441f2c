// A whole document: it is checked, and converted if the check finds no error. It is to be converted
// then without exception. What is found can be reported in all ways.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ostream>
#include <sstream>
#include <string_view>

#include "fuzz_input.h"
#include "vantry/check/check.h"
#include "vantry/check/report.h"
#include "vantry/dom/tree_walk.h"
#include "vantry/javaview/jvd_writer.h"
#include "vantry/javaview/jvx_writer.h"
#include "vantry/plot/document.h"
#include "vantry/plot/elements/arc2d.h"
#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"

namespace {

using namespace vantry;
using namespace vantry::plot;

// As vantry reads it. True if nothing was refused.
bool read(PlotDocument& document, std::string_view text) {
  constexpr std::size_t blockSize = 512;
  reader::ZrdParserHandler handler(&document, true, nullptr);
  reader::Parser parser(&handler, true, nullptr);
  bool isWellFormed = true;
  for (bool isLast = false; !isLast;) {
    const std::string_view block = text.substr(0, blockSize);
    text.remove_prefix(block.size());
    isLast = block.size() < blockSize;
    isWellFormed =
        parser.parse(block.data(), static_cast<int>(block.size()), isLast) && isWellFormed;
  }
  return isWellFormed;
}

// An arc of thousands of turns is written with all of them: slow, but no find.
bool hasEndlessArc(const PlotDocument& document) {
  bool found = false;
  dom::walkSubtree<const dom::Node>(*document.documentElement(), [&](const dom::Node& node) {
    if (const auto* arc = elementCast<Arc2d>(&node)) {
      found = found || std::abs(arc->endAngle() - arc->startAngle()) > 10'000;
    }
    return true;
  });
  return found;
}

enum class Conversion { done, tooSlow, failed };

Conversion convert(std::string_view text) {
  const base::Ref<PlotDocument> document(new PlotDocument);
  Conversion conversion = Conversion::failed;
  try {
    const bool isRead = read(*document, text);
    if (document->documentElement() && hasEndlessArc(*document)) {
      conversion = Conversion::tooSlow;
    } else if (isRead) {
      std::ostream nowhere(nullptr);
      javaview::JVXWriter(document.get()).write(nowhere, plot::nan);
      javaview::JVDWriter(document.get()).write(nowhere, plot::nan);
      conversion = Conversion::done;
    }
  } catch (const std::exception&) {
  }
  document->tearDown();
  return conversion;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const Conversion conversion = convert(text);
  if (conversion == Conversion::tooSlow) return 0;
  const auto found = check::check(text);
  const bool hasErrors =
      std::ranges::count(found, check::Severity::error, &check::Diagnostic::severity) > 0;
  if (conversion == Conversion::failed && !hasErrors) std::abort();
  std::ostringstream reports;
  const check::FileReport report = {"document.zrd", found};
  check::writeText(reports, report, text, true);
  check::writeJsonLines(reports, report);
  check::writeSarif(reports, {&report, 1}, "1");
  return 0;
}
