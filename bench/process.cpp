#include "process.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

Cost run(const std::vector<std::string>& command, const std::filesystem::path& output) {
  std::vector<char*> argv;
  for (const std::string& word : command) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);

  const pid_t child = fork();
  if (child == 0) {
    const int file = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (file >= 0 && dup2(file, STDOUT_FILENO) >= 0 && dup2(file, STDERR_FILENO) >= 0) {
      execv(argv[0], argv.data());
    }
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) {
    throw std::runtime_error("failed: " + command.front() + " " + command.back());
  }
  const auto milliseconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return {milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024};
}
