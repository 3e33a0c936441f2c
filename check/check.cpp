#include "vantry/check/check.h"

#include <istream>
#include <iterator>
#include <string>

#include "vantry/base/ref_counted.h"
#include "vantry/check/checking_reader.h"
#include "vantry/check/findings.h"
#include "vantry/check/review.h"
#include "vantry/check/source.h"
#include "vantry/plot/document.h"

namespace vantry::check {

std::vector<Diagnostic> check(std::string_view text) {
  const Source source(text);
  Findings findings(source);
  const base::Ref<plot::PlotDocument> document(new plot::PlotDocument);
  {
    CheckingReader reader(*document, source, findings);
    if (reader.read()) Review(*document, reader.origins(), source, findings).run();
  }
  document->tearDown();
  return findings.take();
}

std::vector<Diagnostic> check(std::istream& document) {
  const std::string text{std::istreambuf_iterator<char>(document), {}};
  return check(text);
}

}  // namespace vantry::check
