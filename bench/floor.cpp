// The floor of the measurements: the XML parser alone. Feeds a file in blocks of 512 bytes, as the
// program does, to callbacks that do nothing.

#include <expat.h>

#include <array>
#include <cstdio>
#include <fstream>

namespace {

void XMLCALL start(void*, const char*, const char**) {}
void XMLCALL end(void*, const char*) {}
void XMLCALL characters(void*, const char*, int) {}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: bench_floor <in-file>\n", stderr);
    return 1;
  }
  std::array<char, 64 * 1024> buffer;
  std::ifstream in;
  in.rdbuf()->pubsetbuf(buffer.data(), buffer.size());
  in.open(argv[1], std::ios::binary);

  XML_Parser parser = XML_ParserCreateNS(nullptr, '\x01');
  XML_SetElementHandler(parser, start, end);
  XML_SetCharacterDataHandler(parser, characters);
  std::array<char, 512> block;
  int count;
  bool accepted = true;
  do {
    in.read(block.data(), block.size());
    count = static_cast<int>(in.gcount());
    accepted = accepted && XML_Parse(parser, block.data(), count, count < 512) == XML_STATUS_OK;
  } while (count == 512);
  XML_ParserFree(parser);
  return accepted ? 0 : 2;
}
