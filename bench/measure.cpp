// Measures the program against the floor: CPU time of whole processes, user and system together,
// by the median of several runs that alternate between the two.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "process.h"

namespace {

namespace fs = std::filesystem;

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

struct Workload {
  const char* kind;
  int n;
  double items;        ///< points, cells or objects
  std::size_t points;  ///< the points that are written
  bool hasDirect;      ///< whether there is a program made for it
};

constexpr Workload workloads[] = {
    {"mesh", 2, 4, 4, true},
    {"mesh", 100, 1e4, 10'000, true},
    {"mesh", 200, 4e4, 40'000, true},
    {"mesh", 1000, 1e6, 1'000'000, true},
    {"curve", 10'000, 1e4, 10'000, false},
    {"curve", 1'000'000, 1e6, 1'000'000, false},
    {"density", 100, 1e4, 101 * 101, false},
    {"density", 1000, 1e6, 1001 * 1001, false},
    {"objects", 10'000, 1e4, 20'000, true},
    {"objects", 100'000, 1e5, 200'000, true},
};

/// Refuses a result that is not whole: its time would mean nothing.
void check(const Workload& workload, const fs::path& result) {
  std::ifstream file(result);
  std::size_t points = 0;
  for (std::string line; std::getline(file, line);) points += line.starts_with("<p>");
  if (points != workload.points) {
    throw std::runtime_error(std::to_string(points) + " points in the result of " + workload.kind);
  }
}

/// Refuses a program made for the workload if it writes anything else but the date.
void compare(const fs::path& result, const fs::path& direct) {
  std::ifstream file(result);
  std::ifstream other(direct);
  for (std::string line, otherLine; std::getline(file, line);) {
    if (std::getline(other, otherLine) && line == otherLine) continue;
    if (line.starts_with("<meta date=")) continue;
    throw std::runtime_error("bench_direct writes \"" + otherLine + "\" for \"" + line + '"');
  }
}

class Measurement {
 public:
  Measurement(fs::path programs, fs::path folder, int runs)
      : programs_(std::move(programs)), folder_(std::move(folder)), runs_(runs) {}

  /// Measures a workload and prints its line of the table.
  void measure(const Workload& workload) const {
    const std::string size = std::to_string(workload.n);
    const fs::path document = folder_ / "in.zrd";
    const fs::path result = folder_ / "out.jvx";
    const fs::path directResult = folder_ / "direct.jvx";
    run({programs_ / "bench/bench_generate", workload.kind, size}, document);

    std::vector<double> floor;
    std::vector<double> direct;
    std::vector<double> program;
    double memory = 0;
    for (int i = 0; i < runs_; ++i) {
      floor.push_back(run({programs_ / "bench/bench_floor", document}, "/dev/null").milliseconds);
      if (workload.hasDirect) {
        fs::remove(directResult);
        const Cost cost =
            run({programs_ / "bench/bench_direct", document, directResult}, "/dev/null");
        direct.push_back(cost.milliseconds);
      }
      fs::remove(result);
      const Cost cost = run({programs_ / "driver/vantry", "-o", result, document}, "/dev/null");
      program.push_back(cost.milliseconds);
      memory = std::max(memory, cost.megabytes);
    }

    check(workload, result);
    if (workload.hasDirect) compare(result, directResult);

    const double floorTime = median(floor);
    const double programTime = median(program);
    std::printf("%-8s %8d %9.1f %9.1f %9.2f %9.2f %6.2f %9.0f %7.1f", workload.kind, workload.n,
                megabytes(document), megabytes(result), floorTime, programTime,
                programTime / floorTime, programTime * 1e6 / workload.items, memory);
    if (workload.hasDirect) {
      const double directTime = median(direct);
      std::printf(" %9.2f %6.2f", directTime, programTime / directTime);
    }
    std::puts("");
    std::fflush(stdout);
  }

 private:
  static double megabytes(const fs::path& file) {
    return static_cast<double>(fs::file_size(file)) / (1024 * 1024);
  }

  fs::path programs_;
  fs::path folder_;
  int runs_;
};

}  // namespace

int main(int argc, char** argv) try {
  const int runs = argc == 4 ? std::atoi(argv[3]) : 0;
  if (runs <= 0) {
    std::fputs("usage: bench_measure <build-folder> <folder-for-files> <runs>\n", stderr);
    return 1;
  }
  std::puts(
      "kind            n     in MB    out MB  floor ms vantry ms  ratio   ns/item peak MB"
      " direct ms  ratio");
  const Measurement measurement(argv[1], argv[2], runs);
  for (const Workload& workload : workloads) measurement.measure(workload);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 2;
}
