// The two pieces that every number passes, beside what the C and C++ libraries take for the same.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "vantry/base/output_sink.h"
#include "vantry/base/scan.h"

namespace {

constexpr std::size_t valueCount = 1024;  // as many values as stay in the nearest cache

/// Coordinates as a plot has them.
std::vector<double> numbers() {
  std::vector<double> result;
  for (std::size_t i = 0; i < valueCount; ++i) {
    const double x = static_cast<double>(i) / 100;
    result.push_back(std::sin(x) * std::exp(x / 8));
  }
  return result;
}

/// Points of three such coordinates, as text.
std::vector<std::string> points() {
  std::vector<std::string> result;
  for (const double x : numbers()) {
    char text[100];
    std::snprintf(text, sizeof text, "%.8g %.8g %.8g", x, x * x - 1, 1 / (1 + x * x));
    result.emplace_back(text);
  }
  return result;
}

/// A stream that takes everything and keeps nothing.
class NullStream : private std::streambuf, public std::ostream {
 public:
  NullStream() : std::ostream(this) {}

 private:
  int overflow(int c) override { return c; }
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

/// Times `work` on each of `values`, and counts in numbers.
template <class Values, class Work>
void each(benchmark::State& state, const Values& values, std::int64_t numbersEach, Work work) {
  for (auto _ : state) {
    for (const auto& value : values) work(value);
  }
  state.SetItemsProcessed(state.iterations() * std::ssize(values) * numbersEach);
}

void scanPoint(benchmark::State& state) {
  each(state, points(), 3, [](const std::string& text) {
    std::array<double, 3> point;
    benchmark::DoNotOptimize(vantry::base::scanDoubles(text.c_str(), point));
    benchmark::DoNotOptimize(point);
  });
}
BENCHMARK(scanPoint);

void scanPointBySscanf(benchmark::State& state) {
  each(state, points(), 3, [](const std::string& text) {
    std::array<double, 3> point;
    benchmark::DoNotOptimize(
        std::sscanf(text.c_str(), " %lf %lf %lf ", &point[0], &point[1], &point[2]));
    benchmark::DoNotOptimize(point);
  });
}
BENCHMARK(scanPointBySscanf);

void printDouble(benchmark::State& state) {
  NullStream stream;
  vantry::base::OutputSink sink(stream);
  each(state, numbers(), 1, [&](double number) { sink << number << ' '; });
}
BENCHMARK(printDouble);

void printDoubleByStream(benchmark::State& state) {
  NullStream stream;
  each(state, numbers(), 1, [&](double number) { stream << number << ' '; });
}
BENCHMARK(printDoubleByStream);

void printInteger(benchmark::State& state) {
  NullStream stream;
  vantry::base::OutputSink sink(stream);
  int i = 0;
  for (auto _ : state) sink << ++i % 1'000'000 << ' ';
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(printInteger);

void printIntegerByStream(benchmark::State& state) {
  NullStream stream;
  int i = 0;
  for (auto _ : state) stream << ++i % 1'000'000 << ' ';
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(printIntegerByStream);

}  // namespace
