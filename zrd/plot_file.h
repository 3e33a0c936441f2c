// Plot documents as files.
#pragma once

#include <iosfwd>
#include <string>

#include "vantry/base/ref_counted.h"
#include "vantry/plot/document.h"
#include "vantry/reader/xml_parser.h"
#include "zrd/messages.h"

namespace vantry::zrd {

/// Has a file parsed to its end. Throws Failure if it cannot be read, and BadDocument if it is not
/// well formed; what the parser's handler throws passes.
void parseAll(std::istream& in, const std::string& name, reader::Parser& parser);

/// A plot document that was read from a file as vantry reads it, and is taken down with this. What
/// vantry leaves out of it without a word is warned of, unless `warn` is empty: elements and
/// attributes with unknown names, and what is in other namespaces.
class PlotFile {
 public:
  /// Reads a file; "-" is standard input. Throws Failure if it cannot be read, and BadDocument if
  /// it is not well formed, is no plot document, or holds what a plot document may not.
  PlotFile(const std::string& name, const Warn& warn);
  /// Reads the content of the file of that name.
  PlotFile(std::istream& content, const std::string& name, const Warn& warn);
  PlotFile(const PlotFile&) = delete;
  PlotFile& operator=(const PlotFile&) = delete;
  ~PlotFile() { document_->tearDown(); }

  const std::string& name() const { return name_; }
  plot::PlotDocument& document() const { return *document_; }

 private:
  std::string name_;
  base::Ref<plot::PlotDocument> document_{new plot::PlotDocument};
};

}  // namespace vantry::zrd
