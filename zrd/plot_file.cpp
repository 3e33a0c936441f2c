#include "zrd/plot_file.h"

#include <array>
#include <exception>
#include <fstream>
#include <new>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "vantry/base/vocabulary.h"
#include "vantry/check/values.h"
#include "vantry/reader/zrd_names.h"
#include "vantry/reader/zrd_parser_handler.h"
#include "zrd/commands.h"
#include "zrd/file_content.h"

namespace vantry::zrd {

namespace {

/// Where the parser is, as editors count: lines and columns from 1.
std::string placeIn(const std::string& name, const reader::Parser& parser) {
  return name + ':' + std::to_string(parser.lineNumber()) + ':' +
         std::to_string(parser.columnNumber() + 1) + ": ";
}

/// Builds the tree of a document, warns of what is left out of it, and refuses one that is no plot.
class PlotReader final : private reader::ZrdParserHandler {
 public:
  PlotReader(plot::PlotDocument& document, const std::string& name, const Warn& warn)
      : ZrdParserHandler(&document, ignoresIds, nullptr), name_(name), warn_(warn) {}

  void read(std::istream& in);

 private:
  static constexpr bool ignoresIds = true;  // as vantry does: two elements may have the same one
  static constexpr std::size_t mostWarnings = 10;

  bool lookupElement(std::string_view namespaceUri, const char* localName,
                     std::uint32_t& outNamespaceId, std::uint32_t& outElementId) override;
  bool lookupAttribute(std::string_view namespaceUri, const char* localName,
                       std::uint32_t& outNamespaceId, std::uint32_t& outAttributeId) override;
  void leaveOut(const std::string& kind, std::string_view namespaceUri, const char* localName);

  const std::string& name_;
  const Warn& warn_;
  reader::Parser parser_{this, true, nullptr};
  bool hasRoot_ = false;
  std::set<std::string> leftOut_;  // that was warned of
};

void PlotReader::read(std::istream& in) {
  try {
    parseAll(in, name_, parser_);
  } catch (const Failure&) {
    throw;
  } catch (const std::bad_alloc&) {
    throw Failure(badDocument, name_ + ": out of memory");
  } catch (const std::exception& failure) {
    throw BadDocument(placeIn(name_, parser_) + failure.what());
  }
}

[[noreturn]] void refuseRoot(std::string_view namespaceUri, std::string_view localName) {
  const std::string reason = reader::isForeignNamespace(namespaceUri)
                                 ? "in the namespace \"" + check::shortened(namespaceUri) + '"'
                                 : check::shortened(localName) + ", not Canvas";
  const bool isOfJavaView = localName == "jvx-model" || localName == "jv-disp";
  throw std::runtime_error("this is no plot document: its outermost element is " + reason +
                           (isOfJavaView ? "; zrd view shows JVX files, with names in .jvx" : ""));
}

bool PlotReader::lookupElement(std::string_view namespaceUri, const char* localName,
                               std::uint32_t& outNamespaceId, std::uint32_t& outElementId) {
  const bool isKnown =
      ZrdParserHandler::lookupElement(namespaceUri, localName, outNamespaceId, outElementId);
  const bool isRoot = !std::exchange(hasRoot_, true);
  const bool isCanvas = isKnown && outElementId == static_cast<std::uint32_t>(base::WordId::Canvas);
  if (isRoot && !isCanvas) refuseRoot(namespaceUri, localName);
  if (!isKnown) leaveOut("element", namespaceUri, localName);
  return isKnown;
}

bool PlotReader::lookupAttribute(std::string_view namespaceUri, const char* localName,
                                 std::uint32_t& outNamespaceId, std::uint32_t& outAttributeId) {
  const bool isKnown =
      ZrdParserHandler::lookupAttribute(namespaceUri, localName, outNamespaceId, outAttributeId);
  const bool isOfXml = namespaceUri == reader::xmlNamespace;  // as xml:lang, which says nothing
  if (!isKnown && !isOfXml) leaveOut("attribute", namespaceUri, localName);
  return isKnown;
}

/// Each name and each other namespace is warned of once, at its first place.
void PlotReader::leaveOut(const std::string& kind, std::string_view namespaceUri,
                          const char* localName) {
  const std::string what =
      reader::isForeignNamespace(namespaceUri)
          ? "what is in the namespace \"" + check::shortened(namespaceUri) + '"'
          : "the unknown " + kind + ' ' + check::shortened(localName);
  if (!warn_ || leftOut_.size() == mostWarnings || !leftOut_.insert(what).second) return;
  const bool isLast = leftOut_.size() == mostWarnings;
  warn_(placeIn(name_, parser_) + "warning: " + (isLast ? "more" : what) + " is left out" + wayOut);
}

}  // namespace

// In blocks of the size that vantry takes, so that both make the same of every document.
void parseAll(std::istream& in, const std::string& name, reader::Parser& parser) {
  std::array<char, 512> block;
  bool isLast = false;
  while (!isLast) {
    const std::size_t size = readBlock(in, name, block);
    isLast = size < block.size();
    if (parser.parse(block.data(), static_cast<int>(size), isLast)) continue;
    throw BadDocument(placeIn(name, parser) + "not well-formed XML");
  }
}

PlotFile::PlotFile(const std::string& name, const Warn& warn) : name_(name) {
  std::ifstream file;
  PlotReader(*document_, name_, warn).read(openInput(name, file));
}

PlotFile::PlotFile(std::istream& content, const std::string& name, const Warn& warn) : name_(name) {
  PlotReader(*document_, name_, warn).read(content);
}

}  // namespace vantry::zrd
