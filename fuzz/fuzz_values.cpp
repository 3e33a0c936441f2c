// The texts of values: the scanner against the C library, and each parser against its printer.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <sstream>
#include <string>

#include "fuzz_input.h"
#include "vantry/base/output_sink.h"
#include "vantry/base/scan.h"
#include "vantry/base/text_errors.h"
#include "vantry/plot/values/value_parsers.h"
#include "vantry/plot/values/value_printers.h"

namespace {

using namespace vantry;
using namespace vantry::plot;

void demand(bool condition) {
  if (!condition) std::abort();
}

bool isSame(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

void scanLikeTheLibrary(const std::string& text) {
  std::array<double, 3> mine{};
  std::array<double, 3> theirs{};
  const int items = base::scanDoubles(text.c_str(), mine);
  const int expected =
      std::sscanf(text.c_str(), " %lf %lf %lf ", &theirs[0], &theirs[1], &theirs[2]);
  demand(items == std::max(expected, 0));
  for (std::size_t i = 0; i < static_cast<std::size_t>(items); ++i) {
    demand(isSame(mine[i], theirs[i]));
  }
  std::array<double, 3> short3{};
  if (base::scanOnlyShortDecimals(text.c_str(), short3)) {
    demand(items == 3);
    for (std::size_t i = 0; i < 3; ++i) demand(isSame(mine[i], short3[i]));
  }

  std::int32_t number = 0;
  long wide = 0;
  const bool isNumber = std::sscanf(text.c_str(), " %ld ", &wide) == 1;
  demand(base::scanLong(text.c_str(), number) == isNumber);
  if (isNumber) demand(number == std::max(-2147483648L, std::min(wide, 2147483647L)));
}

// Two numbers, or three, and behind them two words.
template <std::size_t numberCount>
void scanPointLikeTheLibrary(const std::string& text) {
  std::array<double, 3> mine{};
  std::array<double, 3> theirs{};
  std::array<base::ScannedWord, 2> myWords{};
  std::array<base::ScannedWord, 2> theirWords{};
  const int items = base::scanPoint(text.c_str(), std::span(mine.data(), numberCount), myWords);
  const int expected =
      numberCount == 2
          ? std::sscanf(text.c_str(), " %lf %lf #%10s #%10s ", &theirs[0], &theirs[1],
                        theirWords[0].data(), theirWords[1].data())
          : std::sscanf(text.c_str(), " %lf %lf %lf #%10s #%10s ", &theirs[0], &theirs[1],
                        &theirs[2], theirWords[0].data(), theirWords[1].data());
  demand(items == std::max(expected, 0));
  for (std::size_t i = 0; i < 3; ++i) demand(isSame(mine[i], theirs[i]));
  for (std::size_t i = 0; i < 2; ++i) {
    demand(std::strcmp(myWords[i].data(), theirWords[i].data()) == 0);
  }
}

void scanWordLikeTheLibrary(const std::string& text) {
  base::ScannedWord mine{};
  base::ScannedWord theirs{};
  demand(base::scanWord(text.c_str(), mine) ==
         (std::sscanf(text.c_str(), " %10s ", theirs.data()) == 1));
  demand(std::strcmp(mine.data(), theirs.data()) == 0);
}

void printLikeTheLibrary(double value) {
  char expected[40];
  std::snprintf(expected, sizeof expected, "%g", value);
  std::ostringstream stream;
  base::OutputSink sink(stream);
  sink << value;
  sink.flush();
  demand(stream.str() == expected);
}

// What was parsed prints as a text that can be parsed and then prints alike.
template <class Parser, class Value>
void parsePrintParse(const std::string& text) {
  Value value{};
  if (!Parser::parse(value, text.c_str())) return;
  std::ostringstream first;
  GenericPutXml<Value>::put(first, value);
  Value again{};
  demand(Parser::parse(again, first.str().c_str()));
  std::ostringstream second;
  GenericPutXml<Value>::put(second, again);
  demand(first.str() == second.str());
}

// Whether the text is written as it is, without escapes, and stays whole between quotation marks.
bool isPlain(const std::string& text) {
  return std::ranges::all_of(text, [](char c) {
    return static_cast<unsigned char>(c) < 0x80 && std::strchr("'\"&<>", c) == nullptr;
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  printLikeTheLibrary(input.take<double>());
  const std::string text = input.rest();
  scanLikeTheLibrary(text);
  scanPointLikeTheLibrary<2>(text);
  scanPointLikeTheLibrary<3>(text);
  scanWordLikeTheLibrary(text);
  parsePrintParse<LongParser, std::int32_t>(text);
  parsePrintParse<DoubleParser, double>(text);
  parsePrintParse<ColorParser, RGBA>(text);
  parsePrintParse<P2Parser, P2>(text);
  parsePrintParse<P3Parser, P3>(text);
  parsePrintParse<BoolParser, bool>(text);
  if (isPlain(text)) parsePrintParse<FontStyleParser, FontStyle>(text);
  return 0;
}
