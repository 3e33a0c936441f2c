#include "zrd/plot_file.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <vector>

#include "vantry/reader/xml_parser.h"
#include "vantry/reader/zrd_parser_handler.h"
#include "zrd/commands.h"

namespace vantry::zrd {

namespace {

/// Where the parser is, as editors count: lines and columns from 1.
std::string placeIn(const std::string& name, const reader::Parser& parser) {
  return name + ':' + std::to_string(parser.lineNumber()) + ':' +
         std::to_string(parser.columnNumber() + 1) + ": ";
}

void parse(std::istream& in, const std::string& name, reader::Parser& parser) {
  std::vector<char> block(std::size_t{64} * 1024);
  bool isLast = false;
  while (!isLast) {
    in.read(block.data(), std::ssize(block));
    if (in.bad()) throw Failure(badDocument, name + ": cannot be read: " + std::strerror(errno));
    isLast = in.eof();
    if (parser.parse(block.data(), static_cast<int>(in.gcount()), isLast)) continue;
    throw Failure(badDocument, placeIn(name, parser) + "not well-formed XML");
  }
}

}  // namespace

PlotFile::PlotFile(const std::string& name) {
  reader::ZrdParserHandler handler(document_.get(), false, nullptr);
  reader::Parser parser(&handler, true, nullptr);
  std::ifstream file;
  if (name != "-") file.open(name, std::ios::binary);
  if (!file) throw Failure(badDocument, name + ": cannot be opened: " + std::strerror(errno));
  try {
    parse(name == "-" ? std::cin : file, name, parser);
  } catch (const dom::DomException& failure) {
    throw Failure(badDocument, placeIn(name, parser) + failure.what());
  }
}

}  // namespace vantry::zrd
