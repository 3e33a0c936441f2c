#include "zrd/plot_file.h"

#include <array>
#include <exception>
#include <fstream>
#include <new>

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

PlotFile::PlotFile(const std::string& name) : name_(name) {
  std::ifstream file;
  read(openInput(name, file));
}

PlotFile::PlotFile(std::istream& content, const std::string& name) : name_(name) { read(content); }

void PlotFile::read(std::istream& in) {
  constexpr bool ignoresIds = true;  // as vantry does: two elements may have the same one
  reader::ZrdParserHandler handler(document_.get(), ignoresIds, nullptr);
  reader::Parser parser(&handler, true, nullptr);
  try {
    parseAll(in, name_, parser);
  } catch (const Failure&) {
    throw;
  } catch (const std::bad_alloc&) {
    throw Failure(badDocument, name_ + ": out of memory");
  } catch (const std::exception& failure) {
    throw BadDocument(placeIn(name_, parser) + failure.what());
  }
}

}  // namespace vantry::zrd
