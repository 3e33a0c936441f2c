// Measures what many small documents cost: a process for each of them, or zrd for all.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "process.h"

namespace {

namespace fs = std::filesystem;

/// Small curves, meshes and objects, in folders of a thousand.
std::vector<fs::path> makeDocuments(const fs::path& programs, const fs::path& folder, int count) {
  std::vector<fs::path> documents;
  const char* const kinds[] = {"curve", "mesh", "objects"};
  for (int i = 0; i < count; ++i) {
    const fs::path place = folder / "plots" / std::to_string(i / 1000);
    fs::create_directories(place);
    documents.push_back(place / (std::to_string(i) + ".zrd"));
    run({programs / "bench/bench_generate", kinds[i % 3], std::to_string(2 + i / 3 % 9)},
        documents.back());
  }
  return documents;
}

/// Prints the files a second that some way of converting all documents reaches.
void measure(const char* name, std::size_t count, const std::function<double()>& convert) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point begin = Clock::now();
  const double milliseconds = convert();
  const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  std::printf("%-32s %10.0f %12.3f\n", name, static_cast<double>(count) / seconds,
              milliseconds / static_cast<double>(count));
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) try {
  const int count = argc == 4 ? std::atoi(argv[3]) : 0;
  if (count <= 0) {
    std::fputs("usage: bench_many <build-folder> <folder-for-files> <documents>\n", stderr);
    return 1;
  }
  const fs::path programs = argv[1];
  const fs::path folder = argv[2];
  const std::vector<fs::path> documents = makeDocuments(programs, folder, count);

  const auto processes = [&](const std::function<std::vector<std::string>(const fs::path&)>& make) {
    double milliseconds = 0;
    for (const fs::path& document : documents) {
      milliseconds += run(make(document), "/dev/null").milliseconds;
    }
    return milliseconds;
  };
  const auto zrd = [&](std::vector<std::string> options) {
    std::vector<std::string> command = {programs / "zrd/zrd", "convert", folder / "plots"};
    command.insert(command.end(), options.begin(), options.end());
    return run(command, "/dev/null").milliseconds;
  };

  std::puts("                                    files/s  CPU ms/file");
  measure("the parser alone, a process each", documents.size(), [&] {
    return processes([&](const fs::path& document) {
      return std::vector<std::string>{programs / "bench/bench_floor", document};
    });
  });
  measure("vantry, a process each", documents.size(), [&] {
    return processes([&](fs::path document) {
      const std::string input = document;
      return std::vector<std::string>{programs / "driver/vantry", "-o",
                                      document.replace_extension("jvx"), input};
    });
  });
  measure("zrd convert on one thread", documents.size(), [&] { return zrd({"--jobs", "1"}); });
  measure("zrd convert on all processors", documents.size(), [&] { return zrd({}); });
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 2;
}
